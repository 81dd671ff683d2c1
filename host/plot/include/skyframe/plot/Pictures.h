#pragma once

#include <string>
#include <vector>

#include "skyframe/platform/PaintContext.h"
#include "skyframe/scene/DeformedShape.h"
#include "skyframe/scene/Scene.h"
#include "skyframe/values/SpectrumSite.h"

namespace skyframe::host {

// Pictures of results, painted from data alone.

/// Design spectrum with the periods of modes marked; c_nChartWidth x c_nChartHeight pixels.
struct SpectrumPicture {
  std::string strTitle;
  std::string strSite;  ///< words for the site
  SpectrumSite site;    ///< without error
  double dDamping = 0.05;
  std::vector<double> periods;  ///< s, by mode
};
void PaintSpectrum(IPaintContext& paint, const SpectrumPicture& picture);

/// A quantity over time with its peak marked; c_nChartWidth x c_nChartHeight pixels.
struct HistoryPicture {
  std::string strTitle;
  std::string strSubtitle;
  std::string strQuantity;
  std::string strUnit;
  double dTimeStep = 0.0;      ///< s
  std::vector<double> values;  ///< at dTimeStep, 2 dTimeStep, ...; those not finite are left out
};
void PaintHistoryChart(IPaintContext& paint, const HistoryPicture& picture);

/// Displaced structure over the undeformed one: isometric view, two elevations and plan.
struct ShapePicture {
  std::string strTitle;
  std::string strSubtitle;
  std::string strShape;  ///< for the legend
  CScene scene;          ///< with a node or more
  DeformedShape shape;
};
inline constexpr int c_nSheetWidth = 1200;
inline constexpr int c_nSheetHeight = 860;
void PaintShape(IPaintContext& paint, const ShapePicture& picture);

}  // namespace skyframe::host
