#pragma once

#include <span>
#include <string>

#include "skyframe/platform/PaintContext.h"
#include "skyframe/scene/Box.h"
#include "skyframe/scene/Colours.h"
#include "skyframe/scene/Ticks.h"

namespace skyframe::host {

inline constexpr Colour c_faintColour{0x6b, 0x74, 0x80};
inline constexpr Colour c_gridColour{0xe4, 0xe7, 0xeb};
inline constexpr Colour c_curveColour{0x1f, 0x5f, 0xb4};
inline constexpr Colour c_markColour{0xc6, 0x36, 0x2c};

/// Texts around a chart.
struct ChartTexts {
  std::string strTitle;
  std::string strSubtitle;
  std::string strX;  ///< with its unit
  std::string strY;
};

inline constexpr int c_nChartWidth = 1000;
inline constexpr int c_nChartHeight = 560;

/// Title and line below it at the top left of a sheet.
void PaintTitle(IPaintContext& paint, const std::string& strTitle, const std::string& strSubtitle);

/// Text on a ground of its own, kept inside the box; at: middle of its lower edge.
void PaintLabel(IPaintContext& paint, const Box& within, PaintPoint at, const std::string& strText, Colour colour);

/// A coordinate system with grid, ticks and titles on a sheet of c_nChartWidth x c_nChartHeight pixels.
class CChart {
 public:
  /// Paints everything but the data.
  CChart(IPaintContext& paint, const ChartTexts& texts, const Ticks& x, const Ticks& y);

  [[nodiscard]] PaintPoint Map(double dX, double dY) const;
  [[nodiscard]] const Box& GetBox() const { return m_box; }

  /// Line through data points.
  void Curve(std::span<const PaintPoint> data, Colour colour, double dWidth);
  /// Square on a data point.
  void Mark(double dX, double dY, Colour colour);
  /// A line of the legend at the top right, the first at nLine 0.
  void Legend(int nLine, const std::string& strText, Colour colour, bool bMark);

 private:
  void PaintGrid();
  void PaintTicks();

  IPaintContext& m_paint;
  Ticks m_x;
  Ticks m_y;
  Box m_box;
};

}  // namespace skyframe::host
