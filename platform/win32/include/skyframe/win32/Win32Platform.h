#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string_view>

#include "skyframe/platform/ConsoleBuffer.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/platform/ProgressPace.h"

struct HWND__;  // NOLINT(bugprone-reserved-identifier): the system's name for what a HWND points to

namespace skyframe {

class CModuleContext;
class CNativeDialog;
class CNativeProgress;

/// Runs the module with native windows, on Windows 10 (1607) and later. Used on the thread that owns the host's window.
/// Messages and dialogs stand on the innermost open dialog, else on the host's window.
/// No analysis can be cancelled: a step that takes long shows its progress in a window without buttons, and the
/// windows behind it take neither mouse nor keyboard until the step is over.
class SKYFRAME_API CWin32Platform : public IPlatform {
 public:
  /// Gets pieces of the console text in UTF-8, each whole lines except when the module flushes within one.
  using ConsoleSink = std::function<void(std::string_view)>;

  /// hHostWindow may be null; else it must outlive the object.
  explicit CWin32Platform(HWND__* hHostWindow = nullptr);
  ~CWin32Platform() override;
  CWin32Platform(const CWin32Platform&) = delete;
  CWin32Platform& operator=(const CWin32Platform&) = delete;

  /// Without a sink the console text goes to standard output, if the program has one.
  void SetConsoleSink(ConsoleSink sink);
  /// A step shows its progress from the first report after this time on.
  void SetProgressDelay(std::chrono::milliseconds delay) { m_pace.SetDelay(delay); }

  void ShowMessage(std::string_view strText) override;
  /// The dialog's resource is that of the module during a call into it, else that of the host's program.
  /// Failure: std::runtime_error when there is none with the dialog's identifier.
  int RunModal(CDialog& dialog) override;
  std::ostream& GetConsole() override;
  LocalTime GetLocalTime() override;
  void ReportProgress(double dFraction, std::string_view strLabel) override;

 protected:
  void SetBusy(bool bBusy) override;
  /// Inside, dialogs are the module's own, in its visual style and at the scale of each monitor.
  /// Leaving: nothing of the call stays on the screen, and its console text is out.
  void SwitchModule(bool bInside) override;

 private:
  [[nodiscard]] HWND__* GetParentWindow() const;
  /// Before a window of the call opens: no progress over it, and the console text is out.
  void Settle();

  HWND__* m_hHostWindow;
  CNativeDialog* m_pDialog = nullptr;  ///< innermost open one
  CConsoleBuffer m_consoleBuffer;
  std::ostream m_strmConsole;
  std::unique_ptr<CNativeProgress> m_pProgress;  ///< null while none is shown
  std::unique_ptr<CModuleContext> m_pContext;    ///< null outside a call
  CProgressPace m_pace;
};

}  // namespace skyframe
