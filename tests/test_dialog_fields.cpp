#include "AllDialogs.h"
#include "skyframe/job/DialogFields.h"
#include "skyframe/run/Scripts.h"

namespace skyframe::host {
namespace {

/// Puts analyses together again from the dialogs that their scripts fill in.
class CRecordingPlatform : public CHeadlessPlatform {
 public:
  CRecordingPlatform() : CHeadlessPlatform(m_strmOutput, m_strmOutput), m_pPrevious(InstallPlatform(this)) {}
  ~CRecordingPlatform() override { InstallPlatform(m_pPrevious); }
  CRecordingPlatform(const CRecordingPlatform&) = delete;
  CRecordingPlatform& operator=(const CRecordingPlatform&) = delete;

  void DialogAccepted(const DialogTemplate& layout, const IDialogView& view) override {
    m_recorder.Accept(layout, view);
    m_strShown += std::to_string(layout.nId) + ":";
    for (const auto& [nId, content] : ReadContent(layout, view)) {
      const bool bEdit = layout.Find(nId)->kind == ControlKind::Edit;
      const bool bLater = layout.Find(nId)->kind == ControlKind::Radio && layout.GetGroupStart(nId) != nId;
      if (!content.bEnabled || bLater || (!bEdit && content.nChoice == -1)) continue;
      m_strShown += " " + std::to_string(nId) + "=" + (bEdit ? content.strText : std::to_string(content.nChoice));
    }
    m_strShown += "\n";
  }

  template <class Dialog>
  void Open() {
    Dialog dialog;
    if constexpr (requires { dialog.m_loadComb; }) dialog.m_loadComb.nLoadTypes = c_nLoadTypes;
    dialog.DoModal();
  }
  void Run(const StaticJob&) { Open<CNonlinStaticDlg>(); }
  void Run(const ModalJob&) { Open<CModeDlg>(); }
  void Run(const SpectrumJob&) { Open<CSpectrumDlg>(); }
  void Run(const WilsonJob&) { Open<CDynOptionDlg>(), Open<CWilsonDlg>(); }
  void Run(const NewmarkJob&) { Open<CDynOptionDlg>(), Open<CNewmarkDlg>(); }

  std::string m_strShown;  ///< of accepted dialogs: what stands in the enabled edits, lists and marks

  [[nodiscard]] std::optional<JobAnalysis> GetAnalysis() const { return m_recorder.GetAnalysis(); }

  std::optional<JobAnalysis> Record(const JobAnalysis& analysis) {
    m_recorder = {};
    m_strShown.clear();
    AddScripts(analysis, *this);
    std::visit([this](const auto& parameters) { Run(parameters); }, analysis);
    EXPECT_EQ(GetScriptErrors(), std::vector<std::string>{});
    return m_recorder.GetAnalysis();
  }

