#pragma once

#include "skyframe/platform/Dialog.h"
#include "skyframe/values/Settings.h"

namespace skyframe {

/// Direction and size of a ground motion. The principal mode offers the axes, each with its peak
/// while it is ticked; the oblique mode offers a direction, here of any length, and one peak.
class CEarthquakeDlg : public CDialog, public StepSettings, public QuakeSettings {
 public:
  CEarthquakeDlg();

  int m_nRecord = 0;  ///< index of the standard record

 protected:
  void OnInitDialog() override;
  void DoDataExchange(CDataExchange& exchange) override;

 private:
  void EnableControls();
};

}  // namespace skyframe
