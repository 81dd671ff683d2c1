// Tables of results against statics, and their text.

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "CommandFolder.h"
#include "skyframe/generate/Generate.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/platform/NumberText.h"
#include "skyframe/tables/ResultTables.h"
#include "skyframe/tables/RowFilter.h"

namespace skyframe::host {
namespace {

using test::CCommandFolder;
using Fields = std::vector<std::string>;

/// A column of 3 m clamped at node 7, with 10 kN along X and 20 kN downwards at its top, node 3.
std::string MakeColumn(const std::string& strTopLoad = "-20") {
  return R"({"nodes": [{"id": 3, "x": 0, "y": 0, "z": 3}, {"id": 7, "x": 0, "y": 0, "z": 0, "restraint": "111111"}],
    "sections": [{"id": "box \"a\", b", "shape": 2, "area": 1e4, "Ix": 4e7, "Iy": 2e7, "Iz": 3e7}],
    "elements": [{"type": "beam", "i": 7, "j": 3, "section": "box \"a\", b"}],
    "loads": [{"case": 0, "node": 3, "direction": "Z", "value": )" +
         strTopLoad + R"(}, {"case": 1, "node": 3, "direction": "X", "value": 10}],
    "analyses": [{"type": "static", "nonlinear": false, "combination": {"0": 1, "1": 1}},
                 {"type": "modal", "modes": 6, "combination": {"0": -1}}]})";
}

/// Lines of a table without quoted commas.
std::vector<Fields> Split(const std::string& strCsv) {
  std::vector<Fields> lines;
  std::istringstream text(strCsv);
  for (std::string strLine; std::getline(text, strLine);) {
    EXPECT_EQ(strLine.back(), '\r');
    strLine.pop_back();
    std::istringstream line(strLine + ",|");
    Fields& fields = lines.emplace_back();
    for (std::string strField; std::getline(line, strField, ',');) fields.push_back(strField);
    fields.pop_back();
  }
  return lines;
}

std::vector<Fields> CallTable(const CCommandFolder& folder, const std::string& strKind, const std::string& strResult) {
  const auto outcome = CCommandFolder::Call({"table", folder.GetPath(".json"), "--what", strKind, "--of", strResult});
  EXPECT_EQ(outcome.nStatus, c_nExitGood) << outcome.strErr;
  return Split(outcome.strOut);
}

TEST(Tables, AgreeWithStatics) {
  CCommandFolder folder;
  ASSERT_EQ(folder.Solve(MakeColumn()).nStatus, c_nExitGood);
  const auto reactions = CallTable(folder, "reactions", "linear");
  ASSERT_EQ(reactions.size(), 3U);
  EXPECT_EQ(reactions[0], (Fields{"Node", "FX (kN)", "FY (kN)", "FZ (kN)", "MX (kN·m)", "MY (kN·m)", "MZ (kN·m)"}));
  EXPECT_EQ(reactions[1], (Fields{"7", "10", "0", "-20", "0", "30", "0"})) << "of the structure on the support";
  EXPECT_EQ(reactions[2], (Fields{"Sum", "10", "0", "-20", "", "", ""}));

  const auto ends = CallTable(folder, "forces", "linear");
  const auto moment = [&](std::size_t nLine) {
    return std::hypot(std::stod(ends[nLine][7]), std::stod(ends[nLine][8]));
  };
  EXPECT_EQ(Fields(ends[1].begin(), ends[1].begin() + 4), (Fields{"1", "i", "7", "-20"})) << "pressed";
  EXPECT_EQ(Fields(ends[2].begin(), ends[2].begin() + 4), (Fields{"1", "j", "3", "-20"}));
  EXPECT_NEAR(moment(1), 30.0, 1e-3);
  EXPECT_NEAR(moment(2), 0.0, 1e-3);
  EXPECT_EQ(ends[1][9] + "," + ends[1][10], R"("box ""a"", b")");
  for (const Fields& footing : {ends[3], ends[4]}) EXPECT_EQ(footing.back(), "") << "no section";

  // u = F L^3 / 3 E I; the file has the displacement with six digits.
  const auto displacements = CallTable(folder, "displacements", "linear");
  const double dStiffer = 10.0e3 * 27.0 / (3.0 * 2.06e11 * 3e-5), dSofter = dStiffer * 1.5;
  const double dFound = std::stod(displacements[1][1]) / 1e3;
  EXPECT_LT(std::min(std::abs(dFound - dStiffer), std::abs(dFound - dSofter)), 1e-4 * dFound) << "mm";
  const auto levels = CallTable(folder, "levels", "linear");
  EXPECT_EQ(Fields(levels[2].begin(), levels[2].begin() + 3), (Fields{"2", "3", "1"})) << "from the ground up";
  EXPECT_EQ(levels[2][3], displacements[1][1]);
}

/// Numbers of a row from a column on; NaN where there is none.
std::vector<double> ReadNumbers(const Fields& row, std::size_t nFirst) {
  std::vector<double> numbers;
  for (std::size_t c = nFirst; c < row.size(); ++c) numbers.push_back(ParseReal(row[c]).value_or(c_dNoNumber));
  return numbers;
}

/// The rows of nodes or elements by their numbers, without heading and footings.
std::map<int, std::vector<double>> MapRows(const std::vector<Fields>& table) {
  std::map<int, std::vector<double>> rows;
  for (const Fields& row : table) {
    if (const auto nNumber = ParseInt(row.front())) rows.emplace(*nNumber, ReadNumbers(row, 1));  // the i end first
  }
  return rows;
}

/// A building whose nodes have other ids than numbers, under all of its loads and one that turns it.
Job MakeBuilding() {
  Job job = GenerateBuilding({.nBaysX = 2, .nBaysY = 1, .nStoreys = 2, .dSpan = 5.0, .dHeight = 3.0});
  for (JobNode& node : job.nodes) node.nId = 500 - 7 * node.nId;
  job.loads.push_back({2, static_cast<int>(job.nodes.size()), 1, 7.0});
  job.analyses = {StaticJob{false, {}, {}, {}, {{0, 1.0}, {1, 0.5}, {2, 3.0}}}};
  return job;
}

// Forces and moments about the origin, and in the lowest columns the forces of their supports.
TEST(Tables, SupportsAndColumnsBalanceTheLoads) {
  CCommandFolder folder;
  const Job job = MakeBuilding();
  ASSERT_EQ(folder.Solve(FormatJob(job)).nStatus, c_nExitGood);
  const JobCombination& combination = std::get<StaticJob>(job.analyses[0]).combination;
  std::array<double, 6> loads = {}, forces = {};
  const auto add = [](std::array<double, 6>& sums, const JobNode& at, const std::vector<double>& values) {
    const auto& v = values;
    const double moments[] = {at.dY * v[2] - at.dZ * v[1], at.dZ * v[0] - at.dX * v[2], at.dX * v[1] - at.dY * v[0]};
    for (std::size_t d = 0; d < 3; ++d) sums[d] += v[d], sums[d + 3] += v[d + 3] + moments[d];
  };
  for (const JobLoad& load : job.loads) {
    std::vector<double> values(6);
    values[static_cast<std::size_t>(load.nDirection)] = combination.at(load.nCase) * load.dValue;
    add(loads, job.nodes[static_cast<std::size_t>(load.nNode - 1)], values);
  }
  const auto reactions = MapRows(CallTable(folder, "reactions", "linear"));
  const auto ends = MapRows(CallTable(folder, "forces", "linear"));
  EXPECT_EQ(reactions.size(), 6U);
  EXPECT_EQ(ends.size(), job.elements.size());
  for (const auto& [nId, values] : reactions) {
    const auto node = std::ranges::find(job.nodes, nId, &JobNode::nId);
    ASSERT_NE(node, job.nodes.end());
    add(forces, *node, values);
    const int nNumber = static_cast<int>(node - job.nodes.begin()) + 1;
    const auto column = std::ranges::find(job.elements, nNumber, &JobElement::nNodeI);
    const std::vector<double>& end = ends.at(static_cast<int>(column - job.elements.begin()) + 1);
    EXPECT_EQ(end[1], nId);
    EXPECT_NEAR(end[2], values[2], 2e-3) << "N, pressed like the support";
    EXPECT_NEAR(std::hypot(end[3], end[4]), std::hypot(values[0], values[1]), 2e-3);
    EXPECT_NEAR(end[5], values[5], 2e-3 + std::abs(2.0 * values[5])) << "torque";
    EXPECT_NEAR(std::hypot(end[6], end[7]), std::hypot(values[3], values[4]), 2e-3);
  }
  for (std::size_t d = 0; d < 6; ++d) EXPECT_NEAR(forces[d], loads[d], 0.02) << d;
}

// Levels against the displacements of their nodes, extremes against the ends of members without loads between.
TEST(Tables, LevelsAndExtremesAreThoseOfTheirParts) {
  CCommandFolder folder;
  const Job job = MakeBuilding();
  ASSERT_EQ(folder.Solve(FormatJob(job)).nStatus, c_nExitGood);
  const auto displacements = MapRows(CallTable(folder, "displacements", "linear"));
  const auto levels = MapRows(CallTable(folder, "levels", "linear"));
  ASSERT_EQ(levels.size(), 3U);
  for (const auto& [nLevel, level] : levels) {
    EXPECT_EQ(level[0], 3.0 * (nLevel - 1));
    EXPECT_EQ(level[1], 6.0);
    for (std::size_t d = 0; d < 2; ++d) {
      double dLow = 1e9, dHigh = -1e9;
      for (const JobNode& node : job.nodes) {
        if (node.dZ != level[0]) continue;
        const double u = displacements.at(node.nId)[d];
        dLow = std::min(dLow, u), dHigh = std::max(dHigh, u);
      }
      const std::size_t c = 2 + 3 * d;
      EXPECT_NEAR(level[c], -dLow > dHigh ? dLow : dHigh, 1e-9);
      EXPECT_NEAR(level[c + 1], 0.5 * (dLow + dHigh), 1e-9);
      EXPECT_EQ(std::isnan(level[c + 2]), nLevel == 1) << "nothing moves at the ground";
      if (nLevel > 1) {
        EXPECT_NEAR(level[c + 2], level[c] / level[c + 1], 1e-9);
      }
    }
  }
  const auto extremes = CallTable(folder, "extremes", "linear");
  const auto ends = CallTable(folder, "forces", "linear");
  for (std::size_t r = 1; r <= job.elements.size(); ++r) {
    const std::vector<double> largest = ReadNumbers(extremes[r], 1);
    const std::vector<double> i = ReadNumbers(ends[2 * r - 1], 3), j = ReadNumbers(ends[2 * r], 3);
    for (std::size_t q = 0; q < 6; ++q) {
      const bool bStart = std::abs(i[q]) >= std::abs(j[q]);
      EXPECT_EQ(largest[q], bStart ? i[q] : j[q]) << r << ' ' << q;
      if (q > 3 && i[q] != j[q]) {
        EXPECT_EQ(largest[q + 2], bStart ? 0.0 : 1.0) << "x/L of " << q;
      }
    }
  }
}

// gamma^2 is the mass of a mode whose shape has the modal mass 1; with one mode alone nothing is combined.
TEST(Tables, SpectrumAndShapesFollowFromTheirModes) {
  CCommandFolder folder;
  std::string strJob = MakeColumn();
  strJob.insert(strJob.rfind(']'),
                R"json(, {"type": "spectrum", "modes": 1, "direction": [1, 0, 0], "intensity": "8 (0.20g)",
                 "level": "frequent", "site_class": 2, "zone_group": 1, "damping": 0.05, "combination": {"0": -1}})json");
  ASSERT_EQ(folder.Solve(strJob).nStatus, c_nExitGood);
  const auto modes = CallTable(folder, "modes", "modes"), quake = CallTable(folder, "modes", "spectrum");
  const double f = std::stod(modes[1][1]), T = std::stod(modes[1][2]);
  EXPECT_NEAR(f * T, 1.0, 1e-9);
  const double dGamma = std::stod(quake[1][1]), dMass = std::stod(quake[1][2]);
  EXPECT_NEAR(dGamma * dGamma, dMass, 1e-4 * dMass);
  EXPECT_NEAR(dMass, std::stod(modes[1][3]), 1e-4 * dMass) << "effective mass in X";
  EXPECT_NEAR(std::stod(quake[1][3]), std::stod(modes[1][4]), 1e-3) << "%";
  // Group 1, class II: Tg = 0.35 s. The mass hangs at the top: alpha = 0.16 (Tg/T)^0.9 between Tg and 5 Tg.
  ASSERT_TRUE(T < 1.75) << T;
  const double dAlpha = 0.16 * (T < 0.35 ? 1.0 : std::pow(0.35 / T, 0.9));
  const double dShear = dAlpha * 9.8 * dMass / 1e3;
  const auto reactions = CallTable(folder, "reactions", "spectrum");
  ASSERT_EQ(reactions.size(), 3U);
  EXPECT_EQ(reactions[2][0], "Base shear");
  EXPECT_NEAR(std::stod(reactions[2][1]), dShear, 2e-3 * dShear) << T;
  EXPECT_NEAR(std::stod(reactions[1][1]), dShear, 2e-3 * dShear);
  EXPECT_NEAR(std::stod(reactions[1][5]), 3.0 * dShear, 0.02 * 3.0 * dShear) << "MY: the lever of the top";
  for (const char* const pszMode : {"1", "2", "3"}) {
    const auto outcome = CCommandFolder::Call(
        {"table", folder.GetPath(".json"), "--what", "displacements", "--of", "modes", "--mode", pszMode});
    const std::vector<double> top = MapRows(Split(outcome.strOut)).at(3);
    EXPECT_EQ(std::max({std::abs(top[0]), std::abs(top[1]), std::abs(top[2])}), 1.0);
    EXPECT_NEAR(top[3], std::hypot(top[0], top[1], top[2]), 1e-9);
  }
}

