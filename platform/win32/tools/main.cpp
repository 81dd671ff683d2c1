// Writes the resource script of the module's dialogs and texts, from the templates that every view reads, into a file.

#include <fstream>
#include <iostream>

#include "../src/ResourceIds.h"
#include "DialogScript.h"
#include "skyframe/dialogs/Templates.h"
#include "skyframe/platform/WindowTexts.h"

int main(int nArguments, char** arguments) {
  namespace texts = skyframe::windows::texts;
  if (nArguments != 2) {
    std::cerr << "dialog_script FILE\n";
    return 2;
  }
  std::ofstream strm(arguments[1], std::ios::binary);
  skyframe::WriteScriptHead(strm);
  std::map<unsigned, std::string_view> table = {{skyframe::c_nTitleText, texts::c_strTitle},
                                                {skyframe::c_nBusyText, texts::c_strBusy}};
  for (const skyframe::DialogTemplate* const pLayout : skyframe::GetDialogTemplates()) {
    skyframe::WriteDialog(strm, *pLayout);
    table[static_cast<unsigned>(pLayout->nId)] = pLayout->strTitle;
  }
  skyframe::WriteTexts(strm, table);
  strm.flush();
  return strm ? 0 : 1;
}
