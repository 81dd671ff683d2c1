#include <algorithm>
#include <array>
#include <cmath>

#include "skyframe/job/Text.h"
#include "skyframe/plot/Chart.h"
#include "skyframe/plot/Pictures.h"
#include "skyframe/scene/ResultPainter.h"
#include "skyframe/scene/ScenePainter.h"
#include "skyframe/scene/TextExtent.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr Colour c_structureColour{0xb4, 0xbb, 0xc4};
constexpr Colour c_panelColour{0xd6, 0xda, 0xe0};
constexpr double c_dDrawnSize = 0.07;  // largest displacement, part of the structure's diagonal
constexpr double c_dDrawnPart = 0.3;   // and at most this part of its height, width or depth
constexpr double c_dPanelMargin = 46;
constexpr PaintPoint c_colourLegend{36, 104};  // in the isometric view
constexpr Colour c_colouredSwatch{0x2b, 0x7c, 0x93};
constexpr std::size_t c_nManyMembers = 2000;
constexpr double c_dTextHeight = 12;
constexpr AxesStyle c_axes = {22, 8, 1.0, {c_faintColour, c_faintColour, c_faintColour}};

/// One view of the sheet.
struct View {
  Words name;
  Box box;
  ViewDirection direction;
};

/// Elevations side by side.
constexpr std::array<View, 4> c_highViews = {{
    {texts::c_isometric, {24, 76, 600, 812}, c_isometricView},
    {texts::c_front, {612, 76, 888, 536}, c_frontView},
    {texts::c_side, {900, 76, 1176, 536}, c_sideView},
    {texts::c_plan, {612, 548, 1176, 812}, c_planView},
}};
/// Elevations one above the other.
constexpr std::array<View, 4> c_flatViews = {{
    {texts::c_isometric, {24, 76, 600, 812}, c_isometricView},
    {texts::c_front, {612, 76, 1176, 256}, c_frontView},
    {texts::c_side, {612, 268, 1176, 448}, c_sideView},
    {texts::c_plan, {612, 460, 1176, 812}, c_planView},
}};

/// 1, 2 or 5 times a power of ten, not above the value.
double RoundDown(double dValue) {
  const double dPower = std::pow(10.0, std::floor(std::log10(dValue)));
  return dPower * (dValue >= 5.0 * dPower ? 5.0 : dValue >= 2.0 * dPower ? 2.0 : 1.0);
}

/// Factor of the displacements; 0 when nothing moves.
double ChooseScale(const ShapePicture& picture) {
  const Point3 extents = picture.scene.GetExtents();
  const double dDiagonal = Length(extents);
  double dDrawn = c_dDrawnSize * dDiagonal;
  for (const double dExtent : {extents.dX, extents.dY, extents.dZ}) {
    if (dExtent > 1e-6 * dDiagonal) dDrawn = std::min(dDrawn, c_dDrawnPart * dExtent);
  }
  const double dLargest = picture.shape.GetLargestTranslation();
  const double dScale = dDrawn / dLargest;
  if (!(dLargest > 0.0) || !std::isfinite(dScale)) return 0.0;
  return picture.shape.IsMode() ? dScale : RoundDown(dScale);
}

void PaintSquare(IPaintContext& paint, PaintPoint at, double dSize, Colour colour) {
  paint.SetPen(colour);
  paint.SetBrush(colour);
  paint.Rectangle(at.dX - dSize / 2, at.dY - dSize / 2, dSize, dSize);
}

/// Frame and name.
void PaintPanel(IPaintContext& paint, const View& view) {
  const Box& box = view.box;
  paint.SetPen(c_panelColour);
  paint.SetBrush(c_white);
  paint.Rectangle(box.dLeft, box.dTop, box.GetWidth(), box.GetHeight());
  paint.SetPen(c_inkColour);
  paint.SetTextHeight(c_dTextHeight);
  paint.Text(box.dLeft + 10, box.dTop + 8, Say(view.name));
}

