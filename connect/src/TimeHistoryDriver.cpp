#include <utility>

#include "Drivers.h"
#include "FindingsKeeper.h"
#include "ModuleState.h"
#include "skyframe/dialogs/DynOptionDlg.h"
#include "skyframe/dialogs/NewmarkDlg.h"
#include "skyframe/dialogs/WilsonDlg.h"
#include "skyframe/history/ImpulseScript.h"
#include "skyframe/hostdata/HostData.h"
#include "texts.h"

namespace skyframe {
namespace {

enum LoadType : int { c_nNodalForce = 0, c_nGroundMotion = 1 };

/// Takes the histories out of the model. A run that did not get to its end leaves those of an earlier one.
void KeepHistoryOf(CAnalysisModel& model) {
  if (model.m_history.bComplete) KeepHistory(std::exchange(model.m_history, HistorySet()));
}

int RunWilson(CAnalysisModel& model) {
  COMDYN.m_bNonlinear = 0;
  model.m_nLoadType = c_nNodalForce;
  CWilsonDlg dialog;
  dialog.m_loadComb.nLoadTypes = CountLoadTypes();
  if (dialog.DoModal() != c_nIdOk) return 0;
  const CWaitCursorScope waitCursor;

  const CFindingsKeeper keeper(g_findings.history, model.m_historyFindings);
  TakeSettings<HistorySettings, WilsonSettings>(model, dialog);
  model.WilsonTheta(g_strJobPath);
  KeepHistoryOf(model);
  return 1;
}

/// Whether the text of the impulse list stays within reason: one line is about 50 bytes.
bool FitsScript(const CNewmarkDlg& dialog) {
  constexpr double c_dMostLines = 2.0e7;
  const double dSteps = CountSteps(dialog.m_dImpulseTime, dialog.m_dTimeStep);
  return 2.0 * dSteps * (static_cast<double>(dialog.m_impulses.size()) + 1.0) <= c_dMostLines;
}

void BuildModel(CAnalysisModel& model) {
  const CWaitCursorScope waitCursor;
  model.m_dKeptHistoryBytes = g_history.GetBytes();
  model.BuildModel();
}

/// Text of the impulse list, for the run and beside the job.
void ComposeScript(CAnalysisModel& model, const CNewmarkDlg& dialog) {
  model.LoadScript =
      ComposeImpulseScript(dialog.m_impulses, dialog.m_nImpulseType, dialog.m_dImpulseTime, dialog.m_dTimeStep);
  SaveImpulseScript(g_strJobPath, model.LoadScript, model.m_historyFindings);
}

int RunNewmark(CAnalysisModel& model) {
  CNewmarkDlg dialog;
  dialog.m_loadComb.nLoadTypes = CountLoadTypes();
  if (dialog.DoModal() != c_nIdOk) return 0;
  const CWaitCursorScope waitCursor;

  const CFindingsKeeper keeper(g_findings.history, model.m_historyFindings);
  if (dialog.m_nLoadType != c_nNodalForce && dialog.m_nLoadType != c_nGroundMotion) return 1;
  TakeSettings<HistorySettings, NewmarkSettings, EquilibriumSettings>(model, dialog);
  SetLoadCombination(model, dialog.m_loadComb);
  if (model.m_nLoadType == c_nGroundMotion) {
    TakeSettings<QuakeSettings>(model, dialog.m_quake);
    COMDYN.m_bNonlinear = dialog.m_bNonlinear;
  } else if (dialog.m_bLoadFromFile == 0) {
    if (!FitsScript(dialog)) {
      GetPlatform().ShowMessage(texts::c_strScriptTooLong);
      return 1;
    }
    ComposeScript(model, dialog);
  }
  model.NewmarkIntegration(g_strJobPath, dialog.m_bNonlinear, model.m_nLoadType);
  KeepHistoryOf(model);
  return 1;
}

}  // namespace

int RunTimeHistory() {
  g_findings.history = {};
  CDynOptionDlg option;
  if (option.DoModal() != c_nIdOk) return 0;

  // Deliberate: the model outlives the call, and nobody asks whether it was built before the dialogs.
  CAnalysisModel& model = KeepNewModel(g_keptModels.m_pTimeHistory);
  BuildModel(model);
  g_strJobPath = GetHostJobPath();
  switch (COMDYN.m_nMethod) {
    case c_nWilsonMethod:
      return RunWilson(model);
    case c_nNewmarkMethod:
      return RunNewmark(model);
    default:
      return 1;
  }
}

}  // namespace skyframe
