#pragma once

#include <array>
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
};

enum class SupportKind { Clamped, Hinged, Partial, Spring };

struct SceneSupport {
  int nNode = 0;  ///< index
  SupportKind kind = SupportKind::Partial;
};

struct SceneLoad {
  int nCase = 0;
  int nNode = 0;         ///< index
  Point3 direction;      ///< of unit length, sign included
  bool bMoment = false;  ///< direction is the axis
};

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
  [[nodiscard]] const std::vector<SceneLoad>& GetLoads() const { return m_loads; }
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
  Point3 m_centre;
  Point3 m_extents;
};

}  // namespace skyframe::host
