#pragma once

#include <array>

#include "skyframe/job/Language.h"

namespace skyframe::host::texts {

/// By MemberQuantity.
inline constexpr std::array<Words, 8> c_memberQuantities = {{{"axial force N", "轴力 N"},
                                                             {"shear force Qy", "剪力 Qy"},
                                                             {"shear force Qz", "剪力 Qz"},
                                                             {"torque Mx", "扭矩 Mx"},
                                                             {"bending moment My", "弯矩 My"},
                                                             {"bending moment Mz", "弯矩 Mz"},
                                                             {"resultant shear force Q", "合剪力 Q"},
                                                             {"resultant bending moment M", "合弯矩 M"}}};

inline constexpr Words c_otherModel{"belongs to another model", "属于另一个模型"};
inline constexpr Words c_undrawableMember{"the forces of element {0} are not finite numbers, or out of range",
                                          "单元 {0} 的内力不是有限数或超出范围"};
inline constexpr Words c_undrawableReaction{"the reactions of support {0} are not finite numbers, or out of range",
                                            "支座 {0} 的反力不是有限数或超出范围"};

inline constexpr Words c_combination{"combination of load cases, kN and kN·m", "荷载组合，kN、kN·m"};
inline constexpr Words c_deadLoad{"case 0, dead load, kN and kN·m", "工况 0 恒载，kN、kN·m"};
inline constexpr Words c_liveLoad{"case {0}, live load, kN and kN·m", "工况 {0} 活载，kN、kN·m"};
inline constexpr Words c_displacement{"displacement", "位移"};
inline constexpr Words c_relativeDisplacement{"relative displacement", "相对位移"};
inline constexpr Words c_largestMovesOne{"1 at node {0}", "节点 {0} 为 1"};
inline constexpr Words c_largestDisplacement{"max {0} mm (node {1})", "最大 {0} mm（节点 {1}）"};
inline constexpr Words c_highest{"max {0} {1} (element {2})", "最大 {0} {1}（单元 {2}）"};
inline constexpr Words c_lowest{"min {0} {1} (element {2})", "最小 {0} {1}（单元 {2}）"};
inline constexpr Words c_noMemberHasIt{"no member has it", "没有单元具有该内力"};
inline constexpr Words c_absoluteValues{"combined values without sign", "组合值，无正负号"};
inline constexpr Words c_tensionSide{"drawn on the tension side", "画在受拉侧"};
inline constexpr Words c_tensionRed{"tension positive, red", "受拉为正，红色"};
inline constexpr Words c_positiveSide{"positive values above the member, left of a column", "正值画在杆件上侧，柱左侧"};

}  // namespace skyframe::host::texts
