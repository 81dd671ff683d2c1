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

  const CFindingsKeeper keeper(g_findings.history, model.m_historyFindings);
  model.m_dDuration = dialog.m_dDuration;
  model.m_dTimeStep = dialog.m_dTimeStep;
  model.m_pDamping[0] = dialog.m_dDamping[0];
  model.m_pDamping[1] = dialog.m_dDamping[1];
  model.m_dWilsonTheta = dialog.m_dTheta;
  model.WilsonTheta(g_strJobPath);
  KeepHistoryOf(model);
  return 1;
}

void SetNewmarkParameters(CAnalysisModel& model, const CNewmarkDlg& dialog) {
  model.m_dTimeStep = dialog.m_dTimeStep;
  model.m_dDuration = dialog.m_dDuration;
  model.m_pDamping[0] = dialog.m_dDamping[0];
  model.m_pDamping[1] = dialog.m_dDamping[1];
  model.m_dNewmarkAlpha = dialog.m_dAlpha;
  model.m_dNewmarkDelta = dialog.m_dDelta;
  SetLoadCombination(model, dialog.m_loadComb);
  model.m_nConvCriterion = dialog.m_nCriterion;
  model.m_dConvTol = dialog.m_dTolerance;
  model.m_nMaxIter = dialog.m_nMaxIter;
  model.m_bLoadFromFile = dialog.m_bFromFile;
}

void SetEarthquakeParameters(CAnalysisModel& model, const CNewmarkDlg& dialog) {
  model.m_strQuakeFile = dialog.m_strQuakeFile;
  model.m_nQuakeMode = dialog.m_nQuakeMode;
  model.m_dObliqueCoef = dialog.m_dObliqueCoef;
  model.m_bQuakeDir = dialog.m_bQuakeDir;
  model.m_dPeak = dialog.m_dPeak;
  model.m_dPeakOblique = dialog.m_dPeakOblique;
  COMDYN.m_bNonlinear = dialog.m_bNonlinear;
}

/// Whether the text of the impulse list stays within reason: one line is about 50 bytes.
bool FitsScript(const CNewmarkDlg& dialog) {
  constexpr double c_dMostLines = 2.0e7;
  const double dSteps = CountSteps(dialog.m_dImpulseTime, dialog.m_dTimeStep);
  return 2.0 * dSteps * (static_cast<double>(dialog.m_impulses.size()) + 1.0) <= c_dMostLines;
}

/// Text of the impulse list, for the run and beside the job.
void ComposeScript(CAnalysisModel& model, const CNewmarkDlg& dialog) {
  std::vector<ImpulseEntry> entries;
  for (const ImpulseLoad& load : dialog.m_impulses) entries.push_back({load.nNode, load.nDirection, load.dPeak});
  model.LoadScript = ComposeImpulseScript(entries, dialog.m_nImpulseType, dialog.m_dImpulseTime, dialog.m_dTimeStep);
  SaveImpulseScript(g_strJobPath, model.LoadScript, model.m_historyFindings);
}

int RunNewmark(CAnalysisModel& model) {
  CNewmarkDlg dialog;
  dialog.m_loadComb.nLoadTypes = CountLoadTypes();
  if (dialog.DoModal() != c_nIdOk) return 0;

  const CFindingsKeeper keeper(g_findings.history, model.m_historyFindings);
  model.m_nLoadType = dialog.m_nLoadType;
  if (model.m_nLoadType != c_nNodalForce && model.m_nLoadType != c_nGroundMotion) return 1;
  SetNewmarkParameters(model, dialog);
  if (model.m_nLoadType == c_nGroundMotion) {
    SetEarthquakeParameters(model, dialog);
  } else if (dialog.m_bFromFile == 0) {
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
  model.m_dKeptHistoryBytes = g_history.GetBytes();
  model.BuildModel();
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