TEST(Tables, RoundOffIsNoResult) {
  StaticResultFile file;
  file.supports = {{1, {5e3, -1e-9, std::nullopt, 1e3, 1e-7, 1e-9}}, {2, {1e-3, 4e-6, -6e3, -2e3, 0.0, -1e-5}}};
  file.displacements = {{1e-3, -2e-13, 1e-11, 0, 0, 0}, {-4e-3, 3e-12, 5e-12, 0, 0, 0}};
  Job job;
  job.nodes.resize(2);
  const Table reactions = FormTable(job, file, TableKind::Reactions).value();
  const std::vector<std::vector<double>> expected = {{5.0, 1e-6}, {0.0, 0.0}, {c_dNoNumber, -6.0},
                                                     {1.0, -2.0}, {0.0, 0.0}, {0.0, -1e-8}};
  for (std::size_t c = 0; c < expected.size(); ++c) {
    for (std::size_t r = 0; r < 2; ++r) {
      EXPECT_EQ(FormatWhole(reactions.columns[c + 1].numbers[r]), FormatWhole(expected[c][r])) << c << ' ' << r;
    }
  }
  const Table moved = FormTable(job, file, TableKind::Displacements).value();
  EXPECT_EQ(moved.columns[1].numbers, (std::vector{1.0, -4.0})) << "mm";
  EXPECT_EQ(moved.columns[2].numbers, (std::vector{0.0, 0.0}));
  EXPECT_EQ(moved.columns[3].numbers, (std::vector{1e-8, 5e-9})) << "small is not nothing";

  SpectrumResultFile spectrum;
  spectrum.gamma = {12.0, 1e-12, -3.0};
  spectrum.masses = {144.0, 1e-24, 9.0};
  spectrum.damping = {0.05, 0.05, 0.05};
  spectrum.dTotalMass = 306.0;
  const Table shares = FormTable(job, spectrum, TableKind::Modes).value();
  EXPECT_EQ(shares.columns[1].numbers, (std::vector{12.0, 0.0, -3.0}));
  EXPECT_EQ(shares.columns[2].numbers[1], 0.0);
  EXPECT_EQ(shares.columns[4].numbers, (std::vector{14400.0 / 306.0, 14400.0 / 306.0, 50.0})) << "running sum, %";
  EXPECT_EQ(shares.footings[0].numbers[2], 153.0);
}

