#pragma once

#include <QActionGroup>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QSettings>
#include <QStringDecoder>
#include <QTimer>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "skyframe/gui/ActionMaker.h"
#include "skyframe/gui/AdvicePanel.h"
#include "skyframe/gui/AnalysisPanel.h"
#include "skyframe/gui/Document.h"
#include "skyframe/gui/HelpWindow.h"
#include "skyframe/gui/HistoryPanel.h"
#include "skyframe/gui/InspectPanel.h"
#include "skyframe/gui/ResultBar.h"
#include "skyframe/gui/ResultPanel.h"
#include "skyframe/gui/ShapeBar.h"
#include "skyframe/gui/StructureView.h"
#include "skyframe/gui/SummaryPanel.h"
#include "skyframe/gui/TablePanel.h"
#include "skyframe/qt/QtPlatform.h"
#include "skyframe/run/AnalysisRun.h"

namespace skyframe::gui {

/// The desktop host: a job, its drawing, its analyses with their dialogs, and what they found.
/// Its platform is in force for the life of the object, and so is its language.
class CMainWindow : public QMainWindow {
 public:
  /// Settings are kept in the file, or where the system keeps them when it is empty.
  explicit CMainWindow(const QString& strSettingsFile = {});
  ~CMainWindow() override;

  /// Reads a job file. False when it has errors: they are shown with their places and the current job stays.
  bool OpenJob(const QString& strFile);
  [[nodiscard]] CDocument& GetDocument() { return m_document; }
  [[nodiscard]] CStructureView& GetStructureView() { return m_view; }
  [[nodiscard]] CQtPlatform& GetPlatform() { return m_platform; }
  void SetFontScale(double dScale);

 protected:
  void closeEvent(QCloseEvent* pEvent) override;
  void dragEnterEvent(QDragEnterEvent* pEvent) override;
  void dropEvent(QDropEvent* pEvent) override;

 private:
  void MakeFileMenu();
  void MakeAnalysisMenu();
  void MakeViewMenu();
  void MakeFontMenu(QMenu& viewMenu);
  void MakeLanguageMenu(QMenu& viewMenu);
  void MakeHelpMenu();
  void MakeDocks();
  void ConnectView();
  QAction* AddJobAction(QMenu& menu, const host::Words& text, const host::Words& tip, const char* pszName,
                        std::function<void()> action);
  void AddOption(QMenu& menu, const host::Words& text, const host::Words& tip, const char* pszName,
                 bool ViewOptions::*pOption);

  void OnNew();
  void OnOpen();
  void ShowManual();
  bool OnSave();
  bool OnSaveAs();
  bool SaveTo(const QString& strFile);
  /// Asks what to do when the file has been written by somebody else: whether to save; else it is read again, or left.
  bool MayOverwrite();
  /// Asks whether to save changed analyses; false: go on with what was.
  bool MayLeaveJob();
  void OnSavePicture();
  /// What the drawing shows, for the name of its picture.
  [[nodiscard]] std::string FormPictureName() const;
  void OnReport();
  void OnPrint();
  void OnAbout();

  /// Runs an analysis in its dialogs, filled in with the values of the job's with that index when there is one.
  void Analyse(host::AnalysisKind kind, std::optional<std::size_t> nIndex);
  void RunAll();
  void ShowHistories();
  /// Shows what a run found; its shape is drawn. strMessages: of the module.
  void ShowRun(host::AnalysisKind kind, const host::AnalysisRun& run, const std::string& strMessages = {});
  void TellOfRun(host::AnalysisKind kind, const host::AnalysisRun& run, const std::string& strMessages);
  void ShowStatus();
  void ShowStructure();
  void ShowTitle();
  void AppendConsole(std::string_view strText);
  void Remember(const QString& strFile);
  void FillRecentMenu();

  std::unique_ptr<QSettings> m_pSettings;
  host::CLanguageScope m_language;
  CDocument m_document;
  CQtPlatform m_platform;
  IPlatform* m_pPrevious;
  CActionMaker m_make;

  CStructureView m_view;
  QString m_strDrawn;  ///< job file whose structure the view shows
  CShapeBar m_shapeBar;
  CResultBar m_resultBar;
  QDockWidget m_analysisDock;
  CAnalysisPanel m_analyses;
  QDockWidget m_inspectDock;
  CInspectPanel m_inspect;
  QDockWidget m_consoleDock;
  QPlainTextEdit m_console;
  QStringDecoder m_decoder;
  QDockWidget m_summaryDock;
  CSummaryPanel m_summary;
  QDockWidget m_adviceDock;
  CAdvicePanel m_advice;
  QDockWidget m_resultDock;
  CResultPanel m_results;
  QDockWidget m_historyDock;
  CHistoryPanel m_histories;
  QDockWidget m_tableDock;
  CTablePanel m_tables;
  std::unique_ptr<CHelpWindow> m_pHelp;  ///< made when it is asked for
  QTimer m_dropped;                      ///< a job file waits to be opened
  QString m_strDropped;
  QMenu m_recentMenu;
  QActionGroup m_fontSizes;
  QActionGroup m_languages;
  std::vector<QAction*> m_jobActions;  ///< need an open job
};

}  // namespace skyframe::gui
