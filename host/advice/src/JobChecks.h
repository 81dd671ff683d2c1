#pragma once

#include <vector>

#include "skyframe/host/JobFile.h"

namespace skyframe::host {

/// True when the places coincide in the single precision of the host records.
[[nodiscard]] bool HaveSamePlace(const JobNode& a, const JobNode& b);

/// Whether a support holds the DOF 0..5; a spring with a stiffness above 0 acts like a rigid support.
[[nodiscard]] bool IsRestrained(const Job& job, const JobNode& node, std::size_t nDof);

/// Load cases from 0 to the highest one in use that have no load.
[[nodiscard]] std::vector<int> FindEmptyCases(const Job& job);

/// Legal input that is hardly meant. Needs a job without errors. Files beside the job are looked at when
/// its path is given.
[[nodiscard]] std::vector<JobProblem> FindDoubtfulInput(const Job& job, const std::string& strJobPath);

}  // namespace skyframe::host
