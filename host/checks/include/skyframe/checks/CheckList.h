#pragma once

#include <span>
#include <vector>

#include "skyframe/checks/CodeLimits.h"
#include "skyframe/checks/StoreyResponse.h"

namespace skyframe::host {

enum class CheckKind {
  MassParticipation,
  ShearWeight,
  Drift,
  RareDrift,
  RegularDisplacement,
  DisplacementRatio,
  PeriodRatio,
  HistoryShear,
  MeanHistoryShear,
  HistoryDuration
};

enum class Verdict { Satisfied, NotSatisfied, NoLimit };

/// A figure and its limit.
struct Check {
  CheckKind kind = CheckKind::MassParticipation;
  Vector3 direction = {};  ///< of the earthquake; 0 where it has none
  int nStorey = 0;         ///< from 1; 0: the whole structure
  double dValue = 0.0;
  std::optional<Limit> limit;
  Verdict verdict = Verdict::NoLimit;
  bool bInformation = false;  ///< the figure is not formed under the code's conditions
};

/// Compares; bLeast: the value must not be below the limit.
[[nodiscard]] Check FormCheck(CheckKind kind, double dValue, const std::optional<Limit>& limit, bool bLeast);

/// What decides the limits of a response spectrum.
struct SpectrumLevel {
  int nIntensity = 0;  ///< place in c_strIntensities
  int nLevel = 0;      ///< place in c_strQuakeLevels
};

/// Factor by which the shears of a storey must be raised (5.2.5); 1 where they need not, or there is no limit.
[[nodiscard]] double FormShearFactor(const StoreyResponse& response, const std::optional<Limit>& least);

/// Least participating mass along the directions of the earthquake.
[[nodiscard]] Check CheckMassParticipation(const ModalBasis& basis, const Vector3& direction,
                                           const CCodeLimits& limits);
/// The decisive storeys.
[[nodiscard]] std::vector<Check> CheckStoreys(std::span<const StoreyResponse> responses, const CCodeLimits& limits,
                                              const SpectrumLevel& level, double dFirstPeriod);
/// Nothing without a mode of torsion and one of translation.
[[nodiscard]] std::optional<Check> CheckPeriodRatio(const ModalBasis& basis, const FirstModes& first,
                                                    const CCodeLimits& limits);

}  // namespace skyframe::host
