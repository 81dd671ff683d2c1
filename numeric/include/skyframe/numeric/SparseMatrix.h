#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "skyframe/numeric/Matrix.h"
#include "skyframe/numeric/SkylineKernel.h"

namespace skyframe {

/// What a factorisation took off a diagonal entry: log10(|A_ii| / |D_ii|) decimal digits.
struct LostDigits {
  double dDigits = 0.0;  ///< the largest of all equations; infinite where nothing was left
  int nEquation = -1;    ///< -1: nothing was factorised
};

/// Row i of a matrix has the entries start[i] .. start[i + 1] - 1 of column and value; empty for none.
struct CompressedRows {
  std::vector<int> start;
  std::vector<int> column;
  std::vector<double> value;
};

/// Frees values that stand nFirst places behind the beginning of what calloc gave.
struct FreeValues {
  std::ptrdiff_t nFirst = 0;
  void operator()(double* p) const { std::free(p - nFirst); }
};

/// Symmetric matrix in skyline storage with LDL^T factorisation in place, A = L D L^T.
/// Storage: column i holds the rows i - height[i] + 1 .. i contiguously and ends with its diagonal:
/// A(r, i), r <= i, is values[diag[i] - (i - r)]; what lies above is zero.
/// Lifecycle: SetProfile, Allocate or Fill, assembly through operator(), Solve (the first call
/// factorises), reused until the values change.
/// Failure: fixed texts in a message box; solvers return false.
/// Source: Bathe (1996), section 8.2 (active columns).
class SparseMatrix {
 public:
  SparseMatrix();
  SparseMatrix(const SparseMatrix& other);
  SparseMatrix& operator=(const SparseMatrix& other);
  ~SparseMatrix();

  /// Releases everything; diag has n strictly increasing entries, diag[0] = 0.
  void SetProfile(int n, std::span<const int> diag);
  /// The same where the leading nLeading x nLeading block alone will be factorised: it fills up and gets large pages,
  /// what is behind it stays almost empty. 0 <= nLeading <= n.
  void SetProfile(int n, std::span<const int> diag, int nLeading);
  void Release();
  /// Values all zero, full column heights. Shows a message and stays unallocated when memory is short.
  void Allocate();
  void Fill(double dValue);

  [[nodiscard]] int GetOrder() const { return m_n; }
  [[nodiscard]] bool IsAllocated() const { return !m_bNotAllocated; }
  [[nodiscard]] bool IsFactorised() const { return m_bFactorised; }
  [[nodiscard]] std::span<const int> GetDiagonal() const { return m_diag; }
  [[nodiscard]] std::span<const int> GetHeights() const { return m_height; }
  [[nodiscard]] std::span<const double> GetValues() const;
  [[nodiscard]] std::span<const int> GetRowExtents() const { return m_rowExtent; }
  [[nodiscard]] std::span<const int> GetRowStarts() const { return m_rows.start; }
  [[nodiscard]] std::span<const int> GetRowColumns() const { return m_rows.column; }
  [[nodiscard]] std::span<const double> GetRowValues() const { return m_rows.value; }

  /// The stored entry, or a dummy that reads 0 and swallows writes above the skyline.
  /// Deliberate: only the smaller index is range-tested, and only for being greater than n.
  double& operator()(int nRow, int nCol);

  /// Asks for the places of an element matrix that is about to be added: they lie all over the memory.
  void PrefetchElement(std::span<const int> equations) const;
  /// A(d_i, d_j) += element(i, j) for the lower triangle of a symmetric element matrix with the equations
  /// d; what lies above the skyline is dropped. Equations below the order, unchecked.
  void AddElement(const CMatrix& element, std::span<const int> equations);

  /// Deliberate: entries that are exactly zero are skipped.
  SparseMatrix& operator*=(double dFactor);
  /// Entries of S outside this profile are dropped.
  SparseMatrix& operator+=(const SparseMatrix& S);
  /// y = A x over the leading block of the vector's length.
  CMatrix operator*(const CMatrix& x) const;

