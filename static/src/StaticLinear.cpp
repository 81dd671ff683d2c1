#include <algorithm>

#include "StaticResult.h"
#include "skyframe/model/AnalysisModel.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe {

void CAnalysisModel::SolveStaticLinear(const std::string& strJobPath) {
  if (!BeginStatic(false)) return;
  // Deliberate: opened before anything else, so an unstable structure leaves an empty file.
  const std::unique_ptr<std::ostream> pStream =
      GetPlatform().OpenForWriting(strJobPath + std::string(suffix::c_strStaticLinear));
  if (!pStream) return GetPlatform().ShowMessage(c_strFileNotWritten);

  if (!PrepareStatic()) return;
  // K u = P over the free equations; restrained entries of u stay 0
  const int F = GetFreeDofs();
  std::copy_n(m_load.begin(), F, m_displacement.begin());
  if (!m_stiffness.Solve(F, std::span(m_displacement).first(F))) return;

  for (const auto& pElement : m_elements) {
    if (pElement) pElement->ComputeInternalForce(m_displacement, false, false, true);
  }
  AssembleInternalForce();
  KeepStaticState();

  CTextWriter out(*pStream);
  WriteStaticResult(out, c_strLinearHeading, *this);
  if (!out.Flush()) return GetPlatform().ShowMessage(c_strFileNotWritten);
  m_staticFindings.status = RunStatus::Done;
}

}  // namespace skyframe
