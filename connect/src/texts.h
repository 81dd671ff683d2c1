#pragma once

#include <string_view>

// Fixed texts of the connect room.

namespace skyframe::connect::texts {

inline constexpr std::string_view c_strOutOfMemory = "内存不足,计算终止!";
inline constexpr std::string_view c_strInternalError = "内部错误,计算终止!";
inline constexpr std::string_view c_strScriptTooLong = "冲击荷载步数过多,计算终止!";
inline constexpr std::string_view c_strNoHistory = "错误:动力时程未计算.";

}  // namespace skyframe::connect::texts

namespace skyframe {
namespace texts = connect::texts;
}  // namespace skyframe
