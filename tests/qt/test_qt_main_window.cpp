// The desktop window: job files, menus, drawing.

#include <QTest>
#include <algorithm>
#include <cmath>

#include "QtPerson.h"
#include "WindowTest.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/job/Language.h"
#include "skyframe/job/Text.h"
#include "skyframe/values/DialogIds.h"

namespace skyframe::gui {
namespace {

using MainWindow = WindowTest;

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
    EXPECT_EQ(strPlaces == QStringLiteral("\n"), strName == std::string("absent.json")) << "no place in it";
    EXPECT_EQ(strPlaces.contains(QStringLiteral("/nodes/0")), strName == std::string("bad.json"));
    EXPECT_EQ(window.GetDocument().GetFile(), Path("good.json"));
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
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.GetDocument().GetFile() == Path("two.json"); }));
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
  for (const char* strOption : {"supports", "section_names", "local_axes", "node_numbers", "element_numbers", "front",
                                "side", "plan", "isometric"}) {
    QAction* const pAction = window.findChild<QAction*>(QString::fromLatin1(strOption));
    EXPECT_TRUE(changes([&] { pAction->trigger(); })) << strOption;
  }
  const auto drag = [&view](Qt::MouseButton button) {
    QTest::mousePress(&view, button, {}, {100, 100});
    QMouseEvent move(QEvent::MouseMove, QPointF(160, 130), QPointF(160, 130), Qt::NoButton, button, {});
    QApplication::sendEvent(&view, &move);
    QTest::mouseRelease(&view, button, {}, {160, 130});
  };
  const QPointF origin(view.GetCamera().Project({}).at.dX, view.GetCamera().Project({}).at.dY);
  EXPECT_TRUE(changes([&] { drag(Qt::RightButton); }));
  EXPECT_NEAR(view.GetCamera().Project({}).at.dX - origin.x(), 60.0, 1e-9);
  EXPECT_NEAR(view.GetCamera().Project({}).at.dY - origin.y(), 30.0, 1e-9);
  EXPECT_TRUE(changes([&] { drag(Qt::LeftButton); }));
  QWheelEvent wheel({100, 100}, {100, 100}, {}, {0, 240}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
  EXPECT_TRUE(changes([&] { QApplication::sendEvent(&view, &wheel); }));
  QTest::mouseDClick(&view, Qt::LeftButton);
  const PaintPoint centre = view.GetCamera().Project(view.GetScene().GetCentre()).at;
  EXPECT_NEAR(centre.dX, view.width() / 2.0, 1e-9) << "a double click shows all";
}

TEST_F(MainWindow, ListsResultsAndDrawsShapesScaledAndSwinging) {
  const std::string strMode =
      "The_Data_of_Zan's_Mode_Analysis\n\n7/1/2025  10:11:12\nv1.0\n\n1 2 1 1 1 0\nEigen_And_Freq:\n"
      "1 6.28319 1\nNode_DOF_When_FREQ_1:\n1\n1   0 0 0 0 0 0\n2   0 0 5\n";
  host::Job job = MakeCantilever();
  job.nodes[1].nJoint = host::c_nPinned;  // takes three numbers, and no moment
  job.loads.pop_back();
  for (const char* strName : {"beam.mode", "beam2.mode", "other.txt"}) WriteFile(Path(strName), strMode);
  WriteFile(Path("beam_HisTime.txt"), "静力\n");
  CMainWindow window(Settings());
  window.show();
  const QAction* const pModal = window.findChild<QAction*>(QStringLiteral("modal"));
  EXPECT_FALSE(pModal->isEnabled()) << "no job yet";
  ASSERT_TRUE(window.OpenJob(WriteJob("beam.json", job)));
  EXPECT_TRUE(pModal->isEnabled());
  EXPECT_EQ(window.windowTitle().toStdString(), "悬臂梁[*] - Skyframe");
  auto* const pList = window.findChild<QListWidget*>(QStringLiteral("results"));
  ASSERT_EQ(pList->count(), 2);
  EXPECT_EQ(pList->item(0)->text().toStdString(), "beam.mode");
  EXPECT_EQ(pList->item(1)->text().toStdString(), "beam_HisTime.txt");
  pList->setCurrentRow(1);
  EXPECT_EQ(window.findChild<QPlainTextEdit*>(QStringLiteral("text"))->toPlainText().toStdString(), "静力\n");
  auto* const pShapes = window.findChild<QComboBox*>(QStringLiteral("shapes"));
  ASSERT_EQ(pShapes->count(), 2);
  EXPECT_EQ(pShapes->itemText(1).toStdString(), "振型 1   f = 1 Hz   T = 0.999999 s");
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
  EXPECT_TRUE(pPanel->item(0)->text().contains(QStringLiteral("/nodes/")));
  const auto Solve = [&](DialogStep last) {
    person.AddScript(c_nIdNonlinStaticDlg, {DialogStep::Tick(c_nIdNonlinear, false), std::move(last)});
    person.Watch([&] { window.findChild<QAction*>(QStringLiteral("static"))->trigger(); });
  };
  Solve(DialogStep::Cancel());
  EXPECT_EQ(pPanel->count(), 1) << "what was told still holds";
  Solve(DialogStep::Ok());
  ASSERT_GE(pPanel->count(), 1);
  EXPECT_TRUE(pPanel->item(0)->text().startsWith(QStringLiteral("错误：节点 ")));
}

