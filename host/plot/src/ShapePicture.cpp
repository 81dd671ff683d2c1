#include <algorithm>
#include <cmath>
#include <limits>

#include "skyframe/job/Text.h"
#include "skyframe/plot/Chart.h"
#include "skyframe/plot/Pictures.h"

namespace skyframe::host {

namespace {

using Vector = std::array<double, 3>;

constexpr Colour c_structureColour{0xb4, 0xbb, 0xc4};
constexpr Colour c_panelColour{0xd6, 0xda, 0xe0};
constexpr double c_dDrawnSize = 0.07;  // largest displacement, part of the structure's diagonal
constexpr double c_dDrawnPart = 0.3;   // and at most this part of its height, width or depth
constexpr int c_nCurveSteps = 10;
constexpr double c_dPanelMargin = 46;
constexpr std::size_t c_nManyMembers = 2000;
constexpr double c_dTextHeight = 12;

/// One view of the sheet: where, and which screen vector (to the right, upwards) each axis has.
struct View {
  const char* pszName;
  Box box;
  std::array<PaintPoint, 3> axes;
};

constexpr double c_dCos30 = 0.8660254037844386;
constexpr std::array<PaintPoint, 3> c_isometric = {{{c_dCos30, -0.5}, {c_dCos30, 0.5}, {0.0, 1.0}}};
constexpr std::array<PaintPoint, 3> c_front = {{{1.0, 0.0}, {0.0, 0.0}, {0.0, 1.0}}};
constexpr std::array<PaintPoint, 3> c_side = {{{0.0, 0.0}, {1.0, 0.0}, {0.0, 1.0}}};
constexpr std::array<PaintPoint, 3> c_plan = {{{1.0, 0.0}, {0.0, 1.0}, {0.0, 0.0}}};

/// Elevations side by side.
constexpr std::array<View, 4> c_highViews = {{
    {"Isometric", {24, 76, 600, 812}, c_isometric},
    {"Elevation X–Z", {612, 76, 888, 536}, c_front},
    {"Elevation Y–Z", {900, 76, 1176, 536}, c_side},
    {"Plan X–Y", {612, 548, 1176, 812}, c_plan},
}};
/// Elevations one above the other.
constexpr std::array<View, 4> c_flatViews = {{
    {"Isometric", {24, 76, 600, 812}, c_isometric},
    {"Elevation X–Z", {612, 76, 1176, 256}, c_front},
    {"Elevation Y–Z", {612, 268, 1176, 448}, c_side},
    {"Plan X–Y", {612, 460, 1176, 812}, c_plan},
}};

Vector Combine(const Vector& a, double dFactor, const Vector& b) {
  return {a[0] + dFactor * b[0], a[1] + dFactor * b[1], a[2] + dFactor * b[2]};
}

Vector Cross(const Vector& a, const Vector& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double Norm(const Vector& a) { return std::hypot(a[0], a[1], a[2]); }

Vector GetTranslation(const std::array<double, 6>& u) { return {u[0], u[1], u[2]}; }
Vector GetRotation(const std::array<double, 6>& u) { return {u[3], u[4], u[5]}; }

std::size_t FindLargest(const ShapePicture& picture) {
  std::size_t nLargest = 0;
  for (std::size_t i = 1; i < picture.displacements.size(); ++i) {
    if (Norm(GetTranslation(picture.displacements[i])) > Norm(GetTranslation(picture.displacements[nLargest]))) {
      nLargest = i;
    }
  }
  return nLargest;
}

/// 1, 2 or 5 times a power of ten, not above the value.
double RoundDown(double dValue) {
  const double dPower = std::pow(10.0, std::floor(std::log10(dValue)));
  return dPower * (dValue >= 5.0 * dPower ? 5.0 : dValue >= 2.0 * dPower ? 2.0 : 1.0);
}

/// Lengths of the box around the nodes.
Vector FindExtents(const ShapePicture& picture) {
  Vector low = picture.nodes.front();
  Vector high = low;
  for (const Vector& node : picture.nodes) {
    for (std::size_t d = 0; d < 3; ++d) {
      low[d] = std::min(low[d], node[d]);
      high[d] = std::max(high[d], node[d]);
    }
  }
  return Combine(high, -1.0, low);
}

/// Factor of the displacements; 0 when nothing moves.
double ChooseScale(const ShapePicture& picture) {
  const Vector extents = FindExtents(picture);
  double dDrawn = c_dDrawnSize * Norm(extents);
  for (const double dExtent : extents) {
    if (dExtent > 1e-6 * Norm(extents)) dDrawn = std::min(dDrawn, c_dDrawnPart * dExtent);
  }
  const double dLargest = Norm(GetTranslation(picture.displacements[FindLargest(picture)]));
  const double dScale = dDrawn / dLargest;
  if (!(dLargest > 0.0) || !std::isfinite(dScale)) return 0.0;
  return picture.bShowScale ? RoundDown(dScale) : dScale;
}

/// Lines in space, projected and fitted into the box of a view.
class CProjection {
 public:
  CProjection(const View& view, const std::vector<std::vector<Vector>>& lines) : m_view(view) {
    constexpr double c_dInfinity = std::numeric_limits<double>::infinity();
    PaintPoint low{c_dInfinity, c_dInfinity};
    PaintPoint high{-c_dInfinity, -c_dInfinity};
    for (const auto& line : lines) {
      for (const Vector& point : line) {
        const PaintPoint p = Project(point);
        low = {std::min(low.dX, p.dX), std::min(low.dY, p.dY)};
        high = {std::max(high.dX, p.dX), std::max(high.dY, p.dY)};
      }
    }
    const double dWidth = std::max(high.dX - low.dX, 1e-9);
    const double dHeight = std::max(high.dY - low.dY, 1e-9);
    m_dScale = std::min((view.box.GetWidth() - 2 * c_dPanelMargin) / dWidth,
                        (view.box.GetHeight() - 2 * c_dPanelMargin) / dHeight);
    m_centre = {0.5 * (low.dX + high.dX), 0.5 * (low.dY + high.dY)};
  }

  [[nodiscard]] PaintPoint Map(const Vector& point) const {
    const PaintPoint p = Project(point);
    return {0.5 * (m_view.box.dLeft + m_view.box.dRight) + m_dScale * (p.dX - m_centre.dX),
            0.5 * (m_view.box.dTop + m_view.box.dBottom) - m_dScale * (p.dY - m_centre.dY)};
  }

 private:
  [[nodiscard]] PaintPoint Project(const Vector& point) const {
    PaintPoint p;
    for (std::size_t d = 0; d < 3; ++d) {
      p.dX += point[d] * m_view.axes[d].dX;
      p.dY += point[d] * m_view.axes[d].dY;
    }
    return p;
  }

  const View& m_view;
  double m_dScale = 1.0;
  PaintPoint m_centre;
};

void PaintLines(IPaintContext& paint, const CProjection& projection, const std::vector<std::vector<Vector>>& lines) {
  for (const auto& line : lines) {
    std::vector<PaintPoint> points;
    points.reserve(line.size());
    for (const Vector& point : line) points.push_back(projection.Map(point));
    paint.Polyline(points);
  }
}

void PaintSquare(IPaintContext& paint, PaintPoint at, double dSize, Colour colour) {
  paint.SetPen(colour);
  paint.SetBrush(colour);
  paint.Rectangle(at.dX - dSize / 2, at.dY - dSize / 2, dSize, dSize);
}

/// Frame, name and the directions of the axes.
void PaintPanel(IPaintContext& paint, const View& view) {
  constexpr double c_dArrow = 22;
  const Box& box = view.box;
  paint.SetPen(c_panelColour);
  paint.SetBrush(c_white);
  paint.Rectangle(box.dLeft, box.dTop, box.GetWidth(), box.GetHeight());
  paint.SetPen(c_inkColour);
  paint.SetTextHeight(c_dTextHeight);
  paint.Text(box.dLeft + 10, box.dTop + 8, view.pszName);
  const PaintPoint origin{box.dLeft + 18, box.dBottom - 26};
  for (std::size_t d = 0; d < 3; ++d) {
    const PaintPoint& axis = view.axes[d];
    if (axis.dX == 0.0 && axis.dY == 0.0) continue;
    paint.SetPen(c_faintColour);
    paint.Line(origin.dX, origin.dY, origin.dX + c_dArrow * axis.dX, origin.dY - c_dArrow * axis.dY);
    paint.Text(origin.dX + (c_dArrow + 8) * axis.dX, origin.dY - (c_dArrow + 8) * axis.dY, std::string(1, "XYZ"[d]),
               HorizontalAlign::Centre, VerticalAlign::Middle);
  }
}

void PaintLegend(IPaintContext& paint, const ShapePicture& picture, double dScale) {
  constexpr double c_dY = 836;
  double dX = 36;
  const auto entry = [&](const std::string& strText) {
    paint.SetPen(c_inkColour);
    paint.SetTextHeight(c_dTextHeight);
    paint.Text(dX + 34, c_dY, strText, HorizontalAlign::Left, VerticalAlign::Middle);
    dX += 70 + 0.56 * c_dTextHeight * static_cast<double>(strText.size());
  };
  paint.SetPen(c_structureColour, 2.0);
  paint.Line(dX, c_dY, dX + 26, c_dY);
  entry("undeformed");
  paint.SetPen(c_curveColour, 2.0);
  paint.Line(dX, c_dY, dX + 26, c_dY);
  entry(picture.bShowScale ? picture.strShape + Format(", displacements x %g", dScale) : picture.strShape);
  PaintSquare(paint, {dX + 13, c_dY}, 5, c_inkColour);
  entry("support");
  PaintSquare(paint, {dX + 13, c_dY}, 7, c_markColour);
  entry("largest displacement");
}

/// The two states of the structure.
struct Lines {
  std::vector<std::vector<Vector>> before;
  std::vector<std::vector<Vector>> after;
};

void PaintView(IPaintContext& paint, const View& view, const ShapePicture& picture, const Lines& lines, double dScale) {
  PaintPanel(paint, view);
  std::vector<std::vector<Vector>> all = lines.before;
  all.insert(all.end(), lines.after.begin(), lines.after.end());
  const CProjection projection(view, all);
  const double dThin = picture.members.size() > c_nManyMembers ? 0.5 : 1.0;
  paint.SetPen(c_structureColour, dThin);
  PaintLines(paint, projection, lines.before);
  for (std::size_t i = 0; i < picture.nodes.size(); ++i) {
    if (picture.supports[i]) PaintSquare(paint, projection.Map(picture.nodes[i]), 4, c_inkColour);
  }
  if (dScale == 0.0) return;
  paint.SetPen(c_curveColour, 1.3 * dThin);
  PaintLines(paint, projection, lines.after);

  const std::size_t nLargest = FindLargest(picture);
  const Vector u = GetTranslation(picture.displacements[nLargest]);
  const PaintPoint at = projection.Map(Combine(picture.nodes[nLargest], dScale, u));
  PaintSquare(paint, at, 6, c_markColour);
  PaintLabel(paint, view.box, {at.dX, at.dY - 6}, Format("node %d", picture.nodeIds[nLargest]), c_markColour);
}

}  // namespace

std::vector<Vector> BendMember(const ShapePicture& picture, const ShapePicture::Member& member, double dScale) {
  const Vector& xi = picture.nodes[static_cast<std::size_t>(member.nNodeI)];
  const Vector& xj = picture.nodes[static_cast<std::size_t>(member.nNodeJ)];
  const std::array<double, 6>& ui = picture.displacements[static_cast<std::size_t>(member.nNodeI)];
  const std::array<double, 6>& uj = picture.displacements[static_cast<std::size_t>(member.nNodeJ)];
  const Vector axis = Combine(xj, -1.0, xi);
  const Vector du = Combine(GetTranslation(uj), -1.0, GetTranslation(ui));

  // Change of displacement a unit of s at each end: theta x axis, with the axial part of du; an end
  // that does not turn with its node is free of moment.
  const double dLength2 = std::max(axis[0] * axis[0] + axis[1] * axis[1] + axis[2] * axis[2], 1e-30);
  const double dAxial = (du[0] * axis[0] + du[1] * axis[1] + du[2] * axis[2]) / dLength2;
  const Vector chord = Combine(du, 0.0, axis);
  const auto slope = [&](const std::array<double, 6>& u) {
    const Vector zero{};
    return Combine(Combine(zero, dAxial, axis), 1.0, Cross(GetRotation(u), axis));
  };
  const auto release = [&](const Vector& other) { return Combine(Combine(chord, 0.5, chord), -0.5, other); };
  const auto [bTurnI, bTurnJ] = member.turns;
  Vector mi = bTurnI ? slope(ui) : chord;
  Vector mj = bTurnJ ? slope(uj) : chord;
  if (bTurnI && !bTurnJ) mj = release(mi);
  if (!bTurnI && bTurnJ) mi = release(mj);

  const int nSteps = bTurnI || bTurnJ ? c_nCurveSteps : 1;
  std::vector<Vector> points;
  for (int k = 0; k <= nSteps; ++k) {
    const double s = static_cast<double>(k) / nSteps;
    // Hermite: u = ui + (3 s^2 - 2 s^3) du + (s - 2 s^2 + s^3) mi + (s^3 - s^2) mj
    Vector u = Combine(GetTranslation(ui), s * s * (3.0 - 2.0 * s), du);
    u = Combine(u, s * (1.0 - s) * (1.0 - s), mi);
    u = Combine(u, s * s * (s - 1.0), mj);
    points.push_back(Combine(Combine(xi, s, axis), dScale, u));
  }
  return points;
}

void PaintShape(IPaintContext& paint, const ShapePicture& picture) {
  const double dScale = ChooseScale(picture);
  Lines lines;
  for (const ShapePicture::Member& member : picture.members) {
    lines.before.push_back(BendMember(picture, {member.nNodeI, member.nNodeJ, {}}, 0.0));
    lines.after.push_back(BendMember(picture, member, dScale));
  }
  PaintTitle(paint, picture.strTitle, picture.strSubtitle);
  const auto [dX, dY, dZ] = FindExtents(picture);
  for (const View& view : dZ < 0.5 * std::max(dX, dY) ? c_flatViews : c_highViews)
    PaintView(paint, view, picture, lines, dScale);
  PaintLegend(paint, picture, dScale);
}

}  // namespace skyframe::host
