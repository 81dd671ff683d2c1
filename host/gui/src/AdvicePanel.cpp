#include "AdvicePanel.h"

#include <memory>

#include "skyframe/qt/Font.h"
#include "texts.h"

namespace skyframe::gui {

CAdvicePanel::CAdvicePanel(QWidget* pParent) : QTreeWidget(pParent) {
  setObjectName(QStringLiteral("advice"));
  setToolTip(ToQt(texts::c_strAdviceTip));
  setHeaderLabels({ToQt(texts::c_strAdviceName), ToQt(texts::c_strAdviceText)});
  setRootIsDecorated(false);
  setWordWrap(true);
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
