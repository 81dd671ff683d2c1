#pragma once

#include "skyframe/platform/Dialog.h"
#include "skyframe/values/Settings.h"

namespace skyframe {

/// Time axis of the loads that a file describes.
class CGeneralLoadDlg : public CDialog, public StepSettings {
 public:
  CGeneralLoadDlg();

 protected:
  void DoDataExchange(CDataExchange& exchange) override;
};

}  // namespace skyframe
