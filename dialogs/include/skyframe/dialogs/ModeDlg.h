#pragma once

#include "skyframe/dialogs/LoadCombination.h"
#include "skyframe/platform/Dialog.h"

namespace skyframe {

/// Settings of a modal analysis. Opens with those of COMDYN (the accuracy and the load combination
/// with their defaults) and stores them there on OK.
class CModeDlg : public CDialog {
 public:
  CModeDlg();

  /// Seconds counted by the dialog's timer, which OK starts.
  [[nodiscard]] int GetTickCount() const { return m_nTicks; }

  int m_nModes = 0;
  int m_nRootCheck = 0;  ///< radio index: 0 "STURM法", 1 "模态比较法"
  double m_dModeTol = 1.0e-16;
  int m_nIterMultiple = 6;
  int m_bShear = 0;
  LoadCombination m_loadComb;

 protected:
  bool OnInitDialog() override;
  void OnOk() override;
  void OnTimer(int nTimer) override;
  void DoDataExchange(CDataExchange& exchange) override;

 private:
  int m_nTicks = 0;
};

}  // namespace skyframe
