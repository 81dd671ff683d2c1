#pragma once

#include "skyframe/scene/Point3.h"

namespace skyframe::host {

/// Local axes of a member as the module forms them, of unit length; all zero for a member without length.
struct LocalAxes {
  Point3 x;  ///< from end i to end j
  Point3 y;  ///< horizontal
  Point3 z;
};
[[nodiscard]] LocalAxes FindLocalAxes(Point3 endI, Point3 endJ);

}  // namespace skyframe::host
