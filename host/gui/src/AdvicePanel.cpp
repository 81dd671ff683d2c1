#include "skyframe/gui/AdvicePanel.h"

#include <memory>

#include "skyframe/qt/Font.h"

namespace skyframe::gui {

CAdvicePanel::CAdvicePanel(QWidget* pParent) : QListWidget(pParent) {
  setObjectName(QStringLiteral("advice"));
  setWordWrap(true);
  setResizeMode(QListView::Adjust);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void CAdvicePanel::ShowAdvice(const host::AdviceList& list) {
  clear();
  for (const host::Severity severity : {host::Severity::Error, host::Severity::Warning}) {
    for (const host::Advice& advice : list) {
      if (advice.severity != severity) continue;
      auto pRow = std::make_unique<QListWidgetItem>(ToQt(host::FormatAdvice(advice)));
      if (severity == host::Severity::Error) pRow->setForeground(Qt::red);
      addItem(pRow.release());  // the list takes it over
    }
  }
}

}  // namespace skyframe::gui