TEST(Tables, LevelsAreTheStoreysOfTheReport) {
  Job job;
  StaticResultFile file;
  for (const double dZ : {6.0, 0.0, 3.004, 3.0, 6.011}) {
    job.nodes.push_back({.nId = 9, .dZ = dZ, .nSpring = {}});
    file.displacements.push_back({0.001 * dZ, -0.001, 0.0, 0.0, 0.0, 0.0});
  }
  const Table levels = FormTable(job, file, TableKind::Levels).value();
  EXPECT_EQ(levels.columns[2].numbers, (std::vector{1.0, 2.0, 1.0, 1.0})) << "nodes within 1 cm stand at one level";
  EXPECT_EQ(levels.columns[3].numbers[1], 3.004) << "largest X, mm";
  EXPECT_NEAR(levels.columns[4].numbers[1], 3.002, 1e-12) << "mean";
}

TEST(Tables, CommandChoosesWarnsAndRefuses) {
  CCommandFolder folder;
  const std::string strJob = folder.GetPath(".json"), strStatic = folder.GetPath("_StaticLinearSol.txt");
  const auto call = [&](test::Strings options) {
    options.insert(options.begin(), {"table", strJob});
    return CCommandFolder::Call(options);
  };
  folder.Write(".json", MakeColumn());
  EXPECT_EQ(call({"--what", "forces"}).strErr, strStatic + ": cannot be opened\n");
  ASSERT_EQ(folder.Solve().nStatus, c_nExitGood);
  const std::pair<test::Strings, std::string> refused[] = {
      {{"--what", "modes", "--of", "linear"}, "--what modes: the result has no such table\n"},
      {{"--what", "reactions", "--of", "history"}, "--what reactions: the result has no such table\n"},
      {{"--what", "forces", "--mode", "1"}, "--mode: belongs to the shape of a mode\n"},
      {{"--what", "modes", "--mode", "1"}, "--mode: belongs to the shape of a mode\n"},
      {{"--what", "levels", "--of", "modes", "--mode", "0"}, folder.GetPath(".mode") + ": has no mode 0\n"},
      {{"--what", "forces", "-o", folder.GetPath(".mode")},
       folder.GetPath(".mode") + ": belongs to the job; choose another name\n"},
      {{"--what", "displacements", "--of", "history"}, folder.GetPath("_HisTime.txt") + ": cannot be opened\n"},
  };
  for (const auto& [options, strError] : refused) {
    const auto outcome = call(options);
    EXPECT_EQ(std::tuple(outcome.nStatus, outcome.strOut, outcome.strErr), std::tuple(c_nExitBadInput, "", strError));
  }
  const auto printed = call({"--what", "displacements"});
  EXPECT_EQ(printed.strOut, call({"--what", "displacements", "--of", "linear"}).strOut) << "the first that is there";
  EXPECT_EQ(call({"--what", "displacements", "-o", folder.GetPath(".csv")}).strOut, "");
  EXPECT_EQ(folder.Read(".csv"), "\xef\xbb\xbf" + printed.strOut);
  EXPECT_TRUE(printed.strOut.starts_with("Node,")) << "no mark in a pipe";
  folder.Write(".json", MakeColumn("-21"));
  const auto old = call({"--what", "displacements"});
  EXPECT_EQ(std::tuple(old.nStatus, old.strOut), std::tuple(c_nExitGood, printed.strOut));
  EXPECT_TRUE(old.strErr.starts_with("warning: ") && old.strErr.ends_with("[outdated-result]\n")) << old.strErr;
  std::filesystem::remove(strStatic);
  EXPECT_EQ(call({"--what", "displacements"}).strOut.substr(0, 9), "Node,X,Y,") << "the shape of a mode";
}

