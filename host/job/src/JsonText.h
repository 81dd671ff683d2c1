#pragma once

#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>

#include "JsonTree.h"
#include "skyframe/job/JobFile.h"

namespace skyframe::host {

using Json = nlohmann::ordered_json;

/// Errors of a job file that are listed; reading stops there.
inline constexpr std::size_t c_nMostErrors = 100;
[[nodiscard]] inline bool HasTooMany(const std::vector<JobProblem>& errors) { return errors.size() >= c_nMostErrors; }
/// False when reading should stop; what comes then is not listed.
bool AddError(std::vector<JobProblem>& errors, JobProblem error);

/// Most members of an object.
inline constexpr std::size_t c_nMostMembers = 1'000;

/// Most entries of an array at the top of the job.
struct ArrayCapacity {
  std::string_view strKey;
  std::size_t nEntries;
};

/// Builds the tree of a text of any origin.
/// Not JSON, not UTF-8, nested too deeply, too long, a number too large, a key twice in one object: false,
/// and the problem is appended. Parsing breaks off where something is too much: it never costs more
/// memory than a large job.
[[nodiscard]] bool ParseJson(std::string_view strText, std::span<const ArrayCapacity> capacities, CJsonTree& tree,
                             std::vector<JobProblem>& errors);

/// Place of a member or an array entry.
[[nodiscard]] std::string AppendPointer(const std::string& strPlace, std::string_view strKey);
[[nodiscard]] std::string AppendPointer(const std::string& strPlace, std::size_t nIndex);

}  // namespace skyframe::host
