// Result viewer: the picture call by call, and the dialog.

#include <cmath>
#include <limits>

#include "TestPlatform.h"
#include "skyframe/dialogs/HisResultDlg.h"
#include "skyframe/history/HistoryPlot.h"
#include "skyframe/platform/PaintContext.h"

namespace skyframe {
namespace {

HistorySet MakeHistory(const std::vector<double>& values, double dTimeStep = 0.5, int nQuantity = c_nHistoryX) {
  HistorySet history;
  history.Allocate(static_cast<int>(values.size()), 2, 2);
  history.dTimeStep = dTimeStep;
  for (std::size_t k = 0; k < values.size(); ++k) {
    history.values[static_cast<std::size_t>(nQuantity)][static_cast<int>(k)][1] = values[k];
  }
  return history;
}

std::vector<PaintItem> Paint(const HistorySet& history, int nQuantity = c_nHistoryX) {
  CPaintRecorder recorder;
  PaintHistory(recorder, history, {nQuantity, 2});
  return recorder.GetItems();
}

std::vector<std::string> GetTexts(const std::vector<PaintItem>& items) {
  std::vector<std::string> texts;
  for (const PaintItem& item : items) {
    if (item.kind == PaintItem::Kind::Text) texts.push_back(item.strText);
  }
  return texts;
}

TEST(ViewerPlot, EveryCall) {
  const auto items = Paint(MakeHistory({0.010, -0.004, 0.0011}));  // m: 10, -4, 1.1 mm
  ASSERT_EQ(items.size(), 11U);
  const Colour grey{0xF0, 0xF0, 0xF0}, red{0xFF, 0, 0};

  EXPECT_EQ(items[0].kind, PaintItem::Kind::Rectangle);
  EXPECT_EQ(items[0].points, (std::vector<PaintPoint>{{170, 10}, {248, 280}}));
  EXPECT_EQ(items[0].state.pen, grey);
  EXPECT_EQ(items[0].state.brush, grey);
  EXPECT_EQ(items[1].kind, PaintItem::Kind::Rectangle);
  EXPECT_EQ(items[1].points, (std::vector<PaintPoint>{{250, 30}, {651, 280}}));
  EXPECT_EQ(items[1].state.pen, red);
  EXPECT_EQ(items[1].state.dPenWidth, 1.0);
  EXPECT_EQ(items[1].state.brush, c_white);
  EXPECT_EQ(items[2].points, (std::vector<PaintPoint>{{250, 155}, {650, 155}}));
  EXPECT_EQ(items[2].state.pen, c_black);

  // x = 250 + 400 k/3, y = 155 - 12.5 value, truncated
  EXPECT_EQ(items[3].kind, PaintItem::Kind::Polyline);
  EXPECT_EQ(items[3].points, (std::vector<PaintPoint>{{250, 155}, {383, 30}, {516, 205}, {650, 141}}));
  EXPECT_EQ(items[3].state.pen, c_black);

  // 1.5 s over the axis
  EXPECT_EQ(GetTexts(items), (std::vector<std::string>{"0", "0", "0", "1", "1", "1.00e+01", "-1.00e+01"}));
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(items[4 + i].points[0], (PaintPoint{250.0 + 100.0 * static_cast<double>(i), 158.0}));
    EXPECT_EQ(items[4 + i].horizontal, HorizontalAlign::Centre);
  }
  EXPECT_EQ(items[9].points[0], (PaintPoint{245, 30}));
  EXPECT_EQ(items[9].vertical, VerticalAlign::Top);
  EXPECT_EQ(items[10].points[0], (PaintPoint{245, 280}));
  EXPECT_EQ(items[10].vertical, VerticalAlign::Bottom);
  EXPECT_EQ(items[10].horizontal, HorizontalAlign::Right);
}

TEST(ViewerPlot, ForcesAreInKilonewtons) {
  const auto items = Paint(MakeHistory({-2500.0, 1000.0}, 10.0, c_nHistoryForce), c_nHistoryForce);
  EXPECT_EQ(items[3].points, (std::vector<PaintPoint>{{250, 155}, {450, 280}, {650, 105}}));
  EXPECT_EQ(GetTexts(items), (std::vector<std::string>{"0", "5", "10", "15", "20", "2.50e+00", "-2.50e+00"}));
}

TEST(ViewerPlot, Scale) {
  const struct {
    double dMost, dLeast, dScale;
  } cases[] = {{10, -4, 12.5},     {4, -10, 12.5},     {5, 2, 25},
               {-1, -5, 25},       {0, 0, 0},          {1e-20, 0, 0},
               {0, -1e-20, 0},     {1.25e-18, 0, 0},   {1.3e-18, 0, 125 / 1.3e-18},
               {1e-21, -10, 12.5}, {10, -1e-21, 12.5}, {1e300, 0, 125e-300}};
  for (const auto& c : cases) EXPECT_DOUBLE_EQ(ChoosePlotScale(c.dMost, c.dLeast), c.dScale) << c.dMost;
}

TEST(ViewerPlot, FlatAndDamagedHistories) {
  constexpr double c_dNaN = std::numeric_limits<double>::quiet_NaN();
  constexpr double c_dInfinity = std::numeric_limits<double>::infinity();
  // Nothing to scale by: a flat line without extremes.
  const auto flat = Paint(MakeHistory({0.0, 1e-24}));
  EXPECT_EQ(flat[3].points, (std::vector<PaintPoint>{{250, 155}, {450, 155}, {650, 155}}));
  EXPECT_EQ(GetTexts(flat).size(), 5U);
  const auto damaged = Paint(MakeHistory({c_dNaN, 0.001, c_dInfinity, -c_dInfinity}));
  EXPECT_EQ(damaged[3].points, (std::vector<PaintPoint>{{250, 155}, {350, 155}, {450, 30}, {550, 155}, {650, 155}}));
  EXPECT_EQ(Paint(MakeHistory({})).size(), 3U);
  EXPECT_EQ(GetTexts(Paint(MakeHistory({0.001}, c_dNaN)))[0], "");
}

TEST(ViewerPlot, TimeLabelsTruncate) {
  EXPECT_EQ(GetTexts(Paint(MakeHistory(std::vector<double>(1559, 0.0), 0.02))),
            (std::vector<std::string>{"0", "7", "15", "23", "31"}));
}

// --- the dialog

class CFakeHistories : public IHistoryView {
 public:
  int GetNodeCount() const override { return 5; }
  int GetElementCount() const override { return 3; }
  void Plot(IPaintContext&, const std::optional<HistorySelection>& selection) const override {
    m_plotted.push_back(selection);
  }
  bool WriteOut(const HistorySelection& selection) const override {
    m_written.push_back(selection);
    return m_bWritable;
  }

