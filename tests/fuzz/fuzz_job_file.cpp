// Job file: refused, or the same job again after it was written out.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <tuple>

#include "skyframe/job/JobFile.h"

namespace {

using namespace skyframe::host;

bool IsSame(const Job& a, const Job& b) {
  const auto fields = [](const Job& job) {
    return std::tie(job.strTitle, job.nodes, job.springs, job.sections, job.elements, job.inclinedSupports, job.loads,
                    job.analyses);
  };
  return fields(a) == fields(b);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
  const JobFile first = ParseJob({reinterpret_cast<const char*>(pData), nSize});
  if (!first.errors.empty()) return 0;
  const std::string strText = FormatJob(first.job);
  const JobFile second = ParseJob(strText);
  if (!second.errors.empty() || !IsSame(first.job, second.job) || FormatJob(second.job) != strText) std::abort();
  return 0;
}
