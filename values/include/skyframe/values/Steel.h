#pragma once

namespace skyframe {

/// Linear elastic material.
struct ElasticConstants {
  double dE = 0.0;           ///< N/m2
  double dNu = 0.0;          ///< Poisson's ratio
  double dUnitWeight = 0.0;  ///< kg/m3
};

/// What every member is made of.
inline constexpr ElasticConstants c_steel = {2.06e11, 0.3, 7900.0};

}  // namespace skyframe
