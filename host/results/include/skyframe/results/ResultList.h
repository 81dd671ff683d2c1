#pragma once

#include <string>
#include <vector>

namespace skyframe::host {

/// Names of the files that the analyses of a job read and write and that are there now, in order.
[[nodiscard]] std::vector<std::string> ListResultFiles(const std::string& strJobPath);

}  // namespace skyframe::host
