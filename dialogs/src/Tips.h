#pragma once

#include "skyframe/platform/Dialog.h"
#include "skyframe/values/DialogIds.h"

// What windows tell of a control at which the mouse rests: meaning, unit, range.

namespace skyframe::dialogs::tips {

struct Words {
  std::string_view strChinese;
  std::string_view strEnglish;
};

constexpr ControlTip Tip(int nId, const Words& words) { return {nId, words.strChinese, words.strEnglish}; }

// What stands in several dialogs.
inline constexpr Words c_run = {"以这些参数开始分析", "Start the analysis with these parameters"};
inline constexpr Words c_abandon = {"关闭对话框，不作分析", "Close the dialog without an analysis"};
inline constexpr Words c_takeOver = {"采用这些值，回到上一个对话框", "Take these values over to the dialog before"};
inline constexpr Words c_leave = {"放弃改动，回到上一个对话框", "Go back to the dialog before, changing nothing"};
inline constexpr Words c_mass = {
    "选择换算成质量的荷载工况和系数：乘系数后沿 +Z 的节点荷载除以 9.81；向下的荷载（-Z）系数取负值",
    "Load cases that become mass: nodal loads along +Z after their factor, divided by 9.81; loads that act down (-Z) "
    "need a negative factor"};
inline constexpr Words c_criterion = {"须变小的量：不平衡力或位移增量，取绝对值或相对值",
                                      "What must become small: residual force or displacement increment, absolute or "
                                      "relative"};
inline constexpr Words c_tolerance = {"收敛容差，大于 0；力准则单位 N，位移准则单位 m，相对准则无单位",
                                      "Tolerance, above 0; N for force, m for displacement, no unit for relative "
                                      "criteria"};
inline constexpr Words c_damping1 = {"第一阶频率处的阻尼比，无单位，例如 0.05",
                                     "Damping ratio at the first frequency, no unit, for example 0.05"};
inline constexpr Words c_damping2 = {"第二个不同频率处的阻尼比，无单位，例如 0.05",
                                     "Damping ratio at the next different frequency, no unit, for example 0.05"};
inline constexpr Words c_step = {"积分步长，单位 s，大于 0", "Time step, s, above 0"};
inline constexpr Words c_duration = {"计算时长，单位 s；步数为时长除以步长，截断取整",
                                     "Duration, s; the number of steps is duration over step, truncated"};
inline constexpr Words c_noEffect = {"本方法不用此项", "This method does not use it"};
inline constexpr Words c_closeViewer = {"关闭", "Close"};

inline constexpr ControlTip c_mode[] = {
    {c_nIdModes, "要求的振型数，1 至自由方程数", "Number of modes wanted, from 1 to the number of free equations"},
    {c_nIdSturm, "自由方程不少于 1000 时按模态比较判断有无漏根，少于 1000 时按 Sturm 序列判断",
     "Checks for lost roots: mode comparison with 1000 free equations or more, Sturm test below"},
    {c_nIdModeComparison, "按 Sturm 序列判断有无漏根：只有它能证明所求最高频率以下没有漏掉振型",
     "Checks for lost roots by the Sturm test, which alone proves that no mode below the highest frequency is missing"},
    {c_nIdAccuracy, "三对角特征值解法的相对精度，大于 0；每次打开都恢复为 1e-16",
     "Relative accuracy of the tridiagonal eigensolution, above 0; 1e-16 again each time the dialog opens"},
    {c_nIdIterMultiple, "Lanczos 子空间最多增大到首次尺寸的倍数，整数，不小于 1",
     "The Lanczos subspace may grow to this multiple of its first size; integer, 1 or more"},
    {c_nIdShear, "梁的刚度和质量计入剪切变形", "Shear deformation in the stiffness and mass of beams"},
    Tip(c_nIdModeLoadComb, c_mass),
    Tip(c_nIdOk, c_run),
    Tip(c_nIdCancel, c_abandon)};

inline constexpr ControlTip c_loadComb[] = {
    {c_nIdAvailable, "可用的荷载类型：静（恒载）、活1、活2……；可多选，双击即添加",
     "Available load types: 静 (dead), 活1, 活2 ... (live); several can be selected, a double click adds"},
    {c_nIdCombined, "组合中的荷载类型，系数在前；可多选，双击即删除",
     "Load types of the combination, each behind its factor; several can be selected, a double click removes"},
    {c_nIdAdd, "把右侧选中的荷载类型以当前系数加入组合", "Add the types selected on the right with the present factor"},
    {c_nIdRemove, "从组合中删除左侧选中的行", "Remove the rows selected on the left from the combination"},
    {c_nIdFactor, "加入时所用的系数，实数，可为负；改动它不影响已加入的行",
     "Factor for types when they are added, any number; rows already there keep theirs"},
    Tip(c_nIdOk, c_takeOver),
    Tip(c_nIdCancel, c_leave)};

inline constexpr ControlTip c_nonlinStatic[] = {
    Tip(c_nIdCriterion, c_criterion),
    {c_nIdMaxIter, "迭代上限，整数，不小于 1；只用于非线性", "Most iterations, integer, 1 or more; nonlinear only"},
    Tip(c_nIdTolerance, c_tolerance),
    {c_nIdNonlinear, "选中作几何非线性分析，不选作线性分析", "Geometrically nonlinear when ticked, else linear"},
    {c_nIdLoadComb, "选择施加的荷载工况和系数；不选任何工况则荷载为零",
     "Load cases that act, with their factors; without a case the load is zero"},
    Tip(c_nIdOk, c_run),
    Tip(c_nIdCancel, c_abandon)};

inline constexpr Words c_direction[] = {
    {"地震作用方向的 X 分量，无单位；三个分量自动归一化，不得全为 0",
     "X component of the direction of the earthquake, no unit; the three are normalised and not all 0"},
    {"地震作用方向的 Y 分量，无单位；三个分量自动归一化，不得全为 0",
     "Y component of the direction of the earthquake, no unit; the three are normalised and not all 0"},
    {"地震作用方向的 Z 分量，无单位；三个分量自动归一化，不得全为 0",
     "Z component of the direction of the earthquake, no unit; the three are normalised and not all 0"}};
inline constexpr Words c_site = {"场地类别，与特征分区一起决定特征周期 Tg",
                                 "Site class; with the design group it gives the characteristic period Tg"};
inline constexpr Words c_zone = {"设计地震分组，与场地类别一起决定特征周期 Tg",
                                 "Design group; with the site class it gives the characteristic period Tg"};
inline constexpr Words c_intensity = {"设防烈度，括号内为设计基本加速度；决定 αmax",
                                      "Intensity, with the design basic acceleration in brackets; gives αmax"};

inline constexpr ControlTip c_spectrum[] = {
    {c_nIdSaveAs, "保存为哪一个地震荷载工况；本版本不可用",
     "Seismic load case to save as; not available in this version"},
    {c_nIdMeshDiv, "每根梁输出内力的分格数，整数，不大于 20；输出的截面比格数多一个",
     "Cells of a beam in which forces are printed, integer, at most 20; there is one station more"},
    {c_nIdExpandModes, "参与组合的振型数，1 至模态文件中的振型数",
     "Number of modes combined, from 1 to those in the mode file"},
    Tip(c_nIdDirectionX, c_direction[0]),
    Tip(c_nIdDirectionY, c_direction[1]),
    Tip(c_nIdDirectionZ, c_direction[2]),
    Tip(c_nIdSiteClass1, c_site),
    Tip(c_nIdSiteClass2, c_site),
    Tip(c_nIdSiteClass3, c_site),
    Tip(c_nIdSiteClass4, c_site),
    Tip(c_nIdZoneGroup1, c_zone),
    Tip(c_nIdZoneGroup2, c_zone),
    Tip(c_nIdZoneGroup3, c_zone),
    Tip(c_nIdIntensity6, c_intensity),
    Tip(c_nIdIntensity7, c_intensity),
    Tip(c_nIdIntensity7Half, c_intensity),
    Tip(c_nIdIntensity8, c_intensity),
    Tip(c_nIdIntensity8Half, c_intensity),
    Tip(c_nIdIntensity9, c_intensity),
    {c_nIdFrequentQuake, "取多遇地震的 αmax", "Takes αmax of the frequent earthquake"},
    {c_nIdRareQuake, "取罕遇地震的 αmax；6 度没有", "Takes αmax of the rare earthquake; there is none for intensity 6"},
    {c_nIdDampRatio, "各阶振型的阻尼比，无单位，不小于 0，例如 0.05",
     "Damping ratio of all modes, no unit, 0 or more, for example 0.05"},
    {c_nIdSrss, "平方和开方：适用于频率相互远离的振型",
     "Square root of the sum of squares: for modes with frequencies far apart"},
    {c_nIdCqc, "完全二次组合：计入频率接近的振型之间的相关",
     "Complete quadratic combination: with the correlation of modes close in frequency"},
    {c_nIdGrp, "分组法：频率相差 10% 以内的振型按绝对值之和计",
     "Grouping: modes within 10 % in frequency count by the sum of their absolute values"},
    {c_nIdVirtualMode, "加入剩余质量振型；在本对话框中不可用", "Adds the residual-mass mode; not available here"},
    {c_nIdPseudoLoad, "地震拟静力荷载序号，整数；在本对话框中不可用",
     "Number of the pseudo-static load, integer; not available here"},
    {c_nIdLoadValues, "选择换算成质量的荷载工况和系数，应与模态分析时相同",
     "Load cases that become mass, with their factors: the same as in the modal analysis"},
    Tip(c_nIdOk, c_run),
    Tip(c_nIdCancel, c_abandon)};

inline constexpr ControlTip c_dynOption[] = {{c_nIdWilson, "Wilson-θ 法：线性，荷载只来自作业旁的 impulseload.log",
                                              "Wilson-θ: linear, loads from impulseload.log beside the job only"},
                                             {c_nIdNewmark, "Newmark 法：节点荷载或地震动；地震动可作非线性分析",
                                              "Newmark: nodal forces or ground motion, which may be nonlinear"},
                                             {c_nIdOk, "打开所选方法的对话框", "Open the dialog of the method"},
                                             Tip(c_nIdCancel, c_abandon)};

inline constexpr ControlTip c_wilson[] = {Tip(c_nIdDamping1, c_damping1),
                                          Tip(c_nIdDamping2, c_damping2),
                                          {c_nIdTheta, "Wilson θ，无单位；不小于 1.37 时无条件稳定",
                                           "Wilson's θ, no unit; unconditionally stable from 1.37 on"},
                                          Tip(c_nIdWilsonStep, c_step),
                                          Tip(c_nIdWilsonDuration, c_duration),
                                          Tip(c_nIdNonlinear, c_noEffect),
                                          Tip(c_nIdPeakOblique, c_noEffect),
                                          Tip(c_nIdPeakX, c_noEffect),
                                          Tip(c_nIdPeakY, c_noEffect),
                                          Tip(c_nIdPeakZ, c_noEffect),
                                          Tip(c_nIdLoadComb, c_noEffect),
                                          Tip(c_nIdOk, c_run),
                                          Tip(c_nIdCancel, c_abandon)};

inline constexpr ControlTip c_newmark[] = {
    {c_nIdNodalForce, "节点上的力，来自冲击荷载或 impulseload.log",
     "Forces on nodes, from the impulses or from impulseload.log"},
    {c_nIdGroundMotion, "地面加速度，来自标准地震波或作业旁的文件",
     "Ground acceleration, from the standard record or from files beside the job"},
    Tip(c_nIdDamping1, c_damping1),
    Tip(c_nIdDamping2, c_damping2),
    {c_nIdAlpha, "Newmark α（常记作 β），无单位；线性时不小于 (0.5+δ)²/4 则无条件稳定",
     "Newmark's α (often called β), no unit; with (0.5+δ)²/4 or more a linear run is unconditionally stable"},
    {c_nIdDelta, "Newmark δ（常记作 γ），无单位；不小于 0.5，大于 0.5 有数值阻尼",
     "Newmark's δ (often called γ), no unit; 0.5 or more, above 0.5 with numerical damping"},
    {c_nIdNonlinear, "几何非线性，只用于地震动；节点荷载时不作计算",
     "Geometrically nonlinear, for ground motion only; with nodal forces nothing is computed"},
    Tip(c_nIdCriterion, c_criterion),
    Tip(c_nIdTolerance, c_tolerance),
    {c_nIdMaxIter, "每一时间步的迭代上限，整数，不小于 1", "Most iterations in a time step, integer, 1 or more"},
    {c_nIdFromFile, "节点荷载取自 impulseload.log，地面加速度取自 _Xacc.txt 等，文件在作业旁",
     "Nodal forces from impulseload.log, ground accelerations from _Xacc.txt and its like, beside the job"},
    {c_nIdImpulseLoad, "冲击荷载的节点、方向、峰值，以及步长和时长",
     "Nodes, directions and peaks of impulses, time step and duration"},
    {c_nIdEarthquake, "地震波、方向、峰值，以及步长和时长",
     "Record, direction and peak of the ground motion, time step and duration"},
    {c_nIdGeneralLoad, "impulseload.log 中荷载的步长和时长", "Time step and duration of the loads in impulseload.log"},
    {c_nIdLoadComb,
     "选择换算成质量的荷载工况和系数：乘系数后沿 +Z 的节点荷载除以 9.81；非线性时整个组合又作为静力荷载先行施加",
     "Load cases that become mass: nodal loads along +Z after their factor, divided by 9.81; a nonlinear run applies "
     "the whole combination first as static load"},
    Tip(c_nIdOk, c_run),
    Tip(c_nIdCancel, c_abandon)};

inline constexpr ControlTip c_impulseLoad[] = {
    {c_nIdTriangular, "力在峰值时刻以前线性上升，再以同样长的时间降到零",
     "The force rises in a straight line up to the peak time and falls to zero in the same time"},
    {c_nIdRectangular, "力保持峰值，到卸载时刻为止", "The force keeps its peak up to the unload time"},
    {c_nIdImpulseNode, "受力节点的号码，从 1 起", "Number of the loaded node, from 1"},
    {c_nIdImpulseDirection, "力的方向：0 = X，1 = Y，2 = Z", "Direction of the force: 0 = X, 1 = Y, 2 = Z"},
    {c_nIdImpulsePeak, "力的峰值，单位 kN，沿整体坐标轴为正", "Peak of the force, kN, positive along the global axis"},
    {c_nIdPeakTime, "三角冲击上升到峰值的时间，单位 s；下降段等长",
     "Rise time of the triangle, s; the fall takes as long"},
    {c_nIdUnloadTime, "矩形冲击的持续时间，单位 s；三角冲击不用", "Length of the rectangle, s; the triangle has none"},
    Tip(c_nIdStep, c_step),
    Tip(c_nIdDuration, c_duration),
    {c_nIdImpulseList, "已插入的冲击：只有列在这里的才起作用", "Impulses inserted: only those listed here act"},
    {c_nIdImpulseInsert, "把左侧的节点、方向、峰值加入列表", "Put node, direction and peak into the list"},
    {c_nIdImpulseRemove, "删除列表中选中的行", "Delete the selected row of the list"},
    Tip(c_nIdOk, c_takeOver),
    Tip(c_nIdCancel, c_leave)};

inline constexpr ControlTip c_generalLoad[] = {
    {c_nIdStep, "积分步长，即 impulseload.log 中各荷载块的间隔，单位 s，大于 0",
     "Time step, which is the spacing of the blocks in impulseload.log, s, above 0"},
    Tip(c_nIdDuration, c_duration),
    Tip(c_nIdOk, c_takeOver),
    Tip(c_nIdCancel, c_leave)};

inline constexpr Words c_axis = {"地震动的方向；几个都选时只用次序 X、Y、Z 中最前的一个",
                                 "Direction of the ground motion; of several only the first of X, Y, Z is used"};
inline constexpr Words c_oblique = {"斜向地震方向的分量，无单位；三个分量自动归一化，不得全为 0",
                                    "Component of the oblique direction, no unit; the three are normalised and not "
                                    "all 0"};
inline constexpr Words c_peak = {"此方向地面加速度的峰值，单位 m/s²",
                                 "Peak ground acceleration in this direction, m/s²"};

inline constexpr ControlTip c_earthquake[] = {
    {c_nIdStandardRecord, "标准地震波；只有 El-Centro，采样间隔 0.02 s",
     "Standard record; El-Centro alone, spaced at 0.02 s"},
    {c_nIdStep, "积分步长，单位 s，大于 0；地震波每步取一个值",
     "Time step, s, above 0; the record gives one value a step"},
    Tip(c_nIdDuration, c_duration),
    {c_nIdPrincipal, "沿一个坐标轴的地震动", "Ground motion along a coordinate axis"},
    {c_nIdOblique, "沿任意方向的地震动", "Ground motion in any direction"},
    Tip(c_nIdQuakeX, c_axis),
    Tip(c_nIdQuakeY, c_axis),
    Tip(c_nIdQuakeZ, c_axis),
    Tip(c_nIdObliqueX, c_oblique),
    Tip(c_nIdObliqueY, c_oblique),
    Tip(c_nIdObliqueZ, c_oblique),
    Tip(c_nIdPeakX, c_peak),
    Tip(c_nIdPeakY, c_peak),
    Tip(c_nIdPeakZ, c_peak),
    Tip(c_nIdPeakOblique, c_peak),
    Tip(c_nIdOk, c_takeOver),
    Tip(c_nIdCancel, c_leave)};

inline constexpr ControlTip c_hisResult[] = {
    {c_nIdNodeHistory, "显示节点位移，单位 mm", "Shows the displacement of a node, mm"},
    {c_nIdElementHistory, "显示单元轴力，单位 kN", "Shows the axial force of an element, kN"},
    {c_nIdHistoryNode, "节点号码，1 至节点总数", "Number of the node, from 1 to the number of nodes"},
    {c_nIdHistoryX, "沿 X 的位移", "Displacement along X"},
    {c_nIdHistoryY, "沿 Y 的位移", "Displacement along Y"},
    {c_nIdHistoryZ, "沿 Z 的位移", "Displacement along Z"},
    {c_nIdHistoryElement, "单元号码，1 至单元总数", "Number of the element, from 1 to the number of elements"},
    {c_nIdRefresh, "核对号码并重画曲线", "Checks the number and draws the curve again"},
    {c_nIdOutput, "把所选历程写入作业旁的文件，单位 m、N", "Writes the history to a file beside the job, in m and N"},
    Tip(c_nIdOk, c_closeViewer),
    Tip(c_nIdCancel, c_closeViewer)};

}  // namespace skyframe::dialogs::tips
