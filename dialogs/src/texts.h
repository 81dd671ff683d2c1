#pragma once

#include <string_view>

namespace skyframe::texts {

inline constexpr std::string_view c_strTooManyLoadTypes = "荷载类型过多,计算终止!";
inline constexpr std::string_view c_strDeadLoad = "静";
inline constexpr std::string_view c_strLiveLoad = "活";

}  // namespace skyframe::texts
