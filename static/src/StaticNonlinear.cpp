#include <algorithm>
#include <cmath>
#include <utility>

#include "StaticResult.h"
#include "skyframe/model/AnalysisModel.h"
#include "skyframe/model/IterationTest.h"
#include "skyframe/numeric/VectorAlgebra.h"
#include "skyframe/platform/OutputFile.h"
#include "skyframe/platform/Progress.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe {

void CAnalysisModel::SolveStaticNonlinear(const std::string& strJobPath) {
  if (!BeginStatic(true) || !PrepareStatic()) return;
  std::vector<double> increment(GetTotalDofs());  // du, length N
  const bool bConverged = IterateToEquilibrium(increment);
  m_staticFindings.largestIncrement = FindLargest(increment);
  if (!bConverged) return;
  KeepStaticState();
  KeepMemberState();

  const CWaitCursorScope waitCursor;
  COutputFile file(strJobPath + std::string(suffix::c_strStaticNonlinear));
  if (file.IsOpen()) WriteStaticResult(file.GetWriter(), texts::c_strNonlinearHeading, *this);
  if (!CommitResult(file, m_staticFindings)) return GetPlatform().ShowMessage(texts::c_strFileNotWritten);
  m_staticFindings.status = RunStatus::Done;
}

bool CAnalysisModel::IterateToEquilibrium(std::span<double> increment) {
  StaticFindings& found = m_staticFindings;
  const int F = GetFreeDofs();
  const std::span<const double> P = std::span(m_load).first(F);
  std::vector<double> residual(P.begin(), P.end());  // R, length F
  found.dForce = found.dResidual = Norm(P);
  const IterationTest test = {m_nConvCriterion, m_dConvTol, false};
  double dFirstIncrement = 0.0;

  CProgress progress(texts::c_strIteration, m_nMaxIter);
  for (int k = 0; k < m_nMaxIter; ++k) {
    // K du = R; the restrained part of du is 0
    std::copy(residual.begin(), residual.end(), increment.begin());
    const std::span<double> freeIncrement = increment.first(F);
    if (!m_stiffness.Solve(F, freeIncrement)) return false;
    found.nIterations = k + 1;
    found.dPreviousIncrement = std::exchange(found.dIncrement, Norm(increment));
    if (k == 0) dFirstIncrement = found.dIncrement;
    if (!IsWithinLimit(freeIncrement)) return false;

    ApplyIncrement(increment, false, true);
    // R = P - Fint
    for (int i = 0; i < F; ++i) residual[i] = P[i] - m_internalForce[i];
    found.dResidual = Norm(residual);
    if (test.IsConverged(found.dResidual, found.dForce, found.dIncrement, dFirstIncrement)) return true;
    if (!std::isfinite(found.dResidual) || !std::isfinite(found.dIncrement)) break;  // it cannot come back
    progress.Advance();
  }
  GetPlatform().ShowMessage(texts::c_strNoConvergence);
  return false;
}

}  // namespace skyframe
