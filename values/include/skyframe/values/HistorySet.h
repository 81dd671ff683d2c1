#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace skyframe {

enum HistoryMethod : int { c_nWilsonMethod = 0, c_nNewmarkMethod = 1 };
enum HistoryQuantity : int { c_nHistoryX, c_nHistoryY, c_nHistoryZ, c_nHistoryForce, c_nHistoryQuantities };

/// Values over steps (rows) and nodes or elements (columns), T[k][i], indices 0-based and unchecked.
/// Storage: one block, row by row.
class CHistoryTable {
 public:
  CHistoryTable() = default;
  /// All zeros.
  CHistoryTable(int nRows, int nCols)
      : m_nRows(nRows), m_nCols(nCols), m_values(static_cast<std::size_t>(nRows) * static_cast<std::size_t>(nCols)) {}

  double* operator[](int k) { return m_values.data() + RowOffset(k); }
  const double* operator[](int k) const { return m_values.data() + RowOffset(k); }
  [[nodiscard]] int GetRows() const { return m_nRows; }
  [[nodiscard]] int GetCols() const { return m_nCols; }

 private:
  [[nodiscard]] std::ptrdiff_t RowOffset(int k) const { return static_cast<std::ptrdiff_t>(k) * m_nCols; }

  int m_nRows = 0;
  int m_nCols = 0;
  std::vector<double> m_values;
};

/// What a time-history run was.
struct HistoryRun {
  int nSteps = 0;
  double dTimeStep = 0.0;         ///< dt, s
  int nMethod = c_nWilsonMethod;  ///< HistoryMethod; others are kept but have no name
  int nAssumption = 0;            ///< 0 linear, 1 nonlinear
  std::string strFinished;        ///< local time at the end of the run, "2026-11-21 23:05:09"; empty: read from a file
};

/// Histories of one time-history run: row k is the state at (k + 1) dt.
/// values[0..2]: X, Y, Z displacement, m, steps x nodes; values[3]: axial force, N, steps x elements.
struct HistorySet : HistoryRun {
  bool bComplete = false;  ///< all steps are there
  int nKept = 0;           ///< sets that the module has kept so far, this one with them
  std::array<CHistoryTable, c_nHistoryQuantities> values;
  /// Steps x 3: elastic forces of the structure on its supports, summed along X, Y, Z, N; those of damping and of
  /// masses at the supports are not in it. Empty when the histories were read from a file.
  CHistoryTable baseShear;

  [[nodiscard]] int GetNodeCount() const { return values[c_nHistoryX].GetCols(); }
  [[nodiscard]] int GetElementCount() const { return values[c_nHistoryForce].GetCols(); }

  /// Memory of the values of that shape.
  [[nodiscard]] static double CountBytes(int nStepCount, int nNodes, int nElements) {
    return sizeof(double) * static_cast<double>(nStepCount) * (3.0 * nNodes + nElements);
  }
  [[nodiscard]] double GetBytes() const { return CountBytes(nSteps, GetNodeCount(), GetElementCount()); }

  /// All zeros in the given shape.
  void Allocate(int nStepCount, int nNodes, int nElements) {
    nSteps = nStepCount;
    for (int q = 0; q < c_nHistoryQuantities; ++q) {
      values[static_cast<std::size_t>(q)] = CHistoryTable(nSteps, q == c_nHistoryForce ? nElements : nNodes);
    }
  }
};

}  // namespace skyframe
