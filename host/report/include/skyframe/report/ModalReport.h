#pragma once

#include <array>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "skyframe/advice/Advice.h"
#include "skyframe/values/Findings.h"

namespace skyframe::host {

/// Modes with frequency, period and effective masses, and directions in which the modes hold too little mass.
void PrintModalReport(const ModalFindings& findings, std::ostream& out);

/// A line for each direction in which the modes hold less than 90 % of the mass; none where nothing is free to move.
[[nodiscard]] std::vector<std::string> ListShortfalls(const std::array<double, 3>& totalMass,
                                                      const std::vector<std::array<double, 3>>& effectiveMasses);

/// What a count proves; nothing when it does not agree with the modes found.
void PrintModeCount(const std::optional<ModeCount>& count, std::ostream& out);

}  // namespace skyframe::host
