#include <numbers>

#include "TestPlatform.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/generate/GeneratorFields.h"
#include "skyframe/job/Fields.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/job/NumberSet.h"
#include "skyframe/job/Text.h"
#include "skyframe/job/Wording.h"
#include "skyframe/platform/NumberText.h"

namespace skyframe::host {
namespace {

/// Replaces the first occurrence; the pattern must be there.
std::string Replace(std::string strText, const std::string& strFrom, const std::string& strTo) {
  const std::size_t n = strText.find(strFrom);
  EXPECT_NE(n, std::string::npos) << strFrom;
  return n == std::string::npos ? strText : strText.replace(n, strFrom.size(), strTo);
}

std::string List(const std::vector<JobProblem>& problems) {
  std::string strText;
  for (const auto& [strPlace, strReason, strName] : problems) {
    strText += (strText.empty() ? "" : "\n") + strPlace + ": " + strReason;
  }
  return strText;
}

const std::string c_strGood = R"json({
  "$schema": "job.schema.json",
  "title": "Übung",
  "nodes": [
    {"id": 7, "x": 0, "y": 0, "z": 0, "restraint": "111111"},
    {"id": 3, "x": 4, "y": 0, "z": 0},
    {"id": 20, "x": 8, "y": 0.5, "z": -1, "joint": "pinned", "spring": 2}
  ],
  "springs": [{"group": 2, "kx": 1, "ky": 5.5, "kz": -1}],
  "sections": [{"id": "B", "shape": 2, "area": 1e4, "Ix": 4e7, "Iy": 2e7, "Iz": 3e7}],
  "elements": [
    {"type": "beam", "i": 7, "j": 3, "section": "B"},
    {"type": "bar", "i": 3, "j": 20, "section": "B"}
  ],
  "inclined_supports": [20],
  "loads": [
    {"case": 2, "node": 3, "direction": "RY", "value": 1.5},
    {"case": 0, "node": 3, "direction": "Z", "value": -10}
  ],
  "analyses": [
    {"type": "static", "nonlinear": true, "criterion": "disp_rel", "tolerance": 1e-6, "max_iterations": 40,
     "combination": {"0": 1.2, "2": -1}},
    {"type": "modal", "modes": 4, "root_check": "compare", "accuracy": 1e-12, "iteration_multiple": 8, "shear": true},
    {"type": "spectrum", "modes": 4, "mesh_division": 3, "direction": [0, 1, 0], "site_class": 2, "zone_group": 3,
     "intensity": "8 (0.20g)", "level": "rare", "damping": 0.05, "modal_combination": "CQC"},
    {"type": "time_history", "method": "wilson", "theta": 1.5, "damping": [0.01, 0.02], "time_step": 0.01,
     "duration": 3, "nonlinear": false, "peaks": {"X": 0.1, "oblique": 0.2}, "combination": {"0": 1},
     "outputs": {"nodes": [{"node": 7, "direction": "Z"}, {"node": 20, "direction": "X"}], "elements": [2, 1]}},
    {"type": "time_history", "method": "newmark", "load": "nodal_force", "alpha": 0.3, "delta": 0.6,
     "nonlinear": true, "criterion": "force_abs", "tolerance": 0.01, "max_iterations": 9, "from_file": false,
     "impulse": {"shape": "rectangular", "loads": [{"node": 20, "direction": "Y", "peak": 7}],
                 "unload_time": 0.3, "time_step": 0.02, "duration": 2}},
    {"type": "time_history", "method": "newmark", "load": "ground_motion",
     "earthquake": {"mode": "principal", "directions": ["Z", "X"], "peaks": {"Z": 0.2}}},
    {"type": "time_history", "method": "newmark", "from_file": true, "general_load": {"time_step": 0.1}}
  ],
  "report": {"project": "Halle", "engineer": "N. N.", "structure": "walls", "edition": "2010", "storeys": [-1, 0],
             "limits": {"drift": 400, "shear_weight": 0.03, "displacement_ratio": 1.4}}
})json";

TEST(JobFile, ReadsEveryPart) {
  const JobFile file = ParseJob(c_strGood);
  EXPECT_EQ(List(file.errors), "");
  const Job& job = file.job;
  ASSERT_EQ(job.nodes.size(), 3U);
  EXPECT_EQ(job.nodes[0].restraint, (std::array{1, 1, 1, 1, 1, 1}));
  EXPECT_EQ(std::tuple(job.nodes[1].nJoint, job.nodes[2].nJoint, job.nodes[2].nSpring),
            std::tuple(c_nRigid, c_nPinned, 2));
  EXPECT_EQ(job.elements[1], (JobElement{c_nBar, 2, 3, 0}));
  EXPECT_EQ(job.inclinedSupports, std::vector<int>{3});
  EXPECT_EQ(job.loads[0], (JobLoad{2, 2, 4, 1.5}));
  EXPECT_EQ(job.GetHighestCase(), 2);
  EXPECT_FALSE(job.HasConsecutiveIds());
  const auto& first = std::get<StaticJob>(job.analyses.at(0));
  EXPECT_EQ(std::tuple(first.nCriterion, first.combination), std::tuple(3, JobCombination{{0, 1.2}, {2, -1.0}}));
  EXPECT_EQ(std::get<WilsonJob>(job.analyses.at(3)).peaks, (JobPeaks{0.1, {}, {}, 0.2}));
  EXPECT_EQ(std::get<WilsonJob>(job.analyses.at(3)).outputs, (JobOutputs{{{1, 2}, {3, 0}}, {2, 1}}));
  EXPECT_EQ(std::get<NewmarkJob>(job.analyses.at(4)).impulse->impulses, (std::vector<JobImpulse>{{3, 1, 7.0}}));
  EXPECT_EQ(std::get<NewmarkJob>(job.analyses.at(5)).earthquake->directions, (std::array{true, false, true}));
}

