#pragma once

#include <string>
#include <vector>

#include "skyframe/job/Job.h"
#include "skyframe/results/Reading.h"
#include "skyframe/values/Findings.h"

namespace skyframe::host {

/// What a mode file says, as any host can read it.
struct ModeResultFile {
  int nElements = 0;
  bool bShear = false;                          ///< shear deformation of the beams counted
  std::vector<double> omega;                    ///< rad/s, ascending
  std::vector<std::vector<NodeValues>> shapes;  ///< by mode, by node in host order; pinned nodes have no rotations
};

[[nodiscard]] Reading<ModeResultFile> ReadModeResultFile(const std::string& strPath, const std::vector<JobNode>& nodes);

}  // namespace skyframe::host
