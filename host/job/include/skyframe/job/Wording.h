#pragma once

#include <string>

#include "skyframe/job/Job.h"
#include "skyframe/values/SpectrumSite.h"

// Parts of a job in words, in the language in force.
namespace skyframe::host {

/// "1.2 × case 0 − 0.5 × case 2"; empty for none.
[[nodiscard]] std::string FormatCombination(const JobCombination& combination);

/// "intensity 8 (0.20g), frequent earthquake, site class II, design group 1".
[[nodiscard]] std::string DescribeSite(const SpectrumSite& site);

}  // namespace skyframe::host
