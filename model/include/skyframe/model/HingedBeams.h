#pragma once

#include "skyframe/model/BeamElement.h"

namespace skyframe {

/// Which ends of a beam turn freely.
enum class HingedEnd { I, J, Both };

/// Beam whose hinged ends do not connect to the rotations of their nodes. The hinged rotations follow
/// from zero hinge moments, u12 = T u, so every matrix is the beam's brought to the remaining DOFs:
/// k = T^t k12 T (static condensation for the stiffness). No torsion is carried.
class CHingedBeam : public CBeamElem {
 protected:
  CHingedBeam(HingedEnd hinge, std::span<const int> dofPlaces) : CBeamElem(dofPlaces), m_hinge(hinge) {}

  void Condense(const CMatrix& full, bool bShear, CMatrix& out) const override;
  [[nodiscard]] MemberVector Expand(const MemberVector& own, bool bShear) const override;

 private:
  const CMatrix& FormHingeMap(bool bShear) const;

  HingedEnd m_hinge;
};

/// Hinged at end i. DOFs: ux uy uz of end i; ux uy uz rx ry rz of end j.
class CBeamHingeLeft final : public CHingedBeam {
 public:
  CBeamHingeLeft();
  [[nodiscard]] int GetTypeCode() const override { return 2; }
};

/// Hinged at end j. DOFs: ux uy uz rx ry rz of end i; ux uy uz of end j.
class CBeamHingeRight final : public CHingedBeam {
 public:
  CBeamHingeRight();
  [[nodiscard]] int GetTypeCode() const override { return 3; }
};

/// Hinged at both ends: axial stiffness only, mass of a bar. DOFs: ux uy uz of end i, of end j.
class CBeamHingeBoth final : public CHingedBeam {
 public:
  CBeamHingeBoth();
  const CMatrix& FormMassMatrix(bool bConsistent, bool bShear) const override;
  [[nodiscard]] int GetTypeCode() const override { return 6; }
  [[nodiscard]] double GetTwist() const override { return 0.0; }
  const CMatrix& FormLocalStiffness(bool bShear) const override;
};

}  // namespace skyframe
