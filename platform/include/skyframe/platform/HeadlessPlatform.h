#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "skyframe/platform/Platform.h"
#include "skyframe/values/Export.h"

namespace skyframe {

class CScriptedView;
class IDialogView;
class IPaintContext;

/// One thing a person does in an open dialog.
struct SKYFRAME_API DialogStep {
  enum class Action {
    Type,         ///< replaces the text of an edit
    Tick,         ///< sets or clears a check
    Choose,       ///< clicks a radio button, or picks the item strText (or nRow) of a drop list
    ToggleRow,    ///< clicks a row of a list
    DoubleClick,  ///< double-clicks a row of a list
    Click,        ///< clicks a button
    Wait,         ///< lets nRow milliseconds pass; timers of every open dialog run
    Inspect,      ///< looks at the dialog without touching it
    Draw          ///< has the dialog's own area drawn
  };
  Action action = Action::Click;
  int nId = 0;
  std::string strText;
  int nRow = -1;
  bool bOn = true;
  std::function<void(const IDialogView&)> look;
  IPaintContext* pPaint = nullptr;

  static DialogStep Type(int nId, std::string strText);
  static DialogStep Tick(int nId, bool bOn = true);
  static DialogStep Choose(int nRadioId);
  static DialogStep ChooseItem(int nListId, int nRow);
  static DialogStep ChooseItem(int nListId, std::string strText);
  static DialogStep ToggleRow(int nListId, int nRow);
  static DialogStep ToggleRow(int nListId, std::string strText);
  static DialogStep DoubleClick(int nListId, int nRow);
  static DialogStep Click(int nButtonId);
  static DialogStep Ok();
  static DialogStep Cancel();
  static DialogStep Wait(int nMilliseconds);
  static DialogStep Inspect(std::function<void(const IDialogView&)> look);
  static DialogStep Draw(IPaintContext& paint);
};

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
  void SetBusy(bool bBusy) override;

 private:
  void RunScript(CScriptedView& view, const std::vector<DialogStep>& steps);

  std::ostream& m_strmMessages;
  std::ostream& m_strmConsole;
  std::map<int, std::deque<std::vector<DialogStep>>> m_scripts;
  std::vector<std::string> m_messages;
  std::vector<std::string> m_scriptErrors;
  std::deque<LocalTime> m_clock;
  std::optional<double> m_physicalMemory;
  CScriptedView* m_pTopView = nullptr;  ///< innermost open dialog; null when none is open
  int m_nWaitCursorCount = 0;
};

}  // namespace skyframe
