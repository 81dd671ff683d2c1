#pragma once

#include "skyframe/job/Language.h"

// What is said of the differences between results.

namespace skyframe::host::compare::texts {

// Quantities.
inline constexpr Words c_displacement = {"displacement", "位移"};
inline constexpr Words c_rotation = {"rotation", "转角"};
inline constexpr Words c_reactionForce = {"reaction force", "支反力"};
inline constexpr Words c_reactionMoment = {"reaction moment", "支反力矩"};
inline constexpr Words c_axialForce = {"axial force", "轴力"};
inline constexpr Words c_shearForce = {"shear force", "剪力"};
inline constexpr Words c_moment = {"moment", "弯矩和扭矩"};
inline constexpr Words c_deflection = {"deflection", "挠度"};
inline constexpr Words c_mass = {"participating mass", "参与质量"};
inline constexpr Words c_frequency = {"frequency", "频率"};
inline constexpr Words c_shapeTranslation = {"shape, translations", "振型平动分量"};
inline constexpr Words c_shapeRotation = {"shape, rotations", "振型转动分量"};
inline constexpr Words c_space = {"shapes of equal frequencies, space", "等频振型的张成空间"};

// Places.
inline constexpr Words c_mode = {"mode {0}", "振型 {0}"};
inline constexpr Words c_node = {"node {0}", "节点 {0}"};
inline constexpr Words c_element = {"element {0}", "单元 {0}"};
inline constexpr Words c_station = {"at station {0}", "第 {0} 截面"};
inline constexpr Words c_time = {"at {0} s", "{0} s 时"};

// What cannot be compared.
inline constexpr Words c_nodeCounts = {"the models have {0} and {1} nodes", "两个模型的节点数为 {0} 和 {1}"};
inline constexpr Words c_elementCounts = {"the models have {0} and {1} elements", "两个模型的单元数为 {0} 和 {1}"};
inline constexpr Words c_noNode = {"the second model has no node {0}", "第二个模型没有节点 {0}"};
inline constexpr Words c_nothing = {"no result file of the same kind stands beside both jobs",
                                    "两个作业旁没有同类的结果文件"};
inline constexpr Words c_onlyFirst = {"only the first has it", "只有第一个作业有结果"};
inline constexpr Words c_onlySecond = {"only the second has it", "只有第二个作业有结果"};
inline constexpr Words c_modeCounts = {"{0} and {1} modes; as many are compared as both have",
                                       "振型数为 {0} 和 {1}，只比较两者共有的阶数"};
inline constexpr Words c_otherMembers = {"the files do not tell of the same members and stations",
                                         "两个文件的构件或截面数不同"};
inline constexpr Words c_otherTimes = {"{0} steps of {1} s and {2} of {3} s", "时间步为 {0} × {1} s 和 {2} × {3} s"};

}  // namespace skyframe::host::compare::texts

namespace skyframe::host {
namespace texts = compare::texts;
}
