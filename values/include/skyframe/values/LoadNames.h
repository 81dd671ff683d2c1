#pragma once

#include <string>

namespace skyframe {

/// Name of a load case in the dialogs: 静 for case 0, the dead load, 活1, 活2 … for the live loads.
[[nodiscard]] inline std::string GetLoadName(int nCase) { return nCase == 0 ? "静" : "活" + std::to_string(nCase); }

}  // namespace skyframe
