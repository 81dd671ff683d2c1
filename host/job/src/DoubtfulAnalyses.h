#pragma once

#include <string>
#include <vector>

#include "skyframe/job/JobFile.h"

namespace skyframe::host {

/// Settings of the job's analyses that can only give nothing, or that the module does not look at. What
/// the job leaves out counts as the dialogs have it. Files beside the job are looked at when its path is
/// given.
[[nodiscard]] std::vector<JobProblem> FindDoubtfulAnalyses(const Job& job, const std::string& strJobPath);

}  // namespace skyframe::host
