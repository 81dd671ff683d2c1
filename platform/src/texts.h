#pragma once

#include <string_view>

namespace skyframe::platform::texts {

inline constexpr std::string_view c_strNeedInteger = "请输入一个整数。";
inline constexpr std::string_view c_strNeedNumber = "请输入一个数字。";

inline constexpr std::string_view c_strOtherRecords = "宿主数据记录与本模块不符,计算终止!";

inline constexpr std::string_view c_strNoControl = "there is no such control";
inline constexpr std::string_view c_strWrongKind = "the control cannot be used that way";
inline constexpr std::string_view c_strDisabled = "the control is disabled";
inline constexpr std::string_view c_strNoRow = "there is no such row";
inline constexpr std::string_view c_strDialogEnded = "the dialog has ended";

inline constexpr std::string_view c_strIsLink = "is a symbolic link";
inline constexpr std::string_view c_strNotRegular = "is not a regular file";

/// End of the name of an output file while it is being written.
inline constexpr std::string_view c_strTemporarySuffix = ".part";

inline constexpr std::string_view c_strSvgFonts =
    "Noto Sans CJK SC, Source Han Sans SC, Microsoft YaHei, PingFang SC, WenQuanYi Zen Hei, SimSun, sans-serif";

}  // namespace skyframe::platform::texts

namespace skyframe {
namespace texts = platform::texts;
}  // namespace skyframe
