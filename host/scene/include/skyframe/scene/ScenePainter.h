#pragma once

#include <array>
#include <span>

#include "skyframe/platform/PaintContext.h"
#include "skyframe/scene/BentMember.h"
#include "skyframe/scene/Camera.h"
#include "skyframe/scene/LabelField.h"
#include "skyframe/scene/Scene.h"

namespace skyframe::host {

/// Pen for members: their colour goes from that of the structure's nearest point to that of its farthest.
struct MemberPen {
  Colour nearest;
  Colour farthest;
  double dBeamWidth = 1.0;   ///< pixels
  double dOtherWidth = 1.0;  ///< of what is no beam
};

/// The axes of the coordinate system as a small cross.
struct AxesStyle {
  double dLength = 0.0;  ///< pixels
  double dGap = 0.0;     ///< from an axis to its letter
  double dWidth = 1.0;
  std::array<Colour, 3> colours;
};

/// Paints a structure as a camera sees it, layer by layer: what is painted later lies above. Every layer stands for
/// itself, so that a picture takes those it needs.
class CScenePainter {
 public:
  /// Paint, scene and camera must outlive the painter, and the camera stay where it is.
  CScenePainter(IPaintContext& paint, const CScene& scene, const CCamera& camera, CShownParts shown = {});

  void PaintMembers(const MemberPen& pen);
  /// Lines by member, as of a deformed shape.
  void PaintLines(std::span<const MemberLine> lines, const MemberPen& pen);
  void PaintSupports(Colour colour);
  /// Arrows to scale, a colour for each load case; moments have two heads. pLabels takes the values and may be null.
  void PaintLoads(std::span<const SceneLoad> loads, CLabelField* pLabels = nullptr);
  /// Ids, as the job names them.
  void PaintNodeNumbers(Colour colour);
  /// From 1.
  void PaintMemberNumbers(Colour colour);
  /// Their sections, as the job names them.
  void AddSectionNames(Colour colour, CLabelField& labels) const;
  /// x, y and z of each member at its middle, colours by axis.
  void PaintLocalAxes(const std::array<Colour, 3>& colours);
  /// Axes that are seen end on are left out.
  void PaintAxes(PaintPoint origin, const AxesStyle& style);

 private:
  void PaintLine(const SceneMember& member, std::span<const Point3> line, const MemberPen& pen);
  void PaintSupport(const SceneSupport& support, PaintPoint at);
  void PaintNumber(Point3 at, double dX, double dY, int nNumber);
  [[nodiscard]] PaintPoint ToScreen(Point3 point) const { return m_camera.Project(point).at; }
  /// 1 at the nearest point of the structure, 0 at the farthest.
  [[nodiscard]] double GetNearness(Point3 point) const;

  IPaintContext& m_paint;
  const CScene& m_scene;
  const CCamera& m_camera;
  CShownParts m_shown;
};

/// Colour of a load case, or of a combination's loads.
[[nodiscard]] Colour GetCaseColour(int nCase);
/// A line for each case that has loads, from the top left corner downwards.
void PaintLoadLegend(IPaintContext& paint, PaintPoint topLeft, std::span<const SceneLoad> loads);

}  // namespace skyframe::host
