#pragma once

#include <ostream>

#include "skyframe/job/Job.h"
#include "skyframe/values/Findings.h"

namespace skyframe::host {

/// Largest displacement and the sums of loads and support forces.
void PrintStaticReport(const Job& job, const StaticFindings& findings, std::ostream& out);

}  // namespace skyframe::host
