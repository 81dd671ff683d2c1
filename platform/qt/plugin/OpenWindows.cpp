#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <algorithm>
#include <array>
#include <clocale>
#include <memory>
#include <optional>

#include "skyframe/qt/QtPlatform.h"

namespace skyframe {

namespace {

/// Qt needs an application for as long as it has windows. None is made when the program has one.
class CApplication {
 public:
  CApplication() {
    if (QCoreApplication::instance() != nullptr) return;
    m_application.emplace(m_nArguments, m_arguments.data());
    std::setlocale(LC_NUMERIC, "C");  // Qt has put the person's in force; numbers have points
  }
  CApplication(const CApplication&) = delete;
  CApplication& operator=(const CApplication&) = delete;

 private:
  std::array<char, 9> m_strProgram = {"skyframe"};
  std::array<char*, 2> m_arguments = {m_strProgram.data(), nullptr};
  int m_nArguments = 1;
  std::optional<QApplication> m_application;
};

class CWindows : private CApplication, public CQtPlatform {
 public:
  using CQtPlatform::CQtPlatform;
};

/// Opens the screen and ends this process; without one Qt does, by a signal.
[[noreturn]] void TryScreen() {
  const rlimit none = {};
  setrlimit(RLIMIT_CORE, &none);
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  const CApplication application;
  _exit(0);
}

/// Without a screen that answers Qt would end the program: another process tries.
bool HasScreen() {
  if (QCoreApplication::instance() != nullptr) return true;
  const bool bNamed = std::ranges::any_of(std::array{"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"},
                                          [](const char* szName) { return !qEnvironmentVariableIsEmpty(szName); });
  if (!bNamed) return false;
  const pid_t nChild = fork();
  if (nChild == 0) TryScreen();
  int nStatus = -1;
  return nChild > 0 && waitpid(nChild, &nStatus, 0) == nChild && nStatus == 0;
}

}  // namespace

}  // namespace skyframe

/// For OpenWindows, which takes the platform over.
extern "C" SKYFRAME_API skyframe::IPlatform* skyframe_open_windows(void* pHostWindow) {
  if (!skyframe::HasScreen()) return nullptr;
  return std::make_unique<skyframe::CWindows>(static_cast<QWidget*>(pHostWindow)).release();
}
