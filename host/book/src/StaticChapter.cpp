// Static analyses: displacements, balance, reactions, extreme forces, second order.

#include <algorithm>
#include <cmath>
#include <sstream>

#include "Chapters.h"
#include "Figures.h"
#include "Pictures.h"
#include "skyframe/job/Places.h"
#include "skyframe/job/Text.h"
#include "skyframe/plot/Plots.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr std::size_t c_nMostRows = 60;

/// A value and the node or element that has it.
struct Extreme {
  double dValue = 0.0;
  int nNumber = 0;  ///< 0: none

  void Take(double d, int n) {
    if (nNumber == 0 || std::abs(d) > std::abs(dValue)) *this = {d, n};
  }
};

/// Loads of the combination at free DOFs, the only ones that act; N and Nm.
NodeValues SumLoads(const Job& job, const JobCombination& combination) {
  NodeValues sum = {};
  for (const JobLoad& load : job.loads) {
    const auto it = combination.find(load.nCase);
    const JobNode& node = job.nodes[static_cast<std::size_t>(load.nNode - 1)];
    const auto d = static_cast<std::size_t>(load.nDirection);
    if (it != combination.end() && !IsRestrained(job, node, d)) sum[d] += 1.0e3 * it->second * load.dValue;
  }
  return sum;
}

NodeValues SumReactions(const StaticResultFile& file) {
  NodeValues sum = {};
  for (const StaticSupport& support : file.supports) {
    for (std::size_t d = 0; d < sum.size(); ++d) sum[d] += support.forces[d].value_or(0.0);
  }
  return sum;
}

std::array<Extreme, 3> FindLargestDisplacements(const Job& job, const StaticResultFile& file) {
  std::array<Extreme, 3> largest;
  for (std::size_t n = 0; n < file.displacements.size(); ++n) {
    for (std::size_t d = 0; d < 3; ++d) largest[d].Take(file.displacements[n][d], job.nodes[n].nId);
  }
  return largest;
}

void WriteDisplacements(CPage& page, const BookData& book, const StaticResultFile& file) {
  PageTable table;
  table.strCaption = Tell({"Largest displacements", "最大位移"});
  table.head = {Tell({"Direction", "方向"}), Tell({"Displacement [mm]", "位移 [mm]"}), Tell({"Node", "节点"})};
  table.strAlign = "lr";
  const auto largest = FindLargestDisplacements(book.job, file);
  for (std::size_t d = 0; d < 3; ++d) {
    table.rows.push_back(
        {std::string(c_strAxes[d]), FormatMillimetres(largest[d].dValue), std::to_string(largest[d].nNumber)});
  }
  page.Table(table);
}

void WriteBalance(CPage& page, const BookData& book, const StaticResult& result) {
  const NodeValues loads = SumLoads(book.job, result.parameters.value_or(StaticJob()).combination);
  const NodeValues reactions = SumReactions(*result.content);
  PageTable table;
  table.strCaption = Tell({"Loads against reactions", "荷载与支座反力的平衡"});
  table.head = {Tell({"Direction", "方向"}), Tell({"Loads at free directions [kN]", "自由方向荷载之和 [kN]"}),
                Tell({"Force on the supports [kN]", "支座受力之和 [kN]"}), Tell({"Difference [kN]", "差值 [kN]"})};
  table.strAlign = "lr";
  for (std::size_t d = 0; d < 3; ++d) {
    table.rows.push_back({std::string(c_strAxes[d]), FormatFixed(1.0e-3 * loads[d], 3),
                          FormatFixed(1.0e-3 * reactions[d], 3), FormatFixed(1.0e-3 * (reactions[d] - loads[d]), 3)});
  }
  page.Table(table);
}

