#pragma once

#include <gtest/gtest.h>

#include <QtWidgets>
#include <fstream>
#include <string>

#include "skyframe/generate/Generate.h"
#include "skyframe/gui/MainWindow.h"
#include "skyframe/job/JobFile.h"

namespace skyframe::gui {

inline void WriteFile(const QString& strPath, const std::string& strText) {
  std::ofstream(strPath.toStdString(), std::ios::binary) << strText;
}

/// A cantilever of length 4 along Y: node 1 clamped, node 2 free.
inline host::Job MakeCantilever() {
  host::Job job;
  job.strTitle = "悬臂梁";
  job.nodes = {{.nId = 1, .restraint = {1, 1, 1, 1, 1, 1}, .nSpring = {}}, {.nId = 2, .dY = 4.0, .nSpring = {}}};
  job.sections = {{.strId = "S", .dArea = 1e4, .dIx = 1e8, .dIy = 1e8, .dIz = 1e8}};
  job.elements = {{.nType = host::c_nBeam, .nNodeI = 1, .nNodeJ = 2, .nSection = 0}};
  job.loads = {{.nCase = 0, .nNode = 2, .nDirection = 2, .dValue = -1.0}, {.nCase = 1, .nNode = 2, .nDirection = 3}};
  return job;
}

/// One storey, one bay; static analyses, modes, spectrum along X and an earthquake.
inline host::Job MakeShakenFrame() {
  host::BuildingParameters parameters;
  parameters.nBaysX = parameters.nBaysY = parameters.nStoreys = 1;
  host::Job job = host::GenerateBuilding(parameters);
  job.analyses = host::ReadJobFile(SKYFRAME_SOURCE_DIR "/examples/office10.json").job.analyses;
  return job;
}

/// A window with settings of its own, and what a person finds in it.
class WindowTest : public ::testing::Test {
 protected:
  ~WindowTest() override { QApplication::setFont(m_font); }

  QString Path(const char* pszName) const { return m_directory.filePath(QString::fromUtf8(pszName)); }
  QString Settings() const { return Path("settings.ini"); }
  QString WriteJob(const char* pszName, const host::Job& job) const {
    WriteFile(Path(pszName), host::FormatJob(job));
    return Path(pszName);
  }
  template <class Widget>
  static Widget* Find(const QWidget& window, const char* pszName) {
    return window.findChild<Widget*>(QString::fromLatin1(pszName));
  }
  static void Trigger(const QWidget& window, const char* pszAction) { Find<QAction>(window, pszAction)->trigger(); }

  QTemporaryDir m_directory;
  QFont m_font = QApplication::font();
};

/// While the action runs, does something with the modal window that it opens.
template <class Window>
void Answer(const std::function<void()>& action, const std::function<void(Window&)>& answer) {
  int nAnswered = 0;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
    auto* const pWindow = dynamic_cast<Window*>(QApplication::activeModalWidget());
    if (pWindow == nullptr) return;
    ++nAnswered;
    answer(*pWindow);
  });
  timer.start(5);
  action();
  EXPECT_GE(nAnswered, 1) << "nothing asked";
}

}  // namespace skyframe::gui
