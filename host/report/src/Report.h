#pragma once

#include <cmath>

namespace skyframe::host {

inline constexpr double c_dKilonewtonPerNewton = 1.0e-3;

/// Zero instead of what would print as "-0.000".
inline double DropRoundOff(double dKilonewton) { return std::abs(dKilonewton) < 0.5e-3 ? 0.0 : dKilonewton; }

}  // namespace skyframe::host
