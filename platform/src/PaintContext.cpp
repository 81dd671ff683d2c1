#include "skyframe/platform/PaintContext.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "skyframe/platform/NumberText.h"
#include "texts.h"

namespace skyframe {

namespace {

constexpr std::string_view c_strReplacement = "\xEF\xBF\xBD";

bool IsFinite(PaintPoint point) { return std::isfinite(point.dX) && std::isfinite(point.dY); }

/// Length in pixels, to a hundredth.
std::string Length(double dValue) {
  std::string strText = FormatFixed(dValue, 2);
  strText.erase(strText.find_last_not_of('0') + 1);
  if (strText.back() == '.') strText.pop_back();
  return strText == "-0" ? "0" : strText;
}

std::string Attribute(std::string_view strName, std::string_view strValue) {
  std::string strText(" ");
  return strText.append(strName).append("=\"").append(strValue).append("\"");
}

std::string ToHex(Colour colour) {
  constexpr std::string_view c_strDigits = "0123456789abcdef";
  std::string strText = "#";
  for (const unsigned nPart : {colour.nRed, colour.nGreen, colour.nBlue}) {
    strText += c_strDigits[nPart / 16U];
    strText += c_strDigits[nPart % 16U];
  }
  return strText;
}

/// One code point at the start of a text. Source: RFC 3629, section 4.
struct CodePoint {
  size_t nBytes = 1;
  char32_t cValue = 0xFFFFFFFF;  ///< above every code point when the bytes are no UTF-8
};

CodePoint ReadCodePoint(std::string_view strText) {
  const auto byte = [strText](size_t i) { return static_cast<unsigned char>(strText[i]); };
  const unsigned nLead = byte(0);
  if (nLead < 0x80) return {1, nLead};
  const size_t nBytes = nLead >= 0xF0 ? 4 : nLead >= 0xE0 ? 3 : 2;
  if (nLead < 0xC2 || nLead > 0xF4 || strText.size() < nBytes) return {};
  char32_t cValue = nLead & (0xFFU >> (nBytes + 1));
  for (size_t i = 1; i < nBytes; ++i) {
    if ((byte(i) & 0xC0U) != 0x80U) return {};
    cValue = (cValue << 6U) | (byte(i) & 0x3FU);
  }
  constexpr std::array<char32_t, 5> c_smallest = {0, 0, 0x80, 0x800, 0x10000};
  if (cValue < c_smallest[nBytes]) return {};
  return {nBytes, cValue};
}

/// The characters of XML 1.0, section 2.2.
bool IsXmlCharacter(char32_t c) {
  if (c < 0x20) return c == '\t' || c == '\n' || c == '\r';
  return c <= 0xD7FF || (c >= 0xE000 && c <= 0xFFFD) || (c >= 0x10000 && c <= 0x10FFFF);
}

std::string Escape(std::string_view strText) {
  std::string strResult;
  while (!strText.empty()) {
    const CodePoint point = ReadCodePoint(strText);
    if (!IsXmlCharacter(point.cValue)) {
      strResult += c_strReplacement;
    } else if (point.cValue == '&') {
      strResult += "&amp;";
    } else if (point.cValue == '<') {
      strResult += "&lt;";
    } else if (point.cValue == '>') {
      strResult += "&gt;";
    } else {
      strResult += strText.substr(0, point.nBytes);
    }
    strText.remove_prefix(point.nBytes);
  }
  return strResult;
}

std::string_view GetAnchor(HorizontalAlign align) {
  if (align == HorizontalAlign::Centre) return "middle";
  return align == HorizontalAlign::Right ? "end" : "start";
}

/// Distance of the baseline below the given position, in letter heights.
double GetBaselineShift(VerticalAlign align) {
  switch (align) {
    case VerticalAlign::Top:
      return 0.88;
    case VerticalAlign::Middle:
      return 0.38;
    case VerticalAlign::Bottom:
      return -0.12;
    case VerticalAlign::Baseline:
      break;
  }
  return 0.0;
}

std::string FormPen(const PaintState& state) {
  return Attribute("stroke", ToHex(state.pen)) + Attribute("stroke-width", Length(state.dPenWidth));
}

constexpr double c_dUnseen = 0.05;  ///< pixels between a point and a line that goes by it

/// Distance of a point from the line between two others.
double GetDistance(PaintPoint point, PaintPoint from, PaintPoint to) {
  const double dX = to.dX - from.dX, dY = to.dY - from.dY, dLength2 = dX * dX + dY * dY;
  const double t = dLength2 > 0.0 ? ((point.dX - from.dX) * dX + (point.dY - from.dY) * dY) / dLength2 : 0.0;
  const double dAlong = std::clamp(t, 0.0, 1.0);
  return std::hypot(point.dX - from.dX - dAlong * dX, point.dY - from.dY - dAlong * dY);
}

/// Without the points that lie on the line between those before and behind them, as far as one can see.
std::vector<PaintPoint> DropUnseen(std::span<const PaintPoint> points) {
  constexpr std::size_t c_nMost = 64;  // dropped in a row: all of them are looked at for each new end
  std::vector<PaintPoint> seen = {points.front()};
  std::size_t nLast = 0;
  for (std::size_t k = 2; k < points.size(); ++k) {
    const auto between = points.subspan(nLast + 1, k - nLast - 1);
    const auto isSeen = [&](PaintPoint point) { return GetDistance(point, points[nLast], points[k]) > c_dUnseen; };
    if (between.size() <= c_nMost && std::ranges::none_of(between, isSeen)) continue;
    nLast = k - 1;
    seen.push_back(points[nLast]);
  }
  seen.push_back(points.back());
  return seen;
}

/// "0,0 1.5,0"
std::string FormPoints(std::span<const PaintPoint> points) {
  std::string strPoints;
  for (const PaintPoint& point : points) {
    if (!strPoints.empty()) strPoints += ' ';
    strPoints += Length(point.dX) + "," + Length(point.dY);
  }
  return strPoints;
}

}  // namespace

void IPaintContext::SetPen(Colour colour, double dWidth) {
  m_state.pen = colour;
  m_state.dPenWidth = dWidth;
}

void IPaintContext::SetBrush(Colour colour) { m_state.brush = colour; }

void IPaintContext::SetTextHeight(double dHeight) { m_state.dTextHeight = dHeight; }

void IPaintContext::Rectangle(double dX, double dY, double dWidth, double dHeight) {
  if (!IsFinite({dX, dY}) || !IsFinite({dWidth, dHeight})) return;
  const PaintPoint topLeft{std::min(dX, dX + dWidth), std::min(dY, dY + dHeight)};
  DrawRectangle(topLeft, std::abs(dWidth), std::abs(dHeight));
}

void IPaintContext::Line(double dX1, double dY1, double dX2, double dY2) {
  const std::array<PaintPoint, 2> points = {PaintPoint{dX1, dY1}, PaintPoint{dX2, dY2}};
  Polyline(points);
}

void IPaintContext::Polyline(std::span<const PaintPoint> points) {
  if (points.size() > 1 && std::all_of(points.begin(), points.end(), IsFinite)) DrawPolyline(points);
}

void IPaintContext::Polygon(std::span<const PaintPoint> points) {
  if (points.size() > 2 && std::all_of(points.begin(), points.end(), IsFinite)) DrawPolygon(points);
}

void IPaintContext::Text(double dX, double dY, std::string_view strText, HorizontalAlign horizontal,
                         VerticalAlign vertical) {
  if (IsFinite({dX, dY})) DrawText({dX, dY}, strText, horizontal, vertical);
}

void CPaintRecorder::DrawRectangle(PaintPoint topLeft, double dWidth, double dHeight) {
  const PaintPoint bottomRight{topLeft.dX + dWidth, topLeft.dY + dHeight};
  m_items.push_back({PaintItem::Kind::Rectangle, GetState(), {topLeft, bottomRight}, {}});
}

void CPaintRecorder::DrawPolyline(std::span<const PaintPoint> points) {
  m_items.push_back({PaintItem::Kind::Polyline, GetState(), {points.begin(), points.end()}, {}});
}

void CPaintRecorder::DrawPolygon(std::span<const PaintPoint> points) {
  m_items.push_back({PaintItem::Kind::Polygon, GetState(), {points.begin(), points.end()}, {}});
}

void CPaintRecorder::DrawText(PaintPoint at, std::string_view strText, HorizontalAlign horizontal,
                              VerticalAlign vertical) {
  m_items.push_back({PaintItem::Kind::Text, GetState(), {at}, std::string(strText), horizontal, vertical});
}

CSvgPaintContext::CSvgPaintContext(int nWidth, int nHeight) : m_nWidth(nWidth), m_nHeight(nHeight) {}

std::string CSvgPaintContext::GetDocument() const {
  const std::string strWidth = std::to_string(m_nWidth);
  const std::string strHeight = std::to_string(m_nHeight);
  std::string strText = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\"";
  strText += Attribute("version", "1.1") + Attribute("width", strWidth) + Attribute("height", strHeight);
  strText += Attribute("viewBox", "0 0 " + strWidth + " " + strHeight);
  strText += Attribute("font-family", texts::c_strSvgFonts) + ">\n";
  strText += "<rect" + Attribute("width", strWidth) + Attribute("height", strHeight) + Attribute("fill", "#ffffff");
  return strText + "/>\n" + m_strBody + FormPath() + "</svg>\n";
}

void CSvgPaintContext::Write(std::ostream& strm) const { strm << GetDocument(); }

void CSvgPaintContext::DrawRectangle(PaintPoint topLeft, double dWidth, double dHeight) {
  AddShape("<rect" + Attribute("x", Length(topLeft.dX)) + Attribute("y", Length(topLeft.dY)) +
           Attribute("width", Length(dWidth)) + Attribute("height", Length(dHeight)) +
           Attribute("fill", ToHex(GetState().brush)) + FormPen(GetState()) + "/>\n");
}

void CSvgPaintContext::DrawPolyline(std::span<const PaintPoint> points) {
  const PaintState& state = GetState();
  if (state.pen != m_pathState.pen || state.dPenWidth != m_pathState.dPenWidth) AddShape("");
  m_pathState = state;
  const auto [itLine, bNew] = m_pathLines.insert("M" + FormPoints(DropUnseen(points)));
  if (bNew) m_strPath += *itLine;
}

void CSvgPaintContext::DrawPolygon(std::span<const PaintPoint> points) {
  AddShape("<polygon" + Attribute("points", FormPoints(points)) + Attribute("fill", ToHex(GetState().brush)) +
           FormPen(GetState()) + "/>\n");
}

void CSvgPaintContext::DrawText(PaintPoint at, std::string_view strText, HorizontalAlign horizontal,
                                VerticalAlign vertical) {
  const double dHeight = GetState().dTextHeight;
  AddShape("<text" + Attribute("x", Length(at.dX)) +
           Attribute("y", Length(at.dY + GetBaselineShift(vertical) * dHeight)) +
           Attribute("font-size", Length(dHeight)) + Attribute("text-anchor", GetAnchor(horizontal)) +
           Attribute("fill", ToHex(GetState().pen)) + ">" + Escape(strText) + "</text>\n");
}

void CSvgPaintContext::AddShape(const std::string& strElement) {
  m_strBody += FormPath() + strElement;
  m_strPath.clear();
  m_pathLines.clear();
}

std::string CSvgPaintContext::FormPath() const {
  if (m_strPath.empty()) return {};
  return "<path" + Attribute("d", m_strPath) + Attribute("fill", "none") + FormPen(m_pathState) + "/>\n";
}

}  // namespace skyframe
