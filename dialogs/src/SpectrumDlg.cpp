#include "skyframe/dialogs/SpectrumDlg.h"

#include <algorithm>
#include <iterator>

#include "skyframe/dialogs/Templates.h"
#include "skyframe/hostdata/SettingsRecord.h"

namespace skyframe {

namespace {

/// Radio group whose buttons stand for the codes from nFirst up. No button: the code below the first.
void ExchangeCode(CDataExchange& exchange, int nFirstId, int nFirst, int& nCode) {
  int nIndex = std::max(nCode, nFirst - 1) - nFirst;
  exchange.Radio(nFirstId, nIndex);
  if (exchange.IsSaving()) nCode = nIndex + nFirst;
}

/// Design basic acceleration, g; 0.05 for an intensity that is none.
double GetDesignAcceleration(int nIntensity) {
  constexpr std::array<double, 6> c_accelerations = {0.05, 0.10, 0.15, 0.20, 0.30, 0.40};
  const int nIndex = nIntensity - c_nLowestIntensity;
  const bool bInside = nIndex >= 0 && nIndex < static_cast<int>(c_accelerations.size());
  return c_accelerations[bInside ? static_cast<size_t>(nIndex) : 0];
}

}  // namespace

CSpectrumDlg::CSpectrumDlg() : CDialog(c_spectrumTemplate) {
  FromRecord(c_freshSettings, *this);
  On(c_nIdLoadValues, DialogEvent::Clicked, [this] { EditLoadCombination(m_loadComb); });
}

void CSpectrumDlg::OnInitDialog() {
  FromRecord(COMDYN, *this);
  // Deliberate: the load-case numbers start at 0 every time; the factors are left as they are.
  m_loadComb.flags.fill(0);
  View().SetCurrent(c_nIdSaveAs, 0);
  CDialog::OnInitDialog();
}

void CSpectrumDlg::OnOk() {
  if (!UpdateData(true)) return;
  DesignAcceleration = GetDesignAcceleration(m_nIntensity);
  ToRecord(*this, COMDYN);
  const int nSaveAs = View().GetCurrent(c_nIdSaveAs);
  COMDYN.m_nSaveAs = nSaveAs;
  // Deliberate: the flag of the choice is set; no flag is ever cleared here.
  if (nSaveAs >= 0 && nSaveAs < static_cast<int>(std::size(COMDYN.m_bSaveAs))) COMDYN.m_bSaveAs[nSaveAs] = 1;
  EndDialog(c_nIdOk);
}

void CSpectrumDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Text(c_nIdMeshDiv, m_nMeshDiv);
  exchange.Text(c_nIdExpandModes, m_nExpandModes);
  exchange.Text(c_nIdDirectionX, m_dDirCoef[0]);
  exchange.Text(c_nIdDirectionY, m_dDirCoef[1]);
  exchange.Text(c_nIdDirectionZ, m_dDirCoef[2]);
  ExchangeCode(exchange, c_nIdSiteClass1, 1, m_nSiteClass);
  ExchangeCode(exchange, c_nIdZoneGroup1, 1, m_nZoneGroup);
  ExchangeCode(exchange, c_nIdIntensity6, c_nLowestIntensity, m_nIntensity);
  exchange.Radio(c_nIdFrequentQuake, m_nQuakeLevel);
  exchange.Text(c_nIdDampRatio, m_dDampRatio);
  exchange.Radio(c_nIdSrss, m_nCombMethod);
  exchange.Check(c_nIdVirtualMode, m_bVirtualModes);
  exchange.Text(c_nIdPseudoLoad, m_nPseudoLoadNo);
}

}  // namespace skyframe
