#pragma once

#include <ostream>

#include "skyframe/job/Job.h"
#include "skyframe/values/Findings.h"

namespace skyframe::host {

/// How the modes were combined, base shears, largest combined displacement.
void PrintSpectrumReport(const Job& job, const SpectrumFindings& findings, std::ostream& out);

}  // namespace skyframe::host
