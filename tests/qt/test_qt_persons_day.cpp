// A person's day: the ten-storey frame through the windows, from the modes to the written history,
// with the result files equal to those of the command line.

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "QtPerson.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/dialogs/HisResultDlg.h"
#include "skyframe/dialogs/Templates.h"
#include "skyframe/gui/MainWindow.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/results/HistoryResultFile.h"

namespace skyframe::test {
namespace {

namespace fs = std::filesystem;

std::string ReadText(const fs::path& path) {
  std::ifstream strm(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(strm), {}};
}

/// The text without the line that holds date and time.
std::string DropTime(const std::string& strText) {
  std::istringstream strm(strText);
  std::string strRest;
  int nDropped = 0;
  for (std::string strLine; std::getline(strm, strLine);) {
    const auto nColons = std::count(strLine.begin(), strLine.end(), ':');
    const auto nSlashes = std::count(strLine.begin(), strLine.end(), '/');
    const bool bTime = nColons == 2 && nSlashes == 2;
    nDropped += bTime ? 1 : 0;
    if (!bTime) strRest += strLine + '\n';
  }
  EXPECT_LE(nDropped, 1);
  return strRest;
}

host::Job MakeJob() {
  host::JobFile file = host::ReadJobFile(SKYFRAME_SOURCE_DIR "/examples/office10.json");
  EXPECT_TRUE(file.errors.empty());
  host::ModalJob modal;
  modal.nModes = 12;
  modal.nRootCheck = 1;
  modal.combination = {{3, 1.0}};
  host::SpectrumJob spectrum;
  spectrum.nModes = 12;
  spectrum.direction = {0.8, 0.6, 0.0};
  spectrum.nSiteClass = 2;
  spectrum.nIntensity = 3;
  spectrum.dDamping = 0.05;
  spectrum.nMethod = 1;
  spectrum.combination = {{3, 1.0}};
  host::NewmarkJob newmark;
  newmark.nLoad = 1;
  newmark.damping = {0.03, 0.04};
  newmark.earthquake =
      host::EarthquakeJob{.dTimeStep = 0.02, .dDuration = 4.0, .nMode = 0, .obliqueAxis = {}, .peaks = {}};
  newmark.earthquake->directions = {true, false, false};
  newmark.earthquake->peaks[0] = 0.7;
  host::StaticJob linear;
  linear.bNonlinear = false;
  linear.combination = {{0, 1.0}, {1, 0.5}};
  file.job.analyses = {modal, spectrum, newmark, linear};
  return file.job;
}

std::vector<DialogStep> Combine(const std::vector<std::pair<int, const char*>>& cases) {
  std::vector<DialogStep> steps;
  for (const auto& [nRow, strFactor] : cases) {
    steps.push_back(DialogStep::Type(c_nIdFactor, strFactor));
    steps.push_back(DialogStep::ToggleRow(c_nIdAvailable, nRow));
    steps.push_back(DialogStep::Click(c_nIdAdd));
  }
  steps.push_back(DialogStep::Ok());
  return steps;
}

/// What the person does in every dialog of the day.
void AddScripts(CQtPerson& person) {
  person.AddScript(c_nIdModeDlg, {DialogStep::Type(c_nIdModes, "12"), DialogStep::Choose(c_nIdModeComparison),
                                  DialogStep::Click(c_nIdModeLoadComb), DialogStep::Ok()});
  person.AddScript(c_nIdLoadCombDlg, Combine({{3, "1"}}));
  person.AddScript(c_nIdSpectrumDlg,
                   {DialogStep::Type(c_nIdExpandModes, "12"), DialogStep::Type(c_nIdDirectionX, "0.8"),
                    DialogStep::Type(c_nIdDirectionY, "0.6"), DialogStep::Type(c_nIdDirectionZ, "0"),
                    DialogStep::Choose(c_nIdSiteClass2), DialogStep::Choose(c_nIdIntensity8),
                    DialogStep::Type(c_nIdDampRatio, "0.05"), DialogStep::Choose(c_nIdCqc),
                    DialogStep::Click(c_nIdLoadValues), DialogStep::Ok()});
  person.AddScript(c_nIdLoadCombDlg, Combine({{3, "1"}}));
  person.AddScript(c_nIdDynOptionDlg, {DialogStep::Choose(c_nIdNewmark), DialogStep::Ok()});
  person.AddScript(c_nIdNewmarkDlg,
                   {DialogStep::Choose(c_nIdGroundMotion), DialogStep::Type(c_nIdDamping1, "0.03"),
                    DialogStep::Type(c_nIdDamping2, "0.04"), DialogStep::Click(c_nIdEarthquake), DialogStep::Ok()});
  person.AddScript(c_nIdEarthquakeDlg,
                   {DialogStep::Type(c_nIdStep, "0.02"), DialogStep::Type(c_nIdDuration, "4"),
                    DialogStep::Tick(c_nIdQuakeX), DialogStep::Type(c_nIdPeakX, "0.7"), DialogStep::Ok()});
  person.AddScript(
      c_nIdHisResultDlg,
      {DialogStep::Choose(c_nIdNodeHistory), DialogStep::Type(c_nIdHistoryNode, "999"), DialogStep::Click(c_nIdRefresh),
       DialogStep::Type(c_nIdHistoryNode, "11"), DialogStep::Choose(c_nIdHistoryX), DialogStep::Click(c_nIdRefresh),
       DialogStep::Inspect([](const IDialogView&) {
         QApplication::activeModalWidget()->grab().save(QStringLiteral(SKYFRAME_PICTURE_DIR "/viewer-node-11.png"));
       }),
       DialogStep::Click(c_nIdOutput), DialogStep::Ok()});
  person.AddScript(c_nIdNonlinStaticDlg,
                   {DialogStep::Tick(c_nIdNonlinear, false), DialogStep::Click(c_nIdLoadComb), DialogStep::Ok()});
  person.AddScript(c_nIdLoadCombDlg, Combine({{0, "1"}, {1, "0.5"}}));
}

TEST(PersonsDay, WindowsAndCommandLineWriteTheSameFiles) {
  const QTemporaryDir windows;
  const QTemporaryDir commands;
  const QFont font = QApplication::font();
  for (const QTemporaryDir* const pDirectory : {&windows, &commands}) {
    std::ofstream(pDirectory->filePath(QStringLiteral("office.json")).toStdString()) << host::FormatJob(MakeJob());
  }

  CQtPerson person;
  AddScripts(person);
  gui::CMainWindow window(windows.filePath(QStringLiteral("settings.ini")));
  window.show();
  ASSERT_TRUE(window.OpenJob(windows.filePath(QStringLiteral("office.json"))));
  for (const char* strAnalysis : {"modal", "spectrum", "time_history", "history_results", "static"}) {
    SCOPED_TRACE(strAnalysis);
    person.Watch([&] { window.findChild<QAction*>(QString::fromLatin1(strAnalysis))->trigger(); });
  }
  EXPECT_EQ(person.GetScriptErrors(), std::vector<std::string>{});
  EXPECT_FALSE(person.HasUnusedScripts());
  ASSERT_EQ(person.GetMessages().size(), 3U);
  EXPECT_TRUE(person.GetMessages()[0].starts_with("OK!\nTime = 0hour: 0min: "));
  EXPECT_TRUE(person.GetMessages()[1].starts_with("OK!\nTime = 0hour: 0min: "));
  EXPECT_EQ(person.GetMessages()[2], "错误: 没有所求节点");

  auto* const pShapes = window.findChild<QComboBox*>(QStringLiteral("shapes"));
  EXPECT_EQ(pShapes->count(), 1 + 1 + 12) << "undeformed, linear state, modes";
  pShapes->setCurrentIndex(2);
  window.grab().save(QStringLiteral(SKYFRAME_PICTURE_DIR "/main-window-mode-1.png"));
  const auto* const pResults = window.findChild<QListWidget*>(QStringLiteral("results"));

  std::ostringstream out, err;
  const fs::path commandJob = commands.filePath(QStringLiteral("office.json")).toStdString();
  ASSERT_EQ(host::RunCommandLine({"run", commandJob.string()}, out, err), host::c_nExitGood) << err.str() << out.str();

  int nCompared = 0;
  for (const fs::directory_entry& entry : fs::directory_iterator(commandJob.parent_path())) {
    const std::string strName = entry.path().filename().string();
    const fs::path twin = fs::path(windows.path().toStdString()) / strName;
    ASSERT_TRUE(fs::exists(twin)) << strName;
    EXPECT_TRUE(DropTime(ReadText(entry.path())) == DropTime(ReadText(twin))) << strName << " differs";
    EXPECT_GT(ReadText(twin).size(), 100U) << strName;
    ++nCompared;
    if (strName == "office.json") continue;
    EXPECT_FALSE(pResults->findItems(QString::fromStdString(strName), Qt::MatchExactly).isEmpty()) << strName;
  }
  EXPECT_GE(nCompared, 5) << "job, modes, spectrum, history, static";

  // The written history is node 11's X column of the result file.
  const auto readOf = [&](const QString& strName, auto read) {
    const auto history = read(windows.filePath(strName).toStdString());
    EXPECT_EQ(history.strError, "");
    return history.value_or(host::SingleHistory{});
  };
  const host::HistoryModel model = {192, 530};
  const auto written = readOf(QStringLiteral("office_11_node.txt"),
                              [&](const auto& strPath) { return host::ReadHistoryExtract(strPath, model); });
  const auto history = readOf(QStringLiteral("office_HisTime.txt"), [&](const auto& strPath) {
    return host::ReadHistory(strPath, model, {c_nHistoryX, 11});
  });
  EXPECT_EQ(written.nQuantity, c_nHistoryX);
  EXPECT_EQ(written.values.size(), 200U);
  EXPECT_EQ(written.values, history.values);
  QApplication::setFont(font);
}

}  // namespace
}  // namespace skyframe::test
