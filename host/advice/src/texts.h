#pragma once

#include "skyframe/job/Language.h"

// What is said of a run.

namespace skyframe::host::advice::texts {

inline constexpr Words c_error = {"error: {0} [{1}]", "错误：{0} [{1}]"};
inline constexpr Words c_warning = {"warning: {0} [{1}]", "警告：{0} [{1}]"};
inline constexpr Words c_cannotWrite = {"cannot write {0}: {1}", "不能写入 {0}：{1}"};
/// The platform's and the system's reasons.
inline constexpr Words c_writeReasons[] = {
    {"is a symbolic link", "是符号链接"},
    {"is not a regular file", "不是普通文件"},
    {"No such file or directory", "没有这个文件或目录"},
    {"Not a directory", "不是目录"},
    {"Is a directory", "是目录"},
    {"Permission denied", "没有权限"},
    {"Operation not permitted", "不允许此操作"},
    {"Read-only file system", "文件系统只读"},
    {"No space left on device", "磁盘空间不足"},
    {"Disk quota exceeded", "超出磁盘配额"},
    {"File too large", "文件过大"},
    {"File name too long", "文件名过长"},
    {"Input/output error", "输入输出错误"},
};

// Conditioning.
inline constexpr Words c_mechanism = {"nearly a mechanism at {0}: {1}; the results cannot be used",
                                      "{0}接近几何可变：{1}；结果不可使用"};
inline constexpr Words c_digitsLost = {"{0} of 16 digits are lost there", "该处 16 位数字失去了 {0} 位"};
inline constexpr Words c_allLost = {"no stiffness is left there", "该处刚度已全部消失"};
inline constexpr Words c_freeBody = {
    "no support keeps {0} from moving with its part of the structure; the results cannot be used",
    "没有支座阻止{0}随其所在的部分作刚体运动；结果不可使用"};
inline constexpr Words c_conditioning = {"{0} digits are lost at {1}, results are good to about {2} digits",
                                         "{1}失去 {0} 位数字，结果约有 {2} 位可靠"};

// Values.
inline constexpr Words c_notFinite = {"{0}: {1} is not a finite number", "{0}：{1}不是有限数"};
inline constexpr Words c_displacementAt = {"displacement at {0}", "{0}的位移"};
inline constexpr Words c_reactionAt = {"reaction at {0}", "{0}的反力"};
inline constexpr Words c_frequency = {"the frequency of mode {0}", "第 {0} 阶振型的频率"};
inline constexpr Words c_shape = {"the shape of mode {0}", "第 {0} 阶振型的形状"};
inline constexpr Words c_baseShear = {"the base shear in {0}", "{0} 向基底剪力"};
inline constexpr Words c_axialForce = {"axial force of element {0} from t = {1} s on",
                                       "单元 {0} 的轴力（自 t = {1} s 起）"};
inline constexpr Words c_displacementFrom = {"displacement at {0} from t = {1} s on", "{0}的位移（自 t = {1} s 起）"};
inline constexpr Words c_history = {"history", "时程"};

// Static analysis.
inline constexpr Words c_noLoad = {"no load acts in a free direction: nothing moves",
                                   "自由方向上没有荷载作用：没有位移"};
inline constexpr Words c_momentUnit = {"kNm", "kN·m"};
inline constexpr Words c_leftOver = {"{0} {1} in {2} is left of {3} {1}", "{2} 向相差 {0} {1}（最大值 {3} {1}）"};
inline constexpr Words c_roundOff = {"round-off of stiff members: {0}", "刚度很大的构件的舍入误差：{0}"};
inline constexpr Words c_unbalanced = {"loads and support forces do not balance: {0}", "荷载与支座力不平衡：{0}"};
inline constexpr Words c_noConvergence = {
    "no equilibrium after {0} iterations: ||R|| = {1} N of ||P|| = {2} N, ||du|| = {3} m, {4}, the largest at {5}",
    "迭代 {0} 次后仍未平衡：‖R‖ = {1} N，‖P‖ = {2} N，‖Δu‖ = {3} m（{4}），最大处为{5}"};
inline constexpr Words c_first = {"its first", "第一次"};
inline constexpr Words c_growing = {"growing", "在增大"};
inline constexpr Words c_falling = {"falling", "在减小"};
inline constexpr Words c_divideMembers = {
    "element {0} carries {1} of its own pi^2 E I / L^2 in compression ({2} above {3}): one element a member "
    "overestimates its stability, divide it",
    "单元 {0} 的压力为自身 π²EI/L² 的 {1} 倍（超过 {3} 的有 {2} 个）：每个构件一个单元会高估稳定性，请细分"};
inline constexpr Words c_axesTwist = {
    "the section of element {0} turned by {1} rad about its own axis with its plan projection: second-order effects "
    "are a few per cent off, as its Iy and Iz differ",
    "单元 {0} 的截面随其平面投影绕自身轴线转动了 {1} rad：Iy 与 Iz 不等，二阶效应有百分之几的偏差"};

// Modal analysis.
inline constexpr Words c_roughMode = {
    "mode {0} satisfies K phi = omega^2 M phi only to {1}: ask for a larger iteration multiple",
    "第 {0} 阶振型满足 Kφ = ω²Mφ 的精度只有 {1}：请增大迭代倍数"};
inline constexpr Words c_notCounted = {"the Sturm count failed: nothing is known about missed modes",
                                       "Sturm 计数失败：不知道有无遗漏的振型"};
inline constexpr Words c_missedMode = {"{0} mode below {1} Hz is missing: {2}", "低于 {1} Hz 的振型遗漏了 {0} 个：{2}"};
inline constexpr Words c_missedModes = {"{0} modes below {1} Hz are missing: {2}",
                                        "低于 {1} Hz 的振型遗漏了 {0} 个：{2}"};
inline constexpr Words c_otherCheck = {"use \"root_check\": \"compare\"", "请用 \"root_check\": \"compare\""};
inline constexpr Words c_moreModes = {"ask for more modes or a larger iteration multiple",
                                      "请增加振型数或增大迭代倍数"};
inline constexpr Words c_modesInDoubt = {
    "{0} modes below {1} Hz were found, a Sturm count says {2}: equal or rough modes near that limit",
    "求得低于 {1} Hz 的振型 {0} 个，Sturm 计数为 {2} 个：界限附近有相等的或粗糙的振型"};

// Response-spectrum analysis.
inline constexpr Words c_otherCombination = {
    "phi^T M phi of mode {0} is {1} with the load combination of this analysis, not 1: the modal analysis had another "
    "one",
    "按本次分析的荷载组合，第 {0} 阶振型的 φᵀMφ 为 {1} 而不是 1：模态分析用的是另一个组合"};
inline constexpr Words c_noMass = {"no mass is free to move along the earthquake: it has no effect",
                                   "地震作用方向上没有可动的质量：地震不起作用"};
inline constexpr Words c_massOfMode = {"{0} mode holds {1} % of the mass in {2}, below 90 %: use more modes",
                                       "{0} 阶振型含 {2} 向质量的 {1} %，不足 90 %：请增加振型数"};
inline constexpr Words c_massOfModes = {"{0} modes hold {1} % of the mass in {2}, below 90 %: use more modes",
                                        "{0} 阶振型含 {2} 向质量的 {1} %，不足 90 %：请增加振型数"};
inline constexpr Words c_longPeriod = {"mode {0} has the period {1} s: the spectrum ends at 6 s and gives it no load",
                                       "第 {0} 阶振型的周期为 {1} s：设计谱到 6 s 为止，该振型不受荷载"};

// Time history.
inline constexpr Words c_negativeDamping = {
    "the damping ratios give mode {0} ({1} rad/s) {2} %: it is driven, not damped",
    "两个阻尼比使第 {0} 阶振型（{1} rad/s）的阻尼比为 {2} %：其运动不断增大而不是衰减"};
inline constexpr Words c_roughStart = {
    "the static loads of the start did not reach equilibrium within the permitted iterations: permit more",
    "起始静力荷载在允许的迭代次数内没有达到平衡：请增加迭代次数"};
inline constexpr Words c_roughSteps = {
    "in {0} of {1} steps equilibrium was not reached within the permitted iterations: permit more, or take a smaller "
    "time step",
    "{1} 步中有 {0} 步在允许的迭代次数内没有达到平衡：请增加迭代次数或减小时间步长"};
inline constexpr Words c_noResponse = {
    "nothing moves in {0} steps: no force or acceleration acts, or none in a free direction",
    "{0} 步中没有任何位移：没有力或加速度作用，或者都不在自由方向上"};
inline constexpr Words c_olderHistory = {"the viewer still shows an earlier run: {0}",
                                         "结果窗口显示的仍是较早的一次：{0}"};

}  // namespace skyframe::host::advice::texts

namespace skyframe::host {
namespace texts = advice::texts;
}
