#pragma once

namespace skyframe {

/// Shape functions of a member's deflection at a place along it: with deflections v and slopes theta = dv/dx of the
/// ends i and j, v(x) = dI v_i + L dSlopeI theta_i + dJ v_j + L dSlopeJ theta_j.
struct HermiteCubic {
  double dI;
  double dSlopeI;
  double dJ;
  double dSlopeJ;
};

/// At xi = x/L. Exact for forces and moments at the ends; phi: shear parameter 12 kappa E I/(G A L^2), 0 without shear
/// deformation, which gives Hermite's cubic. Source: Przemieniecki (1968), chapter 11.
[[nodiscard]] constexpr HermiteCubic FormHermiteCubic(double xi, double phi = 0.0) {
  const double xi2 = xi * xi, xi3 = xi2 * xi;
  const double shear = phi * (xi - xi2) / 2.0;
  const double f = 1.0 + phi;
  return {(1.0 - 3.0 * xi2 + 2.0 * xi3 + phi * (1.0 - xi)) / f, (xi - 2.0 * xi2 + xi3 + shear) / f,
          (3.0 * xi2 - 2.0 * xi3 + phi * xi) / f, (-xi2 + xi3 - shear) / f};
}

}  // namespace skyframe
