#pragma once

#include <array>
#include <span>

#include "skyframe/model/Element.h"

namespace skyframe {

/// Pin-ended bar, also the cable of the equilibrium assembly. DOFs: X Y Z of end i, of end j.
/// Small displacements: N = (E A/L) x.(u_j - u_i), sigma = N/A.
/// Large displacements (total Lagrangian): epsilon = (L^2 - L0^2)/(2 L0^2), sigma = E epsilon,
/// N = A sigma L/L0 along the current axis; depends on the configuration only.
/// Source: Bathe (1996), section 6.3.
class CTrussElem final : public CElement {
 public:
  CTrussElem();

  const CMatrix& FormMassMatrix(bool bConsistent, bool bShear) const override;
  void OutputMaterial(CTextWriter& out) const override;
  void OutputInternalForce(CTextWriter& out) const override;
  [[nodiscard]] int GetTypeCode() const override { return 0; }
  /// N; no moments and shears.
  double GetForceDiagram(Diagram& myz, Diagram& mzx, Diagram& mxy, Diagram& qy, Diagram& qz) const override;
  std::array<double, 2> GetDeflectionDiagram(Diagram& fy, Diagram& fz) const override;
  [[nodiscard]] std::vector<double> SampleForces(int /*nStations*/) const override { return {m_dAxialForce}; }
  void ComputeLength() override;
  void SetData(const ElementData& data) override;
  void UpdateGeometry() override { ComputeLocalAxes(); }
  void ResetDiagrams() override;
  /// bIncremental: large displacements, from the current length; bShear has no effect.
  void ComputeInternalForce(std::span<const double> u, bool bIncremental, bool bShear, bool bFillDiagrams) override;
  /// bGeometric: strain row over L0 and the initial-stress part; bShear has no effect.
  const CMatrix& FormElementStiffness(bool bGeometric, bool bShear) const override;
  void AssembleEndForces(std::span<double> vector) const override;
  /// out (6 x 6, global) = dF/du at the total displacements u, the stress being up to date.
  /// Writes its matrices to the console, always.
  void FormTangentStiffness(CMatrix& out, std::span<const double> u) const override;

  /// D = [E], 1 x 1.
  virtual void FormConstitutive(CMatrix& out) const;

 private:
  void TraceTangent(std::span<const double> u, const Vector3& a, const CMatrix& G, std::span<const double> Bnl) const;

  CMatrix m_stress;                  ///< 1 x 1, sigma, N/m2
  CMatrix m_strainGradient;          ///< 3 x 6, G of the current length
  MemberVector m_displacement = {};  ///< total, local axes, six values
};

}  // namespace skyframe
