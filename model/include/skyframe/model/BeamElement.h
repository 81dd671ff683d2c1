#pragma once

#include <array>
#include <span>

#include "skyframe/model/Element.h"

namespace skyframe {

struct BeamProperties;

/// Space-frame member with axial force, torsion and bending in two planes, optionally with shear
/// deformation. Local DOFs: end i ux uy uz rx ry rz = 0-5, end j = 6-11; right-handed local axes.
/// End forces f (local): N = f[6], tension positive; stations Qy = f1, Qz = f2, MYZ = f3, MZX and
/// MXY linear from f4, f5 at end i to -f10, -f11 at end j.
/// phi = 12 kappa E I/(G A L^2) per plane with shear, else 0. G = E/(2 (1 + nu)).
/// Source: Przemieniecki (1968), ch. 5, 10, 11; Bathe (1996), section 6.6 for the moving axes.
class CBeamElem : public CElement {
 public:
  CBeamElem();

  const CMatrix& FormMassMatrix(bool bConsistent, bool bShear) const override;
  void OutputMaterial(CTextWriter& out) const override;
  void OutputInternalForce(CTextWriter& out) const override;
  [[nodiscard]] int GetTypeCode() const override { return 1; }
  double GetForceDiagram(Diagram& myz, Diagram& mzx, Diagram& mxy, Diagram& qy, Diagram& qz) const override;
  std::array<double, 2> GetDeflectionDiagram(Diagram& fy, Diagram& fz) const override;
  void SetData(const ElementData& data) override;
  /// Zeroes diagrams, end forces and N: the member is as long as it was in the beginning.
  void ResetDiagrams() override;
  /// Total: f = k T u. Increment: f += k(L) T du in the current axes, but dN = E A dL/L0 with dL the
  /// change of length since the last force update.
  void ComputeInternalForce(std::span<const double> u, bool bIncremental, bool bShear, bool bFillDiagrams) override;
  const CMatrix& FormElementStiffness(bool bGeometric, bool bShear) const override;
  void AssembleEndForces(std::span<double> vector) const override;

  [[nodiscard]] virtual double GetArea() const { return m_dArea; }
  /// Elastic stiffness in local axes over the element's own DOFs.
  virtual const CMatrix& FormLocalStiffness(bool bShear) const;
  /// Initial-stress stiffness, local 12 x 12, from N and the end moments.
  virtual const CMatrix& FormGeometricStiffness() const;
  /// End forces in global axes over the element's own DOFs; zeros behind them.
  [[nodiscard]] virtual MemberVector GetGlobalEndForces() const;
  [[nodiscard]] virtual double GetLength() const { return m_frame.GetLength(); }
  [[nodiscard]] std::vector<double> SampleForces(int nStations) const override;
  [[nodiscard]] double GetEulerRatio() const override;
  [[nodiscard]] double GetTwist() const override { return m_dIy == m_dIz ? 0.0 : m_frame.GetTwist(); }

 protected:
  explicit CBeamElem(std::span<const int> dofPlaces);

  /// out = T^t full T, the 12 x 12 matrix brought to the element's own DOFs.
  virtual void Condense(const CMatrix& full, bool bShear, CMatrix& out) const;
  /// T u: the twelve local displacements that belong to those of the element's own DOFs.
  [[nodiscard]] virtual MemberVector Expand(const MemberVector& own, bool bShear) const;

  [[nodiscard]] BeamProperties GetProperties(bool bShear) const;

 private:
  /// What the diagrams are drawn from: the state when they were last asked to be filled.
  struct ShownState {
    MemberVector endForce = {};
    MemberVector displacement = {};
    double dLength = 0.0;
    double dPhiY = 0.0;
    double dPhiZ = 0.0;
  };

  void AddIncrement(const MemberVector& du, bool bShear);
  void SetAxialForce(double N);
  /// Of the component 1..5 of the end forces: Qy, Qz, MYZ, MZX, MXY.
  [[nodiscard]] Diagram FormForceDiagram(int nComponent) const;

  double m_dIx = 0.0;
  double m_dIy = 0.0;
  double m_dIz = 0.0;
  double m_dTorsionAlt = 0.0;
  double m_dShearCoefficient = 0.0;
  MemberVector m_endForce = {};      ///< local axes, all twelve
  MemberVector m_displacement = {};  ///< total, local axes, all twelve
  double m_dForceLength = 0.0;       ///< length at the last force update; 0: not yet
  ShownState m_shown;
};

}  // namespace skyframe
