#pragma once

#include <array>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "skyframe/job/Job.h"
#include "skyframe/scene/Point3.h"

namespace skyframe::host {

struct SceneNode {
  Point3 at;
  int nId = 0;  ///< the job's own name
};

struct SceneMember {
  int nType = c_nBar;
  int nNodeI = 0;                  ///< index
  int nNodeJ = 0;                  ///< index
  std::array<bool, 2> turns = {};  ///< whether each end turns with its node
  int nSection = 0;                ///< index
};

enum class SupportKind { Clamped, Hinged, Partial, Spring };

struct SceneSupport {
  int nNode = 0;  ///< index
  SupportKind kind = SupportKind::Partial;
};

struct SceneLoad {
  int nCase = 0;
  int nNode = 0;         ///< index
  int nAxis = 0;         ///< X, Y, Z
  bool bMoment = false;  ///< about the axis
  double dValue = 0.0;   ///< kN, kNm; not 0

  /// Of unit length, sign included.
  [[nodiscard]] Point3 GetDirection() const;
};

inline constexpr int c_nCombined = -1;  ///< case of a load that several make together

/// Loads of one case, or of all; those of a case on the same degree of freedom are added up.
[[nodiscard]] std::vector<SceneLoad> SelectLoads(const std::vector<SceneLoad>& loads, std::optional<int> nCase);
/// Sum of the cases' loads times their factors, by degree of freedom.
[[nodiscard]] std::vector<SceneLoad> CombineLoads(const std::vector<SceneLoad>& loads, const JobCombination& factors);

/// What there is to draw of a job.
class CScene {
 public:
  CScene() = default;
  explicit CScene(const Job& job);

  [[nodiscard]] const std::vector<SceneNode>& GetNodes() const { return m_nodes; }
  [[nodiscard]] Point3 GetPlace(int nNode) const { return m_nodes[static_cast<std::size_t>(nNode)].at; }
  [[nodiscard]] const std::vector<SceneMember>& GetMembers() const { return m_members; }
  [[nodiscard]] Point3 GetMiddle(const SceneMember& member) const;
  /// What is restrained at every node, as out of plane in a plane structure, is no support.
  [[nodiscard]] const std::vector<SceneSupport>& GetSupports() const { return m_supports; }
  /// Those of all cases, as the job has them, but for loads of 0.
  [[nodiscard]] const std::vector<SceneLoad>& GetLoads() const { return m_loads; }
  /// By index, as the job names them.
  [[nodiscard]] const std::vector<std::string>& GetSectionNames() const { return m_sectionNames; }
  [[nodiscard]] Point3 GetCentre() const { return m_centre; }
  /// Lengths of the box around the nodes.
  [[nodiscard]] Point3 GetExtents() const { return m_extents; }
  /// Radius of a sphere about the centre that holds all nodes; above 0.
  [[nodiscard]] double GetRadius() const;

 private:
  void AddSupports(const std::vector<JobNode>& nodes);
  void MeasureExtents();

  std::vector<SceneNode> m_nodes;
  std::vector<SceneMember> m_members;
  std::vector<SceneSupport> m_supports;
  std::vector<SceneLoad> m_loads;
  std::vector<std::string> m_sectionNames;
  Point3 m_centre;
  Point3 m_extents;
};

/// What of a structure is painted: these members, by index, the nodes at their ends and those nodes. Empty: all.
class CShownParts {
 public:
  CShownParts() = default;
  CShownParts(const CScene& scene, std::vector<bool> members, const std::set<int>& nodes = {});

  [[nodiscard]] bool HasMember(std::size_t nMember) const { return m_members.empty() || m_members[nMember]; }
  [[nodiscard]] std::size_t CountMembers(const CScene& scene) const;
  [[nodiscard]] bool HasNode(int nNode) const { return m_members.empty() || m_nodes[static_cast<std::size_t>(nNode)]; }

 private:
  std::vector<bool> m_members;
  std::vector<bool> m_nodes;
};

}  // namespace skyframe::host
