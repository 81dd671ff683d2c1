#pragma once

#include <array>
#include <optional>
#include <vector>

#include "skyframe/values/Capacities.h"
#include "skyframe/values/Export.h"
#include "skyframe/values/Findings.h"
#include "skyframe/values/SpectrumSite.h"

namespace skyframe {

// Questions about the model in the host records that need no run and leave no file. Each builds a model of its
// own; nothing is answered, after the module's message, when that is refused or memory is short.

/// The skyline of one numbering, its leading block of free equations.
struct ProfileMeasure {
  int nFree = 0;
  int nRestrained = 0;
  double dEntries = 0.0;
  double dLargestHeight = 0.0;
  double dOperations = 0.0;  ///< sum of squared column heights: multiplications and additions of a factorisation
  double dBytes = 0.0;       ///< of the values in memory

  [[nodiscard]] double GetMeanHeight() const { return nFree == 0 ? 0.0 : dEntries / nFree; }
};

struct ModelMeasure {
  ProfileMeasure own;         ///< in the host's own numbering
  ProfileMeasure renumbered;  ///< in the one that the modal analysis uses
};

/// Counts, profile and memory. bForModes: as the modal and spectrum analyses build the model.
[[nodiscard]] SKYFRAME_API std::optional<ModelMeasure> MeasureModel(bool bForModes);

/// What decides the modes of a model beside the model itself.
struct ModeSettings {
  bool bShear = false;
  std::array<int, c_nLoadTypes> loadFlags = {};  ///< load types that become mass
  std::array<double, c_nLoadTypes> loadFactors = {};
};

/// Number of modes below dOmega, rad/s, by a Sturm count of K - dOmega^2 M.
[[nodiscard]] SKYFRAME_API std::optional<int> CountModesBelow(double dOmega, const ModeSettings& settings);

/// Inertia M x, N and Nm, of accelerations x, m/s2 and rad/s2: several x at once, each by node in host order.
/// Restrained DOFs take no part and have none; M is the mass of the modal analysis.
[[nodiscard]] SKYFRAME_API std::optional<std::vector<std::vector<NodeValues>>> FormInertia(
    const std::vector<std::vector<NodeValues>>& accelerations, const ModeSettings& settings);

/// What the combination of modal maxima depends on.
struct CombinationRule {
  int nMethod = 0;            ///< 0 SRSS, 1 CQC, 2 GRP
  std::vector<double> omega;  ///< rad/s, by mode
  std::vector<double> zeta;   ///< damping ratio, by mode
};

/// Combines each quantity over the modes as the spectrum analysis does; maxima[i][q]: quantity q in mode i.
[[nodiscard]] SKYFRAME_API std::vector<double> CombineMaxima(const CombinationRule& rule,
                                                             const std::vector<std::vector<double>>& maxima);

/// Seismic influence coefficient at a period, with the curve's highest value for a damping ratio of 0.05 and its
/// characteristic period.
struct DesignSpectrumValue {
  double dAlpha = 0.0;
  double dAlphaMax = 0.0;
  double dTg = 0.0;  ///< s
};
[[nodiscard]] SKYFRAME_API std::optional<DesignSpectrumValue> EvaluateDesignSpectrum(const SpectrumSite& site,
                                                                                     double dPeriod, double dDampRatio);

}  // namespace skyframe
