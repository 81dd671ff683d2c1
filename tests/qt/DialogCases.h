#pragma once

#include <array>
#include <cmath>
#include <memory>
#include <vector>

#include "skyframe/dialogs/DynOptionDlg.h"
#include "skyframe/dialogs/EarthquakeDlg.h"
#include "skyframe/dialogs/GeneralLoadDlg.h"
#include "skyframe/dialogs/HisResultDlg.h"
#include "skyframe/dialogs/ImpulseLoadDlg.h"
#include "skyframe/dialogs/LoadCombDlg.h"
#include "skyframe/dialogs/ModeDlg.h"
#include "skyframe/dialogs/NewmarkDlg.h"
#include "skyframe/dialogs/NonlinStaticDlg.h"
#include "skyframe/dialogs/SpectrumDlg.h"
#include "skyframe/dialogs/Templates.h"
#include "skyframe/dialogs/WilsonDlg.h"
#include "skyframe/platform/PaintContext.h"

namespace skyframe::test {

inline constexpr int c_nOfferedTypes = 4;

/// One of the module's dialogs, with load types on offer where it has a load combination.
struct DialogCase {
  const char* strName;
  std::unique_ptr<CDialog> (*make)();
};

template <class Dialog>
std::unique_ptr<CDialog> MakeDialog() {
  auto pDialog = std::make_unique<Dialog>();
  if constexpr (requires { pDialog->m_loadComb; }) pDialog->m_loadComb.nLoadTypes = c_nOfferedTypes;
  return pDialog;
}

/// Twelve nodes and thirty elements whose histories are a swinging line in the frame of the plot.
class CSampleHistories : public IHistoryView {
 public:
  [[nodiscard]] int GetNodeCount() const override { return 12; }
  [[nodiscard]] int GetElementCount() const override { return 30; }
  void Plot(IPaintContext& paint, const std::optional<HistorySelection>& selection) const override {
    paint.SetPen({0xF0, 0xF0, 0xF0});
    paint.SetBrush({0xF0, 0xF0, 0xF0});
    paint.Rectangle(170, 10, 78, 270);
    paint.SetPen({0xFF, 0, 0});
    paint.SetBrush(c_white);
    paint.Rectangle(250, 30, 401, 250);
    paint.SetPen(c_black);
    paint.Line(250, 155, 650, 155);
    if (!selection) return;
    std::vector<PaintPoint> points;
    for (int n = 0; n <= 400; ++n) points.push_back({250.0 + n, std::trunc(155.0 - 120.0 * std::sin(0.05 * n))});
    paint.Polyline(points);
    paint.Text(245, 30, "1.20e+00", HorizontalAlign::Right, VerticalAlign::Top);
    paint.Text(450, 158, "10", HorizontalAlign::Centre, VerticalAlign::Top);
  }
  [[nodiscard]] bool WriteOut(const HistorySelection& selection) const override { return selection.nNumber != 12; }
};

inline const CSampleHistories c_sampleHistories;

inline std::unique_ptr<CDialog> MakeViewer() { return std::make_unique<CHisResultDlg>(c_sampleHistories); }

inline constexpr std::array c_dialogCases = {
    DialogCase{"mode", MakeDialog<CModeDlg>},
    DialogCase{"spectrum", MakeDialog<CSpectrumDlg>},
    DialogCase{"load_combination", MakeDialog<CLoadCombDlg>},
    DialogCase{"dynamic_options", MakeDialog<CDynOptionDlg>},
    DialogCase{"wilson", MakeDialog<CWilsonDlg>},
    DialogCase{"newmark", MakeDialog<CNewmarkDlg>},
    DialogCase{"static", MakeDialog<CNonlinStaticDlg>},
    DialogCase{"impulse_load", MakeDialog<CImpulseLoadDlg>},
    DialogCase{"general_load", MakeDialog<CGeneralLoadDlg>},
    DialogCase{"earthquake", MakeDialog<CEarthquakeDlg>},
    DialogCase{"history_results", MakeViewer},
};

}  // namespace skyframe::test
