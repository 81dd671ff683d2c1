// What is painted of results, against statics by hand: values and sides of diagrams, colours and their legend, arrows,
// numbers, and what a click hits.

#include "CommandFolder.h"
#include "ResultFiles.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/job/Text.h"
#include "skyframe/run/PlatformScope.h"
#include "skyframe/scene/Colours.h"
#include "skyframe/scene/LocalAxes.h"
#include "skyframe/scene/Picking.h"
#include "skyframe/scene/ResultPainter.h"
#include "skyframe/scene/ScenePainter.h"

namespace skyframe::host {
namespace {

constexpr double c_dElasticity = 2.06e8;  // kN/m², steel
constexpr double c_dInertia = 2e-4;       // m⁴, of all beams here

/// A beam along X in equal members.
struct Beam {
  const char* pszWhat;
  double dLength;  // m
  std::array<int, 6> left, right;
  std::vector<double> loads;  // kN downwards, by inner and end node from the left; as many as members
};

Job MakeJob(const Beam& beam) {
  Job job;
  const std::size_t nMembers = beam.loads.size();
  for (std::size_t i = 0; i <= nMembers; ++i) {
    JobNode node{.nId = static_cast<int>(10 * (i + 1)), .restraint = {}, .nSpring = {}};
    node.dX = beam.dLength * static_cast<double>(i) / static_cast<double>(nMembers);
    job.nodes.push_back(node);
  }
  job.nodes.front().restraint = beam.left;
  job.nodes.back().restraint = beam.right;
  job.sections = {{.strId = "S", .dArea = 1e5, .dIx = 1e8, .dIy = 1e12 * c_dInertia, .dIz = 1e8}};
  for (int k = 0; k < static_cast<int>(nMembers); ++k) {
    job.elements.push_back({.nType = c_nBeam, .nNodeI = k + 1, .nNodeJ = k + 2, .nSection = 0});
    const double dLoad = beam.loads[static_cast<std::size_t>(k)];
    if (dLoad != 0.0) job.loads.push_back({.nCase = 0, .nNode = k + 2, .nDirection = 2, .dValue = -dLoad});
  }
  StaticJob analysis;
  analysis.bNonlinear = false;
  analysis.combination = {{0, 1.0}};
  job.analyses = {analysis};
  return job;
}

/// A job, its linear static result and a picture of it from the front.
class CSolved {
 public:
  explicit CSolved(const Job& job) : m_scene(job) {
    const test::CCommandFolder folder;
    EXPECT_EQ(folder.Solve(FormatJob(job)).nStatus, 0);
    const CPlatformScope platform(m_text, m_text);
    m_file = test::Take(ReadStaticResultFile(folder.GetPath("_StaticLinearSol.txt"), job.nodes.size()));
    m_forces = test::Take(FormMemberForces(m_file, {job.nodes.size(), job.elements.size()}));
    m_camera.SetViewport({0, 0, 1000, 800});
    m_camera.Fit(m_scene.GetCentre(), m_scene.GetRadius());
  }

