#include "skyframe/modal/ColumnStore.h"

#include <algorithm>
#include <array>

namespace skyframe {
namespace {

constexpr std::size_t c_nBlock = 4;  ///< columns per pass over the vector
constexpr std::size_t c_nLanes = 4;  ///< partial sums per column, added in fixed order

/// c(k) = a_k^T x for nCols <= 4 neighbouring columns.
template <std::size_t nCols>
void DotBlock(const double* a, std::size_t n, const double* x, double* c) {
  std::array<std::array<double, c_nLanes>, nCols> sums{};
  std::size_t i = 0;
  for (; i + c_nLanes <= n; i += c_nLanes) {
    for (std::size_t k = 0; k < nCols; ++k) {
      for (std::size_t lane = 0; lane < c_nLanes; ++lane) sums[k][lane] += a[k * n + i + lane] * x[i + lane];
    }
  }
  for (; i < n; ++i) {
    for (std::size_t k = 0; k < nCols; ++k) sums[k][0] += a[k * n + i] * x[i];
  }
  for (std::size_t k = 0; k < nCols; ++k) c[k] = (sums[k][0] + sums[k][1]) + (sums[k][2] + sums[k][3]);
}

}  // namespace

void CColumnStore::Append(std::span<const double> column) {
  m_values.insert(m_values.end(), column.begin(), column.end());
  ++m_nCols;
}

void CColumnStore::MultiplyTransposed(std::span<const double> x, std::span<double> c) const {
  const auto nCols = static_cast<std::size_t>(m_nCols);
  std::size_t k = 0;
  for (; k + c_nBlock <= nCols; k += c_nBlock) DotBlock<c_nBlock>(&m_values[k * m_nRows], m_nRows, x.data(), &c[k]);
  for (; k < nCols; ++k) DotBlock<1>(&m_values[k * m_nRows], m_nRows, x.data(), &c[k]);
}

void CColumnStore::SubtractProduct(std::span<const double> c, std::span<double> y) const {
  const std::size_t n = m_nRows;
  std::size_t k = 0;
  for (; k + c_nBlock <= c.size(); k += c_nBlock) {
    const double* const a = &m_values[k * n];
    for (std::size_t i = 0; i < n; ++i) {
      y[i] -= (c[k] * a[i] + c[k + 1] * a[n + i]) + (c[k + 2] * a[2 * n + i] + c[k + 3] * a[3 * n + i]);
    }
  }
  for (; k < c.size(); ++k) {
    const double* const a = &m_values[k * n];
    for (std::size_t i = 0; i < n; ++i) y[i] -= c[k] * a[i];
  }
}

}  // namespace skyframe
