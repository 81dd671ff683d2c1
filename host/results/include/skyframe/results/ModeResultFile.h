#pragma once

#include <optional>
#include <string>
#include <vector>

#include "skyframe/job/Job.h"
#include "skyframe/values/Findings.h"

namespace skyframe::host {

/// What a mode file says, as any host can read it.
struct ModeResultFile {
  std::vector<double> omega;                    ///< rad/s, ascending
  std::vector<std::vector<NodeValues>> shapes;  ///< by mode, by node in host order; pinned nodes have no rotations
};

/// Nothing when the file cannot be read, is no whole mode file, or belongs to a model with other nodes.
[[nodiscard]] std::optional<ModeResultFile> ReadModeResultFile(const std::string& strPath,
                                                               const std::vector<JobNode>& nodes);

}  // namespace skyframe::host
