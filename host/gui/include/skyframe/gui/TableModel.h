#pragma once

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <vector>

#include "skyframe/tables/RowFilter.h"
#include "skyframe/tables/Table.h"

namespace skyframe::gui {

/// A table of results for a view.
class CTableModel : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  void SetTable(host::Table table);
  [[nodiscard]] const host::Table& GetTable() const { return m_table; }
  [[nodiscard]] const host::CColumnFormat& GetFormat(int nColumn) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int nRole) const override;
  [[nodiscard]] QVariant headerData(int nSection, Qt::Orientation orientation, int nRole) const override;

 private:
  host::Table m_table;
  std::vector<host::CColumnFormat> m_formats;  ///< by column
};

/// The rows that a filter takes, in the order of a column.
class CShownRows : public QSortFilterProxyModel {
 public:
  /// The model must outlive the object.
  explicit CShownRows(CTableModel& model, QObject* pParent = nullptr);

  void SetFilter(host::CRowFilter filter);
  /// Rows of the table as they are shown.
  [[nodiscard]] std::vector<std::size_t> ListRows() const;
  [[nodiscard]] std::size_t GetRow(int nShownRow) const;

 protected:
  [[nodiscard]] bool filterAcceptsRow(int nRow, const QModelIndex& parent) const override;
  /// By number; cells without one come last.
  [[nodiscard]] bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

 private:
  CTableModel& m_model;
  host::CRowFilter m_filter;
};

/// The footings of the rows shown.
class CFootingModel : public QAbstractTableModel {
 public:
  /// Both must outlive the object.
  CFootingModel(CTableModel& model, CShownRows& rows, QObject* pParent = nullptr);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int nRole) const override;
  /// Looks again at what is shown.
  void Refresh();

 private:
  CTableModel& m_model;
  CShownRows& m_rows;
  std::vector<std::vector<double>> m_numbers;  ///< by footing, by column
};

}  // namespace skyframe::gui
