// The panel with the tables of results: order, filter, selection in both ways, results of another model.

#include <gtest/gtest.h>

#include <QTest>
#include <QtWidgets>

#include "CommandFolder.h"
#include "skyframe/generate/Generate.h"
#include "skyframe/gui/MainWindow.h"
#include "skyframe/job/JobFile.h"

namespace skyframe::gui {
namespace {

class TablePanel : public ::testing::Test {
 protected:
  TablePanel() : m_window(m_settings.filePath(QStringLiteral("settings.ini"))) {
    host::Job job = host::GenerateBuilding({});
    host::StaticJob analysis;
    analysis.combination = {{0, 1.0}, {2, 1.0}};
    job.analyses = {analysis};
    m_folder.Write(".json", host::FormatJob(job));
    EXPECT_EQ(m_folder.Solve().nStatus, 0);
    m_window.OpenJob(QString::fromStdString(m_folder.GetPath(".json")));
    m_window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_window));
  }
  ~TablePanel() override { QApplication::setFont(m_font); }

  template <class Widget>
  Widget* Find(const char* pszName) const {
    return m_window.findChild<Widget*>(QString::fromLatin1(pszName));
  }
  QAbstractItemModel* GetRows() const { return Find<QTableView>("table")->model(); }
  QString GetCell(int nRow, int nColumn) const { return GetRows()->index(nRow, nColumn).data().toString(); }
  void ChooseKind(host::TableKind kind) const {
    auto* const pList = Find<QComboBox>("table_kind");
    pList->setCurrentIndex(pList->findData(static_cast<int>(kind)));
    Q_EMIT pList->activated(pList->currentIndex());
  }
  void ClickHeading(int nColumn) const {
    QHeaderView* const pHeading = Find<QTableView>("table")->horizontalHeader();
    QTest::mouseClick(pHeading->viewport(), Qt::LeftButton, {},
                      {pHeading->sectionViewportPosition(nColumn) + 10, pHeading->height() / 2});
  }

  QFont m_font = QApplication::font();
  QTemporaryDir m_settings;
  test::CCommandFolder m_folder;
  CMainWindow m_window;
};

TEST_F(TablePanel, SortsByNumberAndSumsTheRowsShown) {
  ChooseKind(host::TableKind::Reactions);
  constexpr int c_nForceZ = 3;
  const int nRows = GetRows()->rowCount();
  ASSERT_GT(nRows, 4);
  ClickHeading(c_nForceZ);
  for (int r = 1; r < nRows; ++r) EXPECT_LE(GetCell(r - 1, c_nForceZ).toDouble(), GetCell(r, c_nForceZ).toDouble());
  Find<QLineEdit>("table_filter")->setText(GetCell(0, 0) + QStringLiteral(",") + GetCell(1, 0));
  ASSERT_EQ(GetRows()->rowCount(), 2);
  EXPECT_NEAR(Find<QTableView>("table_sums")->model()->index(0, c_nForceZ).data().toDouble(),
              GetCell(0, c_nForceZ).toDouble() + GetCell(1, c_nForceZ).toDouble(), 0.01);
  Find<QAction>("table_copy")->trigger();
  const QStringList lines = QGuiApplication::clipboard()->text().split(u'\n', Qt::SkipEmptyParts);
  ASSERT_EQ(lines.size(), 3);
  EXPECT_EQ(lines[1].section(u'\t', 0, 0), GetCell(0, 0));
}

TEST_F(TablePanel, RowsAndSelectionOfTheDocumentGoTogether) {
  CDocument& document = m_window.GetDocument();
  int nNotices = 0;
  document.selectionChanged.Connect([&nNotices] { ++nNotices; });
  ChooseKind(host::TableKind::Forces);
  ClickHeading(3);
  const int nElement = GetCell(5, 0).toInt() - 1;
  auto* const pTable = Find<QTableView>("table");
  pTable->selectRow(5);
  EXPECT_EQ(document.GetSelection(), (Selection{{}, {nElement}}));
  EXPECT_EQ(nNotices, 1);
  EXPECT_EQ(pTable->selectionModel()->selectedRows().size(), 1) << "the other end stays as it was";

  document.Select({{}, {7, 9}});
  QStringList rows;
  for (const QModelIndex& index : pTable->selectionModel()->selectedRows()) rows << index.data().toString();
  rows.sort();
  EXPECT_EQ(rows, QStringList({QStringLiteral("10"), QStringLiteral("10"), QStringLiteral("8"), QStringLiteral("8")}));
  Find<QLineEdit>("table_filter")->setText(QStringLiteral("10"));
  EXPECT_EQ(document.GetSelection().elements, (std::set<int>{7, 9})) << "what a filter hides stays chosen";
  EXPECT_EQ(nNotices, 2);
}

TEST_F(TablePanel, ResultsOfAnotherModelAreShownOnRequest) {
  ASSERT_GT(GetRows()->rowCount(), 0);
  auto* const pAnyway = Find<QPushButton>("table_anyway");
  EXPECT_FALSE(pAnyway->isVisible());
  host::Job job = m_window.GetDocument().GetJob();
  job.loads.front().dValue *= 2.0;
  m_folder.Write(".json", host::FormatJob(job));
  m_window.OpenJob(m_window.GetDocument().GetFile());
  EXPECT_EQ(GetRows()->rowCount(), 0);
  ASSERT_TRUE(pAnyway->isVisible());
  pAnyway->click();
  EXPECT_EQ(GetRows()->rowCount(), static_cast<int>(job.nodes.size()));
  EXPECT_FALSE(Find<QLabel>("table_message")->text().isEmpty()) << "the warning stays";
}

}  // namespace
}  // namespace skyframe::gui