  /// y = A x over the leading n x n block from the compressed rows of BuildRows(n).
  void MultiplyRows(std::span<const double> x, std::span<double> y) const;

  /// Recomputes the full column heights.
  void RestoreHeights();
  /// Trims leading zeros from the heights of the first n columns (a diagonal entry always stays) and
  /// finds the row extents. The heights stay trimmed until RestoreHeights or Allocate.
  void TrimProfile(int n);
  /// Compressed-row copy of the non-zero entries of both triangles, columns ascending in each row. False,
  /// without rows, after a message when memory is short or they are too many to count.
  bool BuildRows(int n);
  /// Hands the rows over and has none any more.
  [[nodiscard]] CompressedRows TakeRows() { return std::exchange(m_rows, {}); }

  /// LDL^T of the leading n x n block. A pivot within +-1e-15 (or NaN) is refused after all columns
  /// are done: message, false, values left partly reduced.
  [[nodiscard]] bool Decompose(int n);
  /// Of the last factorisation, also of one that was refused.
  [[nodiscard]] LostDigits GetLostDigits() const { return m_lostDigits; }
  /// Solves A x = b in place; factorises first when needed. b: n values.
  [[nodiscard]] bool Solve(int n, std::span<double> b);
  /// Solves A X = B in place for nColumns right-hand sides, one behind the other; several at a time, which
  /// costs a third to a sixth of as many calls of Solve. B: n x nColumns values.
  [[nodiscard]] bool SolveColumns(int n, std::span<double> B, int nColumns);
  /// As Solve, with D in the caller's array d (n values) instead of on the diagonal.
  [[nodiscard]] bool SolveKeepDiagonal(int n, std::span<double> d, std::span<double> b);

 private:
  [[nodiscard]] int FullHeight(int i) const { return i == 0 ? 1 : Diagonal(i) - Diagonal(i - 1); }
  [[nodiscard]] int Diagonal(int i) const { return m_diag[static_cast<std::size_t>(i)]; }
  [[nodiscard]] int Height(int i) const { return m_height[static_cast<std::size_t>(i)]; }
  /// Where row 0 of column i would stand: A(r, i) is Column(i)[r].
  [[nodiscard]] double* Column(int i) { return m_values.get() + (Diagonal(i) - i); }
  [[nodiscard]] const double* Column(int i) const { return m_values.get() + (Diagonal(i) - i); }
  [[nodiscard]] std::span<double> GetEntries() {
    return {m_values.get(), m_bNotAllocated ? std::size_t{0} : GetCount()};
  }
  [[nodiscard]] std::size_t GetCount() const;
  [[nodiscard]] skyline::Profile GetProfile(int n) const;

  /// Shows the text and returns true when there are no values.
  [[nodiscard]] bool IsRefused(std::string_view strText) const;
  double& ResetDummy();
  void Clear();
  void AllocateValues();
  /// Writes the ends of the columns behind the leading block, where elements add nearly all that comes in them: a new
  /// page that is read before it is written is asked of the system twice.
  void TouchEnds();
  void DropDerived();
  void FillRows(int n);
  /// False after a message when memory is short.
  [[nodiscard]] bool KeepDiagonal();
  [[nodiscard]] bool Factorise(int n, std::span<double> pivots);
  [[nodiscard]] LostDigits MeasureLostDigits(std::span<const double> pivots) const;

  bool m_bFactorised = false;
  bool m_bNotAllocated = true;
  int m_n = 0;
  int m_nLeading = 0;
  std::vector<int> m_diag;
  /// From the zeroed memory of calloc: pages that stay zero are never touched and cost nothing. Those of the leading
  /// block, which fills up, are large where the system has such; the block then starts at one.
  std::unique_ptr<double[], FreeValues> m_values;
  double m_dDummy = 0.0;
  std::vector<int> m_height;
  std::vector<int> m_rowExtent;
  CompressedRows m_rows;
  std::vector<double> m_scale;  ///< the diagonal at the factorisation, side by side: what a solution divides by
  LostDigits m_lostDigits;
};

}  // namespace skyframe
