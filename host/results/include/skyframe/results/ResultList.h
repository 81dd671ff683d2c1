#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace skyframe::host {

/// Of the host's own file beside the results, which tells where they come from.
inline constexpr std::string_view c_strStampSuffix = ".stamp";

/// Names of the files that the analyses of a job read and write and that are there now, in order.
[[nodiscard]] std::vector<std::string> ListResultFiles(const std::string& strJobPath);

}  // namespace skyframe::host
