#pragma once

#include <string_view>

// Fixed texts of the history room.

namespace skyframe::history::texts {

// Impulse load text.
inline constexpr std::string_view c_strImpulseTag = "/IMPULSELOAD/";
inline constexpr std::string_view c_strEndTag = "/END/";
inline constexpr std::string_view c_strTagNotFound = "Can not find the data: ";
inline constexpr std::string_view c_strNoLoadLog = "Couldn't open log file! \n";
inline constexpr std::string_view c_strBadScript = "冲击荷载数据文件读入有误";

// Ground motion, by direction X, Y, Z, oblique.
inline constexpr std::string_view c_strBadRecords[] = {"X方向加速度数据文件读入有误", "Y方向加速度数据文件读入有误",
                                                       "Z方向加速度数据文件读入有误", "斜方向加速度数据文件读入有误"};

// Integration.
inline constexpr std::string_view c_strNoModes = "错误:模态未分析";
inline constexpr std::string_view c_strHistoryTooLarge = "时程结果所需内存超出本机内存,计算终止!";
inline constexpr std::string_view c_strStartLoad = "静力平衡迭代";
inline constexpr std::string_view c_strIntegration = "时程积分";

// History files.
inline constexpr std::string_view c_strNoHistory = "没有进行时程分析。";
inline constexpr std::string_view c_strHistoryNotWritten = "时程结果文件无法写入!";
inline constexpr std::string_view c_strWriteHistory = "写时程结果文件";
inline constexpr std::string_view c_strReadHistory = "读时程结果文件";
inline constexpr std::string_view c_strNodeTotal = "Total node number:  ";
inline constexpr std::string_view c_strElementTotal = "Total element number:  ";
inline constexpr std::string_view c_strStepTotal = "Total time step:  ";
inline constexpr std::string_view c_strIncrement = "Time increment(s):  ";
/// Deliberate: a blank before "(s)", unlike the result file.
inline constexpr std::string_view c_strIncrementOfOne = "Time increment (s):  ";
inline constexpr std::string_view c_strMethodLines[] = {"Solution Method:  Wilson.", "Solution Method:  Newmark."};
inline constexpr std::string_view c_strAssumptionLines[] = {"Solution Assumption:  Linear.",
                                                            "Solution Assumption:  Nonlinear."};
inline constexpr std::string_view c_strHeaderEnd = "--";
inline constexpr std::string_view c_strNodeLabel = "Node No.";
inline constexpr std::string_view c_strMemberLabel = "Mem No.";
inline constexpr std::string_view c_strTimeLabel = "Time.";
inline constexpr std::string_view c_strTimePoint = "TimePoint:";
inline constexpr std::string_view c_strQuantityLines[] = {
    "X-direction Disp(m): ", "Y-direction Disp(m): ", "Z-direction Disp(m): ", "Element internal force(N): "};

}  // namespace skyframe::history::texts

namespace skyframe {
namespace texts = history::texts;
}  // namespace skyframe
