#include "NativePerson.h"

#include <algorithm>
#include <utility>

#include "Text.h"

namespace skyframe::test {

namespace {

using Action = DialogStep::Action;

constexpr UINT c_nPeriod = 10;  // ms between two looks; the timer waits until what was posted is worked off

CNativePerson* g_pWatching = nullptr;

bool IsOfClass(HWND hWindow, const wchar_t* pClass) {
  wchar_t name[64] = {};
  GetClassNameW(hWindow, name, 64);
  return lstrcmpiW(name, pClass) == 0;
}

/// The dialog or message box that takes what a person does; null while there is none.
HWND FindTop() {
  const HWND hActive = GetActiveWindow();
  const bool bReady = hActive != nullptr && IsWindowVisible(hActive) != FALSE && IsWindowEnabled(hActive) != FALSE;
  return bReady && IsOfClass(hActive, L"#32770") ? hActive : nullptr;
}

void PressKey(HWND hWindow, WPARAM nKey) {
  PostMessageW(hWindow, WM_KEYDOWN, nKey, 1);
  PostMessageW(hWindow, WM_KEYUP, nKey, static_cast<LPARAM>(0xC0000001));
}

void Click(HWND hWindow, POINT at, bool bTwice = false) {
  const LPARAM nPlace = MAKELPARAM(at.x, at.y);
  PostMessageW(hWindow, WM_LBUTTONDOWN, MK_LBUTTON, nPlace);
  PostMessageW(hWindow, WM_LBUTTONUP, 0, nPlace);
  if (!bTwice) return;
  PostMessageW(hWindow, WM_LBUTTONDBLCLK, MK_LBUTTON, nPlace);
  PostMessageW(hWindow, WM_LBUTTONUP, 0, nPlace);
}

POINT GetMiddle(const RECT& rect) { return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2}; }

/// Radio buttons and checks on their mark, others in the middle.
void ClickControl(HWND hControl, ControlKind kind) {
  RECT client = {};
  GetClientRect(hControl, &client);
  const bool bMark = kind == ControlKind::Radio || kind == ControlKind::Check;
  Click(hControl, bMark ? POINT{8, client.bottom / 2} : GetMiddle(client));
}

/// Types as a person does: click, select all, type; an empty text deletes.
void TypeInto(HWND hEdit, const std::string& strText) {
  ClickControl(hEdit, ControlKind::Edit);
  PostMessageW(hEdit, EM_SETSEL, 0, -1);
  if (strText.empty()) return PressKey(hEdit, VK_DELETE);
  for (const wchar_t c : ToWide(strText)) PostMessageW(hEdit, WM_CHAR, c, 1);
}

/// Walks to the item by the keys.
void PickItem(HWND hCombo, int nRow) {
  ::SetFocus(hCombo);
  PressKey(hCombo, VK_HOME);
  for (int i = 0; i < nRow; ++i) PressKey(hCombo, VK_DOWN);
}

void ClickRow(HWND hList, ControlKind kind, int nRow, bool bTwice) {
  RECT row = {};
  if (kind == ControlKind::ListView) {
    row.left = LVIR_BOUNDS;
    SendMessageW(hList, LVM_GETITEMRECT, static_cast<WPARAM>(nRow), reinterpret_cast<LPARAM>(&row));
    row.right = row.left + 40;  // on the text of the first column
  } else {
    SendMessageW(hList, LB_SETTOPINDEX, static_cast<WPARAM>(nRow), 0);
    SendMessageW(hList, LB_GETITEMRECT, static_cast<WPARAM>(nRow), reinterpret_cast<LPARAM>(&row));
  }
  Click(hList, GetMiddle(row), bTwice);
}

/// The longest text within a message box.
std::string ReadMessage(HWND hBox) {
  std::wstring strText;
  for (HWND hChild = ::GetWindow(hBox, GW_CHILD); hChild != nullptr; hChild = ::GetWindow(hChild, GW_HWNDNEXT)) {
    const std::wstring strChild = IsOfClass(hChild, L"STATIC") ? ReadText(hChild) : L"";
    if (strChild.size() > strText.size()) strText = strChild;
  }
  return ToUtf8(strText);
}

}  // namespace

std::unique_ptr<IPerson> MakePerson() { return std::make_unique<CNativePerson>(); }

CNativePerson::CNativePerson() : m_pPrevious(InstallPlatform(&m_platform)) {}

CNativePerson::~CNativePerson() { InstallPlatform(m_pPrevious); }

void CNativePerson::Watch(const std::function<void()>& action) {
  g_pWatching = this;
  const UINT_PTR nTimer = SetTimer(nullptr, 0, c_nPeriod, OnTimer);
  action();
  KillTimer(nullptr, nTimer);
  g_pWatching = nullptr;
}

void CALLBACK CNativePerson::OnTimer(HWND /*hWindow*/, UINT /*nMessage*/, UINT_PTR /*nTimer*/, DWORD /*nTime*/) {
  if (g_pWatching != nullptr) g_pWatching->Look();
}

