#pragma once

#include <map>
#include <optional>
#include <vector>

#include "skyframe/job/DialogFields.h"
#include "skyframe/run/HostPlatform.h"

namespace skyframe::host {

/// Scripted dialogs, of which windows show the progress and the wait cursor.
class CWindowedPlatform : public CHostPlatform {
 public:
  /// The windows must outlive the object.
  CWindowedPlatform(IPlatform& windows, std::ostream& strmMessages, std::ostream& strmConsole)
      : CHostPlatform(strmMessages, strmConsole), m_windows(windows) {}

  void ReportProgress(double dFraction, std::string_view strLabel) override {
    m_windows.ReportProgress(dFraction, strLabel);
  }

 protected:
  void SetBusy(bool bBusy) override { bBusy ? m_windows.BeginWaitCursor() : m_windows.EndWaitCursor(); }
  void SwitchModule(bool bInside) override { bInside ? m_windows.EnterModule() : m_windows.LeaveModule(); }
  [[nodiscard]] IPlatform& GetWindows() const { return m_windows; }

 private:
  IPlatform& m_windows;
};

/// Windows whose dialogs open with what the scripts fill in, all but the closing button; a person does the rest. Only
/// the console text does not go to the windows.
/// A dialog that a script opens is run unseen, so that the dialog below has its values; when the person opens it again
/// it is filled in again. Serves one run.
class CPrefillPlatform : public CWindowedPlatform {
 public:
  /// The windows must outlive the object.
  CPrefillPlatform(IPlatform& windows, std::ostream& strmConsole)
      : CWindowedPlatform(windows, strmConsole, strmConsole) {}

  /// What the person confirmed; nothing when there was no parameter dialog among it.
  [[nodiscard]] std::optional<JobAnalysis> GetConfirmed() const { return m_recorder.GetAnalysis(); }

  void ShowMessage(std::string_view strText) override { GetWindows().ShowMessage(strText); }
  void ShowNotice(std::string_view strText) override { GetWindows().ShowNotice(strText); }
  int RunModal(CDialog& dialog) override;
  void DialogOpened(CDialog& dialog, IDialogView& view) override;
  void DialogAccepted(const DialogTemplate& layout, const IDialogView& view) override;

 private:
  [[nodiscard]] const Steps& GetScript(int nDialogId);
  void Prefill(CDialog& dialog, IDialogView& view);

  std::map<int, Steps> m_scripts;       ///< by dialog, those that have served
  const CDialog* m_pAwaited = nullptr;  ///< on its way into a window
  bool m_bPrefilling = false;
  CDialogRecorder m_recorder;
};

}  // namespace skyframe::host
