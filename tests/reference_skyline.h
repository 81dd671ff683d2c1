#pragma once

#include "TestPlatform.h"

/// The skyline factorisation as the textbook writes it, and random matrices to try it on.
namespace skyframe::test {

/// Symmetric matrix, upper triangle by columns: A(r, i) = values[diag[i] - (i - r)].
struct Skyline {
  std::vector<int> diag;
  std::vector<int> height;  ///< column heights in force; may be trimmed below those that diag gives
  std::vector<double> values;

  std::size_t At(int r, int i) const { return static_cast<std::size_t>(diag[static_cast<std::size_t>(i)] - (i - r)); }
  int Top(int i) const { return i - height[static_cast<std::size_t>(i)] + 1; }
  int Order() const { return static_cast<int>(diag.size()); }
  double& operator()(int r, int i) { return values[At(r, i)]; }
  double operator()(int r, int i) const { return values[At(r, i)]; }
};

/// A = L D L^T of the leading n columns, D into d. Bathe (1996), section 8.2, without a pivot test.
inline void ReferenceFactorise(Skyline& A, int n, std::vector<double>& d) {
  std::vector<double> g(static_cast<std::size_t>(n));
  const auto at = [](int i) { return static_cast<std::size_t>(i); };
  for (int j = 0; j < n; ++j) {
    d[at(j)] = A(j, j);
    for (int i = A.Top(j); i < j; ++i) {
      g[at(i)] = A(i, j);
      for (int k = std::max(A.Top(i), A.Top(j)); k < i; ++k) g[at(i)] -= g[at(k)] * A(k, i);
    }
    for (int i = A.Top(j); i < j; ++i) {
      A(i, j) = g[at(i)] / d[at(i)];
      d[at(j)] -= g[at(i)] * A(i, j);
    }
  }
}

/// Solves L D L^T x = b in place.
inline void ReferenceSolve(const Skyline& A, int n, const std::vector<double>& d, std::vector<double>& b) {
  const auto at = [](int i) { return static_cast<std::size_t>(i); };
  for (int i = 1; i < n; ++i) {
    for (int k = A.Top(i); k < i; ++k) b[at(i)] -= A(k, i) * b[at(k)];
  }
  for (int i = 0; i < n; ++i) b[at(i)] /= d[at(i)];
  for (int i = n - 1; i > 0; --i) {
    for (int k = A.Top(i); k < i; ++k) b[at(k)] -= A(k, i) * b[at(i)];
  }
}

/// How a random profile looks.
struct ProfileShape {
  int nOrder = 1;
  int nMaxHeight = 1;
  int nNode = 1;             ///< columns that share their top; 1: every column for itself
  bool bIndefinite = false;  ///< diagonal entries of either sign
};

/// Diagonally dominant, hence well conditioned and safe without pivoting.
inline Skyline RandomSkyline(const ProfileShape& shape, std::mt19937& random) {
  Skyline A;
  std::uniform_int_distribution<int> height(1, std::max(shape.nMaxHeight, 1));
  std::uniform_real_distribution<double> entry(-1.0, 1.0);
  std::vector<double> rowSum(static_cast<std::size_t>(shape.nOrder), 0.0);
  int nTop = 0, nDiagonal = -1;
  for (int i = 0; i < shape.nOrder; ++i) {
    if (i % shape.nNode == 0) nTop = std::max(0, i - height(random) + 1);
    A.height.push_back(i - nTop + 1);
    nDiagonal += A.height.back();
    A.diag.push_back(nDiagonal);
    for (int r = nTop; r <= i; ++r) {
      A.values.push_back(entry(random));
      rowSum[static_cast<std::size_t>(r)] += std::abs(A.values.back());
      rowSum[static_cast<std::size_t>(i)] += std::abs(A.values.back());
    }
  }
  for (int i = 0; i < shape.nOrder; ++i) {
    const double dSign = shape.bIndefinite && entry(random) < 0.0 ? -1.0 : 1.0;
    A(i, i) = dSign * (rowSum[static_cast<std::size_t>(i)] + 1.0);
  }
  return A;
}

}  // namespace skyframe::test