TEST_F(MainWindow, HistoriesOfARunAndOfItsFile) {
  CMainWindow window(Settings());
  window.show();
  host::Job job = MakeShakenFrame();
  job.analyses = {job.analyses[2], job.analyses[4]};
  ASSERT_TRUE(window.OpenJob(WriteJob("quake.json", job)));
  window.findChild<QAction*>(QStringLiteral("run_all"))->trigger();
  auto* const pList = window.findChild<QListWidget*>(QStringLiteral("history_curves"));
  QTest::qWait(1);
  EXPECT_EQ(pList->count(), 0) << "nobody looks";
  window.findChild<QDockWidget*>(QStringLiteral("history_dock"))->raise();
  ASSERT_TRUE(QTest::qWaitFor([pList] { return pList->count() == 1; }));

  // One time for charts, list, document and drawing.
  const HistorySet& history = *window.GetDocument().GetHistories();
  window.findChild<QComboBox*>(QStringLiteral("history_kind"))->setCurrentIndex(static_cast<int>(CurveKind::ShearX));
  auto* const pAdd = window.findChild<QPushButton*>(QStringLiteral("history_add"));
  pAdd->click();
  ASSERT_EQ(pList->count(), 2);
  auto* const pSlider = window.findChild<QSlider*>(QStringLiteral("history_slider"));
  pSlider->setValue(299);
  EXPECT_EQ(window.GetDocument().GetStep(), 299);
  EXPECT_EQ(pList->item(1)->text().toStdString(),
            host::Format("基底剪力，X   %.4g kN", 1e-3 * history.baseShear[299][0]));
  std::vector<CHistoryChart*> charts;
  for (QWidget* const pWidget : window.findChildren<QWidget*>(QStringLiteral("history_chart"))) {
    charts.push_back(dynamic_cast<CHistoryChart*>(pWidget));
  }
  for (const CHistoryChart* const pChart : charts) EXPECT_EQ(pChart->isVisible(), !pChart->GetPicture().curves.empty());
  CHistoryChart& chart = **std::ranges::find_if(charts, &QWidget::isVisible);
  const auto at = [&chart](double x, double y) { return QPointF(x * chart.width(), y * chart.height()).toPoint(); };
  QTest::mouseClick(&chart, Qt::LeftButton, {}, at(0.6, 0.4));
  EXPECT_GT(pSlider->value(), 350);
  EXPECT_NEAR(*chart.GetPicture().cursor, (pSlider->value() + 1) * 0.02, 1e-9);

  QTest::mousePress(&chart, Qt::LeftButton, {}, at(0.4, 0.3));
  QTest::mouseRelease(&chart, Qt::LeftButton, {}, at(0.6, 0.5));
  EXPECT_TRUE(chart.GetPicture().values);
  for (const CHistoryChart* const pChart : charts) EXPECT_LT(pChart->GetPicture().time.value().dHigh, 15.0);
  QTest::mouseDClick(&chart, Qt::LeftButton, {}, at(0.5, 0.5));
  EXPECT_FALSE(chart.GetPicture().time || chart.GetPicture().values);

  // The motion is drawn to one scale until another shape is chosen.
  auto* const pShapes = window.findChild<QComboBox*>(QStringLiteral("shapes"));
  auto* const pMove = window.findChild<QCheckBox*>(QStringLiteral("history_move"));
  window.findChild<QToolButton*>(QStringLiteral("history_play"))->click();
  EXPECT_TRUE(pMove->isChecked());
  EXPECT_EQ(pShapes->currentText().toStdString(), "时程");
  const double dScale = window.GetStructureView().GetMagnification();
  const int nBefore = pSlider->value();
  EXPECT_TRUE(QTest::qWaitFor([&] { return pSlider->value() > nBefore + 3; }));
  EXPECT_EQ(window.GetStructureView().GetMagnification(), dScale);
  pShapes->setCurrentIndex(1);
  EXPECT_FALSE(pMove->isChecked());
  EXPECT_TRUE(pShapes->currentText().startsWith(QStringLiteral("振型 1")));

  // The file has no base shear; of another model it is drawn when that is asked for.
  window.OpenJob(Path("quake.json"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return pList->count() == 1; }));
  EXPECT_FALSE(pAdd->isEnabled());
  job.nodes.back().dZ += 0.5;
  window.OpenJob(WriteJob("quake.json", job));
  auto* const pAnyway = window.findChild<QPushButton*>(QStringLiteral("history_show_old"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return pAnyway->isVisible(); }));
  EXPECT_EQ(pList->count(), 0);
  pAnyway->click();
  EXPECT_EQ(pList->count(), 1);
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
