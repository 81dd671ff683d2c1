// The histories dock: curves and their values, units, zoom, the step it shares with the window, the table saved.

#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <cmath>

#include "WindowTest.h"
#include "skyframe/gui/HistoryCurves.h"
#include "skyframe/gui/HistoryPlayer.h"
#include "skyframe/job/Text.h"
#include "skyframe/results/Histories.h"
#include "skyframe/results/HistoryResultFile.h"

namespace skyframe::gui {
namespace {

/// The frame shaken for so many seconds.
host::Job MakeQuake(double dDuration) {
  host::Job job = MakeShakenFrame();
  job.analyses = {job.analyses[2], job.analyses[4]};
  std::get<host::NewmarkJob>(job.analyses[1]).earthquake->dDuration = dDuration;
  return job;
}

class HistoryDock : public WindowTest {
 protected:
  HistoryDock() { m_window.show(); }

  void Run(const char* pszFile, const host::Job& job) {
    ASSERT_TRUE(m_window.OpenJob(WriteJob(pszFile, job)));
    Trigger(m_window, "run_all");
    LookAt();
  }
  /// The dock in front, its histories read.
  void LookAt() {
    Find<QDockWidget>(m_window, "history_dock")->raise();
    QTest::qWait(20);  // it looks at them a little later
    ASSERT_TRUE(QTest::qWaitFor([this] { return GetList().count() > 0; }));
  }
  QListWidget& GetList() const { return *Find<QListWidget>(m_window, "history_curves"); }
  QString GetRow(int nRow) const { return GetList().item(nRow)->text(); }
  void Add(CurveKind kind, int nNumber = 1) const {
    Find<QComboBox>(m_window, "history_kind")->setCurrentIndex(static_cast<int>(kind));
    Find<QSpinBox>(m_window, "history_number")->setValue(nNumber);
    Find<QPushButton>(m_window, "history_add")->click();
  }
  void GoTo(int nStep) const { Find<QSlider>(m_window, "history_slider")->setValue(nStep); }
  std::vector<CHistoryChart*> ListCharts() const {
    std::vector<CHistoryChart*> charts;
    for (QWidget* const pWidget : m_window.findChildren<QWidget*>(QStringLiteral("history_chart"))) {
      if (pWidget->isVisible()) charts.push_back(dynamic_cast<CHistoryChart*>(pWidget));
    }
    return charts;
  }

