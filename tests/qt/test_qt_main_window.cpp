// The desktop window: camera, shapes, job files, menus, drawing.

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSlider>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <QWheelEvent>
#include <cmath>
#include <fstream>

#include "QtPerson.h"
#include "skyframe/generate/Generate.h"
#include "skyframe/gui/MainWindow.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/values/DialogIds.h"

namespace skyframe::gui {
namespace {

void WriteFile(const QString& strPath, const std::string& strText) {
  std::ofstream(strPath.toStdString(), std::ios::binary) << strText;
}

TEST(Camera, StandardDirections) {
  struct Case {
    double dAzimuth, dElevation;
    Point3 right, up;  // directions seen to the right and upwards
  };
  for (const Case& c :
       {Case{-90, 0, {1, 0, 0}, {0, 0, 1}}, Case{0, 0, {0, 1, 0}, {0, 0, 1}}, Case{-90, 90, {1, 0, 0}, {0, 1, 0}}}) {
    CCamera camera;
    camera.SetDirection(c.dAzimuth, c.dElevation);
    EXPECT_NEAR(camera.ProjectDirection(c.right).dX, 1.0, 1e-12);
    EXPECT_NEAR(camera.ProjectDirection(c.up).dY, -1.0, 1e-12);
  }
}

TEST(Camera, IsAnIsometryThatFitsAndZoomsAboutTheMouse) {
  CCamera camera;
  camera.SetDirection(37.0, -12.0);
  const ScreenPoint p = camera.ProjectDirection({1, 2, 3});
  EXPECT_NEAR(std::hypot(p.dX, p.dY, p.dDepth), std::sqrt(14.0), 1e-12);
  camera.SetViewport(400, 300);
  camera.Fit({1, 1, 1}, 10.0);
  EXPECT_NEAR(camera.Project({1, 1, 1}).dX, 200.0, 1e-12);
  EXPECT_NEAR(camera.Project({1, 1, 1}).dY, 150.0, 1e-12);
  const double dScale = camera.GetPixelsPerMetre();
  EXPECT_NEAR(20.0 * dScale, 275.0, 25.0);
  camera.Pan(30, -10);
  const ScreenPoint before = camera.Project({1, 2, 3});
  camera.Zoom(3.0, before.dX, before.dY);
  EXPECT_NEAR(camera.Project({1, 2, 3}).dX, before.dX, 1e-9);
  EXPECT_NEAR(camera.Project({1, 2, 3}).dY, before.dY, 1e-9);
  EXPECT_NEAR(camera.GetPixelsPerMetre(), 3.0 * dScale, 1e-9);
  camera.Turn(0, 500);
  EXPECT_NEAR(camera.ProjectDirection({0, 0, 1}).dDepth, 1.0, 1e-12) << "not beyond straight down";
}

/// A cantilever of length 4 along Y: node 1 clamped, node 2 free.
host::Job MakeCantilever() {
  host::Job job;
  job.strTitle = "悬臂梁";
  job.nodes = {{.nId = 1, .restraint = {1, 1, 1, 1, 1, 1}, .nSpring = {}}, {.nId = 2, .dY = 4.0, .nSpring = {}}};
  job.sections = {{.strId = "S", .dArea = 1e4, .dIx = 1e8, .dIy = 1e8, .dIz = 1e8}};
  job.elements = {{.nType = host::c_nBeam, .nNodeI = 1, .nNodeJ = 2, .nSection = 0}};
  job.loads = {{.nCase = 0, .nNode = 2, .nDirection = 2, .dValue = -1.0}, {.nCase = 1, .nNode = 2, .nDirection = 3}};
  return job;
}

TEST(Scene, KnowsSupportsLoadsAndExtent) {
  const CScene scene(MakeCantilever());
  ASSERT_EQ(scene.GetSupports().size(), 1U);
  EXPECT_EQ(scene.GetSupports()[0].kind, SupportKind::Clamped);
  ASSERT_EQ(scene.GetLoads().size(), 1U) << "a load of 0 is not drawn";
  EXPECT_EQ(scene.GetLoads()[0].direction, (Point3{0, 0, -1}));
  EXPECT_EQ(scene.GetCentre(), (Point3{0, 2, 0}));
  EXPECT_EQ(scene.GetRadius(), 2.0);
  EXPECT_EQ(CScene().GetRadius(), 1.0);
}

TEST(Scene, BeamBendsAsTheCubicOfACantilever) {
  // Tip load: w(y) = y^2 (3 L - y) / (2 L^3), w'(L) = 3 / (2 L); a slope dw/dy is a rotation about X.
  const double L = 4.0;
  Shape shape;
  shape.bRotations = true;
  shape.values = {{}, {0, 0, 1, 3.0 / (2.0 * L), 0, 0}};
  const CScene scene(MakeCantilever());
  const std::vector<Point3> line = scene.FormDeformedLine(scene.GetElements()[0], shape, 0.5);
  ASSERT_GT(line.size(), 3U);
  for (const Point3& p : line) {
    EXPECT_NEAR(p.dZ, 0.5 * p.dY * p.dY * (3.0 * L - p.dY) / (2.0 * L * L * L), 1e-12);
    EXPECT_EQ(p.dX, 0.0);
  }
  shape.bRotations = false;
  EXPECT_EQ(scene.FormDeformedLine(scene.GetElements()[0], shape, 2.0), (std::vector<Point3>{{0, 0, 0}, {0, 4, 2}}));
}

TEST(ModeShapes, DamagedFilesGiveNone) {
  const QTemporaryDir directory;
  const std::string strJob = directory.filePath(QStringLiteral("a")).toStdString();
  const std::string strGood =
      "The_Data_of_Zan's_Mode_Analysis\n\n7/1/2025  10:11:12\nv1.0\n\n1 2 1 1 1 0\nEigen_And_Freq:\n"
      "1     6.2831852        1.00000\nNode_DOF_When_FREQ_1:\n1\n1   0 0 0 0 0 0\n2   1 2 2\n";
  const host::JobNode rigid = {}, pinned = {.nJoint = host::c_nPinned, .nSpring = {}};
  WriteFile(QString::fromStdString(strJob + ".mode"), strGood);
  const std::vector<Shape> shapes = ReadShapes(strJob, {rigid, pinned});
  ASSERT_EQ(shapes.size(), 1U);
  EXPECT_EQ(shapes[0].GetLargestTranslation(), 3.0);
  EXPECT_EQ(shapes[0].strTitle, "振型 1   f = 1 Hz   T = 1 s");
  const std::string strNan = std::string(strGood).replace(strGood.rfind("2 2"), 1, "nan");
  for (const auto& [strText, nodes] : {std::pair<std::string, std::vector<host::JobNode>>{strGood, {rigid}},
                                       {strGood.substr(0, strGood.size() - 6), {rigid, pinned}},
                                       {strNan, {rigid, pinned}},
                                       {"a b c d 1 2 1 1 99999999999 0", {rigid, pinned}},
                                       {std::string(1000, '\xff'), {rigid, pinned}}}) {
    WriteFile(QString::fromStdString(strJob + ".mode"), strText);
    EXPECT_TRUE(ReadShapes(strJob, nodes).empty());
  }
  EXPECT_TRUE(ReadShapes(strJob + "absent", {rigid}).empty());
}

class MainWindow : public ::testing::Test {
 protected:
  MainWindow() : m_font(QApplication::font()) {}
  ~MainWindow() override { QApplication::setFont(m_font); }

