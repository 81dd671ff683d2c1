#include "skyframe/dialogs/WilsonDlg.h"

#include "FirstSettings.h"
#include "skyframe/dialogs/Templates.h"

namespace skyframe {

CWilsonDlg::CWilsonDlg() : CDialog(c_wilsonTemplate), m_peaks(c_firstPeaks) {
  On(c_nIdLoadComb, DialogEvent::Clicked, [this] { EditLoadCombination(m_loadComb); });
}

void CWilsonDlg::OnInitDialog() {
  m_loadComb.Reset();
  CDialog::OnInitDialog();
}

void CWilsonDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Text(c_nIdDamping1, m_pDamping[0]);
  exchange.Text(c_nIdDamping2, m_pDamping[1]);
  exchange.Text(c_nIdTheta, m_dWilsonTheta);
  exchange.Text(c_nIdWilsonStep, m_dTimeStep);
  exchange.Text(c_nIdWilsonDuration, m_dDuration);
  exchange.Check(c_nIdNonlinear, m_bNonlinear);
  exchange.Text(c_nIdPeakOblique, m_peaks.m_dPeakOblique);
  exchange.Text(c_nIdPeakX, m_peaks.m_dPeak[0]);
  exchange.Text(c_nIdPeakY, m_peaks.m_dPeak[1]);
  exchange.Text(c_nIdPeakZ, m_peaks.m_dPeak[2]);
}

}  // namespace skyframe
