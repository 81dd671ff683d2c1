#pragma once

#include <memory>
#include <string_view>

#include "skyframe/platform/WindowPlatform.h"

struct HWND__;  // NOLINT(bugprone-reserved-identifier): the system's name for what a HWND points to

namespace skyframe {

class CModuleContext;
class CNativeDialog;
class CNativeProgress;

/// Runs the module with native windows, on Windows 10 (1607) and later. Used on the thread that owns the host's window.
/// Messages and dialogs stand on the innermost open dialog, else on the host's window.
/// The windows behind that of the progress take neither mouse nor keyboard.
class SKYFRAME_API CWin32Platform : public CWindowPlatform {
 public:
  /// hHostWindow may be null; else it must outlive the object.
  explicit CWin32Platform(HWND__* hHostWindow = nullptr);
  ~CWin32Platform() override;
  CWin32Platform(const CWin32Platform&) = delete;
  CWin32Platform& operator=(const CWin32Platform&) = delete;

  void ShowMessage(std::string_view strText) override;
  /// The dialog's resource is that of the module during a call into it, else that of the host's program.
  /// Failure: std::runtime_error when there is none with the dialog's identifier.
  int RunModal(CDialog& dialog) override;

 protected:
  void ShowProgress(double dFraction, std::string_view strText) override;
  void HideProgress() override;
  void SetBusy(bool bBusy) override;
  /// Inside, dialogs are the module's own, in its visual style and at the scale of each monitor.
  void SwitchModule(bool bInside) override;

 private:
  [[nodiscard]] HWND__* GetParentWindow() const;

  HWND__* m_hHostWindow;
  CNativeDialog* m_pDialog = nullptr;            ///< innermost open one
  std::unique_ptr<CNativeProgress> m_pProgress;  ///< null while none is shown
  std::unique_ptr<CModuleContext> m_pContext;    ///< null outside a call
};

}  // namespace skyframe