  QString Path(const char* strName) const { return m_directory.filePath(QString::fromUtf8(strName)); }
  QString Settings() const { return Path("settings.ini"); }
  QString WriteJob(const char* strName, const host::Job& job) const {
    WriteFile(Path(strName), host::FormatJob(job));
    return Path(strName);
  }

  QTemporaryDir m_directory;
  QFont m_font;
};

TEST_F(MainWindow, BrokenJobShowsThePlaceAndKeepsTheCurrentJob) {
  CMainWindow window(Settings());
  ASSERT_TRUE(window.OpenJob(WriteJob("good.json", MakeCantilever())));
  std::string strBroken = host::FormatJob(MakeCantilever());
  strBroken.replace(strBroken.find("\"x\""), 3, "\"q\"");
  WriteFile(Path("bad.json"), strBroken);
  WriteFile(Path("torn.json"), strBroken.substr(0, 40));
  for (const char* strName : {"bad.json", "torn.json", "absent.json"}) {
    QString strPlaces;
    QTimer::singleShot(0, &window, [&strPlaces] {
      QWidget* const pErrors = QApplication::activeModalWidget();
      const auto* const pList = pErrors->findChild<QTreeWidget*>(QStringLiteral("problems"));
      for (int n = 0; n < pList->topLevelItemCount(); ++n) strPlaces += pList->topLevelItem(n)->text(0) + u'\n';
      QTest::mouseClick(pErrors->findChild<QPushButton*>(), Qt::LeftButton);
    });
    EXPECT_FALSE(window.OpenJob(Path(strName)));
    EXPECT_FALSE(strPlaces.isEmpty()) << strName;
    EXPECT_EQ(strPlaces.contains(QStringLiteral("/nodes/0")), strName == std::string("bad.json"));
    EXPECT_EQ(window.GetJobFile(), Path("good.json"));
    EXPECT_EQ(window.GetStructureView().GetScene().GetNodes().size(), 2U);
    EXPECT_EQ(ABCD.m_nNodes, 2);
    EXPECT_EQ(g_FilePathName, Path("good").toStdString());
  }
}

TEST_F(MainWindow, RemembersRecentFilesAndFont) {
  {
    CMainWindow window(Settings());
    ASSERT_TRUE(window.OpenJob(WriteJob("one.json", MakeCantilever())));
    ASSERT_TRUE(window.OpenJob(WriteJob("two.json", MakeCantilever())));
    ASSERT_TRUE(window.OpenJob(Path("one.json")));
    for (QAction* const pAction : window.findChildren<QAction*>(QStringLiteral("font"))) {
      if (pAction->text() == QStringLiteral("150 %")) pAction->trigger();
    }
    window.close();
  }
  CMainWindow window(Settings());
  EXPECT_EQ(window.GetPlatform().GetFontScale(), 1.5);
  QStringList files;
  for (const QMenu* const pMenu : window.findChildren<QMenu*>()) {
    if (!pMenu->title().startsWith(QStringLiteral("最近"))) continue;
    for (QAction* const pAction : pMenu->actions()) files.append(pAction->text());
    pMenu->actions().constLast()->trigger();
  }
  EXPECT_EQ(files, QStringList({Path("one.json"), Path("two.json")}));
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.GetJobFile() == Path("two.json"); }));
}

