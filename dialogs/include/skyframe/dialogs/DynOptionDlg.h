#pragma once

#include "skyframe/platform/Dialog.h"

namespace skyframe {

/// Choice of the time-history method, remembered in COMDYN.
class CDynOptionDlg : public CDialog {
 public:
  CDynOptionDlg();

  int m_nMethod = 0;  ///< 0 Wilson-theta, 1 Newmark

 protected:
  void OnInitDialog() override;
  void OnOk() override;
  void DoDataExchange(CDataExchange& exchange) override;
};

}  // namespace skyframe
