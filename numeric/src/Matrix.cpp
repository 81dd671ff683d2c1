#include "skyframe/numeric/Matrix.h"

#include <algorithm>
#include <vector>

#include "skyframe/platform/Platform.h"
#include "texts.h"

namespace skyframe {

namespace {

constexpr int c_nDefaultSize = 16;

std::unique_ptr<double[]> AllocateValues(int nRows, int nCols) {
  const auto nCount = static_cast<std::size_t>(std::max(nRows, 0)) * static_cast<std::size_t>(std::max(nCols, 0));
  return std::make_unique_for_overwrite<double[]>(nCount);
}

/// Rows are compared before columns. True when the shapes agree; else one message.
bool HaveSameShape(const CMatrix& A, const CMatrix& B) {
  if (A.GetRows() != B.GetRows()) {
    GetPlatform().ShowMessage(texts::c_strSumRows);
    return false;
  }
  if (A.GetCols() != B.GetCols()) {
    GetPlatform().ShowMessage(texts::c_strSumCols);
    return false;
  }
  return true;
}

/// r(j) = sum over k of a(k) M(k, j), in index order, for the first nCols columns.
void FormRowProduct(const double* a, const CMatrix& M, int nCols, double* r) {
  std::fill_n(r, std::max(nCols, 0), 0.0);
  for (int k = 0; k < M.GetRows(); ++k) {
    const double dFactor = a[k];
    const double* const m = M[k];
    for (int j = 0; j < nCols; ++j) r[j] += dFactor * m[j];
  }
}

}  // namespace

CMatrix::CMatrix() : CMatrix(c_nDefaultSize, c_nDefaultSize) {}

CMatrix::CMatrix(int nRows, int nCols) : m_values(AllocateValues(nRows, nCols)), m_nRows(nRows), m_nCols(nCols) {}

CMatrix::CMatrix(int nRows, int nCols, double dValue) : CMatrix(nRows, nCols) { Fill(dValue); }

CMatrix::CMatrix(const CMatrix& other) : CMatrix(other.m_nRows, other.m_nCols) {
  std::copy_n(other.m_values.get(), GetCount(), m_values.get());
}

CMatrix& CMatrix::operator=(const CMatrix& other) {
  if (this == &other) return *this;
  if (m_nRows != other.m_nRows || m_nCols != other.m_nCols) Resize(other.m_nRows, other.m_nCols);
  std::copy_n(other.m_values.get(), GetCount(), m_values.get());
  return *this;
}

CMatrix::~CMatrix() = default;

void CMatrix::Resize(int nRows, int nCols) {
  m_values = AllocateValues(nRows, nCols);
  m_nRows = nRows;
  m_nCols = nCols;
}

void CMatrix::Fill(double dValue) { std::fill_n(m_values.get(), GetCount(), dValue); }

CMatrix& CMatrix::SetTranspose(const CMatrix& M) {
  if (this == &M) return SetTranspose(CMatrix(M));
  if (m_nRows != M.m_nCols || m_nCols != M.m_nRows) Resize(M.m_nCols, M.m_nRows);
  for (int i = 0; i < m_nRows; ++i) {
    for (int j = 0; j < m_nCols; ++j) (*this)[i][j] = M[j][i];
  }
  return *this;
}

CMatrix& CMatrix::operator*=(double dFactor) {
  for (long long k = 0; k < GetCount(); ++k) m_values[static_cast<std::size_t>(k)] *= dFactor;
  return *this;
}

CMatrix CMatrix::operator*(double dFactor) const {
  CMatrix R(*this);
  R *= dFactor;
  return R;
}

CMatrix& CMatrix::operator*=(const CMatrix& M) {
  if (this == &M) return *this *= CMatrix(M);
  if (m_nCols != M.m_nRows) {
    GetPlatform().ShowMessage(texts::c_strInPlaceProductShape);
    return *this;
  }
  // Deliberate: the shape is kept; of a product that is wider or narrower only the common columns are taken.
  const int nCommon = std::clamp(M.m_nCols, 0, std::max(m_nCols, 0));
  std::vector<double> scratch(static_cast<std::size_t>(nCommon));
  for (int i = 0; i < m_nRows; ++i) {
    FormRowProduct((*this)[i], M, nCommon, scratch.data());
    std::copy(scratch.begin(), scratch.end(), (*this)[i]);
  }
  return *this;
}

CMatrix CMatrix::operator*(const CMatrix& M) const {
  if (m_nCols != M.m_nRows) {
    GetPlatform().ShowMessage(texts::c_strProductShape);
    return {};
  }
  CMatrix R(m_nRows, M.m_nCols);
  for (int i = 0; i < m_nRows; ++i) FormRowProduct((*this)[i], M, M.m_nCols, R[i]);
  return R;
}

CMatrix CMatrix::operator+(const CMatrix& M) const {
  CMatrix R(*this);
  R += M;
  return R;
}

CMatrix CMatrix::operator-(const CMatrix& M) const {
  CMatrix R(*this);
  if (!HaveSameShape(*this, M)) return R;
  for (int i = 0; i < m_nRows; ++i) {
    for (int j = 0; j < m_nCols; ++j) R[i][j] -= M[i][j];
  }
  return R;
}

CMatrix& CMatrix::operator+=(const CMatrix& M) {
  if (!HaveSameShape(*this, M)) return *this;
  for (int i = 0; i < m_nRows; ++i) {
    for (int j = 0; j < m_nCols; ++j) (*this)[i][j] += M[i][j];
  }
  return *this;
}

}  // namespace skyframe
