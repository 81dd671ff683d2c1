#include "skyframe/gui/TablePanel.h"

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>
#include <algorithm>
#include <memory>
#include <utility>

#include "SaveFile.h"
#include "ShapeTitle.h"
#include "skyframe/qt/Font.h"
#include "skyframe/results/ResultList.h"
#include "table_texts.h"

namespace skyframe::gui {

namespace {

constexpr int c_nShortestChoice = 8;  // characters that a list keeps in a narrow dock
constexpr int c_nCellMargin = 12;     // pixels beside a text

/// The mouse shows that the program is at work for the life of the object. Unlike the platform's it lets no events in:
/// tables are formed while others hear of the same change.
class CWaitCursor {
 public:
  CWaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  ~CWaitCursor() { QGuiApplication::restoreOverrideCursor(); }
  CWaitCursor(const CWaitCursor&) = delete;
  CWaitCursor& operator=(const CWaitCursor&) = delete;
};

}  // namespace

CTablePanel::CTablePanel(CDocument& document, QWidget* pParent)
    : QWidget(pParent), m_document(document), m_rows(m_model), m_footings(m_model, m_rows), m_layout(this) {
  MakeChoices();
  MakeViews();
  MakeLayout();
  m_document.resultsChanged.Connect([this] { Refresh(); });
  m_document.selectionChanged.Connect([this] { ShowSelection(); });
  m_document.OnLanguage([this] { Speak(); });
}

void CTablePanel::MakeChoices() {
  const auto name = [](QObject& object, const char* pszName) { object.setObjectName(QString::fromLatin1(pszName)); };
  name(m_results, "table_result");
  name(m_kinds, "table_kind");
  name(m_mode, "table_mode");
  name(m_filter, "table_filter");
  name(m_message, "table_message");
  name(m_anyway, "table_anyway");
  name(m_note, "table_note");
  for (QComboBox* const pList : {&m_results, &m_kinds}) {
    pList->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    pList->setMinimumContentsLength(c_nShortestChoice);
    pList->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  }
  m_mode.setMinimum(1);
  m_mode.setKeyboardTracking(false);
  m_filter.setClearButtonEnabled(true);
  m_message.setWordWrap(true);
  m_note.setWordWrap(true);
  connect(&m_results, &QComboBox::activated, this, [this] { OnResult(); });
  connect(&m_kinds, &QComboBox::activated, this, [this] { OnKind(); });
  connect(&m_mode, &QSpinBox::valueChanged, this, [this](int nMode) { OnMode(nMode); });
  connect(&m_filter, &QLineEdit::textChanged, this, [this] { OnFilter(); });
  connect(&m_anyway, &QPushButton::clicked, this, [this] {
    m_bAnyway = true;
    ShowTable();
  });
}

void CTablePanel::MakeViews() {
  m_table.setObjectName(QStringLiteral("table"));
  m_sums.setObjectName(QStringLiteral("table_sums"));
  m_table.setModel(&m_rows);
  m_sums.setModel(&m_footings);
  for (QTableView* const pView : {&m_table, &m_sums}) {
    pView->verticalHeader()->hide();
    pView->horizontalHeader()->setMinimumSectionSize(c_nCellMargin);
    pView->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    pView->setSelectionBehavior(QAbstractItemView::SelectRows);
    pView->setWordWrap(false);
    pView->setEditTriggers(QAbstractItemView::NoEditTriggers);
  }
  m_table.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  m_table.setSortingEnabled(true);
  m_table.horizontalHeader()->setSortIndicatorClearable(true);
  m_table.sortByColumn(-1, Qt::AscendingOrder);
  m_sums.horizontalHeader()->hide();
  m_sums.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  m_sums.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  m_sums.setSelectionMode(QAbstractItemView::NoSelection);
  m_sums.setFocusPolicy(Qt::NoFocus);
  connect(m_table.horizontalScrollBar(), &QScrollBar::valueChanged, m_sums.horizontalScrollBar(),
          &QScrollBar::setValue);
  connect(m_table.horizontalHeader(), &QHeaderView::sectionResized, this,
          [this](int nColumn, int, int nWidth) { m_sums.setColumnWidth(nColumn, nWidth); });
  connect(m_table.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { TakeSelection(); });
  m_copy.setShortcut(QKeySequence::Copy);
  m_copy.setShortcutContext(Qt::WidgetShortcut);
  m_table.addActions({&m_copy, &m_save});
  m_table.setContextMenuPolicy(Qt::ActionsContextMenu);
  connect(&m_copy, &QAction::triggered, this, [this] { Copy(); });
  connect(&m_save, &QAction::triggered, this, [this] { SaveCsv(); });
}

void CTablePanel::MakeLayout() {
  m_copy.setObjectName(QStringLiteral("table_copy"));
  m_save.setObjectName(QStringLiteral("table_csv"));
  m_copyButton.setDefaultAction(&m_copy);
  m_saveButton.setDefaultAction(&m_save);
  auto* const pChoices = new QHBoxLayout;
  for (QWidget* const pWidget : std::initializer_list<QWidget*>{&m_results, &m_kinds, &m_mode}) {
    pChoices->addWidget(pWidget);
  }
  auto* const pTools = new QHBoxLayout;
  for (QWidget* const pWidget : std::initializer_list<QWidget*>{&m_filter, &m_copyButton, &m_saveButton}) {
    pTools->addWidget(pWidget);
  }
  auto* const pSums = new QHBoxLayout;  // as wide as the columns above it
  pSums->addWidget(&m_sums);
  pSums->addSpacing(style()->pixelMetric(QStyle::PM_ScrollBarExtent));
  m_layout.addLayout(pChoices);
  m_layout.addLayout(pTools);
  m_layout.addWidget(&m_message);
  m_layout.addWidget(&m_anyway, 0, Qt::AlignLeft);
  m_layout.addWidget(&m_table, 1);
  m_layout.addLayout(pSums);
  m_layout.addWidget(&m_note);
}

void CTablePanel::Speak() {
  const auto tip = [](auto& widget, const host::Words& words) { widget.setToolTip(ToQt(Say(words))); };
  tip(m_kinds, texts::c_tableKindTip);
  tip(m_mode, texts::c_tableModeTip);
  tip(m_filter, texts::c_tableFilterTip);
  tip(m_table, texts::c_tableTip);
  tip(m_sums, texts::c_sumsTip);
  m_mode.setPrefix(ToQt(Say(texts::c_tableMode)));
  m_filter.setPlaceholderText(ToQt(Say(texts::c_tableFilter)));
  m_copy.setText(ToQt(Say(texts::c_tableCopy)));
  tip(m_copy, texts::c_tableCopyTip);
  m_save.setText(ToQt(Say(texts::c_tableSave)));
  tip(m_save, texts::c_tableSaveTip);
  m_anyway.setText(ToQt(Say(texts::c_tableAnyway)));
  tip(m_anyway, texts::c_tableAnywayTip);
  FillResults();
  ShowTable();
}

bool CTablePanel::IsOutdated() const { return m_document.IsOutdated(GetSuffix(m_choice.result)); }

void CTablePanel::showEvent(QShowEvent* pEvent) {
  QWidget::showEvent(pEvent);
  if (m_bStale) ShowTable();
}

void CTablePanel::changeEvent(QEvent* pEvent) {
  QWidget::changeEvent(pEvent);
  if (pEvent->type() == QEvent::FontChange) FitColumns();
}

void CTablePanel::Refresh() {
  m_bStale = true;
  m_bAnyway = false;
  FillResults();
  if (isVisible()) ShowTable();
}

void CTablePanel::FillResults() {
  m_results.clear();
  for (const host::ResultKind result : host::c_resultKinds) {
    if (!m_document.HasResult(result)) continue;
    const std::string strMark = FormResultMark(m_document, GetSuffix(result));
    m_results.addItem(ToQt(std::string(GetName(result)) + strMark), static_cast<int>(result));
    m_results.setItemData(m_results.count() - 1, m_results.itemText(m_results.count() - 1), Qt::ToolTipRole);
  }
  const int nPlace = m_results.findData(static_cast<int>(m_choice.result));
  if (m_results.count() > 0) m_results.setCurrentIndex(std::max(nPlace, 0));
  if (nPlace < 0 && m_results.count() > 0)
    m_choice.result = static_cast<host::ResultKind>(m_results.itemData(0).toInt());
  FillKinds();
  ShowResultTip();
}

/// A list in a narrow dock cuts its text.
void CTablePanel::ShowResultTip() {
  m_results.setToolTip(ToQt(Say(texts::c_tableResultTip)) + QLatin1Char('\n') + m_results.currentText());
}

void CTablePanel::FillKinds() {
  m_kinds.clear();
  if (m_results.count() == 0) return;
  const auto kinds = ListTables(m_choice.result);
  if (std::ranges::find(kinds, m_choice.kind) == kinds.end()) m_choice.kind = kinds.front();
  for (const host::TableKind kind : kinds) {
    m_kinds.addItem(ToQt(GetName(kind)), static_cast<int>(kind));
    if (kind == m_choice.kind) m_kinds.setCurrentIndex(m_kinds.count() - 1);
  }
}

void CTablePanel::OnResult() {
  m_choice.result = static_cast<host::ResultKind>(m_results.currentData().toInt());
  m_bAnyway = false;
  ShowResultTip();
  FillKinds();
  OnKind();
}

void CTablePanel::OnKind() {
  m_choice.kind = static_cast<host::TableKind>(m_kinds.currentData().toInt());
  m_table.sortByColumn(-1, Qt::AscendingOrder);
  ShowTable();
}

void CTablePanel::OnMode(int nMode) {
  m_choice.nMode = nMode;
  ShowTable();
}

void CTablePanel::OnFilter() {
  {
    const QScopedValueRollback selecting(m_bSelecting, true);  // hidden rows stay selected in the document
    m_rows.SetFilter(host::CRowFilter(m_filter.text().toStdString()));
  }
  m_footings.Refresh();
  ShowMessage();
  ShowSelection();
}

host::Reading<host::Table> CTablePanel::FormTable() {
  const host::Job& job = m_document.GetJob();
  const auto form = [&](const auto* pFile, auto... more) {
    if (pFile != nullptr) return host::FormTable(job, *pFile, m_choice.kind, more...);
    const host::Advice* const pError = m_document.FindError(GetSuffix(m_choice.result));
    host::Reading<host::Table> nothing;
    nothing.strError = pError != nullptr ? Say(texts::c_tableFailed, {pError->strText}) : Say(texts::c_tableDamaged);
    return nothing;
  };
  const host::ModeResultFile* pModes = nullptr;
  std::optional<host::ModalMasses> masses;
  switch (m_choice.result) {
    case host::ResultKind::Modes:
      pModes = m_document.GetModes();
      if (pModes != nullptr && m_choice.kind == host::TableKind::Modes) {
        masses = host::FindModalMasses(job, m_document.GetJobPath(), *pModes);
      }
      return form(pModes, m_choice.nMode, masses);
    case host::ResultKind::Spectrum:
      return form(m_document.GetSpectrum());
    case host::ResultKind::History:
      return form(m_document.GetHistories());
    default:
      return form(m_document.GetStatic(m_choice.result == host::ResultKind::Nonlinear));
  }
}

void CTablePanel::ShowTable() {
  m_bStale = !isVisible();
  if (m_bStale) return;
  const CWaitCursor wait;
  host::Reading<host::Table> table;
  if (m_results.count() > 0 && (m_bAnyway || !IsOutdated())) {
    if (m_choice.IsOfOneMode() && m_document.GetModes() != nullptr) {
      const QSignalBlocker blocker(m_mode);
      m_mode.setMaximum(static_cast<int>(m_document.GetModes()->omega.size()));
      m_choice.nMode = m_mode.value();
    }
    table = FormTable();
  }
  m_strError = table.strError;
  {
    const QScopedValueRollback selecting(m_bSelecting, true);
    m_model.SetTable(table ? *std::move(table) : host::Table());
  }
  m_footings.Refresh();
  ShowMessage();
  FitColumns();
  ShowSelection();
}

void CTablePanel::ShowMessage() {
  const bool bResult = m_results.count() > 0;
  const bool bOutdated = bResult && IsOutdated();
  const bool bTable = m_model.columnCount() > 0;
  std::string strMessage = m_strError;
  if (bOutdated && m_strError.empty()) strMessage = Say(texts::c_tableOutdated);
  if (!bResult) strMessage = Say(texts::c_tableNoResult);
  m_message.setText(ToQt(strMessage));
  m_message.setVisible(!strMessage.empty());
  m_message.setStyleSheet(bResult ? QStringLiteral("color: darkred") : QString());
  m_anyway.setVisible(bOutdated && !m_bAnyway);
  m_mode.setVisible(bResult && m_choice.IsOfOneMode());
  for (QWidget* const pWidget : std::initializer_list<QWidget*>{&m_filter, &m_table, &m_note})
    pWidget->setEnabled(bTable);
  for (QAction* const pAction : {&m_copy, &m_save}) pAction->setEnabled(bTable);
  std::string strNote;
  if (bTable) {
    strNote = Say(texts::c_tableRows, {std::to_string(m_rows.rowCount()), std::to_string(m_model.rowCount())}) + "  " +
              std::string(Say(m_model.GetTable().note));
  }
  m_note.setText(ToQt(strNote));
}

void CTablePanel::FitColumns() {
  QFont font = m_table.font();
  font.setStyleHint(QFont::SansSerif);  // with the application's own font the headings would keep their first one
  m_table.horizontalHeader()->setFont(font);
  const QFontMetrics cells(m_table.font());
  const QFontMetrics headings(m_table.horizontalHeader()->font());
  for (int c = 0; c < m_model.columnCount(); ++c) {
    const QString strHeading = m_model.headerData(c, Qt::Horizontal, Qt::DisplayRole).toString();
    const int nMark = style()->pixelMetric(QStyle::PM_HeaderMarkSize) + style()->pixelMetric(QStyle::PM_HeaderMargin);
    int nWidth = std::max(headings.horizontalAdvance(strHeading) + nMark,
                          cells.horizontalAdvance(ToQt(m_model.GetFormat(c).GetWidest())));
    for (int r = 0; r < m_footings.rowCount(); ++r) {
      nWidth = std::max(nWidth, cells.horizontalAdvance(m_footings.index(r, c).data().toString()));
    }
    m_table.setColumnWidth(c, nWidth + c_nCellMargin);
  }
  FitFootings();
}

void CTablePanel::FitFootings() {
  const int nRow = QFontMetrics(m_table.font()).height() + c_nCellMargin / 2;
  for (QTableView* const pView : {&m_table, &m_sums}) pView->verticalHeader()->setDefaultSectionSize(nRow);
  m_sums.setFixedHeight(nRow * m_footings.rowCount() + 2 * m_sums.frameWidth());
  m_sums.setVisible(m_footings.rowCount() > 0);
  for (int c = 0; c < m_footings.columnCount(); ++c) m_sums.setColumnWidth(c, m_table.columnWidth(c));
}

void CTablePanel::Copy() {
  std::vector<std::size_t> rows;
  for (int r = 0; r < m_rows.rowCount(); ++r) {
    if (m_table.selectionModel()->isRowSelected(r)) rows.push_back(m_rows.GetRow(r));
  }
  if (rows.empty()) rows = m_rows.ListRows();
  QGuiApplication::clipboard()->setText(ToQt(host::FormatTabbed(m_model.GetTable(), rows)));
}

void CTablePanel::SaveCsv() {
  constexpr FileKind c_kind = {texts::c_tableSaveTitle, texts::c_tableSaveFilter, "csv"};
  const std::string strName = m_document.GetJobPath() + "_" +
                              std::string(host::c_strResultKinds[static_cast<std::size_t>(m_choice.result)]) + "_" +
                              std::string(host::c_strTableKinds[static_cast<std::size_t>(m_choice.kind)]) + ".csv";
  const QString strFile = AskForFile(this, c_kind, ToQt(strName));
  if (strFile.isEmpty()) return;
  WriteText(strFile, host::FormatCsv(m_model.GetTable(), m_rows.ListRows()), texts::c_tableSaveFailed);
}

void CTablePanel::TakeSelection() {
  const host::Table& table = m_model.GetTable();
  if (m_bSelecting || table.subject == host::RowSubject::None) return;
  Selection selection;
  std::set<int>& chosen = table.subject == host::RowSubject::Node ? selection.nodes : selection.elements;
  for (const QItemSelectionRange& range : m_table.selectionModel()->selection()) {
    for (int r = range.top(); r <= range.bottom(); ++r) chosen.insert(table.subjects[m_rows.GetRow(r)]);
  }
  const QScopedValueRollback selecting(m_bSelecting, true);
  m_document.Select(std::move(selection));
}

void CTablePanel::ShowSelection() {
  const host::Table& table = m_model.GetTable();
  if (m_bSelecting || !isVisible() || table.subject == host::RowSubject::None) return;
  const QScopedValueRollback selecting(m_bSelecting, true);
  const Selection& selection = m_document.GetSelection();
  const std::set<int>& chosen = table.subject == host::RowSubject::Node ? selection.nodes : selection.elements;
  QItemSelection rows;
  int nFirst = -1;  // of a run of chosen rows
  for (int r = 0; r <= m_rows.rowCount(); ++r) {
    const bool bChosen = !chosen.empty() && r < m_rows.rowCount() && chosen.contains(table.subjects[m_rows.GetRow(r)]);
    if (bChosen && nFirst < 0) nFirst = r;
    if (!bChosen && nFirst >= 0) rows.append({m_rows.index(nFirst, 0), m_rows.index(r - 1, m_rows.columnCount() - 1)});
    if (!bChosen) nFirst = -1;
  }
  m_table.selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
  if (!rows.isEmpty()) m_table.scrollTo(rows.front().topLeft());
}

}  // namespace skyframe::gui
