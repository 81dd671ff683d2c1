// Forces and loads as they are drawn: local axes, values at stations, sides of diagrams, labels, colours.

#include "CommandFolder.h"
#include "ResultFiles.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/job/Text.h"
#include "skyframe/run/PlatformScope.h"
#include "skyframe/scene/LocalAxes.h"
#include "skyframe/scene/ResultPainter.h"
#include "skyframe/scene/ScenePainter.h"
#include "skyframe/scene/TextExtent.h"

namespace skyframe::host {
namespace {

double Distance(Point3 a, Point3 b) { return Length(a - b); }

TEST(LocalAxes, FollowTheConventions) {
  const double h = std::sqrt(0.5);
  const struct {
    Point3 d, y, z;
  } cases[] = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}},    {{-1, 0, 0}, {0, 1, 0}, {0, 0, -1}},
               {{0, 1, 0}, {1, 0, 0}, {0, 0, -1}},   {{0, -1, 0}, {1, 0, 0}, {0, 0, 1}},
               {{0, 0, 1}, {0, 1, 0}, {-1, 0, 0}},   {{0, 0, -1}, {0, 1, 0}, {1, 0, 0}},
               {{h, h, 0}, {h, -h, 0}, {0, 0, -1}},  {{h, 0, h}, {0, 1, 0}, {-h, 0, h}},
               {{1, 1e-12, 0}, {0, 1, 0}, {0, 0, 1}}};  // the records hold fewer digits
  for (const auto& c : cases) {
    const Point3 start{1, 2, 3};
    const LocalAxes axes = FindLocalAxes(start, start + 5.0 * c.d);
    EXPECT_LT(Distance(axes.x, c.d) + Distance(axes.y, c.y) + Distance(axes.z, c.z), 1e-6);
  }
  EXPECT_EQ(FindLocalAxes({1, 1, 1}, {1, 1, 1}).z, Point3{});
}

/// Beam of 8 m along d from both ends clamped, 100 kN at its middle along the load.
std::string MakeClampedBeam(Point3 d, Point3 load, bool bTurned) {
  const auto node = [&](int nId, const char* pszRestraint) {
    const Point3 at = 4.0 * (nId - 1) * d;
    return Format(R"({"id": %d, "x": %g, "y": %g, "z": %g, "restraint": "%s"})", nId, at.dX, at.dY, at.dZ,
                  pszRestraint);
  };
  const char* pszElements =
      bTurned ? R"({"type": "beam", "i": 2, "j": 1, "section": "S"}, {"type": "beam", "i": 3, "j": 2, "section": "S"})"
              : R"({"type": "beam", "i": 1, "j": 2, "section": "S"}, {"type": "beam", "i": 2, "j": 3, "section": "S"})";
  std::string strLoads;
  for (const auto& [pszAxis, dPart] : {std::pair("X", load.dX), std::pair("Y", load.dY), std::pair("Z", load.dZ)})
    strLoads += (strLoads.empty() ? "" : ",") +
                Format(R"({"case": 0, "node": 2, "direction": "%s", "value": %g})", pszAxis, 100.0 * dPart);
  return R"({"nodes": [)" + node(1, "111111") + "," + node(2, "000000") + "," + node(3, "111111") +
         R"(], "sections": [{"id": "S", "shape": 2, "area": 1e4, "Ix": 4e7, "Iy": 2e8, "Iz": 3e7}], "elements": [)" +
         pszElements + R"(], "loads": [)" + strLoads +
         R"(], "analyses": [{"type": "static", "nonlinear": false, "combination": {"0": 1}}]})";
}

