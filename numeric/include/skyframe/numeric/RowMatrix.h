#pragma once

#include <span>
#include <vector>

namespace skyframe {

class SparseMatrix;

/// The leading n x n block of a symmetric matrix by compressed rows, for products and sums: 10 to 13 entries
/// a row of a frame, where the skyline has hundreds.
class CRowMatrix {
 public:
  CRowMatrix() = default;
  /// Leaves the values of A as they are. Of order 0, after a message, when memory is short.
  CRowMatrix(SparseMatrix& A, int n);

  [[nodiscard]] int GetOrder() const { return static_cast<int>(m_start.size()) - 1; }
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

  std::vector<int> m_start = {0};
  std::vector<int> m_column;
  std::vector<double> m_value;
};

}  // namespace skyframe
