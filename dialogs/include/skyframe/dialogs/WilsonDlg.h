#pragma once

#include "skyframe/dialogs/LoadCombination.h"
#include "skyframe/platform/Dialog.h"
#include "skyframe/values/Settings.h"

namespace skyframe {

/// Settings of a Wilson-theta run. The check, the peaks and the load combination are offered but the method is
/// linear and driven by nodal forces whatever they say.
class CWilsonDlg : public CDialog, public HistorySettings, public WilsonSettings {
 public:
  CWilsonDlg();

  int m_bNonlinear = 0;
  QuakePeaks m_peaks;
  LoadCombination m_loadComb;

 protected:
  void OnInitDialog() override;
  void DoDataExchange(CDataExchange& exchange) override;
};

}  // namespace skyframe