  CMainWindow m_window{Settings()};
};

TEST_F(HistoryDock, TellsTheValuesOfTheFile) {
  Run("quake.json", MakeQuake(4));
  CDocument& document = m_window.GetDocument();
  const auto file = host::ReadHistoryFile(document.GetJobPath() + "_HisTime.txt", {8, 8});
  ASSERT_TRUE(file) << file.strError;
  ASSERT_EQ(file->nSteps, 200);
  Add(CurveKind::AxialForce, 3);
  Add(CurveKind::Z, 6);
  Add(CurveKind::Z, 6);
  EXPECT_EQ(GetList().count(), 3) << "one of them twice";
  EXPECT_TRUE(GetRow(0).startsWith(QStringLiteral("节点"))) << "the largest, which the dock begins with";
  for (const int nStep : {0, 57, 199}) {
    GoTo(nStep);
    const auto k = static_cast<std::size_t>(nStep);
    EXPECT_EQ(GetRow(1).toStdString(), host::Format("节点 6，Z   %.4g mm", 1e3 * file->displacements[5][2][k]));
    EXPECT_EQ(GetRow(2).toStdString(), host::Format("单元 3，N   %.4g kN", 1e-3 * file->forces[2][k]));
    EXPECT_EQ(Find<QLabel>(m_window, "history_time")->text().toStdString(),
              host::Format("t = %.6g / 4 s", 0.02 * (nStep + 1)));
  }
  Find<QComboBox>(m_window, "history_length_unit")->setCurrentIndex(2);
  Find<QComboBox>(m_window, "history_force_unit")->setCurrentIndex(1);
  EXPECT_EQ(GetRow(1).toStdString(), host::Format("节点 6，Z   %.4g m", file->displacements[5][2][199]));
  EXPECT_EQ(GetRow(2).toStdString(), host::Format("单元 3，N   %.4g N", file->forces[2][199]));
  // What the charts draw, and where it is largest.
  for (const CHistoryChart* const pChart : ListCharts()) {
    const host::HistoryPicture& picture = pChart->GetPicture();
    const bool bForce = picture.unit.strName == "N";
    EXPECT_EQ(picture.curves.size(), bForce ? 1U : 2U);
    const std::vector<double>& expected = bForce ? file->forces[2] : file->displacements[5][2];
    for (std::size_t k = 0; k < expected.size(); ++k)
      EXPECT_NEAR(picture.unit.dFactor * picture.curves.back().values[k], expected[k],
                  1e-5 * std::abs(expected[k]) + 1e-15);
  }
  const CurveId largest = FindLargestCurve(*document.GetHistories());
  double dLargest = 0.0;
  for (const auto& node : file->displacements) {
    for (const auto& values : node) {
      for (const double d : values) dLargest = std::max(dLargest, std::abs(d));
    }
  }
  const auto& curve =
      file->displacements[static_cast<std::size_t>(largest.nIndex)][static_cast<std::size_t>(largest.kind)];
  EXPECT_EQ(std::abs(*std::ranges::max_element(curve, {}, [](double d) { return std::abs(d); })), dLargest);
}

TEST_F(HistoryDock, CurvesFollowTheSelectionAndSelect) {
  Run("quake.json", MakeQuake(1));
  CDocument& document = m_window.GetDocument();
  document.Select({{4, 5}, {2}});
  Find<QComboBox>(m_window, "history_kind")->setCurrentIndex(static_cast<int>(CurveKind::Y));
  auto& addSelected = *Find<QPushButton>(m_window, "history_add_selected");
  addSelected.click();
  ASSERT_EQ(GetList().count(), 4);
  for (const auto& [nRow, selection] :
       {std::pair(1, Selection{{4}, {}}), {2, Selection{{5}, {}}}, {3, Selection{{}, {2}}}}) {
    GetList().scrollToItem(GetList().item(nRow));
    QTest::mouseClick(GetList().viewport(), Qt::LeftButton, {},
                      GetList().visualItemRect(GetList().item(nRow)).center());
    EXPECT_EQ(document.GetSelection(), selection) << GetRow(nRow).toStdString();
  }
  GetList().setCurrentRow(1);
  Find<QPushButton>(m_window, "history_remove")->click();
  ASSERT_EQ(GetList().count(), 3);
  EXPECT_TRUE(GetRow(1).startsWith(QStringLiteral("节点 6，Y")));
  document.Select({});
  EXPECT_FALSE(addSelected.isEnabled());
  // No more than can be told apart.
  for (const CurveKind kind : {CurveKind::X, CurveKind::Y, CurveKind::Z}) {
    for (int n = 1; n <= 8; ++n) Add(kind, n);
  }
  EXPECT_EQ(GetList().count(), 24);
  EXPECT_TRUE(Find<QLabel>(m_window, "history_state")->text().contains(QStringLiteral("24")));
}

TEST_F(HistoryDock, ZoomHoldsForOneJobAndTheStepForTheWholeWindow) {
  host::Job job = MakeQuake(20);
  Run("long.json", job);
  CHistoryChart& chart = *ListCharts().at(0);
  const auto wheel = [&chart](int nNotches, Qt::KeyboardModifiers keys) {
    const QPointF at(0.7 * chart.width(), 0.5 * chart.height());
    QWheelEvent event(at, chart.mapToGlobal(at), {}, {0, 120 * nNotches}, Qt::NoButton, keys, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&chart, &event);
  };
  wheel(6, {});
  ASSERT_TRUE(chart.GetPicture().time);
  EXPECT_NEAR(chart.GetPicture().time->dHigh - chart.GetPicture().time->dLow, 20.0 / std::pow(1.25, 6), 1e-6);
  EXPECT_GT(chart.GetPicture().time->dLow, 4.0);
  EXPECT_FALSE(chart.GetPicture().values);
  wheel(2, Qt::ControlModifier);
  EXPECT_TRUE(chart.GetPicture().values);
  wheel(-9, {});
  EXPECT_FALSE(chart.GetPicture().time) << "all again";
  wheel(6, {});
  Find<QComboBox>(m_window, "history_length_unit")->setCurrentIndex(2);
  EXPECT_TRUE(chart.GetPicture().time && !chart.GetPicture().values) << "values have another unit";

  GoTo(300);
  const QSignalSpy filled(GetList().model(), &QAbstractItemModel::rowsInserted);
  m_window.GetDocument().RefreshResults();
  ASSERT_TRUE(QTest::qWaitFor([&filled] { return !filled.isEmpty(); }));
  EXPECT_EQ(m_window.GetDocument().GetStep(), 300) << "the same histories";
  m_window.GetDocument().SetStep(20);
  EXPECT_EQ(Find<QSlider>(m_window, "history_slider")->value(), 20);
  for (const auto& [pszButton, nStep] :
       {std::pair("history_on", 21), {"history_back", 20}, {"history_to_start", 0}, {"history_back", 0}}) {
    Find<QToolButton>(m_window, pszButton)->click();
    EXPECT_EQ(m_window.GetDocument().GetStep(), nStep) << pszButton;
  }
  GoTo(900);
  Run("short.json", MakeQuake(1));
  EXPECT_EQ(m_window.GetDocument().GetStep(), 0) << "another job begins at its start";
  EXPECT_FALSE(ListCharts().at(0)->GetPicture().time) << "and is seen whole: it ends before the range";
  wheel(2, {});
  Run("short.json", MakeQuake(0.5));
  EXPECT_FALSE(ListCharts().at(0)->GetPicture().time) << "run again, it ends sooner";
}

/// Lines of numbers below the heading.
std::vector<std::vector<double>> ReadNumbers(const std::string& strCsv) {
  std::vector<std::vector<double>> rows;
  std::istringstream text(strCsv.substr(strCsv.find('\n') + 1));
  for (std::string strLine; std::getline(text, strLine);) {
    std::vector<double>& row = rows.emplace_back();
    for (const QString& strField : QString::fromStdString(strLine).trimmed().split(u','))
      row.push_back(strField.toDouble());
  }
  return rows;
}

TEST(HistoryCsv, HoldsEveryNumberInItsUnit) {
  HistorySet history;
  history.dTimeStep = 0.125;
  history.Allocate(3, 2, 1);
  const double values[] = {1.0 / 3.0, -2e-9, 1e250};
  for (int k = 0; k < 3; ++k) {
    history.values[1][k][1] = values[k];
    history.values[c_nHistoryForce][k][0] = -7e3 * (k + 1);
  }
  history.baseShear = CHistoryTable(3, 3);
  history.baseShear[1][2] = 12345.678;
  host::Job job = MakeCantilever();
  job.nodes[1].nId = 99;
  const std::vector<CurveId> curves = {{CurveKind::Y, 1}, {CurveKind::AxialForce, 0}, {CurveKind::ShearZ}};
  const host::CLanguageScope english(host::Language::English);
  for (const auto& [nLength, nForce] : {std::pair(0U, 0U), {1U, 1U}, {2U, 0U}}) {
    const CurveUnits units = {host::c_displacementUnits[nLength], host::c_forceUnits[nForce]};
    const std::string strCsv = FormCsv(job, history, curves, units);
    const std::string strLength(units.length.strName), strForce(units.force.strName);
    EXPECT_EQ(strCsv.substr(0, strCsv.find('\r')), "\xEF\xBB\xBFt (s),\"node 99, Y (" + strLength +
                                                       ")\",\"element 1, N (" + strForce + ")\",\"base shear, Z (" +
                                                       strForce + ")\"");
    const auto rows = ReadNumbers(strCsv);
    ASSERT_EQ(rows.size(), 3U);
    for (int k = 0; k < 3; ++k) {
      const auto& row = rows[static_cast<std::size_t>(k)];
      ASSERT_EQ(row.size(), 4U);
      EXPECT_EQ(row[0], 0.125 * (k + 1));
      EXPECT_NEAR(row[1] / (values[k] * units.length.dFactor), 1.0, 1e-11) << "too large to be drawn, but a number";
      EXPECT_NEAR(row[2], -7e3 * (k + 1) * units.force.dFactor, 1e-9);
      EXPECT_NEAR(row[3], k == 1 ? 12345.678 * units.force.dFactor : 0.0, 1e-7);
    }
  }
  const auto picture = FormPicture(job, history, CurveGroup::Displacement, {curves[0]}, {});
  EXPECT_TRUE(std::isnan(picture.curves[0].values[2]) && picture.curves[0].values[0] == values[0]);
  EXPECT_FALSE(HasCurve(history, {CurveKind::X, 2}) || HasCurve(history, {CurveKind::AxialForce, 1}));
  history.dTimeStep = 0.0;
  EXPECT_FALSE(CanDraw(history));
}

TEST_F(HistoryDock, SavesTheCurvesThatAreShown) {
  Run("quake.json", MakeQuake(2));
  Add(CurveKind::ShearX);
  const QString strFile = Path("curves out.csv");
  Answer<QFileDialog>([this] { Find<QPushButton>(m_window, "history_save")->click(); },
                      [&strFile](QFileDialog& dialog) {
                        EXPECT_EQ(QFileInfo(dialog.selectedFiles().value(0)).fileName(),
                                  QStringLiteral("quake_curves.csv"));
                        dialog.selectFile(strFile);
                        QMetaObject::invokeMethod(&dialog, "accept");
                      });
  QFile file(strFile);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const auto rows = ReadNumbers(file.readAll().toStdString());
  ASSERT_EQ(rows.size(), 100U);
  const HistorySet& history = *m_window.GetDocument().GetHistories();
  for (const int k : {0, 63, 99})
    EXPECT_NEAR(rows[static_cast<std::size_t>(k)].back(), 1e-3 * history.baseShear[k][0],
                1e-9 * std::abs(history.baseShear[k][0]));
}

}  // namespace
}  // namespace skyframe::gui
