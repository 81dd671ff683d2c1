// Result viewer: the picture call by call, and the dialog.

#include "DialogTesting.h"
#include "skyframe/dialogs/HisResultDlg.h"
#include "skyframe/history/HistoryPlot.h"
#include "skyframe/platform/PaintContext.h"

namespace skyframe::test {
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
  using enum PaintItem::Kind;
  const Colour grey{0xF0, 0xF0, 0xF0}, red{0xFF, 0, 0};
  const struct {
    PaintItem::Kind kind;
    Colour pen, brush;
    std::vector<PaintPoint> points;
    std::string strText;
  } expected[] = {{Rectangle, grey, grey, {{170, 10}, {248, 280}}, ""},
                  {Rectangle, red, c_white, {{250, 30}, {651, 280}}, ""},
                  {Polyline, c_black, c_white, {{250, 155}, {650, 155}}, ""},
                  // x = 250 + 400 k/3, y = 155 - 12.5 value, truncated
                  {Polyline, c_black, c_white, {{250, 155}, {383, 30}, {516, 205}, {650, 141}}, ""},
                  {Text, c_black, c_white, {{250, 158}}, "0"},
                  {Text, c_black, c_white, {{350, 158}}, "0"},
                  {Text, c_black, c_white, {{450, 158}}, "0"},
                  {Text, c_black, c_white, {{550, 158}}, "1"},
                  {Text, c_black, c_white, {{650, 158}}, "1"},
                  {Text, c_black, c_white, {{245, 30}}, "1.00e+01"},
                  {Text, c_black, c_white, {{245, 280}}, "-1.00e+01"}};
  const auto items = Paint(MakeHistory({0.010, -0.004, 0.0011}));  // m: 10, -4, 1.1 mm; 1.5 s
  ASSERT_EQ(items.size(), std::size(expected));
  for (std::size_t i = 0; i < items.size(); ++i) {
    EXPECT_EQ(items[i].kind, expected[i].kind) << i;
    EXPECT_EQ(items[i].state.pen, expected[i].pen) << i;
    EXPECT_EQ(items[i].state.brush, expected[i].brush) << i;
    EXPECT_EQ(items[i].state.dPenWidth, 1.0) << i;
    EXPECT_EQ(items[i].points, expected[i].points) << i;
    EXPECT_EQ(items[i].strText, expected[i].strText) << i;
  }
}

TEST(ViewerPlot, ForcesAreInKilonewtons) {
  const auto items = Paint(MakeHistory({-2500.0, 1000.0}, 10.0, c_nHistoryForce), c_nHistoryForce);
  EXPECT_EQ(items[3].points, (std::vector<PaintPoint>{{250, 155}, {450, 280}, {650, 105}}));
  EXPECT_EQ(GetTexts(items), (Strings{"0", "5", "10", "15", "20", "2.50e+00", "-2.50e+00"}));
}

TEST(ViewerPlot, Scale) {
  const struct {
    double dMost, dLeast, dScale;
  } cases[] = {{4, -10, 12.5},
               {5, 2, 25},
               {-1, -5, 25},
               {1e-20, 0, 0},
               {0, -1e-20, 0},
               {1.25e-18, 0, 0},
               {1.3e-18, 0, 125 / 1.3e-18},
               {1e-21, -10, 12.5}};
  for (const auto& c : cases) EXPECT_DOUBLE_EQ(ChoosePlotScale(c.dMost, c.dLeast), c.dScale) << c.dMost;
}

TEST(ViewerPlot, FlatAndDamagedHistories) {
  constexpr double c_dNaN = std::numeric_limits<double>::quiet_NaN();
  constexpr double c_dInfinity = std::numeric_limits<double>::infinity();
  // Nothing to scale by: a flat line without extremes.
  const auto flat = Paint(MakeHistory({0.0, 1e-24}));
  EXPECT_EQ(flat[3].points, (std::vector<PaintPoint>{{250, 155}, {450, 155}, {650, 155}}));
  EXPECT_EQ(GetTexts(flat).size(), 5U);
  const auto damaged = Paint(MakeHistory({c_dNaN, 0.001, -c_dInfinity, 0.0}));
  EXPECT_EQ(damaged[3].points, (std::vector<PaintPoint>{{250, 155}, {350, 155}, {450, 30}, {550, 155}, {650, 155}}));
  EXPECT_EQ(Paint(MakeHistory({})).size(), 3U);
  EXPECT_EQ(GetTexts(Paint(MakeHistory({0.001}, c_dNaN)))[0], "");
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
    dialog.DoModal();
    CPaintRecorder recorder;
    dialog.Paint(recorder);
    EXPECT_TRUE(m_platform->GetScriptErrors().empty());
  }

  CTestPlatform m_platform;
  CFakeHistories m_histories;
};

