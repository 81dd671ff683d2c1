// History file of a model with two nodes and one element, through the readers of module and host: refused, or complete
// in the counts asked for.

#include <cstdint>

#include "TextPlatform.h"
#include "skyframe/history/HistoryFile.h"
#include "skyframe/results/HistoryResultFile.h"

namespace {

using skyframe::test::Demand;
namespace host = skyframe::host;

void ReadAsHost() {
  const host::HistoryModel model = {2, 1};
  const auto file = host::ReadHistoryFile("job", model);
  for (const int nQuantity : {skyframe::c_nHistoryY, skyframe::c_nHistoryForce}) {
    const host::HistoryChoice choice = {nQuantity, 1};
    const auto histories = host::ReadHistories("job", model, {&choice, 1});
    Demand(!file || histories);
    if (histories) Demand(static_cast<int>(histories->front().values.size()) == histories->front().nSteps);
  }
  if (file) Demand(file->displacements.size() == 2 && file->forces.size() == 1);
  const auto extract = host::ReadHistoryExtract("job", model);
  if (extract) Demand(static_cast<int>(extract->values.size()) == extract->nSteps);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
  const std::string strText(reinterpret_cast<const char*>(pData), nSize);
  const skyframe::test::CTextPlatform platform(strText);
  ReadAsHost();
  const auto history = skyframe::ParseHistory(strText, 2, 1);
  if (!history) return 0;
  Demand(history->GetNodeCount() == 2 && history->GetElementCount() == 1 && history->nSteps >= 0);
  return 0;
}
