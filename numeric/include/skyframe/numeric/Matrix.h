#pragma once

#include <memory>

namespace skyframe {

/// Dense matrix of doubles, A(i, j) = A[i][j], indices 0-based and unchecked.
/// Storage: one block, row by row. Vectors are matrices with one column (or one row).
/// Lifecycle: always holds storage of its shape; contents are uninitialised after construction
/// by size and after Resize. Copies are deep.
/// Failure: a shape mismatch shows a message box and continues with the result stated per operation.
class CMatrix {
 public:
  /// 16 x 16, uninitialised.
  CMatrix();
  CMatrix(int nRows, int nCols);
  CMatrix(int nRows, int nCols, double dValue);
  CMatrix(const CMatrix& other);
  CMatrix& operator=(const CMatrix& other);
  ~CMatrix();

  double* operator[](int i) { return m_values.get() + RowOffset(i); }
  const double* operator[](int i) const { return m_values.get() + RowOffset(i); }
  [[nodiscard]] int GetRows() const { return m_nRows; }
  [[nodiscard]] int GetCols() const { return m_nCols; }

  /// New shape, contents uninitialised, also when the shape is unchanged.
  void Resize(int nRows, int nCols);
  void Fill(double dValue);
  /// this = M^T, resized to fit.
  CMatrix& SetTranspose(const CMatrix& M);

  CMatrix& operator*=(double dFactor);
  CMatrix operator*(double dFactor) const;
  /// this = this * M for square M. Mismatch: unchanged.
  /// Deliberate: the shape of this is kept; with another M only the common columns are replaced.
  CMatrix& operator*=(const CMatrix& M);
  /// Mismatch: a default 16 x 16 matrix.
  CMatrix operator*(const CMatrix& M) const;
  /// Mismatch (rows are compared first): a copy of this.
  CMatrix operator+(const CMatrix& M) const;
  CMatrix operator-(const CMatrix& M) const;
  /// Mismatch: unchanged.
  CMatrix& operator+=(const CMatrix& M);

 private:
  [[nodiscard]] long long RowOffset(int i) const { return static_cast<long long>(i) * m_nCols; }
  [[nodiscard]] long long GetCount() const { return m_nRows < 1 || m_nCols < 1 ? 0 : RowOffset(m_nRows); }

  std::unique_ptr<double[]> m_values;
  int m_nRows;
  int m_nCols;
};

}  // namespace skyframe
