#pragma once

#include <string>

#include "skyframe/scene/DeformedShape.h"

namespace skyframe::gui {

/// What a shape is called in the list and above the drawing.
[[nodiscard]] std::string FormShapeTitle(const host::DeformedShape& shape);

/// Behind the name of a result that comes from another model.
std::string FormOutdatedMark();

}  // namespace skyframe::gui
