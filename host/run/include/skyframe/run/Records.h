#pragma once

#include <string>

#include "skyframe/job/Job.h"

namespace skyframe::host {

/// Fills the host records from a job without errors; what they held before is lost.
/// Loads are stored in the order of their cases, and a case below the highest one that has no load
/// gets one record of value 0, so that the module's load group g is case g.
/// False when the job path is too long for its record; nothing is filled then.
[[nodiscard]] bool FillRecords(const Job& job, const std::string& strJobPath, const std::string& strProgramPath);

}  // namespace skyframe::host
