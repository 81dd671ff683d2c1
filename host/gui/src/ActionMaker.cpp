#include "skyframe/gui/ActionMaker.h"

#include <QMenuBar>
#include <algorithm>

#include "skyframe/qt/Font.h"

namespace skyframe::gui {

namespace {

constexpr int c_nMenuMargin = 3;  // heights of a line beside a menu's longest text

/// Room for every text: a style may reckon with marks that are smaller than those of a large font.
void WidenMenu(QMenu& menu) {
  const QFontMetrics metrics = menu.fontMetrics();
  int nText = 0;
  for (const QAction* const pAction : menu.actions()) {
    const QString strKeys = pAction->shortcut().toString(QKeySequence::NativeText);
    nText = std::max(nText, metrics.horizontalAdvance(pAction->text() + strKeys));
  }
  menu.setMinimumWidth(nText + c_nMenuMargin * metrics.height());
}

}  // namespace

QMenu& CActionMaker::AddMenu(const host::Words& title) {
  QMenu& menu = *m_window.menuBar()->addMenu(QString());
  m_document.OnLanguage([&menu, &title] { menu.setTitle(ToQt(Say(title))); });
  menu.setToolTipsVisible(true);
  QObject::connect(&menu, &QMenu::aboutToShow, &m_window, [&menu] { WidenMenu(menu); });
  return menu;
}

QMenu& CActionMaker::AddMenu(QMenu& menu, const host::Words& title, const host::Words& tip) {
  QMenu& subMenu = *menu.addMenu(QString());
  m_document.OnLanguage([&subMenu, &title, &tip] {
    subMenu.setTitle(ToQt(Say(title)));
    subMenu.menuAction()->setToolTip(ToQt(Say(tip)));
    subMenu.menuAction()->setStatusTip(ToQt(Say(tip)));
  });
  return subMenu;
}

QAction* CActionMaker::AddAction(QMenu& menu, const host::Words& text, const host::Words& tip, const char* pszName,
                                 std::function<void()> action) {
  QAction* const pAction = menu.addAction(QString());
  pAction->setObjectName(QString::fromLatin1(pszName));
  m_document.OnLanguage([pAction, &text, &tip] {
    pAction->setText(ToQt(Say(text)));
    pAction->setToolTip(ToQt(Say(tip)));
    pAction->setStatusTip(ToQt(Say(tip)));
  });
  QObject::connect(pAction, &QAction::triggered, &m_window, std::move(action));
  return pAction;
}

void CActionMaker::AddDock(QDockWidget& dock, QWidget& content, const host::Words& title, const host::Words& tip,
                           const char* pszName, Qt::DockWidgetArea area) {
  dock.setObjectName(QString::fromLatin1(pszName));
  dock.setWidget(&content);
  m_document.OnLanguage([&dock, &content, &title, &tip] {
    dock.setWindowTitle(ToQt(Say(title)));
    content.setToolTip(ToQt(Say(tip)));
  });
  m_window.addDockWidget(area, &dock);
}

}  // namespace skyframe::gui
