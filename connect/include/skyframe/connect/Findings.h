#pragma once

#include "skyframe/values/Export.h"
#include "skyframe/values/Findings.h"

namespace skyframe {

// What the last call of each entry point found. A call puts its own in the place of the earlier ones, also
// when it is cancelled.

SKYFRAME_API [[nodiscard]] const StaticFindings& GetStaticFindings();
SKYFRAME_API [[nodiscard]] const ModalFindings& GetModalFindings();
SKYFRAME_API [[nodiscard]] const SpectrumFindings& GetSpectrumFindings();
SKYFRAME_API [[nodiscard]] const HistoryFindings& GetHistoryFindings();

}  // namespace skyframe
