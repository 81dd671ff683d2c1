#pragma once

#include <QAction>
#include <QActionGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSettings>
#include <QSlider>
#include <QStringDecoder>
#include <QToolBar>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "skyframe/gui/AdvicePanel.h"
#include "skyframe/gui/ResultPanel.h"
#include "skyframe/gui/StructureView.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/qt/QtPlatform.h"
#include "skyframe/run/Session.h"

namespace skyframe::gui {

/// The desktop host: a job, its drawing, the five analyses in the menu, console and result files.
/// Its platform is in force for the life of the object.
class CMainWindow : public QMainWindow {
 public:
  /// Settings are kept in the file, or where the system keeps them when it is empty.
  explicit CMainWindow(const QString& strSettingsFile = {});
  ~CMainWindow() override;

  /// Reads a job file. False when it has errors: they are shown with their places and the current job stays.
  bool OpenJob(const QString& strFile);
  [[nodiscard]] const QString& GetJobFile() const { return m_strJobFile; }
  [[nodiscard]] CStructureView& GetStructureView() { return m_view; }
  [[nodiscard]] CQtPlatform& GetPlatform() { return m_platform; }
  void SetFontScale(double dScale);

 protected:
  void closeEvent(QCloseEvent* pEvent) override;

 private:
  void MakeFileMenu();
  void MakeAnalysisMenu();
  void MakeViewMenu();
  void MakeFontMenu(QMenu& viewMenu);
  void MakeHelpMenu();
  void MakeShapeBar();
  void MakeDocks();
  QMenu& AddMenu(std::string_view strTitle);
  QAction* AddAction(QMenu& menu, std::string_view strText, std::string_view strTip, const char* strName,
                     std::function<void()> action);
  QAction* AddOption(QMenu& menu, std::string_view strText, std::string_view strTip, const char* strName,
                     bool ViewOptions::*pOption);

  void OnOpen();
  void OnSavePicture();
  void OnAbout();
  /// Runs an analysis and shows what is to be told of it.
  void Analyse(host::AnalysisKind kind);
  void ShowHistories();
  void ShowRun();
  void AppendConsole(std::string_view strText);
  /// Result files and shapes as they now are.
  void RefreshResults();
  void ShowShape();
  void Remember(const QString& strFile);
  void FillRecentMenu();

  std::unique_ptr<QSettings> m_pSettings;
  CQtPlatform m_platform;
  IPlatform* m_pPrevious;
  QString m_strJobFile;
  std::optional<host::CSession> m_session;  ///< of the open job
  std::vector<host::DeformedShape> m_shapes;

  CStructureView m_view;
  QToolBar m_shapeBar;
  QLabel m_shapeLabel;
  QComboBox m_shapeList;
  QLabel m_amplitudeLabel;
  QSlider m_amplitude;
  QCheckBox m_animate;
  QDockWidget m_consoleDock;
  QPlainTextEdit m_console;
  QStringDecoder m_decoder;
  QDockWidget m_adviceDock;
  CAdvicePanel m_advice;
  QDockWidget m_resultDock;
  CResultPanel m_results;
  QMenu m_recentMenu;
  QActionGroup m_fontSizes;
  std::vector<QAction*> m_jobActions;  ///< need an open job
};

}  // namespace skyframe::gui
