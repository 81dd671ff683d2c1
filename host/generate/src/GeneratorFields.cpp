#include "skyframe/generate/GeneratorFields.h"

#include <string>

#include "texts.h"

namespace skyframe::host {

namespace {

/// Rows of nodes that the host records must hold.
std::optional<std::string> CheckNodes(double dRows, double dNodesPerRow) {
  if (dRows * dNodesPerRow <= c_nMaxNodes) return std::nullopt;
  return Say(texts::c_tooMany, {std::to_string(c_nMaxNodes)});
}

}  // namespace

std::optional<std::string> FindConflict(const BuildingParameters& parameters) {
  return CheckNodes((parameters.nBaysX + 1.0) * (parameters.nBaysY + 1.0), parameters.nStoreys + 1.0);
}

std::optional<std::string> FindConflict(const TowerParameters& parameters) {
  return CheckNodes(4.0, parameters.nPanels + 1.0);
}

std::optional<std::string> FindConflict(const DomeParameters& parameters) {
  if (parameters.dRise > 0.5 * parameters.dSpan) return std::string(Say(texts::c_rise));
  return CheckNodes(parameters.nRings, parameters.nSegments);
}

std::optional<std::string> FindConflict(const ArchParameters& parameters) {
  if (parameters.nSegments % 2 != 0) return std::string(Say(texts::c_even));
  return CheckNodes(parameters.nSegments + 1.0, 1.0);
}

}  // namespace skyframe::host
