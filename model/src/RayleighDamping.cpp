#include "skyframe/model/RayleighDamping.h"

#include <algorithm>
#include <cmath>

namespace skyframe {
namespace {

/// Frequencies no farther apart count as equal.
constexpr double c_dSameFrequency = 1.0e-15;

}  // namespace

std::optional<RayleighCoefficients> FormRayleigh(std::span<const double> omega, double zeta1, double zeta2) {
  const auto differs = [&](double w) { return std::abs(w - omega[0]) > c_dSameFrequency; };
  const auto it = std::ranges::find_if(omega, differs);
  if (it == omega.end()) return std::nullopt;
  // zeta = (dMass / omega + dStiffness omega) / 2 through (w1, zeta1) and (w2, zeta2)
  const double w1 = omega[0], w2 = *it;
  const double D = w1 * w1 - w2 * w2;
  return RayleighCoefficients{2.0 * w1 * w2 * (zeta2 * w1 - zeta1 * w2) / D, 2.0 * (zeta1 * w1 - zeta2 * w2) / D};
}

}  // namespace skyframe
