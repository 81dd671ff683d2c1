#include "skyframe/gui/ResultPanel.h"

#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <istream>

#include "skyframe/platform/Platform.h"
#include "skyframe/qt/Font.h"
#include "skyframe/results/ResultList.h"
#include "texts.h"

namespace skyframe::gui {

namespace {

constexpr qsizetype c_nMostBytes = 4 << 20;  // shown of one file

}  // namespace

CResultPanel::CResultPanel(QWidget* pParent) : QSplitter(Qt::Vertical, pParent) {
  m_list.setObjectName(QStringLiteral("results"));
  m_list.setToolTip(ToQt(texts::c_strResultsTip));
  m_text.setObjectName(QStringLiteral("text"));
  m_text.setReadOnly(true);
  m_text.setLineWrapMode(QPlainTextEdit::NoWrap);
  addWidget(&m_list);
  addWidget(&m_text);
  setStretchFactor(0, 1);
  setStretchFactor(1, 3);
  connect(&m_list, &QListWidget::currentItemChanged, this, [this] { ShowFile(); });
}

void CResultPanel::SetJobPath(const std::string& strJobPath) {
  m_strJobPath = strJobPath;
  m_list.clear();
  Refresh();
}

void CResultPanel::Refresh() {
  const QString strChosen = m_list.currentItem() == nullptr ? QString() : m_list.currentItem()->text();
  m_list.clear();
  m_text.clear();
  if (m_strJobPath.empty()) return;
  for (const std::string& strFile : host::ListResultFiles(m_strJobPath)) {
    const QString strName = QString::fromStdString(strFile);
    m_list.addItem(strName);
    if (strName == strChosen) m_list.setCurrentRow(m_list.count() - 1);
  }
}

void CResultPanel::SetTextSize(double dPoints) {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSizeF(dPoints);
  m_text.setFont(font);
}

void CResultPanel::ShowFile() {
  m_text.clear();
  if (m_list.currentItem() == nullptr) return;
  const QString strFile = QFileInfo(ToQt(m_strJobPath)).dir().filePath(m_list.currentItem()->text());
  const auto pStream = GetPlatform().OpenForReading(strFile.toStdString());
  if (!pStream) return;
  QByteArray bytes(c_nMostBytes, Qt::Uninitialized);
  pStream->read(bytes.data(), c_nMostBytes);
  bytes.truncate(static_cast<qsizetype>(pStream->gcount()));
  QString strText = QString::fromUtf8(bytes);
  if (pStream->peek() != std::char_traits<char>::eof()) strText += ToQt(texts::c_strCut);
  m_text.setPlainText(strText);
}

}  // namespace skyframe::gui
