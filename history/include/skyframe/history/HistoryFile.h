#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "skyframe/values/HistorySet.h"

namespace skyframe {

struct RunFindings;

/// Writes all histories as text. False when the file could not be written; an older one is then untouched.
/// The findings hear of either.
[[nodiscard]] bool WriteHistory(const HistorySet& history, const std::string& strPath, RunFindings& findings);

/// Histories of a text that WriteHistory wrote, read as words whatever the blanks between them.
/// Empty when the counts are not those given, when the text is too short for its counts, or when a word is
/// not what has to stand there. A method or assumption without a known name leaves the one in history's defaults.
[[nodiscard]] std::optional<HistorySet> ParseHistory(std::string_view strText, int nNodes, int nElements);

/// Reads g_FilePathName + "_HisTime.txt" for the model in the host records; tells COMDYN the step count,
/// dt, method and assumption. False, with nothing changed: after a message when there is no file, without one
/// when it does not fit the model or is damaged.
[[nodiscard]] bool ReadHistoryFile(HistorySet& history);

/// One history of a set. nNumber: 1-based node or element.
struct HistoryCurve {
  int nQuantity = c_nHistoryX;  ///< HistoryQuantity
  int nNumber = 1;
};

/// Writes one history that the set has to strPrefix + "_<number>_node.txt" or "_<number>_elem.txt".
/// False when the file could not be written.
[[nodiscard]] bool WriteCurve(const HistorySet& history, const HistoryCurve& curve, const std::string& strPrefix);

}  // namespace skyframe
