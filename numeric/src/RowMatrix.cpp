#include "skyframe/numeric/RowMatrix.h"

#include <algorithm>

#include "skyframe/numeric/SparseMatrix.h"

namespace skyframe {

CRowMatrix::CRowMatrix(SparseMatrix& A, int n) {
  A.TrimProfile(n);
  if (A.BuildRows(n)) {
    m_start.assign(A.GetRowStarts().begin(), A.GetRowStarts().end());
    m_column.assign(A.GetRowColumns().begin(), A.GetRowColumns().end());
    m_value.assign(A.GetRowValues().begin(), A.GetRowValues().end());
  }
  A.DropRows();
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

CRowMatrix CRowMatrix::Combine(double a, const CRowMatrix& A, double b, const CRowMatrix& B) {
  CRowMatrix result;
  for (std::size_t i = 0; i < static_cast<std::size_t>(A.GetOrder()); ++i) {
    auto k = static_cast<std::size_t>(A.m_start[i]), l = static_cast<std::size_t>(B.m_start[i]);
    const auto kEnd = static_cast<std::size_t>(A.m_start[i + 1]), lEnd = static_cast<std::size_t>(B.m_start[i + 1]);
    while (k < kEnd || l < lEnd) {
      const int nInA = k < kEnd ? A.m_column[k] : A.GetOrder(), nInB = l < lEnd ? B.m_column[l] : B.GetOrder();
      double dValue = 0.0;
      if (nInA <= nInB) dValue += a * A.m_value[k++];
      if (nInB <= nInA) dValue += b * B.m_value[l++];
      result.Append(std::min(nInA, nInB), dValue);
    }
    result.m_start.push_back(static_cast<int>(result.m_value.size()));
  }
  return result;
}

void CRowMatrix::Append(int nColumn, double dValue) {
  if (dValue == 0.0) return;
  m_column.push_back(nColumn);
  m_value.push_back(dValue);
}

}  // namespace skyframe
