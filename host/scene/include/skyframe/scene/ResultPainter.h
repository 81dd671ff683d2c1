#pragma once

#include <span>
#include <string>
#include <vector>

#include "skyframe/platform/PaintContext.h"
#include "skyframe/scene/BentMember.h"
#include "skyframe/scene/Camera.h"
#include "skyframe/scene/ColourScale.h"
#include "skyframe/scene/LabelField.h"
#include "skyframe/scene/MemberForces.h"
#include "skyframe/scene/Scene.h"

namespace skyframe::host {

/// A member's line with a value at each of its points; no points: the result does not have the member.
struct ColouredLine {
  MemberLine line;
  std::vector<double> values;
};

/// A force quantity along the members, kN or kNm.
[[nodiscard]] std::vector<ColouredLine> ColourByForce(const CDrawnPlaces& places, const StructureForces& forces,
                                                      MemberQuantity quantity);
/// Length of the displacement along the members, drawn dFactor times displaced: mm; of a mode parts of the largest one.
[[nodiscard]] std::vector<ColouredLine> ColourByDisplacement(const CScene& scene, const DeformedShape& shape,
                                                             double dFactor, int nSteps = c_nBentSteps);

/// Legends: scale over the values drawn, and where the extremes are.
[[nodiscard]] ColourLegend FormForceLegend(const StructureForces& forces, MemberQuantity quantity,
                                           const CShownParts& shown = {});
[[nodiscard]] ColourLegend FormDisplacementLegend(const CScene& scene, const DeformedShape& shape);
/// "max 128.4 kN·m (element 12)", "min ..."; a single line for values without sign, none without values.
[[nodiscard]] std::vector<std::string> DescribeExtremes(const StructureForces& forces, MemberQuantity quantity,
                                                        const CShownParts& shown = {});
/// How a diagram of the quantity is drawn: on which side, or that its values have no sign.
[[nodiscard]] std::string DescribeDiagramSide(const StructureForces& forces, MemberQuantity quantity);

/// Where the ordinates of a component's diagram point for a value of +1: My and Mz on the tension side, N, Mx and Qz
/// upwards (to the left of a column), Qy to the left of the member. Values without sign are all on that same side.
[[nodiscard]] Point3 FindOrdinate(const CScene& scene, const SceneMember& member, MemberQuantity component,
                                  bool bAbsolute);

/// Paints results as a camera sees them, layer by layer. Values go to a field of labels, which is painted last.
class CResultPainter {
 public:
  /// Paint, scene and camera must outlive the painter.
  CResultPainter(IPaintContext& paint, const CScene& scene, const CCamera& camera, CShownParts shown = {});

  /// One of the six components, pale areas with an outline, the largest ordinate as long as dSize, m. Values at ends
  /// and extremes. pLabels may be null.
  void PaintDiagram(const StructureForces& forces, MemberQuantity component, double dSize, CLabelField* pLabels);
  void PaintColours(std::span<const ColouredLine> lines, const CColourScale& scale, double dWidth);
  /// Arrows to scale with values; moments have two heads.
  void PaintReactions(const StructureForces& forces, CLabelField* pLabels);

 private:
  struct Ordinates;

  [[nodiscard]] std::vector<Ordinates> FormOrdinates(const StructureForces& forces, MemberQuantity component,
                                                     double dScale) const;
  void AddValues(const Ordinates& ordinates, const ForceExtremes& extremes, CLabelField& labels) const;
  void PaintReaction(const SupportForces& reaction, std::size_t nDirection, double dLargest, bool bAbsolute,
                     CLabelField* pLabels);
  [[nodiscard]] PaintPoint ToScreen(Point3 point) const { return m_camera.Project(point).at; }

  IPaintContext& m_paint;
  const CScene& m_scene;
  const CCamera& m_camera;
  CShownParts m_shown;
};

/// Size of a diagram that lets neighbours be told apart, m.
[[nodiscard]] double ChooseDiagramSize(const CScene& scene);
/// Text of a force, with digits that fit the largest one of the picture.
[[nodiscard]] std::string FormatForce(double dValue, double dLargest);

}  // namespace skyframe::host
