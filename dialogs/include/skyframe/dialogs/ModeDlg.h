#pragma once

#include "skyframe/dialogs/LoadCombination.h"
#include "skyframe/platform/Dialog.h"
#include "skyframe/values/Settings.h"

namespace skyframe {

/// Settings of a modal analysis. Opens with those of COMDYN (the accuracy and the load combination
/// with their defaults) and stores them there on OK.
class CModeDlg : public CDialog, public ModalSettings {
 public:
  CModeDlg();

  /// Seconds counted by the dialog's timer, which OK starts.
  [[nodiscard]] int GetTickCount() const { return m_nTicks; }

  LoadCombination m_loadComb;

 protected:
  void OnInitDialog() override;
  void OnOk() override;
  void OnTimer(int nTimer) override;
  void DoDataExchange(CDataExchange& exchange) override;

 private:
  int m_nTicks = 0;
};

}  // namespace skyframe
