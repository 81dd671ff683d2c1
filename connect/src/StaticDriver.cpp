#include "Drivers.h"
#include "FindingsKeeper.h"
#include "ModuleState.h"
#include "skyframe/dialogs/NonlinStaticDlg.h"

namespace skyframe {

void RunStatic() {
  g_findings.statics = {};
  CNonlinStaticDlg dialog;
  dialog.m_loadComb.nLoadTypes = CountLoadTypes();
  if (dialog.DoModal() != c_nIdOk) return;
  const CWaitCursorScope waitCursor;

  // Deliberate: the model outlives the call.
  CAnalysisModel& model = KeepNewModel(g_keptModels.m_pStatic);
  const CFindingsKeeper keeper(g_findings.statics, model.m_staticFindings);
  TakeSettings<EquilibriumSettings>(model, dialog);
  g_strJobPath = GetHostJobPath();
  model.BuildModel();
  SetLoadCombination(model, dialog.m_loadComb);
  if (dialog.m_bNonlinear == 1) {
    model.SolveStaticNonlinear(g_strJobPath);
  } else {
    model.SolveStaticLinear(g_strJobPath);
  }
  model.ReleaseStiffness();
}

}  // namespace skyframe
