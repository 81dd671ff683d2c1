#include "skyframe/checks/Storeys.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>

namespace skyframe::host {

namespace {

using Levels = std::vector<double>;

const JobNode& GetEnd(const Job& job, int nNode) { return job.nodes[static_cast<std::size_t>(nNode - 1)]; }

bool IsAt(double dZ, double dLevel) { return std::abs(dZ - dLevel) <= c_dLevelTolerance; }

bool HasHorizontal(const Job& job, double dLevel) {
  return std::ranges::any_of(job.elements, [&](const JobElement& element) {
    return IsAt(GetEnd(job, element.nNodeI).dZ, dLevel) && IsAt(GetEnd(job, element.nNodeJ).dZ, dLevel);
  });
}

Levels FindLevels(const Job& job) {
  if (!job.report.storeys.empty()) return job.report.storeys;
  Levels all, floors;
  for (const NodeLevel& level : FormNodeLevels(job)) {
    all.push_back(level.dHeight);
    if (floors.empty() || HasHorizontal(job, level.dHeight)) floors.push_back(level.dHeight);
  }
  return floors.size() > 1 ? floors : all;
}

bool IsUprightBeam(const Job& job, const JobElement& element) {
  const JobNode& i = GetEnd(job, element.nNodeI);
  const JobNode& j = GetEnd(job, element.nNodeJ);
  return element.nType == c_nBeam && std::hypot(i.dX - j.dX, i.dY - j.dY) <= c_dLevelTolerance;
}

/// Every floor has the upper end of an upright beam.
bool AreFloorsCarried(const Job& job, const Levels& levels) {
  return std::all_of(levels.begin() + 1, levels.end(), [&](double dLevel) {
    return std::ranges::any_of(job.elements, [&](const JobElement& element) {
      const double dUpper = std::max(GetEnd(job, element.nNodeI).dZ, GetEnd(job, element.nNodeJ).dZ);
      return IsAt(dUpper, dLevel) && IsUprightBeam(job, element);
    });
  });
}

bool IsBuilding(const Job& job, const Levels& levels) {
  if (levels.size() < 2) return false;
  const int nStructure = job.report.nStructure.value_or(c_nOther);
  if (nStructure == c_nTower || nStructure == c_nDome) return false;
  return nStructure != c_nOther || !job.report.storeys.empty() || AreFloorsCarried(job, levels);
}

/// Place in plan in steps of the tolerance.
std::pair<long long, long long> GetPlumbLine(const JobNode& node) {
  return {std::llround(node.dX / c_dLevelTolerance), std::llround(node.dY / c_dLevelTolerance)};
}

void PairColumns(const Job& job, Storey& storey) {
  std::map<std::pair<long long, long long>, std::size_t> below;
  for (std::size_t i = 0; i < job.nodes.size(); ++i) {
    if (IsAt(job.nodes[i].dZ, storey.dBottom)) below.emplace(GetPlumbLine(job.nodes[i]), i);
  }
  for (const std::size_t i : storey.floor) {
    const auto it = below.find(GetPlumbLine(job.nodes[i]));
    if (it != below.end()) storey.columns.emplace_back(i, it->second);
  }
}

}  // namespace

std::vector<NodeLevel> FormNodeLevels(const Job& job) {
  std::vector<std::size_t> nodes(job.nodes.size());
  std::iota(nodes.begin(), nodes.end(), std::size_t{0});
  const auto height = [&job](std::size_t i) { return job.nodes[i].dZ; };
  std::ranges::stable_sort(nodes, {}, height);
  std::vector<NodeLevel> levels;
  for (const std::size_t i : nodes) {
    if (levels.empty() || !IsAt(height(i), levels.back().dHeight)) levels.push_back({height(i), {}});
    levels.back().nodes.push_back(i);
  }
  return levels;
}

std::optional<StoreyModel> FormStoreys(const Job& job) {
  const Levels levels = FindLevels(job);
  if (!IsBuilding(job, levels)) return std::nullopt;
  StoreyModel model;
  for (std::size_t k = 1; k < levels.size(); ++k) model.storeys.push_back({levels[k - 1], levels[k], {}, {}, {}});
  for (std::size_t i = 0; i < job.nodes.size(); ++i) {
    const double dZ = job.nodes[i].dZ;
    const auto it = std::lower_bound(levels.begin(), levels.end() - 1, dZ - c_dLevelTolerance);
    if (it == levels.begin()) {
      model.base.push_back(i);
      continue;
    }
    Storey& storey = model.storeys[static_cast<std::size_t>(it - levels.begin()) - 1];
    storey.nodes.push_back(i);
    if (IsAt(dZ, storey.dTop)) storey.floor.push_back(i);
  }
  for (Storey& storey : model.storeys) PairColumns(job, storey);
  return model;
}

}  // namespace skyframe::host
