#pragma once

#include <memory>

#include "skyframe/modal/LanczosSolver.h"
#include "skyframe/modal/RootLossTest.h"
#include "skyframe/model/AnalysisModel.h"

namespace skyframe {

/// The n lowest modes of a model: pencil, Lanczos passes, root-loss test, enlargement.
/// Failure: one message from Solve, which then returns false.
class CModalSolution {
 public:
  explicit CModalSolution(const CAnalysisModel& model);

  [[nodiscard]] bool Solve(bool bGeometric, bool bUseLoadMass);

  /// rad/s, n values ascending.
  [[nodiscard]] std::vector<double> GetFrequencies() const;
  /// F x n
  [[nodiscard]] CMatrix FormModeShapes() const { return m_lanczos.FormRitzVectors(m_nModes); }

 private:
  [[nodiscard]] bool Assemble(bool bGeometric, bool bUseLoadMass);
  [[nodiscard]] bool IterateToAcceptance();
  [[nodiscard]] bool Refine();
  [[nodiscard]] bool RunPass(int m);
  [[nodiscard]] bool IsSupported() const;
  [[nodiscard]] bool IsComplete() const { return m_lanczos.GetSize() >= m_nFree || m_lanczos.IsExhausted(); }
  [[nodiscard]] bool IsSharp() const;
  [[nodiscard]] double FormResidual(std::span<const double> phi, double dTheta) const;
  [[nodiscard]] std::span<const double> GetWanted() const { return m_lanczos.GetRitzValues().first(m_nModes); }

  const CAnalysisModel& m_model;
  int m_nFree;
  int m_nModes;
  int m_nFirstSize;
  SparseMatrix m_K;  ///< factorised by the first Lanczos step
  SparseMatrix m_M;
  SparseMatrix m_plainK;  ///< unfactorised, for the Sturm test only
  CLanczosSolver m_lanczos;
  std::unique_ptr<IRootLossTest> m_pRootTest;
};

}  // namespace skyframe
