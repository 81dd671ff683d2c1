#include <utility>

#include "Drivers.h"
#include "ModuleState.h"
#include "skyframe/dialogs/HisResultDlg.h"
#include "skyframe/history/HistoryFile.h"
#include "skyframe/history/HistoryPlot.h"
#include "skyframe/hostdata/HostData.h"
#include "texts.h"

namespace skyframe {
namespace {

/// The viewer's window on the module's histories.
class CHistoryView : public IHistoryView {
 public:
  [[nodiscard]] int GetNodeCount() const override { return g_nHistoryPoints; }
  [[nodiscard]] int GetElementCount() const override { return g_history.GetElementCount(); }

  void Plot(IPaintContext& paint, const std::optional<HistorySelection>& selection) const override {
    if (selection) {
      PaintHistory(paint, g_history, ToCurve(*selection));
    } else {
      PaintHistoryFrame(paint);
    }
  }

  [[nodiscard]] bool WriteOut(const HistorySelection& selection) const override {
    return WriteCurve(g_history, ToCurve(selection), g_FilePathName);
  }

 private:
  static HistoryCurve ToCurve(const HistorySelection& selection) {
    return {selection.bElement ? c_nHistoryForce : c_nHistoryX + selection.nDirection, selection.nNumber};
  }
};

/// A host record that outlived the module may tell of histories that are no longer there.
bool HasHistory() { return COMDYN.m_bHistoryAvailable != 0 && g_history.bComplete; }

bool ReadStoredHistory() {
  HistorySet history;
  if (!ReadHistoryFile(history)) return false;
  KeepHistory(std::move(history));
  return true;
}

}  // namespace

void RunHistoryViewer() {
  if (!HasHistory() && !ReadStoredHistory()) {
    GetPlatform().ShowMessage(texts::c_strNoHistory);
    return;
  }
  const CHistoryView view;
  CHisResultDlg dialog(view);
  dialog.DoModal();
}

}  // namespace skyframe
