#pragma once

#include <memory>

#include "skyframe/modal/LanczosSolver.h"
#include "skyframe/modal/RootLossTest.h"
#include "skyframe/model/AnalysisModel.h"
#include "skyframe/numeric/RowMatrix.h"

namespace skyframe {

/// The n lowest modes of a model: pencil, Lanczos passes, root-loss test, enlargement, refinement.
/// Refinement: once the root-loss test has accepted, the recurrence goes on, within the permitted subspace
/// size, while |K phi - omega^2 M phi| > 1e-8 |K phi| for a wanted mode, or while fewer Ritz values lie below
/// the highest shift of the Sturm test than that counted. It can better the n modes and nothing else: a pass
/// that fails, or finds the structure free, or runs out of memory leaves the accepted modes as they were,
/// without a message.
/// Failure: one message from Solve, which then returns false.
class CModalSolution {
 public:
  explicit CModalSolution(const CAnalysisModel& model);

  [[nodiscard]] bool Solve(bool bGeometric, bool bUseLoadMass);

  /// rad/s, n values ascending.
  [[nodiscard]] std::vector<double> GetFrequencies() const;
  /// F x n
  [[nodiscard]] CMatrix FormModeShapes() const { return m_lanczos.FormRitzVectors(m_nModes); }
  /// What the run knows of itself, after a failure too: iterations, counts, digits lost.
  void DescribeRun(ModalFindings& findings) const;
  /// Residuals and masses of the modes; Phi: from FormModeShapes.
  void DescribeModes(const CMatrix& Phi, ModalFindings& findings) const;

 private:
  [[nodiscard]] bool Assemble(bool bGeometric, bool bUseLoadMass);
  [[nodiscard]] std::optional<int> CountBelow(double dShift);
  [[nodiscard]] std::vector<double> MakeStartVector();
  [[nodiscard]] bool IterateToAcceptance();
  void Refine();
  [[nodiscard]] bool RunPass(int m);
  [[nodiscard]] bool IsSupported() const;
  [[nodiscard]] bool IsComplete() const { return m_lanczos.GetSize() >= m_nFree || m_lanczos.IsExhausted(); }
  [[nodiscard]] bool HasAllCounted() const;
  [[nodiscard]] bool IsSharp() const;
  [[nodiscard]] double FormResidual(std::span<const double> phi, double dTheta) const;
  [[nodiscard]] std::span<const double> GetWanted() const { return m_lanczos.GetRitzValues().first(m_nModes); }

  const CAnalysisModel& m_model;
  int m_nFree;
  int m_nModes;
  int m_nFirstSize;
  int m_nPasses = 0;
  SparseMatrix m_factors;  ///< of K
  CRowMatrix m_K;
  CRowMatrix m_M;
  SparseMatrix m_shifted;  ///< K - shift M of the Sturm test
  CLanczosSolver m_lanczos;
  std::unique_ptr<IRootLossTest> m_pRootTest;
};

}  // namespace skyframe
