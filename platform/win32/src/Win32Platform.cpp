#include "skyframe/win32/Win32Platform.h"

#include <new>
#include <utility>

#include "ModuleContext.h"
#include "NativeDialog.h"
#include "NativeProgress.h"
#include "ResourceIds.h"
#include "Text.h"

namespace skyframe {

namespace {

void ShowCursor(LPCWSTR pName) { SetCursor(LoadCursorW(nullptr, pName)); }

/// What a closed window covered is painted, and no input taken.
void PaintWindows() {
  constexpr int c_nMostWindows = 1000;  // one that does not validate itself would ask for ever
  MSG message = {};
  for (int n = 0; n < c_nMostWindows && PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE) != FALSE; ++n) {
    DispatchMessageW(&message);
  }
}

/// Makes a dialog the innermost one for the life of the object, also when a handler throws.
class CInnermostDialog {
 public:
  CInnermostDialog(CNativeDialog*& pInnermost, CNativeDialog& dialog)
      : m_pInnermost(pInnermost), m_pPrevious(std::exchange(pInnermost, &dialog)) {}
  ~CInnermostDialog() { m_pInnermost = m_pPrevious; }
  CInnermostDialog(const CInnermostDialog&) = delete;
  CInnermostDialog& operator=(const CInnermostDialog&) = delete;

 private:
  CNativeDialog*& m_pInnermost;
  CNativeDialog* m_pPrevious;
};

}  // namespace

CWin32Platform::CWin32Platform(HWND hHostWindow) : m_hHostWindow(hHostWindow) {
  INITCOMMONCONTROLSEX controls = {};
  controls.dwSize = sizeof controls;
  controls.dwICC = ICC_BAR_CLASSES | ICC_LISTVIEW_CLASSES | ICC_PROGRESS_CLASS | ICC_STANDARD_CLASSES;
  InitCommonControlsEx(&controls);
}

CWin32Platform::~CWin32Platform() = default;

HWND CWin32Platform::GetParentWindow() const { return m_pDialog == nullptr ? m_hHostWindow : m_pDialog->GetWindow(); }

void CWin32Platform::ShowMessage(std::string_view strText) {
  Settle();
  const COrdinaryCursor cursor(*this);
  MessageBoxW(GetParentWindow(), ToWide(strText).c_str(), LoadText(c_nTitleText).c_str(), MB_OK);
}

int CWin32Platform::RunModal(CDialog& dialog) {
  Settle();
  const COrdinaryCursor cursor(*this);
  const HWND hParent = GetParentWindow();
  CNativeDialog window(dialog, GetTipLanguage());
  const CInnermostDialog innermost(m_pDialog, window);
  return window.Run(GetModuleDepth() > 0 ? GetModuleInstance() : GetModuleHandleW(nullptr), hParent);
}

void CWin32Platform::ShowProgress(double dFraction, std::string_view strText) {
  if (m_pProgress == nullptr) m_pProgress = std::make_unique<CNativeProgress>(GetParentWindow());
  m_pProgress->Report(dFraction, strText);
  if (GetWaitCursorDepth() > 0) ShowCursor(IDC_WAIT);
}

void CWin32Platform::HideProgress() { m_pProgress.reset(); }

void CWin32Platform::SetBusy(bool bBusy) {
  ShowCursor(bBusy ? IDC_WAIT : IDC_ARROW);
  if (bBusy) PaintWindows();
}

void CWin32Platform::SwitchModule(bool bInside) {
  CWindowPlatform::SwitchModule(bInside);
  m_pContext.reset(bInside ? new (std::nothrow) CModuleContext : nullptr);  // without one: the host's look
}

}  // namespace skyframe
