#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "skyframe/platform/PaintContext.h"
#include "skyframe/plot/Chart.h"
#include "skyframe/scene/Camera.h"
#include "skyframe/scene/DeformedShape.h"
#include "skyframe/scene/MemberForces.h"
#include "skyframe/scene/Scene.h"
#include "skyframe/values/SpectrumSite.h"

namespace skyframe::host {

// Pictures of results, painted from data alone, in the language in force.

/// Design spectrum with the periods of modes marked.
struct SpectrumPicture {
  std::string strTitle;
  std::string strSite;  ///< words for the site
  SpectrumSite site;    ///< without error
  double dDamping = 0.05;
  std::vector<double> periods;  ///< s, by mode
};
void PaintSpectrum(IPaintContext& paint, const SpectrumPicture& picture, PictureSize size = c_chartSize);

/// What a chart shows of its axes.
struct ChartRange {
  double dLow = 0.0;
  double dHigh = 0.0;
};

/// What values in m or N are times a factor.
struct HistoryUnit {
  std::string_view strName;
  double dFactor = 1.0;
};
inline constexpr std::array<HistoryUnit, 3> c_displacementUnits = {{{"mm", 1.0e3}, {"cm", 1.0e2}, {"m", 1.0}}};
inline constexpr std::array<HistoryUnit, 2> c_forceUnits = {{{"kN", 1.0e-3}, {"N", 1.0}}};

struct HistoryCurve {
  std::string strName;         ///< for the legend, which a single curve does not have
  std::vector<double> values;  ///< m or N at dTimeStep, 2 dTimeStep, ...; those not finite are left out
};

/// A quantity over time, several curves of it, their peaks marked.
struct HistoryPicture {
  std::string strTitle;  ///< empty: no room for title and subtitle
  std::string strSubtitle;
  std::string strQuantity;
  HistoryUnit unit = c_displacementUnits.front();
  double dTimeStep = 0.0;  ///< s
  std::vector<HistoryCurve> curves;
  std::optional<ChartRange> time = std::nullopt;    ///< s; none: all
  std::optional<ChartRange> values = std::nullopt;  ///< in the unit; none: all
  std::optional<double> cursor = std::nullopt;      ///< s; a line with the values at the step next to it
};
/// Where the picture's data lie when it has that size.
[[nodiscard]] CChartFrame FormHistoryFrame(const HistoryPicture& picture, PictureSize size);
/// Step, from 0, that is next to a time.
[[nodiscard]] std::size_t FindHistoryStep(const HistoryPicture& picture, double t);
[[nodiscard]] Colour GetCurveColour(std::size_t nCurve);
void PaintHistoryChart(IPaintContext& paint, const HistoryPicture& picture, PictureSize size = c_chartSize);

inline constexpr PictureSize c_sheetSize{1200, 860};

/// Displaced structure over the undeformed one: isometric view, two elevations and plan on a sheet of c_sheetSize.
struct ShapePicture {
  std::string strTitle;
  std::string strSubtitle;
  std::string strShape;  ///< for the legend
  CScene scene;          ///< with a node or more
  DeformedShape shape;
  bool bColours = false;  ///< members coloured by their displacement
};
void PaintShape(IPaintContext& paint, const ShapePicture& picture);

/// The structure in one view, with what is asked for.
struct StructurePicture {
  std::string strTitle;
  std::string strSubtitle;
  CScene scene;  ///< with a node or more
  CShownParts shown;
  ViewDirection view = c_isometricView;
  StructureForces forces;                 ///< for what follows
  std::optional<MemberQuantity> diagram;  ///< one of the six components
  std::optional<MemberQuantity> colours;
  bool bReactions = false;
  std::vector<SceneLoad> loads;
  bool bLocalAxes = false;
  bool bSectionNames = false;
};
void PaintStructure(IPaintContext& paint, const StructurePicture& picture, PictureSize size = c_sheetSize);

}  // namespace skyframe::host
