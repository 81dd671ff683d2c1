#include "skyframe/gui/ResultPanel.h"

#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QScrollBar>

#include "ShapeTitle.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/qt/Font.h"
#include "skyframe/results/ResultList.h"
#include "texts.h"

namespace skyframe::gui {

namespace {

constexpr qsizetype c_nPieceBytes = 256 << 10;  // read at once
constexpr int c_nNameRole = Qt::UserRole;

}  // namespace

CResultPanel::CResultPanel(CDocument& document, QWidget* pParent)
    : QSplitter(Qt::Vertical, pParent), m_document(document), m_decoder(QStringDecoder::Utf8) {
  m_list.setObjectName(QStringLiteral("results"));
  m_text.setObjectName(QStringLiteral("text"));
  m_text.setReadOnly(true);
  m_text.setLineWrapMode(QPlainTextEdit::NoWrap);
  addWidget(&m_list);
  addWidget(&m_text);
  setStretchFactor(0, 1);
  setStretchFactor(1, 3);
  connect(&m_list, &QListWidget::currentItemChanged, this, [this] { ShowFile(); });
  connect(m_text.verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int nValue) {
    if (nValue == m_text.verticalScrollBar()->maximum()) ReadMore();
  });
  m_document.resultsChanged.Connect([this] { Refresh(); });
  m_document.OnLanguage([this] {
    m_list.setToolTip(ToQt(Say(texts::c_resultsTip)));
    Refresh();
  });
}

void CResultPanel::Refresh() {
  const QString strChosen =
      m_list.currentItem() == nullptr ? QString() : m_list.currentItem()->data(c_nNameRole).toString();
  m_pStream.reset();
  m_list.clear();
  m_text.clear();
  if (!m_document.IsOpen()) return;
  const auto nPrefix = QFileInfo(ToQt(m_document.GetJobPath())).fileName().toUtf8().size();
  for (const std::string& strFile : host::ListResultFiles(m_document.GetJobPath())) {
    const std::string_view strSuffix = std::string_view(strFile).substr(static_cast<std::size_t>(nPrefix));
    const bool bOutdated = m_document.IsOutdated(strSuffix);
    const std::string strMark = FormResultMark(m_document, strSuffix);
    auto pRow = std::make_unique<QListWidgetItem>(ToQt(strFile + strMark));
    pRow->setData(c_nNameRole, ToQt(strFile));
    if (!strMark.empty()) pRow->setForeground(Qt::darkRed);
    if (bOutdated) pRow->setToolTip(ToQt(Say(texts::c_outdatedTip)));
    m_list.addItem(pRow.release());  // the list takes it over
    if (ToQt(strFile) == strChosen) m_list.setCurrentRow(m_list.count() - 1);
  }
}

void CResultPanel::SetTextSize(double dPoints) {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSizeF(dPoints);
  m_text.setFont(font);
}

void CResultPanel::ShowFile() {
  m_pStream.reset();  // first: a text that shrinks scrolls, and would be read on
  m_text.clear();
  if (m_list.currentItem() == nullptr) return;
  const QDir folder = QFileInfo(ToQt(m_document.GetJobPath())).dir();
  m_pStream =
      GetPlatform().OpenForReading(folder.filePath(m_list.currentItem()->data(c_nNameRole).toString()).toStdString());
  m_decoder.resetState();
  ReadMore();
  m_text.moveCursor(QTextCursor::Start);
}

void CResultPanel::ReadMore() {
  if (!m_pStream) return;
  QByteArray bytes(c_nPieceBytes, Qt::Uninitialized);
  m_pStream->read(bytes.data(), bytes.size());
  bytes.truncate(static_cast<qsizetype>(m_pStream->gcount()));
  if (!*m_pStream) m_pStream.reset();
  QTextCursor cursor(m_text.document());
  cursor.movePosition(QTextCursor::End);
  cursor.insertText(m_decoder(bytes));
}

}  // namespace skyframe::gui
