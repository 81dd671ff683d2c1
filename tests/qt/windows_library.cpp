// The command line's windows, loaded while the program runs: whoever sits there confirms every dialog of the job.

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <iostream>
#include <sstream>

#include "skyframe/cli/CommandLine.h"
#include "skyframe/platform/Platform.h"

int main(int, char** arguments) {
  const std::unique_ptr<skyframe::IPlatform> pWindows = skyframe::OpenWindows();  // brings Qt's application
  if (pWindows == nullptr) return 1;
  QTimer person;
  QObject::connect(&person, &QTimer::timeout, [] {
    if (QWidget* const pWindow = QApplication::activeModalWidget()) QTest::keyClick(pWindow, Qt::Key_Return);
  });
  person.start(10);
  std::ostringstream out;
  const int nStatus = skyframe::host::RunCommandLine({"run", "--dialogs", arguments[1]}, out, std::cerr);
  std::cerr << out.str();
  const bool bPrefilled = out.str().find("Static analysis, nonlinear\n  largest") != std::string::npos;
  return nStatus == 0 && bPrefilled ? 0 : 1;
}