TEST(MemberForces, MomentsAreDrawnOnTheTensionSideAndShearsOfOneLineOnOneSide) {
  const Point3 x{1, 0, 0}, y{0, 1, 0}, z{0, 0, 1}, slope{0.6, 0, 0.8}, across{-0.8, 0, 0.6};
  const struct {
    Point3 d, load;
  } cases[] = {{x, -1.0 * z}, {x, y}, {y, -1.0 * z}, {y, x}, {z, x}, {z, -1.0 * y}, {slope, across}, {slope, y}};
  for (const auto& c : cases) {
    std::array<std::vector<Point3>, 2> shears;
    for (const bool bTurned : {false, true}) {
      const std::string strJob = MakeClampedBeam(c.d, c.load, bTurned);
      const test::CCommandFolder folder;
      ASSERT_EQ(folder.Solve(strJob).nStatus, 0);
      std::ostringstream text;
      const CPlatformScope platform(text, text);
      const CScene scene(ParseJob(strJob).job);
      const StructureForces forces = test::Take(
          FormMemberForces(test::Take(ReadStaticResultFile(folder.GetPath("_StaticLinearSol.txt"), 3)), {3, 2}));
      for (std::size_t i = 0; i < 2; ++i) {
        // P L / 8 at middle and ends, as vectors to the tension side
        const auto ordinate = [&](MemberQuantity quantity, std::size_t k) {
          return forces.members[i].Get(quantity)[k] * FindOrdinate(scene, scene.GetMembers()[i], quantity, false);
        };
        const bool bStartsAtMiddle = scene.GetMembers()[i].nNodeI == 1;
        for (const std::size_t k : {0U, 20U}) {
          const Point3 drawn = ordinate(MemberQuantity::My, k) + ordinate(MemberQuantity::Mz, k);
          const double dSide = (k == 0) == bStartsAtMiddle ? 100.0 : -100.0;
          EXPECT_LT(Distance(drawn, dSide * c.load), 0.01) << drawn.dX << ' ' << drawn.dY << ' ' << drawn.dZ;
        }
        shears[bTurned].push_back(ordinate(MemberQuantity::Qy, 0) + ordinate(MemberQuantity::Qz, 0));
      }
      // The support pushes against the load; half of it and the clamping moment of P L / 8.
      ASSERT_EQ(forces.reactions.size(), 2U);
      const auto [fx, fy, fz, mx, my, mz] = forces.reactions[0].forces;
      EXPECT_LT(Distance({fx, fy, fz}, -50.0 * c.load), 0.01);
      EXPECT_LT(Distance({mx, my, mz}, -100.0 * Cross(c.d, c.load)), 0.01);
    }
    for (std::size_t i = 0; i < 2; ++i)
      EXPECT_LT(Distance(shears[0][i], shears[1][i]), 0.01) << "a member turned round";
    EXPECT_LT(Distance(shears[0][0], -1.0 * shears[0][1]), 0.01);
  }
}

TEST(MemberForces, StationsTellWhatTheFilesHold) {
  StaticResultFile file;
  file.members = {{2, -7000.0, std::vector<std::array<double, c_nDiagramStations>>(c_nDiagrams)}, {1, 9000.0, {}}};
  for (std::size_t q = 0; q < c_nDiagrams; ++q) {
    for (std::size_t p = 0; p < c_nDiagramStations; ++p) file.members[0].diagrams[q][p] = 1000.0 * (100.0 * q + p);
  }
  const StructureForces forces = test::Take(FormMemberForces(file, {2, 3}));
  const std::pair<MemberQuantity, double> expected[] = {{MemberQuantity::N, -7},
                                                        {MemberQuantity::Qy, 300 + 5},
                                                        {MemberQuantity::Qz, 400 + 5},
                                                        {MemberQuantity::Mx, 0 + 5},
                                                        {MemberQuantity::My, 100 + 5},
                                                        {MemberQuantity::Mz, 200 + 5},
                                                        {MemberQuantity::Shear, std::hypot(305, 405)},
                                                        {MemberQuantity::Moment, std::hypot(105, 205)}};
  for (const auto& [quantity, dValue] : expected) EXPECT_NEAR(forces.members[1].Get(quantity)[5], dValue, 1e-9);
  EXPECT_TRUE(forces.members[0].Has(MemberQuantity::N) && !forces.members[0].Has(MemberQuantity::My));
  EXPECT_FALSE(forces.members[2].Has(MemberQuantity::N)) << "the file does not have it";
  const ForceExtremes extremes = FindExtremes(forces, MemberQuantity::N);
  EXPECT_TRUE(extremes.nHighest == 0U && extremes.nLowest == 1U && extremes.GetMagnitude() == 9.0);

  SpectrumResultFile spectrum;
  spectrum.members = {{1, 1, {{1e3, 2e3, 3e3, 4e3, 5e3, 6e3}, {}}}};
  EXPECT_EQ(test::Take(FormMemberForces(spectrum, {2, 1})).members[0].stations[0],
            (std::array<double, 6>{1, 2, 3, 4, 5, 6}));
  const std::vector<double> bad = {0.0, std::nan("")};
  EXPECT_FALSE(FormMemberForces(file, {2, 1}) || FormMemberForces(bad, {2, 2}) || FormMemberForces(bad, {2, 3}));
}

TEST(Loads, AreAddedUpByCaseAndCombined) {
  const std::vector<SceneLoad> loads = {
      {0, 1, 2, false, -10}, {0, 1, 2, false, -5}, {1, 1, 2, false, 20}, {1, 1, 2, true, 3}};
  const auto values = [](const std::vector<SceneLoad>& some) {
    std::vector<double> list;
    for (const SceneLoad& load : some) list.push_back(load.dValue);
    return list;
  };
  using Values = std::vector<double>;
  EXPECT_EQ(values(SelectLoads(loads, std::nullopt)), (Values{-15, 20, 3}));
  EXPECT_EQ(values(SelectLoads(loads, 0)), Values{-15});
  EXPECT_EQ(values(CombineLoads(loads, {{0, 2.0}, {1, 0.5}})), (Values{-20, 1.5}));
  EXPECT_EQ(values(CombineLoads(loads, {{0, 4.0}, {1, 3.0}})), Values{9}) << "what is in balance has no arrow";
}

