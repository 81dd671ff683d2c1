#pragma once

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

namespace skyframe::host {

/// Exit statuses.
inline constexpr int c_nExitGood = 0;
inline constexpr int c_nExitAnalysisFailed = 1;  ///< an analysis has no result that can be used, or output was lost
inline constexpr int c_nExitDifferent = 1;       ///< compare: a difference is above the tolerance
inline constexpr int c_nExitBadInput = 2;        ///< wrong arguments or job file; nothing was written
inline constexpr int c_nExitWarned = 3;          ///< all went well, but with a warning where none is allowed

/// The program `skyframe`: arguments without the program's own name, exit status as the result.
/// program: the file of this program, which is started once a job when there are many; empty: they are refused.
[[nodiscard]] int RunCommandLine(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err,
                                 const std::filesystem::path& program = {});

}  // namespace skyframe::host
