#include "skyframe/dialogs/GeneralLoadDlg.h"

#include "FirstSettings.h"
#include "skyframe/dialogs/Templates.h"

namespace skyframe {

CGeneralLoadDlg::CGeneralLoadDlg() : CDialog(c_generalLoadTemplate), StepSettings(c_firstGeneralLoadSteps) {}

void CGeneralLoadDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Text(c_nIdStep, m_dTimeStep);
  exchange.Text(c_nIdDuration, m_dDuration);
}

}  // namespace skyframe
