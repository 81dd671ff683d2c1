#include <algorithm>

#include "StaticResult.h"
#include "skyframe/model/AnalysisModel.h"
#include "skyframe/platform/OutputFile.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe {

void CAnalysisModel::SolveStaticLinear(const std::string& strJobPath) {
  if (!BeginStatic(false)) return;
  // Deliberate: opened before anything else, so an unstable structure leaves an empty file.
  COutputFile file(strJobPath + std::string(suffix::c_strStaticLinear));
  const bool bSolved = file.IsOpen() && SolveLinear();
  const bool bUnstable = !bSolved && m_stiffness.GetLostDigits().nEquation >= 0;
  if (file.IsOpen() && !bSolved && !bUnstable) return;  // no memory: an older result stays
  if (bSolved) WriteStaticResult(file.GetWriter(), texts::c_strLinearHeading, *this);
  if (!CommitResult(file, m_staticFindings)) return GetPlatform().ShowMessage(texts::c_strFileNotWritten);
  if (bSolved) m_staticFindings.status = RunStatus::Done;
}

bool CAnalysisModel::SolveLinear() {
  if (!PrepareStatic()) return false;
  // K u = P over the free equations; restrained entries of u stay 0
  const int F = GetFreeDofs();
  std::copy_n(m_load.begin(), F, m_displacement.begin());
  if (!m_stiffness.Solve(F, std::span(m_displacement).first(F))) return false;

  for (const auto& pElement : m_elements) {
    if (pElement) pElement->ComputeInternalForce(m_displacement, false, false, true);
  }
  AssembleInternalForce();
  KeepStaticState();
  return true;
}

}  // namespace skyframe
