#include "skyframe/gui/TableModel.h"

#include <cmath>
#include <utility>

#include "skyframe/qt/Font.h"

namespace skyframe::gui {

namespace {

QVariant GetAlignment(const host::TableColumn& column) {
  const bool bText = column.kind == host::ColumnKind::Text;
  return QVariant::fromValue(Qt::Alignment(Qt::AlignVCenter | (bText ? Qt::AlignLeft : Qt::AlignRight)));
}

const host::TableColumn& GetColumn(const host::Table& table, int nColumn) {
  return table.columns[static_cast<std::size_t>(nColumn)];
}

}  // namespace

void CTableModel::SetTable(host::Table table) {
  beginResetModel();
  m_table = std::move(table);
  m_formats.clear();
  for (const host::TableColumn& column : m_table.columns) m_formats.emplace_back(column);
  endResetModel();
}

const host::CColumnFormat& CTableModel::GetFormat(int nColumn) const {
  return m_formats[static_cast<std::size_t>(nColumn)];
}

int CTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_table.CountRows());
}

int CTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_table.columns.size());
}

QVariant CTableModel::data(const QModelIndex& index, int nRole) const {
  const host::TableColumn& column = GetColumn(m_table, index.column());
  if (nRole == Qt::TextAlignmentRole) return GetAlignment(column);
  if (nRole != Qt::DisplayRole) return {};
  const auto nRow = static_cast<std::size_t>(index.row());
  return ToQt(column.kind == host::ColumnKind::Text ? column.texts[nRow]
                                                    : GetFormat(index.column()).Show(column.numbers[nRow]));
}

QVariant CTableModel::headerData(int nSection, Qt::Orientation orientation, int nRole) const {
  if (orientation != Qt::Horizontal || nSection >= columnCount()) return {};
  if (nRole == Qt::TextAlignmentRole) return GetAlignment(GetColumn(m_table, nSection));
  if (nRole == Qt::DisplayRole) return ToQt(host::FormHeading(GetColumn(m_table, nSection)));
  return {};
}

CShownRows::CShownRows(CTableModel& model, QObject* pParent) : QSortFilterProxyModel(pParent), m_model(model) {
  setSourceModel(&model);
}

void CShownRows::SetFilter(host::CRowFilter filter) {
  m_filter = std::move(filter);
  invalidateFilter();
}

std::vector<std::size_t> CShownRows::ListRows() const {
  std::vector<std::size_t> rows(static_cast<std::size_t>(rowCount()));
  for (std::size_t r = 0; r < rows.size(); ++r) rows[r] = GetRow(static_cast<int>(r));
  return rows;
}

std::size_t CShownRows::GetRow(int nShownRow) const {
  return static_cast<std::size_t>(mapToSource(index(nShownRow, 0)).row());
}

bool CShownRows::filterAcceptsRow(int nRow, const QModelIndex&) const {
  return m_filter.Takes(m_model.GetTable(), static_cast<std::size_t>(nRow));
}

bool CShownRows::lessThan(const QModelIndex& left, const QModelIndex& right) const {
  const host::TableColumn& column = GetColumn(m_model.GetTable(), left.column());
  const auto nLeft = static_cast<std::size_t>(left.row());
  const auto nRight = static_cast<std::size_t>(right.row());
  if (column.kind == host::ColumnKind::Text) return column.texts[nLeft] < column.texts[nRight];
  const double dLeft = column.numbers[nLeft];
  const double dRight = column.numbers[nRight];
  if (std::isnan(dLeft) == std::isnan(dRight)) return dLeft < dRight;
  return sortOrder() == Qt::AscendingOrder ? std::isnan(dRight) : std::isnan(dLeft);
}

CFootingModel::CFootingModel(CTableModel& model, CShownRows& rows, QObject* pParent)
    : QAbstractTableModel(pParent), m_model(model), m_rows(rows) {
  // another table has other columns
  connect(&model, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
    beginResetModel();
    m_numbers.clear();
    endResetModel();
  });
}

int CFootingModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_numbers.size());
}

int CFootingModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : m_model.columnCount(); }

QVariant CFootingModel::data(const QModelIndex& index, int nRole) const {
  const host::Table& table = m_model.GetTable();
  if (nRole == Qt::TextAlignmentRole) return GetAlignment(GetColumn(table, index.column()));
  if (nRole != Qt::DisplayRole) return {};
  const auto nFooting = static_cast<std::size_t>(index.row());
  if (index.column() == 0) return ToQt(Say(table.footings[nFooting].name));
  return ToQt(m_model.GetFormat(index.column()).Show(m_numbers[nFooting][static_cast<std::size_t>(index.column())]));
}

void CFootingModel::Refresh() {
  beginResetModel();
  m_numbers.clear();
  const std::vector<std::size_t> rows = m_rows.ListRows();
  for (const host::TableFooting& footing : m_model.GetTable().footings) {
    m_numbers.push_back(host::FormFooting(m_model.GetTable(), footing, rows));
  }
  endResetModel();
}

}  // namespace skyframe::gui
