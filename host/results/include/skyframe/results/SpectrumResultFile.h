#pragma once

#include <array>
#include <string>
#include <vector>

#include "skyframe/job/Job.h"
#include "skyframe/results/Reading.h"
#include "skyframe/values/Findings.h"

namespace skyframe::host {

/// Combined forces, N and Nm.
struct SpectrumMember {
  int nElement = 0;                             ///< from 1
  int nType = 0;                                ///< ElementType
  std::vector<std::array<double, 6>> stations;  ///< N, Qy, Qz, MYZ, MZX, MXY from end i to j; one with N alone in a bar
};

struct SpectrumSupport {
  int nNode = 0;  ///< host number
  NodeValues forces = {};
};

/// What the file of a spectrum analysis says, as any host can read it. Pinned nodes have no rotations.
struct SpectrumResultFile {
  int nElements = 0;
  int nFileModes = 0;                     ///< modes of the mode file
  std::vector<double> gamma;              ///< participation factors of the modes combined
  std::vector<double> masses;             ///< gamma^2, kg
  std::vector<double> damping;            ///< ratios
  double dComputedMass = 0.0;             ///< sum of masses
  double dTotalMass = 0.0;                ///< along the earthquake
  int nCombination = 0;                   ///< place in c_strModalCombinations
  std::vector<NodeValues> displacements;  ///< m, by node in host order
  std::vector<SpectrumMember> members;
  std::vector<SpectrumSupport> supports;
};

[[nodiscard]] Reading<SpectrumResultFile> ReadSpectrumResultFile(const std::string& strPath,
                                                                 const std::vector<JobNode>& nodes);

/// "_VirtMode.spec".
struct VirtualModeFile {
  double omega = 0.0;  ///< rad/s
  double dHertz = 0.0;
  std::vector<NodeValues> shape;  ///< by node in host order
};

[[nodiscard]] Reading<VirtualModeFile> ReadVirtualModeFile(const std::string& strPath,
                                                           const std::vector<JobNode>& nodes);

/// "VIRTRESP.log".
struct VirtualResponseFile {
  double gamma = 0.0;    ///< participation factor
  double alpha = 0.0;    ///< seismic influence coefficient
  double dFactor = 0.0;  ///< of displacements
};

[[nodiscard]] Reading<VirtualResponseFile> ReadVirtualResponseFile(const std::string& strPath);

}  // namespace skyframe::host
