#pragma once

#include <cmath>
#include <vector>

#include "skyframe/values/Findings.h"

namespace skyframe::host {

inline double GetTranslation(const NodeValues& u) { return std::hypot(u[0], u[1], u[2]); }

/// Place of the largest translation, the first of equal ones; 0 when there are none.
inline std::size_t FindLargestTranslation(const std::vector<NodeValues>& displacements) {
  constexpr double c_dMore = 1.0 + 1.0e-9;  // past round-off in a symmetric structure
  std::size_t nLargest = 0;
  for (std::size_t i = 1; i < displacements.size(); ++i) {
    if (GetTranslation(displacements[i]) > c_dMore * GetTranslation(displacements[nLargest])) nLargest = i;
  }
  return nLargest;
}

}  // namespace skyframe::host
