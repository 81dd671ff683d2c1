#include "skyframe/numeric/RowMatrix.h"

#include <algorithm>

namespace skyframe {

CRowMatrix::CRowMatrix(SparseMatrix& A, int n) {
  A.TrimProfile(n);
  if (A.BuildRows(n)) m_rows = A.TakeRows();
}

double CRowMatrix::FormRowProduct(std::size_t i, std::span<const double> x) const {
  double dSum = 0.0;
  const auto nEnd = static_cast<std::size_t>(m_rows.start[i + 1]);
  for (auto k = static_cast<std::size_t>(m_rows.start[i]); k < nEnd; ++k) {
    dSum += m_rows.value[k] * x[static_cast<std::size_t>(m_rows.column[k])];
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
    const auto nEnd = static_cast<std::size_t>(m_rows.start[static_cast<std::size_t>(i) + 1]);
    for (auto k = static_cast<std::size_t>(m_rows.start[static_cast<std::size_t>(i)]);
         k < nEnd && m_rows.column[k] <= i; ++k) {
      S(i, m_rows.column[k]) += dFactor * m_rows.value[k];
    }
  }
}

CRowMatrix CRowMatrix::Combine(double a, const CRowMatrix& A, double b, const CRowMatrix& B) {
  CRowMatrix result;
  result.m_rows.start.assign(1, 0);
  result.m_rows.column.reserve(std::max(A.m_rows.column.size(), B.m_rows.column.size()));
  result.m_rows.value.reserve(result.m_rows.column.capacity());
  for (std::size_t i = 0; i < static_cast<std::size_t>(A.GetOrder()); ++i) {
    auto k = static_cast<std::size_t>(A.m_rows.start[i]), l = static_cast<std::size_t>(B.m_rows.start[i]);
    const auto kEnd = static_cast<std::size_t>(A.m_rows.start[i + 1]),
               lEnd = static_cast<std::size_t>(B.m_rows.start[i + 1]);
    while (k < kEnd || l < lEnd) {
      const int nInA = k < kEnd ? A.m_rows.column[k] : A.GetOrder(),
                nInB = l < lEnd ? B.m_rows.column[l] : B.GetOrder();
      double dValue = 0.0;
      if (nInA <= nInB) dValue += a * A.m_rows.value[k++];
      if (nInB <= nInA) dValue += b * B.m_rows.value[l++];
      result.Append(std::min(nInA, nInB), dValue);
    }
    result.m_rows.start.push_back(static_cast<int>(result.m_rows.value.size()));
  }
  return result;
}

void CRowMatrix::Append(int nColumn, double dValue) {
  if (dValue == 0.0) return;
  m_rows.column.push_back(nColumn);
  m_rows.value.push_back(dValue);
}

}  // namespace skyframe
