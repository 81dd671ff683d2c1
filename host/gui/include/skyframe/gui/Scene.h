#pragma once

#include <array>
#include <vector>

#include "skyframe/gui/Camera.h"
#include "skyframe/gui/Shape.h"
#include "skyframe/job/Job.h"

namespace skyframe::gui {

enum class SupportKind { Clamped, Hinged, Partial, Spring };

struct SceneSupport {
  int nNode = 0;  ///< index
  SupportKind kind = SupportKind::Partial;
};

struct SceneElement {
  int nType = 0;
  int nNodeI = 0;  ///< index
  int nNodeJ = 0;  ///< index
};

struct SceneLoad {
  int nCase = 0;
  int nNode = 0;         ///< index
  Point3 direction;      ///< of unit length, sign included
  bool bMoment = false;  ///< direction is the axis
};

inline constexpr int c_nCurvePoints = 9;  ///< along a bent element

/// What there is to draw of a job.
class CScene {
 public:
  CScene() = default;
  explicit CScene(const host::Job& job);

  [[nodiscard]] const std::vector<Point3>& GetNodes() const { return m_nodes; }
  [[nodiscard]] const std::vector<SceneElement>& GetElements() const { return m_elements; }
  [[nodiscard]] const std::vector<SceneSupport>& GetSupports() const { return m_supports; }
  [[nodiscard]] const std::vector<SceneLoad>& GetLoads() const { return m_loads; }
  [[nodiscard]] Point3 GetCentre() const { return m_centre; }
  /// Radius of a sphere about the centre that holds all nodes; above 0.
  [[nodiscard]] double GetRadius() const { return m_dRadius; }

  /// Points along an element, its ends first and last, displaced by dFactor times the shape: a cubic
  /// in the ends' translations and rotations where these are known, else a straight line. nPoints above 1.
  [[nodiscard]] std::vector<Point3> FormDeformedLine(const SceneElement& element, const Shape& shape, double dFactor,
                                                     int nPoints = c_nCurvePoints) const;

 private:
  void MeasureExtent();

  std::vector<Point3> m_nodes;
  std::vector<SceneElement> m_elements;
  std::vector<SceneSupport> m_supports;
  std::vector<SceneLoad> m_loads;
  Point3 m_centre;
  double m_dRadius = 1.0;
};

}  // namespace skyframe::gui
