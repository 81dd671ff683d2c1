#pragma once

#include <cmath>
#include <cstddef>
#include <span>

namespace skyframe {

/// x^T y, summed in index order. y: as many values as x, or more.
[[nodiscard]] inline double Dot(std::span<const double> x, std::span<const double> y) {
  double dSum = 0.0;
  for (std::size_t i = 0; i < x.size(); ++i) dSum += x[i] * y[i];
  return dSum;
}

/// Euclidean norm.
[[nodiscard]] inline double Norm(std::span<const double> x) { return std::sqrt(Dot(x, x)); }

}  // namespace skyframe