void WriteReactions(CPage& page, const BookData& book, const StaticResultFile& file) {
  PageTable table;
  table.strCaption = Tell({"Forces of the structure on its supports (reactions have the opposite sign)",
                           "结构作用于支座的力（支座反力与之反号）"});
  table.head = {Tell({"Node", "节点"}), "F<sub>X</sub> [kN]",   "F<sub>Y</sub> [kN]",  "F<sub>Z</sub> [kN]",
                "M<sub>X</sub> [kN·m]", "M<sub>Y</sub> [kN·m]", "M<sub>Z</sub> [kN·m]"};
  table.strAlign = "lr";
  for (std::size_t k = 0; k < std::min(file.supports.size(), c_nMostRows); ++k) {
    const StaticSupport& support = file.supports[k];
    std::vector<std::string>& row = table.rows.emplace_back();
    row.push_back(GetNodeName(book.job, static_cast<std::size_t>(support.nNode - 1)));
    for (const std::optional<double>& force : support.forces) row.push_back(force ? FormatKilo(*force) : "—");
  }
  std::vector<std::string>& sum = table.rows.emplace_back();
  sum.push_back(Tell({"Sum of all", "全部之和"}));
  const NodeValues sums = SumReactions(file);
  for (std::size_t d = 0; d < 6; ++d) sum.push_back(d < 3 ? FormatKilo(sums[d]) : "");
  table.bSumRow = true;
  page.Table(table);
  if (file.supports.size() > c_nMostRows) {
    page.Text(Tell({"The first {0} of {1} supports; all are in the result file {2}.",
                    "仅列前 {0} 个支座，共 {1} 个；全部见结果文件 {2}。"},
                   {std::to_string(c_nMostRows), std::to_string(file.supports.size()), book.linear.strFile}));
  }
}

/// Largest tension and compression, then the largest of each of the other forces.
struct SectionExtremes {
  Extreme tension;
  Extreme compression;
  std::array<Extreme, 5> others;  ///< Qy, Qz, MYZ, MZX, MXY
};

void TakeMember(const StaticMember& member, SectionExtremes& extremes) {
  if (member.dAxialForce > 0.0) extremes.tension.Take(member.dAxialForce, member.nElement);
  if (member.dAxialForce < 0.0) extremes.compression.Take(member.dAxialForce, member.nElement);
  constexpr std::array<std::size_t, 5> c_diagrams = {c_nQy, c_nQz, c_nMyz, c_nMzx, c_nMxy};
  for (std::size_t q = 0; q < c_diagrams.size() && !member.diagrams.empty(); ++q) {
    for (const double d : member.diagrams[c_diagrams[q]]) extremes.others[q].Take(d, member.nElement);
  }
}

std::string FormatExtreme(const Extreme& extreme) {
  return extreme.nNumber == 0 ? "—" : FormatKilo(extreme.dValue) + " (" + std::to_string(extreme.nNumber) + ")";
}

void WriteExtremes(CPage& page, const BookData& book, const StaticResultFile& file) {
  std::vector<SectionExtremes> extremes(book.job.sections.size());
  for (const StaticMember& member : file.members) {
    if (member.nElement < 1 || member.nElement > std::ssize(book.job.elements)) continue;
    const JobElement& element = book.job.elements[static_cast<std::size_t>(member.nElement - 1)];
    TakeMember(member, extremes[static_cast<std::size_t>(element.nSection)]);
  }
  PageTable table;
  table.strCaption =
      Tell({"Extreme member forces by section, kN and kN·m (member)", "各截面的最大内力，kN、kN·m（单元号）"});
  table.head = {Tell({"Section", "截面"}),
                Tell({"N tension", "N 拉"}),
                Tell({"N compression", "N 压"}),
                "Q<sub>y</sub>",
                "Q<sub>z</sub>",
                Tell({"M<sub>x</sub> torsion", "M<sub>x</sub> 扭"}),
                "M<sub>y</sub>",
                "M<sub>z</sub>"};
  table.strAlign = "lr";
  for (std::size_t k = 0; k < extremes.size(); ++k) {
    std::vector<std::string>& row = table.rows.emplace_back();
    row = {book.job.sections[k].strId, FormatExtreme(extremes[k].tension), FormatExtreme(extremes[k].compression)};
    for (const Extreme& extreme : extremes[k].others) row.push_back(FormatExtreme(extreme));
  }
  page.Table(table);
}

