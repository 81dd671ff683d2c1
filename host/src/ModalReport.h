#pragma once

#include <ostream>
#include <string>

#include "skyframe/host/Job.h"

namespace skyframe::host {

/// Modes with frequency, period and effective masses, and directions in which the modes hold too little
/// mass. With verify_modes also whether the mode file misses any. From the host records and the mode file.
void PrintModalReport(const ModalJob& analysis, const std::string& strJobPath, std::ostream& out);

}  // namespace skyframe::host