TEST(Tables, EffectiveMassesBelongToTheModeFile) {
  CCommandFolder folder;
  ASSERT_EQ(folder.Solve(MakeColumn()).nStatus, c_nExitGood);
  const auto ofRun = CallTable(folder, "modes", "modes");
  ASSERT_EQ(ofRun.size(), 8U);
  for (const std::size_t nShare : {4U, 7U, 10U}) {
    EXPECT_NEAR(std::stod(ofRun.back()[nShare]), 100.0, 1e-3) << "six modes have all the mass of one free node";
    EXPECT_NEAR(std::stod(ofRun[6][nShare + 1]), 100.0, 1e-3) << "running sum";
  }
  const std::string strModes = folder.Read(".mode"), strStamp = folder.Read(".stamp");
  ASSERT_EQ(folder.Solve(MakeColumn("-40")).nStatus, c_nExitGood);  // the last run of this session
  folder.Write(".json", MakeColumn());
  folder.Write(".mode", strModes);
  folder.Write(".stamp", strStamp);
  const auto ofFile = CallTable(folder, "modes", "modes");
  ASSERT_EQ(ofFile.size(), 8U);
  EXPECT_NEAR(std::stod(ofFile.back()[3]), std::stod(ofRun.back()[3]), 1e-4 * std::stod(ofRun.back()[3]));
  folder.Write(".stamp", "{}");
  EXPECT_EQ(CallTable(folder, "modes", "modes").front().size(), 3U) << "of a file from nowhere";
  EXPECT_EQ(CCommandFolder::Call({"table", folder.GetPath(".json"), "--what", "levels", "--of", "modes", "--mode", "7"})
                .nStatus,
            c_nExitBadInput);
}

