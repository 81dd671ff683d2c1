#pragma once

#include "skyframe/platform/PaintContext.h"

namespace skyframe::host {

// Pixels
inline constexpr double c_dLongestArrow = 52.0;
inline constexpr double c_dShortestArrow = 13.0;

[[nodiscard]] inline PaintPoint Shift(PaintPoint a, double d, PaintPoint b) {
  return {a.dX + d * b.dX, a.dY + d * b.dY};
}

/// Length of an arrow that stands for a value, the largest one of them given.
[[nodiscard]] double ScaleArrow(double dValue, double dLargest);

/// Line from tail to tip with one head, or two for a moment; a small circle when seen end on.
void PaintArrow(IPaintContext& paint, PaintPoint tail, PaintPoint tip, bool bDouble);

}  // namespace skyframe::host
