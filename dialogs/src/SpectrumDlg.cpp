#include "skyframe/dialogs/SpectrumDlg.h"

#include <algorithm>
#include <iterator>

#include "skyframe/dialogs/Templates.h"

namespace skyframe {

namespace {

// Record codes are radio indices counted from another start.
constexpr int c_nFirstSite = 1;
constexpr int c_nFirstZone = 1;
constexpr int c_nFirstIntensity = 6;

/// Radio index of a record code; -1 for every code below the first.
int ToIndex(int nCode, int nFirst) { return std::max(nCode, nFirst - 1) - nFirst; }

/// Design basic acceleration, g, by the intensity's radio index; 0.05 for any other index.
double GetDesignAcceleration(int nIntensity) {
  constexpr std::array<double, 6> c_accelerations = {0.05, 0.10, 0.15, 0.20, 0.30, 0.40};
  const bool bInside = nIntensity >= 0 && nIntensity < static_cast<int>(c_accelerations.size());
  return c_accelerations[bInside ? static_cast<size_t>(nIntensity) : 0];
}

}  // namespace

CSpectrumDlg::CSpectrumDlg() : CDialog(c_spectrumTemplate) {
  On(c_nIdLoadValues, DialogEvent::Clicked, [this] { EditLoadCombination(m_loadComb); });
}

bool CSpectrumDlg::OnInitDialog() {
  LoadSettings();
  View().SetCurrent(c_nIdSaveAs, 0);
  return CDialog::OnInitDialog();
}

void CSpectrumDlg::OnOk() {
  if (!UpdateData(true)) return;
  StoreSettings();
  EndDialog(c_nIdOk);
}

void CSpectrumDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Text(c_nIdMeshDiv, m_nMeshDiv);
  exchange.Text(c_nIdExpandModes, m_nExpandModes);
  exchange.Text(c_nIdDirectionX, m_dDirCoef[0]);
  exchange.Text(c_nIdDirectionY, m_dDirCoef[1]);
  exchange.Text(c_nIdDirectionZ, m_dDirCoef[2]);
  exchange.Radio(c_nIdSiteClass1, m_nSite);
  exchange.Radio(c_nIdZoneGroup1, m_nZone);
  exchange.Radio(c_nIdIntensity6, m_nIntensity);
  exchange.Radio(c_nIdFrequentQuake, m_nQuakeLevel);
  exchange.Text(c_nIdDampRatio, m_dDampRatio);
  exchange.Radio(c_nIdSrss, m_nCombMethod);
  exchange.Check(c_nIdVirtualMode, m_bVirtualModes);
  exchange.Text(c_nIdPseudoLoad, m_nPseudoLoadNo);
}

void CSpectrumDlg::LoadSettings() {
  m_nMeshDiv = COMDYN.m_nMeshDiv;
  m_nExpandModes = COMDYN.m_nExpandModes;
  std::copy(std::begin(COMDYN.m_dDirCoef), std::end(COMDYN.m_dDirCoef), m_dDirCoef.begin());
  m_nSite = ToIndex(COMDYN.m_nSiteClass, c_nFirstSite);
  m_nZone = ToIndex(COMDYN.m_nZoneGroup, c_nFirstZone);
  m_nIntensity = ToIndex(COMDYN.m_nIntensity, c_nFirstIntensity);
  m_nQuakeLevel = COMDYN.m_nQuakeLevel;
  m_dDampRatio = COMDYN.m_dDampRatio;
  m_nCombMethod = COMDYN.m_nCombMethod;
  m_dDesignAcceleration = COMDYN.m_dDesignAcceleration;
  // Deliberate: the load-case numbers start at 0 every time; the factors are left as they are.
  m_loadComb.flags.fill(0);
}

void CSpectrumDlg::StoreSettings() {
  COMDYN.m_nMeshDiv = m_nMeshDiv;
  COMDYN.m_nExpandModes = m_nExpandModes;
  std::copy(m_dDirCoef.begin(), m_dDirCoef.end(), std::begin(COMDYN.m_dDirCoef));
  COMDYN.m_nSiteClass = m_nSite + c_nFirstSite;
  COMDYN.m_nZoneGroup = m_nZone + c_nFirstZone;
  COMDYN.m_nIntensity = m_nIntensity + c_nFirstIntensity;
  COMDYN.m_nQuakeLevel = m_nQuakeLevel;
  COMDYN.m_dDampRatio = m_dDampRatio;
  COMDYN.m_nCombMethod = m_nCombMethod;
  m_dDesignAcceleration = GetDesignAcceleration(m_nIntensity);
  COMDYN.m_dDesignAcceleration = m_dDesignAcceleration;
  const int nSaveAs = View().GetCurrent(c_nIdSaveAs);
  COMDYN.m_nSaveAs = nSaveAs;
  // Deliberate: the flag of the choice is set; no flag is ever cleared here.
  if (nSaveAs >= 0 && nSaveAs < static_cast<int>(std::size(COMDYN.m_bSaveAs))) COMDYN.m_bSaveAs[nSaveAs] = 1;
}

}  // namespace skyframe
