#pragma once

#include <array>
#include <span>
#include <string_view>
#include <vector>

namespace skyframe {

/// Place of a DOF among the six of a node; also the order of an element's DOFs at one end.
enum DofDirection : int { c_nDofX, c_nDofY, c_nDofZ, c_nDofRX, c_nDofRY, c_nDofRZ, c_nDofsPerNode };

/// "X向", "Y向", "Z向", "RYZ向", "RZX向", "RXY向".
[[nodiscard]] std::string_view GetDofName(int nDirection);

/// Nodes, their coordinates and their equation numbers.
/// Indices are 0-based (host node number - 1). A rigid node has six DOFs (X, Y, Z, RX, RY, RZ), any
/// other node three. Free DOFs are numbered 0..F-1 in node order, restrained ones F..N-1 behind them.
/// Nodes that no element touches are not listed and have no DOFs; 0 is a valid equation number, so
/// look-ups go through HasDof or FindDof.
class CNodeTable {
 public:
  void Clear();
  void Resize(int nNodes);
  [[nodiscard]] int GetNodeCount() const { return static_cast<int>(m_jointKind.size()); }

  void SetNode(int nNode, int nJointKind, double dX, double dY, double dZ);
  [[nodiscard]] int GetJointKind(int nNode) const { return m_jointKind[nNode]; }
  [[nodiscard]] bool IsRigid(int nNode) const { return m_jointKind[nNode] == 1; }
  /// Three translations; a rigid node has three rotations too.
  [[nodiscard]] int GetDofCount(int nNode) const { return IsRigid(nNode) ? c_nDofsPerNode : 3; }
  [[nodiscard]] int GetRigidCount() const { return m_nRigid; }
  [[nodiscard]] int GetPinnedCount() const { return GetNodeCount() - m_nRigid; }

  /// Current coordinates X, Y, Z in m; they move in geometrically nonlinear runs.
  [[nodiscard]] const std::array<double, 3>& GetPosition(int nNode) const { return m_current[nNode]; }
  [[nodiscard]] const std::array<double, 3>& GetInitialPosition(int nNode) const { return m_initial[nNode]; }
  /// x += translations of the N-vector u at the listed nodes.
  void MoveNodes(std::span<const double> u);

  /// Appends a node to the constrained-node list: restraint flags in DOF order, 1 = restrained.
  void AddListedNode(int nNode, const std::array<int, c_nDofsPerNode>& restraint);
  /// Stiffnesses kx, ky, kz of a spring support, N/m.
  void AddSpring(int nNode, const std::array<double, 3>& stiffness);
  [[nodiscard]] std::span<const int> GetListedNodes() const { return m_listed; }
  /// Restraint flag of the k-th listed node.
  [[nodiscard]] bool IsRestrained(int k, int nDirection) const { return m_restraint[nDirection][k] != 0; }
  [[nodiscard]] bool IsListed(int nNode) const { return m_isListed[nNode] != 0; }

  /// Numbers the equations of the listed nodes.
  void NumberDofs();
  [[nodiscard]] int GetTotalDofs() const { return m_nTotal; }
  [[nodiscard]] int GetFreeDofs() const { return m_nFree; }

  [[nodiscard]] bool HasDof(int nNode, int nDirection) const {
    return IsListed(nNode) && nDirection < GetDofCount(nNode);
  }
  /// Equation number as stored: 0 where there is no DOF.
  [[nodiscard]] int GetDof(int nNode, int nDirection) const { return m_dof[nDirection][nNode]; }
  /// Equation number, or -1 when the node is out of range or has no such DOF.
  [[nodiscard]] int FindDof(int nNode, int nDirection) const;
  /// Value of the N-vector u (or of a vector over the free equations) at a DOF; 0 where there is
  /// none or where the vector ends before it.
  [[nodiscard]] double GetValue(std::span<const double> u, int nNode, int nDirection) const;

  /// Node of an equation, and its direction's name in strName; -1 with a message when there is none.
  int FindNodeOfDof(int nDof, std::string_view& strName) const;

  struct Spring {
    int nNode;
    std::array<double, 3> stiffness;
  };
  [[nodiscard]] std::span<const Spring> GetSprings() const { return m_springs; }

 private:
  std::vector<unsigned char> m_jointKind;
  std::vector<std::array<double, 3>> m_initial;
  std::vector<std::array<double, 3>> m_current;
  std::array<std::vector<int>, c_nDofsPerNode> m_dof;
  std::vector<int> m_listed;
  std::vector<unsigned char> m_isListed;
  std::array<std::vector<unsigned char>, c_nDofsPerNode> m_restraint;  ///< parallel to m_listed
  std::vector<Spring> m_springs;
  int m_nRigid = 0;
  int m_nTotal = 0;
  int m_nFree = 0;
};

/// Table that element code reads; published by the model build, null when there is none.
extern const CNodeTable* g_pNodeTable;

}  // namespace skyframe
