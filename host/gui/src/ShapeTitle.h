#pragma once

#include <string>

#include "skyframe/gui/Document.h"
#include "skyframe/scene/DeformedShape.h"

namespace skyframe::gui {

/// What a shape is called in the list and above the drawing.
[[nodiscard]] std::string FormShapeTitle(const host::DeformedShape& shape);

/// "linear static analysis".
[[nodiscard]] std::string FormResultTitle(ResultKind kind);

/// Behind the name of what a run with errors left.
[[nodiscard]] std::string FormFailedMark();
/// Behind the name of a result file that comes from another model, or from a run with errors.
[[nodiscard]] std::string FormResultMark(const CDocument& document, std::string_view strSuffix);
/// Behind the name of a result that comes from another model.
[[nodiscard]] std::string FormOutdatedMark();

}  // namespace skyframe::gui
