#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "skyframe/job/Job.h"

namespace skyframe::host {

/// Nodes at one height within c_dLevelTolerance, indices of the job's list.
struct NodeLevel {
  double dHeight = 0.0;  ///< of the lowest of them, m
  std::vector<std::size_t> nodes;
};
/// All nodes, from the lowest level up.
[[nodiscard]] std::vector<NodeLevel> FormNodeLevels(const Job& job);

/// A floor and what carries it. Nodes are indices of the job's list.
struct Storey {
  double dBottom = 0.0;            ///< level below, m
  double dTop = 0.0;               ///< level of the floor, m
  std::vector<std::size_t> nodes;  ///< above the bottom, up to the top: their mass is the floor's
  std::vector<std::size_t> floor;  ///< of these the ones at the top
  /// Nodes of the floor with the nodes plumb below them at the level below.
  std::vector<std::pair<std::size_t, std::size_t>> columns;

  [[nodiscard]] double GetHeight() const { return dTop - dBottom; }
};

/// Storeys of a building from the ground up. The last one holds what rises above its floor.
struct StoreyModel {
  std::vector<std::size_t> base;  ///< nodes at the lowest level and below
  std::vector<Storey> storeys;
};

/// At the levels that the job states, else at those with a horizontal member; without any at each level of a node.
/// Nothing for towers and domes and, where the job does not name its structure, for one with a floor that no upright
/// beam carries.
[[nodiscard]] std::optional<StoreyModel> FormStoreys(const Job& job);

}  // namespace skyframe::host
