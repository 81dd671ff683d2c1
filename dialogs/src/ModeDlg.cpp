#include "skyframe/dialogs/ModeDlg.h"

#include "FirstSettings.h"
#include "skyframe/dialogs/Templates.h"
#include "skyframe/hostdata/SettingsRecord.h"

namespace skyframe {

namespace {

constexpr int c_nTimer = 1;
constexpr int c_nTimerPeriod = 1000;  // ms

}  // namespace

CModeDlg::CModeDlg() : CDialog(c_modeTemplate), ModalSettings(c_firstModal) {
  On(c_nIdModeLoadComb, DialogEvent::Clicked, [this] { EditLoadCombination(m_loadComb); });
}

void CModeDlg::OnInitDialog() {
  FromRecord(COMDYN, *this);
  m_loadComb.Reset();
  m_nTicks = 0;
  CDialog::OnInitDialog();
}

void CModeDlg::OnOk() {
  if (!UpdateData(true)) return;
  View().StartTimer(c_nTimer, c_nTimerPeriod);
  ToRecord(*this, COMDYN);
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