TEST(Labels, DoNotCoverOneAnotherAndTheGreatestComeFirst) {
  const Box within{0, 0, 200, 100};
  CLabelField labels(within, 30, 10.0);
  for (int k = 0; k < 200; ++k)
    labels.Add(
        {{37.0 * k - std::floor(37.0 * k / 200) * 200, 0.5 * k}, {1, 0}, std::to_string(1000 + k), c_black, 1.0 * k});
  labels.Add({{100, 50}, {}, "最大 9.9", c_black, 999});
  labels.Add({{100, 51}, {}, "最大 9.9", c_black, 998});
  labels.Add({{300, 50}, {}, "far", c_black, 1000});
  CPaintRecorder paint;
  labels.Paint(paint);
  std::vector<Box> boxes;
  for (const PaintItem& item : paint.GetItems()) {
    if (item.state.pen != c_black) continue;  // what surrounds the letters
    EXPECT_EQ(item.strText == "最大 9.9", boxes.empty());
    const double dHalf = 0.5 * EstimateTextWidth(item.strText, 10.0);
    const auto [dX, dY] = item.points[0];
    const Box box{dX - dHalf, dY - 5, dX + dHalf, dY + 5};
    EXPECT_TRUE(box.dLeft >= 0 && box.dRight <= 200 && box.dTop >= 0 && box.dBottom <= 100) << item.strText;
    for (const Box& other : boxes) {
      EXPECT_TRUE(box.dLeft >= other.dRight || other.dLeft >= box.dRight || box.dTop >= other.dBottom ||
                  other.dTop >= box.dBottom)
          << item.strText;
    }
    boxes.push_back(box);
  }
  EXPECT_EQ(boxes.size(), 30U);
  EXPECT_EQ(EstimateTextWidth("位移", 10.0), 20.0);
  EXPECT_EQ(EstimateTextWidth("α–·", 10.0), EstimateTextWidth("abc", 10.0));
}

TEST(Colours, GrowDarkerAwayFromZero) {
  const auto light = [](Colour c) { return 0.2126 * c.nRed + 0.7152 * c.nGreen + 0.0722 * c.nBlue; };
  for (const auto& [scale, dSign] :
       {std::pair(CColourScale(0, 8), 1), std::pair(CColourScale(-8, 4), -1), std::pair(CColourScale(-4, 8), 1)}) {
    for (int k = 0; k < 80; ++k)
      EXPECT_GT(light(scale.GetColour(0.1 * dSign * k)), light(scale.GetColour(0.1 * dSign * (k + 1)))) << k;
  }
  const Colour tension = CColourScale(-8, 4).GetColour(4), pressure = CColourScale(-8, 4).GetColour(-4);
  EXPECT_TRUE(tension.nRed > tension.nBlue && pressure.nBlue > pressure.nRed);
}

TEST(Layers, ShowOnlyWhatIsShown) {
  Job job;
  for (int k = 0; k < 4; ++k)
    job.nodes.push_back({.nId = k, .dX = 5.0 * k, .nJoint = c_nRigid, .restraint = {}, .nSpring = {}});
  job.nodes[3].restraint = {1, 1, 1, 1, 1, 1};
  for (int k = 1; k < 4; ++k) job.elements.push_back({c_nBeam, k, k + 1, 0});
  job.sections = {{"B1"}};
  const CScene scene(job);
  StructureForces forces;
  forces.members.assign(3, {{{1, 0, 0, 0, 8, 0}, {1, 0, 0, 0, -4, 0}}});
  forces.reactions = {{3, {0, 0, 7, 0, 0, 0}}};
  CCamera camera;
  camera.Fit(scene.GetCentre(), scene.GetRadius());
  CLabelField labels({-1e3, -1e3, 1e3, 1e3}, 99, 0.01);
  CPaintRecorder paint;
  const CShownParts shown(scene, {true, false, false});
  CResultPainter results(paint, scene, camera, shown);
  results.PaintDiagram(forces, MemberQuantity::My, 2.0, &labels);
  EXPECT_EQ(paint.GetItems().size(), 1U);
  results.PaintReactions(forces, &labels);
  CScenePainter painter(paint, scene, camera, shown);
  painter.PaintSupports(c_black);
  EXPECT_EQ(paint.GetItems().size(), 1U) << "the support belongs to a member that is not shown";
  painter.AddSectionNames(c_black, labels);
  labels.Paint(paint);
  std::set<std::string> texts;
  for (const PaintItem& item : paint.GetItems()) texts.insert(item.strText);
  EXPECT_EQ(texts, (std::set<std::string>{"", "8.00", "-4.00", "B1"}));
}

}  // namespace
}  // namespace skyframe::host
