#include "skyframe/dialogs/EarthquakeDlg.h"

#include "FirstSettings.h"
#include "skyframe/dialogs/Templates.h"

namespace skyframe {

namespace {

struct AxisControls {
  int nCheck;
  int nOblique;
  int nPeak;
  int nPeakLabel;
};

constexpr std::array<AxisControls, 3> c_axes = {{
    {c_nIdQuakeX, c_nIdObliqueX, c_nIdPeakX, c_nIdPeakXLabel},
    {c_nIdQuakeY, c_nIdObliqueY, c_nIdPeakY, c_nIdPeakYLabel},
    {c_nIdQuakeZ, c_nIdObliqueZ, c_nIdPeakZ, c_nIdPeakZLabel},
}};

}  // namespace

CEarthquakeDlg::CEarthquakeDlg() : CDialog(c_earthquakeTemplate), StepSettings(c_firstLoadSteps) {
  static_cast<QuakePeaks&>(*this) = c_firstPeaks;
  for (const int nId : {c_nIdPrincipal, c_nIdOblique, c_nIdQuakeX, c_nIdQuakeY, c_nIdQuakeZ}) {
    On(nId, DialogEvent::Clicked, [this] { EnableControls(); });
  }
}

void CEarthquakeDlg::OnInitDialog() {
  CDialog::OnInitDialog();
  EnableControls();
}

void CEarthquakeDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Index(c_nIdStandardRecord, m_nRecord);
  exchange.Text(c_nIdStep, m_dTimeStep);
  exchange.Text(c_nIdDuration, m_dDuration);
  exchange.Radio(c_nIdPrincipal, m_nQuakeMode);
  for (size_t i = 0; i < c_axes.size(); ++i) {
    exchange.Check(c_axes[i].nCheck, m_bQuakeDir[i]);
    exchange.Text(c_axes[i].nOblique, m_dObliqueCoef[i]);
    exchange.Text(c_axes[i].nPeak, m_dPeak[i]);
  }
  exchange.Text(c_nIdPeakOblique, m_dPeakOblique);
}

void CEarthquakeDlg::EnableControls() {
  const bool bOblique = View().GetCheck(c_nIdOblique);
  for (const AxisControls& axis : c_axes) {
    const bool bPeak = !bOblique && View().GetCheck(axis.nCheck);
    View().Enable(axis.nCheck, !bOblique);
    View().Enable(axis.nOblique, bOblique);
    View().Enable(axis.nPeak, bPeak);
    View().Enable(axis.nPeakLabel, bPeak);
  }
  View().Enable(c_nIdPeakOblique, bOblique);
  View().Enable(c_nIdPeakObliqueLabel, bOblique);
}

}  // namespace skyframe
