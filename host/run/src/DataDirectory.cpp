#include "skyframe/run/DataDirectory.h"

#include <cstdlib>
#include <filesystem>

namespace skyframe::host {

namespace {

namespace fs = std::filesystem;

/// Empty where the system does not tell.
fs::path FindProgram() {
  std::error_code error;
  const fs::path path = fs::read_symlink("/proc/self/exe", error);
  return error ? fs::path() : path;
}

}  // namespace

std::string FindDataDirectory() {
  const char* pszChosen = std::getenv("SKYFRAME_DATA");
  if (pszChosen != nullptr && *pszChosen != '\0') return pszChosen;
  const fs::path installed = FindProgram().parent_path().parent_path() / "share" / "skyframe";
  std::error_code error;
  if (fs::is_directory(installed / "GroundAccData", error)) return installed.string();
  return SKYFRAME_DATA_DIR;
}

}  // namespace skyframe::host
