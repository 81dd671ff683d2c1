#pragma once

#include <array>

#include "skyframe/job/Language.h"

// Texts of the histories dock.
namespace skyframe::gui {

/// By CurveKind.
inline constexpr std::array<std::string_view, 7> c_strCurveAxes = {"X", "Y", "Z", "", "X", "Y", "Z"};

namespace texts {

using host::Words;

inline constexpr Words c_histories = {"Histories", "时程曲线"};
inline constexpr Words c_historiesTip = {
    "Curves over time. In a chart a click sets the time, the wheel zooms the time and with Ctrl the values, a frame "
    "drawn with the left button is enlarged, the right button moves, a double click shows all",
    "时程曲线。图中单击设定时刻，滚轮缩放时间（按住 Ctrl 缩放数值），左键框选放大，右键移动，双击显示全部"};

// By CurveKind.
inline constexpr std::array<Words, 7> c_curveKindNames = {{{"displacement X of node", "节点 X 向位移"},
                                                           {"displacement Y of node", "节点 Y 向位移"},
                                                           {"displacement Z of node", "节点 Z 向位移"},
                                                           {"axial force of element", "单元轴力"},
                                                           {"base shear X", "X 向基底剪力"},
                                                           {"base shear Y", "Y 向基底剪力"},
                                                           {"base shear Z", "Z 向基底反力之和"}}};
inline constexpr Words c_curveKindTip = {
    "What the curve to be added shows. Base shear is the sum of the structure's elastic forces on its supports",
    "要添加的曲线。基底剪力是结构作用于各支座的弹性力之和"};
inline constexpr Words c_curveNumberTip = {"Node id, or element number from 1", "节点编号，或单元号（从 1 起）"};
inline constexpr Words c_addCurve = {"Add", "添加"};
inline constexpr Words c_addCurveTip = {"Add this curve", "添加这条曲线"};
inline constexpr Words c_addSelected = {"Add selected", "添加所选"};
inline constexpr Words c_addSelectedTip = {
    "Add the nodes selected in the drawing, in the direction chosen at the left, and the axial forces of the elements "
    "selected",
    "添加图形中所选节点（方向取左侧所选）和所选单元的轴力"};
inline constexpr Words c_removeCurve = {"Remove", "删除"};
inline constexpr Words c_removeCurveTip = {"Take the curve chosen in the list away", "删除列表中所选的曲线"};
inline constexpr Words c_curveListTip = {"The curves shown; a click selects the node or element in the drawing",
                                         "所示曲线；单击在图形中选中相应节点或单元"};
inline constexpr Words c_lengthUnitTip = {"Unit of displacements", "位移单位"};
inline constexpr Words c_forceUnitTip = {"Unit of forces", "力的单位"};
inline constexpr Words c_saveCurves = {"CSV…", "CSV…"};
inline constexpr Words c_saveCurvesTip = {"Save the curves shown as a table for spreadsheets",
                                          "把所示曲线保存为电子表格可读的 CSV 文件"};
inline constexpr Words c_csvTitle = {"Save curves", "保存曲线"};
inline constexpr Words c_csvFilter = {"CSV tables (*.csv)", "CSV 表格 (*.csv)"};
inline constexpr Words c_csvFailed = {"The curves could not be saved: {0}", "曲线无法保存：{0}"};

// Curves.
inline constexpr std::array<Words, 3> c_groupNames = {
    {{"displacement", "位移"}, {"axial force, tension positive", "轴力（受拉为正）"}, {"base shear", "基底剪力"}}};
inline constexpr Words c_nodeCurve = {"node {0}, {1}", "节点 {0}，{1}"};
inline constexpr Words c_axialCurve = {"element {0}, N", "单元 {0}，N"};
inline constexpr Words c_shearCurve = {"base shear, {0}", "基底剪力，{0}"};

// State.
inline constexpr Words c_noHistories = {"No histories yet: run a time history (F4)",
                                        "尚无时程结果，请先作时程分析（F4）"};
inline constexpr Words c_oldHistories = {"The histories come from another model than the open one.",
                                         "时程结果由另一模型算得（过期）。"};
inline constexpr Words c_showAnyway = {"Show them", "仍然显示"};
inline constexpr Words c_showAnywayTip = {"Draw the histories of the other model", "绘出过期的时程结果"};
inline constexpr Words c_noShear = {"read from the file, without base shear", "读自文件，无基底剪力"};
inline constexpr Words c_tooMany = {"No more than {0} curves are shown", "最多显示 {0} 条曲线"};

// Player.
inline constexpr Words c_playTip = {"Play: let the structure in the drawing move through time",
                                    "播放：使图形中的结构随时间运动"};
inline constexpr Words c_pauseTip = {"Pause", "暂停"};
inline constexpr Words c_toStartTip = {"To the first step", "到第一步"};
inline constexpr Words c_stepBackTip = {"A step back", "后退一步"};
inline constexpr Words c_stepOnTip = {"A step on", "前进一步"};
inline constexpr Words c_timeTip = {"Time of the cursor and of the drawing", "光标与图形的时刻"};
inline constexpr Words c_speedTip = {"Speed: times real time", "播放速度：真实时间的倍数"};
inline constexpr Words c_loop = {"Loop", "循环"};
inline constexpr Words c_loopTip = {"Begin again at the end", "到末尾后重新开始"};
inline constexpr Words c_move = {"In the drawing", "图形中显示"};
inline constexpr Words c_moveTip = {"Draw the structure at this time; the scale is that of the whole history",
                                    "按此时刻的位移绘出结构，全过程显示比例不变"};
inline constexpr Words c_now = {"t = {0} of {1} s", "t = {0} / {1} s"};

}  // namespace texts
}  // namespace skyframe::gui
