#pragma once

#include "skyframe/job/Language.h"

// What the command line says.

namespace skyframe::host::cli::texts {

// The program.
inline constexpr Words c_program = {"Dynamic and static analysis of space frames and trusses",
                                    "空间框架与桁架的动力、静力分析"};
inline constexpr Words c_help = {"Print this help message and exit", "显示本说明"};
inline constexpr Words c_version = {"Display program version information and exit", "显示版本"};
inline constexpr Words c_language = {"Language of all texts, en or zh (default: SKYFRAME_LANG, else en)",
                                     "全部文字的语言，en 或 zh（缺省：SKYFRAME_LANG，否则 en）"};
inline constexpr Words c_moreHelp = {"Run with --help for more information.", "用 --help 查看说明。"};
inline constexpr Words c_emptyArgument = {"an argument is empty", "有空的参数"};
inline constexpr Words c_outOfMemory = {"out of memory", "内存不足"};
inline constexpr Words c_standardOutput = {"the standard output", "标准输出"};
inline constexpr Words c_outputLost = {"cannot write the standard output", "不能写入标准输出"};

// All commands.
inline constexpr Words c_warning = {"warning: ", "警告："};
inline constexpr Words c_jobFile = {"Job file (JSON)", "作业文件（JSON）"};
inline constexpr Words c_solvedJob = {"Job file (JSON) whose analyses have run", "已作过分析的作业文件（JSON）"};
inline constexpr Words c_belongsToJob = {"{0}: belongs to the job; choose another name",
                                         "{0}：属于该作业，请改用其他名称"};

inline constexpr Words c_pathTooLong = {"the path of the job file is too long", "作业文件的路径过长"};

// run
inline constexpr Words c_run = {"Run every analysis of a job; results stand beside the job file",
                                "作完作业中的全部分析，结果在作业文件旁边"};
inline constexpr Words c_jobFiles = {"Job file (JSON); of many, each runs in a process of its own",
                                     "作业文件（JSON）；给出多个时各在单独的进程中运行"};
inline constexpr Words c_log = {"File for the progress and trace lines (default: standard output)",
                                "写入进度和跟踪文字的文件（缺省：标准输出）"};
inline constexpr Words c_quiet = {"No progress and trace lines", "不写进度和跟踪文字"};
inline constexpr Words c_strict = {"End with status 3 when there was a warning", "有警告时退出码为 3"};
inline constexpr Words c_dialogs = {"Show the dialogs with the job's values, to be changed and confirmed",
                                    "显示对话框并填好作业中的值，由人修改、确认"};
inline constexpr Words c_data = {"Directory that holds GroundAccData", "含 GroundAccData 的目录"};
inline constexpr Words c_atOnce = {"Of many jobs, so many at once (default: one a processor)",
                                   "多个作业时同时运行的个数（缺省：每个处理器一个）"};
inline constexpr Words c_noWindows = {"--dialogs: no screen, or no windows in this installation",
                                      "--dialogs：没有屏幕，或没有安装窗口组件"};
inline constexpr Words c_oneJob = {"{0}: belongs to a run of one job", "{0}：只能用于单个作业"};
inline constexpr Words c_noProgram = {"many jobs: the file of this program is not known",
                                      "多个作业：找不到本程序的文件"};
inline constexpr Words c_sameResults = {"{0} and {1}: have the same result files", "{0} 与 {1}：结果文件相同"};

// Many jobs.
inline constexpr Words c_good = {"ok", "完成"};
inline constexpr Words c_warned = {"ok, with warnings, see {0}", "完成，有警告，见 {0}"};
inline constexpr Words c_failed = {"failed, see {0}", "失败，见 {0}"};
inline constexpr Words c_refused = {"refused, see {0}", "被拒绝，见 {0}"};
inline constexpr Words c_killed = {"failed: ended by signal or exception {0}, see {1}",
                                   "失败：被信号或异常 {0} 终止，见 {1}"};
inline constexpr Words c_notStarted = {"failed: cannot be started: {0}", "失败：无法启动：{0}"};
inline constexpr Words c_jobSum = {"{0} jobs in {1} s: {2} ok, {3} with warnings, {4} failed or refused",
                                   "{0} 个作业，{1} s：完成 {2} 个，有警告 {3} 个，失败或被拒绝 {4} 个"};

// check
inline constexpr Words c_check = {"Validate a job; print counts, profile and memory",
                                  "检查作业，列出数量、天际线和内存"};

// plot
inline constexpr Words c_plot = {"Draw a job or its results as SVG", "把作业或其结果画成 SVG 图"};
inline constexpr Words c_plotOutput = {"SVG file to write", "要写的 SVG 文件"};
inline constexpr Words c_whatToDraw = {"What to draw", "所画的内容"};
inline constexpr Words c_oneOfThese = {"one of these", "给出且只给出一项"};
inline constexpr Words c_plotSpectrum = {"Design spectrum with the periods of the modes", "设计谱，标出各阶周期"};
inline constexpr Words c_plotMode = {"Mode shape, from 1", "振型，从 1 起"};
inline constexpr Words c_plotNode = {"Displacement history of the node with this id; again for more curves",
                                     "该 id 的节点的位移历程；可重复给出，画多条曲线"};
inline constexpr Words c_plotElement = {"Axial-force history of an element, from 1; again for more curves",
                                        "单元的轴力历程，从 1 起；可重复给出，画多条曲线"};
inline constexpr Words c_plotDeformed = {"Structure as the static analysis deforms it", "静力分析的变形"};
inline constexpr Words c_plotForce = {"Diagram of a section force on the members", "杆件内力图"};
inline constexpr Words c_plotColour = {"Members coloured by a section force; Q, M: resultants of shears, moments",
                                       "按内力给杆件着色；Q、M 为合剪力、合弯矩"};
inline constexpr Words c_plotReactions = {"Forces of the supports on the structure", "支座对结构的反力"};
inline constexpr Words c_plotLoads = {"all, a case, or a combination such as 1.2*0+1.4*1",
                                      "all（全部工况）、一个工况，或组合，如 1.2*0+1.4*1"};
inline constexpr Words c_plotDirection = {"Directions of --node, as X or X,Y (default X)",
                                          "--node 的方向，如 X 或 X,Y（缺省 X）"};
inline constexpr Words c_plotNonlinear = {"Of the nonlinear static analysis", "取自非线性静力分析"};
inline constexpr Words c_plotViewer = {"The result viewer's picture of a history", "与结果窗口相同的历程图"};
inline constexpr Words c_plotColoured = {"Members coloured by their displacement", "按位移给杆件着色"};
inline constexpr Words c_plotOf = {"Whose forces (default linear)", "取自哪种分析（缺省为线性静力）"};
inline constexpr Words c_plotAt = {"Time of a history's forces, s", "时程内力的时刻，s"};
inline constexpr Words c_plotFrame = {"Only members in this plane, as Y=0, seen from before it",
                                      "只画该平面内的杆件并正视，如 Y=0"};
inline constexpr Words c_plotView = {"From where (default iso)", "视线方向（缺省为轴测）"};
inline constexpr Words c_plotWithReactions = {"Reactions too", "同时画出支座反力"};
inline constexpr Words c_plotLocalAxes = {"Local axes of the members: x red, y green, z blue",
                                          "杆件的局部坐标轴：x 红、y 绿、z 蓝"};
inline constexpr Words c_plotSections = {"Names of the sections", "截面名称"};
inline constexpr Words c_optionBelongs = {"{0}: belongs to {1}", "{0}：与 {1} 同用"};
inline constexpr Words c_or = {" or ", " 或 "};
inline constexpr Words c_noneOf = {"'{0}' is none of {1}", "“{0}”不是 {1} 之一"};
inline constexpr Words c_badFrame = {"--frame: not as X=0, Y=6.5 or Z=3", "--frame：应如 X=0、Y=6.5 或 Z=3"};
inline constexpr Words c_badLoads = {"--loads: neither all, nor a case, nor a combination such as 1.2*0+1.4*1",
                                     "--loads：既不是 all、工况，也不是组合（如 1.2*0+1.4*1）"};

inline constexpr Words c_timeMissing = {"--of history: give the time with --at", "--of history：请用 --at 给出时刻"};
inline constexpr Words c_twoPictures = {"{0} and {1}: one picture at a time", "{0} 与 {1}：一次只画一幅图"};
inline constexpr Words c_nothingToDraw = {"say what to draw; --local-axes or --sections alone draw the structure",
                                          "请给出所画的内容；只给 --local-axes 或 --sections 时画出结构"};

// report
inline constexpr Words c_report = {"Write the calculation report of a job as HTML", "写出作业的计算书（HTML）"};
inline constexpr Words c_reportOutput = {"HTML file to write", "要写的 HTML 文件"};

// compare
inline constexpr Words c_compare = {"Print the largest differences between the results of two jobs",
                                    "列出两个作业的结果的最大差别"};
inline constexpr Words c_compareOther = {"Job file (JSON) of the results to compare with",
                                         "与之比较的作业文件（JSON）"};
inline constexpr Words c_tolerance = {"Largest relative difference that passes", "允许的最大相对差"};
inline constexpr Words c_equal = {"the same", "相同"};
inline constexpr Words c_twoValues = {"{0} and {1}", "{0} 和 {1}"};
inline constexpr Words c_difference = {"{0}: {1}", "{0}：{1}"};
inline constexpr Words c_atPlace = {"{0}, {1}", "{0}，{1}"};
inline constexpr Words c_aboveTolerance = {"{0}; above the tolerance", "{0}；超过容差"};
inline constexpr Words c_rounding = {"{0}; one in the last digit of the files", "{0}；仅为文件末位数字之差"};
inline constexpr Words c_allWithin = {"No difference is above the tolerance {0}.", "没有超过容差 {0} 的差别。"};
inline constexpr Words c_someAbove = {"There are differences above the tolerance {0}.", "有超过容差 {0} 的差别。"};

// table
inline constexpr Words c_writeTable = {"Write results of a job as a table (CSV)", "把作业的结果写成表格（CSV）"};
inline constexpr Words c_tableKind = {"Table to write", "要写的表格"};
inline constexpr Words c_tableResult = {"Result it is of (default: the first that is there)",
                                        "取自哪种分析的结果（缺省：现有的第一种）"};
inline constexpr Words c_tableMode = {"Mode of a shape, from 1 (default 1)", "振型号，从 1 起（缺省 1）"};
inline constexpr Words c_tableOutput = {"CSV file to write (default: standard output)",
                                        "要写的 CSV 文件（缺省：标准输出）"};
inline constexpr Words c_tableMissing = {"--what {0}: the result has no such table", "--what {0}：该结果没有这个表格"};
inline constexpr Words c_shapeOnly = {"--mode: belongs to the shape of a mode", "--mode：只用于振型的位移"};

// generate
inline constexpr Words c_generate = {"Write a job file for a regular structure", "生成规则结构的作业文件"};
inline constexpr Words c_generateOutput = {"Job file to write (default: standard output)",
                                           "要写的作业文件（缺省：标准输出）"};
inline constexpr Words c_building = {"Rectangular frame of rigid beams and columns", "梁柱刚接的矩形框架"};
inline constexpr Words c_aboutNodes = {"About so many nodes: chooses the storeys, and the bays if these are not given",
                                       "大约的节点数：由此选定层数，没有给出跨数时也选定跨数"};
inline constexpr Words c_tower = {"Square lattice tower of bars", "杆单元的方形格构塔"};
inline constexpr Words c_dome = {"Reticulated spherical cap", "球面网壳"};
inline constexpr Words c_arch = {"Two-bar arch, or an arch of rigid beams, loaded at its apex",
                                 "两杆拱，或刚接梁组成的拱，拱顶受荷载"};
inline constexpr Words c_generatedJob = {"generated job", "生成的作业"};

// schema
inline constexpr Words c_schema = {"Write the JSON Schema of job files", "写出作业文件的 JSON Schema"};
inline constexpr Words c_schemaOutput = {"File to write (default: standard output)", "要写的文件（缺省：标准输出）"};
inline constexpr Words c_table = {"Instead the manual's table of an analysis", "改为写出手册中一种分析的表"};
inline constexpr Words c_chinese = {"The table of the Chinese manual", "中文手册的表"};
inline constexpr Words c_noTable = {"{0}: no such table", "{0}：没有这个表"};

// What the parser of arguments says.

inline constexpr Words c_parserErrors[] = {
    {"A subcommand is required", "需要给出命令"},
    {"{0} is required", "需要给出 {0}"},
    {"The following argument was not expected: {0}", "不应有参数 {0}"},
    {"The following arguments were not expected: {0}", "不应有参数 {0}"},
    {"{0} requires {1}", "{0} 需要与 {1} 同用"},
    {"{0} excludes {1}", "{0} 不能与 {1} 同用"},
    {"{0}: {1} required {2} missing", "{0}：缺少 {1} 个值（{2}）"},
    {"{0}: At Most {1} required but received {2}", "{0}：至多给出 {1} 个值，却给出了 {2} 个"},
    {"Expected exactly {0} arguments to {1}, got {2}", "{1}：应给出 {0} 个值，却给出了 {2} 个"},
    {"{0}: Value {1} not in range {2} to {3}", "{0}：{1} 不在 {2} 到 {3} 之间"},
    {"{0}: Check {1} value in {2} FAILED", "{0}：{1} 不是 {2} 之一"},
    {"{0}: {1} not in {2}", "{0}：{1} 不是 {2} 之一"},
    {"Could not convert: {0} = {1}", "{0}：不能识别 {1}"},
    {"{0}: Should be true/false or a number", "{0}：应为 true、false 或数"},
};
inline constexpr Words c_parserTypes[] = {{"TEXT", "文本"}, {"INT", "整数"}, {"FLOAT", "数"}};

/// Parts of the help texts.
inline constexpr Words c_helpParts[] = {
    {"Usage: {0} [OPTIONS] SUBCOMMAND\n", "用法：{0} [选项] 命令\n"},
    {"Usage: {0} [OPTIONS]{1}", "用法：{0} [选项]{1}"},
    {"\nPositionals:\n{0}", "\n参数：\n{0}"},
    {"\nOptions:\n{0}", "\n选项：\n{0}"},
    {"\nSubcommands:\n{0}", "\n命令：\n{0}"},
    {"[Option Group: {0}]\n  {1}\n  {2}", "{0}（{1}）\n  {2}"},
};
/// Kinds of values that an option takes.
inline constexpr Words c_fileKind = {"FILE", "文件"};
inline constexpr Words c_textKind = {"TEXT", "文本"};
inline constexpr Words c_countKind = {"N", "整数"};
inline constexpr Words c_numberKind = {"NUMBER", "数"};
/// What stands behind the meaning of an option.
inline constexpr Words c_withNotes = {"{0} ({1})", "{0}（{1}）"};
inline constexpr Words c_betweenNotes = {"; ", "；"};
inline constexpr Words c_isRequired = {"required", "必需"};
inline constexpr Words c_byDefault = {"default {0}", "缺省 {0}"};
inline constexpr Words c_goesWith = {"with {0}", "与 {0} 同用"};
inline constexpr Words c_goesNotWith = {"not with {0}", "不与 {0} 同用"};

}  // namespace skyframe::host::cli::texts

namespace skyframe::host {
namespace texts = cli::texts;
}
