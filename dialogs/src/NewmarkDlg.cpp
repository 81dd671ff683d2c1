#include "skyframe/dialogs/NewmarkDlg.h"

#include <cmath>
#include <utility>

#include "FirstSettings.h"
#include "skyframe/dialogs/GeneralLoadDlg.h"
#include "skyframe/dialogs/Templates.h"
#include "texts.h"

namespace skyframe {

namespace {

constexpr double c_dSmallestSquare = 1.0e-15;  // of a direction's length

/// v <- v / |v|. False when v has no length.
bool Normalise(std::array<double, 3>& v) {
  const double dLength = std::hypot(v[0], v[1], v[2]);
  if (dLength * dLength <= c_dSmallestSquare) return false;
  for (double& d : v) d /= dLength;
  return true;
}

}  // namespace

CNewmarkDlg::CNewmarkDlg()
    : CDialog(c_newmarkTemplate), HistorySettings{c_firstNewmarkSteps}, EquilibriumSettings(c_firstEquilibrium) {
  static_cast<QuakePeaks&>(m_quake) = c_firstPeaks;
  On(c_nIdNodalForce, DialogEvent::Clicked, [this] { OnNodalForce(); });
  On(c_nIdGroundMotion, DialogEvent::Clicked, [this] { OnGroundMotion(); });
  On(c_nIdFromFile, DialogEvent::Clicked, [this] { OnFromFile(); });
  On(c_nIdNonlinear, DialogEvent::Clicked, [this] { OnNonlinear(); });
  On(c_nIdImpulseLoad, DialogEvent::Clicked, [this] { OnImpulseLoad(); });
  On(c_nIdGeneralLoad, DialogEvent::Clicked, [this] { OnGeneralLoad(); });
  On(c_nIdEarthquake, DialogEvent::Clicked, [this] { OnEarthquake(); });
  On(c_nIdLoadComb, DialogEvent::Clicked, [this] { EditLoadCombination(m_loadComb); });
}

void CNewmarkDlg::OnInitDialog() {
  m_loadComb.Reset();
  CDialog::OnInitDialog();
  for (const int nId : {c_nIdCriterion, c_nIdTolerance, c_nIdMaxIter, c_nIdGeneralLoad, c_nIdEarthquake}) {
    View().Enable(nId, false);
  }
}

void CNewmarkDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Radio(c_nIdNodalForce, m_nLoadType);
  exchange.Text(c_nIdDamping1, m_pDamping[0]);
  exchange.Text(c_nIdDamping2, m_pDamping[1]);
  exchange.Text(c_nIdAlpha, m_dNewmarkAlpha);
  exchange.Text(c_nIdDelta, m_dNewmarkDelta);
  exchange.Check(c_nIdNonlinear, m_bNonlinear);
  exchange.Index(c_nIdCriterion, m_nConvCriterion);
  exchange.Text(c_nIdTolerance, m_dConvTol);
  exchange.Text(c_nIdMaxIter, m_nMaxIter);
  exchange.Check(c_nIdFromFile, m_bLoadFromFile);
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
  if (dialog.DoModal() == c_nIdOk) TakeSteps(dialog);
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
  TakeSteps(dialog);
  return true;
}

void CNewmarkDlg::TakeEarthquake(const CEarthquakeDlg& dialog) {
  TakeSteps(dialog);
  const std::array<double, 3> previous = m_quake.m_dObliqueCoef;
  m_quake = dialog;
  m_quake.m_strQuakeFile = g_ProgramPath + std::string(texts::c_strStandardRecord);
  if (Normalise(m_quake.m_dObliqueCoef)) return;
  m_quake.m_dObliqueCoef = previous;
  GetPlatform().ShowMessage(texts::c_strWrongOblique);
}

}  // namespace skyframe
