// What is painted of results, against statics by hand: values and sides of diagrams, colours and their legend, arrows,
// numbers, and what a click hits.

#include "CommandFolder.h"
#include "ResultFiles.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/job/Text.h"
#include "skyframe/plot/Pictures.h"
#include "skyframe/run/PlatformScope.h"
#include "skyframe/scene/Colours.h"
#include "skyframe/scene/LocalAxes.h"
#include "skyframe/scene/Picking.h"
#include "skyframe/scene/ResultPainter.h"
#include "skyframe/scene/ScenePainter.h"
#include "skyframe/scene/TextExtent.h"

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

TEST(DrawnForces, ColoursStandForTheValuesOfTheirPlaces) {
  const CSolved solved(MakeJob({"clamped beam", 8, c_clamped, c_clamped, {40, 0}}));
  const ColourLegend legend = FormForceLegend(solved.m_forces, MemberQuantity::My, {});
  EXPECT_NEAR(legend.scale.GetLow(), -40.0, 0.01);
  EXPECT_NEAR(legend.scale.GetHigh(), 40.0, 0.01);
  EXPECT_EQ(legend.notes, (std::vector<std::string>{"max 40.0 kN·m (element 1)", "min -40.0 kN·m (element 1)"}));
  for (const auto& [quantity, strUnit, strLine] : {std::tuple(MemberQuantity::Qz, "kN", "max 20.0 kN (element 2)"),
                                                   {MemberQuantity::N, "kN", "max 0 kN (element 1)"},
                                                   {MemberQuantity::Shear, "kN", "max 20.0 kN (element 1)"},
                                                   {MemberQuantity::Moment, "kN·m", "max 40.0 kN·m (element 1)"}}) {
    const ColourLegend other = FormForceLegend(solved.m_forces, quantity, {});
    EXPECT_EQ(other.strUnit, strUnit);
    EXPECT_EQ(other.notes.front().substr(0, 8), std::string(strLine).substr(0, 8)) << strLine;
  }
  const ColourLegend second = FormForceLegend(solved.m_forces, MemberQuantity::My, {solved.m_scene, {false, true}});
  EXPECT_TRUE(second.notes.front().ends_with("(element 2)")) << "of what is shown";

  // The bar beside the picture: every number stands at the height of its colour.
  CPaintRecorder bar;
  PaintColourLegend(bar, {700, 20}, legend);
  std::vector<const PaintItem*> bands;
  for (const PaintItem& item : bar.GetItems()) {
    if (item.kind == PaintItem::Kind::Rectangle) bands.push_back(&item);
  }
  ASSERT_GE(bands.size(), 16U);
  const double dTop = bands.front()->points[0].dY, dBottom = bands.back()->points[1].dY;
  const auto getValue = [&](double dY) { return 40.0 - 80.0 * (dY - dTop) / (dBottom - dTop); };
  for (const PaintItem* const pBand : bands) {
    const double dMiddle = 0.5 * (pBand->points[0].dY + pBand->points[1].dY);
    EXPECT_EQ(pBand->state.brush, legend.scale.GetColour(getValue(dMiddle))) << dMiddle;
  }
  int nNumbers = 0;
  for (const PaintItem& item : bar.GetItems()) {
    if (item.kind != PaintItem::Kind::Text || item.vertical != VerticalAlign::Middle) continue;
    EXPECT_NEAR(std::stod(item.strText), getValue(item.points[0].dY), 0.01) << item.strText;
    ++nNumbers;
  }
  EXPECT_GE(nNumbers, 4);

  // On the members: red where it sags, blue at the clamps, pale at the quarters.
  CPaintRecorder paint;
  CResultPainter(paint, solved.m_scene, solved.m_camera)
      .PaintColours(ColourByForce(solved.m_scene, solved.m_forces, MemberQuantity::My), legend.scale, 3.0);
  const auto find = [&](double dX) {
    for (const PaintItem& item : paint.GetItems()) {
      const PaintPoint at = solved.m_camera.Project({dX, 0, 0}).at;
      if (item.points.front().dX <= at.dX && at.dX <= item.points.back().dX) return item.state.pen;
    }
    return c_black;
  };
  const auto sameAs = [&](Colour colour, double dValue) {
    const Colour wanted = legend.scale.GetColour(dValue);
    return std::abs(colour.nRed - wanted.nRed) + std::abs(colour.nGreen - wanted.nGreen) +
               std::abs(colour.nBlue - wanted.nBlue) <
           24;
  };
  for (const double dX : {0.1, 1.1, 2.1, 3.1, 3.9, 4.3, 5.9, 7.9}) {
    const double dMoment = dX < 4 ? -40 + 20 * dX : 120 - 20 * dX;
    EXPECT_TRUE(sameAs(find(dX), dMoment)) << dX;
  }
}

