#include "TipWindow.h"

#include "ModuleContext.h"

namespace skyframe {

namespace {

constexpr LPARAM c_nLongest = 32767;  // ms that a tip stays

}  // namespace

CTipWindow::CTipWindow(HWND hDialog, HFONT hFont, int nWidth)
    : m_hDialog(hDialog),
      m_window(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, L"", WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                               CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, hDialog, nullptr,
                               GetModuleInstance(), nullptr)) {
  SendMessageW(m_window.get(), WM_SETFONT, reinterpret_cast<WPARAM>(hFont), FALSE);
  SendMessageW(m_window.get(), TTM_SETMAXTIPWIDTH, 0, nWidth);
  SendMessageW(m_window.get(), TTM_SETDELAYTIME, TTDT_AUTOPOP, c_nLongest);
}

void CTipWindow::Add(HWND hControl, const std::wstring& strText) {
  std::wstring strTip = strText;
  TTTOOLINFOW tool = {};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.hwnd = m_hDialog;
  tool.lpszText = strTip.data();
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.uId = reinterpret_cast<UINT_PTR>(hControl);
  SendMessageW(m_window.get(), TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  // The mouse over a disabled control is the dialog's.
  tool.uFlags = TTF_SUBCLASS;
  tool.uId = static_cast<UINT_PTR>(GetDlgCtrlID(hControl));
  GetWindowRect(hControl, &tool.rect);
  MapWindowPoints(nullptr, m_hDialog, reinterpret_cast<POINT*>(&tool.rect), 2);
  SendMessageW(m_window.get(), TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace skyframe
