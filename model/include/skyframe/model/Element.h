#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

#include "skyframe/model/Material.h"
#include "skyframe/model/MemberFrame.h"
#include "skyframe/model/NodeTable.h"
#include "skyframe/numeric/Matrix.h"
#include "skyframe/numeric/SparseMatrix.h"
#include "skyframe/platform/TextWriter.h"

namespace skyframe {

inline constexpr int c_nStations = 21;
/// Values at the stations x = p L / 20, p = 0..20, from end i to end j.
using Diagram = std::array<double, c_nStations>;
/// x/L of station p.
[[nodiscard]] constexpr double GetStation(int p) { return static_cast<double>(p) / (c_nStations - 1); }

inline constexpr int c_nMemberDofs = 12;
/// Values over the DOFs of a member; only the first ones are used where it has fewer than twelve.
using MemberVector = std::array<double, c_nMemberDofs>;

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
  double dAngleCos = 1.0;
  double dAngleSin = 0.0;
};

/// Axial force of a linear structure, one row times its displacements.
struct AxialRow {
  std::array<int, 6> equations = {};
  std::array<double, 6> factors = {};

  /// N of the displacements u of the first equations; those behind the end are restrained.
  [[nodiscard]] double Compute(std::span<const double> u) const;
};

/// A two-node element. The model drives all members through these operations, in this order.
/// DOF order: the DOFs of end i, then of end j, each in the node table's direction order.
/// Matrices are formed on demand into work matrices shared by all elements: a returned reference is
/// valid until the next element is formed, so element work is not re-entrant.
/// Failure: none of its own; a zero length gives infinities that the factorisation refuses.
class CElement {
 public:
  CElement(const CElement&) = delete;
  CElement& operator=(const CElement&) = delete;

  /// Mass in global axes: consistent, or lumped at the translations.
  virtual const CMatrix& FormMassMatrix(bool bConsistent, bool bShear) const = 0;
  /// Adds the consistent mass to M.
  virtual void AssembleMass(SparseMatrix& M, bool bShear) const;
  virtual void OutputMaterial(CTextWriter& out) const = 0;
  /// Ends its last line.
  virtual void OutputInternalForce(CTextWriter& out) const = 0;
  /// Truss 0, beam 1, hinged at end i 2, at end j 3, at both ends 6.
  [[nodiscard]] virtual int GetTypeCode() const = 0;
  [[nodiscard]] virtual int GetMaterialNo() const { return m_nMaterialNo; }
  /// Returns N (tension positive) and copies the moments, Nm, and shears, N.
  virtual double GetForceDiagram(Diagram& myz, Diagram& mzx, Diagram& mxy, Diagram& qy, Diagram& qz) const = 0;
  /// Copies the total local deflections, m; returns the axial displacements of ends i and j.
  virtual std::array<double, 2> GetDeflectionDiagram(Diagram& fy, Diagram& fz) const = 0;
  /// Forces at stations evenly spaced from end i (where a single one stands) to end j: N Qy Qz MYZ MZX MXY each.
  /// A bar has N, once.
  [[nodiscard]] virtual std::vector<double> SampleForces(int nStations) const = 0;
  /// N over the Euler load pi^2 E I/L^2 of a strut of the present length with the smaller I, tension positive;
  /// 0 without inertia.
  [[nodiscard]] virtual double GetEulerRatio() const { return 0.0; }
  /// Of the axes about the member itself, rad (MemberFrame); 0 where nothing bends or all axes of the section are
  /// alike.
  [[nodiscard]] virtual double GetTwist() const { return 0.0; }
  /// L from the current coordinates; the first call also sets the initial length.
  virtual void ComputeLength();
  virtual void SetData(const ElementData& data) = 0;
  /// 0-based node indices.
  virtual void ReadNodes(int nNodeI, int nNodeJ);
  /// Length, direction cosines and local axes from the current coordinates; the first call also sets the
  /// initial axes.
  virtual void ComputeLocalAxes();
  /// Nothing for beams; length and axes of a bar.
  virtual void UpdateGeometry() {}
  /// Global to local, u_local = T u.
  virtual const CMatrix& FormTransformation() const;
  virtual void ResetDiagrams() = 0;
  virtual void ResetWorkMatrices() const;
  virtual void UpdateSection() {}       ///< nothing
  virtual void FormFixedEndForces() {}  ///< nothing: members carry no span loads
  /// Internal forces from the N-vector u of displacements (total, or an increment that is added to
  /// the stored forces after the coordinates have moved). bFillDiagrams: also the station values.
  virtual void ComputeInternalForce(std::span<const double> u, bool bIncremental, bool bShear, bool bFillDiagrams) = 0;
  virtual void AddFixedEndForces(std::span<double>) const {}  ///< nothing
  virtual void AssembleStiffness(SparseMatrix& K, bool bGeometric, bool bShear) const;
  /// heights[d] = max(heights[d], d - m + 1) with m the element's smallest equation number.
  virtual void AddToBandwidth(std::span<int> heights) const;
  /// Returns the number of nodes, 2.
  virtual int GetNodes(int& nNodeI, int& nNodeJ) const;
  /// Stiffness in global axes.
  virtual const CMatrix& FormElementStiffness(bool bGeometric, bool bShear) const = 0;
  /// Adds the end forces, global axes, to an N-vector.
  virtual void AssembleEndForces(std::span<double> vector) const = 0;
  virtual void AssembleEquilibrium(SparseMatrix& equilibrium) const;          ///< announces itself only
  virtual void FormInitialStress(CMatrix&, std::span<const double>) const {}  ///< nothing
  /// Nothing for beams; the tangent stiffness of a bar at the displacements u.
  virtual void FormTangentStiffness(CMatrix&, std::span<const double>) const {}
  virtual void ZeroArea() { m_dArea = 0.0; }
  virtual void RestoreArea() { m_dArea = m_dSectionArea; }
  [[nodiscard]] virtual int GetElemNo() const { return m_nElemNo; }
  [[nodiscard]] virtual double GetAxialForce() const { return m_dAxialForce; }
  /// EA / L of the working area and the present axes, along x at end j and against it at end i.
  [[nodiscard]] AxialRow FormAxialRow() const;
  virtual ~CElement() = default;

