#pragma once

#include <array>
#include <string>

#include "skyframe/report/SummaryLine.h"

namespace skyframe::host {

inline constexpr double c_dKilonewtonPerNewton = 1.0e-3;

/// "X 1.000, Y 0.000, Z 0.000 kN".
[[nodiscard]] std::string FormatForces(const std::array<double, 3>& kilonewtons);

}  // namespace skyframe::host
