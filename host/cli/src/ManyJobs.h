#pragma once

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

namespace skyframe::host {

/// Jobs that run in processes of their own, some at once.
struct ManyJobs {
  std::filesystem::path program;      ///< runs a job of its own
  std::vector<std::string> options;   ///< before the job file
  std::vector<std::string> jobFiles;  ///< no two with the same results
  int nAtOnce = 1;
};

/// What a job prints while others run, too: its summary and its messages.
[[nodiscard]] std::string GetRunLog(const std::string& strJobFile);

/// Runs them and prints a line as each of them ends, then all lines in order and the sum. The worst exit status of all:
/// a refused job file, then a failed job, then one with warnings. The options must make a warning a status of its own.
[[nodiscard]] int RunManyJobs(const ManyJobs& many, std::ostream& out);

}  // namespace skyframe::host
