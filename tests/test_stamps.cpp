// Stamps: which run wrote a result file, from which model and with which parameters.

#include <regex>

#include "CommandFolder.h"
#include "skyframe/job/DialogFields.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/results/ResultKind.h"
#include "skyframe/run/AnalysisRun.h"
#include "skyframe/run/HostPlatform.h"
#include "skyframe/run/Stamps.h"

namespace skyframe::host {
namespace {

using test::CCommandFolder;
using test::MakeCantilever;

ResultStamp MakeStamp(const char* pszModel, std::map<std::string, std::uintmax_t> files) {
  return {.strModel = pszModel, .strVersion = "1", .strTime = "t", .strAnalysis = "", .files = files, .advice = {}};
}

TEST(Stamps, BelongToFilesAsTheyAre) {
  const CCommandFolder folder;
  folder.Write(".mode", "12345");
  folder.Write(".spec", "123");
  CStamps stamps = CStamps::Read(folder.GetJobPath());
  stamps.Add(MakeStamp("a", {{".mode", 5}, {".spec", 3}}));
  stamps.Add(MakeStamp("b", {{".spec", 3}}));
  EXPECT_EQ(stamps.Find(".mode")->strModel, "a");
  EXPECT_EQ(stamps.Find(".spec")->strModel, "b") << "the last run that wrote it";
  EXPECT_EQ(stamps.Find("_HisTime.txt"), nullptr);
  EXPECT_TRUE(stamps.IsOutdated(".mode", "b") && !stamps.IsOutdated(".mode", "a"));
  EXPECT_FALSE(stamps.IsOutdated("_HisTime.txt", "b")) << "what is not known is not called old";
  folder.Write(".mode", "123456");
  EXPECT_EQ(stamps.Find(".mode"), nullptr) << "written by someone else";
  EXPECT_FALSE(stamps.IsOutdated(".mode", "b"));
  stamps.Add(MakeStamp("c", {{".mode", 6}}));
  ASSERT_EQ(stamps.GetAll().size(), 2U) << "a run without files is forgotten";
  EXPECT_EQ(stamps.Find(".mode")->strModel, "c");
}

TEST(Stamps, DamageIsLeftOutAndDoesNotSpread) {
  const CCommandFolder folder;
  std::string strDeep;
  for (int k = 0; k < 200000; ++k) strDeep += "{\"a\":[";
  const std::string strWholeAndDeep = std::string(200000, '[') + std::string(200000, ']');
  const std::pair<std::string, std::size_t> cases[] = {
      {"[{\"analysis\": {\"a\": " + strWholeAndDeep + "}, \"files\": {\".spec\": 7}}]", 1},
      {"", 0},
      {"[{\"model\"", 0},
      {"{}", 0},
      {"[1, \"a\", null, []]", 0},
      {strDeep, 0},
      {"[{\"analysis\": " + strDeep, 0},
      {R"([{"model": "m", "files": {".spec": 7, "a": -1, "b": "x", "c": 1.5}}])", 1},
      {R"([{"model": 5, "time": [], "analysis": "no", "files": {".spec": 7}}, {"model": "m", "files": []}])", 2},
      {R"([{"model": "m", "analysis": {"a": [[[[[[[[[[[[[[[[[[[[1]]]]]]]]]]]]]]]]]]]]}, "files": {".spec": 7}}])", 1},
      {R"([{"model": "m", "advice_en": [3, {"error": "yes", "text": "a"}, {"error": true}], "files": {".spec": 7}}])",
       1},
  };
  for (const auto& [strText, nStamps] : cases) {
    SCOPED_TRACE(strText.substr(0, 60));
    folder.Write(".stamp", strText);
    CStamps stamps = CStamps::Read(folder.GetJobPath());
    EXPECT_EQ(stamps.GetAll().size(), nStamps);
    const bool bSpectrum = nStamps > 0 && stamps.GetAll()[0].files.contains(".spec");
    EXPECT_EQ(bSpectrum, nStamps > 0);
    EXPECT_TRUE(!bSpectrum || stamps.GetAll()[0].files.size() == 1U) << "only counts of bytes";
    stamps.Add(MakeStamp("new", {{".mode", 1}}));
    EXPECT_EQ(stamps.Write(), "");
    const std::vector<ResultStamp> again = CStamps::Read(folder.GetJobPath()).GetAll();
    EXPECT_EQ(again, stamps.GetAll()) << folder.Read(".stamp");
    EXPECT_EQ(again.back(), MakeStamp("new", {{".mode", 1}}));
  }
}

TEST(Stamps, TheModelIsWhatTheAnalysesSee) {
  Job job = ParseJob(MakeCantilever("111111", R"({"type": "modal"})")).job;
  job.springs = {{1, 1.0, 2.0, 3.0}};
  const std::string strMark = FormModelMark(job);
  const std::function<void(Job&)> changes[] = {
      [](Job& j) { j.nodes[0].dX = std::nextafter(j.nodes[0].dX, 9.0); },
      [](Job& j) { j.nodes[0].nId = 91; },
      [](Job& j) { j.nodes[1].restraint[4] = 0; },
      [](Job& j) { j.nodes[0].nSpring = 1; },
      [](Job& j) { j.nodes[0].nJoint = c_nPinned; },
      [](Job& j) { j.springs[0].dKz = 3.5; },
      [](Job& j) { j.sections[0].dIy *= 1.0 + 1e-15; },
      [](Job& j) { j.sections[0].nShape = 3; },
      [](Job& j) { std::swap(j.elements[0].nNodeI, j.elements[0].nNodeJ); },
      [](Job& j) { j.elements[0].nType = c_nBar; },
      [](Job& j) { j.inclinedSupports = {1}; },
      [](Job& j) { j.loads[0].nCase = 1; },
      [](Job& j) { j.loads[0].dValue = -j.loads[0].dValue; },
      [](Job& j) { j.loads.pop_back(); },
  };
  std::set<std::string> marks = {strMark};
  for (const auto& change : changes) {
    Job changed = job;
    change(changed);
    marks.insert(FormModelMark(changed));
  }
  EXPECT_EQ(marks.size(), std::size(changes) + 1U) << "each has a mark of its own";
  job.strTitle = "other";
  job.analyses.clear();
  job.report.strProject = "other";
  EXPECT_EQ(FormModelMark(job), strMark);
}

/// Analyses of every kind with what they write.
const std::pair<const char*, const char*> c_runs[] = {
    {R"({"type": "static", "nonlinear": false, "combination": {"0": 1}})", "_StaticLinearSol.txt"},
    {R"({"type": "static", "nonlinear": true, "tolerance": 1e-3, "combination": {"2": 1}})", "_StaticNonlinearSol.txt"},
    {R"({"type": "modal", "modes": 2, "verify_modes": false})", ".mode"},
    {R"({"type": "spectrum", "modes": 2, "direction": [0, 1, 0], "combination": {"0": -1}})", ".spec"},
    {R"({"type": "time_history", "method": "newmark", "load": "ground_motion",
         "earthquake": {"duration": 0.1, "directions": ["Y"], "peaks": {"Y": 0.2}}})",
     "_HisTime.txt"},
    {R"({"type": "time_history", "method": "newmark", "load": "nodal_force", "impulse": {"peak_time": 0.04,
         "duration": 0.1, "loads": [{"node": 90, "direction": "X", "peak": 10}]}, "outputs": {"elements": [1]}})",
     "_1_elem.txt"},
};

