#pragma once

#include <array>

#include "skyframe/job/Language.h"

// Texts of the tables.
namespace skyframe::host::tables::texts {

// Names
inline constexpr std::array<Words, 5> c_results = {{{"Static, linear", "静力分析（线性）"},
                                                    {"Static, nonlinear", "静力分析（非线性）"},
                                                    {"Modes", "模态分析"},
                                                    {"Response spectrum", "谱分析"},
                                                    {"Time history (peaks)", "时程分析（峰值）"}}};
inline constexpr std::array<Words, 6> c_kinds = {{{"modes", "振型"},
                                                  {"displacements", "节点位移"},
                                                  {"levels", "各标高位移"},
                                                  {"reactions", "支座反力"},
                                                  {"end forces", "杆端内力"},
                                                  {"largest forces", "最大内力"}}};

// Headings
inline constexpr Words c_node = {"Node", "节点"};
inline constexpr Words c_element = {"Element", "单元"};
inline constexpr Words c_section = {"Section", "截面"};
inline constexpr Words c_end = {"End", "杆端"};
inline constexpr Words c_mode = {"Mode", "振型"};
inline constexpr Words c_frequency = {"f", "f"};
inline constexpr Words c_period = {"T", "T"};
inline constexpr std::array<Words, 3> c_mass = {
    {{"Effective mass X", "有效质量 X"}, {"Effective mass Y", "有效质量 Y"}, {"Effective mass Z", "有效质量 Z"}}};
inline constexpr std::array<Words, 3> c_share = {{{"X", "X"}, {"Y", "Y"}, {"Z", "Z"}}};
inline constexpr std::array<Words, 3> c_runningSum = {{{"Sum X", "累计 X"}, {"Sum Y", "累计 Y"}, {"Sum Z", "累计 Z"}}};
inline constexpr Words c_participation = {"Participation factor", "振型参与系数"};
inline constexpr Words c_quakeMass = {"Effective mass", "有效质量"};
inline constexpr Words c_quakeShare = {"Share", "比例"};
inline constexpr Words c_quakeSum = {"Running sum", "累计"};
inline constexpr Words c_damping = {"Damping ratio", "阻尼比"};
inline constexpr std::array<Words, 6> c_displacement = {
    {{"X", "X"}, {"Y", "Y"}, {"Z", "Z"}, {"RX", "RX"}, {"RY", "RY"}, {"RZ", "RZ"}}};
inline constexpr Words c_total = {"Total", "合位移"};
inline constexpr Words c_level = {"Level", "序号"};
inline constexpr Words c_height = {"Z", "标高 Z"};
inline constexpr Words c_nodeCount = {"Nodes", "节点数"};
inline constexpr std::array<Words, 3> c_largest = {
    {{"Largest X", "最大 X"}, {"Largest Y", "最大 Y"}, {"Largest Z", "最大 Z"}}};
inline constexpr std::array<Words, 2> c_mean = {{{"Mean X", "平均 X"}, {"Mean Y", "平均 Y"}}};
inline constexpr std::array<Words, 2> c_ratio = {{{"Ratio X", "最大/平均 X"}, {"Ratio Y", "最大/平均 Y"}}};
inline constexpr std::array<Words, 6> c_reaction = {
    {{"FX", "FX"}, {"FY", "FY"}, {"FZ", "FZ"}, {"MX", "MX"}, {"MY", "MY"}, {"MZ", "MZ"}}};
inline constexpr std::array<Words, 6> c_force = {
    {{"N", "N"}, {"Qy", "Qy"}, {"Qz", "Qz"}, {"Mx", "Mx"}, {"My", "My"}, {"Mz", "Mz"}}};
inline constexpr Words c_placeMy = {"x/L of My", "My 处 x/L"};
inline constexpr Words c_placeMz = {"x/L of Mz", "Mz 处 x/L"};
/// By history quantity.
inline constexpr std::array<Words, 4> c_time = {
    {{"t of X", "X 时刻"}, {"t of Y", "Y 时刻"}, {"t of Z", "Z 时刻"}, {"t of N", "N 时刻"}}};

// Footings
inline constexpr Words c_sum = {"Sum", "合计"};
inline constexpr Words c_max = {"Max", "最大"};
inline constexpr Words c_min = {"Min", "最小"};
inline constexpr Words c_baseShear = {"Base shear", "基底剪力"};

// Notes
inline constexpr Words c_noMasses = {"The mass of this result is not known: run the modal analysis again.",
                                     "不知道该结果所用的质量，请重新进行模态分析。"};
inline constexpr Words c_shapeScale = {"The largest translation is 1.", "最大平动位移取 1。"};
inline constexpr Words c_meanOfLevel = {"Mean: half the sum of the largest and the smallest of the level's nodes.",
                                        "平均：该标高各节点位移最大值与最小值之和的一半。"};
inline constexpr Words c_supportForces = {"Forces of the structure on its supports.", "结构对支座的作用力。"};
inline constexpr Words c_combinedForces = {"Combined values have no sign: their sum is not the base shear.",
                                           "组合值无正负号，其代数和不是基底剪力。"};
inline constexpr Words c_combinedShear = {
    "Combined values have no sign. Base shear: support forces summed mode by mode, then the sums combined.",
    "组合值无正负号。基底剪力：各振型支座反力先求和，再组合。"};
inline constexpr Words c_combined = {"Combined values have no sign.", "组合值无正负号。"};
inline constexpr Words c_forceSigns = {"Local axes; N: tension positive.", "局部坐标系；N 以受拉为正。"};

// Errors
inline constexpr Words c_noMode = {"has no mode {0}", "没有第 {0} 阶振型"};

}  // namespace skyframe::host::tables::texts

namespace skyframe::host {
namespace texts = tables::texts;
}
