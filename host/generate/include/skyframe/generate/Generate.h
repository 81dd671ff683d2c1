#pragma once

#include "skyframe/job/Job.h"

namespace skyframe::host {

// Regular structures of any size as jobs ready to run. Nodes are numbered along the longest dimension
// last, which keeps the profile of the stiffness matrix small. Lengths in m, loads in kN, downwards and
// sideways loads in cases of their own: 0 dead, 1 live, 2 wind along X.

/// Rectangular frame of rigid beams on clamped columns.
struct BuildingParameters {
  int nBaysX = 3;
  int nBaysY = 2;
  int nStoreys = 5;
  double dSpan = 6.0;
  double dHeight = 3.3;
  double dDeadLoad = 5.0;  ///< kN/m²
  double dLiveLoad = 2.0;  ///< kN/m²
  double dWindLoad = 0.8;  ///< kN/m² on the side X = 0
};
[[nodiscard]] Job GenerateBuilding(const BuildingParameters& parameters);

/// A slender building of about so many nodes.
[[nodiscard]] BuildingParameters ChooseBuilding(int nNodes);
/// Storeys that bring a building of this plan near so many nodes.
[[nodiscard]] int ChooseStoreys(int nNodes, int nBaysX, int nBaysY);

/// Square lattice tower of bars: legs, horizontals, crossed face diagonals, one diagonal in plan.
struct TowerParameters {
  int nPanels = 10;
  double dBase = 4.0;  ///< side at the foot
  double dTop = 1.5;   ///< side at the top
  double dPanelHeight = 3.0;
};
[[nodiscard]] Job GenerateTower(const TowerParameters& parameters);

/// Spherical cap with meridians, rings and one diagonal a field, pinned along its edge.
struct DomeParameters {
  int nRings = 5;
  int nSegments = 12;
  double dSpan = 40.0;
  double dRise = 6.0;
  bool bBeams = false;  ///< rigid beams instead of bars
  double dLoad = 1.5;   ///< kN/m² in plan, case 0
};
[[nodiscard]] Job GenerateDome(const DomeParameters& parameters);

/// Plane arch in X and Z under a load at its apex (case 0): two bars, or more rigid beams along a parabola.
struct ArchParameters {
  int nSegments = 2;  ///< even
  double dHalfSpan = 4.0;
  double dRise = 1.0;
  double dLoad = 200.0;
};
[[nodiscard]] Job GenerateArch(const ArchParameters& parameters);

}  // namespace skyframe::host
