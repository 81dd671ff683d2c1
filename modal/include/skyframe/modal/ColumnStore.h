#pragma once

#include <span>
#include <vector>

namespace skyframe {

/// Tall n x m matrix A stored by columns, one behind the other; it grows by whole columns.
class CColumnStore {
 public:
  explicit CColumnStore(int n) : m_nRows(static_cast<std::size_t>(n)) {}

  [[nodiscard]] int GetCols() const { return m_nCols; }
  [[nodiscard]] std::span<const double> GetColumn(int k) const {
    return std::span(m_values).subspan(static_cast<std::size_t>(k) * m_nRows, m_nRows);
  }

  /// Room for so many columns in all.
  void Reserve(int nCols) { m_values.reserve(static_cast<std::size_t>(nCols) * m_nRows); }
  /// column: n values.
  void Append(std::span<const double> column);

  /// c = A^T x. x: n values, c: m.
  void MultiplyTransposed(std::span<const double> x, std::span<double> c) const;
  /// y <- y - A c. c: m values or fewer (leading columns), y: n.
  void SubtractProduct(std::span<const double> c, std::span<double> y) const;

 private:
  std::size_t m_nRows;
  int m_nCols = 0;
  std::vector<double> m_values;
};

}  // namespace skyframe
