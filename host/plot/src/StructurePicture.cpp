#include <algorithm>
#include <cmath>
#include <tuple>

#include "skyframe/plot/Pictures.h"
#include "skyframe/scene/ResultPainter.h"
#include "skyframe/scene/ScenePainter.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr Colour c_memberColour{0x3c, 0x44, 0x50};
constexpr Colour c_farMemberColour{0x9a, 0xa2, 0xad};
constexpr Colour c_paleColour{0xc4, 0xca, 0xd2};
constexpr Colour c_supportColour{0x14, 0x78, 0x3c};
constexpr Colour c_sectionColour{0x7a, 0x5c, 0x1e};
constexpr std::array<Colour, 3> c_localColours = {Colour{0xc8, 0x28, 0x28}, Colour{0x1e, 0x8c, 0x1e},
                                                  Colour{0x28, 0x46, 0xc8}};
constexpr AxesStyle c_axes = {26, 9, 1.5, c_localColours};

// Pixels
constexpr Box c_edges{24, 76, 24, 24};
constexpr double c_dViewMargin = 74;  // lets arrows and their values in
constexpr double c_dFlatMargin = 50;
constexpr double c_dLegendGap = 16, c_dLineHeight = 18;
constexpr double c_dLabelHeight = 11, c_dNoteHeight = 12;

constexpr std::size_t c_nManyMembers = 2000;

/// Values on members, and those of the reactions.
std::size_t CountLabels(const StructurePicture& picture) {
  constexpr std::size_t c_nOfSupport = 4;
  const std::size_t nReactions = picture.bReactions ? c_nOfSupport * picture.forces.reactions.size() : 0;
  return ChooseLabelCount(picture.shown.CountMembers(picture.scene)) + nReactions;
}

/// What is painted, and where.
class CStructureSheet {
 public:
  CStructureSheet(IPaintContext& paint, const StructurePicture& picture, PictureSize size)
      : m_paint(paint),
        m_picture(picture),
        m_box{c_edges.dLeft, c_edges.dTop, size.nWidth - c_edges.dRight, size.nHeight - c_edges.dBottom},
        m_labels(m_box, CountLabels(picture), c_dLabelHeight) {
    m_camera.SetDirection(picture.view);
    m_camera.SetViewport(GetView());
    m_camera.Fit(FindSeenPoints(), HasArrows() ? c_dViewMargin : c_dFlatMargin);
  }

  void Paint() {
    PaintTitle(m_paint, m_picture.strTitle, m_picture.strSubtitle);
    PaintNotes();
    const StructurePicture& picture = m_picture;
    CScenePainter scene(m_paint, picture.scene, m_camera, picture.shown);
    CResultPainter results(m_paint, picture.scene, m_camera, picture.shown);
    const double dThin = picture.scene.GetMembers().size() > c_nManyMembers ? 0.5 : 1.0;
    if (picture.diagram)
      results.PaintDiagram(picture.forces, *picture.diagram, ChooseDiagramSize(picture.scene), &m_labels);
    const bool bPale = picture.colours.has_value();
    scene.PaintMembers(
        {bPale ? c_paleColour : c_memberColour, bPale ? c_paleColour : c_farMemberColour, 1.4 * dThin, dThin});
    if (picture.colours) {
      const CColourScale scale = FormForceLegend(picture.forces, *picture.colours, picture.shown).scale;
      results.PaintColours(ColourByForce(picture.scene, picture.forces, *picture.colours), scale, 2.6 * dThin);
    }
    scene.PaintSupports(c_supportColour);
    if (picture.bReactions) results.PaintReactions(picture.forces, &m_labels);
    scene.PaintLoads(picture.loads, &m_labels);
    if (picture.bLocalAxes) scene.PaintLocalAxes(c_localColours);
    if (picture.bSectionNames) scene.AddSectionNames(c_sectionColour, m_labels);
    scene.PaintAxes({m_box.dLeft + 40, m_box.dBottom - 40}, c_axes);
    m_labels.Paint(m_paint);
  }

 private:
  [[nodiscard]] bool HasArrows() const { return m_picture.bReactions || !m_picture.loads.empty(); }

  /// Beside the legend in colours.
  [[nodiscard]] Box GetView() const {
    Box view = m_box;
    if (m_picture.colours) view.dRight -= c_dLegendWidth + c_dLegendGap;
    return view;
  }

  [[nodiscard]] std::vector<Point3> FindSeenPoints() const {
    std::vector<Point3> points;
    for (std::size_t i = 0; i < m_picture.scene.GetNodes().size(); ++i) {
      if (m_picture.shown.HasNode(static_cast<int>(i))) points.push_back(m_picture.scene.GetNodes()[i].at);
    }
    if (m_picture.diagram) AddTips(*m_picture.diagram, points);
    return points;
  }

  /// Of the ordinates of a diagram.
  void AddTips(MemberQuantity component, std::vector<Point3>& points) const {
    const auto& [scene, forces, shown] = std::tie(m_picture.scene, m_picture.forces, m_picture.shown);
    const double dLargest = FindExtremes(forces, component, shown).GetMagnitude();
    for (std::size_t i = 0; i < forces.members.size() && dLargest > 0.0; ++i) {
      if (!forces.members[i].Has(component) || !shown.HasMember(i)) continue;
      const SceneMember& member = scene.GetMembers()[i];
      const std::vector<double> values = forces.members[i].Get(component);
      const Point3 ordinate =
          (ChooseDiagramSize(scene) / dLargest) * FindOrdinate(scene, member, component, forces.bAbsolute);
      points.push_back(scene.GetPlace(member.nNodeI) + values.front() * ordinate);
      points.push_back(scene.GetPlace(member.nNodeJ) + values.back() * ordinate);
    }
  }

  /// Legend in colours at the right, other words at the left.
  void PaintNotes() {
    double dY = m_box.dTop;
    if (m_picture.diagram) {
      m_paint.SetPen(c_inkColour);
      m_paint.SetTextHeight(c_dNoteHeight);
      for (const std::string& strLine : DescribeExtremes(m_picture.forces, *m_picture.diagram, m_picture.shown)) {
        m_paint.Text(m_box.dLeft, dY, strLine);
        dY += c_dLineHeight;
      }
    }
    if (!m_picture.loads.empty()) PaintLoadLegend(m_paint, {m_box.dLeft, dY}, m_picture.loads);
    if (!m_picture.colours) return;
    const ColourLegend legend = FormForceLegend(m_picture.forces, *m_picture.colours, m_picture.shown);
    PaintColourLegend(m_paint, {m_box.dRight - c_dLegendWidth, m_box.dTop}, legend);
  }

  IPaintContext& m_paint;
  const StructurePicture& m_picture;
  Box m_box;
  CCamera m_camera;
  CLabelField m_labels;
};

}  // namespace

void PaintStructure(IPaintContext& paint, const StructurePicture& picture, PictureSize size) {
  CStructureSheet(paint, picture, size).Paint();
}

}  // namespace skyframe::host
