#pragma once

#include <string>

#include "skyframe/job/Job.h"

namespace skyframe::host {

/// Fills the host records from a job without errors. False when the job path is too long for its record; nothing is
/// filled then.
[[nodiscard]] bool FillRecords(const Job& job, const std::string& strJobPath, const std::string& strProgramPath);

}  // namespace skyframe::host
