#include "skyframe/dialogs/DynOptionDlg.h"

#include "skyframe/dialogs/Templates.h"
#include "skyframe/hostdata/HostData.h"

namespace skyframe {

CDynOptionDlg::CDynOptionDlg() : CDialog(c_dynOptionTemplate) {}

void CDynOptionDlg::OnInitDialog() {
  m_nMethod = COMDYN.m_nMethod;
  CDialog::OnInitDialog();
}

void CDynOptionDlg::OnOk() {
  if (!UpdateData(true)) return;
  COMDYN.m_nMethod = m_nMethod;
  EndDialog(c_nIdOk);
}

void CDynOptionDlg::DoDataExchange(CDataExchange& exchange) { exchange.Radio(c_nIdWilson, m_nMethod); }

}  // namespace skyframe
