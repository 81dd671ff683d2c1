#pragma once

#include <array>
#include <optional>
#include <span>
#include <vector>

#include "skyframe/checks/Storeys.h"
#include "skyframe/connect/Inquiries.h"
#include "skyframe/values/Findings.h"

namespace skyframe::host {

/// Weight of a mass that loads make; the spectrum has an acceleration of its own.
inline constexpr double c_dGravity = 9.81;
/// m/s2 per unit of the seismic influence coefficient.
inline constexpr double c_dSpectrumGravity = 9.8;

using Vector3 = std::array<double, 3>;
/// X Y Z RX RY RZ by node in host order.
using NodeField = std::vector<NodeValues>;

/// Masses that follow the nodes in rigid translations, kg, and modes. Entry i of each list belongs to mode i.
struct ModalBasis {
  std::vector<Vector3> masses;     ///< by node: (M r)_d for r = 1 along d
  std::vector<double> omega;       ///< rad/s, ascending
  std::vector<NodeField> shapes;   ///< phi, phi^T M phi = 1
  std::vector<NodeField> inertia;  ///< M phi

  [[nodiscard]] std::size_t GetCount() const { return omega.size(); }
  [[nodiscard]] double GetPeriod(std::size_t i) const;
};

/// r = 1 along X, Y, Z at all nodes, whose products with M are ModalBasis::masses.
[[nodiscard]] std::vector<NodeField> FormUnitTranslations(std::size_t nNodes);

/// Of a modal run with this load combination as mass.
[[nodiscard]] ModeSettings FormModeSettings(const JobCombination& combination, bool bShear);
/// Modes of the model in the host records, which has so many nodes; nothing, after a message, when that is refused.
[[nodiscard]] std::optional<ModalBasis> FormBasis(std::vector<double> omega, std::vector<NodeField> shapes,
                                                  std::size_t nNodes, const ModeSettings& settings);

/// M_d = sum of the masses along X, Y, Z, kg.
[[nodiscard]] Vector3 SumMasses(const ModalBasis& basis);
/// Mass of the whole structure, kg, that the weight G is that of.
[[nodiscard]] double GetGravityMass(const ModalBasis& basis);
/// phi_i^T M phi_i; 1 when the modes were normalised with these masses.
[[nodiscard]] double FormModalMass(const ModalBasis& basis, std::size_t i);
/// L_d = r_d^T M phi_i along X, Y, Z.
[[nodiscard]] Vector3 SumInertia(const ModalBasis& basis, std::size_t i);
/// L_d^2 / M_d; 0 where no mass is free to move.
[[nodiscard]] Vector3 FormMassShares(const ModalBasis& basis, std::size_t i);

/// Mass of a floor and its centre in plan, of the horizontal direction in which more mass is free to move.
struct StoreyMass {
  double dMass = 0.0;  ///< kg
  double dX = 0.0;     ///< m
  double dY = 0.0;
};
[[nodiscard]] StoreyMass FormStoreyMass(const Job& job, const ModalBasis& basis, std::span<const std::size_t> nodes);

/// Parts of a mode's motion as that of rigid floors of mass m_j and moment of inertia J_j about their centres:
///   X: sum of P_x^2/m_j, Y: sum of P_y^2/m_j, torsion: sum of L^2/J_j,
/// P and L the floor's inertia M phi and its moment; divided by their sum.
struct MotionShares {
  double dX = 0.0;
  double dY = 0.0;
  double dTorsion = 0.0;

  [[nodiscard]] bool IsTorsion() const { return dTorsion > 0.5; }
  /// False, too, for a motion within the floors.
  [[nodiscard]] bool IsTranslation() const { return dX + dY > 0.5; }
};
[[nodiscard]] MotionShares FormMotionShares(const Job& job, const StoreyModel& storeys, const ModalBasis& basis,
                                            std::size_t i);

/// First mode of translation and first one of torsion, where there is one.
struct FirstModes {
  std::optional<std::size_t> translation;
  std::optional<std::size_t> torsion;
};
[[nodiscard]] FirstModes FindFirstModes(std::span<const MotionShares> shares);

}  // namespace skyframe::host
