#pragma once

#include <vector>

#include "skyframe/dialogs/EarthquakeDlg.h"
#include "skyframe/dialogs/ImpulseLoadDlg.h"
#include "skyframe/dialogs/LoadCombination.h"
#include "skyframe/platform/Dialog.h"
#include "skyframe/values/Settings.h"

namespace skyframe {

/// Settings of a Newmark run. Loads come from the dialogs behind its buttons.
class CNewmarkDlg : public CDialog, public HistorySettings, public NewmarkSettings, public EquilibriumSettings {
 public:
  CNewmarkDlg();

  int m_bNonlinear = 0;

  // From the dialogs behind the buttons, as are the steps
  std::vector<ImpulseLoad> m_impulses;
  int m_nImpulseType = 0;       ///< 0 triangular, 1 rectangular
  double m_dImpulseTime = 0.0;  ///< s: peak time of a triangle, unload time of a rectangle
  QuakeSettings m_quake;        ///< of no effect under nodal forces
  LoadCombination m_loadComb;

 protected:
  void OnInitDialog() override;
  void DoDataExchange(CDataExchange& exchange) override;

 private:
  void OnNodalForce();
  void OnGroundMotion();
  void OnFromFile();
  void OnNonlinear();
  void OnImpulseLoad();
  void OnGeneralLoad();
  void OnEarthquake();

  void TakeSteps(const StepSettings& steps) { static_cast<StepSettings&>(*this) = steps; }
  /// False when a row is not understood; nothing is taken over then.
  [[nodiscard]] bool TakeImpulses(const CImpulseLoadDlg& dialog);
  void TakeEarthquake(const CEarthquakeDlg& dialog);
};

}  // namespace skyframe
