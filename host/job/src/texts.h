#pragma once

#include <array>

#include "skyframe/job/Language.h"

// What is said of a job file.

namespace skyframe::host::job::texts {

// Words in texts.
inline constexpr Words c_comma = {", ", "、"};
inline constexpr Words c_or = {" or ", " 或 "};
inline constexpr Words c_place = {"node {0} {1}", "节点 {0} {1} 向"};
inline constexpr Words c_noNode = {"no node", "没有节点"};

// Combinations and sites.
inline constexpr Words c_factorOfCase = {"{0} × case {1}", "{0} × 工况 {1}"};
inline constexpr Words c_site = {"intensity {0}, {1} earthquake, site class {2}, design group {3}",
                                 "设防烈度 {0}，{1}地震，{2} 类场地，设计地震第{3}组"};
inline constexpr std::array<Words, 2> c_quakeLevels = {{{"frequent", "多遇"}, {"rare", "罕遇"}}};
inline constexpr std::array<Words, 4> c_designGroups = {{{"", ""}, {"1", "一"}, {"2", "二"}, {"3", "三"}}};

// Text that is no JSON, or too much of it.
inline constexpr Words c_position = {"line {0}, column {1}", "第 {0} 行第 {1} 列"};
inline constexpr Words c_keyTwice = {"key given twice", "键重复"};
inline constexpr Words c_tooManyValues = {"more than {0} values in all", "值的总数超过 {0} 个"};
inline constexpr Words c_tooManyMembers = {"more than {0} members; a job holds no more",
                                           "键超过 {0} 个；作业容纳不下更多"};
inline constexpr Words c_tooManyEntries = {"more than {0} entries; a job holds no more",
                                           "条目超过 {0} 个；作业容纳不下更多"};
inline constexpr Words c_tooDeep = {"nested deeper than {0} levels", "嵌套超过 {0} 层"};

/// The JSON parser's sentences.
inline constexpr Words c_parserReasons[] = {
    {"syntax error while parsing {0} - {1}; expected {2}", "读取{0}时语法有误：{1}；此处应为{2}"},
    {"syntax error while parsing {0} - {1}", "读取{0}时语法有误：{1}"},
    {"number overflow parsing {0}", "数值超出范围：{0}"},
};
inline constexpr Words c_parserWords[] = {
    {"value", "值"},
    {"object key", "键"},
    {"object separator", "键后的分隔符"},
    {"object", "对象"},
    {"array", "数组"},
    {"unexpected end of input", "文件不应在此结束"},
    {"unexpected {0}", "不应有{0}"},
    {"end of input", "文件结束"},
    {"string literal", "文本"},
    {"number literal", "数"},
    {"true literal", "true"},
    {"false literal", "false"},
    {"null literal", "null"},
    {"'[', '{', or a literal", "“[”、“{”或一个值"},
    {"invalid literal", "无法识别的词"},
    {"invalid BOM; must be 0xEF 0xBB 0xBF if given", "字节序标记有误，应为 0xEF 0xBB 0xBF"},
    {"invalid string: missing closing quote", "文本缺少后引号"},
    {"invalid string: ill-formed UTF-8 byte", "文本不是正确的 UTF-8"},
    {"invalid string: control character {0} must be escaped to {1}", "文本中的控制字符 {0} 应写作 {1}"},
    {"invalid string: forbidden character after backslash", "反斜杠后的字符有误"},
    {"invalid string: '\\u' must be followed by 4 hex digits", "“\\u”后应为 4 位十六进制数"},
    {"invalid string: surrogate U+D800..U+DBFF must be followed by U+DC00..U+DFFF", "文本中的代理对不完整"},
    {"invalid string: surrogate U+DC00..U+DFFF must follow U+D800..U+DBFF", "文本中的代理对不完整"},
    {"invalid number", "数的写法有误"},
    {"'+', '-', or digit after exponent", "指数的“+”“-”或数字"},
    {"digit after exponent sign", "指数符号后的数字"},
    {"digit after {0}", "{0} 后的数字"},
};

// Members of objects.
inline constexpr Words c_missing = {"missing", "缺少必需的键"};
inline constexpr Words c_unknownKey = {"unknown key", "没有这个键"};
inline constexpr Words c_notObject = {"must be an object", "应为对象"};
inline constexpr Words c_notArray = {"must be an array", "应为数组"};
inline constexpr Words c_notInteger = {"must be an integer", "应为整数"};
inline constexpr Words c_notNumber = {"must be a number", "应为数"};
inline constexpr Words c_notBoolean = {"must be true or false", "应为 true 或 false"};
inline constexpr Words c_notText = {"must be a text", "应为文本"};
inline constexpr Words c_notWord = {"must be {0}, not {1}", "应为 {0}，不是 {1}"};
inline constexpr Words c_notSomeOf = {"must list some of {0}", "应列出 {0} 中的若干个"};
inline constexpr Words c_notNumbers = {"must have {0} numbers", "应有 {0} 个数"};
inline constexpr Words c_tooSmall = {"must be {0} or more", "应不小于 {0}"};
inline constexpr Words c_tooLarge = {"must be {0} or less", "应不大于 {0}"};
inline constexpr Words c_notSingle = {"too large for a single-precision record", "超出宿主记录（单精度）的范围"};

// The structure.
inline constexpr Words c_springGroupTwice = {"spring group defined twice", "弹簧组重复定义"};
inline constexpr Words c_nodeTwice = {"node id {0} is used twice", "节点的 id {0} 重复"};
inline constexpr Words c_notRestraint = {"must be six digits 0 or 1 for X Y Z RX RY RZ, not {0}",
                                         "应为 X Y Z RX RY RZ 的六位数字 0 或 1，不是 {0}"};
inline constexpr Words c_twoSupports = {"a node has either a restraint or a spring",
                                        "restraint 与 spring 只能给出一个"};
inline constexpr Words c_noSpringGroup = {"no spring group {0}", "没有弹簧组 {0}"};
inline constexpr Words c_sectionTwice = {"section {0} is defined twice", "截面 {0} 重复定义"};
inline constexpr Words c_noSuchNode = {"no node has the id {0}", "没有 id 为 {0} 的节点"};
inline constexpr Words c_noSuchSection = {"no section has the id {0}", "没有 id 为 {0} 的截面"};
inline constexpr Words c_sameEnds = {"both ends are node {0}", "两端都是节点 {0}"};
inline constexpr Words c_zeroLength = {"zero length: both nodes lie at the same place", "长度为零：两个节点位置相同"};
inline constexpr Words c_notNode = {"must be the id of a node", "应为节点的 id"};
inline constexpr Words c_elementTwice = {"element {0} is listed twice", "单元 {0} 重复列出"};
inline constexpr Words c_elementNumbers = {"must list numbers of elements, 1 to {0}", "须列出单元号码，1 至 {0}"};
inline constexpr Words c_listedTwice = {"node {0} is listed twice", "节点 {0} 重复列出"};
inline constexpr Words c_pinnedMoment = {"node {0} is pinned and takes no moment", "节点 {0} 为铰接，不能承受力矩"};
inline constexpr Words c_tooManyFillers = {
    "{0} entries and one more for each of {1} cases without loads; the host records hold {2}",
    "{0} 个条目，另有 {1} 个没有荷载的工况各占一个；宿主记录容纳 {2} 个"};

// Analyses.
inline constexpr Words c_noSuchCase = {"no such load case; the cases are 0 to {0}",
                                       "没有这个荷载工况；工况为 0 到 {0}"};
inline constexpr Words c_belongsTo = {"belongs to {0} {1}", "只用于 \"{0}\": {1}"};
inline constexpr Words c_needs = {"needs {0}: true", "需要 {0}: true"};
inline constexpr Words c_loadsFromFile = {"the loads are read from a file", "荷载由文件读入"};
inline constexpr Words c_idlePeak = {"peak {0} of a direction in which the ground does not move",
                                     "地面不沿该方向运动，却给出了峰值 {0}"};

// The file.
inline constexpr Words c_outOfMemory = {"out of memory", "内存不足"};
inline constexpr Words c_tooManyErrors = {"{0} errors; reading stopped here", "错误达到 {0} 个，读入到此停止"};
inline constexpr Words c_backslash = {"a job file cannot have a backslash in its path", "作业文件的路径中不能有反斜杠"};
inline constexpr Words c_cannotOpen = {"cannot be opened", "打不开"};
inline constexpr Words c_fileTooLarge = {"larger than 256 MB", "大于 256 MB"};

// Warnings of the structure.
inline constexpr Words c_unusedNode = {"no element touches node {0}", "没有单元与节点 {0} 相连"};
inline constexpr Words c_looseRotation = {"node {0} is rigid but no beam holds its rotations; make it pinned",
                                          "节点 {0} 为刚接，但没有梁约束其转角；请改为铰接"};
inline constexpr Words c_freeBody = {"no support keeps {0} from moving with its part of the structure",
                                     "没有支座阻止{0}随其所在的部分作刚体运动"};
inline constexpr Words c_springSupport = {"a spring with a stiffness above 0 holds its node rigidly ({0} nodes)",
                                          "刚度大于 0 的弹簧按刚性支座起作用（{0} 个节点）"};
inline constexpr Words c_noArea = {"section {0} has no area", "截面 {0} 的面积为 0"};
inline constexpr Words c_noInertia = {"section {0} has no bending inertia", "截面 {0} 的抗弯惯性矩为 0"};
inline constexpr Words c_lostLoad = {"acts on node {0}, which no element touches: it has no effect",
                                     "作用在节点 {0} 上，没有单元与它相连：不起作用"};

// Warnings of analyses.
inline constexpr Words c_noCase = {"no load combination: nothing acts on the structure",
                                   "没有荷载组合：结构上没有荷载作用"};
inline constexpr Words c_emptyCase = {"no load has the case {0}", "没有工况 {0} 的荷载"};
inline constexpr Words c_noMassLoad = {"none of its loads acts along +Z: it adds no mass",
                                       "其中没有沿 +Z 的荷载：不增加质量"};
inline constexpr Words c_inclinedSupport = {"this analysis takes inclined supports for ordinary ones",
                                            "该分析把斜支座当作一般支座"};
inline constexpr Words c_wilsonIgnores = {"the Wilson method does not look at it", "对 Wilson 法不起作用"};
inline constexpr Words c_wilsonMass = {
    "the Wilson method takes no nodal masses: the weight of {1} kN that the modal analysis before has at the nodes is "
    "not "
    "there",
    "Wilson 法不计节点质量：其前模态分析的节点重量 {1} kN 未计入"};
inline constexpr Words c_otherMass = {
    "the weight at the nodes, {0} kN, is not that of the modal analysis before, {1} kN, whose frequencies give the "
    "damping",
    "节点重量 {0} kN 与其前模态分析的 {1} kN 不同，而阻尼由后者的频率确定"};
inline constexpr Words c_generalLoad = {"left out, the time step is {0} s and the duration {1} s: give both",
                                        "未给出时，时间步长为 {0} s，响应时长为 {1} s：请两者都给出"};
inline constexpr Words c_nonlinearForces = {"a run under nodal forces with it ends at once, without a result",
                                            "节点荷载力加此项时立即结束，没有结果"};
inline constexpr Words c_noImpulse = {"nodal forces without an impulse: nothing acts on the structure",
                                      "节点荷载力没有冲击：结构上没有荷载作用"};
inline constexpr Words c_impulseTime = {"{0} is {1} s, less than a time step: no force acts",
                                        "{0} 为 {1} s，小于一个时间步长：没有力作用"};
inline constexpr Words c_noDirection = {"no direction: the ground does not move", "没有方向：地面不动"};
inline constexpr Words c_oneDirection = {"the ground moves along {0} alone", "地面只沿 {0} 运动"};
inline constexpr Words c_timeStep = {"no step of {0} s fits into the duration of {1} s",
                                     "响应时长 {1} s 内不足一个时间步长 {0} s"};

// An acceleration record, behind its file's name.
inline constexpr Words c_recordUnread = {"{0} cannot be opened", "{0} 打不开"};
inline constexpr Words c_recordEmpty = {"{0} is empty", "{0} 是空文件"};
inline constexpr Words c_recordHeading = {"{0} starts with no number; a heading or a byte-order mark must go",
                                          "{0} 的开头不是数；请去掉标题或字节序标记"};
inline constexpr Words c_recordPart = {
    "{0} is read up to value {1}; values must be separated by blanks or line ends, without commas or words",
    "{0} 只读到第 {1} 个数；数之间用空格或换行分隔，不能有逗号或文字"};
inline constexpr Words c_recordZeros = {"{0} holds zeros alone and cannot be scaled to a peak",
                                        "{0} 全为零，不能按峰值调整"};

// What a calculation report needs.
inline constexpr Words c_badLevels = {"must be two levels or more, from the base upwards",
                                      "须为两个以上标高，自基底向上"};
inline constexpr Words c_emptyLevel = {"no node stands at the level {0}", "标高 {0} 处没有节点"};
inline constexpr Words c_notPositive = {"must be above 0", "须大于 0"};

}  // namespace skyframe::host::job::texts

namespace skyframe::host {
namespace texts = job::texts;
}
