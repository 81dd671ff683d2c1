#include <memory>

#include "Drivers.h"
#include "ElapsedTime.h"
#include "FindingsKeeper.h"
#include "ModuleState.h"
#include "skyframe/dialogs/SpectrumDlg.h"
#include "skyframe/hostdata/HostData.h"

namespace skyframe {
int RunSpectrum() {
  g_findings.spectrum = {};
  CSpectrumDlg dialog;
  dialog.m_loadComb.nLoadTypes = CountLoadTypes();
  if (dialog.DoModal() != c_nIdOk) return 0;
  const CWaitCursorScope waitCursor;

  const auto pModel = std::make_unique<CAnalysisModel>();
  CFindingsKeeper keeper(g_findings.spectrum, pModel->m_spectrumFindings);
  SetLoadCombination(*pModel, dialog.m_loadComb);
  pModel->m_bLoadComb = HasLoads(dialog.m_loadComb);
  pModel->BuildModelForModes(pModel->m_bLoadComb);
  if (!pModel->m_bValid) return 1;

  TakeSettings<SpectrumSettings>(*pModel, dialog);
  pModel->m_dLoadRepValue = dialog.DesignAcceleration;
  // The dialog's own controls for these two are always disabled; a host can ask for them in its record.
  if (COMDYN.m_bVirtualModes != 0) pModel->m_bVirtualModes = 1;
  if (pModel->m_nPseudoLoadNo == 0) pModel->m_nPseudoLoadNo = COMDYN.m_nPseudoLoadNo;

  const std::string strJobPath = GetHostJobPath();
  pModel->m_bValid = false;
  pModel->ReadModeFile(strJobPath);  // sets m_bValid
  if (!pModel->m_bValid) return 1;

  const CElapsedTime elapsed;
  pModel->SpectrumAnalysis(strJobPath, 0, pModel->m_bLoadComb);
  keeper.StopClock();
  elapsed.Report();
  return 1;
}

}  // namespace skyframe
