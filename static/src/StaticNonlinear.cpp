#include <algorithm>
#include <cmath>

#include "ConvergenceTest.h"
#include "StaticResult.h"
#include "skyframe/model/AnalysisModel.h"
#include "skyframe/platform/OutputFile.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe {
namespace {

double Norm(std::span<const double> v) {
  double dSum = 0.0;
  for (const double d : v) dSum += d * d;
  return std::sqrt(dSum);
}

}  // namespace

void CAnalysisModel::SolveStaticNonlinear(const std::string& strJobPath) {
  if (!m_bValid) return;
  std::fill(m_displacement.begin(), m_displacement.end(), 0.0);
  AssembleCombinedLoad();
  if (!AssembleStiffness(m_stiffness, false, false) || !m_stiffness.Decompose(GetFreeDofs())) return;
  if (!IterateToEquilibrium()) return;

  GetPlatform().BeginWaitCursor();
  COutputFile file(strJobPath + std::string(suffix::c_strStaticNonlinear));
  if (file.IsOpen()) WriteStaticResult(file.GetWriter(), c_strNonlinearHeading, *this);
  if (!CommitResult(file, m_staticFindings)) GetPlatform().ShowMessage(c_strFileNotWritten);
  GetPlatform().EndWaitCursor();
}

bool CAnalysisModel::IterateToEquilibrium() {
  const int F = GetFreeDofs();
  const std::span<const double> P = std::span(m_load).first(F);
  std::vector<double> residual(P.begin(), P.end());  // R, length F
  std::vector<double> increment(GetTotalDofs());     // du, length N
  CConvergenceTest test(m_nConvCriterion, m_dConvTol, Norm(P));

  for (int k = 0; k < m_nMaxIter; ++k) {
    // K du = R; the restrained part of du is 0
    std::copy(residual.begin(), residual.end(), increment.begin());
    const std::span<double> freeIncrement = std::span(increment).first(F);
    if (!m_stiffness.Solve(F, freeIncrement)) return false;
    if (!IsWithinLimit(freeIncrement)) return false;

    ApplyIncrement(increment, false, true);
    // R = P - Fint
    for (int i = 0; i < F; ++i) residual[i] = P[i] - m_internalForce[i];
    const double dResidual = Norm(residual);
    const double dIncrement = Norm(increment);
    if (test.IsConverged(dResidual, dIncrement)) return true;
    if (!std::isfinite(dResidual) || !std::isfinite(dIncrement)) break;  // it cannot come back
    GetPlatform().ReportProgress((k + 1.0) / m_nMaxIter, c_strIteration);
  }
  GetPlatform().ShowMessage(c_strNoConvergence);
  return false;
}

}  // namespace skyframe
