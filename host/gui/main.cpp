#include <QApplication>
#include <QIcon>
#include <clocale>
#include <iostream>
#include <string_view>

#include "skyframe/gui/MainWindow.h"
#include "skyframe/job/Language.h"

namespace {

constexpr skyframe::host::Words c_help = {
    "Usage: skyframe-gui [JOB.json]\n"
    "The desktop window: opens a job file, draws the structure, runs its analyses and shows their results.\n",
    "用法：skyframe-gui [作业.json]\n"
    "图形窗口：打开作业文件，绘制结构，进行分析并显示结果。\n"};

/// In both languages: which one the window speaks is not known yet.
void PrintHelp(std::ostream& out) { out << c_help.strChinese << '\n' << c_help.strEnglish; }

}  // namespace

int main(int nArguments, char** arguments) {
  for (int n = 1; n < nArguments; ++n) {
    const std::string_view strArgument = arguments[n];
    if (strArgument != "-h" && strArgument != "--help") continue;
    PrintHelp(std::cout);
    return 0;
  }
  const QApplication application(nArguments, arguments);  // takes its own options out
  std::setlocale(LC_NUMERIC, "C");                        // Qt has put the person's in force; summaries have points
  QApplication::setWindowIcon(QIcon(QStringLiteral(":/skyframe.ico")));
  const QStringList words = QApplication::arguments();
  if (words.size() > 2) {
    PrintHelp(std::cerr);
    return 2;
  }
  skyframe::gui::CMainWindow window;
  window.show();
  if (words.size() == 2) window.OpenJob(words[1]);
  return QApplication::exec();
}