TEST(Tables, PeaksKeepSignAndTime) {
  Job job;
  job.nodes.resize(2);
  job.sections.resize(1);
  job.elements.resize(1);
  HistorySet histories;
  histories.dTimeStep = 0.5;
  histories.Allocate(3, 2, 1);
  histories.values[c_nHistoryY][0][1] = 0.002;
  histories.values[c_nHistoryY][1][1] = -0.003;
  histories.values[c_nHistoryY][2][1] = std::nan("");
  histories.values[c_nHistoryForce][2][0] = -1500.0;
  const Reading<Table> nodes = FormTable(job, histories, TableKind::Displacements);
  EXPECT_EQ(nodes->columns[3].numbers[1], -3.0) << "mm";
  EXPECT_EQ(nodes->columns[4].numbers[1], 1.0) << "s";
  const Reading<Table> forces = FormTable(job, histories, TableKind::Extremes);
  EXPECT_EQ(forces->columns[1].numbers[0], -1.5) << "kN";
  EXPECT_EQ(forces->columns[2].numbers[0], 1.5);
  histories.values[c_nHistoryY][1][0] = 1e-15;
  const Table still = FormTable(job, histories, TableKind::Displacements).value();
  EXPECT_EQ(std::tuple(still.columns[3].numbers[0], std::isnan(still.columns[4].numbers[0])), std::tuple(0.0, true));
}

