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

/// In UTF-8 to a file or pipe, as letters to a console. A program without standard output has nothing to write to.
void WriteToStandardOutput(std::string_view strText) {
  const HANDLE hOutput = GetStdHandle(STD_OUTPUT_HANDLE);
  DWORD nDone = 0;
  DWORD nMode = 0;
  if (GetConsoleMode(hOutput, &nMode) == FALSE) {
    WriteFile(hOutput, strText.data(), static_cast<DWORD>(strText.size()), &nDone, nullptr);
    return;
  }
  const std::wstring strWide = ToWide(strText);
  WriteConsoleW(hOutput, strWide.data(), static_cast<DWORD>(strWide.size()), &nDone, nullptr);
}

void ShowCursor(LPCWSTR pName) { SetCursor(LoadCursorW(nullptr, pName)); }

/// The ordinary cursor for the life of the object, whatever waits behind a window.
class COrdinaryCursor {
 public:
  explicit COrdinaryCursor(const IPlatform& platform) : m_bWaiting(platform.GetWaitCursorDepth() > 0) {
    if (m_bWaiting) ShowCursor(IDC_ARROW);
  }
  ~COrdinaryCursor() {
    if (m_bWaiting) ShowCursor(IDC_WAIT);
  }
  COrdinaryCursor(const COrdinaryCursor&) = delete;
  COrdinaryCursor& operator=(const COrdinaryCursor&) = delete;

 private:
  bool m_bWaiting;
};

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

CWin32Platform::CWin32Platform(HWND hHostWindow)
    : m_hHostWindow(hHostWindow), m_consoleBuffer(WriteToStandardOutput), m_strmConsole(&m_consoleBuffer) {
  INITCOMMONCONTROLSEX controls = {};
  controls.dwSize = sizeof controls;
  controls.dwICC = ICC_LISTVIEW_CLASSES | ICC_PROGRESS_CLASS | ICC_STANDARD_CLASSES;
  InitCommonControlsEx(&controls);
}

CWin32Platform::~CWin32Platform() = default;

void CWin32Platform::SetConsoleSink(ConsoleSink sink) {
  m_consoleBuffer.SetSink(sink ? std::move(sink) : ConsoleSink(WriteToStandardOutput));
}

HWND CWin32Platform::GetParentWindow() const { return m_pDialog == nullptr ? m_hHostWindow : m_pDialog->GetWindow(); }

void CWin32Platform::Settle() {
  m_pace.EndStep();
  m_pProgress.reset();
  m_strmConsole.flush();
}

void CWin32Platform::ShowMessage(std::string_view strText) {
  Settle();
  const COrdinaryCursor cursor(*this);
  MessageBoxW(GetParentWindow(), ToWide(strText).c_str(), LoadText(c_nTitleText).c_str(), MB_OK);
}

int CWin32Platform::RunModal(CDialog& dialog) {
  Settle();
  const COrdinaryCursor cursor(*this);
  const HWND hParent = GetParentWindow();
  CNativeDialog window(dialog);
  const CInnermostDialog innermost(m_pDialog, window);
  return window.Run(GetModuleDepth() > 0 ? GetModuleInstance() : GetModuleHandleW(nullptr), hParent);
}

std::ostream& CWin32Platform::GetConsole() { return m_strmConsole; }

LocalTime CWin32Platform::GetLocalTime() {
  SYSTEMTIME now = {};
  ::GetLocalTime(&now);
  return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
}

void CWin32Platform::ReportProgress(double dFraction, std::string_view strLabel) {
  const CProgressPace::Verdict verdict = m_pace.Judge(dFraction);
  if (verdict == CProgressPace::Verdict::Hide) Settle();
  if (verdict != CProgressPace::Verdict::Show) return;
  m_strmConsole.flush();
  if (m_pProgress == nullptr) m_pProgress = std::make_unique<CNativeProgress>(GetParentWindow());
  m_pProgress->Report(dFraction, strLabel);
  if (GetWaitCursorDepth() > 0) ShowCursor(IDC_WAIT);
}

void CWin32Platform::SetBusy(bool bBusy) { ShowCursor(bBusy ? IDC_WAIT : IDC_ARROW); }

void CWin32Platform::SwitchModule(bool bInside) {
  if (bInside) {
    m_pContext.reset(new (std::nothrow) CModuleContext);  // without it: the host's look
    return;
  }
  Settle();
  m_pContext.reset();
}

}  // namespace skyframe
