#include "GdiPaintContext.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "NativeFont.h"
#include "Text.h"

namespace skyframe {

namespace {

constexpr double c_dFarthest = 1.0e6;  // pixels; the device counts in 27 bits

using GdiHandle = std::unique_ptr<void, GdiDeleter>;

COLORREF ToGdi(Colour colour) { return RGB(colour.nRed, colour.nGreen, colour.nBlue); }

UINT ToGdi(HorizontalAlign horizontal) {
  if (horizontal == HorizontalAlign::Centre) return TA_CENTER | TA_BASELINE;
  return horizontal == HorizontalAlign::Right ? TA_RIGHT | TA_BASELINE : TA_LEFT | TA_BASELINE;
}

}  // namespace

CGdiPaintContext::CGdiPaintContext(HDC hDc, double dScale) : m_hDc(hDc), m_dScale(dScale), m_nSaved(SaveDC(hDc)) {
  SetBkMode(m_hDc, TRANSPARENT);
}

CGdiPaintContext::~CGdiPaintContext() { RestoreDC(m_hDc, m_nSaved); }

int CGdiPaintContext::Scale(double dValue) const {
  return static_cast<int>(std::lround(std::clamp(dValue * m_dScale, -c_dFarthest, c_dFarthest)));
}

std::vector<POINT> CGdiPaintContext::Scale(std::span<const PaintPoint> points) const {
  std::vector<POINT> scaled;
  scaled.reserve(points.size() + 1);
  for (const PaintPoint& point : points) scaled.push_back(Scale(point));
  return scaled;
}

HPEN CGdiPaintContext::MakePen() const {
  return CreatePen(PS_SOLID, std::max(Scale(GetState().dPenWidth), 1), ToGdi(GetState().pen));
}

void CGdiPaintContext::DrawRectangle(PaintPoint topLeft, double dWidth, double dHeight) {
  const GdiHandle pen(MakePen());
  const GdiHandle brush(CreateSolidBrush(ToGdi(GetState().brush)));
  const CSelection penSelection(m_hDc, pen.get());
  const CSelection brushSelection(m_hDc, brush.get());
  const POINT begin = Scale(topLeft);
  const POINT end = Scale(PaintPoint{topLeft.dX + dWidth, topLeft.dY + dHeight});
  ::Rectangle(m_hDc, begin.x, begin.y, end.x + 1, end.y + 1);  // the device leaves out the last row and column
}

void CGdiPaintContext::DrawPolyline(std::span<const PaintPoint> points) {
  const GdiHandle pen(MakePen());
  const CSelection selection(m_hDc, pen.get());
  std::vector<POINT> line = Scale(points);
  line.push_back({line.back().x + 1, line.back().y});  // the device leaves out the last pixel
  ::Polyline(m_hDc, line.data(), static_cast<int>(line.size()));
}

void CGdiPaintContext::DrawPolygon(std::span<const PaintPoint> points) {
  const GdiHandle pen(MakePen());
  const GdiHandle brush(CreateSolidBrush(ToGdi(GetState().brush)));
  const CSelection penSelection(m_hDc, pen.get());
  const CSelection brushSelection(m_hDc, brush.get());
  const std::vector<POINT> corners = Scale(points);
  ::Polygon(m_hDc, corners.data(), static_cast<int>(corners.size()));
}

void CGdiPaintContext::DrawText(PaintPoint at, std::string_view strText, HorizontalAlign horizontal,
                                VerticalAlign vertical) {
  const FontHandle font = MakeFont(Scale(GetState().dTextHeight));
  const CSelection selection(m_hDc, font.get());
  TEXTMETRICW metric = {};
  GetTextMetricsW(m_hDc, &metric);
  const POINT place = Scale(at);
  const double dShift = GetBaselineShift(vertical, metric.tmAscent, metric.tmDescent);
  const std::wstring strLine = ToWide(strText);
  SetTextAlign(m_hDc, ToGdi(horizontal));
  SetTextColor(m_hDc, ToGdi(GetState().pen));
  TextOutW(m_hDc, place.x, place.y + static_cast<int>(std::lround(dShift)), strLine.data(),
           static_cast<int>(strLine.size()));
}

}  // namespace skyframe
