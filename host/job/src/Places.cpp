#include "skyframe/job/Places.h"

#include <algorithm>

#include "texts.h"

namespace skyframe::host {

bool HaveSamePlace(const JobNode& a, const JobNode& b) {
  const auto Same = [](double dA, double dB) { return static_cast<float>(dA) == static_cast<float>(dB); };
  return Same(a.dX, b.dX) && Same(a.dY, b.dY) && Same(a.dZ, b.dZ);
}

bool IsRestrained(const Job& job, const JobNode& node, std::size_t nDof) {
  if (!node.nSpring) return node.restraint[nDof] == 1;
  const auto it = std::ranges::find(job.springs, *node.nSpring, &JobSpring::nGroup);
  return nDof < 3 && it != job.springs.end() && std::array{it->dKx, it->dKy, it->dKz}[nDof] > 0.0;
}

std::string DescribePlace(const Job& job, const DofPlace& place) {
  const auto nNodes = static_cast<int>(job.nodes.size());
  if (place.nNode < 1 || place.nNode > nNodes) return std::string(Say(texts::c_noNode));
  const int nId = job.nodes[static_cast<std::size_t>(place.nNode - 1)].nId;
  return Say(texts::c_place, {std::to_string(nId), c_strDirections[static_cast<std::size_t>(place.nDirection)]});
}

}  // namespace skyframe::host
