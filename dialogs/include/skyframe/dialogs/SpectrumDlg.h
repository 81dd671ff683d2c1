#pragma once

#include "skyframe/dialogs/LoadCombination.h"
#include "skyframe/platform/Dialog.h"
#include "skyframe/values/Settings.h"

namespace skyframe {

/// Settings of a response-spectrum analysis. Opens with those of COMDYN and stores them there on
/// OK. The load representative values are not remembered.
class CSpectrumDlg : public CDialog, public SpectrumSettings {
 public:
  CSpectrumDlg();

  LoadCombination m_loadComb;  ///< load representative values

 protected:
  void OnInitDialog() override;
  void OnOk() override;
  void DoDataExchange(CDataExchange& exchange) override;
};

}  // namespace skyframe
