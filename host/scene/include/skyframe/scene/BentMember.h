#pragma once

#include <vector>

#include "skyframe/scene/DeformedShape.h"
#include "skyframe/scene/Scene.h"

namespace skyframe::host {

/// Points along a member, its ends first and last.
using MemberLine = std::vector<Point3>;

inline constexpr int c_nBentSteps = 10;  ///< along a bent member

/// A member displaced by dFactor times the shape: a cubic in the ends' translations and rotations, where an end that
/// does not turn with its node is free of moment; a straight line when neither turns, when the shape's rotations are
/// not known, or in a single step.
[[nodiscard]] MemberLine BendMember(const CScene& scene, const SceneMember& member, const DeformedShape& shape,
                                    double dFactor, int nSteps = c_nBentSteps);

/// All of them, by member.
[[nodiscard]] std::vector<MemberLine> BendMembers(const CScene& scene, const DeformedShape& shape, double dFactor,
                                                  int nSteps = c_nBentSteps);

}  // namespace skyframe::host
