#include "skyframe/numeric/RowMatrix.h"

#include "skyframe/numeric/SparseMatrix.h"

namespace skyframe {

CRowMatrix::CRowMatrix(SparseMatrix& A, int n) {
  A.TrimProfile(n);
  if (A.BuildRows(n)) {
    m_start.assign(A.GetRowStarts().begin(), A.GetRowStarts().end());
    m_column.assign(A.GetRowColumns().begin(), A.GetRowColumns().end());
    m_value.assign(A.GetRowValues().begin(), A.GetRowValues().end());
  }
  A.RestoreHeights();
}

double CRowMatrix::FormRowProduct(std::size_t i, std::span<const double> x) const {
  double dSum = 0.0;
  const auto nEnd = static_cast<std::size_t>(m_start[i + 1]);
  for (auto k = static_cast<std::size_t>(m_start[i]); k < nEnd; ++k) {
    dSum += m_value[k] * x[static_cast<std::size_t>(m_column[k])];
  }
  return dSum;
}

void CRowMatrix::Multiply(std::span<const double> x, std::span<double> y) const {
  for (std::size_t i = 0; i < y.size(); ++i) y[i] = FormRowProduct(i, x);
}

void CRowMatrix::MultiplyAdd(std::span<const double> x, std::span<double> y) const {
  for (std::size_t i = 0; i < y.size(); ++i) y[i] += FormRowProduct(i, x);
}

void CRowMatrix::AddTo(SparseMatrix& S, double dFactor) const {
  for (int i = 0; i < GetOrder(); ++i) {
    const auto nEnd = static_cast<std::size_t>(m_start[static_cast<std::size_t>(i) + 1]);
    for (auto k = static_cast<std::size_t>(m_start[static_cast<std::size_t>(i)]); k < nEnd && m_column[k] <= i; ++k) {
      S(i, m_column[k]) += dFactor * m_value[k];
    }
  }
}

}  // namespace skyframe