TEST(DrawnShapes, ColoursByDisplacementAreMillimetres) {
  // A cantilever whose tip goes down: v(x) = P x² (3 L - x) / 6EI at its nodes.
  const CSolved solved(MakeJob({"cantilever", 6, c_clamped, c_end, {0, 0, 12}}));
  const DeformedShape shape = FormStaticShape(solved.m_file);
  const auto lines = ColourByDisplacement(solved.m_scene, shape, 50.0, 1);
  const auto deflection = [](double x) { return 12 * x * x * (18 - x) / (6 * c_dElasticity * c_dInertia); };
  ASSERT_EQ(lines.size(), 3U);
  for (std::size_t k = 0; k < 3; ++k) {
    const double dX = 2.0 * static_cast<double>(k + 1);
    EXPECT_NEAR(lines[k].values.back(), 1e3 * deflection(dX), 1e-3 * deflection(dX) * 1e3);
    EXPECT_NEAR(lines[k].line.back().dZ, -50.0 * deflection(dX), 1e-3 * 50.0 * deflection(dX)) << "drawn to scale";
    EXPECT_NEAR(CDrawnPlaces(solved.m_scene, shape, 50.0).GetNode(static_cast<int>(k) + 1).dZ, lines[k].line.back().dZ,
                1e-12);
  }
  const std::string strNote = FormDisplacementLegend(solved.m_scene, shape).notes.at(0);
  EXPECT_EQ(strNote, Format("max %.4g mm (node 40)", lines[2].values.back())) << "as the job calls it";
  // A mode has no size of its own.
  const DeformedShape mode{ShapeKind::Mode, 1, 1.0, {{}, {0, 0, 2, 0, 0, 0}, {0, 0, -8, 0, 0, 0}, {0, 0, 4, 0, 0, 0}}};
  const auto relative = ColourByDisplacement(solved.m_scene, mode, 1.0, 1);
  EXPECT_EQ(relative[0].values.back(), 0.25);
  EXPECT_EQ(relative[1].values.back(), 1.0);
  EXPECT_EQ(FormDisplacementLegend(solved.m_scene, mode).notes.at(0), "1 at node 30");
}

TEST(DrawnForces, TextsHaveTheDigitsThatThePictureNeeds) {
  const struct {
    double dValue, dLargest;
    const char* pszText;
  } cases[] = {{-1234.56, 5000, "-1235"}, {12.34, 50, "12.3"}, {-1.236, 5, "-1.24"},    {-0.004, 5, "0"},
               {0.0123, 0.05, "0.0123"},  {-0.04, 50, "0"},    {2.5e7, 3e7, "2.5e+07"}, {999.96, 999.96, "1000.0"}};
  for (const auto& c : cases) EXPECT_EQ(FormatForce(c.dValue, c.dLargest), c.pszText);
}

TEST(DrawnLoads, ArrowsAreToScaleAndPointWhereTheLoadsDo) {
  Job job = MakeJob({"cantilever", 6, c_clamped, c_end, {0, 0, 0}});
  job.loads = {{.nCase = 0, .nNode = 2, .nDirection = 2, .dValue = -40},
               {.nCase = 0, .nNode = 3, .nDirection = 2, .dValue = 20},
               {.nCase = 1, .nNode = 4, .nDirection = 0, .dValue = -10},
               {.nCase = 2, .nNode = 4, .nDirection = 4, .dValue = 3}};
  const CScene scene(job);
  CCamera camera;
  camera.SetViewport({0, 0, 1000, 800});
  camera.Fit(scene.GetCentre(), scene.GetRadius());
  CPaintRecorder paint;
  CLabelField labels({0, 0, 1000, 800}, 99, 12.0);
  CScenePainter(paint, scene, camera).PaintLoads(scene.GetLoads(), &labels);
  std::vector<PaintPoint> arrows;  // from tail to tip
  std::size_t nHeads = 0;
  for (const PaintItem& item : paint.GetItems()) {
    if (item.kind == PaintItem::Kind::Polyline && item.points.size() == 2)
      arrows.push_back({item.points[1].dX - item.points[0].dX, item.points[1].dY - item.points[0].dY});
    nHeads += item.kind == PaintItem::Kind::Polygon ? 1 : 0;
  }
  // X to the right, Z up; the moment about Y points into the picture and has a circle.
  ASSERT_EQ(arrows.size(), 3U);
  EXPECT_EQ(nHeads, 3U);
  EXPECT_GT(arrows[0].dY, 0.0) << "down";
  EXPECT_NEAR(arrows[1].dY, -0.5 * arrows[0].dY, 1e-9) << "up, half as long";
  EXPECT_NEAR(arrows[2].dX, -0.25 * arrows[0].dY, 1e-9) << "to the left, a quarter";
  EXPECT_NEAR(arrows[0].dX + arrows[1].dX + arrows[2].dY, 0.0, 1e-9);
  labels.Paint(paint);
  std::vector<std::string> texts = ListTexts(paint);
  std::ranges::sort(texts);
  EXPECT_EQ(texts, (std::vector<std::string>{"10.0", "20.0", "3.00", "40.0"}));
  CPaintRecorder legend;
  PaintLoadLegend(legend, {}, scene.GetLoads());
  EXPECT_EQ(ListTexts(legend).size(), 3U) << "a line for each case";
}

