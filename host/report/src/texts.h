#pragma once

#include "skyframe/job/Language.h"

// What the summaries say.

namespace skyframe::host::report::texts {

// Labels.
inline constexpr Words c_largestDisplacement = {"largest displacement", "最大位移"};
inline constexpr Words c_sumOfLoads = {"sum of loads", "荷载之和"};
inline constexpr Words c_forceOnSupports = {"force on supports", "对支座的力之和"};
inline constexpr Words c_iterations = {"iterations", "迭代次数"};
inline constexpr Words c_sturmCount = {"Sturm count", "Sturm 计数"};
inline constexpr Words c_combination = {"combination", "振型组合"};
inline constexpr Words c_baseShear = {"base shear", "基底剪力"};
inline constexpr Words c_steps = {"steps", "时间步"};
inline constexpr Words c_peakDisplacement = {"peak displacement {0}", "{0} 向最大位移"};
inline constexpr Words c_peakForce = {"peak axial force", "最大轴力"};

// Figures.
inline constexpr Words c_displacementAt = {"{0} m at node {1}: X {2}, Y {3}, Z {4}",
                                           "{0} m，节点 {1}：X {2}，Y {3}，Z {4}"};
inline constexpr Words c_displacementCombined = {"{0} m at node {1}, combined", "{0} m，节点 {1}，组合值"};
inline constexpr Words c_forces = {"X {0}, Y {1}, Z {2} kN", "X {0}，Y {1}，Z {2} kN"};
inline constexpr Words c_forcesCombined = {"(support forces summed mode by mode, then the sums combined)",
                                           "（支座力逐阶求和，再组合）"};
inline constexpr Words c_combined = {"{0} of {1} modes, damping ratio {2}", "{0}，{1} 阶振型，阻尼比 {2}"};
inline constexpr Words c_combinedWithVirtual = {"{0} of {1} modes and the virtual mode, damping ratio {2}",
                                                "{0}，{1} 阶振型和虚拟振型，阻尼比 {2}"};
inline constexpr Words c_stepsOf = {"{0} of {1} s", "{0} 步，步长 {1} s"};
inline constexpr Words c_peakAtNode = {"{0} m at node {1}, t = {2} s", "{0} m，节点 {1}，t = {2} s"};
inline constexpr Words c_peakInElement = {"{0} kN in element {1}, t = {2} s", "{0} kN，单元 {1}，t = {2} s"};
inline constexpr Words c_notFinite = {"not finite", "不是有限数"};
inline constexpr Words c_none = {"none", "无"};
inline constexpr Words c_noneMissing = {"no mode below {0} Hz is missing", "低于 {0} Hz 的振型没有遗漏"};

// Table of modes.
inline constexpr Words c_effectiveMass = {"effective mass {0}", "{0} 向有效质量"};
inline constexpr Words c_mode = {"mode", "振型"};
inline constexpr Words c_sum = {"sum", "累计"};
inline constexpr Words c_totalMass = {"total mass", "总质量"};
inline constexpr Words c_shortfall = {"effective mass in {0} is {1} %, below 90 %: ask for more modes",
                                      "{0} 向有效质量为 {1} %，不足 90 %：请增加振型数"};

}  // namespace skyframe::host::report::texts

namespace skyframe::host {
namespace texts = report::texts;
}
