#pragma once

#include "skyframe/job/Job.h"

namespace skyframe::host {

// Steel sections of plates, in mm, without fillets or welds; the id tells the dimensions. Shape 1: its shear
// coefficient 2.0 is the nearest to area over web area of both kinds.

/// Height, breadth, web, flange. Iy is the strong axis: that of a horizontal beam bent by gravity.
[[nodiscard]] JobSection MakeHSection(int nHeight, int nBreadth, int nWeb, int nFlange);

/// Square box.
[[nodiscard]] JobSection MakeBoxSection(int nSide, int nPlate);

}  // namespace skyframe::host
