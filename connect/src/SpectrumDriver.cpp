#include <memory>

#include "Drivers.h"
#include "ElapsedTime.h"
#include "FindingsKeeper.h"
#include "ModuleState.h"
#include "skyframe/dialogs/SpectrumDlg.h"
#include "skyframe/hostdata/HostData.h"

namespace skyframe {
namespace {

constexpr int c_nLowestIntensity = 6;

void SetSpectrumParameters(CAnalysisModel& model, const CSpectrumDlg& dialog) {
  model.m_nSiteClass = dialog.m_nSite + 1;
  model.m_nZoneGroup = dialog.m_nZone + 1;
  model.m_nIntensity = dialog.m_nIntensity + c_nLowestIntensity;
  model.m_nQuakeLevel = dialog.m_nQuakeLevel;
  model.m_nCombMethod = dialog.m_nCombMethod;
  model.m_nExpandModes = dialog.m_nExpandModes;
  model.m_dDampRatio = dialog.m_dDampRatio;
  model.m_dDirCoef = dialog.m_dDirCoef;
  model.m_nMeshDiv = dialog.m_nMeshDiv;
  // The dialog's own controls for these two are always disabled; a host can ask for them in its record.
  model.m_bVirtualModes = dialog.m_bVirtualModes != 0 || COMDYN.m_bVirtualModes != 0 ? 1 : 0;
  model.m_nPseudoLoadNo = dialog.m_nPseudoLoadNo != 0 ? dialog.m_nPseudoLoadNo : COMDYN.m_nPseudoLoadNo;
  model.m_dLoadRepValue = dialog.m_dDesignAcceleration;
  model.DesignAcceleration = dialog.m_dDesignAcceleration;
}

}  // namespace

int RunSpectrum() {
  g_findings.spectrum = {};
  CSpectrumDlg dialog;
  dialog.m_loadComb.nLoadTypes = CountLoadTypes();
  if (dialog.DoModal() != c_nIdOk) return 0;

  const auto pModel = std::make_unique<CAnalysisModel>();
  const CFindingsKeeper keeper(g_findings.spectrum, pModel->m_spectrumFindings);
  SetLoadCombination(*pModel, dialog.m_loadComb);
  pModel->m_bLoadComb = HasLoads(dialog.m_loadComb);
  pModel->BuildModelForModes(pModel->m_bLoadComb);
  if (!pModel->m_bValid) return 1;

  SetSpectrumParameters(*pModel, dialog);
  const std::string strJobPath = GetHostJobPath();
  pModel->m_bValid = false;
  pModel->ReadModeFile(strJobPath);  // sets m_bValid
  if (!pModel->m_bValid) return 1;

  const CElapsedTime elapsed;
  pModel->SpectrumAnalysis(strJobPath, 0, pModel->m_bLoadComb);
  elapsed.Report();
  return 1;
}

}  // namespace skyframe
