#include <memory>

#include "Drivers.h"
#include "ElapsedTime.h"
#include "FindingsKeeper.h"
#include "ModuleState.h"
#include "Renumbering.h"
#include "skyframe/dialogs/ModeDlg.h"

namespace skyframe {

void RunModal() {
  g_findings.modal = {};
  CModeDlg dialog;
  dialog.m_loadComb.nLoadTypes = CountLoadTypes();
  if (dialog.DoModal() != c_nIdOk) return;
  const CWaitCursorScope waitCursor;

  const CRenumbering renumbering;
  const auto pModel = std::make_unique<CAnalysisModel>();
  CFindingsKeeper keeper(g_findings.modal, pModel->m_modalFindings);
  SetLoadCombination(*pModel, dialog.m_loadComb);
  pModel->m_bLoadComb = HasLoads(dialog.m_loadComb);
  pModel->BuildModelForModes(pModel->m_bLoadComb);
  if (!pModel->m_bValid) return;

  TakeSettings<ModalSettings>(*pModel, dialog);
  const std::string strJobPath = GetHostJobPath();
  const CElapsedTime elapsed;
  pModel->SolveModes(strJobPath, 0, pModel->m_bLoadComb);
  keeper.StopClock();
  elapsed.Report();
}

}  // namespace skyframe
