#include "AdvicePanel.h"

#include <QHeaderView>
#include <QStyledItemDelegate>
#include <memory>

#include "skyframe/qt/Font.h"
#include "texts.h"

namespace skyframe::gui {

namespace {

/// Lets a row be as high as its text is when wrapped to its column; the tree itself wraps but keeps to one line.
class CWrappedRows : public QStyledItemDelegate {
 public:
  explicit CWrappedRows(QTreeWidget& tree) : QStyledItemDelegate(&tree), m_tree(tree) {}

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyleOptionViewItem inColumn = option;
    if (index.column() > 0) inColumn.rect = QRect(0, 0, m_tree.columnWidth(index.column()), 1);
    return QStyledItemDelegate::sizeHint(inColumn, index);
  }

 private:
  const QTreeWidget& m_tree;
};

}  // namespace

CAdvicePanel::CAdvicePanel(QWidget* pParent) : QTreeWidget(pParent) {
  setObjectName(QStringLiteral("advice"));
  setToolTip(ToQt(texts::c_strAdviceTip));
  setHeaderLabels({ToQt(texts::c_strAdviceName), ToQt(texts::c_strAdviceText)});
  setRootIsDecorated(false);
  setWordWrap(true);
  setItemDelegate(std::make_unique<CWrappedRows>(*this).release());  // the panel is its parent
  connect(header(), &QHeaderView::sectionResized, this, [this] { scheduleDelayedItemsLayout(); });
}

void CAdvicePanel::ShowAdvice(const host::AdviceList& list) {
  clear();
  for (const host::Severity severity : {host::Severity::Error, host::Severity::Warning}) {
    for (const host::Advice& advice : list) {
      if (advice.severity != severity) continue;
      auto pRow = std::make_unique<QTreeWidgetItem>(QStringList{ToQt(advice.strName), ToQt(advice.strText)});
      pRow->setToolTip(1, ToQt(advice.strText));
      if (severity == host::Severity::Error) pRow->setForeground(0, Qt::red);
      addTopLevelItem(pRow.release());  // the list takes it over
    }
  }
  resizeColumnToContents(0);
}

}  // namespace skyframe::gui
