#include "skyframe/dialogs/ModeDlg.h"

#include "skyframe/dialogs/Templates.h"

namespace skyframe {

namespace {

constexpr int c_nTimer = 1;
constexpr int c_nTimerPeriod = 1000;  // ms
constexpr double c_dDefaultAccuracy = 1.0e-16;

}  // namespace

CModeDlg::CModeDlg() : CDialog(c_modeTemplate) {
  On(c_nIdModeLoadComb, DialogEvent::Clicked, [this] { EditLoadCombination(m_loadComb); });
}

bool CModeDlg::OnInitDialog() {
  m_nModes = COMDYN.m_nModes;
  m_nRootCheck = COMDYN.m_nRootCheck;
  // Deliberate: the accuracy is stored on OK but never read back.
  m_dModeTol = c_dDefaultAccuracy;
  m_nIterMultiple = COMDYN.m_nIterMultiple;
  m_bShear = COMDYN.m_bShear;
  m_loadComb.Reset();
  m_nTicks = 0;
  return CDialog::OnInitDialog();
}

void CModeDlg::OnOk() {
  if (!UpdateData(true)) return;
  View().StartTimer(c_nTimer, c_nTimerPeriod);
  COMDYN.m_nModes = m_nModes;
  COMDYN.m_dModeTol = m_dModeTol;
  COMDYN.m_nRootCheck = m_nRootCheck;
  COMDYN.m_nIterMultiple = m_nIterMultiple;
  COMDYN.m_bShear = m_bShear;
  EndDialog(c_nIdOk);
}

void CModeDlg::OnTimer(int nTimer) {
  ++m_nTicks;
  CDialog::OnTimer(nTimer);
}

void CModeDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Text(c_nIdModes, m_nModes);
  exchange.Radio(c_nIdSturm, m_nRootCheck);
  exchange.Text(c_nIdAccuracy, m_dModeTol);
  exchange.Text(c_nIdIterMultiple, m_nIterMultiple);
  exchange.Check(c_nIdShear, m_bShear);
}

}  // namespace skyframe
