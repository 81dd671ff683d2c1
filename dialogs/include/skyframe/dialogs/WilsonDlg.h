#pragma once

#include <array>

#include "skyframe/dialogs/LoadCombination.h"
#include "skyframe/platform/Dialog.h"

namespace skyframe {

/// Settings of a Wilson-theta run. The check and the peaks are offered but the method is linear
/// and driven by nodal forces whatever they say.
class CWilsonDlg : public CDialog {
 public:
  CWilsonDlg();

  std::array<double, 2> m_dDamping = {0.02, 0.02};  ///< first and second mode
  double m_dTheta = 1.4;
  double m_dTimeStep = 0.01;  ///< s
  double m_dDuration = 10.0;  ///< s
  int m_bNonlinear = 0;
  double m_dPeakOblique = 0.35;                        ///< m/s2
  std::array<double, 3> m_dPeak = {0.35, 0.35, 0.35};  ///< m/s2
  LoadCombination m_loadComb;

 protected:
  bool OnInitDialog() override;
  void DoDataExchange(CDataExchange& exchange) override;
};

}  // namespace skyframe
