#pragma once

#include <string>

#include "skyframe/scene/DeformedShape.h"

namespace skyframe::gui {

/// What a shape is called in the list and above the drawing.
[[nodiscard]] std::string FormShapeTitle(const host::DeformedShape& shape);

}  // namespace skyframe::gui
