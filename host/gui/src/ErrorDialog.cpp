#include "ErrorDialog.h"

#include <QHeaderView>
#include <QPushButton>

#include "skyframe/qt/Font.h"
#include "texts.h"

namespace skyframe::gui {

CErrorDialog::CErrorDialog(const QString& strFile, const std::vector<host::JobProblem>& errors, QWidget* pParent)
    : QDialog(pParent), m_layout(this), m_buttons(QDialogButtonBox::Close) {
  setObjectName(QStringLiteral("errors"));
  setWindowTitle(ToQt(Say(texts::c_errorTitle)));
  m_heading.setText(strFile);
  m_heading.setTextFormat(Qt::PlainText);
  m_heading.setWordWrap(true);
  m_list.setObjectName(QStringLiteral("problems"));
  m_list.setHeaderLabels({ToQt(Say(texts::c_place)), ToQt(Say(texts::c_reason))});
  m_list.setRootIsDecorated(false);
  QList<QTreeWidgetItem*> rows;
  for (const host::JobProblem& problem : errors) {
    auto pRow = std::make_unique<QTreeWidgetItem>(QStringList{ToQt(problem.strPlace), ToQt(problem.strReason)});
    rows.append(pRow.release());  // the list takes them over
  }
  m_list.addTopLevelItems(rows);
  m_list.header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  m_consequence.setText(ToQt(Say(texts::c_errorKept)));
  m_buttons.button(QDialogButtonBox::Close)->setText(ToQt(Say(texts::c_close)));
  connect(&m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  m_layout.addWidget(&m_heading);
  m_layout.addWidget(&m_list);
  m_layout.addWidget(&m_consequence);
  m_layout.addWidget(&m_buttons);
  resize(fontMetrics().height() * 40, fontMetrics().height() * 18);
}

}  // namespace skyframe::gui
