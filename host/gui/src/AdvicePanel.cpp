#include "skyframe/gui/AdvicePanel.h"

#include <memory>
#include <utility>

#include "skyframe/qt/Font.h"

namespace skyframe::gui {

CAdvicePanel::CAdvicePanel(CDocument& document, QWidget* pParent) : QListWidget(pParent) {
  setObjectName(QStringLiteral("advice"));
  setWordWrap(true);
  setResizeMode(QListView::Adjust);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  document.OnLanguage([this] { Fill(); });
}

void CAdvicePanel::ShowAdvice(std::function<host::AdviceList()> say) {
  m_say = std::move(say);
  Fill();
}

void CAdvicePanel::Fill() {
  clear();
  const host::AdviceList list = m_say ? m_say() : host::AdviceList();
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