std::string ListRuns() {
  std::string strText;
  for (const auto& run : c_runs) strText += (strText.empty() ? "" : ", ") + std::string(run.first);
  return strText;
}

TEST(Stamps, ARunLeavesItsModelAndAllItsParameters) {
  const CCommandFolder folder;
  const std::string strJob = MakeCantilever("111111", ListRuns());
  const test::CommandOutcome outcome = folder.Solve(strJob);
  ASSERT_EQ(outcome.nStatus, 0) << outcome.strErr;
  const Job job = ParseJob(strJob).job;
  const CStamps stamps = CStamps::Read(folder.GetJobPath());
  EXPECT_EQ(stamps.GetAll().size(), std::size(c_runs));
  for (std::size_t k = 0; k < std::size(c_runs); ++k) {
    SCOPED_TRACE(c_runs[k].second);
    const ResultStamp* const pStamp = stamps.Find(c_runs[k].second);
    ASSERT_NE(pStamp, nullptr);
    EXPECT_EQ(pStamp->strModel, FormModelMark(job));
    EXPECT_TRUE(std::regex_match(pStamp->strTime, std::regex(R"(20\d\d-\d\d-\d\d \d\d:\d\d:\d\d)")));
    for (const auto& [strSuffix, nBytes] : pStamp->files) EXPECT_EQ(folder.Read(strSuffix).size(), nBytes);
    EXPECT_FALSE(pStamp->files.contains("_HisTime.txt") && k != 4) << "written by the ground motion alone";
    const std::optional<JobAnalysis> run = ParseAnalysis(pStamp->strAnalysis, job);
    ASSERT_TRUE(run) << "no job file could have " << pStamp->strAnalysis;
    EXPECT_TRUE(MeanTheSame(*run, job.analyses[k])) << pStamp->strAnalysis;
    EXPECT_TRUE(*run != job.analyses[k]) << "the defaults, too";
  }
  const AdviceList &english = stamps.Find(".spec")->advice[0], &chinese = stamps.Find(".spec")->advice[1];
  ASSERT_FALSE(english.empty());
  EXPECT_EQ(english[0].strName, chinese[0].strName);
  EXPECT_NE(outcome.strOut.find(english[0].strText), std::string::npos) << english[0].strText;
  EXPECT_NE(chinese[0].strText.find("振型"), std::string::npos) << chinese[0].strText;

  EXPECT_EQ(AdviseOnAge(job, folder.GetJobPath(), ".mode").size(), 0U);
  Job other = job;
  other.analyses.clear();
  EXPECT_EQ(AdviseOnAge(other, folder.GetJobPath(), ".mode").size(), 0U) << "the model is the same";
  other.sections[0].dArea += 1.0;
  for (const ResultKind kind : c_resultKinds) {
    const AdviceList advice = AdviseOnAge(other, folder.GetJobPath(), GetSuffix(kind));
    ASSERT_EQ(advice.size(), 1U) << GetSuffix(kind);
    EXPECT_EQ(advice[0].strName, "outdated-result");
    for (const std::string& strPart : {"job" + std::string(GetSuffix(kind)), stamps.Find(GetSuffix(kind))->strTime})
      EXPECT_NE(advice[0].strText.find(strPart), std::string::npos) << advice[0].strText;
  }
}

