#include "TestPlatform.h"
#include "skyframe/generate/Generate.h"
#include "skyframe/job/JobFile.h"

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
