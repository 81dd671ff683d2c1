#pragma once

#include "skyframe/job/Language.h"

// Texts of the window, labels with their tips.
namespace skyframe::gui::texts {

using host::Words;

inline constexpr Words c_program = {"Skyframe", "Skyframe"};

// 文件
inline constexpr Words c_fileMenu = {"&File", "文件(&F)"};
inline constexpr Words c_open = {"&Open…", "打开(&O)…"};
inline constexpr Words c_openTip = {"Open a job file", "打开作业文件"};
inline constexpr Words c_new = {"&New from a generator…", "用生成器新建(&N)…"};
inline constexpr Words c_newTip = {"A regular building, tower, dome or arch as a job",
                                   "生成规则的框架、塔架、网壳或拱作业"};
inline constexpr Words c_reload = {"&Reload", "重新载入(&R)"};
inline constexpr Words c_reloadTip = {"Read the job file again", "重新读取作业文件"};
inline constexpr Words c_save = {"&Save", "保存(&S)"};
inline constexpr Words c_saveTip = {"Write the job with its analyses", "保存作业及其分析参数"};
inline constexpr Words c_saveAs = {"Save &as…", "另存为(&A)…"};
inline constexpr Words c_saveAsTip = {"Write the job to another file", "把作业保存为另一文件"};
inline constexpr Words c_recent = {"Recent &files", "最近的文件(&T)"};
inline constexpr Words c_savePicture = {"Save &picture…", "保存图片(&I)…"};
inline constexpr Words c_savePictureTip = {"Save the drawing as a PNG picture", "把图形保存为 PNG 图片"};
inline constexpr Words c_report = {"Calculation &report…", "计算书(&B)…"};
inline constexpr Words c_reportTip = {"Write the calculation report as a page for browser and printer",
                                      "生成可供浏览和打印的计算书"};
inline constexpr Words c_reportTitle = {"Save calculation report", "保存计算书"};
inline constexpr Words c_reportFilter = {"Web pages (*.html)", "网页 (*.html)"};
inline constexpr Words c_reportFailed = {"The report could not be written: {0}", "计算书无法保存：{0}"};
inline constexpr Words c_print = {"Prin&t drawing…", "打印图形(&P)…"};
inline constexpr Words c_printTip = {"Print the drawing as it is shown", "打印当前显示的图形"};
inline constexpr Words c_quit = {"&Quit", "退出(&X)"};
inline constexpr Words c_quitTip = {"Close the program", "关闭程序"};

// 分析
inline constexpr Words c_analysisMenu = {"&Analysis", "分析(&A)"};
inline constexpr Words c_runAll = {"&Run all", "全部运行(&A)"};
inline constexpr Words c_runAllTip = {"Run every analysis of the job in order, without dialogs",
                                      "按顺序运行作业的全部分析，不显示对话框"};
inline constexpr Words c_modal = {"&Modes…", "模态分析(&M)…"};
inline constexpr Words c_modalTip = {"Natural frequencies and mode shapes", "自振频率与振型"};
inline constexpr Words c_spectrum = {"Response &spectrum…", "谱分析(&S)…"};
inline constexpr Words c_spectrumTip = {"Response-spectrum analysis; needs the modes",
                                        "振型分解反应谱分析，需先完成模态分析"};
inline constexpr Words c_timeHistory = {"&Time history…", "时程分析(&T)…"};
inline constexpr Words c_timeHistoryTip = {"Time history by direct integration; needs the modes for damping",
                                           "直接积分法时程分析，阻尼取自振型"};
inline constexpr Words c_historyResults = {"&History viewer…", "时程结果(&R)…"};
inline constexpr Words c_historyResultsTip = {"Plot and export the last time history",
                                              "绘制并输出最近一次时程分析的结果"};
inline constexpr Words c_static = {"Static…", "静力分析(&L)…"};
inline constexpr Words c_staticTip = {"Static analysis, linear or geometrically nonlinear", "线性或几何非线性静力分析"};

// 视图
inline constexpr Words c_viewMenu = {"&View", "视图(&V)"};
inline constexpr Words c_isometric = {"&Axonometric", "轴测图(&I)"};
inline constexpr Words c_isometricTip = {"Look from the front right above", "从右前上方看"};
inline constexpr Words c_front = {"&XZ elevation", "XZ 立面(&F)"};
inline constexpr Words c_frontTip = {"Look along Y: X to the right, Z up", "沿 Y 看：X 向右，Z 向上"};
inline constexpr Words c_side = {"&YZ elevation", "YZ 立面(&E)"};
inline constexpr Words c_sideTip = {"Look against X: Y to the right, Z up", "逆 X 看：Y 向右，Z 向上"};
inline constexpr Words c_plan = {"&Plan", "平面图(&P)"};
inline constexpr Words c_planTip = {"Look down: X to the right, Y up", "俯视：X 向右，Y 向上"};
inline constexpr Words c_fit = {"&Fit", "全部显示(&A)"};
inline constexpr Words c_fitTip = {"Fit the structure into the window (or double-click)", "使结构充满窗口（或双击）"};
inline constexpr Words c_nextShape = {"Ne&xt shape", "下一个变形(&J)"};
inline constexpr Words c_nextShapeTip = {"Draw the next shape or mode", "绘制下一个变形或振型"};
inline constexpr Words c_previousShape = {"Pre&vious shape", "上一个变形(&K)"};
inline constexpr Words c_previousShapeTip = {"Draw the shape or mode before", "绘制上一个变形或振型"};
inline constexpr Words c_supports = {"S&upports", "支座(&U)"};
inline constexpr Words c_supportsTip = {"Show the supports", "显示支座"};
inline constexpr Words c_nodeNumbers = {"&Node numbers", "节点号(&N)"};
inline constexpr Words c_nodeNumbersTip = {"Show node ids, as in the job file", "显示节点编号，与作业文件一致"};
inline constexpr Words c_elementNumbers = {"&Element numbers", "单元号(&B)"};
inline constexpr Words c_elementNumbersTip = {"Show element numbers, from 1", "显示单元号，从 1 起"};
inline constexpr Words c_sectionNames = {"Se&ction names", "截面名(&C)"};
inline constexpr Words c_sectionNamesTip = {"Show the members' sections", "显示杆件的截面"};
inline constexpr Words c_localAxes = {"Local a&xes", "局部坐标轴(&X)"};
inline constexpr Words c_localAxesTip = {"Show x, y, z of each member", "显示各杆件的 x、y、z 轴"};
inline constexpr Words c_fontMenu = {"Font si&ze", "字号(&Z)"};
inline constexpr Words c_fontTip = {"Font size of all windows", "所有窗口的字号"};
inline constexpr Words c_languageMenu = {"Lan&guage 语言", "语言(&G) Language"};
inline constexpr Words c_languageTip = {"Language of the window; the module's dialogs are Chinese",
                                        "窗口的语言；分析参数对话框为中文"};

// 帮助
inline constexpr Words c_helpMenu = {"&Help", "帮助(&H)"};
inline constexpr Words c_manual = {"&Manual", "手册(&M)"};
inline constexpr Words c_manualTip = {"The manual; no connection is needed", "打开手册，无需联网"};
inline constexpr Words c_manualTitle = {" - Skyframe manual", " - Skyframe 手册"};
inline constexpr Words c_noManual = {"The manual is not installed.", "手册未安装。"};
inline constexpr Words c_contents = {"Contents", "目录"};
inline constexpr Words c_back = {"Back", "后退"};
inline constexpr Words c_forward = {"Forward", "前进"};
inline constexpr Words c_about = {"&About", "关于(&A)"};
inline constexpr Words c_aboutTip = {"Version of the program", "程序版本"};
inline constexpr Words c_aboutText = {"Static and dynamic analysis of space frames and trusses",
                                      "空间框架与桁架的静力和动力分析"};

// Bars and docks
inline constexpr Words c_shapeBar = {"Shape", "变形"};
inline constexpr Words c_shapeTip = {"Deformed shape or mode drawn over the structure", "叠绘在结构上的变形或振型"};
inline constexpr Words c_noShape = {"undeformed", "未变形"};
inline constexpr Words c_amplitude = {"Size", "显示比例"};
inline constexpr Words c_amplitudeTip = {"How far the drawn shape departs from the structure",
                                         "所绘变形偏离结构的大小"};
inline constexpr Words c_magnificationTip = {"Displacements are drawn so many times enlarged", "位移放大的倍数"};
inline constexpr Words c_animate = {"Animate", "动画"};
inline constexpr Words c_animateTip = {"Let the shape swing", "让变形往复摆动"};
inline constexpr Words c_console = {"Console", "控制台"};
inline constexpr Words c_consoleTip = {"Progress and trace lines of the analyses", "分析过程的进度与记录"};
inline constexpr Words c_summary = {"Summary", "摘要"};
inline constexpr Words c_summaryTip = {"What the last runs found", "最近几次分析的结果摘要"};
inline constexpr Words c_analyses = {"Analyses", "作业分析"};
inline constexpr Words c_analysesTip = {"The job's analyses; a double click runs one with its dialogs",
                                        "作业中的分析；双击以对话框运行一项"};
inline constexpr Words c_removeAnalysis = {"Remove", "删除"};
inline constexpr Words c_results = {"Result files", "结果文件"};
inline constexpr Words c_resultsTip = {"Result files beside the job file; click one to read it",
                                       "作业文件旁的结果文件；单击阅读"};
inline constexpr Words c_advice = {"Hints", "提示"};
inline constexpr Words c_adviceTip = {"Warnings and errors of the last run; the manual explains each under its name",
                                      "最近一次分析的警告与错误；手册按名称逐条说明"};
inline constexpr Words c_shownHistory = {"History viewer: {0}", "时程结果: {0}"};
inline constexpr Words c_outdatedMark = {"   (out of date)", "（过期）"};
inline constexpr Words c_failedMark = {"   (with errors)", "（有错误）"};
inline constexpr Words c_outdatedTip = {"Computed from another model; run the analysis again",
                                        "由另一模型算得，请重新分析"};

inline constexpr Words c_resultBar = {"Results", "结果"};
inline constexpr Words c_forceSource = {"Forces of", "内力来源"};
inline constexpr Words c_forceSourceTip = {"Whose forces are drawn", "绘制哪一分析的内力"};
inline constexpr Words c_diagram = {"Diagram", "内力图"};
inline constexpr Words c_diagramTip = {"Diagram on the members: kN, kN·m; moments on the tension side",
                                       "在杆件上绘制内力图：kN、kN·m；弯矩画在受拉侧"};
inline constexpr Words c_diagramSizeTip = {"Size of the diagrams", "内力图的大小"};
inline constexpr Words c_colours = {"Colours", "着色"};
inline constexpr Words c_coloursTip = {"Colour the members by a force, or the shape by its displacement",
                                       "按内力给杆件着色，或按位移给变形着色"};
inline constexpr Words c_displacement = {"displacement", "位移"};
inline constexpr Words c_reactions = {"Reactions", "支反力"};
inline constexpr Words c_reactionsTip = {"Forces of the supports on the structure, kN and kN·m",
                                         "支座对结构的作用力，kN、kN·m"};
inline constexpr Words c_loadChoice = {"Loads", "荷载"};
inline constexpr Words c_loadChoiceTip = {"Loads of a case, of all, or of an analysis's combination, to scale",
                                          "按比例绘制一个工况、全部工况或某分析组合的荷载"};
inline constexpr Words c_none = {"none", "无"};
inline constexpr Words c_allCases = {"all cases", "全部工况"};
inline constexpr Words c_loadCase = {"case {0}", "工况 {0}"};
inline constexpr Words c_combinationOf = {"combination: {0}", "组合：{0}"};
inline constexpr Words c_linear = {"linear static analysis", "线性静力分析"};
inline constexpr Words c_nonlinear = {"nonlinear static analysis", "非线性静力分析"};
inline constexpr Words c_modes = {"modal analysis", "模态分析"};
inline constexpr Words c_response = {"response spectrum", "反应谱分析"};
inline constexpr Words c_history = {"time history", "时程分析"};

// Generators
inline constexpr Words c_generatorTitle = {"New from a generator", "用生成器新建"};
inline constexpr Words c_building = {"Building", "框架"};
inline constexpr Words c_tower = {"Tower", "塔架"};
inline constexpr Words c_dome = {"Dome", "网壳"};
inline constexpr Words c_arch = {"Arch", "拱"};
inline constexpr Words c_create = {"Create…", "创建…"};

// Parts of the structure
inline constexpr Words c_inspect = {"Properties", "属性"};
inline constexpr Words c_inspectTip = {
    "Data, loads and results of what is selected; click a node or member in the "
    "drawing, Ctrl adds",
    "所选对象的数据、荷载与结果；在图中单击节点或杆件，按住 Ctrl 可多选"};
inline constexpr Words c_node = {"nodes", "节点"};
inline constexpr Words c_element = {"elements", "单元"};
inline constexpr Words c_section = {"section", "截面"};
inline constexpr Words c_findWhatTip = {"What to find", "查找的对象"};
inline constexpr Words c_findHint = {"find: 1-20, 35", "查找：1-20, 35"};
inline constexpr Words c_findTip = {"Numbers and ranges, or a part of a section's name; Enter selects",
                                    "编号与范围，或截面名的一部分；回车选中"};
inline constexpr Words c_alone = {"show the selection alone", "只显示所选"};
inline constexpr Words c_aloneTip = {"Hide what is not selected now", "隐藏当前未选中的部分"};
inline constexpr Words c_property = {"Property", "属性"};
inline constexpr Words c_value = {"Value", "值"};
inline constexpr Words c_selected = {"{0} nodes and {1} elements selected", "已选 {0} 个节点、{1} 个单元"};
inline constexpr Words c_nodeOf = {"Node {0}", "节点 {0}"};
inline constexpr Words c_elementOf = {"Element {0}", "单元 {0}"};
inline constexpr Words c_hostNumber = {"number in result files", "结果文件中的编号"};
inline constexpr Words c_joint = {"joint", "连接类型"};
inline constexpr Words c_rigid = {"rigid", "刚接"};
inline constexpr Words c_pinned = {"pinned", "铰接"};
inline constexpr Words c_support = {"restrained", "约束"};
inline constexpr Words c_free = {"free", "自由"};
inline constexpr Words c_springGroup = {"spring group {0}", "弹簧组 {0}"};
inline constexpr Words c_reactionOf = {"reaction {0}", "支反力 {0}"};
inline constexpr Words c_type = {"type", "类型"};
inline constexpr Words c_bar = {"bar", "杆"};
inline constexpr Words c_beam = {"beam", "梁"};
inline constexpr Words c_cable = {"cable", "索"};
inline constexpr Words c_membrane = {"membrane", "膜"};
inline constexpr Words c_endNodes = {"nodes", "节点"};
inline constexpr Words c_length = {"length", "长度"};

// Drawing
inline constexpr Words c_linearState = {"static deformation (linear)", "静力变形（线性）"};
inline constexpr Words c_nonlinearState = {"static deformation (nonlinear)", "静力变形（非线性）"};
inline constexpr Words c_mode = {"mode {0}", "振型 {0}"};
inline constexpr Words c_moment = {"time history   t = {0} s", "时程   t = {0} s"};
inline constexpr Words c_motion = {"time history", "时程"};
inline constexpr Words c_magnified = {"displacements × {0}", "位移放大 {0} 倍"};
inline constexpr Words c_shapeHidden = {"{0}   not drawn: diagrams lie on the undeformed structure",
                                        "{0}   未绘出：内力图绘于未变形的结构上"};
inline constexpr Words c_noJob = {"Open a job file (Ctrl+O)", "打开一个作业文件（Ctrl+O）"};
inline constexpr Words c_counts = {"{0} nodes   {1} elements", "节点 {0}   单元 {1}"};

// Job files
inline constexpr Words c_openTitle = {"Open job file", "打开作业文件"};
inline constexpr Words c_saveTitle = {"Save job file", "保存作业文件"};
inline constexpr Words c_saveFailed = {"The job could not be written: {0}", "作业无法保存：{0}"};
inline constexpr Words c_askToSave = {"The analyses of the job have changed. Save them?",
                                      "作业的分析参数已修改，是否保存？"};
inline constexpr Words c_changedOnDisk = {"The job file has changed on the disk since it was read. Overwrite it?",
                                          "作业文件读入后在磁盘上已被修改，是否覆盖？"};
inline constexpr Words c_overwrite = {"Overwrite", "覆盖"};
inline constexpr Words c_readAgain = {"Read it again", "重新读取"};
inline constexpr Words c_yes = {"Save", "保存"};
inline constexpr Words c_no = {"Don't save", "不保存"};
inline constexpr Words c_cancel = {"Cancel", "取消"};
inline constexpr Words c_jobFilter = {"Job files (*.json);;All files (*)", "作业文件 (*.json);;所有文件 (*)"};
inline constexpr Words c_pictureTitle = {"Save picture", "保存图片"};
inline constexpr Words c_pictureFilter = {"PNG pictures (*.png)", "PNG 图片 (*.png)"};
inline constexpr Words c_errorTitle = {"Errors in the job file", "作业文件有误"};
inline constexpr Words c_errorKept = {"The file was not opened; the present job stays.",
                                      "文件未打开，当前作业保持不变。"};
inline constexpr Words c_place = {"Place", "位置"};
inline constexpr Words c_reason = {"Reason", "原因"};
inline constexpr Words c_close = {"Close", "关闭"};
inline constexpr Words c_pathTooLong = {"the path of the job file is too long", "作业文件的路径过长"};
inline constexpr Words c_pictureFailed = {"The picture could not be saved.", "图片无法保存。"};

}  // namespace skyframe::gui::texts
