#pragma once

#include <string_view>

// Fixed texts of the model room.

namespace skyframe {

// Nodes and equations.
inline constexpr std::string_view c_strDofNames[] = {"X向", "Y向", "Z向", "RYZ向", "RZX向", "RXY向"};
inline constexpr std::string_view c_strNoSuchDof = "自由度输入错误！\n本自由度对应节点号码不存在！";

// Model build.
inline constexpr std::string_view c_strNodesCleared = "节点初始化";
inline constexpr std::string_view c_strNoNodes = "缺少节点!";
inline constexpr std::string_view c_strNoElements = "单元未定义！";
inline constexpr std::string_view c_strInclinedSupport = "提示：本版本“动力分析模块”暂不能考虑斜边界约束！";
inline constexpr std::string_view c_strNoCables = "不能计算索单元!";
inline constexpr std::string_view c_strNoMembranes = "不能计算模单元!";
inline constexpr std::string_view c_strDiagonalAddresses = "计算总刚对角地址";
inline constexpr std::string_view c_strProfileTooLarge = "总刚矩阵存储量超出范围,计算终止!";

// Loads and reactions.
inline constexpr std::string_view c_strGetLoadVector = "获取荷载向量";
inline constexpr std::string_view c_strAssembleLoad = "荷载组装";
inline constexpr std::string_view c_strNodeNumber = "结点号:";
inline constexpr std::string_view c_strReactionLabels[] = {"  X向支反力  ",           "  Y向支反力  ",
                                                           "  Z向支反力  ",           "  YZ平面内转角向支反力 ",
                                                           "  ZX平面内转角向支反力 ", "  XY平面内转角向支反力 "};

}  // namespace skyframe
