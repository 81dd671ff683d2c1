#pragma once

#include "BookData.h"

namespace skyframe::host {

// Pictures of the report's own, as SVG.

/// Diagram of the moments My in the vertical plane across X or Y that has the largest one.
struct MomentPicture {
  std::string strPlane;  ///< "Y = 5.00 m"
  std::string strSvg;
};
/// Nothing without moments in such a plane.
[[nodiscard]] std::optional<MomentPicture> DrawMoments(const Job& job, const std::string& strJobPath,
                                                       const StaticResultFile& file);

/// Isometric view, two elevations and plan of the model with its supports.
[[nodiscard]] std::string DrawModel(const Job& job);

/// A curve over the height of a building.
struct StoreyCurve {
  std::string strTitle;        ///< with its unit
  std::vector<double> values;  ///< by storey from the ground up
  std::optional<double> limit;
  std::string strLimit;
  bool bSteps = false;  ///< one value over the storey's height, as of a shear; else values at the floors
};
/// Side by side.
[[nodiscard]] std::string DrawStoreys(const StoreyModel& storeys, std::span<const StoreyCurve> curves);

[[nodiscard]] std::string DrawSpectrumCurve(const BookData& book, const SpectrumChapter& chapter);

/// Base shear of the time history, kN.
[[nodiscard]] std::string DrawBaseShear(const BookData& book, const HistoryChapter& chapter);

/// A history that the result viewer wrote.
[[nodiscard]] std::string DrawExtract(const BookData& book, const HistoryExtract& extract,
                                      const std::string& strSubtitle);

}  // namespace skyframe::host
