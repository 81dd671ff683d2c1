#pragma once

#include "skyframe/platform/Dialog.h"

namespace skyframe {

/// Time axis of the loads that a file describes.
class CGeneralLoadDlg : public CDialog {
 public:
  CGeneralLoadDlg();

  // Deliberate: step and duration have each other's usual defaults.
  double m_dTimeStep = 1.0;   ///< s
  double m_dDuration = 0.02;  ///< s

 protected:
  void DoDataExchange(CDataExchange& exchange) override;
};

}  // namespace skyframe