Extreme FindLargestMoment(const StaticResultFile& file) {
  Extreme largest;
  for (const StaticMember& member : file.members) {
    for (std::size_t q = 0; !member.diagrams.empty() && q <= c_nMxy; ++q) {
      for (const double d : member.diagrams[q]) largest.Take(std::abs(d), member.nElement);
    }
  }
  return largest;
}

void AddComparison(PageTable& table, const std::string& strQuantity, double dLinear, double dSecond, double dScale) {
  table.rows.push_back({strQuantity, FormatFixed(dScale * dLinear, 3), FormatFixed(dScale * dSecond, 3),
                        dLinear != 0.0 ? FormatFixed(dSecond / dLinear, 4) : "—"});
}

void WriteSecondOrder(CPage& page, const BookData& book) {
  page.Section(Tell({"Second order", "二阶效应"}));
  if (!Introduce(page, book.nonlinear) || !book.linear.content) return;
  if (book.linear.parameters && book.nonlinear.parameters &&
      book.linear.parameters->combination != book.nonlinear.parameters->combination) {
    page.Warn("mixed-results", Tell({"The two analyses have different load combinations and are not compared.",
                                     "两项分析的荷载组合不同，不作比较。"}));
    return;
  }
  PageTable table;
  table.strCaption = Tell({"Second order against linear", "几何非线性与线性结果比较"});
  table.head = {Tell({"Quantity", "项目"}), Tell({"Linear", "线性"}), Tell({"Second order", "几何非线性"}),
                Tell({"Ratio", "比值"})};
  table.strAlign = "lr";
  const auto linear = FindLargestDisplacements(book.job, *book.linear.content);
  const auto second = FindLargestDisplacements(book.job, *book.nonlinear.content);
  for (std::size_t d = 0; d < 3; ++d) {
    AddComparison(table, Tell({"largest displacement {0} [mm]", "最大位移 {0} [mm]"}, {c_strAxes[d]}),
                  std::abs(linear[d].dValue), std::abs(second[d].dValue), 1.0e3);
  }
  AddComparison(table, Tell({"largest moment of a member [kN·m]", "构件最大弯矩 [kN·m]"}),
                FindLargestMoment(*book.linear.content).dValue, FindLargestMoment(*book.nonlinear.content).dValue,
                1.0e-3);
  page.Table(table);
}

void WriteMoments(CPage& page, const BookData& book) {
  const auto picture = DrawMoments(book.job, book.strJobPath, *book.linear.content);
  if (!picture) return;
  page.Figure(Tell({"Moments My [kN·m] in the plane {0}, linear, on the tension side",
                    "{0} 平面弯矩图 My [kN·m]（线性，画在受拉侧）"},
                   {picture->strPlane}),
              picture->strSvg, 0.8);
}

void WriteDeformed(CPage& page, const BookData& book) {
  std::ostringstream err;
  PlotRequest request;
  request.kind = PlotRequest::Kind::Deformed;
  if (const auto strPicture = DrawPlot(book.job, book.strJobPath, request, err)) {
    page.Figure(Tell({"Deformed structure, linear", "变形图（线性）"}), *strPicture, 0.92);
  }
}

}  // namespace

void WriteStatics(CPage& page, const BookData& book) {
  page.Chapter(Tell({"Static analysis", "静力分析"}));
  page.Section(Tell({"Linear", "线性"}));
  if (Introduce(page, book.linear)) {
    page.Text(Tell({"Combination: {0}.", "荷载组合：{0}。"},
                   {DescribeCombination(book.linear.parameters.value_or(StaticJob()).combination)}));
    WriteDisplacements(page, book, *book.linear.content);
    WriteBalance(page, book, book.linear);
    WriteReactions(page, book, *book.linear.content);
    WriteExtremes(page, book, *book.linear.content);
    WriteMoments(page, book);
    WriteDeformed(page, book);
  }
  WriteSecondOrder(page, book);
}

}  // namespace skyframe::host
