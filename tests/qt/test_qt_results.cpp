// Results in the window: forces and shapes in the drawing, data of what is selected, names of pictures, the table
// saved.

#include <QTest>

#include "TestPlatform.h"
#include "WindowTest.h"
#include "skyframe/job/Text.h"
#include "skyframe/scene/ResultPainter.h"

namespace skyframe::gui {
namespace {

using Results = WindowTest;

/// Clamped at the left, 12 kN downwards at the tip 4 m to the right, I = 2e-4 m⁴; ids of its own. Linear and modes.
host::Job MakeLoadedCantilever() {
  host::Job job;
  job.nodes = {{.nId = 70, .restraint = {1, 1, 1, 1, 1, 1}, .nSpring = {}},
               {.nId = 30, .dX = 2.0, .restraint = {}, .nSpring = {}},
               {.nId = 50, .dX = 4.0, .restraint = {}, .nSpring = {}}};
  job.sections = {{.strId = "HN400", .dArea = 1e5, .dIx = 1e8, .dIy = 2e8, .dIz = 1e8},
                  {.strId = "Box", .dArea = 1e5, .dIx = 1e8, .dIy = 2e8, .dIz = 1e8}};
  job.elements = {{.nType = host::c_nBeam, .nNodeI = 1, .nNodeJ = 2, .nSection = 0},
                  {.nType = host::c_nBeam, .nNodeI = 2, .nNodeJ = 3, .nSection = 1}};
  job.loads = {{.nCase = 0, .nNode = 3, .nDirection = 2, .dValue = -12},
               {.nCase = 2, .nNode = 2, .nDirection = 2, .dValue = -4}};
  host::StaticJob linear;
  linear.bNonlinear = false;
  linear.combination = {{0, 1.0}};
  host::ModalJob modal;
  modal.nModes = 3;
  modal.combination = {{0, -1.0}};
  job.analyses = {linear, modal};
  return job;
}

void Choose(QComboBox& list, const QString& strText) {
  const int nExact = list.findText(strText), nRow = nExact >= 0 ? nExact : list.findText(strText, Qt::MatchStartsWith);
  ASSERT_GE(nRow, 0) << strText.toStdString();
  list.setCurrentIndex(nRow);
  Q_EMIT list.activated(nRow);
}

void Click(CStructureView& view, host::Point3 at, Qt::KeyboardModifiers keys = {}) {
  const PaintPoint p = view.GetCamera().Project(at).at;
  QTest::mouseClick(&view, Qt::LeftButton, keys, QPointF(p.dX, p.dY).toPoint());
}

/// "uZ" -> "-3.1 mm" of the group with the title.
std::map<std::string, std::string> ReadData(const QWidget& window, const QString& strTitle) {
  std::map<std::string, std::string> lines;
  const auto* const pData = window.findChild<QTreeWidget*>(QStringLiteral("part_data"));
  for (int g = 0; g < pData->topLevelItemCount(); ++g) {
    const QTreeWidgetItem* const pGroup = pData->topLevelItem(g);
    if (pGroup->text(0) != strTitle) continue;
    for (int k = 0; k < pGroup->childCount(); ++k)
      lines[pGroup->child(k)->text(0).toStdString()] = pGroup->child(k)->text(1).toStdString();
  }
  return lines;
}

/// Takes up what a widget writes while it paints itself.
class CTextSheet : public QPaintDevice {
 public:
  explicit CTextSheet(QWidget& widget) : m_widget(widget) {
    widget.render(this);
    QPointF end;
    for (const Piece& piece : m_engine.m_pieces) {
      const bool bGoesOn = !m_lines.isEmpty() && (piece.at - end).manhattanLength() < 1.0;
      bGoesOn ? m_lines.last() += piece.strText : m_lines.emplaceBack(piece.strText);
      end = piece.at + QPointF(piece.dWidth, 0.0);
    }
  }
  [[nodiscard]] bool Has(const std::string& strText) const { return m_lines.contains(QString::fromStdString(strText)); }
  [[nodiscard]] std::string GetAll() const { return m_lines.join(QStringLiteral(" | ")).toStdString(); }

