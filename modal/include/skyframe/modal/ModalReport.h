#pragma once

#include <array>
#include <optional>
#include <vector>

namespace skyframe {

class CAnalysisModel;

/// Masses in kg that take part in a rigid translation along X, Y and Z.
struct EffectiveMasses {
  std::array<double, 3> total{};             ///< r^T M r, r = 1 at the free translations of the direction
  std::vector<std::array<double, 3>> modes;  ///< (r^T M phi_i)^2
};

/// From the model's ModeShapes. Nothing when there is no memory for M.
[[nodiscard]] std::optional<EffectiveMasses> ComputeEffectiveMasses(const CAnalysisModel& model, bool bUseLoadMass);

/// Number of modes below dOmega, rad/s, by a Sturm count of K - dOmega^2 M. Nothing (after the kernel's
/// message) when that matrix is singular.
[[nodiscard]] std::optional<int> CountModesBelow(const CAnalysisModel& model, double dOmega, bool bUseLoadMass);

/// Modes below the highest of Omega that Omega does not hold; 0: none was missed. Nothing as above.
[[nodiscard]] std::optional<int> CountMissedModes(const CAnalysisModel& model, bool bUseLoadMass);

}  // namespace skyframe
