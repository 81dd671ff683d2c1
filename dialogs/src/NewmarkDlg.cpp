#include "skyframe/dialogs/NewmarkDlg.h"

#include <cmath>
#include <utility>

#include "skyframe/dialogs/GeneralLoadDlg.h"
#include "skyframe/dialogs/Templates.h"
#include "texts.h"

namespace skyframe {

namespace {

constexpr double c_dSmallestSquare = 1.0e-15;  // of a direction's length

/// c <- v / |v|. False, and c as it was, when v has no length.
bool NormaliseDirection(const std::array<double, 3>& v, std::array<double, 3>& c) {
  const double dLength = std::hypot(v[0], v[1], v[2]);
  if (dLength * dLength <= c_dSmallestSquare) return false;
  for (size_t i = 0; i < v.size(); ++i) c[i] = v[i] / dLength;
  return true;
}

}  // namespace

CNewmarkDlg::CNewmarkDlg() : CDialog(c_newmarkTemplate) {
  On(c_nIdNodalForce, DialogEvent::Clicked, [this] { OnNodalForce(); });
  On(c_nIdGroundMotion, DialogEvent::Clicked, [this] { OnGroundMotion(); });
  On(c_nIdFromFile, DialogEvent::Clicked, [this] { OnFromFile(); });
  On(c_nIdNonlinear, DialogEvent::Clicked, [this] { OnNonlinear(); });
  On(c_nIdImpulseLoad, DialogEvent::Clicked, [this] { OnImpulseLoad(); });
  On(c_nIdGeneralLoad, DialogEvent::Clicked, [this] { OnGeneralLoad(); });
  On(c_nIdEarthquake, DialogEvent::Clicked, [this] { OnEarthquake(); });
  On(c_nIdLoadComb, DialogEvent::Clicked, [this] { EditLoadCombination(m_loadComb); });
}

bool CNewmarkDlg::OnInitDialog() {
  m_loadComb.Reset();
  const bool bDone = CDialog::OnInitDialog();
  for (const int nId : {c_nIdCriterion, c_nIdTolerance, c_nIdMaxIter, c_nIdGeneralLoad, c_nIdEarthquake}) {
    View().Enable(nId, false);
  }
  return bDone;
}

void CNewmarkDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Radio(c_nIdNodalForce, m_nLoadType);
  exchange.Text(c_nIdDamping1, m_dDamping[0]);
  exchange.Text(c_nIdDamping2, m_dDamping[1]);
  exchange.Text(c_nIdAlpha, m_dAlpha);
  exchange.Text(c_nIdDelta, m_dDelta);
  exchange.Check(c_nIdNonlinear, m_bNonlinear);
  exchange.Index(c_nIdCriterion, m_nCriterion);
  exchange.Text(c_nIdTolerance, m_dTolerance);
  exchange.Text(c_nIdMaxIter, m_nMaxIter);
  exchange.Check(c_nIdFromFile, m_bFromFile);
}

// Deliberate: going back to nodal forces does not bring the two load buttons back.
void CNewmarkDlg::OnNodalForce() { View().Enable(c_nIdEarthquake, false); }

void CNewmarkDlg::OnGroundMotion() {
  View().Enable(c_nIdEarthquake, true);
  View().Enable(c_nIdGeneralLoad, false);
  View().Enable(c_nIdImpulseLoad, false);
}

void CNewmarkDlg::OnFromFile() {
  if (!View().GetCheck(c_nIdNodalForce)) return;
  const bool bFromFile = View().GetCheck(c_nIdFromFile);
  View().Enable(c_nIdGeneralLoad, bFromFile);
  View().Enable(c_nIdImpulseLoad, !bFromFile);
}

void CNewmarkDlg::OnNonlinear() {
  const bool bNonlinear = View().GetCheck(c_nIdNonlinear);
  for (const int nId : {c_nIdCriterion, c_nIdTolerance, c_nIdMaxIter}) View().Enable(nId, bNonlinear);
}

void CNewmarkDlg::OnImpulseLoad() {
  CImpulseLoadDlg dialog;
  if (dialog.DoModal() != c_nIdOk) return;
  if (!TakeImpulses(dialog)) GetPlatform().ShowMessage(texts::c_strWrongLoads);
}

void CNewmarkDlg::OnGeneralLoad() {
  CGeneralLoadDlg dialog;
  if (dialog.DoModal() != c_nIdOk) return;
  m_dTimeStep = dialog.m_dTimeStep;
  m_dDuration = dialog.m_dDuration;
}

void CNewmarkDlg::OnEarthquake() {
  CEarthquakeDlg dialog;
  if (dialog.DoModal() == c_nIdOk) TakeEarthquake(dialog);
}

bool CNewmarkDlg::TakeImpulses(const CImpulseLoadDlg& dialog) {
  std::vector<ImpulseLoad> impulses;
  for (const ImpulseRow& row : dialog.m_rows) {
    const std::optional<ImpulseLoad> impulse = ParseImpulseRow(row);
    if (!impulse) return false;
    impulses.push_back(*impulse);
  }
  m_impulses = std::move(impulses);
  m_nImpulseType = dialog.m_nType;
  m_dImpulseTime = dialog.GetCharacteristicTime();
  m_dTimeStep = dialog.m_dTimeStep;
  m_dDuration = dialog.m_dDuration;
  return true;
}

void CNewmarkDlg::TakeEarthquake(const CEarthquakeDlg& dialog) {
  m_dTimeStep = dialog.m_dTimeStep;
  m_dDuration = dialog.m_dDuration;
  m_nQuakeMode = dialog.m_nMode;
  m_bQuakeDir = dialog.m_bDirection;
  m_dPeak = dialog.m_dPeak;
  m_dPeakOblique = dialog.m_dPeakOblique;
  m_strQuakeFile = g_ProgramPath + std::string(texts::c_strStandardRecord);
  if (!NormaliseDirection(dialog.m_dOblique, m_dObliqueCoef)) GetPlatform().ShowMessage(texts::c_strWrongOblique);
}

}  // namespace skyframe
