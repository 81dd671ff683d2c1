#include "skyframe/gui/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <algorithm>
#include <array>
#include <iterator>

#include "ErrorDialog.h"
#include "ShapeTitle.h"
#include "skyframe/qt/Font.h"
#include "skyframe/results/Histories.h"
#include "skyframe/run/DataDirectory.h"
#include "skyframe/run/RunReport.h"
#include "texts.h"

namespace skyframe::gui {

namespace {

constexpr int c_nMostConsoleLines = 20000;
constexpr qsizetype c_nMostRecent = 8;
constexpr int c_nAmplitudeSteps = 100;
constexpr double c_dLargestAmplitude = 0.5;  // parts of the structure's radius
constexpr int c_nUsualAmplitude = 25;
constexpr int c_nSliderWidth = 180;
constexpr int c_nMenuMargin = 3;  // heights of a line beside a menu's longest text
constexpr std::array<int, 3> c_nFontPercents = {100, 125, 150};

const QString c_strRecentKey = QStringLiteral("recent");
const QString c_strFontKey = QStringLiteral("font_percent");
const QString c_strGeometryKey = QStringLiteral("geometry");
const QString c_strStateKey = QStringLiteral("state");

/// Room for every text: a style may reckon with marks that are smaller than those of a large font.
void WidenMenu(QMenu& menu) {
  const QFontMetrics metrics = menu.fontMetrics();
  int nText = 0;
  for (const QAction* const pAction : menu.actions()) {
    const QString strKeys = pAction->shortcut().toString(QKeySequence::NativeText);
    nText = std::max(nText, metrics.horizontalAdvance(pAction->text() + strKeys));
  }
  menu.setMinimumWidth(nText + c_nMenuMargin * metrics.height());
}

std::unique_ptr<QSettings> OpenSettings(const QString& strFile) {
  if (!strFile.isEmpty()) return std::make_unique<QSettings>(strFile, QSettings::IniFormat);
  return std::make_unique<QSettings>(QStringLiteral("skyframe"), QStringLiteral("skyframe-gui"));
}

}  // namespace

CMainWindow::CMainWindow(const QString& strSettingsFile)
    : m_pSettings(OpenSettings(strSettingsFile)),
      m_platform(this),
      m_pPrevious(InstallPlatform(&m_platform)),
      m_shapeBar(this),
      m_consoleDock(this),
      m_decoder(QStringDecoder::Utf8),
      m_adviceDock(this),
      m_resultDock(this),
      m_recentMenu(this),
      m_fontSizes(this) {
  setObjectName(QStringLiteral("main"));
  setWindowTitle(ToQt(texts::c_strProgram));
  setCentralWidget(&m_view);
  MakeFileMenu();
  MakeAnalysisMenu();
  MakeShapeBar();
  MakeDocks();
  MakeViewMenu();
  MakeHelpMenu();
  statusBar()->show();
  m_platform.SetConsoleSink([this](std::string_view strText) { AppendConsole(strText); });
  SetFontScale(m_pSettings->value(c_strFontKey, 100).toInt() / 100.0);
  resize(1180, 780);
  restoreGeometry(m_pSettings->value(c_strGeometryKey).toByteArray());
  restoreState(m_pSettings->value(c_strStateKey).toByteArray());
  RefreshResults();
}

QMenu& CMainWindow::AddMenu(std::string_view strTitle) {
  QMenu& menu = *menuBar()->addMenu(ToQt(strTitle));
  menu.setToolTipsVisible(true);
  connect(&menu, &QMenu::aboutToShow, this, [&menu] { WidenMenu(menu); });
  return menu;
}

CMainWindow::~CMainWindow() { InstallPlatform(m_pPrevious); }

void CMainWindow::closeEvent(QCloseEvent* pEvent) {
  m_pSettings->setValue(c_strGeometryKey, saveGeometry());
  m_pSettings->setValue(c_strStateKey, saveState());
  pEvent->accept();
}

QAction* CMainWindow::AddAction(QMenu& menu, std::string_view strText, std::string_view strTip, const char* strName,
                                std::function<void()> action) {
  QAction* const pAction = menu.addAction(ToQt(strText));
  pAction->setObjectName(QString::fromLatin1(strName));
  pAction->setToolTip(ToQt(strTip));
  pAction->setStatusTip(ToQt(strTip));
  connect(pAction, &QAction::triggered, this, std::move(action));
  return pAction;
}

QAction* CMainWindow::AddOption(QMenu& menu, std::string_view strText, std::string_view strTip, const char* strName,
                                bool ViewOptions::*pOption) {
  QAction* const pAction = AddAction(menu, strText, strTip, strName, [] {});
  pAction->setCheckable(true);
  pAction->setChecked(m_view.GetOptions().*pOption);
  connect(pAction, &QAction::toggled, this, [this, pOption](bool bOn) {
    ViewOptions options = m_view.GetOptions();
    options.*pOption = bOn;
    m_view.SetOptions(options);
  });
  return pAction;
}

void CMainWindow::MakeFileMenu() {
  QMenu& menu = AddMenu(texts::c_strFileMenu);
  AddAction(menu, texts::c_strOpen, texts::c_strOpenTip, "open", [this] { OnOpen(); })->setShortcut(QKeySequence::Open);
  m_recentMenu.setTitle(ToQt(texts::c_strRecent));
  menu.addMenu(&m_recentMenu);
  FillRecentMenu();
  QAction* const pReload =
      AddAction(menu, texts::c_strReload, texts::c_strReloadTip, "reload", [this] { OpenJob(m_strJobFile); });
  pReload->setShortcut(QKeySequence::Refresh);
  m_jobActions.push_back(pReload);
  menu.addSeparator();
  m_jobActions.push_back(
      AddAction(menu, texts::c_strSavePicture, texts::c_strSavePictureTip, "picture", [this] { OnSavePicture(); }));
  menu.addSeparator();
  AddAction(menu, texts::c_strQuit, texts::c_strQuitTip, "quit", [this] { close(); })->setShortcut(QKeySequence::Quit);
}

void CMainWindow::MakeAnalysisMenu() {
  QMenu& menu = AddMenu(texts::c_strAnalysisMenu);
  const auto addRun = [this, &menu](std::string_view strText, std::string_view strTip, const char* strName,
                                    host::AnalysisKind kind) {
    m_jobActions.push_back(AddAction(menu, strText, strTip, strName, [this, kind] { Analyse(kind); }));
  };
  using Kind = host::AnalysisKind;
  addRun(texts::c_strModal, texts::c_strModalTip, "modal", Kind::Modal);
  addRun(texts::c_strSpectrum, texts::c_strSpectrumTip, "spectrum", Kind::Spectrum);
  addRun(texts::c_strTimeHistory, texts::c_strTimeHistoryTip, "time_history", Kind::TimeHistory);
  m_jobActions.push_back(AddAction(menu, texts::c_strHistoryResults, texts::c_strHistoryResultsTip, "history_results",
                                   [this] { ShowHistories(); }));
  addRun(texts::c_strStatic, texts::c_strStaticTip, "static", Kind::Static);
}

void CMainWindow::MakeViewMenu() {
  QMenu& menu = AddMenu(texts::c_strViewMenu);
  const auto addView = [this, &menu](std::string_view strText, std::string_view strTip, const char* strName,
                                     host::ViewDirection view) {
    AddAction(menu, strText, strTip, strName, [this, view] { m_view.SetDirection(view); });
  };
  addView(texts::c_strIsometric, texts::c_strIsometricTip, "isometric", host::c_obliqueView);
  addView(texts::c_strFront, texts::c_strFrontTip, "front", host::c_frontView);
  addView(texts::c_strSide, texts::c_strSideTip, "side", host::c_sideView);
  addView(texts::c_strPlan, texts::c_strPlanTip, "plan", host::c_planView);
  AddAction(menu, texts::c_strFit, texts::c_strFitTip, "fit", [this] { m_view.FitAll(); });
  menu.addSeparator();
  AddOption(menu, texts::c_strSupports, texts::c_strSupportsTip, "supports", &ViewOptions::bSupports);
  AddOption(menu, texts::c_strLoads, texts::c_strLoadsTip, "loads", &ViewOptions::bLoads);
  AddOption(menu, texts::c_strNodeNumbers, texts::c_strNodeNumbersTip, "node_numbers", &ViewOptions::bNodeNumbers);
  AddOption(menu, texts::c_strElementNumbers, texts::c_strElementNumbersTip, "element_numbers",
            &ViewOptions::bElementNumbers);
  menu.addSeparator();
  menu.addAction(m_consoleDock.toggleViewAction());
  menu.addAction(m_adviceDock.toggleViewAction());
  menu.addAction(m_resultDock.toggleViewAction());
  MakeFontMenu(menu);
}

void CMainWindow::MakeFontMenu(QMenu& viewMenu) {
  QMenu& menu = *viewMenu.addMenu(ToQt(texts::c_strFontMenu));
  for (const int nPercent : c_nFontPercents) {
    const std::string strText = std::to_string(nPercent) + " %";
    QAction* const pAction = AddAction(menu, strText, texts::c_strFontTip, "font", [this, nPercent] {
      m_pSettings->setValue(c_strFontKey, nPercent);
      SetFontScale(nPercent / 100.0);
    });
    pAction->setCheckable(true);
    pAction->setChecked(nPercent == m_pSettings->value(c_strFontKey, 100).toInt());
    m_fontSizes.addAction(pAction);
  }
}

void CMainWindow::MakeHelpMenu() {
  QMenu& menu = AddMenu(texts::c_strHelpMenu);
  AddAction(menu, texts::c_strAbout, texts::c_strAboutTip, "about", [this] { OnAbout(); });
}

void CMainWindow::MakeShapeBar() {
  m_shapeBar.setObjectName(QStringLiteral("shape_bar"));
  m_shapeBar.setWindowTitle(ToQt(texts::c_strShapeBar));
  m_shapeLabel.setText(ToQt(texts::c_strShapeBar) + QLatin1Char(' '));
  m_shapeList.setObjectName(QStringLiteral("shapes"));
  m_shapeList.setToolTip(ToQt(texts::c_strShapeTip));
  m_shapeList.setSizeAdjustPolicy(QComboBox::AdjustToContents);
  m_amplitudeLabel.setText(QStringLiteral("  ") + ToQt(texts::c_strAmplitude) + QLatin1Char(' '));
  m_amplitude.setObjectName(QStringLiteral("amplitude"));
  m_amplitude.setToolTip(ToQt(texts::c_strAmplitudeTip));
  m_amplitude.setOrientation(Qt::Horizontal);
  m_amplitude.setRange(0, c_nAmplitudeSteps);
  m_amplitude.setFixedWidth(c_nSliderWidth);
  m_animate.setObjectName(QStringLiteral("animate"));
  m_animate.setText(ToQt(texts::c_strAnimate));
  m_animate.setToolTip(ToQt(texts::c_strAnimateTip));
  for (QWidget* const pWidget : {static_cast<QWidget*>(&m_shapeLabel), static_cast<QWidget*>(&m_shapeList),
                                 static_cast<QWidget*>(&m_amplitudeLabel), static_cast<QWidget*>(&m_amplitude),
                                 static_cast<QWidget*>(&m_animate)}) {
    m_shapeBar.addWidget(pWidget);
  }
  m_shapeBar.insertSeparator(m_shapeBar.actions().constLast());

  addToolBar(&m_shapeBar);
  connect(&m_shapeList, &QComboBox::currentIndexChanged, this, [this] { ShowShape(); });
  connect(&m_amplitude, &QSlider::valueChanged, this,
          [this](int nValue) { m_view.SetAmplitude(c_dLargestAmplitude * nValue / c_nAmplitudeSteps); });
  connect(&m_animate, &QCheckBox::toggled, this, [this](bool bOn) { m_view.SetAnimated(bOn); });
  m_amplitude.setValue(c_nUsualAmplitude);
}

void CMainWindow::MakeDocks() {
  m_console.setObjectName(QStringLiteral("console"));
  m_console.setReadOnly(true);
  m_console.setMaximumBlockCount(c_nMostConsoleLines);
  m_console.setLineWrapMode(QPlainTextEdit::NoWrap);
  m_console.setToolTip(ToQt(texts::c_strConsoleTip));
  m_consoleDock.setObjectName(QStringLiteral("console_dock"));
  m_consoleDock.setWindowTitle(ToQt(texts::c_strConsole));
  m_consoleDock.setWidget(&m_console);
  addDockWidget(Qt::BottomDockWidgetArea, &m_consoleDock);
  m_adviceDock.setObjectName(QStringLiteral("advice_dock"));
  m_adviceDock.setWindowTitle(ToQt(texts::c_strAdvice));
  m_adviceDock.setWidget(&m_advice);
  addDockWidget(Qt::BottomDockWidgetArea, &m_adviceDock);
  m_resultDock.setObjectName(QStringLiteral("result_dock"));
  m_resultDock.setWindowTitle(ToQt(texts::c_strResults));
  m_resultDock.setWidget(&m_results);
  addDockWidget(Qt::RightDockWidgetArea, &m_resultDock);
  resizeDocks({&m_consoleDock}, {150}, Qt::Vertical);
  resizeDocks({&m_resultDock}, {360}, Qt::Horizontal);
}

void CMainWindow::SetFontScale(double dScale) {
  m_platform.SetFontScale(dScale);
  const QFont font = FormDialogFont(dScale);
  QApplication::setFont(font);
  // A dock with the application's own font would keep the title font that it was made with.
  QFont dockFont = font;
  dockFont.setStyleHint(QFont::SansSerif);
  m_consoleDock.setFont(dockFont);
  m_adviceDock.setFont(dockFont);
  m_resultDock.setFont(dockFont);
  m_results.SetTextSize(font.pointSizeF());
}

void CMainWindow::OnOpen() {
  const QString strDirectory = m_strJobFile.isEmpty() ? QString() : QFileInfo(m_strJobFile).path();
  const QString strFile =
      QFileDialog::getOpenFileName(this, ToQt(texts::c_strOpenTitle), strDirectory, ToQt(texts::c_strJobFilter));
  if (!strFile.isEmpty()) OpenJob(strFile);
}

bool CMainWindow::OpenJob(const QString& strFile) {
  const std::string strPath = strFile.toStdString();
  host::JobFile file = host::ReadJobFile(strPath);
  const std::string strJobPath = host::GetJobPath(strPath);
  if (file.errors.empty()) {
    auto session = host::CSession::Open(std::move(file.job), strJobPath, host::FindDataDirectory());
    if (session) {
      m_session = std::move(session);
    } else {
      file.errors.push_back({"/", std::string(texts::c_strPathTooLong)});
    }
  }
  if (!file.errors.empty()) {
    CErrorDialog(strFile, file.errors, this).exec();
    return false;
  }
  const bool bSameFile = strFile == m_strJobFile;
  m_strJobFile = strFile;
  m_view.SetScene(host::CScene(m_session->GetJob()), bSameFile);
  m_results.SetJobPath(strJobPath);
  const QString strTitle = QString::fromStdString(m_session->GetJob().strTitle);
  setWindowTitle((strTitle.isEmpty() ? QFileInfo(strFile).fileName() : strTitle) + QStringLiteral(" - ") +
                 ToQt(texts::c_strProgram));
  m_console.clear();
  statusBar()->clearMessage();
  m_advice.ShowAdvice(host::AdviseOnInput(file.warnings));
  Remember(strFile);
  RefreshResults();
  return true;
}

void CMainWindow::Analyse(host::AnalysisKind kind) {
  const RunFindings& findings = m_session->Run(kind);
  if (findings.status != RunStatus::Cancelled) {  // else what was told of the run before still holds
    host::AdviceList list = host::AdviseOnFiles(findings);
    std::ranges::move(host::ReportRun(*m_session, kind).advice, std::back_inserter(list));
    m_advice.ShowAdvice(list);
  }
  ShowRun();
}

void CMainWindow::ShowHistories() {
  m_session->ShowHistories();
  ShowRun();
}

void CMainWindow::ShowRun() {
  const HistorySet& histories = m_session->GetHistories();
  if (histories.bComplete) {
    statusBar()->showMessage(ToQt(std::string(texts::c_strShownHistory) + host::DescribeHistory(histories)));
  }
  RefreshResults();
}

void CMainWindow::AppendConsole(std::string_view strText) {
  QTextCursor cursor(m_console.document());
  cursor.movePosition(QTextCursor::End);
  cursor.insertText(m_decoder(QByteArrayView(strText.data(), static_cast<qsizetype>(strText.size()))));
  m_console.setTextCursor(cursor);
}

void CMainWindow::RefreshResults() {
  for (QAction* const pAction : m_jobActions) pAction->setEnabled(!m_strJobFile.isEmpty());
  m_results.Refresh();
  m_shapes.clear();
  if (m_session) m_shapes = host::ReadShapes(m_session->GetJobPath(), m_session->GetJob().nodes);
  const int nChosen = m_shapeList.currentIndex();
  {
    const QSignalBlocker blocker(m_shapeList);
    m_shapeList.clear();
    m_shapeList.addItem(ToQt(texts::c_strNoShape));
    for (const host::DeformedShape& shape : m_shapes) m_shapeList.addItem(ToQt(FormShapeTitle(shape)));
    m_shapeList.setCurrentIndex(nChosen > 0 && nChosen < m_shapeList.count() ? nChosen : 0);
  }
  ShowShape();
}

void CMainWindow::ShowShape() {
  const int nShape = m_shapeList.currentIndex() - 1;
  const bool bShape = nShape >= 0;
  m_view.SetShape(bShape ? std::optional(m_shapes[static_cast<std::size_t>(nShape)]) : std::nullopt);
  m_amplitude.setEnabled(bShape);
  m_animate.setEnabled(bShape);
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
  const QString strFile =
      QFileDialog::getSaveFileName(this, ToQt(texts::c_strProgram), QString(), ToQt(texts::c_strPictureFilter));
  if (strFile.isEmpty() || m_view.grab().save(strFile, "PNG")) return;
  m_platform.ShowMessage(texts::c_strPictureFailed);
}

void CMainWindow::OnAbout() {
  QMessageBox::about(
      this, ToQt(texts::c_strProgram),
      ToQt(texts::c_strProgram) + QStringLiteral(" " SKYFRAME_VERSION "\n") + ToQt(texts::c_strAboutText));
}

}  // namespace skyframe::gui
