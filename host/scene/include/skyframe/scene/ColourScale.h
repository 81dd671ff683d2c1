#pragma once

#include <string>
#include <vector>

#include "skyframe/platform/PaintContext.h"
#include "skyframe/scene/Box.h"

namespace skyframe::host {

/// Colours for values between two ends. Lightness falls evenly with the value; with values below 0 it falls on both
/// sides of a pale 0, to blue below and to red above.
class CColourScale {
 public:
  CColourScale() = default;
  CColourScale(double dLow, double dHigh);

  [[nodiscard]] double GetLow() const { return m_dLow; }
  [[nodiscard]] double GetHigh() const { return m_dHigh; }
  /// Values beyond an end have the end's colour.
  [[nodiscard]] Colour GetColour(double dValue) const;

 private:
  double m_dLow = 0.0;
  double m_dHigh = 1.0;
};

/// What stands beside a drawing in colours.
struct ColourLegend {
  std::string strTitle;
  std::string strUnit;
  CColourScale scale;
  std::vector<std::string> notes;  ///< lines below the bar, as where the extremes are
};

inline constexpr double c_dLegendWidth = 190.0;   ///< pixels
inline constexpr double c_dLegendHeight = 260.0;  ///< without the notes

/// Title, colour bar with round ticks, notes, from the top left corner of a box of that size downwards.
void PaintColourLegend(IPaintContext& paint, PaintPoint topLeft, const ColourLegend& legend);

}  // namespace skyframe::host
