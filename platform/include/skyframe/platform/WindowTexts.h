#pragma once

#include <string_view>

namespace skyframe::windows::texts {

// What windows show beside the texts of the module, whatever system draws them.
inline constexpr std::string_view c_strTitle = "Skyframe";
inline constexpr std::string_view c_strAcknowledge = "确定";
inline constexpr std::string_view c_strBusy = "计算中";
/// Between a step's name and the time of the work.
inline constexpr std::string_view c_strElapsed = "    已用时 ";

}  // namespace skyframe::windows::texts
