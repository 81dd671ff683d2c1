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

/// Width and height of a picture, pixels.
struct PictureSize {
  int nWidth = 0;
  int nHeight = 0;

  [[nodiscard]] Box GetBox() const { return {0.0, 0.0, static_cast<double>(nWidth), static_cast<double>(nHeight)}; }
};
inline constexpr PictureSize c_chartSize{1000, 560};

/// What an axis shows, and the round values on it; those out of the range are not painted.
struct Axis {
  double dLow = 0.0;
  double dHigh = 1.0;
  Ticks ticks;

  [[nodiscard]] bool Has(double dValue) const;
};
/// From one round value to another, around the range.
[[nodiscard]] Axis ChooseAxis(double dLow, double dHigh, int nMostTicks);
/// Just the range, as of a picture that is zoomed in.
[[nodiscard]] Axis CutAxis(double dLow, double dHigh, int nMostTicks);

/// Where data lie in the picture.
class CChartFrame {
 public:
  CChartFrame(const Axis& x, const Axis& y, const Box& box) : m_x(x), m_y(y), m_box(box) {}

  [[nodiscard]] PaintPoint Map(double dX, double dY) const;
  /// Data under a point of the picture.
  [[nodiscard]] PaintPoint Unmap(PaintPoint at) const;
  [[nodiscard]] const Axis& GetX() const { return m_x; }
  [[nodiscard]] const Axis& GetY() const { return m_y; }
  [[nodiscard]] const Box& GetBox() const { return m_box; }

 private:
  Axis m_x;
  Axis m_y;
  Box m_box;
};
/// The part of a sheet that a chart leaves to its data; bTitled: with room for a title.
[[nodiscard]] Box GetChartBox(PictureSize size, bool bTitled = true);

/// Title and line below it at the top left of a sheet.
void PaintTitle(IPaintContext& paint, const std::string& strTitle, const std::string& strSubtitle);

/// Text on a ground of its own, kept inside the box; at: middle of its lower edge.
void PaintLabel(IPaintContext& paint, const Box& within, PaintPoint at, const std::string& strText, Colour colour);

/// A line of a legend.
struct LegendEntry {
  std::string strText;
  Colour colour;
  bool bMark = false;  ///< a square, else a line
};

[[nodiscard]] double GetLegendWidth(std::span<const LegendEntry> entries);

/// A coordinate system with grid, ticks and titles.
class CChart {
 public:
  /// Paints everything but the data.
  CChart(IPaintContext& paint, const ChartTexts& texts, const CChartFrame& frame);

  [[nodiscard]] PaintPoint Map(double dX, double dY) const { return m_frame.Map(dX, dY); }
  [[nodiscard]] const Box& GetBox() const { return m_frame.GetBox(); }

  /// Line through data points, as far as it lies in the axes.
  void Curve(std::span<const PaintPoint> data, Colour colour, double dWidth);
  /// Square on a data point.
  void Mark(double dX, double dY, Colour colour);
  /// On a ground of its own.
  void Legend(std::span<const LegendEntry> entries, PaintPoint topLeft);

 private:
  void PaintGrid();
  void PaintTicks();

  IPaintContext& m_paint;
  CChartFrame m_frame;
};

}  // namespace skyframe::host
