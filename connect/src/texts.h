#pragma once

#include <string_view>

// Fixed texts of the connect room.

namespace skyframe {

inline constexpr std::string_view c_strOutOfMemory = "内存不足,计算终止!";
inline constexpr std::string_view c_strInternalError = "内部错误,计算终止!";
inline constexpr std::string_view c_strNotYetThere = "本版本尚不能进行此项分析!";

}  // namespace skyframe
