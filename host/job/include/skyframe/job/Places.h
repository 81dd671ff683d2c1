#pragma once

#include <string>

#include "skyframe/job/Job.h"
#include "skyframe/values/Findings.h"

namespace skyframe::host {

/// True when the places coincide in the single precision of the host records.
[[nodiscard]] bool HaveSamePlace(const JobNode& a, const JobNode& b);

/// Whether a support holds the DOF 0..5; a spring with a stiffness above 0 acts like a rigid support.
[[nodiscard]] bool IsRestrained(const Job& job, const JobNode& node, std::size_t nDof);

/// "node 12 RX"; "no node" when there is none. In the language in force.
[[nodiscard]] std::string DescribePlace(const Job& job, const DofPlace& place);

}  // namespace skyframe::host
