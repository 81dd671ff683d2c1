#pragma once

#include <array>
#include <cstddef>

#include "skyframe/numeric/Matrix.h"

namespace skyframe {

enum HistoryMethod : int { c_nWilsonMethod = 0, c_nNewmarkMethod = 1 };
enum HistoryQuantity : int { c_nHistoryX, c_nHistoryY, c_nHistoryZ, c_nHistoryForce, c_nHistoryQuantities };

/// Histories of one time-history run: row k is the state at (k + 1) dt.
/// values[0..2]: X, Y, Z displacement, m, steps x nodes; values[3]: axial force, N, steps x elements.
struct HistorySet {
  int nSteps = 0;
  double dTimeStep = 0.0;         ///< dt, s
  int nMethod = c_nWilsonMethod;  ///< HistoryMethod; others are kept but have no name
  int nAssumption = 0;            ///< 0 linear, 1 nonlinear
  bool bComplete = false;         ///< all steps are there
  std::array<CMatrix, c_nHistoryQuantities> values = {CMatrix(0, 0), CMatrix(0, 0), CMatrix(0, 0), CMatrix(0, 0)};

  [[nodiscard]] int GetNodeCount() const { return values[c_nHistoryX].GetCols(); }
  [[nodiscard]] int GetElementCount() const { return values[c_nHistoryForce].GetCols(); }

  /// All zeros in the given shape.
  void Allocate(int nStepCount, int nNodes, int nElements) {
    nSteps = nStepCount;
    for (int q = 0; q < c_nHistoryQuantities; ++q) {
      values[static_cast<std::size_t>(q)] = CMatrix(nSteps, q == c_nHistoryForce ? nElements : nNodes, 0.0);
    }
  }
};

}  // namespace skyframe
