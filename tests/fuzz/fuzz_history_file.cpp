// History file of a model with two nodes and one element: refused, or complete in the counts asked for.

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "skyframe/history/HistoryFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
  const auto history = skyframe::ParseHistory({reinterpret_cast<const char*>(pData), nSize}, 2, 1);
  if (!history) return 0;
  if (history->GetNodeCount() != 2 || history->GetElementCount() != 1 || history->nSteps < 0) std::abort();
  return 0;
}
