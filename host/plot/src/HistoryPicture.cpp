#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "skyframe/job/Text.h"
#include "skyframe/plot/Chart.h"
#include "skyframe/plot/Pictures.h"
#include "skyframe/scene/LabelField.h"
#include "skyframe/scene/TextExtent.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr double c_dLabelHeight = 12.0;
constexpr double c_dCurveWidth = 1.3;
constexpr double c_dMargin = 0.12;  // of the range, above and below the curves
constexpr double c_dLegendGap = 16.0;
constexpr double c_dWidestLegend = 0.3;                    // of the picture
constexpr double c_dRoundOff = 1.0e-6;                     // of the largest peak: beside it nothing
constexpr double c_dPeakRoom = 26.0;                       // pixels, for the label of a peak
constexpr int c_nTimeTicks = 12, c_nValueTicks = 10;       // at most
constexpr double c_dTimeTick = 45.0, c_dValueTick = 18.0;  // pixels that a tick needs
constexpr std::size_t c_nMostLabels = 40;
constexpr Colour c_cursorColour{0x6b, 0x74, 0x80};

constexpr std::array<Colour, 8> c_curveColours = {c_curveColour,
                                                  Colour{0xd0, 0x6a, 0x00},
                                                  Colour{0x2a, 0x8c, 0x4a},
                                                  Colour{0x8b, 0x3f, 0xa0},
                                                  Colour{0xb8, 0x24, 0x3e},
                                                  Colour{0x00, 0x87, 0x92},
                                                  Colour{0x7a, 0x5c, 0x1e},
                                                  Colour{0x55, 0x5f, 0x6b}};

/// The finite points of a curve, in the picture's unit.
std::vector<PaintPoint> FormPoints(const HistoryPicture& picture, const HistoryCurve& curve) {
  std::vector<PaintPoint> points;
  points.reserve(curve.values.size());
  for (std::size_t k = 0; k < curve.values.size(); ++k) {
    const PaintPoint point{static_cast<double>(k + 1) * picture.dTimeStep, picture.unit.dFactor * curve.values[k]};
    if (std::isfinite(point.dY)) points.push_back(point);
  }
  return points;
}

/// The first of the largest magnitude; nothing when there are but zeros.
std::optional<PaintPoint> FindPeakPoint(const std::vector<PaintPoint>& points) {
  const auto it = std::ranges::max_element(points, {}, [](const PaintPoint& p) { return std::abs(p.dY); });
  return it == points.end() || it->dY == 0.0 ? std::nullopt : std::optional(*it);
}

int CountTicks(double dPixels, double dTick, int nMost) {
  return std::clamp(static_cast<int>(dPixels / dTick), 2, nMost);
}

Axis ChooseValueAxis(const HistoryPicture& picture, double dPixels, int nMostTicks) {
  double dLow = 0.0;
  double dHigh = 0.0;
  for (const HistoryCurve& curve : picture.curves) {
    for (const PaintPoint& point : FormPoints(picture, curve)) {
      dLow = std::min(dLow, point.dY);
      dHigh = std::max(dHigh, point.dY);
    }
  }
  const double dMargin = std::max(c_dMargin, c_dPeakRoom / dPixels) * (dHigh - dLow);
  return ChooseAxis(dLow - (dLow < 0.0 ? dMargin : 0.0), dHigh + dMargin, nMostTicks);
}

std::size_t CountSteps(const HistoryPicture& picture) {
  std::size_t nSteps = 0;
  for (const HistoryCurve& curve : picture.curves) nSteps = std::max(nSteps, curve.values.size());
  return nSteps;
}

/// Whether a point lies in the axes.
bool IsSeen(const CChartFrame& frame, PaintPoint point) {
  return frame.GetX().Has(point.dX) && frame.GetY().Has(point.dY);
}

