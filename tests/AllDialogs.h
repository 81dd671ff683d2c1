#pragma once

#include "TestPlatform.h"
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
#include "skyframe/history/HistoryPlot.h"
#include "skyframe/platform/PaintContext.h"

namespace skyframe::test {

/// What the viewer would draw and write of five nodes and three elements.
class CFakeHistories : public IHistoryView {
 public:
  int GetNodeCount() const override { return 5; }
  int GetElementCount() const override { return 3; }
  void Plot(IPaintContext& paint, const std::optional<HistorySelection>& selection) const override {
    PaintHistoryFrame(paint);
    m_plotted.push_back(selection);
  }
  bool WriteOut(const HistorySelection& selection) const override {
    m_written.push_back(selection);
    return m_bWritable;
  }

  bool m_bWritable = true;
  mutable std::vector<std::optional<HistorySelection>> m_plotted;
  mutable std::vector<HistorySelection> m_written;
};

inline constexpr int c_nOfferedTypes = 4;

using Maker = std::unique_ptr<CDialog> (*)();

template <class Dialog>
std::unique_ptr<CDialog> MakeDialog() {
  auto pDialog = std::make_unique<Dialog>();
  if constexpr (requires { pDialog->m_loadComb; }) pDialog->m_loadComb.nLoadTypes = c_nOfferedTypes;
  return pDialog;
}

inline const CFakeHistories c_histories;

inline std::unique_ptr<CDialog> MakeViewer() { return std::make_unique<CHisResultDlg>(c_histories); }

inline constexpr Maker c_makers[] = {MakeDialog<CModeDlg>,
                                     MakeDialog<CSpectrumDlg>,
                                     MakeDialog<CLoadCombDlg>,
                                     MakeDialog<CDynOptionDlg>,
                                     MakeDialog<CWilsonDlg>,
                                     MakeDialog<CNewmarkDlg>,
                                     MakeDialog<CNonlinStaticDlg>,
                                     MakeDialog<CImpulseLoadDlg>,
                                     MakeDialog<CGeneralLoadDlg>,
                                     MakeDialog<CEarthquakeDlg>,
                                     MakeViewer};

}  // namespace skyframe::test