// In the order of the job.
TEST(Stamps, RunsAreToldByTheirNames) {
  const CCommandFolder folder;
  folder.Write(".json", MakeCantilever("111111", ListRuns() + R"(, {"type": "time_history", "method": "wilson"})"));
  const std::pair<const char*, std::vector<std::string>> languages[] = {
      {"en",
       {"Static analysis, linear", "Static analysis, nonlinear", "Modal analysis", "Response-spectrum analysis",
        "Time history, Newmark", "Time history, Newmark", "Time history, Wilson"}},
      {"zh",
       {"静力分析，线性", "静力分析，非线性", "模态分析", "反应谱分析", "时程分析，Newmark 法", "时程分析，Newmark 法",
        "时程分析，Wilson 法"}}};
  for (const auto& [pszLanguage, expected] : languages) {
    const auto outcome = CCommandFolder::Call({"run", folder.GetPath(".json"), "--quiet", "--lang", pszLanguage});
    std::vector<std::string> names;
    std::istringstream lines(outcome.strOut);
    for (std::string strLine; std::getline(lines, strLine);) {
      if (!strLine.starts_with(' ') && names.size() < expected.size()) names.push_back(strLine);
    }
    EXPECT_EQ(names, expected) << outcome.strOut;
  }
  std::ostringstream text;
  CHostPlatform platform(text, text, &text);
  platform.ReportProgress(0.256, "组装");
  platform.ReportProgress(0.2599, "组装");  // the same percent
  platform.ReportProgress(7.0, "");
  platform.EndProgress();
  EXPECT_EQ(text.str(), "\r\x1b[K[##########..............................]  25 %  组装\r\x1b[K[" +
                            std::string(40, '#') + "] 100 %  \r\x1b[K");
}

TEST(Stamps, ThatCannotBeWrittenAreToldOf) {
  const CCommandFolder folder;
  folder.Write(".json", MakeCantilever("111111", c_runs[0].first));
  std::filesystem::create_directory(folder.GetPath(".stamp"));
  for (const auto& [pszLanguage, pszWord] : {std::pair("en", "warning: "), {"zh", "警告："}}) {
    const auto outcome =
        CCommandFolder::Call({"--lang", pszLanguage, "run", folder.GetPath(".json"), "--quiet", "--strict"});
    EXPECT_EQ(outcome.nStatus, c_nExitWarned) << outcome.strOut;
    const std::size_t n = outcome.strOut.find("[unwritten-stamp]");
    ASSERT_NE(n, std::string::npos) << outcome.strOut;
    EXPECT_NE(outcome.strOut.rfind(pszWord, n), std::string::npos) << outcome.strOut;
    EXPECT_TRUE(folder.Has("_StaticLinearSol.txt")) << "the result stays";
  }
  const Job job = ParseJob(folder.Read(".json")).job;
  std::optional<CSession> session = CSession::Open(job, folder.GetJobPath(), "");
  std::ostringstream text;
  CHostPlatform platform(text, text, &text);
  for (const std::string& strSummary : RunScripted(*session, job.analyses[0], platform).report.summaryIn)
    EXPECT_NE(strSummary.find("[unwritten-stamp]"), std::string::npos) << strSummary;
}

}  // namespace
}  // namespace skyframe::host
