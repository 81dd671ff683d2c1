#include "NativeDialog.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>
#include <utility>

#include "GdiPaintContext.h"
#include "ListControl.h"
#include "Text.h"
#include "skyframe/platform/DialogRules.h"

namespace skyframe {

namespace {

constexpr int c_nDropRows = 8;    // of an opened drop list
constexpr int c_nTipWidth = 320;  // pixels of an unscaled screen

/// From its version 1703 on the system lays out dialogs itself when they come to another screen, unless told not to.
void KeepSystemFromScaling(HWND hDialog) {
  constexpr int c_nEverything = 7;
  const FARPROC pFunction = GetProcAddress(GetModuleHandleW(L"user32.dll"), "SetDialogDpiChangeBehavior");
  if (pFunction == nullptr) return;
  const auto pSetBehavior = reinterpret_cast<BOOL(WINAPI*)(HWND, int, int)>(reinterpret_cast<void*>(pFunction));
  pSetBehavior(hDialog, c_nEverything, c_nEverything);
}

bool HasCaption(ControlKind kind) {
  return kind == ControlKind::Radio || kind == ControlKind::Check || kind == ControlKind::Button ||
         kind == ControlKind::DefaultButton;
}

bool CanCheck(ControlKind kind) { return kind == ControlKind::Radio || kind == ControlKind::Check; }

bool HasText(ControlKind kind) { return FindList(kind) == nullptr; }

void AddColumns(HWND hList, std::span<const std::string_view> titles) {
  for (int nColumn = 0; const std::string_view strTitle : titles) {
    std::wstring strWide = ToWide(strTitle);
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_SUBITEM;
    column.pszText = strWide.data();
    column.iSubItem = nColumn;
    SendMessageW(hList, LVM_INSERTCOLUMNW, static_cast<WPARAM>(nColumn), reinterpret_cast<LPARAM>(&column));
    ++nColumn;
  }
  SendMessageW(hList, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
}

/// All columns share the width.
void ShareColumns(HWND hList, std::size_t nColumns) {
  RECT client = {};
  GetClientRect(hList, &client);
  const int nWidth = static_cast<int>(client.right) / static_cast<int>(std::max<std::size_t>(nColumns, 1));
  for (std::size_t i = 0; i < nColumns; ++i) SendMessageW(hList, LVM_SETCOLUMNWIDTH, i, nWidth);
}

/// The closed part of a drop list gets the height of the rectangle, the open one room for some rows.
void SetDropHeights(HWND hList, const DialogRect& rect) {
  RECT window = {};
  GetWindowRect(hList, &window);
  const LRESULT nClosed = SendMessageW(hList, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0);
  const LRESULT nFrame = window.bottom - window.top - nClosed;
  SendMessageW(hList, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), rect.nHeight - nFrame);
  const LRESULT nRow = SendMessageW(hList, CB_GETITEMHEIGHT, 0, 0);
  MoveWindow(hList, rect.nX, rect.nY, rect.nWidth, rect.nHeight + static_cast<int>(nRow) * c_nDropRows, TRUE);
}

}  // namespace

int CNativeDialog::Run(HINSTANCE hResources, HWND hParent) {
  const int nId = m_dialog.GetTemplate().nId;
  const INT_PTR nEnd =
      DialogBoxParamW(hResources, MAKEINTRESOURCEW(nId), hParent, Process, reinterpret_cast<LPARAM>(this));
  if (m_bGone) m_dialog.Close();  // not before: a handler may have been at work
  if (m_failure) std::rethrow_exception(m_failure);
  if (m_bGone) return c_nIdCancel;
  if (nEnd <= 0 && m_hWindow == nullptr) throw std::runtime_error("no dialog resource " + std::to_string(nId));
  return m_dialog.GetResult();
}

CNativeDialog* CNativeDialog::FromWindow(HWND hWindow) {
  if (GetWindowLongPtrW(hWindow, DWLP_DLGPROC) != reinterpret_cast<LONG_PTR>(&Process)) return nullptr;
  return reinterpret_cast<CNativeDialog*>(GetWindowLongPtrW(hWindow, DWLP_USER));
}

INT_PTR CALLBACK CNativeDialog::Process(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam) {
  if (nMessage == WM_INITDIALOG) {
    SetWindowLongPtrW(hWindow, DWLP_USER, lParam);
    reinterpret_cast<CNativeDialog*>(lParam)->m_hWindow = hWindow;
  }
  CNativeDialog* const pDialog = FromWindow(hWindow);
  return pDialog != nullptr && pDialog->Handle(nMessage, wParam, lParam) ? TRUE : FALSE;
}

bool CNativeDialog::Handle(UINT nMessage, WPARAM wParam, LPARAM lParam) {
  switch (nMessage) {
    case WM_INITDIALOG:
      Guard([this] { Initialise(); });
      return false;  // the focus is set
    case WM_COMMAND:
      HandleCommand(static_cast<short>(LOWORD(wParam)), HIWORD(wParam));
      return true;
    case WM_NOTIFY:
      HandleNotice(*reinterpret_cast<const NMHDR*>(lParam));
      return false;
    case WM_TIMER:
      Guard([this, wParam] { m_dialog.Tick(static_cast<int>(wParam)); });
      return true;
    case WM_PAINT:
      Guard([this] { PaintArea(); });
      return true;
    case WM_DPICHANGED:
      Guard([this, wParam, lParam] { MoveToScreen(HIWORD(wParam), *reinterpret_cast<const RECT*>(lParam)); });
      return true;
    case WM_DESTROY:
      m_bGone = std::exchange(m_bOpen, false);  // by another than the dialog
      return false;
    default:
      return false;
  }
}

void CNativeDialog::Initialise() {
  KeepSystemFromScaling(m_hWindow);
  TakeControls();
  m_bOpen = true;
  m_dialog.Open(*this);
  LayOut(static_cast<int>(GetDpiForWindow(m_hWindow)));
  Centre();
  if (GetFocus() == -1) SetFocus(FindFirstFocus(m_dialog.GetTemplate(), *this));
}

void CNativeDialog::TakeControls() {
  HWND hChild = ::GetWindow(m_hWindow, GW_CHILD);
  for (const ControlTemplate& control : m_dialog.GetTemplate().controls) {
    m_controls.push_back({&control, hChild});  // the resource has the controls of the template, in its order
    // Else one that gets the focus unchecked tells of a click.
    if (control.kind == ControlKind::Radio) SendMessageW(hChild, BM_SETDONTCLICK, TRUE, 0);
    FillList(m_controls.back());
    hChild = ::GetWindow(hChild, GW_HWNDNEXT);
  }
}

void CNativeDialog::FillList(const Control& control) {
  const ControlTemplate& layout = *control.pTemplate;
  if (layout.kind == ControlKind::ListView) return AddColumns(control.hWindow, layout.items);
  const INativeList* const pList = FindList(layout.kind);
  if (pList == nullptr) return;
  for (const std::string_view strItem : layout.items) {
    pList->Insert(control.hWindow, pList->GetCount(control.hWindow), ToWide(strItem));
  }
}

void CNativeDialog::LayOut(int nDpi) {
  FontHandle font = MakeDialogFont(nDpi);
  const CDialogUnits units = MeasureUnits(font.get());
  m_dScale = static_cast<double>(nDpi) / c_nPlainDpi;
  for (const Control& control : m_controls) {
    const ControlTemplate& layout = *control.pTemplate;
    const DialogRect rect = units.ToPixels(layout.rect);
    SendMessageW(control.hWindow, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
    MoveWindow(control.hWindow, rect.nX, rect.nY, rect.nWidth, rect.nHeight, TRUE);
    if (layout.kind == ControlKind::DropList) SetDropHeights(control.hWindow, rect);
    if (layout.kind == ControlKind::ListView) ShareColumns(control.hWindow, layout.items.size());
  }
  m_pTipWindow.reset();  // it has the font
  m_font = std::move(font);
  AddTips();
  const PaintPoint painted = MeasurePainting(m_dialog);
  m_painted = {std::lround(painted.dX * m_dScale), std::lround(painted.dY * m_dScale)};
  const SIZE client = MeasureClient(units);
  RECT frame = {0, 0, client.cx, client.cy};
  AdjustWindowRectExForDpi(&frame, static_cast<DWORD>(GetWindowLongPtrW(m_hWindow, GWL_STYLE)), FALSE,
                           static_cast<DWORD>(GetWindowLongPtrW(m_hWindow, GWL_EXSTYLE)), static_cast<UINT>(nDpi));
  SetWindowPos(m_hWindow, nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CNativeDialog::AddTips() {
  const int nWidth = static_cast<int>(std::lround(c_nTipWidth * m_dScale));
  m_pTipWindow = std::make_unique<CTipWindow>(m_hWindow, m_font.get(), nWidth);
  for (const Control& control : m_controls) {
    const std::string_view strTip = m_dialog.GetTemplate().GetTip(control.pTemplate->nId, m_tips);
    if (!strTip.empty()) m_pTipWindow->Add(control.hWindow, ToWide(strTip));
  }
}

void CNativeDialog::MoveToScreen(int nDpi, const RECT& place) {
  SetWindowPos(m_hWindow, nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  LayOut(nDpi);
}

SIZE CNativeDialog::MeasureClient(const CDialogUnits& units) const {
  const DialogTemplate& layout = m_dialog.GetTemplate();
  const DialogRect area = units.ToPixels({0, 0, layout.nWidth, layout.nHeight});
  if (m_painted.cx == 0) return {area.nWidth, area.nHeight};
  LONG nRight = m_painted.cx;
  LONG nBottom = m_painted.cy;
  for (const ControlTemplate& control : layout.controls) {
    const DialogRect rect = units.ToPixels(control.rect);
    nRight = std::max<LONG>(nRight, rect.nX + rect.nWidth);
    nBottom = std::max<LONG>(nBottom, rect.nY + rect.nHeight);
  }
  const DialogRect margin = units.ToPixels({0, 0, c_nPaintMargin, c_nPaintMargin});
  return {nRight + margin.nWidth, nBottom + margin.nHeight};
}

void CNativeDialog::Centre() const {
  RECT window = {};
  GetWindowRect(m_hWindow, &window);
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof monitor;
  const HWND hOwner = ::GetWindow(m_hWindow, GW_OWNER);
  GetMonitorInfoW(MonitorFromWindow(hOwner == nullptr ? m_hWindow : hOwner, MONITOR_DEFAULTTONEAREST), &monitor);
  RECT around = monitor.rcWork;
  if (hOwner != nullptr) GetWindowRect(hOwner, &around);
  const auto place = [](LONG nBegin, LONG nEnd, LONG nSize, LONG nLeast, LONG nMost) {
    return static_cast<int>(std::max(nLeast, std::min((nBegin + nEnd - nSize) / 2, nMost - nSize)));
  };
  const RECT& work = monitor.rcWork;
  SetWindowPos(m_hWindow, nullptr, place(around.left, around.right, window.right - window.left, work.left, work.right),
               place(around.top, around.bottom, window.bottom - window.top, work.top, work.bottom), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CNativeDialog::PaintArea() {
  PAINTSTRUCT paint = {};
  const HDC hWindowDc = BeginPaint(m_hWindow, &paint);
  const HDC hDc = CreateCompatibleDC(hWindowDc);  // drawn apart, then shown at once
  const int nWidth = m_painted.cx + 1, nHeight = m_painted.cy + 1;
  const std::unique_ptr<void, GdiDeleter> bitmap(CreateCompatibleBitmap(hWindowDc, nWidth, nHeight));
  {
    const CSelection selection(hDc, bitmap.get());
    const RECT area = {0, 0, nWidth, nHeight};
    FillRect(hDc, &area, GetSysColorBrush(COLOR_3DFACE));
    CGdiPaintContext context(hDc, m_dScale);
    m_dialog.Paint(context);
    BitBlt(hWindowDc, 0, 0, nWidth, nHeight, hDc, 0, 0, SRCCOPY);
  }
  DeleteDC(hDc);
  EndPaint(m_hWindow, &paint);
}

void CNativeDialog::HandleCommand(int nId, int nCode) {
  const Control* const pControl = Find(nId);
  const ControlKind kind = pControl == nullptr ? ControlKind::Label : pControl->pTemplate->kind;
  if (pControl == nullptr || HasCaption(kind)) {  // Esc asks for Cancel also where there is no such button
    if (nCode == BN_CLICKED) Notify(nId, DialogEvent::Clicked);
  } else if (kind == ControlKind::Edit) {
    if (nCode != EN_CHANGE) return;
    m_nTyping = nId;
    Notify(nId, DialogEvent::TextChanged);
    m_nTyping = -1;
  } else if (kind == ControlKind::DropList) {
    if (nCode == CBN_SELCHANGE) Notify(nId, DialogEvent::SelectionChanged);
  } else if (kind == ControlKind::ListBox) {
    if (nCode != LBN_SELCHANGE && nCode != LBN_DBLCLK) return;
    Find(nId)->nCurrent = FindList(kind)->GetCurrent(pControl->hWindow);
    Notify(nId, nCode == LBN_DBLCLK ? DialogEvent::DoubleClicked : DialogEvent::SelectionChanged);
  }
}

void CNativeDialog::HandleNotice(const NMHDR& notice) {
  const int nId = static_cast<int>(notice.idFrom);
  Control* const pControl = Find(nId);
  if (pControl == nullptr || m_nSilent > 0) return;
  if (notice.code == NM_DBLCLK) Notify(nId, DialogEvent::DoubleClicked);
  if (notice.code != LVN_ITEMCHANGED) return;
  const auto& change = reinterpret_cast<const NMLISTVIEW&>(notice);
  if (((change.uNewState ^ change.uOldState) & LVIS_SELECTED) == 0) return;
  pControl->nCurrent = FindList(ControlKind::ListView)->GetCurrent(pControl->hWindow);
  Notify(nId, DialogEvent::SelectionChanged);
}

void CNativeDialog::Notify(int nId, DialogEvent event) {
  if (m_nSilent == 0) Guard([this, nId, event] { m_dialog.Notify(nId, event); });
}

void CNativeDialog::Guard(const std::function<void()>& action) {
  if (m_failure || m_bGone || (m_bOpen && m_dialog.HasEnded())) return;
  try {
    action();
    if (m_bOpen && m_dialog.HasEnded()) End(m_dialog.GetResult());
  } catch (...) {
    m_failure = std::current_exception();  // no exception may pass through the system's message loop
    EndDialog(m_hWindow, c_nIdCancel);
  }
}

void CNativeDialog::End(int nResult) {
  if (std::exchange(m_bOpen, false)) m_dialog.Close();  // while the controls are there
  EndDialog(m_hWindow, nResult);
}

const CNativeDialog::Control* CNativeDialog::Find(int nId) const {
  const auto it = std::ranges::find_if(m_controls, [nId](const Control& item) { return item.pTemplate->nId == nId; });
  return it == m_controls.end() || nId == -1 ? nullptr : &*it;
}

CNativeDialog::Control* CNativeDialog::Find(int nId) {
  const auto it = std::ranges::find_if(m_controls, [nId](const Control& item) { return item.pTemplate->nId == nId; });
  return it == m_controls.end() || nId == -1 ? nullptr : &*it;
}

HWND CNativeDialog::FindControl(int nId) const {
  const Control* const pControl = Find(nId);
  return pControl == nullptr ? nullptr : pControl->hWindow;
}

void CNativeDialog::SetText(int nId, std::string_view strText) {
  const Control* const pControl = Find(nId);
  if (pControl == nullptr || !HasText(pControl->pTemplate->kind)) return;
  const CSilence silence(m_nSilent);
  const bool bCaption = HasCaption(pControl->pTemplate->kind);
  SetWindowTextW(pControl->hWindow, (bCaption ? ToCaption(strText) : ToWide(strText)).c_str());
}

std::string CNativeDialog::GetText(int nId) const {
  const Control* const pControl = Find(nId);
  if (pControl == nullptr || !HasText(pControl->pTemplate->kind)) return {};
  const std::wstring strText = ReadText(pControl->hWindow);
  return HasCaption(pControl->pTemplate->kind) ? FromCaption(strText) : ToUtf8(strText);
}

void CNativeDialog::SetOneCheck(int nId, bool bOn) const {
  if (const Control* const pControl = Find(nId)) {
    SendMessageW(pControl->hWindow, BM_SETCHECK, bOn ? BST_CHECKED : BST_UNCHECKED, 0);
  }
}

void CNativeDialog::SetCheck(int nId, bool bOn) {
  const Control* const pControl = Find(nId);
  if (pControl == nullptr || !CanCheck(pControl->pTemplate->kind)) return;
  const CSilence silence(m_nSilent);
  if (bOn && pControl->pTemplate->kind == ControlKind::Radio) {
    const DialogTemplate& layout = m_dialog.GetTemplate();
    for (const int nButton : layout.GetRadioGroup(layout.GetGroupStart(nId))) SetOneCheck(nButton, false);
  }
  SetOneCheck(nId, bOn);
}

bool CNativeDialog::GetCheck(int nId) const {
  const Control* const pControl = Find(nId);
  return pControl != nullptr && CanCheck(pControl->pTemplate->kind) &&
         SendMessageW(pControl->hWindow, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void CNativeDialog::InsertItem(int nId, int nRow, std::string_view strText) {
  const int nCount = GetItemCount(nId);
  Control* const pControl = Find(nId);
  const INativeList* const pList = pControl == nullptr ? nullptr : FindList(pControl->pTemplate->kind);
  if (pList == nullptr) return;
  const CSilence silence(m_nSilent);
  nRow = std::clamp(nRow, 0, nCount);
  const int nCurrent = GetCurrent(nId);
  pList->Insert(pControl->hWindow, nRow, ToWide(strText));
  SetCurrent(nId, CurrentAfterInsert(nCurrent, nRow));
}

int CNativeDialog::AddItem(int nId, std::string_view strText) {
  const Control* const pControl = Find(nId);
  if (pControl == nullptr || FindList(pControl->pTemplate->kind) == nullptr) return -1;
  const int nRow = FindSortedRow(*pControl->pTemplate, *this, strText);
  InsertItem(nId, nRow, strText);
  return nRow;
}

void CNativeDialog::DeleteItem(int nId, int nRow) {
  if (nRow < 0 || nRow >= GetItemCount(nId)) return;
  const CSilence silence(m_nSilent);
  const int nCurrent = GetCurrent(nId);
  const Control* const pControl = Find(nId);
  FindList(pControl->pTemplate->kind)->Delete(pControl->hWindow, nRow);
  SetCurrent(nId, CurrentAfterDelete(nCurrent, nRow));
}

int CNativeDialog::GetItemCount(int nId) const {
  const Control* const pControl = Find(nId);
  const INativeList* const pList = pControl == nullptr ? nullptr : FindList(pControl->pTemplate->kind);
  return pList == nullptr ? 0 : pList->GetCount(pControl->hWindow);
}

std::string CNativeDialog::GetItemText(int nId, int nRow, int nColumn) const {
  if (nRow < 0 || nRow >= GetItemCount(nId) || nColumn < 0) return {};
  const Control& control = *Find(nId);
  return ToUtf8(FindList(control.pTemplate->kind)->GetCell(control.hWindow, nRow, nColumn));
}

void CNativeDialog::SetCell(int nId, int nRow, int nColumn, std::string_view strText) {
  if (nRow < 0 || nRow >= GetItemCount(nId) || nColumn < 0) return;
  const CSilence silence(m_nSilent);
  const Control& control = *Find(nId);
  FindList(control.pTemplate->kind)->SetCell(control.hWindow, nRow, nColumn, ToWide(strText));
}

void CNativeDialog::Select(int nId, int nRow, bool bOn) {
  if (nRow < 0 || nRow >= GetItemCount(nId)) return;
  const CSilence silence(m_nSilent);
  Control& control = *Find(nId);
  FindList(control.pTemplate->kind)->Select(control.hWindow, nRow, bOn);
  if (bOn && (control.pTemplate->nStyle & c_nStyleMultiple) == 0) control.nCurrent = nRow;
}

bool CNativeDialog::IsSelected(int nId, int nRow) const {
  if (nRow < 0 || nRow >= GetItemCount(nId)) return false;
  const Control& control = *Find(nId);
  return FindList(control.pTemplate->kind)->IsSelected(control.hWindow, nRow);
}

void CNativeDialog::SetCurrent(int nId, int nRow) {
  const int nCount = GetItemCount(nId);
  Control* const pControl = Find(nId);
  const INativeList* const pList = pControl == nullptr ? nullptr : FindList(pControl->pTemplate->kind);
  if (pList == nullptr) return;
  const CSilence silence(m_nSilent);
  pControl->nCurrent = nRow >= 0 && nRow < nCount ? nRow : -1;
  pList->SetCurrent(pControl->hWindow, pControl->nCurrent);
}

int CNativeDialog::GetCurrent(int nId) const {
  const Control* const pControl = Find(nId);
  if (pControl == nullptr) return -1;
  const bool bDropList = pControl->pTemplate->kind == ControlKind::DropList;
  return bDropList ? FindList(ControlKind::DropList)->GetCurrent(pControl->hWindow) : pControl->nCurrent;
}

void CNativeDialog::Enable(int nId, bool bOn) {
  if (const Control* const pControl = Find(nId)) EnableWindow(pControl->hWindow, bOn ? TRUE : FALSE);
}

bool CNativeDialog::IsEnabled(int nId) const {
  const Control* const pControl = Find(nId);
  return pControl != nullptr && (GetWindowLongPtrW(pControl->hWindow, GWL_STYLE) & WS_DISABLED) == 0;
}

void CNativeDialog::SetFocus(int nId) {
  const Control* const pControl = Find(nId);
  if (pControl == nullptr || nId == m_nTyping) return;  // a field that is checked at each key keeps its cursor
  SendMessageW(m_hWindow, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(pControl->hWindow), TRUE);
  if (pControl->pTemplate->kind == ControlKind::Edit) SendMessageW(pControl->hWindow, EM_SETSEL, 0, -1);
}

int CNativeDialog::GetFocus() const {
  const HWND hFocus = ::GetFocus();
  const auto it = std::ranges::find_if(m_controls, [hFocus](const Control& item) { return item.hWindow == hFocus; });
  return hFocus == nullptr || it == m_controls.end() ? -1 : it->pTemplate->nId;
}

void CNativeDialog::StartTimer(int nTimer, int nMilliseconds) {
  SetTimer(m_hWindow, static_cast<UINT_PTR>(nTimer), static_cast<UINT>(std::max(nMilliseconds, 1)), nullptr);
}

void CNativeDialog::StopTimer(int nTimer) { KillTimer(m_hWindow, static_cast<UINT_PTR>(nTimer)); }

void CNativeDialog::Repaint() {
  const RECT area = {0, 0, m_painted.cx + 1, m_painted.cy + 1};
  InvalidateRect(m_hWindow, &area, FALSE);
}

}  // namespace skyframe