TEST(JobFile, WhatIsWrittenIsReadBack) {
  for (const Job& job : {ParseJob(c_strGood).job, GenerateBuilding({}), GenerateTower({}), GenerateDome({}),
                         GenerateDome({.bBeams = true}), GenerateArch({}), GenerateArch({.nSegments = 12})}) {
    const JobFile file = ParseJob(FormatJob(job));
    EXPECT_EQ(List(file.errors), "") << job.strTitle;
    const auto Tie = [](const Job& j) {
      return std::tie(j.strTitle, j.nodes, j.springs, j.sections, j.elements, j.inclinedSupports, j.loads, j.analyses,
                      j.report);
    };
    EXPECT_TRUE(Tie(file.job) == Tie(job)) << job.strTitle;
  }
}

/// Sets every field to a value that no other has and that its limits allow.
class CFieldFiller {
 public:
  template <DialogJob A>
  static A Fill(int nFirst = 1) {
    CFieldFiller filler;
    filler.m_nNext = nFirst;
    A analysis;
    VisitFields(filler, analysis);
    return analysis;
  }
  void Visit(const Field& /*field*/, std::optional<bool>& value) { value = true; }
  void Visit(const Field& /*field*/, std::optional<int>& value, Limits<int> limits = {}) {
    value = std::min(limits.highest, std::max(limits.lowest, m_nNext++));
  }
  void Visit(const Field& /*field*/, std::optional<int>& value, Choices words) {
    value = static_cast<int>(words.size()) - 1;
  }
  void Visit(const Field& /*field*/, std::optional<double>& value, Limits<double> /*limits*/ = {}) {
    value = m_nNext++ + 1.0 / 3.0;
  }
  template <std::size_t nCount>
  void Visit(const Field& /*field*/, std::optional<std::array<double, nCount>>& values) {
    for (double& d : values.emplace()) d = -(m_nNext++ + 1.0 / 7.0);
  }
  template <DialogJob A>
  void Visit(const Field& /*field*/, std::optional<A>& part) {
    part = Fill<A>(m_nNext += 10);
  }
  void Visit(const Field& /*field*/, JobCombination& combination) {
    combination = {{0, -0.1 * m_nNext++}, {2, 1e-300}};
  }
  void Visit(const Field& /*field*/, JobPeaks& peaks) {
    for (auto& peak : peaks) peak = 1e-7 * m_nNext++;
  }
  void Visit(const Field& /*field*/, JobAxes& axes) { axes = {true, true, true}; }
  void Visit(const Field& /*field*/, std::vector<JobImpulse>& impulses) { impulses = {{3, 2, -1.5}, {1, 0, 7e20}}; }
  void Visit(const Field& /*field*/, JobOutputs& outputs) { outputs = {{{1, 2}, {3, 0}}, {2, 1}}; }

 private:
  int m_nNext = 1;
};

TEST(JobFile, EveryFieldOfEveryAnalysisComesBack) {
  const Job job = ParseJob(c_strGood).job;
  std::vector<JobAnalysis> analyses = {CFieldFiller::Fill<StaticJob>(), CFieldFiller::Fill<ModalJob>(),
                                       CFieldFiller::Fill<SpectrumJob>(), CFieldFiller::Fill<WilsonJob>()};
  NewmarkJob newmark = CFieldFiller::Fill<NewmarkJob>();  // what goes together
  newmark.impulse.reset(), newmark.generalLoad.reset();
  newmark.earthquake->directions = {};
  newmark.earthquake->peaks = {std::nullopt, std::nullopt, std::nullopt, 0.125};
  analyses.emplace_back(newmark);
  newmark.earthquake = CFieldFiller::Fill<EarthquakeJob>();
  newmark.earthquake->nMode = 0;
  newmark.earthquake->obliqueAxis.reset(), newmark.earthquake->peaks[3].reset();
  analyses.emplace_back(newmark);
  newmark.nLoad = 0;
  newmark.earthquake.reset();
  newmark.generalLoad = CFieldFiller::Fill<GeneralLoadJob>();
  analyses.emplace_back(newmark);
  newmark.bFromFile = false;
  newmark.generalLoad.reset();
  newmark.impulse = CFieldFiller::Fill<ImpulseLoadJob>();
  analyses.emplace_back(newmark);
  for (const JobAnalysis& analysis : analyses) {
    const std::string strText = FormatAnalysis(analysis, job);
    EXPECT_TRUE(ParseAnalysis(strText, job) == analysis) << strText;
    Job whole = job;
    whole.analyses = {analysis, analysis};
    whole.strTitle = "a \"b\" \\ \n\t 中 /";
    whole.sections[0].strId = "100% </B>\u00d7";
    whole.nodes[1].dX = 4.0 + 1.0 / 3.0;
    whole.report = {"a \"b\"", "c", c_nFrameWall, c_nEdition2001, {-1.0, 0.0}, {1.5, 2.5, 3.5e-3, 0.45, 5.5, 6.5}};
    const JobFile file = ParseJob(FormatJob(whole));
    EXPECT_EQ(List(file.errors), "");
    EXPECT_TRUE(file.job.analyses == whole.analyses) << strText;
    EXPECT_TRUE(file.job.report == whole.report && file.job.sections == whole.sections &&
                file.job.nodes == whole.nodes);
    EXPECT_EQ(file.job.strTitle, whole.strTitle);
  }
  for (const char* pszNone : {"", "{}", "{", "[]", R"({"type": "modal", "modes": 0})", R"({"type": "modal"} 1)",
                              R"({"type": "static", "combination": {"3": 1}})"}) {
    EXPECT_FALSE(ParseAnalysis(pszNone, job)) << pszNone;
  }
}

