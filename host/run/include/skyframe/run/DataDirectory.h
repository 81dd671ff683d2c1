#pragma once

#include <string>

namespace skyframe::host {

/// Directory that holds GroundAccData: the environment variable SKYFRAME_DATA when it is set; else
/// ../share/skyframe beside the directory of the running program, where an installed one has it; else
/// the data of the source tree.
[[nodiscard]] std::string FindDataDirectory();

}  // namespace skyframe::host
