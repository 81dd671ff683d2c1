// A person's day: the ten-storey frame through the windows, from the modes to the written history,
// with the result files equal to those of the command line. Its pictures are those of the README and the manual
// (scripts/pictures).

#include <QTest>
#include <QtWidgets>
#include <fstream>

#include "CommandFolder.h"
#include "QtPerson.h"
#include "skyframe/gui/MainWindow.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/qt/Font.h"
#include "skyframe/results/ResultList.h"

namespace skyframe::test {
namespace {

/// The text without the line that holds the date, the only one with slashes.
std::string DropTime(std::string strText) {
  const std::size_t nSlash = strText.find('/');
  if (nSlash == std::string::npos) return strText;
  const std::size_t nLine = strText.rfind('\n', nSlash);
  return strText.erase(nLine, strText.find('\n', nSlash) - nLine);
}

/// The window under a title bar.
void SavePicture(QWidget& window, const QString& strName) {
  constexpr int c_nTitleHeight = 30;
  const QPixmap content = window.grab();
  QPixmap picture(content.width() + 2, content.height() + c_nTitleHeight + 2);
  picture.fill(QColor(150, 155, 160));
  QPainter painter(&picture);
  const QRect title(1, 1, content.width(), c_nTitleHeight);
  painter.fillRect(title, QColor(222, 224, 228));
  painter.setFont(FormDialogFont());
  painter.drawText(title.adjusted(10, 0, -10, 0), Qt::AlignVCenter | Qt::AlignLeft,
                   window.windowTitle().remove(QStringLiteral("[*]")));
  painter.drawPixmap(1, c_nTitleHeight + 1, content);
  EXPECT_TRUE(picture.save(QStringLiteral(SKYFRAME_PICTURE_DIR "/") + strName + QStringLiteral(".png")));
}

/// Takes a picture of the topmost dialog, named by its identifier.
DialogStep Photograph() {
  return Do::Inspect([](const IDialogView&) {
    QWidget* const pDialog = QApplication::activeModalWidget();
    SavePicture(*pDialog, QStringLiteral("dialog-") + pDialog->objectName());
  });
}

using Factors = std::vector<std::pair<int, const char*>>;  ///< load case and factor

void Combine(CQtPerson& person, const Factors& factors) {
  Steps steps;
  for (const auto& [nCase, pszFactor] : factors) {
    steps.insert(steps.end(),
                 {Do::Type(c_nIdFactor, pszFactor), Do::ToggleRow(c_nIdAvailable, nCase), Do::Click(c_nIdAdd)});
  }
  steps.insert(steps.end(), {Photograph(), Do::Ok()});
  person.AddScript(c_nIdLoadCombDlg, steps);
}

/// Every analysis of the example's job, entered by hand; impulses, general loads and a Wilson run are looked at and
/// cancelled.
void AddScripts(CQtPerson& person) {
  const Factors mass = {{0, "-1"}, {1, "-0.5"}};
  const Factors loads = {{0, "1"}, {1, "1"}, {2, "1"}};
  person.AddScript(c_nIdModeDlg, {Do::Type(c_nIdModes, "12"), Do::Choose(c_nIdModeComparison), Photograph(),
                                  Do::Click(c_nIdModeLoadComb), Do::Ok()});
  Combine(person, mass);
  person.AddScript(c_nIdSpectrumDlg,
                   {Do::Type(c_nIdExpandModes, "12"), Do::Type(c_nIdMeshDiv, "4"), Do::Type(c_nIdDirectionX, "1"),
                    Do::Type(c_nIdDirectionY, "0"), Do::Type(c_nIdDirectionZ, "0"), Do::Choose(c_nIdSiteClass2),
                    Do::Choose(c_nIdIntensity8), Do::Type(c_nIdDampRatio, "0.04"), Do::Choose(c_nIdCqc), Photograph(),
                    Do::Click(c_nIdLoadValues), Do::Ok()});
  Combine(person, mass);
  person.AddScript(c_nIdDynOptionDlg, {Photograph(), Do::Choose(c_nIdWilson), Do::Ok()});
  person.AddScript(c_nIdWilsonDlg, {Photograph(), Do::Cancel()});
  person.AddScript(c_nIdDynOptionDlg, {Do::Choose(c_nIdNewmark), Do::Ok()});
  person.AddScript(c_nIdNewmarkDlg, {Do::Click(c_nIdImpulseLoad), Do::Tick(c_nIdFromFile), Do::Click(c_nIdGeneralLoad),
                                     Do::Tick(c_nIdFromFile, false), Photograph(), Do::Choose(c_nIdGroundMotion),
                                     Do::Click(c_nIdEarthquake), Do::Type(c_nIdDamping1, "0.04"),
                                     Do::Type(c_nIdDamping2, "0.04"), Do::Click(c_nIdLoadComb), Do::Ok()});
  person.AddScript(c_nIdImpulseLoadDlg,
                   {Do::Type(c_nIdImpulseNode, "11"), Do::Type(c_nIdImpulsePeak, "50"), Do::Click(c_nIdImpulseInsert),
                    Do::Type(c_nIdImpulseNode, "12"), Do::Type(c_nIdImpulseDirection, "1"),
                    Do::Click(c_nIdImpulseInsert), Do::Type(c_nIdPeakTime, "0.1"), Photograph(), Do::Cancel()});
  person.AddScript(c_nIdGeneralLoadDlg, {Photograph(), Do::Cancel()});
  person.AddScript(c_nIdEarthquakeDlg, {Do::Type(c_nIdStep, "0.02"), Do::Type(c_nIdDuration, "20"),
                                        Do::Tick(c_nIdQuakeX), Do::Type(c_nIdPeakX, "0.7"), Photograph(), Do::Ok()});
  Combine(person, mass);
  person.AddScript(c_nIdHisResultDlg,
                   {Do::Choose(c_nIdNodeHistory), Do::Type(c_nIdHistoryNode, "999"), Do::Click(c_nIdRefresh),
                    Do::Type(c_nIdHistoryNode, "11"), Do::Choose(c_nIdHistoryX), Do::Click(c_nIdRefresh), Photograph(),
                    Do::Click(c_nIdOutput), Do::Ok()});
  person.AddScript(c_nIdNonlinStaticDlg,
                   {Photograph(), Do::Tick(c_nIdNonlinear, false), Do::Click(c_nIdLoadComb), Do::Ok()});
  Combine(person, loads);
  // it opens with what was entered before, the combination too
  person.AddScript(c_nIdNonlinStaticDlg, {Do::Tick(c_nIdNonlinear), Do::ChooseItem(c_nIdCriterion, 2),
                                          Do::Type(c_nIdTolerance, "1e-6"), Do::Type(c_nIdMaxIter, "50"), Do::Ok()});
}

TEST(PersonsDay, WindowsAndCommandLineWriteTheSameFiles) {
  const CJobFolder windows("windows");
  const CCommandFolder commands;
  const QFont font = QApplication::font();
  QApplication::setCursorFlashTime(0);  // the same pictures every day
  constexpr const char* c_pszExample = SKYFRAME_SOURCE_DIR "/examples/office10.json";
  std::filesystem::copy_file(c_pszExample, commands.GetPath(".json"));
  host::Job bare = host::ReadJobFile(c_pszExample).job;
  bare.analyses.clear();  // the person enters them all
  std::ofstream(windows.GetPath(".json")) << host::FormatJob(bare);

  CQtPerson person;
  AddScripts(person);
  gui::CMainWindow window(QString::fromStdString(windows.GetPath(".ini")));
  window.show();
  ASSERT_TRUE(window.OpenJob(QString::fromStdString(windows.GetPath(".json"))));
  for (const char* strAnalysis :
       {"modal", "spectrum", "time_history", "time_history", "history_results", "static", "static"}) {
    SCOPED_TRACE(strAnalysis);
    person.Watch([&] { window.findChild<QAction*>(QString::fromLatin1(strAnalysis))->trigger(); });
  }
  EXPECT_EQ(person.GetScriptErrors(), std::vector<std::string>{});
  EXPECT_FALSE(person.HasUnusedScripts());
  Strings messages = person.GetMessages();
  EXPECT_EQ(std::erase(messages, "请输入一个数字。"), 6U) << "at the minus sign of a factor, in three combinations";
  ASSERT_EQ(messages.size(), 3U);
  for (const unsigned k : {0U, 1U}) EXPECT_TRUE(messages[k].starts_with("OK!\nTime = 0hour: 0min: "));
  EXPECT_EQ(messages[2], "错误: 没有所求节点");

  auto* const pShapes = window.findChild<QComboBox*>(QStringLiteral("shapes"));
  pShapes->setCurrentIndex(3);
  auto* const pResults = window.findChild<QListWidget*>(QStringLiteral("results"));
  pResults->setCurrentRow(pResults->count() - 1);
  window.findChild<QComboBox*>(QStringLiteral("colours"))->setCurrentIndex(1);  // by displacement
  window.resize(1400, 880);
  QTest::qWait(50);
  SavePicture(window, QStringLiteral("first-mode"));

  const CommandOutcome outcome = CCommandFolder::Call({"run", commands.GetPath(".json")});
  ASSERT_EQ(outcome.nStatus, host::c_nExitGood) << outcome.strErr << outcome.strOut;
  EXPECT_TRUE(windows.Has("_11_node.txt"));
  const Strings names = commands.List();
  EXPECT_GE(names.size(), 6U) << "job, modes, spectrum, history, states";
  for (const std::string& strName : names) {
    const std::string strSuffix = strName.substr(3), strText = windows.Read(strSuffix);
    if (strSuffix == ".json" || strSuffix == host::c_strStampSuffix) continue;
    EXPECT_TRUE(DropTime(strText) == DropTime(commands.Read(strSuffix))) << strName << " differs";
    EXPECT_GT(strText.size(), 100U) << strName;
    EXPECT_FALSE(pResults->findItems(QString::fromStdString(strName), Qt::MatchExactly).isEmpty());
  }

  const std::string strSaved = windows.GetPath("_saved.json");
  ASSERT_EQ(window.GetDocument().Save(QString::fromStdString(strSaved)), "");
  const auto& analyses = window.GetDocument().GetJob().analyses;
  EXPECT_EQ(analyses.size(), host::ReadJobFile(c_pszExample).job.analyses.size()) << "what was entered is in the job";

  QApplication::setFont(font);
}

}  // namespace
}  // namespace skyframe::test
