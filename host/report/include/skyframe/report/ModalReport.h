#pragma once

#include <optional>
#include <ostream>

#include "skyframe/advice/Advice.h"
#include "skyframe/values/Findings.h"

namespace skyframe::host {

/// Modes with frequency, period and effective masses, and directions in which the modes hold too little mass.
void PrintModalReport(const ModalFindings& findings, std::ostream& out);

/// What a count proves; nothing when it does not agree with the modes found.
void PrintModeCount(const std::optional<ModeCount>& count, std::ostream& out);

}  // namespace skyframe::host
