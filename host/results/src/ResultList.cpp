#include "skyframe/results/ResultList.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "skyframe/platform/Platform.h"
#include "skyframe/values/ResultFiles.h"

namespace skyframe::host {

namespace {

namespace fs = std::filesystem;

/// What follows the job's name in the name of a file that is the job's.
bool IsResultSuffix(std::string_view strSuffix) {
  if (strSuffix.empty() || strSuffix == ".json" || strSuffix == c_strStampSuffix) return false;
  return strSuffix[0] == '.' || strSuffix[0] == '_' || strSuffix == suffix::c_strVirtualResponse ||
         strSuffix == suffix::c_strImpulseLoad;
}

}  // namespace

std::vector<std::string> ListResultFiles(const std::string& strJobPath) {
  const fs::path job = ToFilePath(strJobPath);
  const fs::path::string_type strJob = job.filename().native();  // names of other files need not be Unicode
  std::vector<std::string> names;
  std::error_code error;
  const fs::path folder = job.has_parent_path() ? job.parent_path() : fs::path(".");
  for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    const fs::path::string_type strName = it->path().filename().native();
    const bool bResult = strName.starts_with(strJob) && IsResultSuffix(FromFilePath(strName.substr(strJob.size())));
    if (std::error_code none; bResult && it->is_regular_file(none)) names.push_back(FromFilePath(strName));
  }
  std::ranges::sort(names);
  return names;
}

}  // namespace skyframe::host
