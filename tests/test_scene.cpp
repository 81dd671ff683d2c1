// What is drawn of a job: camera, supports, bent members, shapes from result files.

#include "TestPlatform.h"
#include "skyframe/scene/BentMember.h"
#include "skyframe/scene/ScenePainter.h"

namespace skyframe::host {
namespace {

TEST(Shapes, AModeIsItsOwn) {
  ModeResultFile file;
  file.omega = {2.0, 3.0};
  file.shapes = {{{1, 0, 0, 0, 0, 0}}, {{0, 5, 0, 0, 0, 0}}};
  const DeformedShape shape = FormModeShape(file, 2);
  EXPECT_TRUE(shape.nMode == 2 && shape.dOmega == 3.0 && shape.displacements == file.shapes[1]);
}

TEST(Camera, StandardDirections) {
  const double dRight = std::sqrt(0.5);
  const double dUp = std::sqrt(1.0 / 6.0);
  const struct {
    ViewDirection direction;
    std::array<PaintPoint, 3> axes;  // where X, Y and Z are seen to point, y downwards
  } cases[] = {{c_frontView, {{{1, 0}, {0, 0}, {0, -1}}}},
               {c_sideView, {{{0, 0}, {1, 0}, {0, -1}}}},
               {c_planView, {{{1, 0}, {0, -1}, {0, 0}}}},
               {c_isometricView, {{{dRight, dUp}, {dRight, -dUp}, {0, -2 * dUp}}}}};
  for (const auto& c : cases) {
    CCamera camera;
    camera.SetDirection(c.direction);
    for (std::size_t d = 0; d < 3; ++d) {
      const PaintPoint at = camera.ProjectDirection({d == 0 ? 1.0 : 0.0, d == 1 ? 1.0 : 0.0, d == 2 ? 1.0 : 0.0}).at;
      EXPECT_NEAR(std::hypot(at.dX - c.axes[d].dX, at.dY - c.axes[d].dY), 0.0, 1e-12) << d;
    }
  }
}

TEST(Camera, IsAnIsometryThatFitsAndZoomsAboutTheMouse) {
  CCamera camera;
  camera.SetDirection({37.0, -12.0});
  const ScreenPoint p = camera.ProjectDirection({1, 2, 3});
  EXPECT_NEAR(std::hypot(p.at.dX, p.at.dY, p.dDepth), std::sqrt(14.0), 1e-12);
  camera.SetViewport({10, 20, 410, 320});
  camera.Fit({1, 1, 1}, 10.0);
  EXPECT_NEAR(camera.Project({1, 1, 1}).at.dX, 210.0, 1e-12);
  EXPECT_NEAR(camera.Project({1, 1, 1}).at.dY, 170.0, 1e-12);
  const double dScale = camera.GetPixelsPerMetre();
  EXPECT_NEAR(20.0 * dScale, 275.0, 25.0);
  camera.Pan(30, -10);
  const PaintPoint before = camera.Project({1, 2, 3}).at;
  camera.Zoom(3.0, before.dX, before.dY);
  EXPECT_NEAR(camera.Project({1, 2, 3}).at.dX, before.dX, 1e-9);
  EXPECT_NEAR(camera.Project({1, 2, 3}).at.dY, before.dY, 1e-9);
  EXPECT_NEAR(camera.GetPixelsPerMetre(), 3.0 * dScale, 1e-9);
  camera.Turn(0, 500);
  EXPECT_NEAR(camera.ProjectDirection({0, 0, 1}).dDepth, 1.0, 1e-12) << "not beyond straight down";
}

/// A beam of length 2 along Y in a structure that nothing leaves the plane X = 0 of.
Job MakeBeam(int nJointI = c_nRigid, int nJointJ = c_nRigid) {
  Job job;
  job.nodes = {{.nId = 7, .nJoint = nJointI, .restraint = {1, 1, 1, 1, 1, 1}, .nSpring = {}},
               {.nId = 8, .dY = 2.0, .nJoint = nJointJ, .restraint = {1, 0, 0, 0, 1, 1}, .nSpring = {}}};
  job.elements = {{.nType = c_nBeam, .nNodeI = 1, .nNodeJ = 2, .nSection = 0}};
  job.loads = {{.nCase = 0, .nNode = 2, .nDirection = 2, .dValue = -1.0}, {.nCase = 1, .nNode = 2, .nDirection = 3}};
  return job;
}

TEST(Scene, KnowsSupportsLoadsAndExtent) {
  const CScene scene(MakeBeam());
  EXPECT_EQ(scene.GetSupports().size(), 1U) << "what every node has is no support";
  ASSERT_EQ(scene.GetLoads().size(), 1U) << "a load of 0 is not drawn";
  EXPECT_EQ(scene.GetLoads()[0].GetDirection(), (Point3{0, 0, -1}));
  EXPECT_EQ(scene.GetCentre(), (Point3{0, 1, 0}));
  EXPECT_EQ(scene.GetRadius(), 1.0);
  EXPECT_EQ(CScene().GetRadius(), 1.0);
}

TEST(Scene, MembersBendLikeBeams) {
  // The second node rises by 1. Middle of a cantilever under a load at its end: 5/16 of the end, whose slope is 3/2
  // chords; the end turns freely in the second case, both ends are clamped in the third, one is hinged in the fourth.
  const struct {
    int nJointI, nJointJ;
    double dRotation, dMiddle;
  } cases[] = {{c_nRigid, c_nRigid, 0.75, 0.3125},
               {c_nRigid, c_nPinned, 0.0, 0.3125},
               {c_nRigid, c_nRigid, 0.0, 0.5},
               {c_nPinned, c_nRigid, 0.0, 0.6875}};
  const auto bend = [](const Job& job, const DeformedShape& shape) {
    const CScene scene(job);
    return BendMembers(scene, shape, 10.0).at(0);
  };
  DeformedShape shape{ShapeKind::Mode, 1, 1.0, {{}, {0, 0, 1, 0, 0, 0}}};
  for (const auto& c : cases) {
    shape.displacements[1][3] = c.dRotation;
    const MemberLine line = bend(MakeBeam(c.nJointI, c.nJointJ), shape);
    ASSERT_EQ(line.size(), 11U);
    EXPECT_NEAR(line[5].dZ, 10.0 * c.dMiddle, 1e-12);
    EXPECT_NEAR(line[5].dY, 1.0, 1e-12);
    EXPECT_NEAR(line[10].dZ, 10.0, 1e-12);
  }
  const MemberLine straight = {{0, 0, 0}, {0, 2, 10}};
  EXPECT_EQ(bend(MakeBeam(c_nPinned, c_nPinned), shape), straight);
  shape.kind = ShapeKind::LinearState;
  EXPECT_EQ(bend(MakeBeam(), shape), straight) << "a state's rotations are not known";
}

TEST(Scene, EverySupportHasItsGlyph) {
  const struct {
    JobNode node;
    PaintItem::Kind kind;
    std::size_t nPoints;
  } cases[] = {{{.restraint = {1, 1, 1, 1, 1, 1}, .nSpring = {}}, PaintItem::Kind::Rectangle, 2},
               {{.restraint = {1, 1, 1, 0, 0, 0}, .nSpring = {}}, PaintItem::Kind::Polygon, 3},
               {{.nJoint = c_nPinned, .restraint = {1, 1, 1, 1, 1, 1}, .nSpring = {}}, PaintItem::Kind::Polygon, 3},
               {{.restraint = {0, 0, 1, 0, 0, 0}, .nSpring = {}}, PaintItem::Kind::Polyline, 4},
               {{.nSpring = 1}, PaintItem::Kind::Polyline, 5}};
  for (const auto& c : cases) {
    Job job = MakeBeam();
    job.nodes[0] = c.node;
    job.nodes[1].restraint = {};
    CPaintRecorder paint;
    const CScene scene(job);
    const CCamera camera;
    CScenePainter(paint, scene, camera).PaintSupports(c_black);
    ASSERT_EQ(paint.GetItems().size(), 1U);
    EXPECT_EQ(paint.GetItems()[0].kind, c.kind);
    EXPECT_EQ(paint.GetItems()[0].points.size(), c.nPoints);
  }
}

}  // namespace
}  // namespace skyframe::host
