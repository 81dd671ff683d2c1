#include "skyframe/dialogs/GeneralLoadDlg.h"

#include "skyframe/dialogs/Templates.h"

namespace skyframe {

CGeneralLoadDlg::CGeneralLoadDlg() : CDialog(c_generalLoadTemplate) {}

void CGeneralLoadDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Text(c_nIdStep, m_dTimeStep);
  exchange.Text(c_nIdDuration, m_dDuration);
}

}  // namespace skyframe
