#pragma once

#include <string>

namespace skyframe {

class CAnalysisModel;
struct RunFindings;

/// Writes Omega, ModeShapes and the model's counts to strJobPath + ".mode". Line i of a block belongs to
/// host node i as it was numbered before the renumbering in force.
/// False when the file could not be written; an older one is then untouched. The findings hear of either.
[[nodiscard]] bool WriteModeFile(const CAnalysisModel& model, const std::string& strJobPath, RunFindings& findings);

}  // namespace skyframe
