// A job run through real windows that show its values first. Every program of windows compiles it.

#include "CommandFolder.h"
#include "Person.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/platform/Dialog.h"
#include "skyframe/run/JobRunner.h"
#include "skyframe/values/DialogIds.h"

namespace skyframe::test {
namespace {

/// Static, modal, time history, modal.
host::Job MakeJob(const std::string& strStatic, const std::string& strPeakTime) {
  const std::string strAnalyses = R"({"type": "static", "tolerance": 0.2, )" + strStatic + R"(}},
      {"type": "modal", "modes": 3, "combination": {"0": 1}},
      {"type": "time_history", "method": "newmark", "combination": {"0": 1}, "impulse": {
       "loads": [{"node": 90, "direction": "Z", "peak": 7}], "duration": 0.3, "time_step": 0.01, "peak_time": )" +
                                  strPeakTime + R"(}}, {"type": "modal", "modes": 1})";
  const host::JobFile file = host::ParseJob(MakeCantilever("111111", strAnalyses));
  EXPECT_TRUE(file.errors.empty());
  return file.job;
}

TEST(RunWithDialogs, TheJobsValuesAreShownAndWhatThePersonConfirmsIsRun) {
  const CJobFolder windows("windows"), silent("silent");
  std::string strModes;
  const std::unique_ptr<IPerson> person = MakePerson();
  const auto expect = [](int nId, const std::string& strText) {  // of an edit, or cells of a list's first row
    return Do::Inspect([=](const IDialogView& view) {
      EXPECT_EQ(view.GetText(nId) + view.GetItemText(nId, 0) + view.GetItemText(nId, 0, 2), strText);
    });
  };
  person->AddScript(c_nIdNonlinStaticDlg,
                    {Do::Inspect([](const IDialogView& view) { EXPECT_EQ(view.GetFocus(), c_nIdCriterion); }),
                     expect(c_nIdTolerance, "0.2"), Do::Tick(c_nIdNonlinear), Do::Click(c_nIdLoadComb), Do::Ok()});
  person->AddScript(c_nIdLoadCombDlg, {expect(c_nIdCombined, "0.02静"), Do::Type(c_nIdFactor, "0.01"),
                                       Do::ToggleRow(c_nIdAvailable, 2), Do::Click(c_nIdAdd), Do::Ok()});
  person->AddScript(c_nIdDynOptionDlg, {Do::Ok()});
  person->AddScript(c_nIdNewmarkDlg, {Do::Click(c_nIdImpulseLoad), Do::Ok()});
  person->AddScript(c_nIdImpulseLoadDlg, {expect(c_nIdImpulseList, "17.000000"), expect(c_nIdPeakTime, "0.1"),
                                          Do::Type(c_nIdPeakTime, "0.2"), Do::Ok()});
  person->AddScript(c_nIdModeDlg, {expect(c_nIdModes, "3"), Do::Ok()});
  person->AddScript(c_nIdModeDlg, {Do::Inspect([&](const IDialogView&) { strModes = windows.Read(".mode"); }),
                                   expect(c_nIdModes, "1"), Do::Cancel()});

  std::ostringstream out, ignored;
  host::RunOutcome outcome;
  const host::Job job = MakeJob(R"("combination": {"0": 0.02)", "0.1");
  person->Watch([&] {
    outcome = host::RunJob(job, windows.GetJobPath(), "", {out, ignored, ignored}, &GetPlatform());
  });
  EXPECT_EQ(person->GetScriptErrors(), Strings{});
  EXPECT_EQ(person->GetMessages().size(), 1U) << "the modes are there";
  EXPECT_FALSE(outcome.bGood) << "cancelled";
  EXPECT_TRUE(out.str().starts_with("Static analysis, nonlinear\n  largest")) << out.str();
  EXPECT_NE(out.str().find("Modal analysis\n  cancelled in its dialogs\n  no result\n"), std::string::npos)
      << out.str();
  EXPECT_EQ(windows.Read(".mode"), strModes);

  const host::Job changed = MakeJob(R"("nonlinear": true, "combination": {"0": 0.02, "2": 0.01)", "0.2");
  EXPECT_TRUE(host::RunJob(changed, silent.GetJobPath(), "", {ignored, ignored, ignored}).bGood);
  for (const char* szSuffix : {"_StaticNonlinearSol.txt", "_Loadinputtest.txt"}) {
    EXPECT_GT(windows.Read(szSuffix).size(), 100U) << szSuffix;
    EXPECT_EQ(windows.Read(szSuffix), silent.Read(szSuffix)) << szSuffix;
  }
}

}  // namespace
}  // namespace skyframe::test
