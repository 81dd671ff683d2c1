#include "Arrow.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace skyframe::host {

namespace {

constexpr double c_dLongestHead = 7.0;
constexpr double c_dHeadPart = 0.45;  // of a short arrow
constexpr double c_dEndOn = 2.0;      // seen length that counts as a point
constexpr double c_dEndOnRadius = 3.0;
constexpr int c_nCirclePoints = 12;

void PaintCircle(IPaintContext& paint, PaintPoint centre, double dRadius) {
  std::array<PaintPoint, c_nCirclePoints + 1> points;
  for (int k = 0; k <= c_nCirclePoints; ++k) {
    const double phi = 2.0 * std::numbers::pi * k / c_nCirclePoints;
    points[static_cast<std::size_t>(k)] = Shift(centre, dRadius, {std::cos(phi), std::sin(phi)});
  }
  paint.Polyline(points);
}

}  // namespace

double ScaleArrow(double dValue, double dLargest) {
  const double dPart = dLargest > 0.0 ? std::abs(dValue) / dLargest : 1.0;
  return std::max(c_dShortestArrow, c_dLongestArrow * std::min(dPart, 1.0));
}

void PaintArrow(IPaintContext& paint, PaintPoint tail, PaintPoint tip, bool bDouble) {
  const double dLength = std::hypot(tip.dX - tail.dX, tip.dY - tail.dY);
  if (dLength < c_dEndOn) return PaintCircle(paint, tip, c_dEndOnRadius);
  const double dHead = std::min(c_dLongestHead, c_dHeadPart * dLength);
  const PaintPoint along{(tip.dX - tail.dX) / dLength, (tip.dY - tail.dY) / dLength};
  const PaintPoint across{-along.dY, along.dX};
  paint.Line(tail.dX, tail.dY, tip.dX, tip.dY);
  paint.SetBrush(paint.GetState().pen);
  for (int nHead = 0; nHead < (bDouble ? 2 : 1); ++nHead) {
    const PaintPoint point = Shift(tip, -0.8 * nHead * dHead, along);
    const PaintPoint back = Shift(point, -dHead, along);
    paint.Polygon(std::array{Shift(back, 0.35 * dHead, across), point, Shift(back, -0.35 * dHead, across)});
  }
}

}  // namespace skyframe::host
