#pragma once

#include <string_view>

// Fixed texts of the static room.

namespace skyframe::statics::texts {

inline constexpr std::string_view c_strLinearHeading = "Linear Solution Output: ";
inline constexpr std::string_view c_strNonlinearHeading = "Nonlinear Solution Output: ";
inline constexpr std::string_view c_strMemberForces = "Member forces: ";
inline constexpr std::string_view c_strMemberColumns = "ElementNumber AxialForce ";
inline constexpr std::string_view c_strReactions = "Reactions: ";
inline constexpr std::string_view c_strDisplacements = "DOF Displacements: ";
inline constexpr std::string_view c_strDisplacementColumns = "UX             UY             UZ";

inline constexpr std::string_view c_strIteration = "平衡迭代";
inline constexpr std::string_view c_strWriteResult = "写静力结果文件";
inline constexpr std::string_view c_strFileNotWritten = "结果文件无法写入,计算终止!";
inline constexpr std::string_view c_strNoConvergence = "在给定的迭代步内计算不收敛！\n请增加最大迭代步数！";

}  // namespace skyframe::statics::texts

namespace skyframe {
namespace texts = statics::texts;
}  // namespace skyframe
