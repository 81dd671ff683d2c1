#include "TestPlatform.h"
#include "skyframe/connect/Findings.h"
#include "skyframe/connect/Inquiries.h"
#include "skyframe/run/DataDirectory.h"
#include "skyframe/run/JobRunner.h"

namespace skyframe::host {
namespace {

using test::CJobFolder;

constexpr std::array<int, 6> c_fixed = {1, 1, 1, 1, 1, 1};
const JobCombination c_dead = {{0, 1.0}}, c_half = {{0, 0.5}};

/// A portal of 4 m by 6 m in X and Z, clamped; 10 kN along X and 60 kN upwards, which is mass, at each upper corner.
Job MakePortal() {
  Job job;
  constexpr double c_dPlaces[][2] = {{0, 0}, {0, 4}, {6, 4}, {6, 0}};
  for (const auto& [x, z] : c_dPlaces) {
    job.nodes.push_back({.nId = 10 * (static_cast<int>(job.nodes.size()) + 1), .dX = x, .dZ = z, .nSpring = {}});
  }
  job.nodes[0].restraint = job.nodes[3].restraint = c_fixed;
  job.sections = {{"C", 2, 12000, 1e8, 2e8, 2e8}};
  job.elements = {{c_nBeam, 1, 2, 0}, {c_nBeam, 2, 3, 0}, {c_nBeam, 3, 4, 0}};
  for (const int nNode : {2, 3}) {
    job.loads.push_back({0, nNode, 0, 10.0});
    job.loads.push_back({0, nNode, 2, 60.0});
  }
  return job;
}

StaticJob MakeStatic(bool bNonlinear = false, std::optional<int> maxIterations = {}) {
  return {bNonlinear, {}, {}, maxIterations, c_dead};
}

ModalJob MakeModal(int nModes, bool bShear = false) { return {nModes, {}, {}, {}, bShear, c_dead}; }

SpectrumJob MakeSpectrum(int nModes, const JobCombination& combination) {
  return {nModes, {}, std::array{1.0, 0.0, 0.0}, {}, {}, {}, {}, {}, {}, combination};
}

NewmarkJob MakeQuake(double dSecondRatio = 0.05, double dFirstRatio = 0.05, double dPeak = 1.0) {
  NewmarkJob analysis;
  analysis.nLoad = 1;
  analysis.damping = {dFirstRatio, dSecondRatio};
  analysis.combination = c_dead;
  EarthquakeJob& quake = analysis.earthquake.emplace();
  quake.dTimeStep = 0.02;
  quake.dDuration = 1.0;
  quake.directions = {true};
  quake.peaks[0] = dPeak;
  return analysis;
}

template <class... Analyses>
void Set(Job& job, Analyses... analyses) {
  job.analyses = {analyses...};
}

void Support(Job& job, int nX, int nRotation) {
  job.nodes[0].restraint = job.nodes[3].restraint = {nX, 1, 1, nRotation, nRotation, nRotation};
  Set(job, MakeStatic());
}

/// The columns lean across their sway.
void Lean(Job& job, double dIz) {
  job.nodes[1].dY = job.nodes[2].dY = 0.2;
  job.sections[0].dIz = dIz;
  Set(job, MakeStatic(true));
}

void Scale(Job& job, double dHorizontal, double dVertical) {
  for (JobLoad& load : job.loads) load.dValue *= load.nDirection == 2 ? dVertical : dHorizontal;
}

/// A job with its analyses, run beside a folder of its own.
class AdviceOnRuns : public ::testing::Test {
 protected:
  RunOutcome Run(const Job& job) {
    std::ostringstream out, err, console;
    const RunOutcome outcome = RunJob(job, m_folder.GetJobPath(), FindDataDirectory(), {out, err, console});
    m_strOut = out.str();
    m_strErr = err.str();
    return outcome;
  }

