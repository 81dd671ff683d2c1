#pragma once

#include "skyframe/history/HistoryFile.h"
#include "skyframe/platform/PaintContext.h"

namespace skyframe {

// The viewer's picture, in pixels from the top left corner of the client area.

inline constexpr int c_nViewerWidth = 665;
inline constexpr int c_nViewerHeight = 300;

/// Panel, frame and zero line.
void PaintHistoryFrame(IPaintContext& paint);

/// Frame, history over the time in mm or kN, time labels every 100 px, extreme value at top and bottom.
/// Step k = 1..N stands at x = 250 + 400 k/N, y = 155 - scale * value. Values that are not finite lie on
/// the zero line. The set must have the curve.
void PaintHistory(IPaintContext& paint, const HistorySet& history, const HistoryCurve& curve);

/// Pixels per unit: 125 over the largest positive value or over the most negative one's magnitude,
/// whichever is smaller. Extremes of 1e-20 or less do not count, nor does a scale of 1e20 or more; 0
/// when there is none.
[[nodiscard]] double ChoosePlotScale(double dMost, double dLeast);

}  // namespace skyframe
