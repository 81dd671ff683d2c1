#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "skyframe/job/Job.h"

namespace skyframe::host {

/// Something wrong, or worth a word, at a place of a job file.
struct JobProblem {
  std::string strPlace;  ///< JSON pointer, or "line L, column C" for text that is no JSON; empty: the whole file
  std::string strReason;
  std::string strName = {};  ///< short and lasting name of a warning, such as "unused-node"; empty for errors
};

/// "/nodes/3: a node is given twice", with a kind such as "warning: " before the reason; no place for the whole file.
[[nodiscard]] std::string FormatProblem(const JobProblem& problem, std::string_view strKind = {});

struct JobFile {
  Job job;
  std::vector<JobProblem> errors;    ///< when there is one the job must not be used; the first hundred
  std::vector<JobProblem> warnings;  ///< legal, but hardly meant
};

/// Reads a job from JSON text. Never throws on account of the text, however damaged or large: a lack of
/// memory is an error, too. The warnings look at the files of the job path when it is given.
[[nodiscard]] JobFile ParseJob(std::string_view strText, const std::string& strJobPath = {});

/// Reads the file and parses it. A file that cannot be read is an error of the whole file; so is a backslash
/// in the path, which the module would take as a separator in the names of the result files.
[[nodiscard]] JobFile ReadJobFile(const std::string& strPath);

/// The job as JSON text, one node, element or load a line.
[[nodiscard]] std::string FormatJob(const Job& job);
/// One analysis as it stands in a job file.
[[nodiscard]] std::string FormatAnalysis(const JobAnalysis& analysis, const Job& job);
/// The analysis of such a text, if the job can have it.
[[nodiscard]] std::optional<JobAnalysis> ParseAnalysis(std::string_view strText, const Job& job);

/// Prefix of the result files: the job file's path without ".json".
[[nodiscard]] std::string GetJobPath(const std::string& strJobFile);

}  // namespace skyframe::host
