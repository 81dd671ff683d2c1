#pragma once

#include <string_view>

namespace skyframe::qt::texts {

inline constexpr std::string_view c_strWindowTitle = "Skyframe";
inline constexpr std::string_view c_strAcknowledge = "确定";
inline constexpr std::string_view c_strBusy = "计算中";

}  // namespace skyframe::qt::texts

namespace skyframe {
namespace texts = qt::texts;
}  // namespace skyframe
