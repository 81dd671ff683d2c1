#include "skyframe/gui/HelpWindow.h"

#include <QCoreApplication>
#include <QDir>
#include <QTextBlock>
#include <QUrl>

#include "skyframe/job/Language.h"
#include "skyframe/qt/Font.h"
#include "texts.h"

namespace skyframe::gui {

QString FindManual() {
  const QString strLanguage =
      host::GetLanguage() == host::Language::Chinese ? QStringLiteral("zh") : QStringLiteral("en");
  const QDir program(QCoreApplication::applicationDirPath());
  for (const QString& strDocuments :
       {program.filePath(QStringLiteral("../share/doc/skyframe/docs/")), program.filePath(QStringLiteral("../docs/")),
        QStringLiteral(SKYFRAME_DOCS_DIR "/")}) {
    if (QDir(strDocuments + strLanguage).exists()) return QDir::cleanPath(strDocuments + strLanguage);
  }
  return {};
}

CHelpWindow::CHelpWindow(QWidget* pParent) : QMainWindow(pParent), m_bar(this), m_text(this) {
  setObjectName(QStringLiteral("help_window"));
  m_text.setObjectName(QStringLiteral("manual"));
  m_text.setOpenExternalLinks(false);
  setCentralWidget(&m_text);
  m_bar.setMovable(false);
  addToolBar(&m_bar);
  m_pHome = m_bar.addAction(QString(), this, [this] { ShowPage({}); });
  m_pBack = m_bar.addAction(QString(), &m_text, &QTextBrowser::backward);
  m_pForward = m_bar.addAction(QString(), &m_text, &QTextBrowser::forward);
  m_pHome->setShortcut(QKeySequence(QStringLiteral("Alt+Home")));
  m_pBack->setShortcut(QKeySequence::Back);
  m_pForward->setShortcut(QKeySequence::Forward);
  connect(&m_text, &QTextBrowser::backwardAvailable, m_pBack, &QAction::setEnabled);
  connect(&m_text, &QTextBrowser::forwardAvailable, m_pForward, &QAction::setEnabled);
  connect(&m_text, &QTextBrowser::sourceChanged, this, [this] {
    setWindowTitle(m_text.document()->firstBlock().text() + ToQt(Say(texts::c_manualTitle)));  // its heading
  });
  Speak();
  resize(fontMetrics().height() * 55, fontMetrics().height() * 42);
}

void CHelpWindow::Speak() {
  m_pHome->setText(ToQt(Say(texts::c_contents)));
  m_pBack->setText(ToQt(Say(texts::c_back)));
  m_pForward->setText(ToQt(Say(texts::c_forward)));
  ShowPage(m_text.source().fileName());
}

void CHelpWindow::ShowPage(const QString& strPage) {
  const QString strManual = FindManual();
  if (strManual.isEmpty()) return m_text.setPlainText(ToQt(Say(texts::c_noManual)));
  QUrl url = QUrl::fromLocalFile(strManual + QLatin1Char('/'))
                 .resolved(QUrl(strPage.isEmpty() ? QStringLiteral("index.md") : strPage));
  m_text.setSource(url);
}

}  // namespace skyframe::gui