TEST(JobFile, EachErrorHasItsPlaceAndReason) {
  const std::string strNoNode20 =
      "\n/elements/1/j: no node has the id 20\n/inclined_supports/0: must be the id of a node"
      "\n/analyses/3/outputs/nodes/1/node: no node has the id 20"
      "\n/analyses/4/impulse/loads/0/node: no node has the id 20";
  const struct {
    std::string strFrom, strTo, strProblem;
  } cases[] = {
      {"\"Übung\"", "5", "/title: must be a text"},
      {"\"id\": 3,", "\"id\": 7,",
       "/nodes/1/id: node id 7 is used twice\n/elements/0/j: no node has the id 3\n/elements/1/i: no node has the id "
       "3\n/loads/0/node: no node has the id 3\n/loads/1/node: no node has the id 3"},
      {"[-1, 0]", "[0, 0]", "/report/storeys: must be two levels or more, from the base upwards"},
      {"[-1, 0]", "[-1, 2.5]", "/report/storeys: no node stands at the level 2.5"},
      {"\"drift\": 400", "\"drift\": 0, \"d\": 1",
       "/report/limits/drift: must be above 0\n/report/limits/d: unknown key"},
      {"\"id\": 20", "\"id\": 0", "/nodes/2/id: must be 1 or more" + strNoNode20},
      {"\"id\": 20", "\"id\": 18446744073709551615", "/nodes/2/id: must be 2147483647 or less" + strNoNode20},
      {"\"id\": 20", "\"id\": 20.0", "/nodes/2/id: must be an integer" + strNoNode20},
      {"\"x\": 4", "\"x\": -1e39", "/nodes/1/x: too large for a single-precision record"},
      {"\"x\": 4", "\"x\": 1e-50", "/elements/0/j: zero length: both nodes lie at the same place"},
      {"\"111111\"", "\"1111112\"",
       "/nodes/0/restraint: must be six digits 0 or 1 for X Y Z RX RY RZ, not \"1111112\""},
      {"\"111111\"", "\"11111\\u001b\"",
       "/nodes/0/restraint: must be six digits 0 or 1 for X Y Z RX RY RZ, not \"11111\\u001b\""},
      {"\"111111\"", "\"111111\", \"spring\": 2", "/nodes/0/spring: a node has either a restraint or a spring"},
      {"\"group\": 2,", "\"group\": 1000,",
       "/springs/0/group: must be 999 or less\n/nodes/2/spring: no spring group 2"},
      {"\"kz\": -1}", "\"kz\": -1}, {\"group\": 2}", "/springs/1/group: spring group defined twice"},
      {"\"shape\": 2", "\"shape\": 7", "/sections/0/shape: must be 6 or less"},
      {"\"area\": 1e4", "\"area\": -1", "/sections/0/area: must be 0 or more"},
      {"\"Iz\": 3e7}", "\"Iz\": 3e7}, {\"id\": \"B\", \"area\": 1}", "/sections/1/id: section \"B\" is defined twice"},
      {"\"type\": \"bar\"", "\"type\": \"rod\"",
       "/elements/1/type: must be \"bar\", \"beam\", \"cable\" or \"membrane\", not \"rod\""},
      {"\"j\": 20", "\"j\": 3", "/elements/1/j: both ends are node 3"},
      {"\"j\": 20, \"section\": \"B\"", "\"j\": 20, \"section\": \"C\"",
       "/elements/1/section: no section has the id \"C\""},
      {"[20]", "[20, 20]", "/inclined_supports/1: node 20 is listed twice"},
      {"[20]", "[1e300]", "/inclined_supports/0: must be the id of a node"},
      {"\"case\": 2", "\"case\": 20", "/loads/0/case: must be 19 or less"},
      {"\"node\": 3, \"direction\": \"RY\"", "\"node\": 20, \"direction\": \"RY\"",
       "/loads/0/direction: node 20 is pinned and takes no moment"},
      {"\"value\": 1.5", "\"value\": 3.5e38", "/loads/0/value: too large for a single-precision record"},
      {"\"shear\": true", "\"shear\": 1", "/analyses/1/shear: must be true or false"},
      {"{\"0\": 1.2", "{\"3\": 1.2", "/analyses/0/combination/3: no such load case; the cases are 0 to 2"},
      {"{\"0\": 1.2", "{\"00\": 1.2", "/analyses/0/combination/00: no such load case; the cases are 0 to 2"},
      {"[0, 1, 0]", "[0, 1]", "/analyses/2/direction: must have 3 numbers"},
      {"[0, 1, 0]", "[0, 1, \"0\"]", "/analyses/2/direction/2: must be a number"},
      {"\"wilson\"", "\"euler\"", "/analyses/3/method: must be \"wilson\" or \"newmark\", not \"euler\""},
      {"\"nonlinear\": true, \"criterion\": \"force_abs\", \"tolerance\": 0.01, \"max_iterations\": 9",
       "\"tolerance\": 1", "/analyses/4/tolerance: needs \"nonlinear\": true"},
      {"\"direction\": \"Y\", \"peak\"", "\"direction\": \"RX\", \"peak\"",
       "/analyses/4/impulse/loads/0/direction: must be \"X\", \"Y\" or \"Z\", not \"RX\""},
      {"\"from_file\": false", "\"from_file\": true", "/analyses/4/impulse: the loads are read from a file"},
      {"\"nodal_force\"", "\"ground_motion\"", "/analyses/4/impulse: belongs to load \"nodal_force\""},
      {"\"load\": \"ground_motion\"", "\"load\": \"nodal_force\"",
       "/analyses/5/earthquake: belongs to load \"ground_motion\""},
      {"[\"Z\", \"X\"]", "[\"Y\"]",
       "/analyses/5/earthquake/peaks: peak \"Z\" of a direction in which the ground does not move"},
      {"[\"Z\", \"X\"]", "[\"Z\", 3]", "/analyses/5/earthquake/directions: must list some of \"X\", \"Y\" or \"Z\""},
      {"\"mode\": \"principal\", ", "\"oblique_axis\": [1, 1, 0],",
       "/analyses/5/earthquake/oblique_axis: belongs to mode \"oblique\""},
      {"{\"node\": 20, \"direction\": \"X\"}], \"elements\": [2, 1]",
       "{\"node\": 7, \"direction\": \"X\"}], \"elements\": [2, 2]",
       "/analyses/3/outputs/nodes/1/node: node 7 is listed twice\n/analyses/3/outputs/elements: element 2 is listed "
       "twice"},
      {"[2, 1]", "[3, 1.5]",
       "/analyses/3/outputs/elements: must list numbers of elements, 1 to 2\n/analyses/3/outputs/elements: must list "
       "numbers of elements, 1 to 2"},
      {"\"from_file\": true, ", "", "/analyses/6/general_load: needs \"from_file\": true"},
      {"\"title\"", "\"a/b~c\": 1, \"title\"", "/a~1b~0c: unknown key"},
      {"\"x\": 4", "\"x\": 4, \"x\": [5]", "/nodes/1/x: key given twice"},
      {"\"x\": 4, \"y\": 0", "\"x\": false, \"w\": 0",
       "/nodes/1/x: must be a number\n/nodes/1/y: missing\n/nodes/1/w: unknown key"},
  };
  for (const auto& c : cases) {
    const JobFile file = ParseJob(Replace(c_strGood, c.strFrom, c.strTo));
    EXPECT_EQ(List(file.errors), c.strProblem) << c.strTo;
  }
}

