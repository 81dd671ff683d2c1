#pragma once

#include <array>
#include <ostream>
#include <string>

#include "skyframe/host/Job.h"

namespace skyframe::host {

/// Sum of the combination's loads at free translations of nodes in use, kN.
[[nodiscard]] std::array<double, 3> SumLoads(const Job& job, const JobCombination& combination);

/// Largest displacement and the balance of forces, from the result file.
void PrintStaticReport(const Job& job, const StaticJob& analysis, const std::string& strResultFile, std::ostream& out);

}  // namespace skyframe::host
