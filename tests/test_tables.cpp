// Tables of results against statics, and their text.

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "CommandFolder.h"
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
  EXPECT_EQ(reactions[0],
            (Fields{"\xef\xbb\xbfNode", "FX (kN)", "FY (kN)", "FZ (kN)", "MX (kN·m)", "MY (kN·m)", "MZ (kN·m)"}));
  EXPECT_EQ(reactions[1], (Fields{"7", "-10", "0", "20", "0", "-30", "0"})) << "of the support on the structure";
  EXPECT_EQ(reactions[2], (Fields{"Sum", "-10", "0", "20", "", "", ""}));

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
      {"1,2;40", {0, 1, 3}}, {"BOX", {0, 2}}, {"箱", {3}},        {"1-2x", {}}};
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
}

}  // namespace
}  // namespace skyframe::host
