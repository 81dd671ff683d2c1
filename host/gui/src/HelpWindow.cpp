#include "skyframe/gui/HelpWindow.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
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
  QAction* const pHome = m_bar.addAction(ToQt(Say(texts::c_contents)), this, [this] { ShowPage({}); });
  QAction* const pBack = m_bar.addAction(ToQt(Say(texts::c_back)), &m_text, &QTextBrowser::backward);
  QAction* const pForward = m_bar.addAction(ToQt(Say(texts::c_forward)), &m_text, &QTextBrowser::forward);
  pHome->setShortcut(QKeySequence(QStringLiteral("Alt+Home")));
  pBack->setShortcut(QKeySequence::Back);
  pForward->setShortcut(QKeySequence::Forward);
  connect(&m_text, &QTextBrowser::backwardAvailable, pBack, &QAction::setEnabled);
  connect(&m_text, &QTextBrowser::forwardAvailable, pForward, &QAction::setEnabled);
  connect(&m_text, &QTextBrowser::sourceChanged, this,
          [this] { setWindowTitle(m_text.documentTitle() + ToQt(Say(texts::c_manualTitle))); });
  resize(fontMetrics().height() * 55, fontMetrics().height() * 42);
}

void CHelpWindow::ShowPage(const QString& strPage) {
  const QString strManual = FindManual();
  if (strManual.isEmpty()) return m_text.setPlainText(ToQt(Say(texts::c_noManual)));
  QUrl url = QUrl::fromLocalFile(strManual + QLatin1Char('/'))
                 .resolved(QUrl(strPage.isEmpty() ? QStringLiteral("index.md") : strPage));
  m_text.setSource(url);
}

}  // namespace skyframe::gui
