#include "skyframe/host/Job.h"

#include <algorithm>

namespace skyframe::host {

int Job::GetHighestCase() const {
  int nHighest = 0;
  for (const JobLoad& load : loads) nHighest = std::max(nHighest, load.nCase);
  return nHighest;
}

bool Job::HasConsecutiveIds() const {
  for (std::size_t k = 0; k < nodes.size(); ++k) {
    if (nodes[k].nId != static_cast<int>(k) + 1) return false;
  }
  return true;
}

}  // namespace skyframe::host
