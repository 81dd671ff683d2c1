#pragma once

#include "skyframe/job/Language.h"

// What is said around the runs of a job.

namespace skyframe::host::run::texts {

// Names of methods.
inline constexpr Words c_wilson = {"Time history, Wilson", "时程分析，Wilson 法"};
inline constexpr Words c_newmark = {"Time history, Newmark", "时程分析，Newmark 法"};

// Summaries of runs.
inline constexpr Words c_noResult = {"no result", "没有结果"};
inline constexpr Words c_cancelled = {"cancelled in its dialogs", "在对话框中取消"};
inline constexpr Words c_conditioning = {"conditioning", "失去的位数"};
inline constexpr Words c_digitsLost = {"{0} digits lost, at {1}", "{0} 位，{1}"};
inline constexpr Words c_allDigitsLost = {"all digits lost, at {0}", "全部，{0}"};
inline constexpr Words c_time = {"time", "用时"};
inline constexpr Words c_file = {"file", "文件"};
inline constexpr Words c_bytes = {"{0}, {1} bytes", "{0}，{1} 字节"};
inline constexpr Words c_otherNumbers = {
    "Result files number the nodes in the order of the job file; this summary uses their ids.",
    "结果文件按作业文件中的次序给节点编号；本摘要用节点的 id。"};
inline constexpr Words c_pathTooLong = {"the path of the job file is too long", "作业文件的路径过长"};

/// The platform's words for steps that a dialog did not take.
inline constexpr Words c_dialogErrors[] = {
    {"dialog {0}, step {1}, control {2}: {3}", "对话框 {0} 第 {1} 步，控件 {2}：{3}"}};
inline constexpr Words c_dialogReasons[] = {
    {"there is no such control", "没有这个控件"}, {"the control cannot be used that way", "控件不能这样使用"},
    {"the control is disabled", "控件不可用"},    {"there is no such row", "没有这一行"},
    {"the dialog has ended", "对话框已经结束"},
};

// Stamps of results.
inline constexpr Words c_outdated = {"{0} was computed from another model on {1}; run the analysis again",
                                     "{0} 是 {1} 由另一模型算得的，请重新分析"};
inline constexpr Words c_unwrittenStamp = {
    "the stamp of the results cannot be written: {0}; later nobody knows which model they come from",
    "不能写入结果的标记文件：{0}；以后无法判断结果出自哪个模型"};

// Size of a model.
inline constexpr Words c_nodes = {"nodes", "节点"};
inline constexpr Words c_nodeCounts = {"{0} ({1} rigid, {2} pinned)", "{0}（刚接 {1}，铰接 {2}）"};
inline constexpr Words c_elements = {"elements", "单元"};
inline constexpr Words c_elementCounts = {"{0} ({1} bars, {2} beams, {3} cables, {4} membranes), {5} sections",
                                          "{0}（杆 {1}，梁 {2}，索 {3}，膜 {4}），截面 {5}"};
inline constexpr Words c_loads = {"loads", "荷载"};
inline constexpr Words c_loadCounts = {"{0} in {1} cases", "{0}，工况 {1} 个"};
inline constexpr Words c_analyses = {"analyses", "分析"};
inline constexpr Words c_equations = {"equations", "方程"};
inline constexpr Words c_equationCounts = {"{0} free, {1} restrained", "自由 {0}，受约束 {1}"};
inline constexpr Words c_profile = {"profile", "天际线"};
inline constexpr Words c_renumbered = {"renumbered", "重新编号后"};
inline constexpr Words c_profileMeasures = {"{0} entries, mean height {1}, largest {2}, {3} MB, {4} GFLOP to factorise",
                                            "{0} 个数，平均列高 {1}，最大 {2}，{3} MB，分解 {4} GFLOP"};

}  // namespace skyframe::host::run::texts

namespace skyframe::host {
namespace texts = run::texts;
}
