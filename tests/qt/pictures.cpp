// Draws the pictures of the README and of the manual: works at the real windows without a screen.

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>
#include <fstream>
#include <iostream>

#include "QtPerson.h"
#include "skyframe/dialogs/HisResultDlg.h"
#include "skyframe/dialogs/Templates.h"
#include "skyframe/gui/MainWindow.h"
#include "skyframe/qt/Font.h"

namespace skyframe::test {
namespace {

constexpr int c_nTitleHeight = 30;
const QColor c_titleColour(222, 224, 228);
const QColor c_edgeColour(150, 155, 160);

/// The window's picture under a title bar.
QPixmap FormPicture(QWidget& window) {
  const QPixmap content = window.grab();
  QPixmap picture(content.width() + 2, content.height() + c_nTitleHeight + 2);
  picture.fill(c_edgeColour);
  QPainter painter(&picture);
  const QRect title(1, 1, content.width(), c_nTitleHeight);
  painter.fillRect(title, c_titleColour);
  painter.setFont(FormDialogFont());
  painter.drawText(title.adjusted(10, 0, -10, 0), Qt::AlignVCenter | Qt::AlignLeft, window.windowTitle());
  painter.drawPixmap(1, c_nTitleHeight + 1, content);
  return picture;
}

class CPhotographer {
 public:
  explicit CPhotographer(QString strDirectory) : m_strDirectory(std::move(strDirectory)) {}

  void Take(QWidget& window, const QString& strName) {
    if (!FormPicture(window).save(m_strDirectory + QLatin1Char('/') + strName + QStringLiteral(".png"))) m_nFailed++;
  }

  /// Takes the topmost dialog, named by its identifier, when the script comes to it.
  DialogStep Take() {
    return DialogStep::Inspect([this](const IDialogView&) {
      QWidget* const pDialog = QApplication::activeModalWidget();
      Take(*pDialog, QStringLiteral("dialog-") + pDialog->objectName());
    });
  }

  [[nodiscard]] bool HasFailed() const { return m_nFailed > 0; }

