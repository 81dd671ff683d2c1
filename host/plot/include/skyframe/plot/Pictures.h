#pragma once

#include <array>
#include <string>
#include <vector>

#include "skyframe/platform/PaintContext.h"
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
  struct Member {
    int nNodeI = 0;  ///< from 0
    int nNodeJ = 0;
    std::array<bool, 2> turns = {};  ///< whether each end turns with its node
  };
  std::string strTitle;
  std::string strSubtitle;
  std::string strShape;  ///< for the legend
  std::vector<std::array<double, 3>> nodes;
  std::vector<int> nodeIds;
  std::vector<bool> supports;
  std::vector<Member> members;
  std::vector<std::array<double, 6>> displacements;  ///< m and rad, by node
  bool bShowScale = false;                           ///< whether the size of the displacements means anything
};
inline constexpr int c_nSheetWidth = 1200;
inline constexpr int c_nSheetHeight = 860;
void PaintShape(IPaintContext& paint, const ShapePicture& picture);

/// Positions along a member whose nodes move by dScale times their displacements: cubic where ends turn.
[[nodiscard]] std::vector<std::array<double, 3>> BendMember(const ShapePicture& picture,
                                                            const ShapePicture::Member& member, double dScale);

}  // namespace skyframe::host