 private:
  std::ostringstream m_strmOutput;
  IPlatform* m_pPrevious;
  CDialogRecorder m_recorder;
};

NewmarkJob MakeNewmark(int nLoad, bool bNonlinear, bool bFromFile) {
  NewmarkJob job;
  std::tie(job.nLoad, job.damping, job.dAlpha, job.dDelta) = std::tuple(nLoad, std::array{0.01, 0.03}, 0.3, 0.6);
  std::tie(job.bNonlinear, job.bFromFile) = std::tuple(bNonlinear, bFromFile);
  if (bNonlinear) std::tie(job.nCriterion, job.dTolerance, job.nMaxIterations) = std::tuple(3, 1e-9, 7);
  return job;
}

TEST(DialogFields, WhatIsEnteredIsReadBack) {
  ResetHostData();
  CRecordingPlatform platform;
  NewmarkJob impulse = MakeNewmark(0, true, false);
  impulse.impulse = ImpulseLoadJob{1, {{11, 2, -3.5}, {4, 0, 8.25}}, 0.1, 0.25, 0.005, 1.5};
  NewmarkJob fromFile = MakeNewmark(0, false, true);
  fromFile.generalLoad = GeneralLoadJob{0.004, 2.5};
  NewmarkJob principal = MakeNewmark(1, true, false);
  principal.earthquake = EarthquakeJob{0.02, 9.0, 0, {true, false, true}, {}, JobPeaks{0.7, {}, 0.5, {}}};
  NewmarkJob oblique = MakeNewmark(1, false, true);
  oblique.earthquake = EarthquakeJob{0.01, 8.0, 1, {}, std::array{0.0, 3.0, 4.0}, JobPeaks{std::nullopt, {}, {}, 0.9}};
  std::vector<JobAnalysis> analyses = {
      StaticJob{false, 3, 1.25e-7, 77, {{0, 1.2}, {1, 0.5}, {11, -0.33}}},
      ModalJob{6, 1, 1e-10, 9, true, {{2, 0.5}}},
      WilsonJob{std::array{0.01, 0.03}, 1.37, 0.002, 4.0, true, JobPeaks{0.1, 0.2, 0.3, 0.4}, {{1, 2.0}}},
      impulse,
      fromFile,
      principal,
      oblique};
  for (int k = 5; k >= 0; --k) {
    const std::array direction = {0.6, 0.8, 0.1};
    analyses.emplace_back(SpectrumJob{8, 3, direction, k % 4 + 1, k % 3 + 1, k, k % 2, 0.035, k % 3, {{0, 1.0}}});
  }
  std::string strShown;
  for (std::size_t k = 0; k < analyses.size(); ++k) {
    EXPECT_EQ(platform.Record(analyses[k]), analyses[k]) << k;
    if (k < 8) strShown += platform.m_strShown;
  }
  EXPECT_EQ(strShown, R"(16002: 16046=-0.33
16007: 16063=0 16090=3 16091=1.25e-07 16092=77
16002: 16046=0.5
16000: 16000=6 16001=1 16003=1e-10 16004=9 16005=1
16003: 16065=0
16002: 16046=2
16004: 16055=0.01 16056=0.03 16057=0.002 16058=4 16060=1.37 16063=1 16080=0.1 16081=0.2 16082=0.3 16083=0.4
16003: 16065=1
16009: 16099=1 16107=0 16108=8.25 16109=4 16110=0.25 16111=0.1 16112=0.005 16114=1.5
16005: 16052=0 16055=0.01 16056=0.03 16061=0.6 16063=1 16064=0.3 16090=3 16091=1e-09 16092=7 16114=0
16003: 16065=1
16010: 16112=0.004 16114=2.5
16005: 16052=0 16055=0.01 16056=0.03 16061=0.6 16063=0 16064=0.3 16114=1
16003: 16065=1
16012: 16070=1 16071=0 16072=1 16075=0 16080=0.7 16082=0.5 16112=0.02 16114=9 16117=0
16005: 16052=1 16055=0.01 16056=0.03 16061=0.6 16063=1 16064=0.3 16090=3 16091=1e-09 16092=7 16114=0
16003: 16065=1
16012: 16074=0 16075=1 16077=3 16078=4 16083=0.9 16112=0.01 16114=8 16117=0
16005: 16052=1 16055=0.01 16056=0.03 16061=0.6 16063=0 16064=0.3 16114=1
16002: 16046=1
16001: 16006=8 16007=0.035 16009=3 16010=5 16013=1 16015=1 16019=2 16022=0.6 16025=2 16028=0.8 16029=0.1
)");

  // What is left out comes back as the dialog had it.
  EXPECT_EQ(platform.Record(StaticJob{}), JobAnalysis(WithDefaults(StaticJob{})));
  EXPECT_EQ(platform.Record(WilsonJob{}), JobAnalysis(WithDefaults(WilsonJob{})));
  // What these dialogs left in the record is the present job's alone.
  EXPECT_NE(COMDYN.m_nExpandModes, c_freshSettings.m_nExpandModes);
  EXPECT_EQ(WithDefaults(SpectrumJob{}).nModes, c_freshSettings.m_nExpandModes);
}

TEST(DialogFields, LoadsOfAKindNoLongerChosenAreLetGo) {
  CRecordingPlatform platform;
  const auto Click = [](int nId) { return DialogStep::Click(nId); };
  platform.AddScript(c_nIdImpulseLoadDlg, {Click(c_nIdOk)});
  platform.AddScript(c_nIdEarthquakeDlg, {Click(c_nIdOk)});
  platform.AddScript(c_nIdNewmarkDlg, {Click(c_nIdImpulseLoad), Click(c_nIdGroundMotion), Click(c_nIdEarthquake),
                                       Click(c_nIdNodalForce), Click(c_nIdFromFile), Click(c_nIdOk)});
  platform.Open<CNewmarkDlg>();
  NewmarkJob expected = WithDefaults(NewmarkJob());
  expected.bFromFile = true;
  expected.nCriterion.reset();  // disabled while linear
  expected.dTolerance.reset();
  expected.nMaxIterations.reset();
  EXPECT_EQ(platform.GetAnalysis(), JobAnalysis(expected));
}

}  // namespace
}  // namespace skyframe::host
