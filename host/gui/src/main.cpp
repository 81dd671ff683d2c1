#include <QApplication>
#include <iostream>

#include "MainWindow.h"

int main(int nArguments, char** arguments) {
  const QApplication application(nArguments, arguments);
  const QStringList words = QApplication::arguments();
  if (words.contains(QStringLiteral("--help")) || words.contains(QStringLiteral("-h"))) {
    std::cout << "Usage: skyframe-gui [JOB.json]\n"
                 "The desktop window: opens a job file, draws the structure, runs the five analyses from its menu.\n";
    return 0;
  }
  skyframe::gui::CMainWindow window;
  window.show();
  if (words.size() > 1) window.OpenJob(words[1]);
  return QApplication::exec();
}
