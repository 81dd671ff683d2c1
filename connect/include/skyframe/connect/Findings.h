#pragma once

#include "skyframe/values/Export.h"
#include "skyframe/values/Findings.h"

namespace skyframe {

// What the last call of each entry point found. A call puts its own in the place of the earlier ones, also
// when it is cancelled.

[[nodiscard]] SKYFRAME_API const StaticFindings& GetStaticFindings();
[[nodiscard]] SKYFRAME_API const ModalFindings& GetModalFindings();
[[nodiscard]] SKYFRAME_API const SpectrumFindings& GetSpectrumFindings();
[[nodiscard]] SKYFRAME_API const HistoryFindings& GetHistoryFindings();

}  // namespace skyframe
