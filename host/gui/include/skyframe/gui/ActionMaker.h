#pragma once

#include <QAction>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>
#include <functional>

#include "skyframe/gui/Document.h"

namespace skyframe::gui {

/// Makes menus, actions and docks that speak the document's language.
class CActionMaker {
 public:
  /// Both must live as long as what is made.
  CActionMaker(QMainWindow& window, CDocument& document) : m_window(window), m_document(document) {}

  QMenu& AddMenu(const host::Words& title);
  QMenu& AddMenu(QMenu& menu, const host::Words& title, const host::Words& tip);
  QAction* AddAction(QMenu& menu, const host::Words& text, const host::Words& tip, const char* pszName,
                     std::function<void()> action);
  /// The dock's content gets the tip.
  void AddDock(QDockWidget& dock, QWidget& content, const host::Words& title, const host::Words& tip,
               const char* pszName, Qt::DockWidgetArea area);

 private:
  QMainWindow& m_window;
  CDocument& m_document;
};

}  // namespace skyframe::gui
