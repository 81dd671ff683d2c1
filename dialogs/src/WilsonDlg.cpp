#include "skyframe/dialogs/WilsonDlg.h"

#include "skyframe/dialogs/Templates.h"

namespace skyframe {

CWilsonDlg::CWilsonDlg() : CDialog(c_wilsonTemplate) {
  On(c_nIdLoadComb, DialogEvent::Clicked, [this] { EditLoadCombination(m_loadComb); });
}

bool CWilsonDlg::OnInitDialog() {
  m_loadComb.Reset();
  return CDialog::OnInitDialog();
}

void CWilsonDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Text(c_nIdDamping1, m_dDamping[0]);
  exchange.Text(c_nIdDamping2, m_dDamping[1]);
  exchange.Text(c_nIdTheta, m_dTheta);
  exchange.Text(c_nIdWilsonStep, m_dTimeStep);
  exchange.Text(c_nIdWilsonDuration, m_dDuration);
  exchange.Check(c_nIdNonlinear, m_bNonlinear);
  exchange.Text(c_nIdPeakOblique, m_dPeakOblique);
  exchange.Text(c_nIdPeakX, m_dPeak[0]);
  exchange.Text(c_nIdPeakY, m_dPeak[1]);
  exchange.Text(c_nIdPeakZ, m_dPeak[2]);
}

}  // namespace skyframe
