#include "skyframe/run/DataDirectory.h"

#include <filesystem>

#include "skyframe/platform/Platform.h"

namespace skyframe::host {

namespace fs = std::filesystem;

std::string FindDataDirectory() {
  if (std::string strChosen = ReadVariable("SKYFRAME_DATA"); !strChosen.empty()) return strChosen;
  const fs::path installed = GetProgramPath().parent_path().parent_path() / "share" / "skyframe";
  std::error_code error;
  if (fs::is_directory(installed / "GroundAccData", error)) return FromFilePath(installed);
  return SKYFRAME_DATA_DIR;
}

}  // namespace skyframe::host
