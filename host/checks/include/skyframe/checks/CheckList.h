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
  HistoryDuration,
  TopDisplacement,       ///< of the static analysis, horizontal
  Deflection,            ///< of the static analysis, vertical
  QuakeTopDisplacement,  ///< along the earthquake
};

enum class Verdict { Satisfied, NotSatisfied, NoLimit, NotChecked };

/// Why results have no verdict.
enum class Doubt {
  None,
  OldModel,    ///< they are of another model
  OtherModes,  ///< they do not follow from the modes at hand
  OtherMasses  ///< the modes have the masses of another load combination
};

/// A figure and its limit.
struct Check {
  CheckKind kind = CheckKind::MassParticipation;
  Vector3 direction = {};  ///< of the earthquake; 0 where it has none
  int nStorey = 0;         ///< from 1; 0: the whole structure
  double dValue = 0.0;
  std::optional<Limit> limit;
  Verdict verdict = Verdict::NoLimit;
  bool bInformation = false;  ///< the figure is not formed under the code's conditions
  Doubt doubt = Doubt::None;  ///< why it is not checked; there is no value then
  double dLength = 0.0;       ///< height or span that a displacement is seen against, m
};

/// Compares; bLeast: the value must not be below the limit.
[[nodiscard]] Check FormCheck(CheckKind kind, double dValue, const std::optional<Limit>& limit, bool bLeast);

/// For what cannot be checked.
[[nodiscard]] Check FormUnchecked(CheckKind kind, Doubt doubt);

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
/// In their place.
[[nodiscard]] std::vector<Check> ListUncheckedStoreys(int nLevel, Doubt doubt);
/// Static displacement of a structure without storeys: of a tower at its top, else the largest deflection.
[[nodiscard]] Check FormMovement(const Job& job, const NodeField& displacements);
/// Largest displacement of the topmost nodes along the axis nearest to the direction.
[[nodiscard]] Check FormQuakeMovement(const Job& job, const NodeField& displacements, const Vector3& direction);
/// Nothing without a mode of torsion and one of translation.
[[nodiscard]] std::optional<Check> CheckPeriodRatio(const ModalBasis& basis, const FirstModes& first,
                                                    const CCodeLimits& limits);

}  // namespace skyframe::host