TEST_F(ViewerDialog, RefreshShowsAndOutputWritesTheSelection) {
  Run({DialogStep::Ok()});
  EXPECT_FALSE(m_histories.m_plotted.back());
  Run({DialogStep::Click(c_nIdOutput), DialogStep::Type(c_nIdHistoryNode, "5"), DialogStep::Choose(c_nIdHistoryZ),
       DialogStep::Click(c_nIdRefresh), DialogStep::Ok()});
  EXPECT_EQ(m_histories.m_plotted.back(), (HistorySelection{false, 5, 2}));
  EXPECT_TRUE(m_platform.GetMessages().empty());
  m_histories.m_bWritable = false;
  Run({DialogStep::Choose(c_nIdElementHistory), DialogStep::Type(c_nIdHistoryElement, "3"),
       DialogStep::Click(c_nIdRefresh), DialogStep::Click(c_nIdOutput), DialogStep::Ok()});
  EXPECT_EQ(m_histories.m_plotted.back(), (HistorySelection{true, 3, 0}));
  EXPECT_EQ(m_histories.m_written, (std::vector<HistorySelection>{{false, 1, 0}, {true, 3, 0}}));
  EXPECT_EQ(m_platform.GetMessages(), Strings{"结果文件无法写入!"});
}

TEST_F(ViewerDialog, NumbersThatTheModelDoesNotHave) {
  const struct {
    int nRadio, nField;
    const char *strNumber, *strMessage;
  } cases[] = {{c_nIdNodeHistory, c_nIdHistoryNode, "6", "错误: 没有所求节点"},
               {c_nIdNodeHistory, c_nIdHistoryNode, "0", "错误: 没有所求节点"},
               {c_nIdElementHistory, c_nIdHistoryElement, "4", "错误: 没有所求单元"},
               {c_nIdElementHistory, c_nIdHistoryElement, "-1", "错误: 没有所求单元"}};
  for (const auto& c : cases) {
    m_platform->Clear();
    Run({DialogStep::Click(c_nIdRefresh), DialogStep::Choose(c.nRadio), DialogStep::Type(c.nField, c.strNumber),
         DialogStep::Click(c_nIdRefresh), DialogStep::Click(c_nIdOutput), DialogStep::Ok()});
    EXPECT_EQ(m_platform.GetMessages(), std::vector<std::string>(2, c.strMessage));
    EXPECT_EQ(m_histories.m_plotted.back(), (HistorySelection{false, 1, 0})) << "the picture stays";
  }
  EXPECT_TRUE(m_histories.m_written.empty());
}

TEST(ViewerTemplate, LeavesRoomForThePlot) {
  using enum ControlKind;
  ExpectControls(c_hisResultTemplate, 16006, "时程计算结果输出",
                 {{c_nIdNodeHistory, Radio, "节点位移(mm)"},
                  {c_nIdElementHistory, Radio, "单元轴力(kN)"},
                  {c_nIdHistoryNode, Edit, "节点号码"},
                  {c_nIdHistoryElement, Edit, "单元号码"},
                  {c_nIdRefresh, Button, "刷 新"},
                  {c_nIdOutput, Button, "输出到文件"}});
  for (const ControlTemplate& control : c_hisResultTemplate.controls) {
    EXPECT_LT(1.9 * (control.rect.nX + control.rect.nWidth), 170.0);  // pixels at most
  }
  EXPECT_GE(1.5 * c_hisResultTemplate.nWidth, 651.0);  // pixels at least
  EXPECT_GE(1.5 * c_hisResultTemplate.nHeight, 280.0);
}

}  // namespace
}  // namespace skyframe::test