/// Nodes 1, 2, 5, 40 with a value and a section.
Table MakeTable() {
  Table table{RowSubject::Node, {0, 1, 2, 3}};
  table.columns = {{{"Node", "节点"}, "", ColumnKind::Whole, {1, 2, 5, 40}},
                   {{"N", "N"}, "kN", ColumnKind::Number, {-1234.5678, 2.0, c_dNoNumber, -1e-9}},
                   {{"Section", "截面"}, "", ColumnKind::Text, {}, {"Box 1", "H2", "box 3", "箱"}}};
  AddFooting(table, {"Sum", "合计"}, FootingKind::Sum, std::array<std::size_t, 1>{1});
  AddFooting(table, {"Max", "最大"}, FootingKind::Largest, std::array<std::size_t, 1>{1});
  return table;
}

TEST(Tables, FilterTakesNumbersRangesAndTexts) {
  const Table table = MakeTable();
  const std::vector<std::pair<const char*, std::vector<std::size_t>>> cases = {
      {"", {0, 1, 2, 3}},    {"2", {1}},      {"1-5", {0, 1, 2}}, {" 1 ， 5-", {0, 2, 3}},
      {"1,2;40", {0, 1, 3}}, {"BOX", {0, 2}}, {"箱", {3}},        {"1-2x", {}},
      {"5 - 2", {1, 2}},     {" x ", {0, 2}}, {"7 9", {}},        {"2、40；", {1, 3}}};
  for (const auto& [pszFilter, expected] : cases) {
    std::vector<std::size_t> rows(table.CountRows());
    std::iota(rows.begin(), rows.end(), std::size_t{0});
    const CRowFilter filter(pszFilter);
    std::erase_if(rows, [&](std::size_t r) { return !filter.Takes(table, r); });
    EXPECT_EQ(rows, expected) << pszFilter;
  }
}

TEST(Tables, NumbersAndFootingsAsText) {
  const Table table = MakeTable();
  const CColumnFormat format(table.columns[1]);
  EXPECT_EQ(format.Show(-1234.5678), "-1234.57");
  EXPECT_EQ(format.Show(-1e-9), "0.00") << "no minus before zero";
  EXPECT_EQ(format.Show(c_dNoNumber), "");
  const CLanguageScope chinese(Language::Chinese);
  EXPECT_EQ(FormatCsv(table, std::array<std::size_t, 2>{1, 0}),
            "\xef\xbb\xbf节点,N (kN),截面\r\n2,2,H2\r\n1,-1234.5678,Box 1\r\n合计,-1232.5678,\r\n最大,2,\r\n");
  EXPECT_EQ(FormatTabbed(table, std::array<std::size_t, 1>{2}), "节点\tN (kN)\t截面\n5\t\tbox 3\n");
  Table odd = MakeTable();
  odd.columns[2].texts = {"a\tb", "say \"c\"", "d\ne", "f, g"};
  const std::string strCsv = FormatCsv(odd), strTabbed = FormatTabbed(odd, std::array<std::size_t, 4>{0, 1, 2, 3});
  for (const char* const pszRow : {",a\tb\r\n", ",\"say \"\"c\"\"\"\r\n", ",\"d\ne\"\r\n", ",\"f, g\"\r\n"})
    EXPECT_NE(strCsv.find(pszRow), std::string::npos) << strCsv;
  for (const char* const pszRow : {"\t\"a\tb\"\n", "\t\"say \"\"c\"\"\"\n", "\t\"d\ne\"\n", "\tf, g\n"})
    EXPECT_NE(strTabbed.find(pszRow), std::string::npos) << strTabbed;
}

}  // namespace
}  // namespace skyframe::host
