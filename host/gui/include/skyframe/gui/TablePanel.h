#pragma once

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWidget>
#include <set>

#include "skyframe/gui/Document.h"
#include "skyframe/gui/TableModel.h"
#include "skyframe/tables/ResultTables.h"

namespace skyframe::gui {

/// Results in tables: one is chosen, sorted by a click on a heading, filtered, copied, saved as CSV. Its rows are
/// selected with their nodes and elements in the document. Nothing is read or formed before the panel is seen.
class CTablePanel : public QWidget {
 public:
  /// The document must outlive the panel.
  explicit CTablePanel(CDocument& document, QWidget* pParent = nullptr);

 protected:
  void showEvent(QShowEvent* pEvent) override;
  void changeEvent(QEvent* pEvent) override;

 private:
  void MakeChoices();
  void MakeViews();
  void MakeLayout();
  void Speak();

  [[nodiscard]] bool IsOutdated() const;

  /// The results may be others now.
  void Refresh();
  void FillResults();
  void ShowResultTip();
  void FillKinds();
  void OnResult();
  void OnKind();
  void OnMode(int nMode);
  void OnFilter();
  void ShowTable();
  [[nodiscard]] host::Reading<host::Table> FormTable();
  void ShowMessage();
  void FitColumns();
  void FitFootings();

  void Copy();
  void SaveCsv();
  void TakeSelection();
  void ShowSelection();

  CDocument& m_document;
  host::TableChoice m_choice;
  bool m_bStale = true;       ///< to be formed when the panel is seen
  bool m_bAnyway = false;     ///< a table of another model is shown
  bool m_bSelecting = false;  ///< rows and document are being brought together
  std::string m_strError;     ///< why there is no table; empty: there is one, or no result

  QComboBox m_results;
  QComboBox m_kinds;
  QSpinBox m_mode;
  QLineEdit m_filter;
  QAction m_copy{this};
  QAction m_save{this};
  QToolButton m_copyButton;
  QToolButton m_saveButton;
  QLabel m_message;
  QPushButton m_anyway;
  QLabel m_note;

  CTableModel m_model;
  CShownRows m_rows;
  CFootingModel m_footings;
  QTableView m_table;
  QTableView m_sums;
  QVBoxLayout m_layout;
};

}  // namespace skyframe::gui
