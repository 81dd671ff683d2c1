#pragma once

#include "BookData.h"
#include "Page.h"

namespace skyframe::host {

// Time histories by the Wilson method and under nodal forces: only what the result viewer wrote of them is in files.

/// Those whose runs are known, then those of the job that are not.
[[nodiscard]] std::vector<ExtractedHistory> CollectExtracts(const Job& job, const std::string& strJobPath,
                                                            const CStamps& stamps);

/// "Wilson" or "Newmark, nodal forces".
[[nodiscard]] std::string DescribeMethod(const ExtractedHistory& history);
/// "a.txt, b.txt"; a dash for none.
[[nodiscard]] std::string ListFiles(const ExtractedHistory& history);

void WriteExtracts(CPage& page, const BookData& book, const ExtractedHistory& history);

}  // namespace skyframe::host
