#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "skyframe/host/Job.h"

namespace skyframe::host {

/// Something wrong, or worth a word, at a place of a job file.
struct JobProblem {
  std::string strPlace;  ///< JSON pointer, or "line L, column C" for text that is no JSON
  std::string strReason;
};

struct JobFile {
  Job job;
  std::vector<JobProblem> errors;    ///< all of them; when there is one the job must not be used
  std::vector<JobProblem> warnings;  ///< legal, but hardly meant
};

/// Reads a job from JSON text. Never throws on account of the text, however damaged.
[[nodiscard]] JobFile ParseJob(std::string_view strText);

/// Reads the file and parses it. A file that cannot be read is an error at place "/".
[[nodiscard]] JobFile ReadJobFile(const std::string& strPath);

/// The job as JSON text, one node, element or load a line.
[[nodiscard]] std::string FormatJob(const Job& job);

/// Prefix of the result files: the job file's path without ".json".
[[nodiscard]] std::string GetJobPath(const std::string& strJobFile);

}  // namespace skyframe::host
