#include "NativeProgress.h"

#include <algorithm>

#include "ModuleContext.h"
#include "ResourceIds.h"
#include "Text.h"

namespace skyframe {

namespace {

constexpr int c_nSteps = 1000;  // of the bar
constexpr DWORD c_nStyle = WS_POPUP | WS_CAPTION | DS_MODALFRAME;
// Dialog units.
constexpr DialogRect c_window = {0, 0, 204, 40};
constexpr DialogRect c_label = {7, 7, 190, 10};
constexpr DialogRect c_bar = {7, 21, 190, 12};

HWND MakeChild(HWND hParent, const wchar_t* pClass, const DialogRect& rect, HFONT hFont) {
  const HWND hChild = CreateWindowExW(0, pClass, L"", WS_CHILD | WS_VISIBLE, rect.nX, rect.nY, rect.nWidth,
                                      rect.nHeight, hParent, nullptr, GetModuleInstance(), nullptr);
  SendMessageW(hChild, WM_SETFONT, reinterpret_cast<WPARAM>(hFont), FALSE);
  return hChild;
}

}  // namespace

CNativeProgress::CNativeProgress(HWND hOwner)
    : m_hOwner(GetAncestor(hOwner, GA_ROOT)),
      m_bOwnerEnabled(m_hOwner != nullptr && IsWindowEnabled(m_hOwner) != FALSE),
      m_hFocus(GetFocus()),
      m_window(CreateWindowExW(WS_EX_DLGMODALFRAME, WC_DIALOG, LoadText(c_nBusyText).c_str(), c_nStyle, 0, 0, 0, 0,
                               m_hOwner, nullptr, GetModuleInstance(), nullptr)) {
  Show(static_cast<int>(GetDpiForWindow(m_window.get())));
  SetFocus(nullptr);  // a child of a disabled window would go on taking keys
  if (m_bOwnerEnabled) EnableWindow(m_hOwner, FALSE);
}

CNativeProgress::~CNativeProgress() {
  if (m_bOwnerEnabled) EnableWindow(m_hOwner, TRUE);  // first: else another program's window comes to the front
  m_window.reset();
  if (m_hFocus != nullptr) SetFocus(m_hFocus);
}

void CNativeProgress::Show(int nDpi) {
  m_font = MakeDialogFont(nDpi);
  const CDialogUnits units = MeasureUnits(m_font.get());
  m_hLabel = MakeChild(m_window.get(), WC_STATICW, units.ToPixels(c_label), m_font.get());
  m_hBar = MakeChild(m_window.get(), PROGRESS_CLASSW, units.ToPixels(c_bar), m_font.get());
  SendMessageW(m_hBar, PBM_SETRANGE32, 0, c_nSteps);
  const DialogRect client = units.ToPixels(c_window);
  RECT frame = {0, 0, client.nWidth, client.nHeight};
  AdjustWindowRectExForDpi(&frame, c_nStyle, FALSE, WS_EX_DLGMODALFRAME, static_cast<UINT>(nDpi));
  RECT around = {};
  GetWindowRect(m_hOwner == nullptr ? GetDesktopWindow() : m_hOwner, &around);
  const LONG nWidth = frame.right - frame.left;
  const LONG nHeight = frame.bottom - frame.top;
  SetWindowPos(m_window.get(), HWND_TOP, static_cast<int>((around.left + around.right - nWidth) / 2),
               static_cast<int>((around.top + around.bottom - nHeight) / 2), static_cast<int>(nWidth),
               static_cast<int>(nHeight), SWP_SHOWWINDOW | SWP_NOACTIVATE);
}

void CNativeProgress::Report(double dFraction, std::string_view strLabel) {
  SetWindowTextW(m_hLabel, ToWide(strLabel).c_str());
  SendMessageW(m_hBar, PBM_SETPOS, static_cast<WPARAM>(std::clamp(dFraction, 0.0, 1.0) * c_nSteps), 0);
  MSG message = {};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    if (message.message == WM_QUIT) return PostQuitMessage(static_cast<int>(message.wParam));  // for the host's loop
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace skyframe
