#include <algorithm>
#include <optional>
#include <utility>

#include "TimeHistoryRun.h"
#include "skyframe/history/HistoryFile.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

// The time-history operations of the analysis model.

namespace skyframe {

void CAnalysisModel::WilsonTheta(const std::string& strPrefix) {
  CTimeHistoryRun run(*this, strPrefix);
  run.Finish(run.Start(c_nWilsonMethod, 0, false) && run.RunWilson());
}

void CAnalysisModel::NewmarkIntegration(const std::string& strPrefix, int nAssumption, int bGroundMotion) {
  CTimeHistoryRun run(*this, strPrefix);
  const bool bStarted = run.Start(c_nNewmarkMethod, nAssumption, bGroundMotion == 1);
  if (bGroundMotion == 1) {
    run.Finish(bStarted && run.RunGroundMotion());
    if (m_history.bComplete) WriteHistoryFile();
  } else {
    run.Finish(bStarted && run.RunNodalForce());
  }
}

void CAnalysisModel::ReadLoadLog(const std::string& strPrefix) {
  std::optional<std::string> text = ReadWholeFile(strPrefix + std::string(suffix::c_strImpulseLoad));
  if (!text) {
    GetPlatform().GetConsole() << texts::c_strNoLoadLog;
    return;
  }
  LoadScript = std::move(*text);
}

bool CAnalysisModel::WriteHistoryFile() {
  if (WriteHistory(m_history, g_FilePathName + std::string(suffix::c_strHistory), m_historyFindings)) return true;
  m_historyFindings.status = RunStatus::Failed;
  GetPlatform().ShowMessage(texts::c_strHistoryNotWritten);
  return false;
}

void CAnalysisModel::AddStaticLoadMass(SparseMatrix& M) {
  AssembleCombinedLoad();
  for (const int nNode : m_nodes.GetListedNodes()) {
    // Deliberate: loads along +Z become mass, loads along -Z do not.
    const double dMass = std::max(m_load[m_nodes.GetDof(nNode, c_nDofZ)], 0.0) * c_dMassPerNewton;
    for (const int nDirection : {c_nDofX, c_nDofY, c_nDofZ}) {
      const int nDof = m_nodes.GetDof(nNode, nDirection);
      M(nDof, nDof) += dMass;
    }
  }
}

}  // namespace skyframe