  CJobFolder m_folder{"advice"};
  std::string m_strOut;
  std::string m_strErr;
};

TEST_F(AdviceOnRuns, EveryDoubtfulRunIsTold) {
  NewmarkJob hasty = MakeQuake();
  hasty.bNonlinear = true;
  hasty.nMaxIterations = 1;
  hasty.dTolerance = 0.0;
  const struct {
    const char* pszName;
    std::function<void(Job&)> change;  ///< of the portal
    bool bGood;
    std::string strStart, strPart;  ///< of the first line of advice, empty if there is none; somewhere in the summary
  } cases[] = {
      {"sound", [](Job& job) { Support(job, 1, 1); }, true, "", "conditioning          1."},
      {"ball supports", [](Job& job) { Support(job, 1, 0); }, false,
       "error: nearly a mechanism at node 40 RX: ", "digits lost, at node 40 RX"},
      {"free to slide", [](Job& job) { Support(job, 0, 1); }, false, "error: nearly a mechanism at node ",
       "error: loads and support forces do not balance: "},
      {"short stub", [](Job& job) { job.nodes[2].dX = 1.0e-3, Set(job, MakeStatic()); }, true, "warning: 1",
       "results are good to about "},
      {"spread mass missing", [](Job& job) { Set(job, MakeModal(1), MakeSpectrum(1, c_dead)); }, true,
       "warning: 1 mode holds 0.0 % of the mass in X, below 90 %", "[missing-mass]"},
      {"other combination", [](Job& job) { Set(job, MakeModal(3), MakeSpectrum(3, c_half)); }, true,
       "warning: phi^T M phi of mode ", "[other-combination]"},
      {"long period", [](Job& job) { Scale(job, 2e4, 2e4), Set(job, MakeModal(3), MakeSpectrum(3, c_dead)); }, true,
       "warning: mode 1 has the period ", "[long-period]"},
      {"negative damping: it runs away", [](Job& job) { Set(job, MakeModal(4), MakeQuake(0.0001)); }, false,
       "warning: the damping ratios give mode ", "[negative-damping]"},
      {"too much load", [](Job& job) { Scale(job, 200, 200), Set(job, MakeStatic(true)); }, false,
       "error: no equilibrium after ", "growing, the largest at node "},
      {"slender column", [](Job& job) { Scale(job, 0.01, -50), Set(job, MakeStatic(true, 500)); }, true,
       "warning: element ", "[divide-members]"},
      {"columns that lean across their sway", [](Job& job) { Lean(job, 1.0e8); }, true,
       "warning: the section of element 1 ", "[axes-twist]"},
      {"too few iterations", [&](Job& job) { Set(job, MakeModal(4), hasty); }, true,
       "warning: the static loads of the start did not reach equilibrium ", "warning: in 50 of 50 steps "},
      {"second ratio of none", [](Job& job) { Set(job, MakeModal(4), MakeQuake(0.05, 0.0)); }, true, "",
       "Time history"},
      {"ground at rest", [](Job& job) { Set(job, MakeModal(4), MakeQuake(0.05, 0.05, 0.0)); }, true,
       "warning: nothing moves in 50 steps: ", "[no-response]"},
      {"load on a support",
       [](Job& job) {
         job.loads.assign(1, JobLoad{0, 1, 0, 10.0}), Set(job, MakeStatic());
       },
       true, "warning: no load acts ", "[no-load]"},
      {"sections with all axes alike", [](Job& job) { Lean(job, 2.0e8); }, true, "", "iterations"},
  };
  for (const auto& c : cases) {
    Job job = MakePortal();
    c.change(job);
    const RunOutcome outcome = Run(job);
    std::string strAdvice;  // of all analyses
    for (const AdviceList& list : outcome.advice) {
      for (const Advice& advice : list) strAdvice += FormatAdvice(advice) + "\n";
    }
    EXPECT_EQ(outcome.bGood, c.bGood) << c.pszName << '\n' << m_strOut << m_strErr;
    EXPECT_EQ(outcome.bWarned, !c.strStart.empty()) << c.pszName;
    EXPECT_TRUE(c.strStart.empty() ? strAdvice.empty() : strAdvice.starts_with(c.strStart)) << c.pszName << '\n'
                                                                                            << strAdvice;
    EXPECT_NE(m_strOut.find(c.strPart), std::string::npos) << c.pszName << '\n' << m_strOut;
  }
}

TEST_F(AdviceOnRuns, RecordOfZerosAndTheHistoryThatStays) {
  Job job = MakePortal();
  NewmarkJob zeros = MakeQuake();
  zeros.bFromFile = true;
  NewmarkJob refused = zeros;
  refused.earthquake->directions = {false, true};  // there is no record along Y
  refused.earthquake->peaks = {std::nullopt, 1.0};
  job.analyses = {MakeModal(4), zeros, refused};
  m_folder.Write("_Xacc.txt", "0 0 0\n");
  const RunOutcome outcome = Run(job);
  EXPECT_FALSE(outcome.bGood);
  ASSERT_EQ(outcome.advice.size(), 3U);
  ASSERT_EQ(outcome.advice[1].size(), 1U);
  EXPECT_EQ(FormatAdvice(outcome.advice[1][0]),
            "error: job_HisTime.txt: displacement at node 20 X from t = 0.02 s on is not a finite number [not-finite]");
  ASSERT_EQ(outcome.advice[2].size(), 1U) << m_strOut << m_strErr;
  EXPECT_NE(m_strOut.find("peak displacement X   not finite"), std::string::npos) << m_strOut;
  EXPECT_EQ(outcome.advice[2][0].strName, "older-history");
  EXPECT_NE(outcome.advice[2][0].strText.find("Newmark, linear, 50 steps of 0.02 s, finished "), std::string::npos);
}

/// The inquiries against what is known of two equal masts of one element.
TEST_F(AdviceOnRuns, Inquiries) {
  Job job = MakePortal();
  job.elements.erase(job.elements.begin() + 1);
  job.analyses = {MakeModal(4, true)};
  EXPECT_TRUE(Run(job).bGood);
  EXPECT_NE(m_strOut.find("Sturm count           no mode below"), std::string::npos) << m_strOut;
  const ModalFindings& findings = GetModalFindings();
  const ModeSettings settings{true, findings.loadFlags, findings.loadFactors};
  EXPECT_EQ(CountModesBelow(0.999 * findings.omega[0], settings), 0);
  EXPECT_EQ(CountModesBelow(1.001 * findings.omega[3], settings), 4);
  const auto measure = MeasureModel(true);
  ASSERT_TRUE(measure);
  EXPECT_EQ(measure->own.nFree, 12);
  EXPECT_EQ(measure->own.dEntries, 42.0);  // two triangles of six columns
  EXPECT_EQ(measure->own.dOperations, 182.0);

  // A count that does not agree is told of, never by a negative number.
  for (const auto& [nCounted, strName] : {std::pair(6, "missed-modes"), std::pair(3, "modes-in-doubt")}) {
    const AdviceList list = AdviseOnCount(findings, ModeCount{nCounted, 4, 100.0});
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0].strName, strName);
    EXPECT_EQ(list[0].strText.find('-'), list[0].strText.find("-1")) << list[0].strText;
  }
  EXPECT_EQ(AdviseOnCount(findings, ModeCount{4, 4, 100.0}), AdviceList{});
  EXPECT_EQ(AdviseOnCount(findings, std::nullopt).at(0).strName, "modes-not-counted");
  EXPECT_EQ(AdviseOnCount({}, std::nullopt), AdviceList{});
  ModalFindings rough = findings;
  EXPECT_EQ(AdviseOnModes(job, rough), AdviceList{});
  rough.residuals = {1.0e-9, 2.0e-3, std::nan(""), 1.0};  // what is no number is the worst
  EXPECT_TRUE(AdviseOnModes(job, rough).at(0).strText.starts_with("mode 3 satisfies"));
  rough.residuals[2] = 0.0;
  EXPECT_TRUE(
      AdviseOnModes(job, rough).at(0).strText.starts_with("mode 4 satisfies K phi = omega^2 M phi only to 1.0e+00"));
  rough.omega[1] = std::nan("");
  EXPECT_EQ(AdviseOnModes(job, rough).at(0).strName, "not-finite");
  rough.failures = {{"dir/job.mode", "no space"}};
  EXPECT_EQ(FormatAdvice(AdviseOnFiles(rough).at(0)), "error: cannot write dir/job.mode: no space [file-not-written]");
}

}  // namespace
}  // namespace skyframe::host
