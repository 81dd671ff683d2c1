// Writes the resource script of the probe dialogs into a file.

#include <fstream>

#include "../../platform/win32/tools/DialogScript.h"
#include "ProbeDialog.h"

int main(int /*nArguments*/, char** arguments) {
  std::ofstream strm(arguments[1], std::ios::binary);
  skyframe::WriteScriptHead(strm);
  skyframe::WriteDialog(strm, skyframe::test::c_probe);
  strm.flush();
  return strm ? 0 : 1;
}
