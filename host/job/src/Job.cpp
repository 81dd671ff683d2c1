#include "skyframe/job/Job.h"

#include <algorithm>

namespace skyframe::host {

int Job::GetHighestCase() const {
  int nHighest = 0;
  for (const JobLoad& load : loads) nHighest = std::max(nHighest, load.nCase);
  return nHighest;
}

std::vector<int> Job::FindEmptyCases() const {
  std::vector<bool> used(static_cast<std::size_t>(GetHighestCase()) + 1, loads.empty());
  for (const JobLoad& load : loads) used[load.nCase] = true;
  std::vector<int> empty;
  for (std::size_t k = 0; k < used.size(); ++k) {
    if (!used[k]) empty.push_back(static_cast<int>(k));
  }
  return empty;
}

bool Job::HasConsecutiveIds() const {
  for (std::size_t k = 0; k < nodes.size(); ++k) {
    if (nodes[k].nId != static_cast<int>(k) + 1) return false;
  }
  return true;
}

}  // namespace skyframe::host
