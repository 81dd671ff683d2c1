#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "skyframe/platform/DialogStep.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/values/Export.h"

namespace skyframe {

class CScriptedView;

/// Runs the module without a window system: dialogs follow scripts, messages are recorded.
/// A script serves one opening of the dialog with its identifier; a button that opens another
/// dialog takes that dialog's next script. A dialog without a script is cancelled, and so is one
/// whose steps end while it is still open. A step that a person could not do (control missing,
/// disabled, row not there) is reported by GetScriptErrors and ends the dialog with Cancel; steps
/// left over when the dialog has ended are reported too.
class SKYFRAME_API CHeadlessPlatform : public IPlatform {
 public:
  /// Messages are also written to strmMessages, the console goes to strmConsole.
  CHeadlessPlatform(std::ostream& strmMessages, std::ostream& strmConsole);
  CHeadlessPlatform(const CHeadlessPlatform&) = delete;
  CHeadlessPlatform& operator=(const CHeadlessPlatform&) = delete;

  void AddScript(int nDialogId, std::vector<DialogStep> steps);
  [[nodiscard]] bool HasUnusedScripts() const;

  [[nodiscard]] const std::vector<std::string>& GetMessages() const { return m_messages; }
  [[nodiscard]] const std::vector<std::string>& GetScriptErrors() const { return m_scriptErrors; }
  /// Times the wait cursor was shown since the start or Clear.
  [[nodiscard]] int GetWaitCursorCount() const { return m_nWaitCursorCount; }
  /// Forgets messages, script errors, unused scripts and the wait-cursor count.
  void Clear();

  /// Times handed out by GetLocalTime, first to last; the last one stays. Empty: the system clock.
  void SetClock(std::vector<LocalTime> times);
  /// Told by GetPhysicalMemory from now on instead of the machine's own.
  void SetPhysicalMemory(double dBytes) { m_physicalMemory = dBytes; }

  void ShowMessage(std::string_view strText) override;
  int RunModal(CDialog& dialog) override;
  std::ostream& GetConsole() override;
  LocalTime GetLocalTime() override;
  double GetPhysicalMemory() override { return m_physicalMemory.value_or(IPlatform::GetPhysicalMemory()); }

 protected:
  using Steps = std::vector<DialogStep>;
  /// Empty when the step could be done, else the reason why not.
  using Performer = std::function<std::string_view(const DialogStep&)>;

  void SetBusy(bool bBusy) override;

  /// The dialog's next script, which is used up; empty without one.
  [[nodiscard]] Steps TakeScript(int nDialogId);
  /// Opens the dialog on a scripted view, which follows the steps; c_nIdOk or c_nIdCancel.
  int RunScripted(CDialog& dialog, const Steps& steps);
  /// Follows the steps in an open dialog up to the first that cannot be done, which is reported.
  void Follow(const CDialog& dialog, const Steps& steps, const Performer& perform);

 private:
  std::ostream& m_strmMessages;
  std::ostream& m_strmConsole;
  std::map<int, std::deque<Steps>> m_scripts;
  std::vector<std::string> m_messages;
  std::vector<std::string> m_scriptErrors;
  std::deque<LocalTime> m_clock;
  std::optional<double> m_physicalMemory;
  CScriptedView* m_pTopView = nullptr;  ///< innermost open dialog; null when none is open
  int m_nWaitCursorCount = 0;
};

}  // namespace skyframe