TEST(JobFile, CapacitiesOfTheRecords) {
  const auto ListErrors = [](const Job& job) { return List(ParseJob(FormatJob(job)).errors); };
  Job job = GenerateArch({});
  for (int i = 4; i <= 29999; ++i) job.nodes.push_back({i, 1.0 * i, 0, 0, c_nPinned, {}, {}});
  job.elements.resize(69999, job.elements[0]);
  job.loads.resize(90000, job.loads[0]);
  EXPECT_EQ(ListErrors(job), "");
  job.loads.back().nCase = 2;  // case 1 needs a record of its own
  EXPECT_EQ(ListErrors(job),
            "/loads: 90000 entries and one more for each of 1 cases without loads; the host records hold 90000");
  job.nodes.push_back({30000, -1, 0, 0, c_nPinned, {}, {}});
  EXPECT_EQ(ListErrors(job), "/nodes: more than 29999 entries; a job holds no more");  // reading stops there
}

TEST(JobFile, DamagedAndOverlongTextsAreRefused) {
  const auto Repeat = [](const std::string& strText, int nTimes) {
    std::string strAll = strText;
    for (int k = 1; k < nTimes; ++k) strAll += "," + strText;
    return "[" + strAll + "]";
  };
  std::string strMembers = "{\"a\":0";
  for (int k = 0; k < 1000; ++k) strMembers += ",\"" + std::to_string(k) + "\":0";
  std::string strDeep, strDeepest;
  for (int k = 0; k < 500000; ++k) strDeep += "[{\"a\":";
  for (int k = 0; k < 16; ++k) strDeepest += "/0/a";
  const std::pair<std::string, std::string> lastErrorOf[] = {
      {"", "line 1, column 1: "},  // the reason is the parser's
      {"{\n  \"nodes\": [1,,2]\n}", "line 2, column 15: "},
      {"{\"title\": \"a\xff\"}", "line 1, column 13: "},
      {"{\"title\": \"a\"", "line 1, column 14: "},
      {"{}\n{}", "line 2, column 1: "},
      {"{\"x\": 1e999}", "line 1, column 11: "},
      {"{\"x\": NaN}", "line 1, column 7: "},
      {"[" + std::string(1000, '9') + "]", "line 1, column 1001: "},
      {"{\"nodes\": []}", "/elements: missing"},
      {"[]", ": must be an object"},
      {strDeep, strDeepest + ": nested deeper than 32 levels"},
      {"{\"nodes\": " + Repeat("0", 29999) + "}", ": 100 errors; reading stopped here"},
      {"{\"a\": " + Repeat(Repeat("0", 50000), 81) + "}", "/a/79/49918: more than 4000000 values in all"},
      {"{\"a\": " + Repeat("0", 90001) + "}", "/a: more than 90000 entries; a job holds no more"},
      {"{\"a\": [" + strMembers + "}]}", "/a/0: more than 1000 members; a job holds no more"}};
  for (const auto& [strText, strError] : lastErrorOf) {
    const std::vector<JobProblem> errors = ParseJob(strText).errors;
    const std::string strLast = List({errors.back()}), &strReason = errors.back().strReason;
    const bool bParser = strError.ends_with(": ");
    EXPECT_EQ(strLast.substr(0, bParser ? strError.size() : std::string::npos), strError);
    EXPECT_TRUE(!bParser || errors.size() == 1U) << strLast;
    EXPECT_TRUE(!strReason.empty() && strReason.size() <= 200);
    EXPECT_EQ(strReason.find("json.exception"), std::string::npos) << strReason;
  }
}

