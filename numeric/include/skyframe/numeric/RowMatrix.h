#pragma once

#include <algorithm>
#include <span>

#include "skyframe/numeric/SparseMatrix.h"

namespace skyframe {

/// The leading n x n block of a symmetric matrix by compressed rows, for products and sums: 10 to 13 entries
/// a row of a frame, where the skyline has hundreds.
class CRowMatrix {
 public:
  CRowMatrix() = default;
  /// Leaves the values of A as they are and its heights trimmed to what they hold. Of order 0, after a message, when
  /// memory is short.
  CRowMatrix(SparseMatrix& A, int n);

  [[nodiscard]] int GetOrder() const { return std::max(static_cast<int>(m_rows.start.size()), 1) - 1; }
  /// y = A x, n values each.
  void Multiply(std::span<const double> x, std::span<double> y) const;
  /// y <- y + A x.
  void MultiplyAdd(std::span<const double> x, std::span<double> y) const;
  /// S <- S + factor A over the leading n x n block; the profile of S holds that of A.
  void AddTo(SparseMatrix& S, double dFactor) const;

  /// a A + b B of matrices of one order. Entries that are exactly zero are left out.
  [[nodiscard]] static CRowMatrix Combine(double a, const CRowMatrix& A, double b, const CRowMatrix& B);

 private:
  void Append(int nColumn, double dValue);
  [[nodiscard]] double FormRowProduct(std::size_t i, std::span<const double> x) const;

  CompressedRows m_rows;
};

}  // namespace skyframe