void MarkPeak(CChart& chart, const CChartFrame& frame, const HistoryPicture& picture, PaintPoint peak, Colour colour,
              CLabelField& labels) {
  if (!IsSeen(frame, peak)) return;
  chart.Mark(peak.dX, peak.dY, colour);
  const PaintPoint at = frame.Map(peak.dX, peak.dY);
  constexpr double c_dBeside = 6.0;
  const double dUp = peak.dY > 0.0 ? -1.0 : 1.0;
  const std::string strText =
      Say(texts::c_peak, {Format("%.4g", peak.dY), picture.unit.strName, Format("%.4g", peak.dX)});
  labels.Add({{at.dX, at.dY + dUp * c_dBeside}, {0.0, dUp}, strText, colour, 1.0 + std::abs(peak.dY)});
}

/// Heights that the curves take within a range of the picture's width; none: they leave it free.
std::optional<std::pair<double, double>> FindCurveBand(const HistoryPicture& picture, const CChartFrame& frame,
                                                       double dLeft, double dRight) {
  std::optional<std::pair<double, double>> band;
  for (const HistoryCurve& curve : picture.curves) {
    for (const PaintPoint& point : FormPoints(picture, curve)) {
      const PaintPoint at = frame.Map(point.dX, point.dY);
      if (at.dX < dLeft || at.dX > dRight) continue;
      const double dY = std::clamp(at.dY, frame.GetBox().dTop, frame.GetBox().dBottom);
      if (!band) band.emplace(dY, dY);
      band->first = std::min(band->first, dY);
      band->second = std::max(band->second, dY);
    }
  }
  return band;
}

/// Beside the cursor, in a column above the curves, or below them where there is no room.
void AddCursorValues(const HistoryPicture& picture, const CChartFrame& frame, double dX, std::vector<Label> values,
                     CLabelField& labels) {
  constexpr double c_dLine = 15.0;
  constexpr double c_dFree = 9.0;  // from a curve to the middle of a text
  double dWidth = 0.0;
  for (const Label& label : values) dWidth = std::max(dWidth, EstimateTextWidth(label.strText, c_dLabelHeight));
  const Box& box = frame.GetBox();
  const bool bRight = dX + dWidth + c_dLine < box.dRight;
  const auto band =
      FindCurveBand(picture, frame, bRight ? dX : dX - dWidth - c_dLine, bRight ? dX + dWidth + c_dLine : dX);
  const double dHeight = c_dLine * static_cast<double>(values.size() - 1);
  const double dRoom = dHeight + 2.0 * c_dFree;
  double dY = box.dTop + c_dFree;  // also over the curves when they leave no room
  if (band && band->first - box.dTop >= dRoom) {
    dY = band->first - c_dFree - dHeight;
  } else if (band && box.dBottom - band->second >= dRoom) {
    dY = band->second + c_dFree;
  }
  for (Label& label : values) {
    label.at = {dX, dY};
    label.aside = {bRight ? 1.0 : -1.0, 0.0};
    labels.Add(std::move(label));
    dY += c_dLine;
  }
}

/// A line through the step next to the cursor, with the values there.
void PaintCursor(IPaintContext& paint, CChart& chart, const CChartFrame& frame, const HistoryPicture& picture,
                 CLabelField& labels) {
  const std::size_t k = FindHistoryStep(picture, *picture.cursor);
  const double t = static_cast<double>(k + 1) * picture.dTimeStep;
  if (!frame.GetX().Has(t)) return;
  const double dX = frame.Map(t, 0.0).dX;
  const Box& box = frame.GetBox();
  paint.SetPen(c_cursorColour, 1.0);
  paint.Line(dX, box.dTop, dX, box.dBottom);
  constexpr double c_dFirst = 1.0e30;
  std::vector<Label> values = {{{}, {}, Format("t = %.6g s", t), c_cursorColour, 2.0 * c_dFirst}};
  for (std::size_t c = 0; c < picture.curves.size(); ++c) {
    const auto& curve = picture.curves[c].values;
    const double dValue = k < curve.size() ? picture.unit.dFactor * curve[k] : std::nan("");
    if (!std::isfinite(dValue) || !IsSeen(frame, {t, dValue})) continue;
    chart.Mark(t, dValue, GetCurveColour(c));
    const std::string strValue = Format("%.4g ", dValue) + std::string(picture.unit.strName);
    values.push_back({{}, {}, strValue, GetCurveColour(c), c_dFirst});
  }
  AddCursorValues(picture, frame, dX, std::move(values), labels);
}

