#pragma once

#include <array>

#include "skyframe/platform/Dialog.h"

namespace skyframe {

/// Direction and size of a ground motion. The principal mode offers the axes, each with its peak
/// while it is ticked; the oblique mode offers a direction and one peak.
class CEarthquakeDlg : public CDialog {
 public:
  CEarthquakeDlg();

  int m_nRecord = 0;          ///< index of the standard record
  double m_dTimeStep = 0.02;  ///< s
  double m_dDuration = 1.0;   ///< s
  int m_nMode = 0;            ///< 0 principal directions, 1 oblique
  std::array<int, 3> m_bDirection = {0, 0, 0};
  std::array<double, 3> m_dOblique = {1.0, 0.0, 0.0};  ///< direction of any length
  std::array<double, 3> m_dPeak = {0.35, 0.35, 0.35};  ///< m/s2
  double m_dPeakOblique = 0.35;                        ///< m/s2

 protected:
  bool OnInitDialog() override;
  void DoDataExchange(CDataExchange& exchange) override;

 private:
  void EnableControls();
};

}  // namespace skyframe
