#pragma once

#include <QAction>
#include <QMainWindow>
#include <QString>
#include <QTextBrowser>
#include <QToolBar>

namespace skyframe::gui {

/// The manual, from the files of the installation or of the source tree, in the language in force.
class CHelpWindow : public QMainWindow {
 public:
  explicit CHelpWindow(QWidget* pParent = nullptr);

  /// "host.md#skyframe-gui": a page of the manual.
  void ShowPage(const QString& strPage);
  /// The same page in the language in force.
  void Speak();

 private:
  QToolBar m_bar;
  QAction* m_pHome;
  QAction* m_pBack;
  QAction* m_pForward;
  QTextBrowser m_text;
};

/// Folder of the manual in the language in force; empty when it is not installed.
[[nodiscard]] QString FindManual();

}  // namespace skyframe::gui
