#pragma once

#include <array>
#include <string>
#include <vector>

#include "skyframe/dialogs/EarthquakeDlg.h"
#include "skyframe/dialogs/ImpulseLoadDlg.h"
#include "skyframe/dialogs/LoadCombination.h"
#include "skyframe/platform/Dialog.h"

namespace skyframe {

/// Settings of a Newmark run. Loads come from the dialogs behind its buttons.
class CNewmarkDlg : public CDialog {
 public:
  CNewmarkDlg();

  int m_nLoadType = 0;                              ///< 0 nodal force, 1 ground motion
  std::array<double, 2> m_dDamping = {0.02, 0.02};  ///< first and second mode
  double m_dAlpha = 0.25;
  double m_dDelta = 0.5;
  int m_bNonlinear = 0;
  int m_nCriterion = 0;  ///< 0 absolute force, 1 absolute displacement, 2 relative force, 3 relative displacement
  double m_dTolerance = 0.1;
  int m_nMaxIter = 20;
  int m_bFromFile = 0;

  // From the dialogs behind the buttons
  double m_dTimeStep = 0.01;  ///< s
  double m_dDuration = 5.0;   ///< s
  std::vector<ImpulseLoad> m_impulses;
  int m_nImpulseType = 0;       ///< 0 triangular, 1 rectangular
  double m_dImpulseTime = 0.0;  ///< s: peak time of a triangle, unload time of a rectangle
  std::string m_strQuakeFile;   ///< standard record
  int m_nQuakeMode = 0;         ///< 0 principal directions, 1 oblique
  std::array<int, 3> m_bQuakeDir = {0, 0, 0};
  std::array<double, 3> m_dPeak = {0.35, 0.35, 0.35};      ///< m/s2
  double m_dPeakOblique = 0.35;                            ///< m/s2
  std::array<double, 3> m_dObliqueCoef = {1.0, 0.0, 0.0};  ///< direction cosines
  LoadCombination m_loadComb;

 protected:
  bool OnInitDialog() override;
  void DoDataExchange(CDataExchange& exchange) override;

 private:
  void OnNodalForce();
  void OnGroundMotion();
  void OnFromFile();
  void OnNonlinear();
  void OnImpulseLoad();
  void OnGeneralLoad();
  void OnEarthquake();

  /// False when a row is not understood; nothing is taken over then.
  [[nodiscard]] bool TakeImpulses(const CImpulseLoadDlg& dialog);
  void TakeEarthquake(const CEarthquakeDlg& dialog);
};

}  // namespace skyframe
