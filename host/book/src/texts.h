#pragma once

#include "skyframe/job/Language.h"

namespace skyframe::host {

/// A text of the report in the language in force: it stands where it is used, in both languages, so that a chapter
/// reads like the page that it writes.
[[nodiscard]] inline std::string Tell(const Words& words, std::initializer_list<std::string_view> values = {}) {
  return Say(words, values);
}

}  // namespace skyframe::host

// What stands in more than one place.
namespace skyframe::host::book::texts {

inline constexpr Words c_contents = {"Contents", "目录"};
inline constexpr Words c_table = {"Table ", "表 "};
inline constexpr Words c_figure = {"Figure ", "图 "};
inline constexpr Words c_satisfied = {"satisfied", "满足"};
inline constexpr Words c_notSatisfied = {"not satisfied", "不满足"};
inline constexpr Words c_noLimit = {"no limit", "无限值"};
inline constexpr Words c_satisfiedForInformation = {"satisfied (for information)", "满足（仅供参考）"};
inline constexpr Words c_notSatisfiedForInformation = {"not satisfied (for information)", "不满足（仅供参考）"};
inline constexpr Words c_notRun = {"Not run: there is no file {0}.", "未计算：没有文件 {0}。"};
inline constexpr Words c_notAsked = {"Not applicable: the job has no such analysis.", "不适用：作业文件没有此项分析。"};
inline constexpr Words c_notRead = {"The file {0} {1}.", "文件 {0} {1}。"};
inline constexpr Words c_notOfRun = {"is not as the run wrote it", "已不是该次分析写出的内容"};
inline constexpr Words c_badFrequencies = {"has frequencies that are no positive numbers", "中有不是正数的频率"};
inline constexpr Words c_noMasses = {"The module refused the model; no masses are known.",
                                     "模块拒绝该模型，得不到质量。"};
/// Without a verdict, by Doubt.
inline constexpr Words c_unchecked[] = {
    {"not checked", "未验算"},
    {"not checked: out of date, run the analysis again", "未验算：结果过期，请重新分析"},
    {"not checked: run the spectrum again", "未验算：请重新进行反应谱分析"},
    {"not checked: the modes have other masses", "未验算：振型所用质量不同"}};
inline constexpr Words c_uncheckedHistory = {"not checked: run the time history again", "未验算：请重新进行时程分析"};
inline constexpr Words c_outdated = {
    "Out of date: {0} was computed from another model on {1}. Its figures do not belong to the model of this report; "
    "run the analysis again.",
    "过期：{0} 是 {1} 由另一模型算得的。其数值不属于本计算书的模型，请重新分析。"};
inline constexpr Words c_ownParameters = {"{0} was computed with parameters other than those of the job.",
                                          "{0} 的计算参数与作业文件不同。"};
inline constexpr Words c_unknownRun = {
    "It is not known which run wrote {0}: its parameters are taken from the job file.",
    "不知道 {0} 由哪次分析写出：其参数取自作业文件。"};
inline constexpr Words c_noStoreys = {"Not applicable: the structure has no storeys.", "不适用：结构没有楼层。"};

}  // namespace skyframe::host::book::texts

namespace skyframe::host {
namespace texts = book::texts;
}
