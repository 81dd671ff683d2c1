#include "skyframe/gui/SummaryPanel.h"

#include <QScrollBar>
#include <utility>

#include "skyframe/qt/Font.h"

namespace skyframe::gui {

CSummaryPanel::CSummaryPanel(CDocument& document, QWidget* pParent) : QPlainTextEdit(pParent) {
  setObjectName(QStringLiteral("summary"));
  setReadOnly(true);
  setLineWrapMode(QPlainTextEdit::NoWrap);
  document.OnLanguage([this] {
    clear();
    for (const auto& say : m_runs) Print(say());
  });
}

void CSummaryPanel::AddRun(std::function<std::string()> say) {
  Print(say());
  m_runs.push_back(std::move(say));
}

void CSummaryPanel::ForgetRuns() {
  m_runs.clear();
  clear();
}

void CSummaryPanel::Print(const std::string& strText) {
  const int nLine = blockCount() - 1;
  QTextCursor cursor(document());
  cursor.movePosition(QTextCursor::End);
  cursor.insertText(ToQt(strText));
  verticalScrollBar()->setValue(nLine);
}

}  // namespace skyframe::gui
