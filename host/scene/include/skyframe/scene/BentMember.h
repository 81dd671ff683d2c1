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

/// Where a drawing shows nodes and members: in place, or displaced by dFactor times a shape.
class CDrawnPlaces {
 public:
  /// Scene and shape must outlive the object. NOLINTNEXTLINE(google-explicit-constructor): a scene is drawn in place
  CDrawnPlaces(const CScene& scene) : m_scene(scene) {}
  CDrawnPlaces(const CScene& scene, const DeformedShape& shape, double dFactor)
      : m_scene(scene), m_pShape(&shape), m_dFactor(dFactor) {}

  [[nodiscard]] const CScene& GetScene() const { return m_scene; }
  [[nodiscard]] Point3 GetNode(int nNode) const;
  /// Its ends alone, or nSteps + 1 points when it is bent.
  [[nodiscard]] MemberLine GetMember(std::size_t nMember, int nSteps = c_nBentSteps) const;

 private:
  const CScene& m_scene;
  const DeformedShape* m_pShape = nullptr;  ///< none: in place
  double m_dFactor = 0.0;
};

/// All of them, by member.
[[nodiscard]] std::vector<MemberLine> BendMembers(const CScene& scene, const DeformedShape& shape, double dFactor,
                                                  int nSteps = c_nBentSteps);

}  // namespace skyframe::host
