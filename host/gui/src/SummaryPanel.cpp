#include "skyframe/gui/SummaryPanel.h"

#include <QScrollBar>

#include "skyframe/qt/Font.h"

namespace skyframe::gui {

CSummaryPanel::CSummaryPanel(QWidget* pParent) : QPlainTextEdit(pParent) {
  setObjectName(QStringLiteral("summary"));
  setReadOnly(true);
  setLineWrapMode(QPlainTextEdit::NoWrap);
}

void CSummaryPanel::AddRun(const std::string& strName, const std::string& strSummary) {
  const int nLine = blockCount() - 1;
  QTextCursor cursor(document());
  cursor.movePosition(QTextCursor::End);
  cursor.insertText(ToQt(strName + "\n" + strSummary));
  verticalScrollBar()->setValue(nLine);
}

}  // namespace skyframe::gui
