#include "skyframe/dialogs/NonlinStaticDlg.h"

#include "skyframe/dialogs/Templates.h"

namespace skyframe {

CNonlinStaticDlg::CNonlinStaticDlg() : CDialog(c_nonlinStaticTemplate) {
  On(c_nIdLoadComb, DialogEvent::Clicked, [this] { EditLoadCombination(m_loadComb); });
}

bool CNonlinStaticDlg::OnInitDialog() {
  const bool bDone = CDialog::OnInitDialog();
  m_loadComb.Reset();
  return bDone;
}

void CNonlinStaticDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Index(c_nIdCriterion, m_nCriterion);
  exchange.Text(c_nIdMaxIter, m_nMaxIter);
  exchange.Text(c_nIdTolerance, m_dTolerance);
  exchange.Check(c_nIdNonlinear, m_bNonlinear);
}

}  // namespace skyframe