void PaintLegend(IPaintContext& paint, const ShapePicture& picture, double dScale) {
  constexpr double c_dY = 836;
  double dX = 36;
  const auto entry = [&](std::string_view strText) {
    paint.SetPen(c_inkColour);
    paint.SetTextHeight(c_dTextHeight);
    paint.Text(dX + 34, c_dY, strText, HorizontalAlign::Left, VerticalAlign::Middle);
    dX += 70 + EstimateTextWidth(strText, c_dTextHeight);
  };
  paint.SetPen(c_structureColour, 2.0);
  paint.Line(dX, c_dY, dX + 26, c_dY);
  entry(Say(texts::c_undeformed));
  paint.SetPen(picture.bColours ? c_colouredSwatch : c_curveColour, 2.0);
  paint.Line(dX, c_dY, dX + 26, c_dY);
  entry(picture.shape.IsMode() ? picture.strShape : Say(texts::c_magnified, {picture.strShape, Format("%g", dScale)}));
  PaintSquare(paint, {dX + 13, c_dY}, 5, c_inkColour);
  entry(Say(texts::c_support));
  PaintSquare(paint, {dX + 13, c_dY}, 7, c_markColour);
  entry(Say(texts::c_largest));
}

/// What every view shows of the shape.
struct Drawing {
  double dScale = 0.0;                ///< of the displacements
  std::vector<MemberLine> lines;      ///< of the displaced members
  std::vector<ColouredLine> colours;  ///< the same in colours, when they are wanted
  std::vector<Point3> points;         ///< all that must be seen
};

Drawing FormDrawing(const ShapePicture& picture) {
  Drawing drawing;
  drawing.dScale = ChooseScale(picture);
  drawing.lines = BendMembers(picture.scene, picture.shape, drawing.dScale);
  if (picture.bColours) drawing.colours = ColourByDisplacement(picture.scene, picture.shape, drawing.dScale);
  for (const SceneNode& node : picture.scene.GetNodes()) drawing.points.push_back(node.at);
  for (const MemberLine& line : drawing.lines) {
    drawing.points.insert(drawing.points.end(), line.begin(), line.end());
  }
  return drawing;
}

void MarkLargest(IPaintContext& paint, const View& view, const CCamera& camera, const ShapePicture& picture,
                 double dScale) {
  const int nLargest = picture.shape.FindLargestNode();
  const SceneNode& node = picture.scene.GetNodes()[static_cast<std::size_t>(nLargest)];
  const PaintPoint at = camera.Project(node.at + dScale * picture.shape.GetTranslation(nLargest)).at;
  PaintSquare(paint, at, 6, c_markColour);
  PaintLabel(paint, view.box, {at.dX, at.dY - 6}, Say(texts::c_node, {std::to_string(node.nId)}), c_markColour);
}

void PaintView(IPaintContext& paint, const View& view, const ShapePicture& picture, const Drawing& drawing) {
  CCamera camera;
  camera.SetDirection(view.direction);
  camera.SetViewport(view.box);
  camera.Fit(drawing.points, c_dPanelMargin);
  const double dThin = picture.scene.GetMembers().size() > c_nManyMembers ? 0.5 : 1.0;
  CScenePainter painter(paint, picture.scene, camera);
  PaintPanel(paint, view);
  painter.PaintAxes({view.box.dLeft + 18, view.box.dBottom - 26}, c_axes);
  painter.PaintMembers({c_structureColour, c_structureColour, dThin, dThin});
  for (const SceneSupport& support : picture.scene.GetSupports()) {
    PaintSquare(paint, camera.Project(picture.scene.GetPlace(support.nNode)).at, 4, c_inkColour);
  }
  if (drawing.dScale == 0.0) return;
  if (picture.bColours) {
    const CColourScale scale = FormDisplacementLegend(picture.scene, picture.shape).scale;
    CResultPainter(paint, picture.scene, camera).PaintColours(drawing.colours, scale, 1.8 * dThin);
  } else {
    painter.PaintLines(drawing.lines, {c_curveColour, c_curveColour, 1.3 * dThin, 1.3 * dThin});
  }
  MarkLargest(paint, view, camera, picture, drawing.dScale);
}

}  // namespace

void PaintShape(IPaintContext& paint, const ShapePicture& picture) {
  const Drawing drawing = FormDrawing(picture);
  PaintTitle(paint, picture.strTitle, picture.strSubtitle);
  const auto [dX, dY, dZ] = picture.scene.GetExtents();
  for (const View& view : dZ < 0.5 * std::max(dX, dY) ? c_flatViews : c_highViews) {
    PaintView(paint, view, picture, drawing);
  }
  if (picture.bColours && drawing.dScale != 0.0)
    PaintColourLegend(paint, c_colourLegend, FormDisplacementLegend(picture.scene, picture.shape));
  PaintLegend(paint, picture, drawing.dScale);
}

}  // namespace skyframe::host