TEST(JobFile, WarnsOfWhatIsHardlyMeant) {
  const std::string strText = R"({
    "nodes": [{"id": 1, "x": 0, "y": 0, "z": 0, "restraint": "111000"}, {"id": 2, "x": 1, "y": 0, "z": 0},
              {"id": 3, "x": 2, "y": 0, "z": 0, "spring": 2}, {"id": 4, "x": 2, "y": 2, "z": 0, "spring": 1}],
    "springs": [{"group": 1, "kx": 1}, {"group": 2}], "sections": [{"id": "S\u009b", "area": 1}, {"id": "T", "area": 0}],
    "elements": [{"type": "bar", "i": 1, "j": 2, "section": "T"}, {"type": "beam", "i": 2, "j": 4, "section": "S\u009b"}],
    "loads": [{"case": 0, "node": 3, "direction": "X", "value": 1}],
    "analyses": [{"type": "static"}]})";
  const JobFile file = ParseJob(strText);
  EXPECT_TRUE(file.errors.empty());
  EXPECT_EQ(List(file.warnings),
            R"(/nodes/0: node 1 is rigid but no beam holds its rotations; make it pinned
/nodes/2: no element touches node 3
/nodes/3: no support keeps node 4 Z from moving with its part of the structure
/springs: a spring with a stiffness above 0 holds its node rigidly (1 nodes)
/elements/0: section "T" has no area
/elements/1: section "S\u009b" has no bending inertia
/loads/0: acts on node 3, which no element touches: it has no effect
/analyses/0: no load combination: nothing acts on the structure)");
}

std::string ListNames(const JobFile& file) {
  std::string strNames = List(file.errors);
  for (const JobProblem& problem : file.warnings) strNames += problem.strPlace + " " + problem.strName + "\n";
  return strNames;
}

