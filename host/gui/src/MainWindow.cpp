#include "skyframe/gui/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeData>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QUrl>
#include <algorithm>
#include <array>
#include <iterator>
#include <sstream>
#include <utility>

#include "ErrorDialog.h"
#include "HistoryTexts.h"
#include "SaveFile.h"
#include "ShapeTitle.h"
#include "skyframe/book/CalculationReport.h"
#include "skyframe/connect/Findings.h"
#include "skyframe/gui/GeneratorDialog.h"
#include "skyframe/qt/Font.h"
#include "skyframe/qt/QtTranslation.h"
#include "skyframe/results/Histories.h"
#include "skyframe/run/PrefillPlatform.h"
#include "table_texts.h"
#include "texts.h"

namespace skyframe::gui {

namespace {

constexpr int c_nMostConsoleLines = 20000;
constexpr int c_nHistoryLines = 16;  // heights of a line that charts need to be read
constexpr qsizetype c_nMostRecent = 8;
constexpr std::array<int, 3> c_nFontPercents = {100, 125, 150};
constexpr std::array<const char*, 2> c_pszLanguages = {"en", "zh"};  // by Language
constexpr std::array<const char*, 2> c_pszLanguageNames = {"English", "中文"};

const QString c_strRecentKey = QStringLiteral("recent");
const QString c_strFontKey = QStringLiteral("font_percent");
const QString c_strLanguageKey = QStringLiteral("language");
const QString c_strGeometryKey = QStringLiteral("geometry");
const QString c_strStateKey = QStringLiteral("state");

std::unique_ptr<QSettings> OpenSettings(const QString& strFile) {
  if (!strFile.isEmpty()) return std::make_unique<QSettings>(strFile, QSettings::IniFormat);
  return std::make_unique<QSettings>(QStringLiteral("skyframe"), QStringLiteral("skyframe-gui"));
}

constexpr FileKind c_jobKind = {texts::c_saveTitle, texts::c_jobFilter, "json"};

/// Chinese unless the person has chosen the other.
host::Language ReadLanguage(const QSettings& settings) {
  const bool bEnglish = settings.value(c_strLanguageKey).toString() == QLatin1String("en");
  return bEnglish ? host::Language::English : host::Language::Chinese;
}

}  // namespace

CMainWindow::CMainWindow(const QString& strSettingsFile)
    : m_pSettings(OpenSettings(strSettingsFile)),
      m_language(ReadLanguage(*m_pSettings)),
      m_platform(this),
      m_pPrevious(InstallPlatform(&m_platform)),
      m_make(*this, m_document),
      m_shapeBar(m_document, m_view, this),
      m_resultBar(m_document, m_view, this),
      m_analysisDock(this),
      m_analyses(m_document,
                 [this](std::size_t nIndex) { Analyse(host::GetKind(m_document.GetJob().analyses[nIndex]), nIndex); }),
      m_inspectDock(this),
      m_inspect(m_document, m_view),
      m_consoleDock(this),
      m_decoder(QStringDecoder::Utf8),
      m_summaryDock(this),
      m_summary(m_document),
      m_adviceDock(this),
      m_advice(m_document),
      m_resultDock(this),
      m_results(m_document),
      m_historyDock(this),
      m_histories(m_document, m_shapeBar),
      m_tableDock(this),
      m_tables(m_document),
      m_recentMenu(this),
      m_fontSizes(this),
      m_languages(this) {
  setObjectName(QStringLiteral("main"));
  setCentralWidget(&m_view);
  setAcceptDrops(true);
  m_dropped.setSingleShot(true);
  connect(&m_dropped, &QTimer::timeout, this, [this] { OpenJob(m_strDropped); });
  addToolBar(&m_shapeBar);
  addToolBarBreak();
  addToolBar(&m_resultBar);
  ConnectView();
  MakeFileMenu();
  MakeAnalysisMenu();
  MakeDocks();
  MakeViewMenu();
  MakeHelpMenu();
  statusBar()->show();
  m_document.jobOpened.Connect([this] { ShowStructure(); });
  m_document.analysesChanged.Connect([this] { ShowTitle(); });
  m_document.resultsChanged.Connect([this] { ShowTitle(); });
  m_document.OnLanguage([this] {
    const bool bChinese = host::GetLanguage() == host::Language::Chinese;
    UseQtTranslation(bChinese ? "zh_CN" : "en");
    m_platform.SetTipLanguage(bChinese ? TipLanguage::Chinese : TipLanguage::English);
    ShowTitle();
    ShowStatus();
    if (m_pHelp) m_pHelp->Speak();
  });
  m_platform.SetConsoleSink([this](std::string_view strText) { AppendConsole(strText); });
  SetFontScale(m_pSettings->value(c_strFontKey, 100).toInt() / 100.0);
  resize(QGuiApplication::primaryScreen()->availableSize().boundedTo({1480, 920}));
  restoreGeometry(m_pSettings->value(c_strGeometryKey).toByteArray());
  restoreState(m_pSettings->value(c_strStateKey).toByteArray());
  for (QAction* const pAction : m_jobActions) pAction->setEnabled(false);
}

CMainWindow::~CMainWindow() { InstallPlatform(m_pPrevious); }

void CMainWindow::closeEvent(QCloseEvent* pEvent) {
  if (!MayLeaveJob()) return pEvent->ignore();
  m_pSettings->setValue(c_strGeometryKey, saveGeometry());
  m_pSettings->setValue(c_strStateKey, saveState());
  m_pHelp.reset();
  pEvent->accept();
}

QAction* CMainWindow::AddJobAction(QMenu& menu, const host::Words& text, const host::Words& tip, const char* pszName,
                                   std::function<void()> action) {
  m_jobActions.push_back(m_make.AddAction(menu, text, tip, pszName, std::move(action)));
  return m_jobActions.back();
}

void CMainWindow::AddOption(QMenu& menu, const host::Words& text, const host::Words& tip, const char* pszName,
                            bool ViewOptions::*pOption) {
  QAction* const pAction = m_make.AddAction(menu, text, tip, pszName, [] {});
  pAction->setCheckable(true);
  pAction->setChecked(m_view.GetOptions().*pOption);
  connect(pAction, &QAction::toggled, this, [this, pOption](bool bOn) {
    ViewOptions options = m_view.GetOptions();
    options.*pOption = bOn;
    m_view.SetOptions(options);
  });
}

void CMainWindow::MakeFileMenu() {
  QMenu& menu = m_make.AddMenu(texts::c_fileMenu);
  m_make.AddAction(menu, texts::c_new, texts::c_newTip, "new", [this] { OnNew(); })->setShortcut(QKeySequence::New);
  m_make.AddAction(menu, texts::c_open, texts::c_openTip, "open", [this] { OnOpen(); })
      ->setShortcut(QKeySequence::Open);
  m_document.OnLanguage([this] { m_recentMenu.setTitle(ToQt(Say(texts::c_recent))); });
  menu.addMenu(&m_recentMenu);
  FillRecentMenu();
  AddJobAction(menu, texts::c_reload, texts::c_reloadTip, "reload", [this] {
    OpenJob(m_document.GetFile());
  })->setShortcut(QKeySequence(QStringLiteral("Ctrl+R")));
  menu.addSeparator();
  AddJobAction(menu, texts::c_save, texts::c_saveTip, "save", [this] { OnSave(); })->setShortcut(QKeySequence::Save);
  AddJobAction(menu, texts::c_saveAs, texts::c_saveAsTip, "save_as", [this] {
    OnSaveAs();
  })->setShortcut(QKeySequence::SaveAs);
  AddJobAction(menu, texts::c_savePicture, texts::c_savePictureTip, "picture", [this] { OnSavePicture(); });
  AddJobAction(menu, texts::c_report, texts::c_reportTip, "report", [this] { OnReport(); });
  AddJobAction(menu, texts::c_print, texts::c_printTip, "print", [this] {
    OnPrint();
  })->setShortcut(QKeySequence::Print);
  menu.addSeparator();
  m_make.AddAction(menu, texts::c_quit, texts::c_quitTip, "quit", [this] { close(); })->setShortcut(QKeySequence::Quit);
}

void CMainWindow::MakeAnalysisMenu() {
  QMenu& menu = m_make.AddMenu(texts::c_analysisMenu);
  const auto addRun = [this, &menu](const host::Words& text, const host::Words& tip, const char* pszName, Qt::Key key,
                                    host::AnalysisKind kind) {
    AddJobAction(menu, text, tip, pszName, [this, kind] {
      Analyse(kind, m_document.FindAnalysis(kind));
    })->setShortcut(key);
  };
  using Kind = host::AnalysisKind;
  addRun(texts::c_modal, texts::c_modalTip, "modal", Qt::Key_F2, Kind::Modal);
  addRun(texts::c_spectrum, texts::c_spectrumTip, "spectrum", Qt::Key_F3, Kind::Spectrum);
  addRun(texts::c_timeHistory, texts::c_timeHistoryTip, "time_history", Qt::Key_F4, Kind::TimeHistory);
  AddJobAction(menu, texts::c_historyResults, texts::c_historyResultsTip, "history_results", [this] {
    ShowHistories();
  })->setShortcut(Qt::Key_F5);
  addRun(texts::c_static, texts::c_staticTip, "static", Qt::Key_F6, Kind::Static);
  menu.addSeparator();
  AddJobAction(menu, texts::c_runAll, texts::c_runAllTip, "run_all", [this] { RunAll(); })->setShortcut(Qt::Key_F9);
}

void CMainWindow::MakeViewMenu() {
  QMenu& menu = m_make.AddMenu(texts::c_viewMenu);
  const auto addView = [this, &menu](const host::Words& text, const host::Words& tip, const char* pszName, Qt::Key key,
                                     host::ViewDirection view) {
    m_make.AddAction(menu, text, tip, pszName, [this, view] { m_view.SetDirection(view); })->setShortcut(key);
  };
  addView(texts::c_isometric, texts::c_isometricTip, "isometric", Qt::Key_0, host::c_obliqueView);
  addView(texts::c_front, texts::c_frontTip, "front", Qt::Key_1, host::c_frontView);
  addView(texts::c_side, texts::c_sideTip, "side", Qt::Key_2, host::c_sideView);
  addView(texts::c_plan, texts::c_planTip, "plan", Qt::Key_3, host::c_planView);
  m_make.AddAction(menu, texts::c_fit, texts::c_fitTip, "fit", [this] { m_view.FitAll(); });
  m_make.AddAction(menu, texts::c_nextShape, texts::c_nextShapeTip, "next_shape", [this] { m_shapeBar.Step(1); })
      ->setShortcut(Qt::Key_PageDown);
  m_make
      .AddAction(menu, texts::c_previousShape, texts::c_previousShapeTip, "previous_shape",
                 [this] { m_shapeBar.Step(-1); })
      ->setShortcut(Qt::Key_PageUp);
  menu.addSeparator();
  AddOption(menu, texts::c_supports, texts::c_supportsTip, "supports", &ViewOptions::bSupports);
  AddOption(menu, texts::c_nodeNumbers, texts::c_nodeNumbersTip, "node_numbers", &ViewOptions::bNodeNumbers);
  AddOption(menu, texts::c_elementNumbers, texts::c_elementNumbersTip, "element_numbers",
            &ViewOptions::bElementNumbers);
  AddOption(menu, texts::c_sectionNames, texts::c_sectionNamesTip, "section_names", &ViewOptions::bSectionNames);
  AddOption(menu, texts::c_localAxes, texts::c_localAxesTip, "local_axes", &ViewOptions::bLocalAxes);
  menu.addSeparator();
  for (QDockWidget* const pDock : {&m_analysisDock, &m_inspectDock, &m_summaryDock, &m_adviceDock, &m_consoleDock,
                                   &m_historyDock, &m_tableDock, &m_resultDock}) {
    menu.addAction(pDock->toggleViewAction());
  }
  menu.addSeparator();
  MakeFontMenu(menu);
  MakeLanguageMenu(menu);
}

void CMainWindow::MakeFontMenu(QMenu& viewMenu) {
  QMenu& menu = m_make.AddMenu(viewMenu, texts::c_fontMenu, texts::c_fontTip);
  for (const int nPercent : c_nFontPercents) {
    QAction* const pAction = menu.addAction(QString::number(nPercent) + QStringLiteral(" %"), this, [this, nPercent] {
      m_pSettings->setValue(c_strFontKey, nPercent);
      SetFontScale(nPercent / 100.0);
    });
    pAction->setObjectName(QStringLiteral("font"));
    pAction->setCheckable(true);
    pAction->setChecked(nPercent == m_pSettings->value(c_strFontKey, 100).toInt());
    m_fontSizes.addAction(pAction);
  }
}

void CMainWindow::MakeLanguageMenu(QMenu& viewMenu) {
  QMenu& menu = m_make.AddMenu(viewMenu, texts::c_languageMenu, texts::c_languageTip);
  for (const host::Language language : {host::Language::Chinese, host::Language::English}) {
    const auto k = static_cast<std::size_t>(language);
    QAction* const pAction = menu.addAction(QString::fromUtf8(c_pszLanguageNames[k]), this, [this, language, k] {
      m_pSettings->setValue(c_strLanguageKey, QString::fromLatin1(c_pszLanguages[k]));
      m_document.SetLanguage(language);
    });
    pAction->setObjectName(QStringLiteral("language_") + QString::fromLatin1(c_pszLanguages[k]));
    pAction->setCheckable(true);
    pAction->setChecked(language == host::GetLanguage());
    m_languages.addAction(pAction);
  }
}

void CMainWindow::MakeHelpMenu() {
  QMenu& menu = m_make.AddMenu(texts::c_helpMenu);
  m_make.AddAction(menu, texts::c_manual, texts::c_manualTip, "manual", [this] { ShowManual(); })
      ->setShortcut(QKeySequence::HelpContents);
  m_make.AddAction(menu, texts::c_about, texts::c_aboutTip, "about", [this] { OnAbout(); });
}

void CMainWindow::MakeDocks() {
  m_console.setObjectName(QStringLiteral("console"));
  m_console.setReadOnly(true);
  m_console.setMaximumBlockCount(c_nMostConsoleLines);
  m_console.setLineWrapMode(QPlainTextEdit::NoWrap);
  setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
  m_make.AddDock(m_analysisDock, m_analyses, texts::c_analyses, texts::c_analysesTip, "analysis_dock",
                 Qt::LeftDockWidgetArea);
  m_make.AddDock(m_inspectDock, m_inspect, texts::c_inspect, texts::c_inspectTip, "inspect_dock",
                 Qt::LeftDockWidgetArea);
  m_make.AddDock(m_summaryDock, m_summary, texts::c_summary, texts::c_summaryTip, "summary_dock",
                 Qt::BottomDockWidgetArea);
  m_make.AddDock(m_adviceDock, m_advice, texts::c_advice, texts::c_adviceTip, "advice_dock", Qt::BottomDockWidgetArea);
  m_make.AddDock(m_consoleDock, m_console, texts::c_console, texts::c_consoleTip, "console_dock",
                 Qt::BottomDockWidgetArea);
  m_make.AddDock(m_resultDock, m_results, texts::c_results, texts::c_resultsTip, "result_dock",
                 Qt::RightDockWidgetArea);
  m_make.AddDock(m_historyDock, m_histories, texts::c_histories, texts::c_historiesTip, "history_dock",
                 Qt::BottomDockWidgetArea);
  m_make.AddDock(m_tableDock, m_tables, texts::c_tables, texts::c_tablesTip, "table_dock", Qt::RightDockWidgetArea);
  tabifyDockWidget(&m_tableDock, &m_resultDock);
  m_tableDock.raise();
  tabifyDockWidget(&m_summaryDock, &m_adviceDock);
  tabifyDockWidget(&m_adviceDock, &m_consoleDock);
  tabifyDockWidget(&m_consoleDock, &m_historyDock);
  connect(&m_historyDock, &QDockWidget::visibilityChanged, this, [this](bool bSeen) {
    const int nHeight = c_nHistoryLines * fontMetrics().height();
    if (bSeen && m_historyDock.height() < nHeight) resizeDocks({&m_historyDock}, {nHeight}, Qt::Vertical);
  });
  m_summaryDock.raise();
  resizeDocks({&m_summaryDock}, {190}, Qt::Vertical);
  resizeDocks({&m_analysisDock, &m_inspectDock}, {130, 400}, Qt::Vertical);
  resizeDocks({&m_analysisDock, &m_tableDock}, {240, 360}, Qt::Horizontal);
}

void CMainWindow::ConnectView() {
  m_view.SetHoverText([this](host::ScenePart part) { return DescribePart(m_document, part); });
  m_view.SetPickHandler([this](std::optional<host::ScenePart> part, bool bAdd) {
    Selection selection = bAdd ? m_document.GetSelection() : Selection{};
    if (part) {
      auto& chosen = part->kind == host::ScenePart::Kind::Node ? selection.nodes : selection.elements;
      if (!chosen.insert(part->nIndex).second) chosen.erase(part->nIndex);
    }
    m_document.Select(std::move(selection));
  });
  m_document.selectionChanged.Connect([this] { m_view.SetSelection(m_document.GetSelection()); });
}

void CMainWindow::SetFontScale(double dScale) {
  m_platform.SetFontScale(dScale);
  const QFont font = FormDialogFont(dScale);
  QApplication::setFont(font);
  // A dock with the application's own font would keep the title font that it was made with.
  QFont dockFont = font;
  dockFont.setStyleHint(QFont::SansSerif);
  for (QDockWidget* const pDock : findChildren<QDockWidget*>()) pDock->setFont(dockFont);
  m_results.SetTextSize(font.pointSizeF());
  QFont fixedFont(QStringLiteral("Noto Sans Mono CJK SC"), font.pointSize());
  fixedFont.setStyleHint(QFont::Monospace);
  m_summary.setFont(fixedFont);
}

void CMainWindow::OnOpen() {
  const QString strDirectory = m_document.IsOpen() ? QFileInfo(m_document.GetFile()).path() : QString();
  const QString strFile =
      QFileDialog::getOpenFileName(this, ToQt(Say(texts::c_openTitle)), strDirectory, ToQt(Say(texts::c_jobFilter)));
  if (!strFile.isEmpty()) OpenJob(strFile);
}

bool CMainWindow::OpenJob(const QString& strFile) {
  if (!MayLeaveJob()) return false;
  const std::vector<host::JobProblem> errors = m_document.Open(strFile);
  if (!errors.empty()) {
    CErrorDialog(strFile, errors, this).exec();
    return false;
  }
  m_console.clear();
  m_summary.ForgetRuns();
  statusBar()->clearMessage();
  m_advice.ShowAdvice([this] { return host::AdviseOnInput(m_document.GetWarnings()); });
  if (!m_document.GetWarnings().empty()) m_adviceDock.raise();
  for (QAction* const pAction : m_jobActions) pAction->setEnabled(true);
  Remember(strFile);
  m_view.setFocus();  // its keys are at hand
  return true;
}

bool CMainWindow::OnSave() {
  if (m_document.IsChangedOnDisk() && !MayOverwrite()) return false;
  return SaveTo(m_document.GetFile());
}

bool CMainWindow::MayOverwrite() {
  QMessageBox box(QMessageBox::Warning, ToQt(Say(texts::c_program)), ToQt(Say(texts::c_changedOnDisk)),
                  QMessageBox::NoButton, this);
  const QPushButton* const pOverwrite = box.addButton(ToQt(Say(texts::c_overwrite)), QMessageBox::DestructiveRole);
  const QPushButton* const pReload = box.addButton(ToQt(Say(texts::c_readAgain)), QMessageBox::ResetRole);
  QPushButton* const pCancel = box.addButton(ToQt(Say(texts::c_cancel)), QMessageBox::RejectRole);
  box.setDefaultButton(pCancel);
  box.setEscapeButton(pCancel);
  box.exec();
  if (box.clickedButton() == pReload) {
    m_document.Forget();
    OpenJob(m_document.GetFile());
  }
  return box.clickedButton() == pOverwrite;
}

bool CMainWindow::OnSaveAs() {
  const QString strFile = AskForFile(this, c_jobKind, m_document.GetFile());
  return !strFile.isEmpty() && SaveTo(strFile);
}

void CMainWindow::OnNew() {
  if (!MayLeaveJob()) return;
  CGeneratorDialog dialog(this);
  if (dialog.exec() != QDialog::Accepted) return;
  const QString strFile = AskForFile(this, c_jobKind, QStringLiteral("frame.json"));
  if (strFile.isEmpty() || !WriteText(strFile, host::FormatJob(dialog.GetJob()), texts::c_saveFailed)) return;
  m_document.Forget();
  OpenJob(strFile);
}

void CMainWindow::dragEnterEvent(QDragEnterEvent* pEvent) {
  const QList<QUrl> urls = pEvent->mimeData()->urls();
  if (!urls.isEmpty() && urls.constFirst().isLocalFile()) pEvent->acceptProposedAction();
}

void CMainWindow::dropEvent(QDropEvent* pEvent) {
  pEvent->acceptProposedAction();
  m_strDropped = pEvent->mimeData()->urls().value(0).toLocalFile();
  m_dropped.start();  // the other program need not wait
}

void CMainWindow::ShowManual() {
  if (!m_pHelp) m_pHelp = std::make_unique<CHelpWindow>();
  m_pHelp->ShowPage({});
  m_pHelp->show();
  m_pHelp->raise();
  m_pHelp->activateWindow();
}

bool CMainWindow::SaveTo(const QString& strFile) {
  const std::string strReason = m_document.Save(strFile);
  if (strReason.empty()) {
    Remember(strFile);
    return true;
  }
  m_platform.ShowMessage(Say(texts::c_saveFailed, {strReason}));
  return false;
}

bool CMainWindow::MayLeaveJob() {
  if (!m_document.IsModified()) return true;
  QMessageBox box(QMessageBox::Question, ToQt(Say(texts::c_program)), ToQt(Say(texts::c_askToSave)),
                  QMessageBox::NoButton, this);
  const QPushButton* const pSave = box.addButton(ToQt(Say(texts::c_yes)), QMessageBox::AcceptRole);
  const QPushButton* const pLeave = box.addButton(ToQt(Say(texts::c_no)), QMessageBox::DestructiveRole);
  box.setEscapeButton(box.addButton(ToQt(Say(texts::c_cancel)), QMessageBox::RejectRole));
  box.exec();
  if (box.clickedButton() == pSave) return OnSave();
  return box.clickedButton() == pLeave;
}

void CMainWindow::ShowStructure() {
  const bool bSameFile = std::exchange(m_strDrawn, m_document.GetFile()) == m_document.GetFile();
  m_view.SetScene(host::CScene(m_document.GetJob()), bSameFile);
}

void CMainWindow::ShowTitle() {
  if (!m_document.IsOpen()) return setWindowTitle(ToQt(Say(texts::c_program)));
  const QString strJob = QString::fromStdString(m_document.GetJob().strTitle);
  QString strTitle = strJob.isEmpty() ? QFileInfo(m_document.GetFile()).fileName() : strJob;
  strTitle += QStringLiteral("[*]");
  if (m_document.HasOutdatedResults()) strTitle += ToQt(FormOutdatedMark());
  setWindowTitle(strTitle + QStringLiteral(" - ") + ToQt(Say(texts::c_program)));
  setWindowModified(m_document.IsModified());
}

void CMainWindow::Analyse(host::AnalysisKind kind, std::optional<std::size_t> nIndex) {
  std::optional<host::JobAnalysis> values;
  if (nIndex) values = m_document.GetJob().analyses[*nIndex];
  const host::AnalysisRun run = host::RunInDialogs(m_document.GetSession(), kind, values ? &*values : nullptr,
                                                   m_platform, m_platform.GetConsole());
  m_platform.GetConsole().flush();
  if (run.analysis && host::GetFindings(kind).status != RunStatus::Cancelled) {
    m_document.KeepAnalysis(nIndex, *run.analysis);
  }
  ShowRun(kind, run);
}

void CMainWindow::RunAll() {
  const std::vector<host::JobAnalysis> analyses = m_document.GetJob().analyses;
  for (const host::JobAnalysis& analysis : analyses) {
    std::ostringstream messages;
    host::CWindowedPlatform platform(m_platform, messages, m_platform.GetConsole());
    const host::AnalysisRun run = host::RunScripted(m_document.GetSession(), analysis, platform);
    m_platform.GetConsole().flush();
    ShowRun(host::GetKind(analysis), run, messages.str());
  }
}

void CMainWindow::ShowRun(host::AnalysisKind kind, const host::AnalysisRun& run, const std::string& strMessages) {
  const RunFindings& findings = host::GetFindings(kind);
  m_document.RefreshResults();
  ShowStatus();
  if (findings.status == RunStatus::Cancelled) return;  // what was told of the run before still holds
  TellOfRun(kind, run, strMessages);
  if (findings.status != RunStatus::Done) return;
  const bool bNonlinear = kind == host::AnalysisKind::Static && GetStaticFindings().bNonlinear;
  if (kind == host::AnalysisKind::Modal) m_shapeBar.Choose(host::ShapeKind::Mode);
  if (kind == host::AnalysisKind::Spectrum) m_resultBar.ChooseSource(host::ResultKind::Spectrum);
  if (kind == host::AnalysisKind::TimeHistory) m_resultBar.ChooseSource(host::ResultKind::History);
  if (kind == host::AnalysisKind::Static) {
    m_shapeBar.Choose(bNonlinear ? host::ShapeKind::NonlinearState : host::ShapeKind::LinearState);
    m_resultBar.ChooseSource(bNonlinear ? host::ResultKind::Nonlinear : host::ResultKind::Linear);
  }
}

void CMainWindow::TellOfRun(host::AnalysisKind kind, const host::AnalysisRun& run, const std::string& strMessages) {
  const auto advise = [failures = host::GetFindings(kind), report = run.report] {
    host::AdviceList list = host::AdviseOnFiles(failures);
    std::ranges::copy(report.GetAdvice(), std::back_inserter(list));
    return list;
  };
  m_advice.ShowAdvice(advise);
  (host::HasError(advise()) ? m_adviceDock : m_summaryDock).raise();
  if (!run.analysis) return;
  std::string strBefore = strMessages;
  for (const std::string& strError : run.errors) strBefore += strError + "\n";
  m_summary.AddRun([strBefore, analysis = *run.analysis, report = run.report] {
    return std::string(host::GetName(analysis)) + "\n" + strBefore + report.GetSummary();
  });
}

void CMainWindow::ShowHistories() {
  m_document.GetSession().ShowHistories();
  m_document.RefreshResults();
  ShowStatus();
}

void CMainWindow::ShowStatus() {
  if (!m_document.IsOpen()) return;
  const HistorySet& histories = m_document.GetSession().GetHistories();
  if (!histories.bComplete) return;
  statusBar()->showMessage(ToQt(Say(texts::c_shownHistory, {host::DescribeHistory(histories)})));
}

void CMainWindow::AppendConsole(std::string_view strText) {
  QTextCursor cursor(m_console.document());
  cursor.movePosition(QTextCursor::End);
  cursor.insertText(m_decoder(QByteArrayView(strText.data(), static_cast<qsizetype>(strText.size()))));
  m_console.setTextCursor(cursor);
}

void CMainWindow::Remember(const QString& strFile) {
  QStringList files = m_pSettings->value(c_strRecentKey).toStringList();
  const QString strAbsolute = QFileInfo(strFile).absoluteFilePath();
  files.removeAll(strAbsolute);
  files.prepend(strAbsolute);
  m_pSettings->setValue(c_strRecentKey, QStringList(files.mid(0, c_nMostRecent)));
  FillRecentMenu();
}

void CMainWindow::FillRecentMenu() {
  m_recentMenu.clear();
  const QStringList files = m_pSettings->value(c_strRecentKey).toStringList();
  m_recentMenu.setEnabled(!files.isEmpty());
  for (const QString& strFile : files) {
    QAction* const pAction = m_recentMenu.addAction(QString(strFile).replace(QLatin1Char('&'), QStringLiteral("&&")));
    connect(
        pAction, &QAction::triggered, this, [this, strFile] { OpenJob(strFile); }, Qt::QueuedConnection);
  }
}

void CMainWindow::OnSavePicture() {
  constexpr FileKind c_kind = {texts::c_pictureTitle, texts::c_pictureFilter, "png"};
  const QString strFile = AskForFile(this, c_kind, ToQt(m_document.GetJobPath() + "_" + FormPictureName() + ".png"));
  if (strFile.isEmpty() || m_view.grab().save(strFile, "PNG")) return;
  m_platform.ShowMessage(Say(texts::c_pictureFailed));
}

std::string CMainWindow::FormPictureName() const {
  const std::string strForces = m_resultBar.FormFileName();
  if (strForces.empty()) return m_shapeBar.FormFileName();
  return m_view.IsShapeDrawn() ? m_shapeBar.FormFileName() + "_" + strForces : strForces;
}

void CMainWindow::OnReport() {
  constexpr FileKind c_kind = {texts::c_reportTitle, texts::c_reportFilter, "html"};
  const QString strFile = AskForFile(this, c_kind, ToQt(m_document.GetJobPath() + "_report.html"));
  if (strFile.isEmpty()) return;
  const auto form = [this] {
    return host::WriteReport(m_document.GetJob(), m_document.GetJobPath(), m_document.GetWarnings());
  };
  const auto report = form();
  if (!report.warnings.empty()) {
    m_advice.ShowAdvice([form, language = host::GetLanguage(), warnings = report.warnings] {
      return language == host::GetLanguage() ? warnings : form().warnings;
    });
    m_adviceDock.raise();
  }
  if (WriteText(strFile, report.strPage, texts::c_reportFailed))
    QDesktopServices::openUrl(QUrl::fromLocalFile(strFile));
}

void CMainWindow::OnPrint() {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(QPageLayout::Landscape);
  printer.setDocName(windowTitle());
  if (QPrintDialog(&printer, this).exec() == QDialog::Accepted) m_view.Print(printer);
}

void CMainWindow::OnAbout() {
  const QString strProgram = ToQt(Say(texts::c_program));
  QMessageBox::about(this, strProgram,
                     strProgram + QStringLiteral(" " SKYFRAME_VERSION "\n") + ToQt(Say(texts::c_aboutText)));
}

}  // namespace skyframe::gui