TEST_F(MainWindow, LabelsAreChineseAndTipsEnglish) {
  const CMainWindow window(Settings());
  const auto isAscii = [](const QString& strText) { return strText.toUtf8().size() == strText.size(); };
  QStringList names;
  for (const QAction* const pAction : window.findChildren<QAction*>()) {
    if (pAction->objectName().isEmpty() || pAction->objectName() == QStringLiteral("font")) continue;
    names.append(pAction->objectName());
    EXPECT_FALSE(isAscii(pAction->text())) << pAction->text().toStdString();
    EXPECT_TRUE(isAscii(pAction->toolTip()) && !pAction->toolTip().isEmpty()) << pAction->toolTip().toStdString();
  }
  EXPECT_GE(names.size(), 18);
  QStringList menu;
  for (const QAction* const pAction : window.menuBar()->actions()) {
    if (!pAction->text().startsWith(QStringLiteral("分析"))) continue;
    for (const QAction* const pEntry : pAction->menu()->actions()) menu.append(pEntry->objectName());
  }
  EXPECT_EQ(menu.join(QLatin1Char(' ')).toStdString(), "modal spectrum time_history history_results static");
}

TEST_F(MainWindow, EveryOptionAndMouseActionChangesTheDrawing) {
  CMainWindow window(Settings());
  window.show();
  host::BuildingParameters building;
  building.nStoreys = 2;
  ASSERT_TRUE(window.OpenJob(WriteJob("building.json", host::GenerateBuilding(building))));
  CStructureView& view = window.GetStructureView();
  const auto changes = [&view](const std::function<void()>& action) {
    const QImage before = view.grab().toImage();
    action();
    return before != view.grab().toImage();
  };
  for (const char* strOption :
       {"supports", "loads", "node_numbers", "element_numbers", "front", "side", "plan", "isometric"}) {
    QAction* const pAction = window.findChild<QAction*>(QString::fromLatin1(strOption));
    EXPECT_TRUE(changes([&] { pAction->trigger(); })) << strOption;
  }
  const auto drag = [&view](Qt::MouseButton button) {
    QTest::mousePress(&view, button, {}, {100, 100});
    QMouseEvent move(QEvent::MouseMove, QPointF(160, 130), QPointF(160, 130), Qt::NoButton, button, {});
    QApplication::sendEvent(&view, &move);
    QTest::mouseRelease(&view, button, {}, {160, 130});
  };
  const QPointF origin(view.GetCamera().Project({}).dX, view.GetCamera().Project({}).dY);
  EXPECT_TRUE(changes([&] { drag(Qt::RightButton); }));
  EXPECT_NEAR(view.GetCamera().Project({}).dX - origin.x(), 60.0, 1e-9);
  EXPECT_NEAR(view.GetCamera().Project({}).dY - origin.y(), 30.0, 1e-9);
  EXPECT_TRUE(changes([&] { drag(Qt::LeftButton); }));
  QWheelEvent wheel({100, 100}, {100, 100}, {}, {0, 240}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
  EXPECT_TRUE(changes([&] { QApplication::sendEvent(&view, &wheel); }));
  QTest::mouseDClick(&view, Qt::LeftButton);
  const ScreenPoint centre = view.GetCamera().Project(view.GetScene().GetCentre());
  EXPECT_NEAR(centre.dX, view.width() / 2.0, 1e-9) << "a double click shows all";
}

TEST_F(MainWindow, ListsResultsAndDrawsShapesScaledAndSwinging) {
  const std::string strMode =
      "The_Data_of_Zan's_Mode_Analysis\n\n7/1/2025  10:11:12\nv1.0\n\n1 2 2 0 1 0\nEigen_And_Freq:\n"
      "1 6.28319 1\nNode_DOF_When_FREQ_1:\n1\n1   0 0 0 0 0 0\n2   0 0 5 1.875 0 0\n";
  for (const char* strName : {"beam.mode", "beam2.mode", "other.txt"}) WriteFile(Path(strName), strMode);
  WriteFile(Path("beam_HisTime.txt"), "静力\n");
  CMainWindow window(Settings());
  window.show();
  const QAction* const pModal = window.findChild<QAction*>(QStringLiteral("modal"));
  EXPECT_FALSE(pModal->isEnabled()) << "no job yet";
  ASSERT_TRUE(window.OpenJob(WriteJob("beam.json", MakeCantilever())));
  EXPECT_TRUE(pModal->isEnabled());
  EXPECT_EQ(window.windowTitle().toStdString(), "悬臂梁 - Skyframe");
  auto* const pList = window.findChild<QListWidget*>(QStringLiteral("results"));
  ASSERT_EQ(pList->count(), 2);
  EXPECT_EQ(pList->item(0)->text().toStdString(), "beam.mode");
  EXPECT_EQ(pList->item(1)->text().toStdString(), "beam_HisTime.txt");
  pList->setCurrentRow(1);
  EXPECT_EQ(window.findChild<QPlainTextEdit*>(QStringLiteral("text"))->toPlainText().toStdString(), "静力\n");
  auto* const pShapes = window.findChild<QComboBox*>(QStringLiteral("shapes"));
  ASSERT_EQ(pShapes->count(), 2);
  CStructureView& view = window.GetStructureView();
  EXPECT_EQ(view.GetMagnification(), 0.0);
  pShapes->setCurrentIndex(1);
  auto* const pAmplitude = window.findChild<QSlider*>(QStringLiteral("amplitude"));
  pAmplitude->setValue(100);
  EXPECT_NEAR(view.GetMagnification(), 0.5 * 2.0 / 5.0, 1e-12) << "half the structure's radius";
  pAmplitude->setValue(0);
  EXPECT_EQ(view.GetMagnification(), 0.0);
  pAmplitude->setValue(50);
  EXPECT_EQ(view.GetPhaseFactor(), 1.0);
  window.findChild<QCheckBox*>(QStringLiteral("animate"))->setChecked(true);
  EXPECT_TRUE(QTest::qWaitFor([&view] { return view.GetPhaseFactor() < -0.8; }));
  EXPECT_TRUE(QTest::qWaitFor([&view] { return view.GetPhaseFactor() > 0.8; }));
}

TEST_F(MainWindow, PanelTellsOfTheInputThenOfTheRun) {
  CMainWindow window(Settings());
  test::CQtPerson person(&window);
  window.show();
  host::Job job = MakeCantilever();
  job.nodes.front().restraint = {};
  ASSERT_TRUE(window.OpenJob(WriteJob("free.json", job)));
  const auto* const pPanel = window.findChild<QListWidget*>(QStringLiteral("advice"));
  ASSERT_EQ(pPanel->count(), 1);
  EXPECT_TRUE(pPanel->item(0)->text().startsWith(QStringLiteral("warning: /nodes/")));
  const auto Solve = [&](DialogStep last) {
    person.AddScript(c_nIdNonlinStaticDlg, {DialogStep::Tick(c_nIdNonlinear, false), std::move(last)});
    person.Watch([&] { window.findChild<QAction*>(QStringLiteral("static"))->trigger(); });
  };
  Solve(DialogStep::Cancel());
  EXPECT_EQ(pPanel->count(), 1) << "what was told still holds";
  Solve(DialogStep::Ok());
  ASSERT_GE(pPanel->count(), 1);
  EXPECT_TRUE(pPanel->item(0)->text().startsWith(QStringLiteral("error: nearly a mechanism at node ")));
}

TEST_F(MainWindow, NothingClippedAtBothFontSizes) {
  for (const int nPercent : {100, 150}) {
    CMainWindow window(Settings());
    window.SetFontScale(nPercent / 100.0);
    window.show();
    ASSERT_TRUE(window.OpenJob(QStringLiteral(SKYFRAME_SOURCE_DIR "/examples/office10.json")));
    for (const char* strName : {"shapes", "amplitude", "animate"}) {
      const QWidget* const pWidget = window.findChild<QWidget*>(QString::fromLatin1(strName));
      EXPECT_TRUE(QTest::qWaitFor([pWidget] { return pWidget->width() >= pWidget->minimumSizeHint().width(); }));
      EXPECT_TRUE(pWidget->isVisible()) << strName;
    }
    EXPECT_TRUE(window.grab().save(QStringLiteral(SKYFRAME_PICTURE_DIR "/main-window-%1.png").arg(nPercent)));
    for (QMenu* const pMenu : window.findChildren<QMenu*>()) {
      for (QAction* const pAction : pMenu->actions()) {
        const int nText = pMenu->fontMetrics().horizontalAdvance(pAction->text());
        EXPECT_GE(pMenu->actionGeometry(pAction).width(), pAction->isSeparator() ? 0 : nText);
      }
    }
  }
}

}  // namespace
}  // namespace skyframe::gui
