#include "ListControl.h"

#include <algorithm>

namespace skyframe {

namespace {

LRESULT Send(HWND hWindow, UINT nMessage, WPARAM wParam = 0, LPARAM lParam = 0) {
  return SendMessageW(hWindow, nMessage, wParam, lParam);
}

LRESULT SendText(HWND hWindow, UINT nMessage, int nRow, const wchar_t* pText) {
  return Send(hWindow, nMessage, static_cast<WPARAM>(nRow), reinterpret_cast<LPARAM>(pText));
}

/// The messages in which list boxes and drop lists differ in name alone.
struct ItemMessages {
  UINT nCount;
  UINT nInsert;
  UINT nDelete;
  UINT nTextLength;
  UINT nText;
};

class CItemList : public INativeList {
 public:
  constexpr explicit CItemList(const ItemMessages& messages) : m_messages(messages) {}

  int GetCount(HWND hList) const override { return static_cast<int>(Send(hList, m_messages.nCount)); }
  void Insert(HWND hList, int nRow, const std::wstring& strText) const override {
    SendText(hList, m_messages.nInsert, nRow, strText.c_str());
  }
  void Delete(HWND hList, int nRow) const override { Send(hList, m_messages.nDelete, static_cast<WPARAM>(nRow)); }
  std::wstring GetCell(HWND hList, int nRow, int nColumn) const override {
    if (nColumn != 0) return {};
    const LRESULT nUnits = Send(hList, m_messages.nTextLength, static_cast<WPARAM>(nRow));
    std::wstring strText(static_cast<std::size_t>(std::max<LRESULT>(nUnits, 0)) + 1, L'\0');
    SendText(hList, m_messages.nText, nRow, strText.data());
    strText.pop_back();
    return strText;
  }
  void SetCell(HWND hList, int nRow, int nColumn, const std::wstring& strText) const override {
    if (nColumn != 0) return;
    const bool bSelected = IsSelected(hList, nRow);
    const int nCurrent = GetCurrent(hList);
    Delete(hList, nRow);
    Insert(hList, nRow, strText);
    Select(hList, nRow, bSelected);
    SetCurrent(hList, nCurrent);
  }

 private:
  ItemMessages m_messages;
};

class CDropList final : public CItemList {
 public:
  constexpr CDropList() : CItemList({CB_GETCOUNT, CB_INSERTSTRING, CB_DELETESTRING, CB_GETLBTEXTLEN, CB_GETLBTEXT}) {}

  bool IsSelected(HWND hList, int nRow) const override { return GetCurrent(hList) == nRow; }
  void Select(HWND hList, int nRow, bool bOn) const override {
    if (bOn) SetCurrent(hList, nRow);
  }
  void SetCurrent(HWND hList, int nRow) const override { Send(hList, CB_SETCURSEL, static_cast<WPARAM>(nRow)); }
  int GetCurrent(HWND hList) const override { return static_cast<int>(Send(hList, CB_GETCURSEL)); }
};

class CListBox final : public CItemList {
 public:
  constexpr CListBox() : CItemList({LB_GETCOUNT, LB_INSERTSTRING, LB_DELETESTRING, LB_GETTEXTLEN, LB_GETTEXT}) {}

  bool IsSelected(HWND hList, int nRow) const override { return Send(hList, LB_GETSEL, static_cast<WPARAM>(nRow)) > 0; }
  void Select(HWND hList, int nRow, bool bOn) const override {
    if (IsMultiple(hList)) {
      Send(hList, LB_SETSEL, bOn ? TRUE : FALSE, nRow);
    } else if (bOn || IsSelected(hList, nRow)) {
      Send(hList, LB_SETCURSEL, static_cast<WPARAM>(bOn ? nRow : -1));
    }
  }
  void SetCurrent(HWND hList, int nRow) const override {
    if (nRow >= 0) Send(hList, LB_SETCARETINDEX, static_cast<WPARAM>(nRow), TRUE);
  }
  int GetCurrent(HWND hList) const override { return static_cast<int>(Send(hList, LB_GETCARETINDEX)); }

 private:
  static bool IsMultiple(HWND hList) { return (GetWindowLongPtrW(hList, GWL_STYLE) & LBS_MULTIPLESEL) != 0; }
};

class CListView final : public INativeList {
 public:
  int GetCount(HWND hList) const override { return static_cast<int>(Send(hList, LVM_GETITEMCOUNT)); }
  void Insert(HWND hList, int nRow, const std::wstring& strText) const override {
    std::wstring strCell = strText;
    LVITEMW item = {};
    item.mask = LVIF_TEXT;
    item.iItem = nRow;
    item.pszText = strCell.data();
    SendText(hList, LVM_INSERTITEMW, 0, reinterpret_cast<const wchar_t*>(&item));
  }
  void Delete(HWND hList, int nRow) const override { Send(hList, LVM_DELETEITEM, static_cast<WPARAM>(nRow)); }
  std::wstring GetCell(HWND hList, int nRow, int nColumn) const override {
    std::wstring strText;
    LRESULT nUnits = 0;
    do {  // the list does not tell how long a text is
      strText.resize(2 * strText.size() + c_nShort);
      LVITEMW item = {};
      item.iSubItem = nColumn;
      item.pszText = strText.data();
      item.cchTextMax = static_cast<int>(strText.size());
      nUnits = Send(hList, LVM_GETITEMTEXTW, static_cast<WPARAM>(nRow), reinterpret_cast<LPARAM>(&item));
    } while (nUnits + 1 >= static_cast<LRESULT>(strText.size()));
    strText.resize(static_cast<std::size_t>(nUnits));
    return strText;
  }
  void SetCell(HWND hList, int nRow, int nColumn, const std::wstring& strText) const override {
    std::wstring strCell = strText;
    LVITEMW item = {};
    item.iSubItem = nColumn;
    item.pszText = strCell.data();
    Send(hList, LVM_SETITEMTEXTW, static_cast<WPARAM>(nRow), reinterpret_cast<LPARAM>(&item));
  }
  bool IsSelected(HWND hList, int nRow) const override {
    return Send(hList, LVM_GETITEMSTATE, static_cast<WPARAM>(nRow), LVIS_SELECTED) != 0;
  }
  void Select(HWND hList, int nRow, bool bOn) const override {
    SetState(hList, nRow, bOn ? LVIS_SELECTED | LVIS_FOCUSED : 0, bOn ? LVIS_SELECTED | LVIS_FOCUSED : LVIS_SELECTED);
  }
  void SetCurrent(HWND hList, int nRow) const override {
    SetState(hList, nRow, nRow < 0 ? 0 : LVIS_FOCUSED, LVIS_FOCUSED);  // row -1: none has it
  }
  int GetCurrent(HWND hList) const override {
    return static_cast<int>(Send(hList, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
  }

 private:
  static constexpr std::size_t c_nShort = 64;  // units of most texts

  static void SetState(HWND hList, int nRow, UINT nState, UINT nMask) {
    LVITEMW item = {};
    item.state = nState;
    item.stateMask = nMask;
    Send(hList, LVM_SETITEMSTATE, static_cast<WPARAM>(nRow), reinterpret_cast<LPARAM>(&item));
  }
};

const CDropList c_dropList;
const CListBox c_listBox;
const CListView c_listView;

}  // namespace

const INativeList* FindList(ControlKind kind) {
  switch (kind) {
    case ControlKind::DropList:
      return &c_dropList;
    case ControlKind::ListBox:
      return &c_listBox;
    case ControlKind::ListView:
      return &c_listView;
    default:
      return nullptr;
  }
}

}  // namespace skyframe
