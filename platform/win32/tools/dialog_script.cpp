// Writes the resource script of the module's dialogs and texts from the templates that every view reads.
// dialog_script FILE

#include <fstream>
#include <iostream>
#include <string>
#include <string_view>

#include "../src/ResourceIds.h"
#include "skyframe/dialogs/Templates.h"
#include "skyframe/platform/DialogRules.h"
#include "skyframe/platform/WindowTexts.h"

namespace {

using skyframe::ControlKind;
using skyframe::ControlTemplate;
using skyframe::DialogTemplate;

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
  add(skyframe::c_nStyleDisabled, "WS_DISABLED");
  add(skyframe::c_nStyleGroup, "WS_GROUP");
  add(skyframe::c_nStyleSorted, "LBS_SORT");
  add(skyframe::c_nStyleMultiple, "LBS_MULTIPLESEL");
  if (control.kind == ControlKind::Radio) add(skyframe::c_nStyleGroup, "WS_TABSTOP");
  return strStyle;
}

bool HasFrame(ControlKind kind) {
  return kind == ControlKind::Edit || kind == ControlKind::ListBox || kind == ControlKind::ListView;
}

/// In quotes; in captions an ampersand stands for itself.
std::string Quote(std::string_view strText, bool bCaption) {
  std::string strQuoted = "\"";
  for (const char c : strText) strQuoted.append(c == '"' || (bCaption && c == '&') ? 2 : 1, c);
  return strQuoted + '"';
}

void WriteControl(std::ostream& strm, const ControlTemplate& control) {
  const bool bCaption = control.kind != ControlKind::Label && control.kind != ControlKind::Edit;
  const skyframe::DialogRect& rect = control.rect;
  strm << "  CONTROL " << Quote(control.strText, bCaption) << ", " << control.nId << ", \""
       << GetLook(control.kind).strClass << "\", " << GetStyle(control) << ", " << rect.nX << ", " << rect.nY << ", "
       << rect.nWidth << ", " << rect.nHeight << (HasFrame(control.kind) ? ", WS_EX_CLIENTEDGE" : "") << '\n';
}

void WriteDialog(std::ostream& strm, const DialogTemplate& layout) {
  strm << '\n'
       << layout.nId << " DIALOGEX 0, 0, " << layout.nWidth << ", " << layout.nHeight << '\n'
       << "STYLE DS_MODALFRAME | DS_SETFONT | WS_POPUP | WS_CAPTION | WS_SYSMENU\n"
       << "CAPTION " << Quote(layout.strTitle, false) << '\n'
       << "FONT " << skyframe::c_dDialogPoints << ", " << Quote(skyframe::c_strDialogFonts.front(), false)
       << ", 400, 0, 134\n"  // of ordinary weight, upright, with Chinese letters
       << "BEGIN\n";
  for (const ControlTemplate& control : layout.controls) WriteControl(strm, control);
  strm << "END\n";
}

void WriteTexts(std::ostream& strm) {
  namespace texts = skyframe::windows::texts;
  const auto write = [&strm](auto nId, std::string_view strText) {
    strm << "  " << nId << ", " << Quote(strText, false) << '\n';
  };
  strm << "\nSTRINGTABLE\nBEGIN\n";
  write(skyframe::c_nTitleText, texts::c_strTitle);
  write(skyframe::c_nBusyText, texts::c_strBusy);
  for (const DialogTemplate* const pLayout : skyframe::GetDialogTemplates()) write(pLayout->nId, pLayout->strTitle);
  strm << "END\n";
}

}  // namespace

int main(int nArguments, char** arguments) {
  if (nArguments != 2) {
    std::cerr << "dialog_script FILE\n";
    return 2;
  }
  std::ofstream strm(arguments[1], std::ios::binary);
  strm << "#pragma code_page(65001)\n#include <windows.h>\n#include <commctrl.h>\n\n"
       << "LANGUAGE LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED\n";
  for (const DialogTemplate* const pLayout : skyframe::GetDialogTemplates()) WriteDialog(strm, *pLayout);
  WriteTexts(strm);
  strm.flush();
  return strm ? 0 : 1;
}
