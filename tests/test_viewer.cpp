// Picture of the result viewer, call by call.

#include "TestPlatform.h"
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
                  {Text, c_black, c_white, {{250, 283}}, "0"},
                  {Text, c_black, c_white, {{350, 283}}, "0"},
                  {Text, c_black, c_white, {{450, 283}}, "0"},
                  {Text, c_black, c_white, {{550, 283}}, "1"},
                  {Text, c_black, c_white, {{650, 283}}, "1"},
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

}  // namespace
}  // namespace skyframe::test
