#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "skyframe/host/JobFile.h"

namespace skyframe::host {

using Json = nlohmann::ordered_json;

/// Parses text of any origin. Not JSON, not UTF-8, nested too deeply, a number too large, a key twice
/// in one object: nothing is returned and the problem is appended.
[[nodiscard]] std::optional<Json> ParseJson(std::string_view strText, std::vector<JobProblem>& errors);

/// Place of a member or an array entry.
[[nodiscard]] std::string AppendPointer(const std::string& strPlace, std::string_view strKey);
[[nodiscard]] std::string AppendPointer(const std::string& strPlace, std::size_t nIndex);

/// Text in quotes, fit for a terminal: control characters escaped, cut after some sixty bytes.
[[nodiscard]] std::string Quote(std::string_view strText);

}  // namespace skyframe::host