 private:
  QString m_strDirectory;
  int m_nFailed = 0;
};

/// Masses of the floors: the load case that the example gives them by.
void CombineMasses(CQtPerson& person) {
  person.AddScript(c_nIdLoadCombDlg,
                   {DialogStep::ToggleRow(c_nIdAvailable, 3), DialogStep::Click(c_nIdAdd), DialogStep::Ok()});
}

void AddModalAndSpectrum(CQtPerson& person, CPhotographer& photographer) {
  person.AddScript(c_nIdModeDlg, {DialogStep::Type(c_nIdModes, "12"), DialogStep::Choose(c_nIdModeComparison),
                                  photographer.Take(), DialogStep::Click(c_nIdModeLoadComb), DialogStep::Ok()});
  CombineMasses(person);
  person.AddScript(c_nIdSpectrumDlg, {DialogStep::Type(c_nIdExpandModes, "12"), DialogStep::Choose(c_nIdSiteClass2),
                                      DialogStep::Choose(c_nIdIntensity8), DialogStep::Type(c_nIdDampRatio, "0.05"),
                                      DialogStep::Choose(c_nIdCqc), photographer.Take(),
                                      DialogStep::Click(c_nIdLoadValues), DialogStep::Ok()});
  CombineMasses(person);
}

/// A Wilson run looked at and cancelled, then the example's Newmark run under ground motion.
void AddTimeHistories(CQtPerson& person, CPhotographer& photographer) {
  person.AddScript(c_nIdDynOptionDlg, {photographer.Take(), DialogStep::Choose(c_nIdWilson), DialogStep::Ok()});
  person.AddScript(c_nIdWilsonDlg, {photographer.Take(), DialogStep::Cancel()});
  person.AddScript(c_nIdDynOptionDlg, {DialogStep::Choose(c_nIdNewmark), DialogStep::Ok()});
  person.AddScript(
      c_nIdNewmarkDlg,
      {DialogStep::Click(c_nIdImpulseLoad), DialogStep::Tick(c_nIdFromFile), DialogStep::Click(c_nIdGeneralLoad),
       DialogStep::Tick(c_nIdFromFile, false), photographer.Take(), DialogStep::Choose(c_nIdGroundMotion),
       DialogStep::Click(c_nIdEarthquake), DialogStep::Type(c_nIdDamping1, "0.05"),
       DialogStep::Type(c_nIdDamping2, "0.05"), DialogStep::Click(c_nIdLoadComb), DialogStep::Ok()});
  person.AddScript(c_nIdImpulseLoadDlg,
                   {DialogStep::Type(c_nIdImpulseNode, "11"), DialogStep::Type(c_nIdImpulsePeak, "50"),
                    DialogStep::Click(c_nIdImpulseInsert), DialogStep::Type(c_nIdImpulseNode, "12"),
                    DialogStep::Type(c_nIdImpulseDirection, "1"), DialogStep::Click(c_nIdImpulseInsert),
                    DialogStep::Type(c_nIdPeakTime, "0.1"), photographer.Take(), DialogStep::Cancel()});
  person.AddScript(c_nIdGeneralLoadDlg, {photographer.Take(), DialogStep::Cancel()});
  person.AddScript(c_nIdEarthquakeDlg, {DialogStep::Type(c_nIdDuration, "20"), DialogStep::Tick(c_nIdQuakeX),
                                        DialogStep::Type(c_nIdPeakX, "0.7"), photographer.Take(), DialogStep::Ok()});
  CombineMasses(person);
}

void AddViewerAndStatic(CQtPerson& person, CPhotographer& photographer) {
  person.AddScript(c_nIdHisResultDlg, {DialogStep::Type(c_nIdHistoryNode, "11"), DialogStep::Click(c_nIdRefresh),
                                       photographer.Take(), DialogStep::Ok()});
  person.AddScript(c_nIdNonlinStaticDlg, {photographer.Take(), DialogStep::Click(c_nIdLoadComb), DialogStep::Ok()});
  person.AddScript(c_nIdLoadCombDlg, {DialogStep::ToggleRow(c_nIdAvailable, 0), DialogStep::Click(c_nIdAdd),
                                      DialogStep::ToggleRow(c_nIdAvailable, 1), DialogStep::Type(c_nIdFactor, "0.5"),
                                      DialogStep::Click(c_nIdAdd), photographer.Take(), DialogStep::Ok()});
}

/// The day of the ten-storey frame; false when a step or a picture failed.
bool TakePictures(const QString& strDirectory) {
  const QTemporaryDir directory;
  const QString strJob = directory.filePath(QStringLiteral("office10.json"));
  if (!QFile::copy(QStringLiteral(SKYFRAME_SOURCE_DIR "/examples/office10.json"), strJob)) return false;
  CQtPerson person;
  CPhotographer photographer(strDirectory);
  AddModalAndSpectrum(person, photographer);
  AddTimeHistories(person, photographer);
  AddViewerAndStatic(person, photographer);
  gui::CMainWindow window(directory.filePath(QStringLiteral("settings.ini")));
  window.show();
  if (!window.OpenJob(strJob)) return false;
  for (const char* strAnalysis : {"modal", "spectrum", "time_history", "time_history", "history_results", "static"}) {
    person.Watch([&] { window.findChild<QAction*>(QString::fromLatin1(strAnalysis))->trigger(); });
  }
  QTest::qWait(50);
  window.findChild<QListWidget*>(QStringLiteral("results"))->setCurrentRow(3);
  window.findChild<QComboBox*>(QStringLiteral("shapes"))->setCurrentIndex(2);
  photographer.Take(window, QStringLiteral("first-mode"));
  for (const std::string& strError : person.GetScriptErrors()) std::cerr << strError << '\n';
  return person.GetScriptErrors().empty() && !person.HasUnusedScripts() && !photographer.HasFailed();
}

}  // namespace
}  // namespace skyframe::test

int main(int nArguments, char** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(nArguments, arguments);
  QApplication::setCursorFlashTime(0);
  if (nArguments != 2) {
    std::cerr << "usage: skyframe_pictures DIRECTORY\n";
    return 2;
  }
  return skyframe::test::TakePictures(QString::fromLocal8Bit(arguments[1])) ? 0 : 1;
}
