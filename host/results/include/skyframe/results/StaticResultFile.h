#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "skyframe/results/Reading.h"
#include "skyframe/values/Findings.h"

namespace skyframe::host {

/// Moments, shear forces and deflections of a beam, in local axes.
enum MemberDiagram : int { c_nMyz, c_nMzx, c_nMxy, c_nQy, c_nQz, c_nFy, c_nFz, c_nDiagrams };
inline constexpr std::size_t c_nDiagramStations = 21;  ///< from end i to end j, at equal distances

/// N, Nm, m.
struct StaticMember {
  int nElement = 0;  ///< from 1
  double dAxialForce = 0.0;
  std::vector<std::array<double, c_nDiagramStations>> diagrams;  ///< by MemberDiagram; empty for all but beams
};

struct StaticSupport {
  int nNode = 0;                                ///< host number
  std::array<std::optional<double>, 6> forces;  ///< on the support, X Y Z RX RY RZ, N and Nm; nothing at free DOFs
};

/// What a static result file says, as any host can read it.
struct StaticResultFile {
  bool bNonlinear = false;
  std::vector<StaticMember> members;
  std::vector<StaticSupport> supports;
  std::vector<NodeValues> displacements;  ///< m, by node in host order; the file has no rotations
};

[[nodiscard]] Reading<StaticResultFile> ReadStaticResultFile(const std::string& strPath, std::size_t nNodes);

}  // namespace skyframe::host
