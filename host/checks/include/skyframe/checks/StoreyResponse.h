#pragma once

#include "skyframe/checks/ModalQuantities.h"

namespace skyframe::host {

/// What an earthquake does to each mode: direction c of unit length, entry i of each list belongs to mode i.
///   gamma_i = sum_d c_d L_d,  displacement = alpha_i gamma_i g / omega_i^2 phi_i,  force = alpha_i gamma_i g M phi_i
struct ModalLoads {
  Vector3 direction = {};
  int nMethod = 0;            ///< place in c_strModalCombinations
  std::vector<double> zeta;   ///< damping ratios
  std::vector<double> alpha;  ///< seismic influence coefficients
  std::vector<double> gamma;  ///< participation factors
};
[[nodiscard]] std::vector<double> FormParticipation(const ModalBasis& basis, const Vector3& direction);

/// Force on the supports along X, Y, Z in mode i, N: alpha_i gamma_i g L_d.
[[nodiscard]] Vector3 FormModalBaseShear(const ModalBasis& basis, const ModalLoads& loads, std::size_t i);
/// The same combined over the modes.
[[nodiscard]] Vector3 CombineBaseShear(const ModalBasis& basis, const ModalLoads& loads);

/// Combined displacements of all nodes, m: those of the result file.
[[nodiscard]] NodeField CombineDisplacements(const ModalBasis& basis, const ModalLoads& loads);

/// The horizontal part of a direction, of unit length; nothing for a vertical one.
[[nodiscard]] std::optional<std::array<double, 2>> FindHorizontal(const Vector3& direction);

/// Response of a storey along the horizontal direction e, each quantity formed mode by mode and then combined.
struct StoreyResponse {
  double dForce = 0.0;        ///< F_j: force on the floor, N
  double dShear = 0.0;        ///< V_j = F_j + F_j+1 + ..., N
  double dMoment = 0.0;       ///< M_j = sum of F z about the storey's lower level, Nm
  double dWeight = 0.0;       ///< G_j, N
  double dWeightAbove = 0.0;  ///< G_j + G_j+1 + ..., N
  double dLargest = 0.0;      ///< displacement of the floor's nodes, m
  double dMean = 0.0;         ///< half the sum of the largest and the smallest
  double dDrift = 0.0;        ///< largest difference over a column, m
  double dMeanDrift = 0.0;    ///< half the sum of the largest and the smallest
  double dAngle = 0.0;        ///< dDrift over the height

  [[nodiscard]] double GetShearWeight() const { return dWeightAbove > 0.0 ? dShear / dWeightAbove : 0.0; }
  [[nodiscard]] double GetDisplacementRatio() const { return dMean > 0.0 ? dLargest / dMean : 0.0; }
  [[nodiscard]] double GetDriftRatio() const { return dMeanDrift > 0.0 ? dDrift / dMeanDrift : 0.0; }
};
/// By storey from the ground up.
[[nodiscard]] std::vector<StoreyResponse> FormStoreyResponse(const Job& job, const StoreyModel& storeys,
                                                             const ModalBasis& basis, const ModalLoads& loads,
                                                             const std::array<double, 2>& e);

}  // namespace skyframe::host