  bool m_bWritable = true;
  mutable std::vector<std::optional<HistorySelection>> m_plotted;
  mutable std::vector<HistorySelection> m_written;
};

class ViewerDialog : public testing::Test {
 protected:
  void Run(std::vector<DialogStep> steps) {
    m_platform->AddScript(c_nIdHisResultDlg, std::move(steps));
    CHisResultDlg dialog(m_histories);
    EXPECT_EQ(dialog.DoModal(), c_nIdOk);
    CPaintRecorder recorder;
    dialog.Paint(recorder);
    EXPECT_TRUE(m_platform->GetScriptErrors().empty());
  }
  const std::optional<HistorySelection>& GetShown() const { return m_histories.m_plotted.back(); }

  test::CTestPlatform m_platform;
  CFakeHistories m_histories;
};

TEST_F(ViewerDialog, OpensWithNothingShown) {
  Run({DialogStep::Inspect([](const IDialogView& view) {
         EXPECT_TRUE(view.GetCheck(c_nIdNodeHistory));
         EXPECT_TRUE(view.GetCheck(c_nIdHistoryX));
         EXPECT_EQ(view.GetText(c_nIdHistoryNode), "1");
         EXPECT_EQ(view.GetText(c_nIdHistoryElement), "1");
       }),
       DialogStep::Ok()});
  EXPECT_FALSE(GetShown());
}

TEST_F(ViewerDialog, RefreshShowsAndOutputWritesTheSelection) {
  Run({DialogStep::Type(c_nIdHistoryNode, "5"), DialogStep::Choose(c_nIdHistoryZ), DialogStep::Click(c_nIdRefresh),
       DialogStep::Click(c_nIdOutput), DialogStep::Ok()});
  EXPECT_EQ(GetShown(), (HistorySelection{false, 5, 2}));
  Run({DialogStep::Choose(c_nIdElementHistory), DialogStep::Type(c_nIdHistoryElement, "3"),
       DialogStep::Click(c_nIdRefresh), DialogStep::Click(c_nIdOutput), DialogStep::Ok()});
  EXPECT_EQ(GetShown(), (HistorySelection{true, 3, 0}));
  EXPECT_EQ(m_histories.m_written, (std::vector<HistorySelection>{{false, 5, 2}, {true, 3, 0}}));
  EXPECT_TRUE(m_platform.GetMessages().empty());
}

TEST_F(ViewerDialog, NumbersThatTheModelDoesNotHave) {
  const std::string strNode = "错误: 没有所求节点", strElement = "错误: 没有所求单元";
  const struct {
    int nRadio, nField;
    const char* strNumber;
    std::string strMessage;
  } cases[] = {{c_nIdNodeHistory, c_nIdHistoryNode, "6", strNode},
               {c_nIdNodeHistory, c_nIdHistoryNode, "0", strNode},
               {c_nIdNodeHistory, c_nIdHistoryNode, "-1", strNode},
               {c_nIdElementHistory, c_nIdHistoryElement, "4", strElement},
               {c_nIdElementHistory, c_nIdHistoryElement, "0", strElement}};
  for (const auto& c : cases) {
    m_platform->Clear();
    Run({DialogStep::Click(c_nIdRefresh), DialogStep::Choose(c.nRadio), DialogStep::Type(c.nField, c.strNumber),
         DialogStep::Click(c_nIdRefresh), DialogStep::Click(c_nIdOutput), DialogStep::Ok()});
    EXPECT_EQ(m_platform.GetMessages(), (std::vector<std::string>{c.strMessage, c.strMessage}));
    EXPECT_EQ(GetShown(), (HistorySelection{false, 1, 0})) << "the picture stays";
  }
  EXPECT_TRUE(m_histories.m_written.empty());
}

TEST_F(ViewerDialog, AFileThatCannotBeWrittenIsReported) {
  m_histories.m_bWritable = false;
  Run({DialogStep::Click(c_nIdOutput), DialogStep::Ok()});
  EXPECT_EQ(m_platform.GetMessages(), std::vector<std::string>{"结果文件无法写入!"});
}

TEST(ViewerTemplate, LeavesRoomForThePlot) {
  EXPECT_EQ(c_hisResultTemplate.nId, 16006);
  EXPECT_EQ(c_hisResultTemplate.strTitle, "时程计算结果输出");
  // 1.5 to 2 pixels a unit: the controls end before the panel, the plot fits at the smaller scale
  for (const ControlTemplate& control : c_hisResultTemplate.controls) {
    EXPECT_LT(1.9 * (control.rect.nX + control.rect.nWidth), 170.0);
  }
  EXPECT_GE(1.5 * c_hisResultTemplate.nWidth, 651.0);
  EXPECT_GE(1.5 * c_hisResultTemplate.nHeight, 280.0);
}

}  // namespace
}  // namespace skyframe
