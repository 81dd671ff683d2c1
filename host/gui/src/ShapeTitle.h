#pragma once

#include <string>

#include "skyframe/gui/Document.h"
#include "skyframe/scene/DeformedShape.h"

namespace skyframe::gui {

/// What a shape is called in the list and above the drawing.
[[nodiscard]] std::string FormShapeTitle(const host::DeformedShape& shape);

/// "linear static analysis".
[[nodiscard]] std::string FormResultTitle(host::ResultKind kind);

/// Behind the name of what a run with errors left, or of what comes from another model.
[[nodiscard]] std::string FormResultMark(bool bFailed, bool bOutdated);
/// Of a result file.
[[nodiscard]] std::string FormResultMark(const CDocument& document, std::string_view strSuffix);
/// Behind the name of a result that comes from another model.
[[nodiscard]] std::string FormOutdatedMark();

}  // namespace skyframe::gui
