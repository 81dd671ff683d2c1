#pragma once

#include <array>

#include "skyframe/dialogs/LoadCombination.h"
#include "skyframe/platform/Dialog.h"

namespace skyframe {

/// Settings of a response-spectrum analysis. Opens with those of COMDYN and stores them there on
/// OK. The load representative values are not remembered.
class CSpectrumDlg : public CDialog {
 public:
  CSpectrumDlg();

  int m_nMeshDiv = 5;
  int m_nExpandModes = 10;
  std::array<double, 3> m_dDirCoef = {1.0, 0.0, 0.0};
  int m_nSite = 2;        ///< radio index: class I..IV
  int m_nZone = 0;        ///< radio index: design group 1..3
  int m_nIntensity = 1;   ///< radio index: 0.05, 0.10, 0.15, 0.20, 0.30, 0.40 g
  int m_nQuakeLevel = 0;  ///< 0 frequent, 1 rare
  double m_dDampRatio = 0.02;
  int m_nCombMethod = 0;  ///< 0 SRSS, 1 CQC, 2 GRP
  int m_bVirtualModes = 0;
  int m_nPseudoLoadNo = 0;
  double m_dDesignAcceleration = 0.0;  ///< g
  LoadCombination m_loadComb;          ///< load representative values

 protected:
  bool OnInitDialog() override;
  void OnOk() override;
  void DoDataExchange(CDataExchange& exchange) override;

 private:
  void LoadSettings();
  void StoreSettings();
};

}  // namespace skyframe