 protected:
  /// dofPlaces: the element's DOFs as places 0..11 among those of two rigid nodes; static storage.
  explicit CElement(std::span<const int> dofPlaces) : m_dofPlaces(dofPlaces) {}

  [[nodiscard]] int GetDofCount() const { return static_cast<int>(m_dofPlaces.size()); }
  [[nodiscard]] const CMaterial& GetMaterial() const { return *(*g_pMaterials)[m_nMaterialNo]; }
  /// Area, angle, material and number: what every member takes from its data.
  void StoreCommonData(const ElementData& data);
  /// T of the axes R: R once for every three DOFs.
  [[nodiscard]] const CMatrix& FormTransformationOf(const LocalAxes& R) const;
  /// Displacements of the element's DOFs in the axes R; what lies behind the end of u counts as 0.
  [[nodiscard]] MemberVector GatherLocal(const LocalAxes& R, std::span<const double> u) const;
  /// T^t f.
  [[nodiscard]] MemberVector ToGlobal(const MemberVector& local) const;
  /// vector += values at the element's equations.
  void ScatterVector(const MemberVector& values, std::span<double> vector) const;

  std::span<const int> m_dofPlaces;
  int m_nMaterialNo = 0;
  int m_nElemNo = 0;
  double m_dArea = 0.0;         ///< working area: zero while the member is switched off
  double m_dSectionArea = 0.0;  ///< area as given
  double m_dAngleCos = 1.0;
  double m_dAngleSin = 0.0;
  double m_dMassDensity = 0.0;
  int m_nNodeI = 0;
  int m_nNodeJ = 0;
  double m_dAxialForce = 0.0;
  MemberFrame m_frame;

 private:
  /// Equation numbers in numbers, which the result views.
  std::span<const int> GetDofs(std::array<int, c_nMemberDofs>& numbers) const;
};

/// Adds the symmetric element matrix to A through the lower triangle.
void ScatterMatrix(const CMatrix& element, std::span<const int> dofs, SparseMatrix& A);
/// Raises the column heights for an element that couples these equations.
void RaiseHeights(std::span<const int> dofs, std::span<int> heights);

/// Steps of an element that have a progress text.
enum class ElementStep {
  FormStiffness,
  FormConsistentMass,
  FormLumpedMass,
  AssembleMass,
  AssembleStiffness,
  AddToBandwidth,
  ComputeInternalForce,
  OutputMaterial,
  OutputInternalForce,
  ReadNodes,
  AssembleEquilibrium,
  Count
};

/// Trace vocabulary: the text of a step with the element's number, empty where the family has none.
/// Only node reading and equilibrium assembly write theirs to the console.
[[nodiscard]] std::string GetProgressText(const CElement& element, ElementStep step);

}  // namespace skyframe
