#include "skyframe/plot/Chart.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

#include "skyframe/scene/TextExtent.h"

namespace skyframe::host {

namespace {

constexpr double c_dLeftEdge = 90, c_dTopEdge = 96, c_dUntitledTopEdge = 32, c_dRightEdge = 35, c_dBottomEdge = 60,
                 c_dUntitledBottomEdge = 46;
constexpr double c_dTitleLeft = 24;
constexpr double c_dTitleHeight = 20, c_dTextHeight = 13, c_dTickHeight = 12;
constexpr double c_dTickLength = 5;
constexpr double c_dMarkSize = 8;
constexpr double c_dLegendLine = 20, c_dLegendSwatch = 32;

void PaintMark(IPaintContext& paint, PaintPoint at, Colour colour) {
  paint.SetPen(c_white);
  paint.SetBrush(colour);
  paint.Rectangle(at.dX - c_dMarkSize / 2, at.dY - c_dMarkSize / 2, c_dMarkSize, c_dMarkSize);
}

/// The part of a straight line that lies in a box (Liang and Barsky, 1984).
std::optional<std::pair<PaintPoint, PaintPoint>> CutLine(PaintPoint a, PaintPoint b, const Box& box) {
  const PaintPoint d{b.dX - a.dX, b.dY - a.dY};
  double dFrom = 0.0;
  double dTo = 1.0;
  // Inside an edge: p t <= q.
  const std::pair<double, double> edges[] = {
      {-d.dX, a.dX - box.dLeft}, {d.dX, box.dRight - a.dX}, {-d.dY, a.dY - box.dTop}, {d.dY, box.dBottom - a.dY}};
  for (const auto& [p, q] : edges) {
    if (p == 0.0 && q < 0.0) return std::nullopt;
    if (p < 0.0) dFrom = std::max(dFrom, q / p);
    if (p > 0.0) dTo = std::min(dTo, q / p);
  }
  if (dFrom > dTo) return std::nullopt;
  const auto at = [&](double t) { return PaintPoint{a.dX + t * d.dX, a.dY + t * d.dY}; };
  return std::pair(dFrom == 0.0 ? a : at(dFrom), dTo == 1.0 ? b : at(dTo));
}

}  // namespace

void PaintTitle(IPaintContext& paint, const std::string& strTitle, const std::string& strSubtitle) {
  paint.SetPen(c_inkColour);
  paint.SetTextHeight(c_dTitleHeight);
  paint.Text(c_dTitleLeft, 16, strTitle);
  paint.SetPen(c_faintColour);
  paint.SetTextHeight(c_dTextHeight);
  paint.Text(c_dTitleLeft, 44, strSubtitle);
}

void PaintLabel(IPaintContext& paint, const Box& within, PaintPoint at, const std::string& strText, Colour colour) {
  constexpr double c_dHeight = 16;
  const double dWidth = EstimateTextWidth(strText, c_dTickHeight) + 8;
  const double dX =
      std::clamp(at.dX, within.dLeft + dWidth / 2, std::max(within.dRight, within.dLeft + dWidth) - dWidth / 2);
  const double dY = std::clamp(at.dY, within.dTop + c_dHeight, std::max(within.dBottom, within.dTop + c_dHeight));
  paint.SetPen(c_white);
  paint.SetBrush(c_white);
  paint.Rectangle(dX - dWidth / 2, dY - c_dHeight, dWidth, c_dHeight);
  paint.SetPen(colour);
  paint.SetTextHeight(c_dTickHeight);
  paint.Text(dX, dY - c_dHeight / 2, strText, HorizontalAlign::Centre, VerticalAlign::Middle);
}

bool Axis::Has(double dValue) const {
  const double dRoundOff = 1e-9 * (dHigh - dLow);
  return dValue >= dLow - dRoundOff && dValue <= dHigh + dRoundOff;
}

Axis ChooseAxis(double dLow, double dHigh, int nMostTicks) {
  const Ticks ticks = ChooseTicks(dLow, dHigh, nMostTicks);
  return {ticks.dFirst, ticks.GetLast(), ticks};
}

Axis CutAxis(double dLow, double dHigh, int nMostTicks) {
  if (!(dHigh > dLow)) return ChooseAxis(dLow, dHigh, nMostTicks);
  return {dLow, dHigh, ChooseTicks(dLow, dHigh, nMostTicks)};
}

PaintPoint CChartFrame::Map(double dX, double dY) const {
  return {m_box.dLeft + m_box.GetWidth() * (dX - m_x.dLow) / (m_x.dHigh - m_x.dLow),
          m_box.dBottom - m_box.GetHeight() * (dY - m_y.dLow) / (m_y.dHigh - m_y.dLow)};
}

PaintPoint CChartFrame::Unmap(PaintPoint at) const {
  return {m_x.dLow + (m_x.dHigh - m_x.dLow) * (at.dX - m_box.dLeft) / m_box.GetWidth(),
          m_y.dLow + (m_y.dHigh - m_y.dLow) * (m_box.dBottom - at.dY) / m_box.GetHeight()};
}

Box GetChartBox(PictureSize size, bool bTitled) {
  const double dTop = bTitled ? c_dTopEdge : c_dUntitledTopEdge;
  const double dBottom = bTitled ? c_dBottomEdge : c_dUntitledBottomEdge;
  return {c_dLeftEdge, dTop, std::max(size.nWidth - c_dRightEdge, c_dLeftEdge + 1.0),
          std::max(size.nHeight - dBottom, dTop + 1.0)};
}

CChart::CChart(IPaintContext& paint, const ChartTexts& texts, const CChartFrame& frame)
    : m_paint(paint), m_frame(frame) {
  if (!texts.strTitle.empty()) PaintTitle(paint, texts.strTitle, texts.strSubtitle);
  PaintGrid();
  PaintTicks();
  const Box& box = GetBox();
  paint.SetPen(c_inkColour);
  paint.SetTextHeight(c_dTextHeight);
  paint.Text(box.dLeft, box.dTop - 10, texts.strY, HorizontalAlign::Left, VerticalAlign::Bottom);
  paint.Text(box.dRight, box.dBottom + 28, texts.strX, HorizontalAlign::Right, VerticalAlign::Top);
}

void CChart::PaintGrid() {
  const Box& box = GetBox();
  const Axis& x = m_frame.GetX();
  const Axis& y = m_frame.GetY();
  m_paint.SetPen(c_gridColour);
  for (int k = 0; k < x.ticks.nCount; ++k) {
    const double dX = Map(x.ticks.Get(k), 0.0).dX;
    if (x.Has(x.ticks.Get(k))) m_paint.Line(dX, box.dTop, dX, box.dBottom);
  }
  for (int k = 0; k < y.ticks.nCount; ++k) {
    const double dY = Map(0.0, y.ticks.Get(k)).dY;
    if (y.Has(y.ticks.Get(k))) m_paint.Line(box.dLeft, dY, box.dRight, dY);
  }
  m_paint.SetPen(c_inkColour);
  if (y.dLow < 0.0 && y.dHigh > 0.0) {
    const double dZero = Map(0.0, 0.0).dY;
    m_paint.Line(box.dLeft, dZero, box.dRight, dZero);
  }
  m_paint.Line(box.dLeft, box.dTop, box.dLeft, box.dBottom);
  m_paint.Line(box.dLeft, box.dBottom, box.dRight, box.dBottom);
}

void CChart::PaintTicks() {
  const Box& box = GetBox();
  const Axis& x = m_frame.GetX();
  const Axis& y = m_frame.GetY();
  m_paint.SetPen(c_inkColour);
  m_paint.SetTextHeight(c_dTickHeight);
  for (int k = 0; k < x.ticks.nCount; ++k) {
    if (!x.Has(x.ticks.Get(k))) continue;
    const double dX = Map(x.ticks.Get(k), 0.0).dX;
    m_paint.Line(dX, box.dBottom, dX, box.dBottom + c_dTickLength);
    m_paint.Text(dX, box.dBottom + c_dTickLength + 3, x.ticks.FormatTick(k), HorizontalAlign::Centre);
  }
  for (int k = 0; k < y.ticks.nCount; ++k) {
    if (!y.Has(y.ticks.Get(k))) continue;
    const double dY = Map(0.0, y.ticks.Get(k)).dY;
    m_paint.Line(box.dLeft - c_dTickLength, dY, box.dLeft, dY);
    m_paint.Text(box.dLeft - c_dTickLength - 3, dY, y.ticks.FormatTick(k), HorizontalAlign::Right,
                 VerticalAlign::Middle);
  }
}

void CChart::Curve(std::span<const PaintPoint> data, Colour colour, double dWidth) {
  m_paint.SetPen(colour, dWidth);
  std::vector<PaintPoint> piece;
  for (std::size_t k = 0; k + 1 < data.size(); ++k) {
    const PaintPoint a = Map(data[k].dX, data[k].dY);
    const PaintPoint b = Map(data[k + 1].dX, data[k + 1].dY);
    const auto seen = CutLine(a, b, GetBox());
    if (!seen || (!piece.empty() && seen->first != piece.back())) {
      m_paint.Polyline(piece);
      piece.clear();
    }
    if (!seen) continue;
    if (piece.empty()) piece.push_back(seen->first);
    piece.push_back(seen->second);
  }
  m_paint.Polyline(piece);
}

void CChart::Mark(double dX, double dY, Colour colour) {
  if (!m_frame.GetX().Has(dX) || !m_frame.GetY().Has(dY)) return;
  PaintMark(m_paint, Map(dX, dY), colour);
}

double GetLegendWidth(std::span<const LegendEntry> entries) {
  double dText = 0.0;
  for (const LegendEntry& entry : entries) dText = std::max(dText, EstimateTextWidth(entry.strText, c_dTickHeight));
  return c_dLegendSwatch + dText;
}

void CChart::Legend(std::span<const LegendEntry> entries, PaintPoint topLeft) {
  const double dHeight = c_dLegendLine * static_cast<double>(entries.size());
  const Box ground{topLeft.dX, topLeft.dY, topLeft.dX + GetLegendWidth(entries), topLeft.dY + dHeight};
  m_paint.SetPen(c_white);
  m_paint.SetBrush(c_white);
  m_paint.Rectangle(ground.dLeft, ground.dTop, ground.GetWidth(), ground.GetHeight());
  double dY = ground.dTop + 0.5 * c_dLegendLine;
  for (const LegendEntry& entry : entries) {
    m_paint.SetPen(entry.colour, 2.0);
    if (entry.bMark) PaintMark(m_paint, {ground.dLeft + 12, dY}, entry.colour);
    if (!entry.bMark) m_paint.Line(ground.dLeft, dY, ground.dLeft + 24, dY);
    m_paint.SetPen(c_inkColour);
    m_paint.SetTextHeight(c_dTickHeight);
    m_paint.Text(ground.dLeft + c_dLegendSwatch, dY, entry.strText, HorizontalAlign::Left, VerticalAlign::Middle);
    dY += c_dLegendLine;
  }
}

}  // namespace skyframe::host
