#include "DialogScript.h"

#include "skyframe/platform/DialogRules.h"

namespace skyframe {

namespace {

/// In quotes; in captions an ampersand stands for itself.
std::string Quote(std::string_view strText, bool bCaption) {
  std::string strQuoted = "\"";
  for (const char c : strText) strQuoted.append(c == '"' || (bCaption && c == '&') ? 2 : 1, c);
  return strQuoted + '"';
}

/// Window class and style of a kind of control.
struct Look {
  std::string_view strClass;
  std::string_view strStyle;
};

Look GetLook(ControlKind kind) {
  switch (kind) {
    case ControlKind::Label:
      return {"STATIC", "SS_LEFT | SS_NOPREFIX | SS_CENTERIMAGE"};
    case ControlKind::Group:
      return {"BUTTON", "BS_GROUPBOX"};
    case ControlKind::Edit:
      return {"EDIT", "ES_AUTOHSCROLL | WS_TABSTOP"};
    case ControlKind::Radio:
      return {"BUTTON", "BS_AUTORADIOBUTTON"};
    case ControlKind::Check:
      return {"BUTTON", "BS_AUTOCHECKBOX | WS_TABSTOP"};
    case ControlKind::Button:
      return {"BUTTON", "BS_PUSHBUTTON | WS_TABSTOP"};
    case ControlKind::DefaultButton:
      return {"BUTTON", "BS_DEFPUSHBUTTON | WS_TABSTOP"};
    case ControlKind::DropList:
      return {"COMBOBOX", "CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP"};
    case ControlKind::ListBox:
      return {"LISTBOX", "LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_TABSTOP"};
    case ControlKind::ListView:
      return {"SysListView32", "LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER | WS_TABSTOP"};
  }
  return {};
}

std::string GetStyle(const ControlTemplate& control) {
  std::string strStyle(GetLook(control.kind).strStyle);
  const auto add = [&](unsigned nFlag, std::string_view strFlag) {
    if ((control.nStyle & nFlag) != 0) strStyle.append(" | ").append(strFlag);
  };
  add(c_nStyleDisabled, "WS_DISABLED");
  add(c_nStyleGroup, "WS_GROUP");
  add(c_nStyleSorted, "LBS_SORT");
  add(c_nStyleMultiple, "LBS_MULTIPLESEL");
  if (control.kind == ControlKind::Radio) add(c_nStyleGroup, "WS_TABSTOP");
  return strStyle;
}

bool HasFrame(ControlKind kind) {
  return kind == ControlKind::Edit || kind == ControlKind::ListBox || kind == ControlKind::ListView;
}

void WriteControl(std::ostream& strm, const ControlTemplate& control) {
  const bool bCaption = control.kind != ControlKind::Label && control.kind != ControlKind::Edit;
  const DialogRect& rect = control.rect;
  strm << "  CONTROL " << Quote(control.strText, bCaption) << ", " << control.nId << ", \""
       << GetLook(control.kind).strClass << "\", " << GetStyle(control) << ", " << rect.nX << ", " << rect.nY << ", "
       << rect.nWidth << ", " << rect.nHeight << (HasFrame(control.kind) ? ", WS_EX_CLIENTEDGE" : "") << '\n';
}

}  // namespace

void WriteDialog(std::ostream& strm, const DialogTemplate& layout) {
  strm << '\n'
       << layout.nId << " DIALOGEX 0, 0, " << layout.nWidth << ", " << layout.nHeight << '\n'
       << "STYLE DS_MODALFRAME | DS_SETFONT | WS_POPUP | WS_CAPTION | WS_SYSMENU\n"
       << "CAPTION " << Quote(layout.strTitle, false) << '\n'
       << "FONT " << c_dDialogPoints << ", " << Quote(c_strDialogFonts.front(), false)
       << ", 400, 0, 134\n"  // of ordinary weight, upright, with Chinese letters
       << "BEGIN\n";
  for (const ControlTemplate& control : layout.controls) WriteControl(strm, control);
  strm << "END\n";
}

void WriteScriptHead(std::ostream& strm) {
  strm << "#pragma code_page(65001)\n#include <windows.h>\n#include <commctrl.h>\n\n"
       << "LANGUAGE LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED\n";
}

void WriteTexts(std::ostream& strm, const std::map<unsigned, std::string_view>& texts) {
  strm << "\nSTRINGTABLE\nBEGIN\n";
  for (const auto& [nId, strText] : texts) strm << "  " << nId << ", " << Quote(strText, false) << '\n';
  strm << "END\n";
}

}  // namespace skyframe