  QPaintEngine* paintEngine() const override { return &m_engine; }

 protected:
  int metric(PaintDeviceMetric what) const override {
    if (what == PdmWidth) return m_widget.width();
    if (what == PdmHeight) return m_widget.height();
    return what == PdmDevicePixelRatioScaled ? 65536 : what == PdmDevicePixelRatio || what == PdmDepth ? 1 : 96;
  }

 private:
  struct Piece {  ///< a text is written in several where its script changes
    QPointF at;
    double dWidth;
    QString strText;
  };
  struct CEngine : QPaintEngine {
    CEngine() : QPaintEngine(AllFeatures) {}
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPath(const QPainterPath&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawTextItem(const QPointF& at, const QTextItem& item) override {
      if (painter()->pen().color().lightness() < 240)
        m_pieces.push_back({at, item.width(), item.text()});  // else a halo
    }
    Type type() const override { return User; }

    std::vector<Piece> m_pieces;
  };

  QWidget& m_widget;
  mutable CEngine m_engine;
  QStringList m_lines;
};

TEST_F(Results, ForcesOfTheChosenResultAreDrawnAndOldOnesOnRequestAlone) {
  CMainWindow window(Settings());
  window.show();
  host::Job job = MakeShakenFrame();
  ASSERT_TRUE(window.OpenJob(WriteJob("frame.json", job)));
  Trigger(window, "run_all");
  CStructureView& view = window.GetStructureView();
  auto& sources = *Find<QComboBox>(window, "force_source");
  auto& diagram = *Find<QComboBox>(window, "diagram");
  auto& colours = *Find<QComboBox>(window, "colours");
  EXPECT_FALSE(view.GetForces()) << "nothing asked for";
  EXPECT_EQ(sources.count(), 4) << "all but the modes";
  for (int k = 0; k < sources.count(); ++k) {
    Choose(sources, sources.itemText(k));
    const auto kind = static_cast<host::ResultKind>(sources.itemData(k).toInt());
    for (std::size_t q = 0; q < host::c_strMemberQuantities.size(); ++q) {
      const QString strQuantity = QString::fromUtf8(host::c_strMemberQuantities[q].data());
      const bool bComponent = q < host::c_nForceComponents;
      if (bComponent) Choose(diagram, strQuantity);
      colours.setCurrentIndex(colours.findText(strQuantity));
      ASSERT_TRUE(view.GetForces());
      const DrawnForces& drawn = *view.GetForces();
      EXPECT_EQ(drawn.kind, kind);
      EXPECT_EQ(drawn.forces.bAbsolute, kind == host::ResultKind::Spectrum);
      const auto quantity = static_cast<host::MemberQuantity>(q);
      EXPECT_TRUE(!bComponent || drawn.diagram == quantity);
      EXPECT_TRUE(drawn.colours == quantity);
      EXPECT_EQ(drawn.forces.members.at(0).Get(quantity),
                window.GetDocument().GetForces(kind)->members.at(0).Get(quantity));
      EXPECT_FALSE(view.IsShapeDrawn()) << "a diagram belongs to the structure in place";
    }
  }
  Find<QSlider>(window, "diagram_size")->setValue(50);
  EXPECT_EQ(view.GetForces()->dDiagramFactor, 2.5);
  Choose(sources, QStringLiteral("时程分析"));
  for (const int nStep : {4, 99}) {
    window.GetDocument().SetStep(nStep);
    EXPECT_TRUE(view.GetForces()->strTitle.ends_with(host::Format("t = %.6g s", (nStep + 1) * 0.02)));
    EXPECT_NEAR(view.GetForces()->forces.members[0].stations[0][0],
                1e-3 * window.GetDocument().GetHistories()->values[c_nHistoryForce][nStep][0], 1e-9);
  }

  job.nodes.back().dZ += 0.1;
  ASSERT_TRUE(window.OpenJob(WriteJob("frame.json", job)));
  EXPECT_GE(diagram.currentIndex(), 1);
  EXPECT_FALSE(view.GetForces()) << "of the former model";
  Choose(sources, QStringLiteral("反应谱分析"));
  ASSERT_TRUE(view.GetForces());
  EXPECT_TRUE(view.GetForces()->bOutdated);
  Trigger(window, "run_all");
  EXPECT_FALSE(view.GetForces()->bOutdated);
}

TEST_F(Results, ShapesAreDrawnAsLargeAsTheNumberSays) {
  CMainWindow window(Settings());
  window.show();
  host::Job job = MakeLoadedCantilever();
  ASSERT_TRUE(window.OpenJob(WriteJob("scale.json", job)));
  Trigger(window, "run_all");
  CStructureView& view = window.GetStructureView();
  auto& shapes = *Find<QComboBox>(window, "shapes");
  auto& number = *Find<QDoubleSpinBox>(window, "magnification");
  Choose(shapes, QStringLiteral("静力变形"));
  const double dTip = 12.0 * 64.0 / (3.0 * 2.06e8 * 2e-4);  // P L³/3EI
  for (const double dTimes : {1.0, 50.0, 120.25}) {
    number.setValue(dTimes);
    EXPECT_NEAR(view.GetMagnification(), dTimes, 1e-9 * dTimes);
    EXPECT_NEAR(view.GetPlaces().GetNode(2).dZ, -dTimes * dTip, 2e-4 * dTimes * dTip);
  }
  Find<QSlider>(window, "amplitude")->setValue(40);
  EXPECT_NEAR(number.value(), 0.2 * 2.0 / dTip, 2e-4 * 0.4 / dTip) << "a fifth of the radius";
  EXPECT_NEAR(view.GetPlaces().GetNode(2).dZ, -0.4, 1e-6);
  number.selectAll();
  QTest::keyClicks(&number, QStringLiteral("1e99-7x"));
  QTest::keyClick(&number, Qt::Key_Return);
  EXPECT_LE(number.value(), 1e9) << "out of range";
  EXPECT_TRUE(std::isfinite(view.GetPlaces().GetNode(2).dZ));

  // A shape of another model is drawn when it is chosen.
  shapes.setCurrentIndex(1);
  job.loads[0].dValue = -20;
  ASSERT_TRUE(window.OpenJob(WriteJob("scale.json", job)));
  EXPECT_EQ(shapes.currentIndex(), 0);
  EXPECT_FALSE(view.IsShapeDrawn());
  EXPECT_TRUE(shapes.itemText(1).contains(QStringLiteral("过期")));
}

TEST_F(Results, KeysReachTheDrawingWithoutAClickIntoIt) {
  const QString strFile = WriteJob("keys.json", MakeLoadedCantilever());
  {
    CMainWindow window(Settings());
    ASSERT_TRUE(window.OpenJob(strFile));
    Trigger(window, "run_all");
  }
  CMainWindow window(Settings());
  window.show();
  QApplication::setActiveWindow(&window);
  Find<QLineEdit>(window, "find_text")->setFocus();  // a field, which takes such keys
  ASSERT_TRUE(window.OpenJob(strFile));
  QTest::qWait(20);
  const CStructureView& view = window.GetStructureView();
  const auto& shapes = *Find<QComboBox>(window, "shapes");
  const auto press = [&window](Qt::Key key) {
    QWidget* const pFocus = QApplication::focusWidget();
    QTest::keyClick(pFocus != nullptr ? pFocus : &window, key);
  };
  for (const auto& [key, nRow] : {std::pair(Qt::Key_PageDown, 1),
                                  {Qt::Key_PageDown, 2},
                                  {Qt::Key_PageDown, 3},
                                  {Qt::Key_PageUp, 2},
                                  {Qt::Key_PageUp, 1},
                                  {Qt::Key_PageUp, 0},
                                  {Qt::Key_PageUp, 0}}) {
    press(key);
    EXPECT_EQ(shapes.currentIndex(), nRow);
  }
  const struct {
    Qt::Key key;
    std::array<double, 3> up;  // parts of X, Y, Z that are seen to go upwards
  } views[] = {{Qt::Key_1, {0, 0, 1}}, {Qt::Key_2, {0, 0, 1}}, {Qt::Key_3, {0, 1, 0}}};
  for (const auto& v : views) {
    press(v.key);
    const host::CCamera& camera = view.GetCamera();
    EXPECT_NEAR(-camera.ProjectDirection({1, 0, 0}).at.dY, v.up[0], 1e-9);
    EXPECT_NEAR(-camera.ProjectDirection({0, 1, 0}).at.dY, v.up[1], 1e-9);
    EXPECT_NEAR(-camera.ProjectDirection({0, 0, 1}).at.dY, v.up[2], 1e-9);
    EXPECT_NEAR(std::abs(camera.ProjectDirection({1, 0, 0}).at.dX), v.key == Qt::Key_2 ? 0.0 : 1.0, 1e-9);
  }
  press(Qt::Key_0);
  EXPECT_GT(std::abs(view.GetCamera().ProjectDirection({0, 1, 0}).at.dY), 0.1) << "all three axes are seen";
}

TEST_F(Results, DataOfWhatIsSelectedAgreeWithStatics) {
  CMainWindow window(Settings());
  window.show();
  ASSERT_TRUE(window.OpenJob(WriteJob("data.json", MakeLoadedCantilever())));
  Trigger(window, "run_all");
  CDocument& document = window.GetDocument();
  const QString strLinear = QStringLiteral("线性静力分析");
  const auto number = [](const std::string& strText) { return std::stod(strText); };

  document.Select({{2}, {}});
  const double dTip = -1e3 * 12.0 * 64.0 / (3.0 * 2.06e8 * 2e-4);
  EXPECT_NEAR(number(ReadData(window, strLinear)["uZ"]), dTip, 2e-4 * -dTip);
  EXPECT_TRUE(ReadData(window, strLinear)["uZ"].ends_with(" mm"));
  auto data = ReadData(window, QStringLiteral("节点 50"));
  EXPECT_EQ(data["X"], "4 m");
  EXPECT_EQ(data["结果文件中的编号"], "3");
  EXPECT_EQ(ReadData(window, QStringLiteral("荷载"))["工况 0  Z"], "-12 kN");

  document.Select({{0}, {}});
  data = ReadData(window, strLinear);
  EXPECT_NEAR(number(data["支反力 Z"]), 12.0, 1e-3);
  EXPECT_NEAR(number(data["支反力 RY"]), -48.0, 1e-2);
  EXPECT_EQ(number(data["uZ"]), 0.0);

  document.Select({{}, {1}});
  data = ReadData(window, strLinear);
  double dI = 0.0, dJ = 0.0, dMost = 0.0;
  ASSERT_EQ(std::sscanf(data["My"].c_str(), "i %lf   j %lf   |max| %lf", &dI, &dJ, &dMost), 3) << data["My"];
  EXPECT_NEAR(dI, -24.0, 1e-2);
  EXPECT_NEAR(dJ, 0.0, 1e-2);
  EXPECT_NEAR(dMost, -24.0, 1e-2) << "the value with its sign";
  EXPECT_NEAR(std::abs(number(data["Qz"].substr(2))), 12.0, 1e-3);
  data = ReadData(window, QStringLiteral("单元 2"));
  EXPECT_EQ(data["节点"], "30 – 50");
  EXPECT_EQ(data["长度"], "2 m");
  EXPECT_EQ(data["截面"], "Box");

  host::Job other = document.GetJob();
  other.sections[0].dIy = 3e8;
  ASSERT_TRUE(window.OpenJob(WriteJob("data.json", other)));
  document.Select({{2}, {}});
  EXPECT_TRUE(ReadData(window, strLinear).empty()) << "of another model";
}

TEST_F(Results, PartsAreFoundByNumberSectionAndClick) {
  CMainWindow window(Settings());
  window.show();
  ASSERT_TRUE(window.OpenJob(WriteJob("parts.json", MakeLoadedCantilever())));
  CDocument& document = window.GetDocument();
  CStructureView& view = window.GetStructureView();
  Trigger(window, "front");
  enum What { Nodes, Elements, Section };
  const struct {
    What what;
    const char* pszText;
    Selection found;
  } searches[] = {{Nodes, "30", {{1}, {}}},
                  {Nodes, "30-60", {{1, 2}, {}}},
                  {Nodes, " 70，50 ", {{0, 2}, {}}},
                  {Nodes, "50-", {{0, 2}, {}}},
                  {Nodes, "1-3", {}},
                  {Nodes, "x", {}},
                  {Elements, "2", {{}, {1}}},
                  {Elements, "1~2", {{}, {0, 1}}},
                  {Elements, "30", {}},
                  {Section, "box", {{}, {1}}},
                  {Section, "hn", {{}, {0}}},
                  {Section, "400", {{}, {0}}}};
  for (const auto& c : searches) {
    document.Select({{0}, {0}});
    Find<QComboBox>(window, "find_what")->setCurrentIndex(c.what);
    auto& text = *Find<QLineEdit>(window, "find_text");
    text.setText(QString::fromUtf8(c.pszText));
    QTest::keyClick(&text, Qt::Key_Return);
    EXPECT_EQ(document.GetSelection(), c.found) << c.pszText;
  }
  const struct {
    const char* pszWhat;
    host::Point3 at;
    Qt::KeyboardModifiers keys;
    Selection selected;
  } clicks[] = {{"a node", {2, 0, 0}, {}, {{1}, {}}},
                {"an element alone", {3, 0, 0}, {}, {{}, {1}}},
                {"one more", {1, 0, 0}, Qt::ControlModifier, {{}, {0, 1}}},
                {"and a node", {4, 0, 0}, Qt::ShiftModifier, {{2}, {0, 1}}},
                {"a part again", {3, 0, 0}, Qt::ControlModifier, {{2}, {0}}},
                {"beside all, with the key", {1, 0, 1}, Qt::ControlModifier, {{2}, {0}}},
                {"beside all", {1, 0, 1}, {}, {}}};
  document.Select({});
  for (const auto& c : clicks) {
    Click(view, c.at, c.keys);
    EXPECT_EQ(document.GetSelection(), c.selected) << c.pszWhat;
  }
  auto& alone = *Find<QCheckBox>(window, "alone");
  EXPECT_FALSE(alone.isEnabled()) << "nothing is selected";
  document.Select({{2}, {0}});
  alone.click();
  document.Select({});
  Click(view, {3, 0, 0});
  EXPECT_TRUE(document.GetSelection().IsEmpty()) << "the second member is hidden";
  Click(view, {4, 0, 0});
  EXPECT_EQ(document.GetSelection(), (Selection{{2}, {}})) << "a node chosen by itself stays";
  alone.click();
  Click(view, {3, 0, 0});
  EXPECT_EQ(document.GetSelection(), (Selection{{}, {1}}));

  // A press that moves on turns the structure and selects nothing.
  const PaintPoint p = view.GetCamera().Project({1, 0, 0}).at;
  const QPoint start = QPointF(p.dX, p.dY).toPoint(), end = start + QPoint(60, 20);
  QTest::mousePress(&view, Qt::LeftButton, {}, start);
  QMouseEvent move(QEvent::MouseMove, end, view.mapToGlobal(QPointF(end)), Qt::NoButton, Qt::LeftButton, {});
  QApplication::sendEvent(&view, &move);
  QTest::mouseRelease(&view, Qt::LeftButton, {}, end);
  EXPECT_EQ(document.GetSelection(), (Selection{{}, {1}}));
}

TEST_F(Results, TheDrawingWritesWhatStaticsSays) {
  CMainWindow window(Settings());
  window.show();
  Trigger(window, "language_en");
  host::Job job = MakeLoadedCantilever();
  ASSERT_TRUE(window.OpenJob(WriteJob("written.json", job)));
  CStructureView& view = window.GetStructureView();
  Trigger(window, "front");
  const auto choose = [&window](const char* pszList, const char* pszText) {
    Choose(*Find<QComboBox>(window, pszList), QString::fromUtf8(pszText));
  };
  const auto expect = [&view](const char* pszWhat, const test::Strings& there, const test::Strings& gone = {}) {
    const CTextSheet sheet(view);
    for (const std::string& strText : there)
      EXPECT_TRUE(sheet.Has(strText)) << pszWhat << ": " << strText << " in " << sheet.GetAll();
    for (const std::string& strText : gone) EXPECT_FALSE(sheet.Has(strText)) << pszWhat << ": " << strText;
  };
  expect("a job without results", {"3 nodes   2 elements"});
  Trigger(window, "node_numbers");
  expect("ids", {"70", "30", "50"}, {"1", "2", "3"});
  Trigger(window, "node_numbers");
  Trigger(window, "element_numbers");
  Trigger(window, "section_names");
  expect("elements", {"1", "2", "HN400", "Box"}, {"70"});
  Trigger(window, "element_numbers");
  Trigger(window, "section_names");
  choose("load_choice", "case 0");
  expect("a load", {"12.0", "case 0, dead load, kN and kN·m"}, {"4.00", "4.0"});
  choose("load_choice", "none");

  Trigger(window, "run_all");
  const double dTip = 1e3 * 12.0 * 64.0 / (3.0 * 2.06e8 * 2e-4);  // mm
  choose("shapes", "static deformation (linear)");
  Find<QDoubleSpinBox>(window, "magnification")->setValue(60);
  choose("colours", "displacement");
  expect("a shape", {"static deformation (linear)   displacements × 60", "displacement", "[mm]",
                     host::Format("max %.4g mm (node 50)", dTip)});
  choose("colours", "none");
  choose("diagram", "My");  // P L at the clamp
  expect("a diagram",
         {"linear static analysis", "bending moment My", "-48.0", "-24.0", "min -48.0 kN·m (element 1)",
          "static deformation (linear)   not drawn: diagrams lie on the undeformed structure"},
         {host::Format("max %.4g mm (node 50)", dTip)});
  choose("diagram", "Qz");
  expect("a constant", {"12.0"}, {"-48.0"});
  choose("diagram", "none");
  Find<QCheckBox>(window, "reactions")->setChecked(true);
  expect("reactions", {"12.0", "48.0"});
  Find<QCheckBox>(window, "reactions")->setChecked(false);
  choose("colours", "M");
  expect("colours", {"[kN·m]", "max 48.0 kN·m (element 1)", "0", "10", "20", "30", "40"});
  window.GetDocument().Select({{}, {1}});
  Find<QCheckBox>(window, "alone")->click();
  expect("the second member alone", {"max 24.0 kN·m (element 2)"}, {"max 48.0 kN·m (element 1)"});
  job.loads[0].dValue = -24;
  ASSERT_TRUE(window.OpenJob(WriteJob("written.json", job)));
  expect("another model", {"3 nodes   2 elements"}, {"max 48.0 kN·m (element 1)", "linear static analysis"});
  choose("force_source", "linear static analysis");
  expect("on request", {"max 48.0 kN·m (element 1)", "linear static analysis   (out of date)"});
}

TEST_F(Results, LoadsStayChosenByWhatTheyAre) {
  CMainWindow window(Settings());
  window.show();
  host::Job job = MakeLoadedCantilever();
  ASSERT_TRUE(window.OpenJob(WriteJob("loads.json", job)));
  auto& loads = *Find<QComboBox>(window, "load_choice");
  QStringList texts;
  for (int k = 0; k < loads.count(); ++k) texts << loads.itemText(k);
  EXPECT_EQ(texts.mid(0, 4), QStringList({QStringLiteral("无"), QStringLiteral("全部工况"), QStringLiteral("工况 0"),
                                          QStringLiteral("工况 2")}));
  EXPECT_EQ(texts.size(), 6) << "and the combinations of two analyses";
  Choose(loads, QStringLiteral("工况 2"));
  job.loads.push_back({.nCase = 1, .nNode = 2, .nDirection = 0, .dValue = 1});
  ASSERT_TRUE(window.OpenJob(WriteJob("loads.json", job)));
  EXPECT_EQ(loads.currentText(), QStringLiteral("工况 2")) << "though it is another row now";
  const QString strModal = loads.itemText(loads.count() - 1);
  Choose(loads, strModal);
  window.GetDocument().SetAnalyses({job.analyses[1]});
  EXPECT_EQ(loads.currentText(), strModal);
  window.GetDocument().SetAnalyses({job.analyses[0]});
  EXPECT_EQ(loads.currentIndex(), 0) << "gone with its analysis";
  window.GetDocument().Forget();
  Choose(loads, QStringLiteral("工况 2"));
  ASSERT_TRUE(window.OpenJob(WriteJob("others.json", job)));
  EXPECT_EQ(loads.currentIndex(), 0) << "another job begins without loads";
}

TEST_F(Results, PicturesAreNamedByWhatTheyShow) {
  CMainWindow window(Settings());
  window.show();
  ASSERT_TRUE(window.OpenJob(WriteJob("frame.json", MakeShakenFrame())));
  Trigger(window, "run_all");
  const auto propose = [&window] {
    QString strName;
    Answer<QFileDialog>([&window] { Trigger(window, "picture"); },
                        [&strName](QFileDialog& dialog) {
                          strName = QFileInfo(dialog.selectedFiles().value(0)).fileName();
                          dialog.reject();
                        });
    return strName.toStdString();
  };
  auto& shapes = *Find<QComboBox>(window, "shapes");
  auto& sources = *Find<QComboBox>(window, "force_source");
  auto& diagram = *Find<QComboBox>(window, "diagram");
  const auto& names = {"structure", "linear", "nonlinear", "mode1", "mode2", "mode3"};
  int nRow = 0;
  for (const char* const pszName : names) {
    shapes.setCurrentIndex(nRow++);
    EXPECT_EQ(propose(), "frame_" + std::string(pszName) + ".png");
  }
  diagram.setCurrentIndex(diagram.findText(QStringLiteral("Mz")));
  nRow = 0;
  for (const char* const pszName : {"linear", "nonlinear", "spectrum", "history"}) {
    Choose(sources, sources.itemText(nRow++));
    EXPECT_EQ(propose(), "frame_" + std::string(pszName) + "_Mz.png") << "the mode is not drawn";
  }
  diagram.setCurrentIndex(0);
  Find<QComboBox>(window, "colours")
      ->setCurrentIndex(Find<QComboBox>(window, "colours")->findText(QStringLiteral("M")));
  Find<QCheckBox>(window, "reactions")->setChecked(true);
  Choose(sources, sources.itemText(2));
  EXPECT_EQ(propose(), "frame_mode3_spectrum_M_reactions.png") << "both are drawn";
  // Another job without a history, while one was being looked at.
  Choose(sources, sources.itemText(3));
  Find<QDockWidget>(window, "history_dock")->raise();
  EXPECT_TRUE(QTest::qWaitFor([&] { return Find<QListWidget>(window, "history_curves")->count() > 0; }));
  Find<QCheckBox>(window, "history_move")->setChecked(true);
  EXPECT_EQ(propose(), "frame_history_history_M_reactions.png") << "a moment";
  host::Job job = MakeLoadedCantilever();
  ASSERT_TRUE(window.OpenJob(WriteJob("beam.json", job)));
  EXPECT_EQ(propose(), "beam_structure.png");
  Trigger(window, "run_all");
  shapes.setCurrentIndex(2);
  EXPECT_EQ(propose(), "beam_mode1_linear_M_reactions.png");
}

}  // namespace
}  // namespace skyframe::gui