/// None for a single curve, nor in a picture too narrow for it, which stands where the curves are told apart otherwise.
std::vector<LegendEntry> FormLegend(const HistoryPicture& picture, PictureSize size) {
  std::vector<LegendEntry> entries;
  for (std::size_t c = 0; c < picture.curves.size() && picture.curves.size() > 1; ++c)
    entries.push_back({picture.curves[c].strName, GetCurveColour(c), false});
  if (!entries.empty() && GetLegendWidth(entries) > c_dWidestLegend * size.nWidth) entries.clear();
  return entries;
}

}  // namespace

Colour GetCurveColour(std::size_t nCurve) { return c_curveColours[nCurve % c_curveColours.size()]; }

CChartFrame FormHistoryFrame(const HistoryPicture& picture, PictureSize size) {
  Box box = GetChartBox(size, !picture.strTitle.empty());
  const std::vector<LegendEntry> legend = FormLegend(picture, size);
  if (!legend.empty()) box.dRight = std::max(box.dRight - GetLegendWidth(legend), box.dLeft + 1.0);
  const int nTimeTicks = CountTicks(box.GetWidth(), c_dTimeTick, c_nTimeTicks);
  const int nValueTicks = CountTicks(box.GetHeight(), c_dValueTick, c_nValueTicks);
  const double dEnd = static_cast<double>(CountSteps(picture)) * picture.dTimeStep;
  return {
      picture.time ? CutAxis(picture.time->dLow, picture.time->dHigh, nTimeTicks) : ChooseAxis(0.0, dEnd, nTimeTicks),
      picture.values ? CutAxis(picture.values->dLow, picture.values->dHigh, nValueTicks)
                     : ChooseValueAxis(picture, box.GetHeight(), nValueTicks),
      box};
}

std::size_t FindHistoryStep(const HistoryPicture& picture, double t) {
  const double dSteps = static_cast<double>(CountSteps(picture));
  return static_cast<std::size_t>(
      std::clamp(std::round(t / picture.dTimeStep) - 1.0, 0.0, std::max(dSteps - 1.0, 0.0)));
}

void PaintHistoryChart(IPaintContext& paint, const HistoryPicture& picture, PictureSize size) {
  const CChartFrame frame = FormHistoryFrame(picture, size);
  CChart chart(paint,
               {picture.strTitle, picture.strSubtitle, std::string(Say(texts::c_time)),
                picture.strQuantity + " [" + std::string(picture.unit.strName) + "]"},
               frame);
  CLabelField labels(frame.GetBox(), c_nMostLabels, c_dLabelHeight);
  const bool bSingle = picture.curves.size() == 1;
  std::vector<std::optional<PaintPoint>> peaks;
  for (std::size_t c = 0; c < picture.curves.size(); ++c) {
    const std::vector<PaintPoint> points = FormPoints(picture, picture.curves[c]);
    chart.Curve(points, GetCurveColour(c), c_dCurveWidth);
    peaks.push_back(FindPeakPoint(points));
  }
  if (const auto legend = FormLegend(picture, size); !legend.empty())
    chart.Legend(legend, {frame.GetBox().dRight + c_dLegendGap, frame.GetBox().dTop});
  double dLargest = 0.0;
  for (const auto& peak : peaks) dLargest = std::max(dLargest, peak ? std::abs(peak->dY) : 0.0);
  for (std::size_t c = 0; c < peaks.size(); ++c) {
    if (peaks[c] && std::abs(peaks[c]->dY) > c_dRoundOff * dLargest)
      MarkPeak(chart, frame, picture, *peaks[c], bSingle ? c_markColour : GetCurveColour(c), labels);
  }
  if (picture.cursor) PaintCursor(paint, chart, frame, picture, labels);
  labels.Paint(paint);
}

}  // namespace skyframe::host