void CNativePerson::Press(Key key) {
  static const std::map<Key, WPARAM> s_keys = {
      {Key::Return, VK_RETURN}, {Key::Enter, VK_RETURN}, {Key::Escape, VK_ESCAPE}, {Key::Tab, VK_TAB}, {Key::Up, VK_UP},
      {Key::Down, VK_DOWN},     {Key::Left, VK_LEFT},    {Key::Right, VK_RIGHT},   {Key::Seven, '7'}};
  const HWND hTop = FindTop();
  if (key == Key::CloseFrame) {
    PostMessageW(hTop, WM_SYSCOMMAND, SC_CLOSE, 0);
    return;
  }
  PressKey(::GetFocus() == nullptr ? hTop : ::GetFocus(), s_keys.at(key));
}

std::string CNativePerson::ReadTip(int nControl) const {
  const HWND hTop = FindTop();
  HWND hTips = nullptr;
  do hTips = FindWindowExW(nullptr, hTips, TOOLTIPS_CLASSW, nullptr);
  while (hTips != nullptr && ::GetWindow(hTips, GW_OWNER) != hTop);
  std::wstring strTip(500, L'\0');
  TTTOOLINFOW tool = {};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.hwnd = hTop;
  tool.uId = reinterpret_cast<UINT_PTR>(CNativeDialog::FromWindow(hTop)->FindControl(nControl));
  tool.lpszText = strTip.data();
  SendMessageW(hTips, TTM_GETTEXTW, strTip.size(), reinterpret_cast<LPARAM>(&tool));
  return ToUtf8(strTip.c_str());
}

void CNativePerson::Look() {
  const HWND hTop = FindTop();
  if (hTop == nullptr || hTop == m_hAcknowledged) return;
  CNativeDialog* const pDialog = CNativeDialog::FromWindow(hTop);
  pDialog == nullptr ? Acknowledge(hTop) : WorkOn(*pDialog);
}

void CNativePerson::Acknowledge(HWND hBox) {
  m_hAcknowledged = hBox;
  m_messages.push_back(ReadMessage(hBox));
  int nButtons = 0;
  for (HWND hChild = ::GetWindow(hBox, GW_CHILD); hChild != nullptr; hChild = ::GetWindow(hChild, GW_HWNDNEXT)) {
    if (!IsOfClass(hChild, L"BUTTON") || IsWindowVisible(hChild) == FALSE) continue;
    ++nButtons;
    ClickControl(hChild, ControlKind::Button);
  }
  if (nButtons != 1) m_errors.emplace_back("a message box with more than one button");
}

void CNativePerson::WorkOn(CNativeDialog& window) {
  const HWND hWindow = window.GetWindow();
  if (!m_open.contains(hWindow)) {
    std::erase_if(m_open, [](const auto& entry) { return IsWindow(entry.first) == FALSE; });
    m_open[hWindow].steps = TakeScript(window.GetDialog().GetTemplate().nId);
  }
  Work& work = m_open[hWindow];
  if (std::chrono::steady_clock::now() < work.wakeUp) return;
  if (work.nNext == work.steps.size()) return PressKey(hWindow, VK_ESCAPE);
  const DialogStep step = work.steps[work.nNext++];
  if (step.action == Action::Wait) {
    work.wakeUp = std::chrono::steady_clock::now() + std::chrono::milliseconds(step.nRow);
    return;
  }
  if (const std::string strReason = WhyNot(window, step); !strReason.empty()) {
    Report(window.GetDialog().GetTemplate().nId, work.nNext, step.nId, strReason);
    work.nNext = work.steps.size();
    return;
  }
  Perform(window, step);
}

std::string CNativePerson::WhyNot(const CNativeDialog& window, const DialogStep& step) {
  if (step.action == Action::Inspect) return {};
  const HWND hControl = window.FindControl(step.nId);
  if (hControl == nullptr) return "there is no such control";
  if (IsWindowEnabled(hControl) == FALSE) return "the control is disabled";
  if (IsWindowVisible(hControl) == FALSE) return "the control cannot be seen";
  const ControlKind kind = window.GetDialog().GetTemplate().Find(step.nId)->kind;
  const bool bRows = kind == ControlKind::DropList || kind == ControlKind::ListBox || kind == ControlKind::ListView;
  return bRows && FindRow(window, step) == -1 ? "there is no such row" : std::string{};
}

void CNativePerson::Perform(CNativeDialog& window, const DialogStep& step) {
  if (step.action == Action::Inspect) return step.look(window);
  const HWND hControl = window.FindControl(step.nId);
  const ControlKind kind = window.GetDialog().GetTemplate().Find(step.nId)->kind;
  if (step.action == Action::Type) return TypeInto(hControl, step.strText);
  if (kind == ControlKind::DropList) return PickItem(hControl, FindRow(window, step));
  if (kind == ControlKind::ListBox || kind == ControlKind::ListView) {
    return ClickRow(hControl, kind, FindRow(window, step), step.action == Action::DoubleClick);
  }
  if (step.action == Action::Tick && window.GetCheck(step.nId) == step.bOn) return window.SetFocus(step.nId);
  ClickControl(hControl, kind);
}

}  // namespace skyframe::test
