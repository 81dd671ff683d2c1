#pragma once

#include <string_view>

namespace skyframe::dialogs::texts {

inline constexpr std::string_view c_strTooManyLoadTypes = "荷载类型过多,计算终止!";

inline constexpr std::string_view c_strNegativeNode = "节点号小于0，错误";
inline constexpr std::string_view c_strWrongDirection = "方向定义错误";
inline constexpr std::string_view c_strWrongLoads = "荷载信息输入错误";
inline constexpr std::string_view c_strWrongOblique = "斜方向错误";

inline constexpr std::string_view c_strNoSuchNode = "错误: 没有所求节点";
inline constexpr std::string_view c_strNoSuchElement = "错误: 没有所求单元";
inline constexpr std::string_view c_strNotWritten = "结果文件无法写入!";

/// Standard ground-motion record below the host's program directory.
inline constexpr std::string_view c_strStandardRecord = "\\GroundAccData\\Elcentro.txt";

}  // namespace skyframe::dialogs::texts

namespace skyframe {
namespace texts = dialogs::texts;
}  // namespace skyframe
