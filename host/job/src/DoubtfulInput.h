#pragma once

#include <vector>

#include "skyframe/job/JobFile.h"

namespace skyframe::host {

/// Legal input that is hardly meant. Needs a job without errors. Files beside the job are looked at when
/// its path is given.
[[nodiscard]] std::vector<JobProblem> FindDoubtfulInput(const Job& job, const std::string& strJobPath);

}  // namespace skyframe::host
