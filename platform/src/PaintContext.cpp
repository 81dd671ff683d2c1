#include "skyframe/platform/PaintContext.h"

#include <algorithm>
#include <array>
#include <cmath>

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
  return strText + "/>\n" + m_strBody + "</svg>\n";
}

void CSvgPaintContext::Write(std::ostream& strm) const { strm << GetDocument(); }

void CSvgPaintContext::DrawRectangle(PaintPoint topLeft, double dWidth, double dHeight) {
  m_strBody += "<rect" + Attribute("x", Length(topLeft.dX)) + Attribute("y", Length(topLeft.dY)) +
               Attribute("width", Length(dWidth)) + Attribute("height", Length(dHeight)) +
               Attribute("fill", ToHex(GetState().brush)) + Attribute("stroke", ToHex(GetState().pen)) +
               Attribute("stroke-width", Length(GetState().dPenWidth)) + "/>\n";
}

void CSvgPaintContext::DrawPolyline(std::span<const PaintPoint> points) { AddShape("polyline", points, "none"); }

void CSvgPaintContext::DrawPolygon(std::span<const PaintPoint> points) {
  AddShape("polygon", points, ToHex(GetState().brush));
}

void CSvgPaintContext::AddShape(std::string_view strElement, std::span<const PaintPoint> points,
                                std::string_view strFill) {
  std::string strPoints;
  for (const PaintPoint& point : points) {
    if (!strPoints.empty()) strPoints += ' ';
    strPoints += Length(point.dX) + "," + Length(point.dY);
  }
  m_strBody += "<" + std::string(strElement) + Attribute("points", strPoints) + Attribute("fill", strFill) +
               Attribute("stroke", ToHex(GetState().pen)) + Attribute("stroke-width", Length(GetState().dPenWidth)) +
               "/>\n";
}

void CSvgPaintContext::DrawText(PaintPoint at, std::string_view strText, HorizontalAlign horizontal,
                                VerticalAlign vertical) {
  const double dHeight = GetState().dTextHeight;
  m_strBody += "<text" + Attribute("x", Length(at.dX)) +
               Attribute("y", Length(at.dY + GetBaselineShift(vertical) * dHeight)) +
               Attribute("font-size", Length(dHeight)) + Attribute("text-anchor", GetAnchor(horizontal)) +
               Attribute("fill", ToHex(GetState().pen)) + ">" + Escape(strText) + "</text>\n";
}

}  // namespace skyframe
