#pragma once

#include "skyframe/dialogs/LoadCombination.h"
#include "skyframe/platform/Dialog.h"
#include "skyframe/values/Settings.h"

namespace skyframe {

/// Settings of a static analysis; remembers nothing between runs.
class CNonlinStaticDlg : public CDialog, public StaticSettings {
 public:
  CNonlinStaticDlg();

  LoadCombination m_loadComb;

 protected:
  void OnInitDialog() override;
  void DoDataExchange(CDataExchange& exchange) override;
};

}  // namespace skyframe
