#pragma once

#include <string>

namespace skyframe {

class CAnalysisModel;
struct RunFindings;

/// Frequency in Hz per rad/s. Deliberate: 1 / 6.2831852, not 1 / (2 pi).
inline constexpr double c_dHertzPerRadian = 0.15915494580678602;

/// Writes Omega, ModeShapes and the model's counts to strJobPath + ".mode". Line i of a block belongs to
/// host node i as it was numbered before the renumbering in force.
/// False when the file could not be written; an older one is then untouched. The findings hear of either.
[[nodiscard]] bool WriteModeFile(const CAnalysisModel& model, const std::string& strJobPath, RunFindings& findings);

}  // namespace skyframe
