#pragma once

#include <optional>
#include <span>

namespace skyframe {

/// C = dMass M + dStiffness K.
struct RayleighCoefficients {
  double dMass = 0.0;
  double dStiffness = 0.0;
};

/// Damping ratios zeta1 at omega[0] and zeta2 at the first later frequency that differs from it by more
/// than 1e-15; nothing when there is none.
[[nodiscard]] std::optional<RayleighCoefficients> FormRayleigh(std::span<const double> omega, double zeta1,
                                                               double zeta2);

/// Damping ratio that the coefficients give a mode of the frequency omega.
[[nodiscard]] inline double GetDampingRatio(const RayleighCoefficients& rayleigh, double omega) {
  return 0.5 * (rayleigh.dMass / omega + rayleigh.dStiffness * omega);
}

}  // namespace skyframe
