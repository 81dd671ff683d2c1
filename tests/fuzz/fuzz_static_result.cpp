// Static result file as the host reads it: refused, or whole for the two nodes asked for.

#include <cstdint>

#include "TextPlatform.h"
#include "skyframe/results/StaticResultFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
  const skyframe::test::CTextPlatform platform(std::string(reinterpret_cast<const char*>(pData), nSize));
  const auto file = skyframe::host::ReadStaticResultFile("job", 2);
  if (!file) return 0;
  skyframe::test::Demand(file->displacements.size() == 2);
  for (const auto& member : file->members) {
    skyframe::test::Demand(member.diagrams.empty() || member.diagrams.size() == skyframe::host::c_nDiagrams);
  }
  return 0;
}
