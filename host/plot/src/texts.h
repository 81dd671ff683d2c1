#pragma once

#include <array>

#include "skyframe/job/Language.h"

namespace skyframe::host::texts {

// Charts.
inline constexpr Words c_time{"time t [s]", "时间 t [s]"};
inline constexpr Words c_period{"period T [s]", "周期 T [s]"};
inline constexpr Words c_alpha{"seismic influence coefficient α", "地震影响系数 α"};
inline constexpr Words c_designSpectrum{"Design spectrum: {0}", "设计反应谱：{0}"};
inline constexpr Words c_alphaOfPeriod{"α(T), damping ratio {0}", "α(T)，阻尼比 {0}"};
inline constexpr Words c_modePeriods{"periods of modes 1–{0}", "第 1–{0} 振型的周期"};
inline constexpr Words c_peak{"peak {0} {1} at {2} s", "峰值 {0} {1}，t = {2} s"};
inline constexpr Words c_displacement{"displacement {0}", "{0} 向位移"};
inline constexpr Words c_displacements{"displacement", "位移"};
inline constexpr Words c_axialForce{"axial force N, tension positive", "轴力 N（受拉为正）"};
inline constexpr Words c_node{"node {0}", "节点 {0}"};
inline constexpr Words c_element{"element {0}", "单元 {0}"};
inline constexpr Words c_nodeOf{"Node {0}: time history, {1}", "节点 {0}：时程分析，{1}"};
inline constexpr Words c_elementOf{"Element {0}: time history, {1}", "单元 {0}：时程分析，{1}"};
inline constexpr Words c_severalCurves{"{0} curves: time history, {1}", "{0} 条曲线：时程分析，{1}"};
inline constexpr Words c_nodeCurve{"node {0}, {1}", "节点 {0}，{1}"};

// Shapes.
inline constexpr Words c_isometric{"Isometric", "轴测图"};
inline constexpr Words c_front{"Elevation X–Z", "X–Z 立面"};
inline constexpr Words c_side{"Elevation Y–Z", "Y–Z 立面"};
inline constexpr Words c_plan{"Plan X–Y", "X–Y 平面"};
inline constexpr Words c_undeformed{"undeformed", "变形前"};
inline constexpr Words c_deformed{"deformed", "变形后"};
inline constexpr Words c_magnified{"{0}, displacements x {1}", "{0}，位移放大 {1} 倍"};
inline constexpr Words c_support{"support", "支座"};
inline constexpr Words c_largest{"largest displacement", "最大位移"};
inline constexpr Words c_mode{"mode {0}", "振型 {0}"};
inline constexpr Words c_modeOf{"Mode {0} of {1}: frequency {2} Hz, period {3} s",
                                "第 {0} 振型（共 {1} 个）：频率 {2} Hz，周期 {3} s"};
inline constexpr Words c_largestOf{"{0}: largest displacement {1} mm", "{0}：最大位移 {1} mm"};

// Forces and loads.
inline constexpr Words c_spectrumForces{"Response spectrum, {0}", "反应谱分析，{0}"};
inline constexpr Words c_historyForces{"Time history, t = {0} s", "时程分析，t = {0} s"};
inline constexpr Words c_diagramOf{"{0}: {1} [{2}], {3}", "{0}：{1} [{2}]，{3}"};
inline constexpr Words c_coloursOf{"{0}: {1} [{2}]", "{0}：{1} [{2}]"};
inline constexpr Words c_reactionsOf{"{0}: forces of the supports on the structure [kN, kN·m]",
                                     "{0}：支座对结构的反力 [kN、kN·m]"};
inline constexpr Words c_structure{"Structure", "结构"};
inline constexpr Words c_allLoads{"Loads of all cases", "全部工况的荷载"};
inline constexpr Words c_caseLoads{"Loads of case {0}", "工况 {0} 的荷载"};
inline constexpr Words c_combinedLoads{"Loads combined: {0}", "荷载组合：{0}"};
inline constexpr Words c_framesAt{"members at {0} = {1} m", "{0} = {1} m 处的杆件"};

inline constexpr Words c_outdated{"{0} (results of another model)", "{0}（结果过期）"};

// What cannot be drawn.
inline constexpr Words c_notThere{"cannot be opened; it is written by the {0}", "打不开；它由{0}写出"};
inline constexpr Words c_modalAnalysis{"modal analysis", "振型分析"};
inline constexpr Words c_spectrumAnalysis{"response-spectrum analysis", "反应谱分析"};
inline constexpr Words c_linearAnalysis{"linear static analysis", "线性静力分析"};
inline constexpr Words c_nonlinearAnalysis{"nonlinear static analysis", "非线性静力分析"};
inline constexpr Words c_historyAnalysis{"time history under ground motion", "地面运动时程分析"};
inline constexpr Words c_badFrequency{"the frequency of mode {0} is not a positive number, or out of range",
                                      "第 {0} 振型的频率不是正数或超出范围"};
inline constexpr Words c_noSpectrum{"the job has no response-spectrum analysis", "作业没有反应谱分析"};
inline constexpr Words c_fewModes{"{0} modes are asked for; the file has {1}", "要求 {0} 个振型，文件只有 {1} 个"};
inline constexpr Words c_noMode{"no mode {0}; the file has {1}", "没有第 {0} 振型，文件有 {1} 个"};
inline constexpr Words c_badDisplacement{"the displacement of node {0} is not a finite number, or out of range",
                                         "节点 {0} 的位移不是有限数或超出范围"};
inline constexpr Words c_noElement{"no element {0}; the job has {1}", "没有单元 {0}，作业有 {1} 个"};
inline constexpr Words c_noNode{"no node has the id {0}", "没有编号为 {0} 的节点"};
inline constexpr Words c_longPath{"the path of the job file is too long", "作业文件的路径太长"};
inline constexpr Words c_noStep{"holds no step", "没有时间步"};
inline constexpr Words c_badTimeStep{"the time step is not a positive number", "时间步长不是正数"};
inline constexpr Words c_badHistory{"{0} of {1} is not a finite number, or out of range, at t = {2} s",
                                    "{1} 的{0}在 t = {2} s 时不是有限数或超出范围"};
inline constexpr Words c_otherDirection{"holds another direction", "保存的是另一方向"};
inline constexpr Words c_noTime{"t = {0} s: the history ends at {1} s", "t = {0} s：时程到 {1} s 为止"};
inline constexpr Words c_axialAlone{"the history has axial forces alone", "时程结果只有轴力"};
inline constexpr Words c_noReactions{"the history has no reactions", "时程结果没有支座反力"};
inline constexpr Words c_noDiagram{"a resultant has no diagram; draw it in colours", "合力没有内力图，请用颜色表示"};
inline constexpr Words c_noCase{"no loads in case {0}", "工况 {0} 没有荷载"};
inline constexpr Words c_noQuantity{"no member has {0}", "没有杆件具有 {0}"};
inline constexpr Words c_noLoads{"the job has no loads", "作业没有荷载"};
inline constexpr Words c_noFrame{"no member lies at {0} = {1} m", "{0} = {1} m 处没有杆件"};

}  // namespace skyframe::host::texts
