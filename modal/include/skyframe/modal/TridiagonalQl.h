#pragma once

#include <span>
#include <vector>

namespace skyframe {

/// Eigenpairs T s = theta s of a symmetric tridiagonal matrix, |theta| descending.
struct TridiagonalEigen {
  std::vector<double> values;   ///< m
  std::vector<double> vectors;  ///< m x m by columns: s(k, i) = vectors[i * m + k], S^T S = I
  bool bConverged = true;       ///< false: an eigenvalue took more than 50 iterations, the rest is unfinished

  [[nodiscard]] double GetVector(int k, int i) const;
};

/// QL iteration with shifts. diagonal: m values, offDiagonal: m - 1.
/// |e_k| is negligible when |e_k| <= dTolerance t, t the largest |d_l| + |e_l| met so far.
/// Source: Bowdler, Martin, Reinsch and Wilkinson (1968), procedure tql2.
[[nodiscard]] TridiagonalEigen SolveTridiagonal(std::span<const double> diagonal, std::span<const double> offDiagonal,
                                                double dTolerance);

}  // namespace skyframe