TEST(DrawnStructure, NumbersAndAxesStandAtTheirMembers) {
  Job job = MakeJob({"beam", 6, c_clamped, c_end, {0, 0, 0}});
  job.nodes.push_back({.nId = 7, .dZ = 3.0, .restraint = {}, .nSpring = {}});  // a column at the left
  job.elements.push_back({.nType = c_nBeam, .nNodeI = 1, .nNodeJ = 5, .nSection = 0});
  const CScene scene(job);
  CCamera camera;
  camera.SetDirection(c_obliqueView);
  camera.SetViewport({0, 0, 1000, 800});
  camera.Fit(scene.GetCentre(), scene.GetRadius());
  const CShownParts shown(scene, {true, false, false, true});
  CPaintRecorder paint;
  CScenePainter painter(paint, scene, camera, shown);
  painter.PaintNodeNumbers(c_black);
  painter.PaintMemberNumbers(c_black);
  EXPECT_EQ(ListTexts(paint), (std::vector<std::string>{"10", "20", "7", "1", "4"})) << "ids, then elements from 1";
  const auto near = [&](std::size_t nItem, Point3 place) {
    const PaintPoint at = paint.GetItems()[nItem].points[0], wanted = camera.Project(place).at;
    return std::hypot(at.dX - wanted.dX, at.dY - wanted.dY) < 8.0;
  };
  EXPECT_TRUE(near(0, {}) && near(1, {2, 0, 0}) && near(2, {0, 0, 3}) && near(3, {1, 0, 0}) && near(4, {0, 0, 1.5}));

  CPaintRecorder axes;
  CScenePainter(axes, scene, camera, shown).PaintLocalAxes({Colour{1, 0, 0}, Colour{0, 2, 0}, Colour{0, 0, 3}});
  ASSERT_EQ(axes.GetItems().size(), 6U);
  const std::array<std::array<Point3, 3>, 2> expected = {
      {{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {{{0, 0, 1}, {0, 1, 0}, {-1, 0, 0}}}}};
  const std::array<Point3, 2> middles = {Point3{1, 0, 0}, Point3{0, 0, 1.5}};
  for (std::size_t k = 0; k < 6; ++k) {
    const PaintItem& item = axes.GetItems()[k];
    const PaintPoint start = camera.Project(middles[k / 3]).at,
                     along = camera.ProjectDirection(expected[k / 3][k % 3]).at;
    EXPECT_NEAR(std::hypot(item.points[0].dX - start.dX, item.points[0].dY - start.dY), 0.0, 1e-9);
    const double dX = item.points[1].dX - start.dX, dY = item.points[1].dY - start.dY;
    EXPECT_NEAR(dX * along.dY - dY * along.dX, 0.0, 1e-6) << k;
    EXPECT_GT(dX * along.dX + dY * along.dY, 0.0) << k;
    EXPECT_EQ(item.state.pen.nRed + item.state.pen.nGreen + item.state.pen.nBlue, static_cast<int>(k % 3) + 1);
  }
}

TEST(Picking, HitsWhatIsSeenThere) {
  // Two beams one behind the other, seen from the front: members 1 and 2 at y = 0, 3 at y = 5.
  Job job = MakeJob({"beam", 8, c_clamped, c_end, {0, 0}});
  job.nodes.push_back({.nId = 90, .dX = 2, .dY = 5, .restraint = {}, .nSpring = {}});
  job.nodes.push_back({.nId = 91, .dX = 8, .dY = 5, .restraint = {}, .nSpring = {}});
  job.elements.push_back({.nType = c_nBeam, .nNodeI = 4, .nNodeJ = 5, .nSection = 0});
  const CScene scene(job);
  CCamera camera;
  camera.SetViewport({0, 0, 1000, 800});
  camera.Fit(scene.GetCentre(), scene.GetRadius());
  using Kind = ScenePart::Kind;
  using Part = std::optional<ScenePart>;
  const CShownParts all, firstAlone(scene, {true, false, false}), withoutSecond(scene, {true, false, true}),
      thirdNode(scene, {true, false, false}, {2});
  // The middle node goes up by 2 m without turning: a quarter along, the beam to its left has risen by 5/32 of that.
  const DeformedShape shape{ShapeKind::Mode, 1, 1.0, {{}, {0, 0, 1, 0, 0, 0}, {}, {}, {}}};
  const CDrawnPlaces inPlace(scene), moved(scene, shape, 2.0);
  const struct {
    const char* pszWhat;
    const CDrawnPlaces& places;
    Point3 at;
    double dX, dY;  // pixels beside it
    const CShownParts& shown;
    Part part;
  } cases[] = {
      {"a node before its members", inPlace, {4, 0, 0}, 3, 4, all, ScenePart{Kind::Node, 1}},
      {"nothing beyond the reach", inPlace, {1, 0, 0}, 0, 8, all, Part{}},
      {"a member within it", inPlace, {1, 0, 0}, 0, 6, all, ScenePart{Kind::Member, 0}},
      {"a member's line ends at its nodes", inPlace, {0, 0, 0}, -9, 0, all, Part{}},
      {"what is nearer to the eye", inPlace, {6, 0, 0}, 0, 2, all, ScenePart{Kind::Member, 1}},
      {"the nearer of two nodes", inPlace, {8, 0, 0}, 1, 0, all, ScenePart{Kind::Node, 2}},
      {"a node behind a member", inPlace, {2, 0, 0}, 1, 1, all, ScenePart{Kind::Node, 3}},
      {"not what is hidden", inPlace, {6, 0, 0}, 0, 2, withoutSecond, ScenePart{Kind::Member, 2}},
      {"nothing where all is hidden", inPlace, {6, 0, 0}, 0, 0, firstAlone, Part{}},
      {"nor its nodes", inPlace, {8, 0, 0}, 0, 0, firstAlone, Part{}},
      {"but those shown alone", inPlace, {8, 0, 0}, 0, 0, thirdNode, ScenePart{Kind::Node, 2}},
      {"a node where it is drawn", moved, {4, 0, 2}, 0, 0, all, ScenePart{Kind::Node, 1}},
      {"and no more where it was", moved, {4, 0, 0}, 0, 0, firstAlone, Part{}},
      {"a bent member on its curve", moved, {1, 0, 0.3125}, 0, 0, firstAlone, ScenePart{Kind::Member, 0}},
      {"and not on its chord", moved, {1, 0, 0.5}, 0, 0, firstAlone, Part{}},
  };
  for (const auto& c : cases) {
    const PaintPoint at = camera.Project(c.at).at;
    EXPECT_EQ(PickPart(c.places, camera, {at.dX + c.dX, at.dY + c.dY}, 7.0, c.shown), c.part) << c.pszWhat;
  }
}

TEST(DrawnHistories, ValuesAtTheCursorLeaveTheCurveFree) {
  HistoryPicture picture;
  picture.dTimeStep = 0.02;
  picture.curves = {{"u", {}}};
  for (int k = 0; k < 500; ++k) picture.curves[0].values.push_back(2e-3 * std::sin(0.031 * k) * std::cos(0.4 * k));
  for (const auto& [nHeight, t] :
       {std::pair(320, 0.02), {320, 1.0}, {320, 2.48}, {320, 9.9}, {220, 2.48}, {220, 9.9}}) {
    const PictureSize size{640, nHeight};
    picture.cursor = t;
    CPaintRecorder paint;
    PaintHistoryChart(paint, picture, size);
    const CChartFrame frame = FormHistoryFrame(picture, size);
    const double dValue = 1e3 * picture.curves[0].values[FindHistoryStep(picture, t)];
    int nTold = 0;
    for (const PaintItem& item : paint.GetItems()) {
      const bool bValue = item.strText == Format("%.4g mm", dValue);
      if (item.state.pen == c_white || !(bValue || item.strText == Format("t = %.6g s", t))) continue;
      ++nTold;
      const double dHalf = 0.5 * EstimateTextWidth(item.strText, item.state.dTextHeight);
      for (std::size_t k = 0; k < 500; ++k) {
        const PaintPoint at = frame.Map(0.02 * static_cast<double>(k + 1), 1e3 * picture.curves[0].values[k]);
        const bool bCovered = std::abs(at.dX - item.points[0].dX) < dHalf &&
                              std::abs(at.dY - item.points[0].dY) < 0.4 * item.state.dTextHeight;
        ASSERT_FALSE(bCovered && nHeight > 300) << item.strText << " at " << t << " s, step " << k;
      }
      EXPECT_GT(item.points[0].dX, frame.GetBox().dLeft + dHalf);
      EXPECT_LT(item.points[0].dX, frame.GetBox().dRight - dHalf);
    }
    EXPECT_EQ(nTold, 2) << t << " s: told even where there is no room";
  }
}

}  // namespace
}  // namespace skyframe::host
