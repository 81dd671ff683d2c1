#pragma once

#include "skyframe/dialogs/LoadCombination.h"
#include "skyframe/platform/Dialog.h"

namespace skyframe {

/// Settings of a static analysis; remembers nothing between runs.
class CNonlinStaticDlg : public CDialog {
 public:
  CNonlinStaticDlg();

  int m_nCriterion = 0;  ///< 0 absolute force, 1 absolute displacement, 2 relative force, 3 relative displacement
  int m_nMaxIter = 20;
  double m_dTolerance = 0.1;
  int m_bNonlinear = 1;
  LoadCombination m_loadComb;

 protected:
  bool OnInitDialog() override;
  void DoDataExchange(CDataExchange& exchange) override;
};

}  // namespace skyframe