/// A mast with a load along +Z in case 0 and one along X in case 2; one analysis.
JobFile ParseMast(const std::string& strAnalysis, const std::string& strMore = "", const std::string& strJobPath = "") {
  return ParseJob(
      R"({"nodes": [{"id": 1, "x": 0, "y": 0, "z": 0, "restraint": "111111"}, {"id": 2, "x": 0, "y": 0, "z": 4}],
    "sections": [{"id": "S", "area": 1, "Iy": 1, "Iz": 1}], "elements": [{"type": "beam", "i": 1, "j": 2, "section": "S"}],
    "loads": [{"case": 0, "node": 2, "direction": "Z", "value": 1}, {"case": 2, "node": 2, "direction": "X", "value": 1}],
    "analyses": [{"type": )" +
          strAnalysis + "}]" + strMore + "}",
      strJobPath);
}

TEST(JobFile, WarnsOfAnalysesThatGiveNothing) {
  const std::string strWilson = "\"time_history\", \"method\": \"wilson\"";
  const std::string strNewmark = "\"time_history\", \"method\": \"newmark\"";
  const std::string strGround = strNewmark + ", \"load\": \"ground_motion\"";
  const std::string strForce = R"("loads": [{"node": 2, "direction": "X", "peak": 1}])";
  const struct {
    std::string strAnalysis, strNames;
  } cases[] = {
      {R"("static", "combination": {"0": 1})", ""},
      {R"("static")", " no-case"},
      {R"("static", "combination": {"1": 1, "2": 1})", "/combination empty-case"},
      {R"("modal", "combination": {"0": 1, "2": 1})", ""},
      {R"("modal", "combination": {"2": 1})", "/combination no-mass-load"},
      {R"("spectrum", "combination": {"0": -1})", "/combination no-mass-load"},
      {R"("modal", "combination": {"1": 1})", "/combination empty-case"},
      {strWilson, ""},
      {strWilson + R"(, "time_step": 0)", " time-step"},
      {strWilson + R"(, "time_step": 10.5)", " time-step"},
      {strWilson + R"(, "combination": {"0": 1})", "/combination wilson-ignores"},
      {strWilson + R"(, "peaks": {"X": 1})", "/peaks wilson-ignores"},
      {strWilson + R"(, "nonlinear": true)", "/nonlinear wilson-ignores"},
      {strNewmark, " no-impulse"},
      {strNewmark + R"(, "impulse": {"loads": [{"node": 2, "direction": "X", "peak": 0}]})", " no-impulse"},
      {strNewmark + ", \"impulse\": {" + strForce + R"(, "peak_time": 0.02})", ""},
      {strNewmark + ", \"impulse\": {" + strForce + R"(, "unload_time": 1})", "/impulse impulse-time"},
      {strNewmark + ", \"impulse\": {" + strForce + R"(, "shape": "rectangular", "unload_time": 0.019})",
       "/impulse impulse-time"},
      {strNewmark + ", \"impulse\": {" + strForce + R"(, "peak_time": 2, "time_step": 1.5})", " time-step"},
      {strNewmark + ", \"nonlinear\": true, \"impulse\": {" + strForce + R"(, "peak_time": 1})",
       "/nonlinear nonlinear-forces"},
      {strNewmark + R"(, "from_file": true)", ""},
      {strNewmark + R"(, "from_file": true, "general_load": {"duration": 2})", "/general_load general-load"},
      {strNewmark + R"(, "from_file": true, "general_load": {"time_step": 3, "duration": 2})", " time-step"},
      {strGround, "/earthquake no-direction"},
      {strGround + R"(, "earthquake": {"mode": "oblique"})", ""},
      {strGround + R"(, "earthquake": {"directions": ["Y", "Z"]})", "/earthquake one-direction"},
      {strGround + R"(, "combination": {"2": 1}, "earthquake": {"directions": ["Y"], "duration": 0.01})",
       " time-step\n/analyses/0/combination no-mass-load"},
  };
  for (const auto& c : cases) {
    const std::string strExpected = c.strNames.empty() ? "" : "/analyses/0" + c.strNames + "\n";
    EXPECT_EQ(ListNames(ParseMast(c.strAnalysis)), strExpected) << c.strAnalysis;
  }
  // After a modal analysis with 1 kN at the node.
  const std::string strQuake = strGround + R"(, "earthquake": {"directions": ["X"]}, "combination": )";
  const auto ParseAfterModes = [](const std::string& strCombination, const std::string& strHistory) {
    return ListNames(ParseMast(R"("modal", "combination": )" + strCombination + R"(}, {"type": )" + strHistory));
  };
  EXPECT_EQ(ParseAfterModes(R"({"0": 1})", strQuake + R"({"0": 1, "2": 1})"), "");
  EXPECT_EQ(ParseAfterModes(R"({"0": 1})", strQuake + R"({"0": 0.5})"), "/analyses/1 other-masses\n");
  EXPECT_EQ(ParseAfterModes(R"({"0": 1})", strWilson), "/analyses/1 other-masses\n");
  EXPECT_EQ(ParseAfterModes("{}", strWilson), "");
  const std::string strMore = R"(, "inclined_supports": [2], "springs": [{"group": 1, "kx": 1}])";
  EXPECT_EQ(ListNames(ParseMast(R"("modal")", strMore)), "");
  EXPECT_EQ(ListNames(ParseMast(strWilson, strMore)), "/analyses/0 inclined-support\n");

  const std::string strRecord = testing::TempDir() + "skyframe_checks_Yacc.txt";
  const std::string strRun = strGround + R"(, "from_file": true, "earthquake": {"directions": ["Y"]})";
  for (const auto& [strText, strReason] : std::vector<std::pair<std::string, std::string>>{
           {"0.1 -2e-1\r\n+3\n", ""},
           {"\xef\xbb\xbf"
            "1 2",
            " starts with no number; a heading or a byte-order mark must go"},
           {"1,2", " is read up to value 1; values must be separated by blanks or line ends, without commas or words"},
           {"0 0\n", " holds zeros alone and cannot be scaled to a peak"}}) {
    std::ofstream(strRecord) << strText;
    const JobFile file = ParseMast(strRun, "", testing::TempDir() + "skyframe_checks");
    EXPECT_EQ(List(file.warnings), strReason.empty() ? "" : "/analyses/0: " + strRecord + strReason);
  }
  std::filesystem::remove(strRecord);
}

TEST(JobFile, FilesAndPaths) {
  EXPECT_EQ(GetJobPath("a/b.txt"), "a/b.txt");
  EXPECT_EQ(
      List(ReadJobFile(SKYFRAME_SOURCE_DIR "/examples\\dome.json").errors),
      std::filesystem::path::preferred_separator == '\\' ? "" : ": a job file cannot have a backslash in its path");
}

TEST(JobText, ListsOfNumbers) {
  constexpr int c_nMost = std::numeric_limits<int>::max();
  const struct {
    const char* pszText;
    std::vector<int> in, out;
  } cases[] = {
      {"7", {7}, {6, 8, 77, -7}},
      {"1-20, 35", {1, 20, 35}, {0, 21, 34, 36}},
      {"40-", {40, 41, c_nMost}, {39}},
      {"9-7", {7, 8, 9}, {6, 10}},
      {" 3 - 5 ;8", {3, 4, 5, 8}, {6, 7}},
      {"1、2，4；6　7", {1, 2, 4, 6, 7}, {3, 5}},
      {"2–3 5~6 8～9", {2, 3, 5, 6, 8, 9}, {4, 7}},
      {",,5,,", {5}, {0}},
      {"0", {0}, {1}},
      {"2147483647", {c_nMost}, {c_nMost - 1}},
  };
  for (const auto& c : cases) {
    const CNumberSet numbers(c.pszText);
    EXPECT_FALSE(numbers.IsEmpty()) << c.pszText;
    for (const int n : c.in) EXPECT_TRUE(numbers.Has(n)) << c.pszText << ": " << n;
    for (const int n : c.out) EXPECT_FALSE(numbers.Has(n)) << c.pszText << ": " << n;
  }
  for (const char* pszNone : {"", " ,;", "a", "1,a", "1x", "-3", "1--3", "1.5", "2147483648", "1-99999999999", "+1"})
    EXPECT_TRUE(CNumberSet(pszNone).IsEmpty()) << pszNone;
}

TEST(JobText, NumbersColumnsAndCombinations) {
  for (const auto& [dValue, nDecimals, pszText] :
       {std::tuple(-0.004, 2, "0.00"), {-0.006, 2, "-0.01"}, {-0.0, 0, "0"}, {-10.0, 0, "-10"}, {0.5e-9, 3, "0.000"}}) {
    EXPECT_EQ(FormatDecimals(dValue, nDecimals), pszText);
  }
  EXPECT_TRUE(FormatDecimals(-std::numeric_limits<double>::infinity(), 1).starts_with('-'));
  for (const double d : {0.1, 1.0 / 3.0, 1e300, -5e-324, 0.30000000000000004}) {
    EXPECT_EQ(ParseReal(FormatNumber(d)), d);
  }
  EXPECT_EQ(PadRight("反应谱", 8) + "|" + PadLeft("N·m", 5) + "|" + PadRight("long", 2), "反应谱  |  N·m|long");
  const std::pair<JobCombination, std::array<const char*, 2>> combinations[] = {
      {{}, {"", ""}},
      {{{0, 1.0}}, {"1.0 × case 0", "1.0 × 工况 0"}},
      {{{0, -1.0}, {1, -0.5}}, {"−1.0 × case 0 − 0.5 × case 1", "−1.0 × 工况 0 − 0.5 × 工况 1"}},
      {{{0, 1.2}, {2, 1.4}, {3, -0.25}},
       {"1.2 × case 0 + 1.4 × case 2 − 0.25 × case 3", "1.2 × 工况 0 + 1.4 × 工况 2 − 0.25 × 工况 3"}},
      {{{0, 1e-7}}, {"1e-07 × case 0", "1e-07 × 工况 0"}},
  };
  for (const auto& [combination, texts] : combinations) {
    EXPECT_EQ(FormatCombination(combination), texts[0]);
    const CLanguageScope chinese(Language::Chinese);
    EXPECT_EQ(FormatCombination(combination), texts[1]);
  }
  EXPECT_EQ(
      DescribeSite({.m_nQuakeLevel = 1, .m_nIntensity = c_nLowestIntensity + 3, .m_nZoneGroup = 2, .m_nSiteClass = 4}),
      "intensity 8 (0.20g), rare earthquake, site class IV, design group 2");
  EXPECT_EQ(FormatProblem({"/nodes/3", "bad"}) + ", " + FormatProblem({"", "absent"}, "warning: "),
            "/nodes/3: bad, warning: absent");
}

TEST(Generators, CountsAndNumbering) {
  const Job building = GenerateBuilding({.nBaysX = 4, .nBaysY = 1, .nStoreys = 3});
  int nBandwidth = 0;
  for (const JobElement& e : building.elements) nBandwidth = std::max(nBandwidth, std::abs(e.nNodeI - e.nNodeJ));
  EXPECT_EQ(nBandwidth, 8);  // X is longest: its planes hold 2 x 4 nodes
  EXPECT_EQ(building.GetHighestCase(), 2);
  // tables of rolled sections, with fillets: 400x200x8x13 has 83.37 cm2, 23500 and 1740 cm4
  const JobSection& beam = building.sections.at(1);
  EXPECT_EQ(beam.strId, "H 400x200x8x13");
  EXPECT_NEAR(beam.dArea / 8337.0, 1.0, 0.02);
  EXPECT_NEAR(beam.dIy / 2.35e8, 1.0, 0.03);
  EXPECT_NEAR(beam.dIz / 1.74e7, 1.0, 0.01);
  const JobSection& column = building.sections.at(0);  // torsion of a thin box is 3/2 of its bending
  EXPECT_NEAR(column.dIx / column.dIy, 1.5, 0.01);

  const Job dome = GenerateDome({.nRings = 4, .nSegments = 8, .dSpan = 20, .dRise = 3});
  const std::tuple<Job, std::size_t, std::size_t> counts[] = {{building, 5 * 2 * 4, 3 * (10 + 4 * 2 + 5)},
                                                              {GenerateTower({.nPanels = 6}), 28, 6 * 17},
                                                              {dome, 1 + 4 * 8, 8 * (4 + 3 + 3)},
                                                              {GenerateArch({}), 3, 2},
                                                              {GenerateArch({.nSegments = 10}), 11, 10}};
  for (const auto& [job, nNodes, nElements] : counts) {
    EXPECT_EQ(job.nodes.size(), nNodes) << job.strTitle;
    EXPECT_EQ(job.elements.size(), nElements) << job.strTitle;
  }
  const double R = (10.0 * 10.0 + 3.0 * 3.0) / 6.0;
  for (const JobNode& node : dome.nodes) {
    EXPECT_NEAR(std::hypot(node.dX, node.dY, node.dZ + R - 3.0), R, 1e-8) << "not on the sphere: " << node.nId;
  }
}

/// Sums by case and direction.
std::map<std::pair<int, int>, double> SumLoads(const Job& job) {
  std::map<std::pair<int, int>, double> sums;
  for (const JobLoad& load : job.loads) sums[{load.nCase, load.nDirection}] += load.dValue;
  return sums;
}

// Against areas and lengths by hand.
TEST(Generators, LoadsAndLengths) {
  const Job building = GenerateBuilding({.nBaysX = 2,
                                         .nBaysY = 3,
                                         .nStoreys = 4,
                                         .dSpan = 5.0,
                                         .dHeight = 3.0,
                                         .dDeadLoad = 6.0,
                                         .dLiveLoad = 2.5,
                                         .dWindLoad = 0.7});
  auto sums = SumLoads(building);
  EXPECT_EQ(sums.size(), 3U);
  EXPECT_NEAR((sums[{0, 2}]), -6.0 * 4 * 10 * 15, 1e-9);
  EXPECT_NEAR((sums[{1, 2}]), -2.5 * 4 * 10 * 15, 1e-9);
  EXPECT_NEAR((sums[{2, 0}]), 0.7 * 15 * (4 * 3.0 - 1.5), 1e-9) << "the lowest half storey pushes at the ground";
  std::map<std::string, double> lengths;
  const auto at = [](const Job& job, int nNode) { return job.nodes.at(static_cast<std::size_t>(nNode - 1)); };
  for (const JobElement& e : building.elements) {
    const JobNode i = at(building, e.nNodeI), j = at(building, e.nNodeJ);
    lengths[i.dZ == j.dZ ? "beams" : "columns"] += std::hypot(i.dX - j.dX, i.dY - j.dY, i.dZ - j.dZ);
  }
  EXPECT_NEAR(lengths["columns"], 12 * 12.0, 1e-9);
  EXPECT_NEAR(lengths["beams"], 4 * (4 * 10.0 + 3 * 15.0), 1e-9);

  auto tower = SumLoads(GenerateTower({.nPanels = 5}));
  EXPECT_NEAR((tower[{0, 2}]), -2.0 * 20, 1e-9);
  EXPECT_NEAR((tower[{1, 0}]), 1.0 * 20, 1e-9);
  const Job leaning = GenerateTower({.nPanels = 2, .dBase = 6.0, .dTop = 2.0, .dPanelHeight = 5.0});
  EXPECT_EQ(std::tuple(at(leaning, 5).dX, at(leaning, 5).dZ, at(leaning, 11).dY, at(leaning, 11).dZ),
            std::tuple(-2.0, 5.0, 1.0, 10.0));
  // The edge ring carries its own part into the supports, if it has one.
  const DomeParameters dome{.nRings = 6, .nSegments = 16, .dSpan = 30, .dRise = 5, .dLoad = 2.0};
  const double dPlan = 0.5 * 16 * std::sin(2.0 * std::numbers::pi / 16) * 15 * 15;
  const double dDome = -SumLoads(GenerateDome(dome))[{0, 2}];
  EXPECT_TRUE(dDome > 0.8 * 2.0 * dPlan && dDome < 1.03 * 2.0 * dPlan) << dDome << ' ' << 2.0 * dPlan;
  EXPECT_EQ((SumLoads(GenerateArch({.nSegments = 8, .dLoad = 50.0}))[{0, 2}]), -50.0);
  for (const JobNode& node : GenerateArch({.nSegments = 8, .dHalfSpan = 4.0, .dRise = 2.0}).nodes) {
    EXPECT_NEAR(node.dZ, 2.0 * (1.0 - node.dX * node.dX / 16.0), 1e-9) << "off the parabola";
  }
}

/// Every option of a generator with its range.
class CRangeLister {
 public:
  template <class T>
  void Visit(const GeneratorField& field, T& value, GeneratorRange<T> range) {
    rows.push_back({field.pszOption, static_cast<double>(range.lowest), static_cast<double>(range.highest)});
    EXPECT_TRUE(range.lowest <= value && value <= range.highest) << field.pszOption;
    EXPECT_TRUE(field.meaning.strEnglish != field.meaning.strChinese && !field.meaning.strChinese.empty());
  }
  void Visit(const GeneratorField& field, bool& /*bValue*/) { EXPECT_NE(field.meaning.strChinese, ""); }

  std::vector<std::tuple<std::string, double, double>> rows;
};

TEST(Generators, RefuseWhatIsOutOfRange) {
  BuildingParameters building;
  TowerParameters tower;
  DomeParameters dome;
  ArchParameters arch;
  std::array<CRangeLister, 4> listers;
  VisitFields(listers[0], building), VisitFields(listers[1], tower), VisitFields(listers[2], dome);
  VisitFields(listers[3], arch);
  constexpr const char* c_pszNames[] = {"building", "tower", "dome", "arch"};
  const auto call = [](const char* pszName, const std::string& strOption, double dValue) {
    std::ostringstream out, err;
    const std::string strValue = FormatNumber(dValue);
    EXPECT_EQ(RunCommandLine({"generate", pszName, "--" + strOption + "=" + strValue}, out, err), 2) << strOption;
    EXPECT_EQ(out.str(), "");
    return err.str();
  };
  for (std::size_t k = 0; k < listers.size(); ++k) {
    for (const auto& [strOption, dLowest, dHighest] : listers[k].rows) {
      const double dStep = 1.0 + 1e-6 * std::abs(dHighest);
      for (const double dValue : {dLowest - 1.0, dHighest + dStep, std::nan("")}) {
        EXPECT_NE(call(c_pszNames[k], strOption, dValue).find("--" + strOption), std::string::npos) << dValue;
      }
    }
  }
  EXPECT_EQ(FindConflict(dome), std::nullopt);
  dome.dRise = 0.5 * dome.dSpan + 0.01;
  arch.nSegments = 7;
  tower.nPanels = c_nMaxNodes / 4;
  building.nStoreys = c_nMaxNodes / 12;
  for (const auto& conflict : {FindConflict(dome), FindConflict(arch), FindConflict(tower), FindConflict(building)})
    EXPECT_TRUE(conflict && !conflict->empty());
  --tower.nPanels, --building.nStoreys;
  EXPECT_FALSE(FindConflict(tower) || FindConflict(building));
  EXPECT_EQ(ChooseStoreys(100, 4, 3), 4);
  EXPECT_EQ(ChooseStoreys(1, 4, 3), 1);
}

TEST(Generators, BuildingOfAGivenSizeIsSlender) {
  for (const int nNodes : {8, 100, 1000, 5000, 20000}) {
    const BuildingParameters parameters = ChooseBuilding(nNodes);
    const int nPlan = (parameters.nBaysX + 1) * (parameters.nBaysY + 1);
    EXPECT_NEAR(nPlan * (parameters.nStoreys + 1), nNodes, 0.5 * nPlan + 0.1) << nNodes;
    EXPECT_GE(parameters.nStoreys, parameters.nBaysX) << nNodes;
  }
  EXPECT_EQ(std::tuple(ChooseBuilding(5000).nBaysX, ChooseBuilding(5000).nStoreys), std::tuple(9, 49));
}

}  // namespace
}  // namespace skyframe::host
