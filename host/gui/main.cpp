#include <QApplication>
#include <QIcon>
#include <clocale>
#include <iostream>
#include <string_view>

#include "skyframe/gui/MainWindow.h"

namespace {

constexpr std::string_view c_strHelp =
    "Usage: skyframe-gui [JOB.json]\n"
    "The desktop window: opens a job file, draws the structure, runs the five analyses from its menu.\n";

}  // namespace

int main(int nArguments, char** arguments) {
  for (int n = 1; n < nArguments; ++n) {
    const std::string_view strArgument = arguments[n];
    if (strArgument != "-h" && strArgument != "--help") continue;
    std::cout << c_strHelp;
    return 0;
  }
  const QApplication application(nArguments, arguments);  // takes its own options out
  std::setlocale(LC_NUMERIC, "C");                        // Qt has put the person's in force; summaries have points
  QApplication::setWindowIcon(QIcon(QStringLiteral(":/skyframe.ico")));
  const QStringList words = QApplication::arguments();
  if (words.size() > 2) {
    std::cerr << c_strHelp;
    return 2;
  }
  skyframe::gui::CMainWindow window;
  window.show();
  if (words.size() == 2) window.OpenJob(words[1]);
  return QApplication::exec();
}
