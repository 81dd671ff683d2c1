#pragma once

#include <ostream>

#include "skyframe/job/Job.h"
#include "skyframe/values/HistorySet.h"

namespace skyframe::host {

/// Steps, and the peaks of displacement and axial force with place and time.
void PrintHistoryReport(const Job& job, const HistorySet& history, std::ostream& out);

}  // namespace skyframe::host
