#include "skyframe/dialogs/NonlinStaticDlg.h"

#include "FirstSettings.h"
#include "skyframe/dialogs/Templates.h"

namespace skyframe {

CNonlinStaticDlg::CNonlinStaticDlg() : CDialog(c_nonlinStaticTemplate), StaticSettings{c_firstEquilibrium} {
  On(c_nIdLoadComb, DialogEvent::Clicked, [this] { EditLoadCombination(m_loadComb); });
}

void CNonlinStaticDlg::OnInitDialog() {
  CDialog::OnInitDialog();
  m_loadComb.Reset();
}

void CNonlinStaticDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Index(c_nIdCriterion, m_nConvCriterion);
  exchange.Text(c_nIdMaxIter, m_nMaxIter);
  exchange.Text(c_nIdTolerance, m_dConvTol);
  exchange.Check(c_nIdNonlinear, m_bNonlinear);
}

}  // namespace skyframe