  std::ostringstream m_text;
  CScene m_scene;
  StaticResultFile m_file;
  StructureForces m_forces;
  CCamera m_camera;
};

/// Texts in the order in which they are painted, without what surrounds their letters.
std::vector<std::string> ListTexts(const CPaintRecorder& paint) {
  std::vector<std::string> texts;
  for (const PaintItem& item : paint.GetItems()) {
    if (item.kind == PaintItem::Kind::Text && item.state.pen != c_white) texts.push_back(item.strText);
  }
  return texts;
}

constexpr std::array<int, 6> c_clamped = {1, 1, 1, 1, 1, 1}, c_pin = {1, 1, 1, 1, 0, 0}, c_roller = {0, 1, 1, 0, 0, 0},
                             c_end = {};

TEST(DrawnForces, MomentsAreThoseOfStatics) {
  const struct {
    Beam beam;
    double dHighest, dLowest;          // kN·m, sagging above 0
    std::optional<double> middle;      // in the middle
    double dLeftForce, dLeftMoment;    // of the support on the structure, Z and RY
    std::optional<double> deflection;  // mm, the largest
    std::vector<std::string> labels;   // of the diagram, the greatest first
  } cases[] = {
      // P L; P L³/3EI
      {{"cantilever", 6, c_clamped, c_end, {0, 0, 12}},
       0,
       -72,
       -36,
       12,
       -72,
       1e3 * 12 * 216 / (3 * c_dElasticity * c_dInertia),
       {"-72.0", "-48.0", "-24.0"}},
      // P L / 4; P L³/48EI
      {{"simple beam", 8, c_pin, c_roller, {0, 30, 0, 0}},
       60,
       0,
       60,
       15,
       0,
       1e3 * 30 * 512 / (48 * c_dElasticity * c_dInertia),
       {"60.0", "30.0", "30.0"}},
      // w L²/8 with w a at the nodes: the polygon meets the parabola there
      {{"simple beam, even load", 12, c_pin, c_roller, {5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 0}},
       90,
       0,
       90,
       27.5,
       0,
       std::nullopt,
       {"90.0", "87.5", "87.5", "80.0", "80.0", "67.5", "67.5", "50.0", "50.0", "27.5", "27.5"}},
      // P L / 8 at ends and middle; P L³/192EI
      {{"clamped beam", 8, c_clamped, c_clamped, {40, 0}},
       40,
       -40,
       40,
       20,
       -40,
       1e3 * 40 * 512 / (192 * c_dElasticity * c_dInertia),
       {"-40.0", "40.0", "-40.0"}},
      // 3 P L / 16 at the clamp, 5 P L / 32 under the load, 11 P / 16 of it at the clamp
      {{"propped cantilever", 8, c_clamped, c_roller, {32, 0}}, 40, -48, 40, 22, -48, std::nullopt, {"-48.0", "40.0"}},
      // P a between the loads
      {{"two loads", 9, c_pin, c_roller, {7, 7, 0}}, 21, 0, 21, 7, 0, std::nullopt, {"21.0", "21.0", "21.0"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.beam.pszWhat);
    const CSolved solved(MakeJob(c.beam));
    const double dScale = std::max(c.dHighest, -c.dLowest);
    const ForceExtremes extremes = FindExtremes(solved.m_forces, MemberQuantity::My);
    EXPECT_NEAR(extremes.dHighest, c.dHighest, 1e-4 * dScale);
    EXPECT_NEAR(extremes.dLowest, c.dLowest, 1e-4 * dScale);
    EXPECT_NEAR(FindExtremes(solved.m_forces, MemberQuantity::Moment).dHighest, dScale, 1e-4 * dScale);
    const std::array<double, 6>& left = solved.m_forces.reactions.at(0).forces;
    EXPECT_NEAR(left[2], c.dLeftForce, 1e-4 * dScale);
    EXPECT_NEAR(left[4], c.dLeftMoment, 1e-4 * dScale) << "about Y, which turns Z into X";

    CPaintRecorder paint;
    CLabelField labels({0, 0, 1000, 800}, 99, 12.0);
    CResultPainter(paint, solved.m_scene, solved.m_camera)
        .PaintDiagram(solved.m_forces, MemberQuantity::My, 0.25, &labels);
    // Outlines leave the axis on the tension side, to scale: the largest by 0.25 m.
    const double dAxis = solved.m_camera.Project({}).at.dY;
    double dLow = 0.0, dHigh = 0.0;
    for (const PaintItem& item : paint.GetItems()) {
      for (const PaintPoint& at : item.points) {
        dLow = std::min(dLow, at.dY - dAxis);
        dHigh = std::max(dHigh, at.dY - dAxis);
      }
    }
    const double dPixels = 0.25 * solved.m_camera.GetPixelsPerMetre() / dScale;
    EXPECT_NEAR(dLow, c.dLowest * dPixels, 1e-2) << "hogging above";
    EXPECT_NEAR(dHigh, c.dHighest * dPixels, 1e-2) << "sagging below";
    labels.Paint(paint);
    std::vector<std::string> texts = ListTexts(paint), expected = c.labels;
    std::ranges::sort(texts);
    std::ranges::sort(expected);
    EXPECT_EQ(texts, expected);

    const DeformedShape shape = FormStaticShape(solved.m_file);
    const ColourLegend legend = FormDisplacementLegend(solved.m_scene, shape);
    EXPECT_EQ(legend.scale.GetLow(), 0.0);
    EXPECT_EQ(legend.scale.GetHigh(), 1e3 * shape.GetLargestTranslation());
    const double dDeflection = c.deflection.value_or(legend.scale.GetHigh());
    EXPECT_NEAR(legend.scale.GetHigh(), dDeflection, 2e-4 * dDeflection) << "mm";
  }
}

}  // namespace
}  // namespace skyframe::host
