#pragma once

#include <array>
#include <span>

#include "skyframe/model/Material.h"
#include "skyframe/model/NodeTable.h"
#include "skyframe/numeric/Matrix.h"
#include "skyframe/numeric/SparseMatrix.h"
#include "skyframe/platform/TextWriter.h"

namespace skyframe {

inline constexpr int c_nStations = 21;
/// Field of a force in the result files: fixed notation, left-justified.
inline constexpr int c_nForceDecimals = 3;
inline constexpr int c_nForceWidth = 15;

/// Values at the stations x = p L / 20, p = 0..20, from end i to end j.
using Diagram = std::array<double, c_nStations>;

/// Section and identity of a member. Areas m2, second moments m4.
struct ElementData {
  double dArea = 0.0;
  double dIx = 0.0;  ///< torsion constant
  double dIy = 0.0;
  double dIz = 0.0;
  double dTorsionAlt = 0.0;  ///< torsion constant used when dIx lies within +-1e-15
  double dShearCoefficient = 0.0;
  double dMass = 0.0;  ///< kg/m; stored as density, not used by the matrices
  int nMaterialNo = 0;
  int nElemNo = 0;  ///< 0-based slot; texts print the number + 1
};

/// A two-node element. The model drives all members through these operations, in this order.
/// DOF order: the DOFs of end i, then of end j, each in the node table's direction order.
/// Matrices are formed on demand into work matrices shared by all elements of a family: a returned
/// reference is valid until the next element is formed, so element work is not re-entrant.
/// Failure: none of its own; a zero length gives infinities that the factorisation refuses.
class CElement {
 public:
  CElement() = default;
  CElement(const CElement&) = delete;
  CElement& operator=(const CElement&) = delete;

  /// Mass in global axes: consistent, or lumped at the translations.
  virtual const CMatrix& FormMassMatrix(bool bConsistent, bool bShear) const = 0;
  /// Adds the consistent mass to M.
  virtual void AssembleMass(SparseMatrix& M, bool bShear) const = 0;
  virtual void OutputMaterial(CTextWriter& out) const = 0;
  /// Ends its last line.
  virtual void OutputInternalForce(CTextWriter& out) const = 0;
  /// Truss 0, beam 1, hinged at end i 2, at end j 3, at both ends 6.
  [[nodiscard]] virtual int GetTypeCode() const = 0;
  [[nodiscard]] virtual int GetMaterialNo() const = 0;
  /// Returns N (tension positive) and copies the moments, Nm, and shears, N.
  virtual double GetForceDiagram(Diagram& myz, Diagram& mzx, Diagram& mxy, Diagram& qy, Diagram& qz) const = 0;
  /// Copies the total local deflections, m; returns the axial displacements of ends i and j.
  virtual std::array<double, 2> GetDeflectionDiagram(Diagram& fy, Diagram& fz) const = 0;
  /// L from the current coordinates; the first call also sets the initial length.
  virtual void ComputeLength() = 0;
  virtual void SetData(const ElementData& data) = 0;
  /// 0-based node indices.
  virtual void ReadNodes(int nNodeI, int nNodeJ) = 0;
  /// Length, direction cosines and local axes from the current coordinates.
  virtual void ComputeLocalAxes() = 0;
  /// Nothing for beams; length and axes of a bar.
  virtual void UpdateGeometry() = 0;
  /// Global to local, u_local = T u.
  virtual const CMatrix& FormTransformation() const = 0;
  virtual void ResetDiagrams() = 0;
  virtual void ResetWorkMatrices() const = 0;
  virtual void UpdateSection() = 0;       ///< nothing
  virtual void FormFixedEndForces() = 0;  ///< nothing: members carry no span loads
  /// Internal forces from the N-vector u of displacements (total, or an increment that is added to
  /// the stored forces after the coordinates have moved). bFillDiagrams: also the station values.
  virtual void ComputeInternalForce(std::span<const double> u, bool bIncremental, bool bShear, bool bFillDiagrams) = 0;
  virtual void AddFixedEndForces(std::span<double> vector) const = 0;  ///< nothing
  virtual void AssembleStiffness(SparseMatrix& K, bool bGeometric, bool bShear) const = 0;
  /// heights[d] = max(heights[d], d - m + 1) with m the element's smallest equation number.
  virtual void AddToBandwidth(std::span<int> heights) const = 0;
  /// Returns the number of nodes, 2.
  virtual int GetNodes(int& nNodeI, int& nNodeJ) const = 0;
  /// Stiffness in global axes.
  virtual const CMatrix& FormElementStiffness(bool bGeometric, bool bShear) const = 0;
  /// Adds the end forces, global axes, to an N-vector.
  virtual void AssembleEndForces(std::span<double> vector) const = 0;
  virtual void AssembleEquilibrium(SparseMatrix& equilibrium) const = 0;              ///< announces itself only
  virtual void FormInitialStress(CMatrix& out, std::span<const double> u) const = 0;  ///< nothing
  /// Nothing for beams; the tangent stiffness of a bar at the displacements u.
  virtual void FormTangentStiffness(CMatrix& out, std::span<const double> u) const = 0;
  virtual void ZeroArea() = 0;
  virtual void RestoreArea() = 0;
  [[nodiscard]] virtual int GetElemNo() const = 0;
  [[nodiscard]] virtual double GetAxialForce() const = 0;
  virtual ~CElement() = default;

 protected:
  int m_nMaterialNo = 0;
  int m_nElemNo = 0;
  double m_dArea = 0.0;         ///< working area: zero while the member is switched off
  double m_dSectionArea = 0.0;  ///< area as given
  int m_nNodeI = 0;
  int m_nNodeJ = 0;
  double m_dAxialForce = 0.0;
  double m_dLength = 0.0;
  double m_dInitialLength = 0.0;  ///< set once, at the first ComputeLength; 0 before
};

/// Adds the symmetric element matrix to A through the lower triangle.
void ScatterMatrix(const CMatrix& element, std::span<const int> dofs, SparseMatrix& A);
/// Raises the column heights for an element that couples these equations.
void RaiseHeights(std::span<const int> dofs, std::span<int> heights);

}  // namespace skyframe
