#pragma once

#include <ostream>
#include <string>

#include "skyframe/host/Job.h"

namespace skyframe::host {

/// Base shears, largest combined displacement and how the modes were combined, from the host records as
/// the run left them and the mode file.
void PrintSpectrumReport(const Job& job, const SpectrumJob& analysis, const std::string& strJobPath, std::ostream& out);

}  // namespace skyframe::host
