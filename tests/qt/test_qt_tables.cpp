// The panel with the tables of results: order, filter, selection in both ways, results of another model.

#include <QTest>
#include <algorithm>

#include "CommandFolder.h"
#include "WindowTest.h"

namespace skyframe::gui {
namespace {

class TablePanel : public ::testing::Test {
 protected:
  TablePanel() : m_window(m_settings.filePath(QStringLiteral("settings.ini"))) {
    host::Job job = host::GenerateBuilding({});
    host::StaticJob analysis;
    analysis.bNonlinear = false;
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

TEST_F(TablePanel, SumsAndCopiesTheRowsShown) {
  ChooseKind(host::TableKind::Reactions);
  constexpr int c_nForceZ = 3;
  ASSERT_GT(GetRows()->rowCount(), 4);
  ClickHeading(c_nForceZ);
  Find<QLineEdit>("table_filter")->setText(GetCell(0, 0) + QStringLiteral(",") + GetCell(1, 0));
  ASSERT_EQ(GetRows()->rowCount(), 2);
  EXPECT_NEAR(Find<QTableView>("table_sums")->model()->index(0, c_nForceZ).data().toDouble(),
              GetCell(0, c_nForceZ).toDouble() + GetCell(1, c_nForceZ).toDouble(), 0.01);
  Find<QAction>("table_copy")->trigger();
  const QStringList lines = QGuiApplication::clipboard()->text().split(u'\n', Qt::SkipEmptyParts);
  ASSERT_EQ(lines.size(), 3);
  EXPECT_EQ(lines[1].section(u'\t', 0, 0), GetCell(0, 0));
}

TEST_F(TablePanel, EveryColumnOfEveryTableSortsBothWaysAndBack) {
  const auto* const pKinds = Find<QComboBox>("table_kind");
  const auto read = [this](int nColumn) {
    std::vector<QString> cells;
    for (int r = 0; r < GetRows()->rowCount(); ++r) cells.push_back(GetCell(r, nColumn));
    return cells;
  };
  const auto isNumber = [](const QString& strCell) {
    bool bNumber = false;
    (void)strCell.toDouble(&bNumber);
    return bNumber;
  };
  // Numbers in order, what is none behind them in both orders; a column of texts by its letters.
  const auto isSorted = [&isNumber](const std::vector<QString>& cells, double dSign) {
    const auto isAfter = [&](const QString& one, const QString& other) {
      if (isNumber(one) != isNumber(other)) return isNumber(other);
      if (isNumber(one)) return dSign * one.toDouble() > dSign * other.toDouble();
      return dSign * one.toUtf8().compare(other.toUtf8()) > 0;
    };
    return std::ranges::adjacent_find(cells, isAfter) == cells.end();
  };
  EXPECT_GE(pKinds->count(), 4);
  for (int k = 0; k < pKinds->count(); ++k) {
    ChooseKind(static_cast<host::TableKind>(pKinds->itemData(k).toInt()));
    ASSERT_GT(GetRows()->rowCount(), 2) << k;
    for (int c = 0; c < GetRows()->columnCount(); ++c) {
      SCOPED_TRACE(pKinds->itemText(k).toStdString() + ", column " + std::to_string(c));
      const std::vector<QString> before = read(0), values = read(c);
      auto* const pTable = Find<QTableView>("table");
      pTable->scrollTo(GetRows()->index(0, c));
      ClickHeading(c);
      std::vector<QString> up = read(c), sorted = values;
      EXPECT_TRUE(isSorted(up, 1.0));
      ClickHeading(c);
      std::vector<QString> down = read(c);
      EXPECT_TRUE(isSorted(down, -1.0));
      for (std::vector<QString>* const pAll : {&up, &down, &sorted}) std::ranges::sort(*pAll);
      EXPECT_TRUE(up == sorted && down == sorted) << "no cell is lost";
      ClickHeading(c);
      EXPECT_EQ(read(0), before) << "the order of the file";
    }
  }
}

TEST_F(TablePanel, SavesTheRowsShownWithAllTheirDigits) {
  ChooseKind(host::TableKind::Displacements);
  ClickHeading(1);
  Find<QLineEdit>("table_filter")->setText(QStringLiteral("5-9"));
  ASSERT_EQ(GetRows()->rowCount(), 5);
  const QString strFile = m_settings.filePath(QStringLiteral("moved.csv"));
  Answer<QFileDialog>(
      [this] { Find<QAction>("table_csv")->trigger(); },
      [&strFile](QFileDialog& dialog) {
        EXPECT_TRUE(dialog.selectedFiles().value(0).endsWith(QStringLiteral("_linear_displacements.csv")));
        dialog.selectFile(strFile);
        QMetaObject::invokeMethod(&dialog, "accept");
      });
  QFile file(strFile);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QStringList lines = QString::fromUtf8(file.readAll()).split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
  ASSERT_GE(lines.size(), 6);
  const host::StaticResultFile& result = *m_window.GetDocument().GetStatic(false);
  for (int r = 0; r < 5; ++r) {
    const QStringList fields = lines[r + 1].split(u',');
    EXPECT_EQ(fields[0], GetCell(r, 0)) << "in the order shown";
    const NodeValues& u = result.displacements[fields[0].toUInt() - 1];
    for (int d = 0; d < 3; ++d)
      EXPECT_NEAR(fields[d + 1].toDouble(), 1e3 * u[static_cast<std::size_t>(d)], 1e-8) << "mm";
  }
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
