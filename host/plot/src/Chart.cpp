#include "skyframe/plot/Chart.h"

#include <algorithm>
#include <cmath>

#include "skyframe/scene/TextExtent.h"

namespace skyframe::host {

namespace {

constexpr Box c_chartBox{90, 96, 965, 500};
constexpr double c_dTitleLeft = 24;
constexpr double c_dTitleHeight = 20, c_dTextHeight = 13, c_dTickHeight = 12;
constexpr double c_dTickLength = 5;
constexpr double c_dMarkSize = 8;
constexpr double c_dLegendWidth = 210, c_dLegendLine = 20;

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

CChart::CChart(IPaintContext& paint, const ChartTexts& texts, const Ticks& x, const Ticks& y)
    : m_paint(paint), m_x(x), m_y(y), m_box(c_chartBox) {
  PaintTitle(paint, texts.strTitle, texts.strSubtitle);
  PaintGrid();
  PaintTicks();
  paint.SetPen(c_inkColour);
  paint.SetTextHeight(c_dTextHeight);
  paint.Text(m_box.dLeft, m_box.dTop - 10, texts.strY, HorizontalAlign::Left, VerticalAlign::Bottom);
  paint.Text(m_box.dRight, m_box.dBottom + 28, texts.strX, HorizontalAlign::Right, VerticalAlign::Top);
}

PaintPoint CChart::Map(double dX, double dY) const {
  return {m_box.dLeft + m_box.GetWidth() * (dX - m_x.dFirst) / (m_x.GetLast() - m_x.dFirst),
          m_box.dBottom - m_box.GetHeight() * (dY - m_y.dFirst) / (m_y.GetLast() - m_y.dFirst)};
}

void CChart::PaintGrid() {
  m_paint.SetPen(c_gridColour);
  for (int k = 0; k < m_x.nCount; ++k) {
    const double dX = Map(m_x.Get(k), 0.0).dX;
    m_paint.Line(dX, m_box.dTop, dX, m_box.dBottom);
  }
  for (int k = 0; k < m_y.nCount; ++k) {
    const double dY = Map(0.0, m_y.Get(k)).dY;
    m_paint.Line(m_box.dLeft, dY, m_box.dRight, dY);
  }
  m_paint.SetPen(c_inkColour);
  if (m_y.dFirst < 0.0 && m_y.GetLast() > 0.0) {
    const double dZero = Map(0.0, 0.0).dY;
    m_paint.Line(m_box.dLeft, dZero, m_box.dRight, dZero);
  }
  m_paint.Line(m_box.dLeft, m_box.dTop, m_box.dLeft, m_box.dBottom);
  m_paint.Line(m_box.dLeft, m_box.dBottom, m_box.dRight, m_box.dBottom);
}

void CChart::PaintTicks() {
  m_paint.SetPen(c_inkColour);
  m_paint.SetTextHeight(c_dTickHeight);
  for (int k = 0; k < m_x.nCount; ++k) {
    const double dX = Map(m_x.Get(k), 0.0).dX;
    m_paint.Line(dX, m_box.dBottom, dX, m_box.dBottom + c_dTickLength);
    m_paint.Text(dX, m_box.dBottom + c_dTickLength + 3, m_x.FormatTick(k), HorizontalAlign::Centre);
  }
  for (int k = 0; k < m_y.nCount; ++k) {
    const double dY = Map(0.0, m_y.Get(k)).dY;
    m_paint.Line(m_box.dLeft - c_dTickLength, dY, m_box.dLeft, dY);
    m_paint.Text(m_box.dLeft - c_dTickLength - 3, dY, m_y.FormatTick(k), HorizontalAlign::Right, VerticalAlign::Middle);
  }
}

void CChart::Curve(std::span<const PaintPoint> data, Colour colour, double dWidth) {
  std::vector<PaintPoint> points;
  for (const PaintPoint& point : data) points.push_back(Map(point.dX, point.dY));
  m_paint.SetPen(colour, dWidth);
  m_paint.Polyline(points);
}

void CChart::Mark(double dX, double dY, Colour colour) {
  const PaintPoint at = Map(dX, dY);
  m_paint.SetPen(c_white);
  m_paint.SetBrush(colour);
  m_paint.Rectangle(at.dX - c_dMarkSize / 2, at.dY - c_dMarkSize / 2, c_dMarkSize, c_dMarkSize);
}

void CChart::Legend(int nLine, const std::string& strText, Colour colour, bool bMark) {
  const double dLeft = m_box.dRight - c_dLegendWidth;
  const double dY = m_box.dTop + c_dLegendLine * (nLine + 1);
  if (bMark) {
    m_paint.SetPen(c_white);
    m_paint.SetBrush(colour);
    m_paint.Rectangle(dLeft - c_dMarkSize / 2, dY - c_dMarkSize / 2, c_dMarkSize, c_dMarkSize);
  } else {
    m_paint.SetPen(colour, 2.0);
    m_paint.Line(dLeft - 12, dY, dLeft + 12, dY);
  }
  m_paint.SetPen(c_inkColour);
  m_paint.SetTextHeight(c_dTickHeight);
  m_paint.Text(dLeft + 20, dY, strText, HorizontalAlign::Left, VerticalAlign::Middle);
}

}  // namespace skyframe::host
