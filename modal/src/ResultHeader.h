#pragma once

#include <string>
#include <string_view>

#include "skyframe/model/AnalysisModel.h"
#include "skyframe/platform/TextWriter.h"

namespace skyframe {

/// Job path with a suffix appended.
[[nodiscard]] std::string FormResultPath(const std::string& strJobPath, std::string_view strSuffix);

/// First lines of the mode and spectrum files, up to and with the counts of elements, nodes, rigid
/// nodes and other nodes; nothing ends the last line.
void WriteResultHeader(CTextWriter& out, std::string_view strTitle, const CAnalysisModel& model);

}  // namespace skyframe
