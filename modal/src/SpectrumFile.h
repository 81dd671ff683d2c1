#pragma once

#include <string>

#include "SpectrumResponse.h"

namespace skyframe {

/// Writes strJobPath + ".spec" and, for a virtual mode, its two files. False when one of them could not
/// be written. The findings hear of every file.
[[nodiscard]] bool WriteSpectrumFiles(const CAnalysisModel& model, const SpectrumModes& modes,
                                      const SpectrumResult& result, const std::string& strJobPath,
                                      RunFindings& findings);

}  // namespace skyframe
