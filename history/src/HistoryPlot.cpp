#include "skyframe/history/HistoryPlot.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>
#include <vector>

namespace skyframe {

namespace {

constexpr Colour c_panelColour{0xF0, 0xF0, 0xF0};
constexpr Colour c_frameColour{0xFF, 0x00, 0x00};

constexpr double c_dPanelLeft = 170, c_dPanelTop = 10, c_dPanelRight = 248, c_dPanelBottom = 280;
constexpr double c_dFrameLeft = 250, c_dFrameTop = 30, c_dFrameRight = 651, c_dFrameBottom = 280;
constexpr double c_dAxisY = 155;
constexpr double c_dAxisLength = 400;
constexpr double c_dHalfHeight = 125;
constexpr int c_nLabelSpacing = 100;
constexpr double c_dLabelGap = 3;  // between a label and the frame

constexpr double c_dSmallestExtreme = 1.0e-20;
constexpr double c_dLargestScale = 1.0e20;

/// m to mm, N to kN.
double GetUnitFactor(int nQuantity) { return nQuantity == c_nHistoryForce ? 1.0e-3 : 1.0e3; }

/// The history in the viewer's units; values that are not finite are 0.
std::vector<double> GetValues(const HistorySet& history, const HistoryCurve& curve) {
  const CHistoryTable& matrix = history.values[static_cast<std::size_t>(curve.nQuantity)];
  const double dFactor = GetUnitFactor(curve.nQuantity);
  std::vector<double> values;
  for (int k = 0; k < history.nSteps; ++k) {
    const double dValue = matrix[k][curve.nNumber - 1] * dFactor;
    values.push_back(std::isfinite(dValue) ? dValue : 0.0);
  }
  return values;
}

/// "%.2e"
std::string FormatExtreme(double dValue) {
  std::array<char, 32> buffer;
  const auto result =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), dValue, std::chars_format::scientific, 2);
  return {buffer.data(), result.ptr};
}

void PaintCurve(IPaintContext& paint, const std::vector<double>& values, double dScale) {
  std::vector<PaintPoint> points = {{c_dFrameLeft, c_dAxisY}};
  const auto N = static_cast<double>(values.size());
  for (const double dValue : values) {
    const auto k = static_cast<double>(points.size());
    points.push_back({std::trunc(c_dFrameLeft + c_dAxisLength * k / N), std::trunc(c_dAxisY - dValue * dScale)});
  }
  paint.SetPen(c_black);
  paint.Polyline(points);
}

/// Integer part of k dt where k is the step that stands at the label. Below the frame: the curve does not run through
/// it.
void PaintTimeLabels(IPaintContext& paint, const HistorySet& history) {
  for (int nX = 0; nX <= static_cast<int>(c_dAxisLength); nX += c_nLabelSpacing) {
    const double dTime = history.nSteps * (nX / c_dAxisLength) * history.dTimeStep;
    const std::string strTime =
        std::isfinite(dTime) ? std::to_string(static_cast<long long>(std::clamp(dTime, -1e18, 1e18))) : "";
    paint.Text(c_dFrameLeft + nX, c_dFrameBottom + c_dLabelGap, strTime, HorizontalAlign::Centre, VerticalAlign::Top);
  }
}

void PaintExtremes(IPaintContext& paint, double dExtreme) {
  paint.Text(c_dPanelRight - c_dLabelGap, c_dFrameTop, FormatExtreme(dExtreme), HorizontalAlign::Right,
             VerticalAlign::Top);
  paint.Text(c_dPanelRight - c_dLabelGap, c_dFrameBottom, FormatExtreme(-dExtreme), HorizontalAlign::Right,
             VerticalAlign::Bottom);
}

}  // namespace

void PaintHistoryFrame(IPaintContext& paint) {
  paint.SetPen(c_panelColour);
  paint.SetBrush(c_panelColour);
  paint.Rectangle(c_dPanelLeft, c_dPanelTop, c_dPanelRight - c_dPanelLeft, c_dPanelBottom - c_dPanelTop);
  paint.SetPen(c_frameColour);
  paint.SetBrush(c_white);
  paint.Rectangle(c_dFrameLeft, c_dFrameTop, c_dFrameRight - c_dFrameLeft, c_dFrameBottom - c_dFrameTop);
  paint.SetPen(c_black);
  paint.Line(c_dFrameLeft, c_dAxisY, c_dFrameLeft + c_dAxisLength, c_dAxisY);
}

double ChoosePlotScale(double dMost, double dLeast) {
  double dScale = c_dLargestScale;
  for (const double dExtreme : {dMost, -dLeast}) {
    if (dExtreme > c_dSmallestExtreme) dScale = std::min(dScale, c_dHalfHeight / dExtreme);
  }
  return dScale < c_dLargestScale ? dScale : 0.0;
}

void PaintHistory(IPaintContext& paint, const HistorySet& history, const HistoryCurve& curve) {
  PaintHistoryFrame(paint);
  if (history.nSteps <= 0) return;
  const std::vector<double> values = GetValues(history, curve);
  const auto [least, most] = std::minmax_element(values.begin(), values.end());
  const double dScale = ChoosePlotScale(*most, *least);
  PaintCurve(paint, values, dScale);
  PaintTimeLabels(paint, history);
  if (dScale > 0.0) PaintExtremes(paint, std::max(*most, -*least));
}

}  // namespace skyframe
