// Job file: refused, or the same job again after it was written out.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "skyframe/host/JobFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
  using namespace skyframe::host;
  const JobFile first = ParseJob({reinterpret_cast<const char*>(pData), nSize});
  if (!first.errors.empty()) return 0;
  const std::string strText = FormatJob(first.job);
  const JobFile second = ParseJob(strText);
  if (!second.errors.empty() || second.job != first.job || FormatJob(second.job) != strText) std::abort();
  return 0;
}
