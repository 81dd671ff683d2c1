// What the window works on: analyses that a person changes, job files that others change, results and their forces.

#include <QTest>

#include "QtPerson.h"
#include "WindowTest.h"
#include "skyframe/job/DialogFields.h"
#include "skyframe/values/DialogIds.h"

namespace skyframe::gui {
namespace {

using Document = WindowTest;

TEST_F(Document, WhatADialogConfirmsTakesThePlaceOfWhatItReplaces) {
  const auto spectrum = [](std::array<double, 3> direction, double dDamping) {
    host::SpectrumJob analysis;
    analysis.direction = direction;
    analysis.dDamping = dDamping;
    return analysis;
  };
  host::StaticJob linear, nonlinear;
  linear.bNonlinear = false;
  nonlinear.bNonlinear = true;
  host::WilsonJob wilson;
  wilson.dTheta = 1.5;
  const std::vector<host::JobAnalysis> before = {linear, spectrum({1, 0, 0}, 0.04), spectrum({0, 1, 0}, 0.04),
                                                 host::NewmarkJob{}};
  const auto with = [&before](std::size_t nPlace, const host::JobAnalysis& analysis) {
    auto analyses = before;
    nPlace < analyses.size() ? void(analyses[nPlace] = analysis) : analyses.push_back(analysis);
    return analyses;
  };
  const struct {
    const char* pszWhat;
    std::optional<std::size_t> nRunFrom;
    host::JobAnalysis confirmed;
    std::vector<host::JobAnalysis> after;
  } cases[] = {
      {"the second spectrum, as it was", 2, before[2], before},
      {"the second spectrum, changed", 2, spectrum({0, 1, 0}, 0.1), with(2, spectrum({0, 1, 0}, 0.1))},
      {"a spectrum from the menu", {}, spectrum({0, 0, 1}, 0.04), with(1, spectrum({0, 0, 1}, 0.04))},
      {"a default that a dialog shows as a number", 3, host::WithDefaults(host::NewmarkJob{}), before},
      {"linear turned nonlinear writes other files", 0, nonlinear, with(4, nonlinear)},
      {"another method of the same histories", 3, wilson, with(3, wilson)},
      {"of a new kind", {}, host::ModalJob{}, with(4, host::ModalJob{})},
  };
  host::Job job = MakeCantilever();
  job.analyses = before;
  for (const auto& c : cases) {
    CDocument document;
    ASSERT_TRUE(document.Open(WriteJob("kept.json", job)).empty());
    int nNotices = 0;
    document.analysesChanged.Connect([&nNotices] { ++nNotices; });
    document.KeepAnalysis(c.nRunFrom, c.confirmed);
    EXPECT_TRUE(document.GetJob().analyses == c.after) << c.pszWhat;
    EXPECT_EQ(document.IsModified(), c.after != before) << c.pszWhat;
    EXPECT_EQ(nNotices, document.IsModified() ? 1 : 0) << c.pszWhat;
  }
}

TEST_F(Document, KnowsWhetherOthersHaveWrittenItsFile) {
  CDocument document;
  host::Job job = MakeCantilever();
  const QString strFile = WriteJob("shared.json", job);
  ASSERT_TRUE(document.Open(strFile).empty());
  EXPECT_FALSE(document.IsChangedOnDisk());
  WriteJob("shared.json", job);
  EXPECT_FALSE(document.IsChangedOnDisk()) << "written again, but the same";
  job.sections[0].dArea = 2e4;
  WriteJob("shared.json", job);
  EXPECT_TRUE(document.IsChangedOnDisk());
  document.SetAnalyses({host::ModalJob{}});
  EXPECT_EQ(document.Save(strFile), "");
  EXPECT_FALSE(document.IsChangedOnDisk()) << "its own";
  EXPECT_EQ(host::ReadJobFile(strFile.toStdString()).job.sections[0].dArea, 1e4);
  QFile::remove(strFile);
  EXPECT_FALSE(document.IsChangedOnDisk()) << "nothing there to be lost";
}

TEST_F(Document, SavedToAnotherFileItWorksOnThat) {
  CDocument document;
  const QString strOld = WriteJob("old.json", MakeCantilever());
  WriteFile(Path("new.mode"), "");
  ASSERT_TRUE(document.Open(strOld).empty());
  document.Select({{1}, {0}});
  document.SetAnalyses({host::ModalJob{}});
  EXPECT_NE(document.Save(Path("nowhere/new.json")), "");
  EXPECT_TRUE(document.IsModified() && document.GetFile() == strOld);
  EXPECT_EQ(document.Save(Path("new.json")), "");
  EXPECT_EQ(document.GetFile(), Path("new.json"));
  EXPECT_EQ(document.GetJobPath(), Path("new").toStdString());
  EXPECT_FALSE(document.IsModified());
  EXPECT_TRUE(document.HasResult(host::ResultKind::Modes)) << "those beside the new file";
  EXPECT_TRUE(document.GetSelection().IsEmpty());
  EXPECT_TRUE(host::ReadJobFile(strOld.toStdString()).job.analyses.empty()) << "the old file stays";
}

/// All buttons of a message box and one of them pressed.
void Press(QMessageBox& box, const char* pszText) {
  EXPECT_EQ(box.buttons().size(), 3);
  for (QAbstractButton* const pButton : box.buttons()) {
    if (pButton->text() == QString::fromUtf8(pszText)) return QTest::mouseClick(pButton, Qt::LeftButton);
  }
  ADD_FAILURE() << pszText;
  box.reject();
}

TEST_F(Document, ChangesOfOthersAreNotOverwrittenUnasked) {
  const struct {
    const char* pszAnswer;
    double dArea;        // in the file
    std::size_t nCount;  // of analyses in the file
    bool bModified;
    double dOpenArea;
  } cases[] = {{"覆盖", 1e4, 1, false, 1e4}, {"重新读取", 2e4, 0, false, 2e4}, {"取消", 2e4, 0, true, 1e4}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.pszAnswer);
    CMainWindow window(Settings());
    CDocument& document = window.GetDocument();
    host::Job job = MakeCantilever();
    const QString strFile = WriteJob("asked.json", job);
    ASSERT_TRUE(window.OpenJob(strFile));
    document.SetAnalyses({host::ModalJob{}});
    job.sections[0].dArea = 2e4;
    WriteJob("asked.json", job);
    Answer<QMessageBox>([&] { Trigger(window, "save"); }, [&c](QMessageBox& box) { Press(box, c.pszAnswer); });
    const host::Job saved = host::ReadJobFile(strFile.toStdString()).job;
    EXPECT_EQ(saved.sections[0].dArea, c.dArea);
    EXPECT_EQ(saved.analyses.size(), c.nCount);
    EXPECT_EQ(document.IsModified(), c.bModified);
    EXPECT_EQ(document.GetJob().sections[0].dArea, c.dOpenArea);
    document.Forget();
  }
}

TEST_F(Document, ForcesAreThoseOfTheResultAndOfTheStep) {
  CMainWindow window(Settings());
  CDocument& document = window.GetDocument();
  ASSERT_TRUE(window.OpenJob(WriteJob("frame.json", MakeShakenFrame())));
  EXPECT_EQ(document.GetForces(host::ResultKind::Linear), nullptr) << "not run yet";
  Trigger(window, "run_all");
  double dLoads = 0.0;
  for (const host::JobLoad& load : document.GetJob().loads) dLoads += load.nDirection == 2 ? load.dValue : 0.0;
  for (const host::ResultKind kind : {host::ResultKind::Linear, host::ResultKind::Nonlinear}) {
    const host::StructureForces* const pForces = document.GetForces(kind);
    ASSERT_NE(pForces, nullptr);
    EXPECT_EQ(document.GetForces(kind), pForces) << "formed once";
    double dReactions = 0.0;
    for (const host::SupportForces& reaction : pForces->reactions) dReactions += reaction.forces[2];
    EXPECT_NEAR(dReactions, -dLoads, 1e-3 * -dLoads) << "supports bear the loads";
  }
  const host::StructureForces* const pSpectrum = document.GetForces(host::ResultKind::Spectrum);
  ASSERT_NE(pSpectrum, nullptr);
  EXPECT_TRUE(pSpectrum->bAbsolute);
  EXPECT_EQ(document.GetForces(host::ResultKind::Modes), nullptr) << "a shape has none";
  const HistorySet& history = *document.GetHistories();
  for (const int nStep : {7, 500}) {
    document.SetStep(nStep);
    const host::StructureForces& forces = *document.GetForces(host::ResultKind::History);
    for (std::size_t k = 0; k < forces.members.size(); ++k) {
      const double dForce = 1e-3 * history.values[c_nHistoryForce][nStep][static_cast<int>(k)];
      EXPECT_NEAR(forces.members[k].Get(host::MemberQuantity::N).front(), dForce, 1e-9);
    }
  }
  host::Job other = document.GetJob();
  other.elements.pop_back();
  ASSERT_TRUE(document.Open(WriteJob("frame.json", other)).empty());
  EXPECT_EQ(document.GetForces(host::ResultKind::Linear), nullptr) << "of another structure";
}

TEST_F(Document, AFailedRunIsNotShownAsDone) {
  CMainWindow window(Settings());
  window.show();
  host::Job job = MakeCantilever();
  host::StaticJob analysis;
  analysis.bNonlinear = false;
  analysis.combination = {{0, 1.0}};
  job.analyses = {analysis};
  const auto mark = [&window] { return Find<QListWidget>(window, "analyses")->item(0)->text(); };
  for (const bool bFree : {true, false}) {
    job.nodes[0].restraint.fill(bFree ? 0 : 1);
    ASSERT_TRUE(window.OpenJob(WriteJob("mechanism.json", job)));
    EXPECT_EQ(mark().contains(QStringLiteral("过期")), !bFree) << "the second is another model";
    Trigger(window, "run_all");
    EXPECT_EQ(mark().contains(QStringLiteral("有错误")), bFree) << mark().toStdString();
    const std::string strMessage = Find<QLabel>(window, "table_message")->text().toStdString();
    EXPECT_EQ(strMessage.find("分析未成功：") == 0, bFree) << strMessage;
    EXPECT_EQ(Find<QListWidget>(window, "results")->item(0)->text().contains(QStringLiteral("有错误")), bFree);
    EXPECT_EQ(Find<QComboBox>(window, "force_source")->currentText().contains(QStringLiteral("有错误")), bFree);
    ASSERT_TRUE(window.OpenJob(Path("mechanism.json")));
    EXPECT_EQ(mark().contains(QStringLiteral("有错误")), bFree) << "opened again";
  }
  EXPECT_TRUE(mark().contains(QStringLiteral("   20"))) << "when it was run";
  WriteFile(Path("mechanism_StaticLinearSol.txt"), "another's");
  window.GetDocument().RefreshResults();
  EXPECT_FALSE(mark().contains(QStringLiteral("   20"))) << mark().toStdString();
  Answer<QFileDialog>([&] { Trigger(window, "report"); },
                      [](QFileDialog& dialog) { QMetaObject::invokeMethod(&dialog, "accept"); });
  for (const char* const pszWord : {"警告", "warning"}) {
    const QListWidgetItem* const pRow = Find<QListWidget>(window, "advice")->item(0);
    ASSERT_NE(pRow, nullptr);
    EXPECT_TRUE(pRow->text().contains(QString::fromUtf8(pszWord)) &&
                pRow->text().contains(QStringLiteral("[unread-result]")));
    Trigger(window, "language_en");
  }
}

TEST_F(Document, AnalysesAreRunAndTakenOutFromTheirList) {
  CMainWindow window(Settings());
  test::CQtPerson person(&window);
  window.show();
  host::SpectrumJob alongX, alongY;
  alongX.direction = {1, 0, 0};
  alongY.direction = {0, 1, 0};
  host::Job job = MakeShakenFrame();
  job.analyses = {alongX, alongY, host::ModalJob{}};
  ASSERT_TRUE(window.OpenJob(WriteJob("list.json", job)));
  auto& list = *Find<QListWidget>(window, "analyses");
  ASSERT_EQ(list.count(), 3);
  std::string strY;
  person.AddScript(c_nIdSpectrumDlg,
                   {DialogStep::Inspect([&strY](const IDialogView& view) { strY = view.GetText(c_nIdDirectionY); }),
                    DialogStep::Cancel()});
  person.Watch([&list] { Q_EMIT list.itemActivated(list.item(1)); });
  EXPECT_EQ(std::stod(strY), 1.0) << "the dialog of the second spectrum has its values";
  EXPECT_FALSE(window.GetDocument().IsModified());
  list.setCurrentRow(0);
  Find<QDockWidget>(window, "analysis_dock")->raise();
  list.actions().constFirst()->trigger();
  EXPECT_TRUE(window.GetDocument().GetJob().analyses == (std::vector<host::JobAnalysis>{alongY, host::ModalJob{}}));
  EXPECT_TRUE(window.GetDocument().IsModified());
  list.setCurrentRow(-1);
  list.actions().constFirst()->trigger();
  EXPECT_EQ(list.count(), 2) << "none is chosen";
  window.GetDocument().Forget();
}

TEST_F(Document, ResultFilesAreReadPieceByPiece) {
  std::string strLong;
  for (int k = 0; k < 60000; ++k) strLong += "行 " + std::to_string(k) + "\n";
  WriteFile(Path("beam.mode"), "short\n");
  WriteFile(Path("beam_HisTime.txt"), strLong);
  CMainWindow window(Settings());
  window.show();
  ASSERT_TRUE(window.OpenJob(WriteJob("beam.json", MakeCantilever())));
  auto& list = *Find<QListWidget>(window, "results");
  auto& text = *Find<QPlainTextEdit>(window, "text");
  const auto show = [&list](const char* pszFile) {
    list.setCurrentItem(list.findItems(QString::fromLatin1(pszFile), Qt::MatchExactly).value(0));
  };
  show("beam_HisTime.txt");
  const std::string strFirst = text.toPlainText().toStdString();
  EXPECT_TRUE(strFirst.size() < strLong.size() && strLong.starts_with(strFirst)) << "no letter is torn";
  text.verticalScrollBar()->setValue(text.verticalScrollBar()->maximum());
  EXPECT_GT(text.toPlainText().size(), static_cast<qsizetype>(strFirst.size() / 2));
  show("beam.mode");
  EXPECT_EQ(text.toPlainText(), QStringLiteral("short\n")) << "nothing of the other file";
  show("beam_HisTime.txt");
  for (int k = 0; k < 20; ++k) text.verticalScrollBar()->setValue(text.verticalScrollBar()->maximum());
  EXPECT_TRUE(text.toPlainText().toStdString() == strLong) << "all of it in the end";
}

}  // namespace
}  // namespace skyframe::gui
