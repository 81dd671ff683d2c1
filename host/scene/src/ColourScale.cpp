#include "skyframe/scene/ColourScale.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "skyframe/scene/Colours.h"
#include "skyframe/scene/Ticks.h"

namespace skyframe::host {

namespace {

// Even steps in lightness, dark at the end.
constexpr std::array<Colour, 6> c_rising = {Colour{0xc9, 0xcb, 0x83}, Colour{0x86, 0xb8, 0x7a},
                                            Colour{0x46, 0x9e, 0x87}, Colour{0x2b, 0x7c, 0x93},
                                            Colour{0x3d, 0x4f, 0x8b}, Colour{0x4b, 0x1f, 0x6b}};
constexpr std::array<Colour, 4> c_positive = {Colour{0xc9, 0xcb, 0xcf}, Colour{0xe2, 0x9a, 0x80},
                                              Colour{0xcf, 0x59, 0x4c}, Colour{0x98, 0x16, 0x2c}};
constexpr std::array<Colour, 4> c_negative = {Colour{0xc9, 0xcb, 0xcf}, Colour{0x8c, 0xb0, 0xd8},
                                              Colour{0x4a, 0x7f, 0xc0}, Colour{0x16, 0x42, 0x8c}};

constexpr double c_dTitleHeight = 13.0, c_dTextHeight = 11.0;
constexpr double c_dUnitLine = 19.0, c_dBarTop = 40.0, c_dBarWidth = 16.0, c_dNoteLine = 16.0;
constexpr int c_nBands = 64;
constexpr int c_nMostTicks = 8;

Colour Pick(std::span<const Colour> colours, double t) {
  const double dPlace = std::clamp(t, 0.0, 1.0) * static_cast<double>(colours.size() - 1);
  const std::size_t k = std::min(static_cast<std::size_t>(dPlace), colours.size() - 2);
  return MixColours(colours[k], colours[k + 1], dPlace - static_cast<double>(k));
}

void PaintBar(IPaintContext& paint, const Box& bar, const CColourScale& scale) {
  const double dBand = bar.GetHeight() / c_nBands;
  for (int k = 0; k < c_nBands; ++k) {
    const double t = (k + 0.5) / c_nBands;
    const Colour colour = scale.GetColour(scale.GetHigh() + t * (scale.GetLow() - scale.GetHigh()));
    paint.SetPen(colour);
    paint.SetBrush(colour);
    paint.Rectangle(bar.dLeft, bar.dTop + k * dBand, bar.GetWidth(), dBand);
  }
}

void PaintBarTicks(IPaintContext& paint, const Box& bar, const CColourScale& scale) {
  const double dRange = scale.GetHigh() - scale.GetLow();
  const Ticks ticks = ChooseTicks(scale.GetLow(), scale.GetHigh(), c_nMostTicks);
  paint.SetPen(c_inkColour);
  paint.SetTextHeight(c_dTextHeight);
  for (int k = 0; k < ticks.nCount; ++k) {
    const double t = (ticks.Get(k) - scale.GetLow()) / dRange;
    if (t < -1e-9 || t > 1.0 + 1e-9) continue;
    const double dY = bar.dBottom - t * bar.GetHeight();
    paint.Line(bar.dRight, dY, bar.dRight + 4, dY);
    paint.Text(bar.dRight + 8, dY, ticks.FormatTick(k), HorizontalAlign::Left, VerticalAlign::Middle);
  }
}

}  // namespace

CColourScale::CColourScale(double dLow, double dHigh) : m_dLow(std::min(dLow, 0.0)), m_dHigh(std::max(dHigh, 0.0)) {
  if (m_dHigh - m_dLow == 0.0) m_dHigh = 1.0;
}

Colour CColourScale::GetColour(double dValue) const {
  const double t = dValue / std::max(m_dHigh, -m_dLow);
  if (m_dLow == 0.0) return Pick(c_rising, t);
  return t < 0.0 ? Pick(c_negative, -t) : Pick(c_positive, t);
}

void PaintColourLegend(IPaintContext& paint, PaintPoint topLeft, const ColourLegend& legend) {
  const auto [dLeft, dTop] = topLeft;
  paint.SetPen(c_inkColour);
  paint.SetTextHeight(c_dTitleHeight);
  paint.Text(dLeft, dTop, legend.strTitle);
  paint.SetTextHeight(c_dTextHeight);
  if (!legend.strUnit.empty()) paint.Text(dLeft, dTop + c_dUnitLine, "[" + legend.strUnit + "]");
  const Box bar{dLeft, dTop + c_dBarTop, dLeft + c_dBarWidth, dTop + c_dLegendHeight - 8.0};
  PaintBar(paint, bar, legend.scale);
  PaintBarTicks(paint, bar, legend.scale);
  double dY = dTop + c_dLegendHeight + 4.0;
  paint.SetPen(c_inkColour);
  paint.SetTextHeight(c_dTextHeight);
  for (const std::string& strNote : legend.notes) {
    paint.Text(dLeft, dY, strNote);
    dY += c_dNoteLine;
  }
}

}  // namespace skyframe::host
