// The model and its loads.

#include <algorithm>
#include <cmath>
#include <map>

#include "Chapters.h"
#include "Figures.h"
#include "Pictures.h"
#include "skyframe/job/Text.h"
#include "skyframe/values/Steel.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr double c_dSquareMetre = 1.0e-6;  // mm2 -> m2
constexpr std::size_t c_nMostNames = 12;

double GetLength(const Job& job, const JobElement& element) {
  const JobNode& i = job.nodes[static_cast<std::size_t>(element.nNodeI - 1)];
  const JobNode& j = job.nodes[static_cast<std::size_t>(element.nNodeJ - 1)];
  return std::hypot(i.dX - j.dX, i.dY - j.dY, i.dZ - j.dZ);
}

void WriteCounts(CPage& page, const Job& job) {
  std::array<int, c_strElementTypes.size()> elements = {};
  for (const JobElement& element : job.elements) ++elements[static_cast<std::size_t>(element.nType)];
  const auto nRigid = std::ranges::count(job.nodes, static_cast<int>(c_nRigid), &JobNode::nJoint);
  const auto [lowX, highX] = std::ranges::minmax(job.nodes, {}, &JobNode::dX);
  const auto [lowY, highY] = std::ranges::minmax(job.nodes, {}, &JobNode::dY);
  const auto [lowZ, highZ] = std::ranges::minmax(job.nodes, {}, &JobNode::dZ);
  page.Facts({{Tell({"Nodes", "节点"}), Tell({"{0}: {1} rigid, {2} pinned", "{0}：刚接 {1}，铰接 {2}"},
                                             {std::to_string(job.nodes.size()), std::to_string(nRigid),
                                              std::to_string(std::ssize(job.nodes) - nRigid)})},
              {Tell({"Members", "构件"}),
               Tell({"{0}: {1} beams, {2} bars, {3} others", "{0}：梁 {1}，杆 {2}，其他 {3}"},
                    {std::to_string(job.elements.size()), std::to_string(elements[c_nBeam]),
                     std::to_string(elements[c_nBar]), std::to_string(elements[c_nCable] + elements[c_nMembrane])})},
              {Tell({"Extents X × Y × Z", "外形尺寸 X × Y × Z"}),
               Format("%.2f m × %.2f m × %.2f m", highX.dX - lowX.dX, highY.dY - lowY.dY, highZ.dZ - lowZ.dZ)}});
}

void WriteSections(CPage& page, const Job& job) {
  std::vector<std::pair<int, double>> used(job.sections.size());  // count, length
  for (const JobElement& element : job.elements) {
    auto& [nCount, dLength] = used[static_cast<std::size_t>(element.nSection)];
    ++nCount;
    dLength += GetLength(job, element);
  }
  PageTable table;
  table.strCaption = Tell({"Sections", "截面"});
  table.head = {Tell({"Section", "截面"}),        Tell({"Members", "构件数"}),
                Tell({"Length [m]", "总长 [m]"}), "A [mm²]",
                "I<sub>x</sub> [10⁴ mm⁴]",        "I<sub>y</sub> [10⁴ mm⁴]",
                "I<sub>z</sub> [10⁴ mm⁴]",        Tell({"Mass [t]", "质量 [t]"})};
  table.strAlign = "lr";
  double dTotal = 0.0, dLength = 0.0;
  for (std::size_t k = 0; k < job.sections.size(); ++k) {
    const JobSection& section = job.sections[k];
    const double dMass = c_steel.dUnitWeight * section.dArea * c_dSquareMetre * used[k].second;
    dTotal += dMass;
    dLength += used[k].second;
    table.rows.push_back({section.strId, std::to_string(used[k].first), FormatFixed(used[k].second, 1),
                          FormatFixed(section.dArea, 0), FormatFixed(1.0e-4 * section.dIx, 0),
                          FormatFixed(1.0e-4 * section.dIy, 0), FormatFixed(1.0e-4 * section.dIz, 0),
                          FormatTonnes(dMass)});
  }
  table.rows.push_back({Tell({"Sum", "合计"}), std::to_string(job.elements.size()), FormatFixed(dLength, 1), "", "", "",
                        "", FormatTonnes(dTotal)});
  table.bSumRow = true;
  page.Table(table);
}

void WriteMaterial(CPage& page) {
  PageTable table;
  table.strCaption = Tell({"Material of all members", "全部构件的材料"});
  table.head = {Tell({"Material", "材料"}), "E [N/mm²]", "G [N/mm²]", "ν", Tell({"ρ [kg/m³]", "ρ [kg/m³]"})};
  table.strAlign = "lr";
  const double dShear = c_steel.dE / (2.0 * (1.0 + c_steel.dNu));
  table.rows.push_back({Tell({"steel, linear elastic", "钢，线弹性"}), FormatFixed(1.0e-6 * c_steel.dE, 0),
                        FormatFixed(1.0e-6 * dShear, 0), FormatFixed(c_steel.dNu, 1),
                        FormatFixed(c_steel.dUnitWeight, 0)});
  page.Table(table);
}

std::string DescribeSupport(const Job& job, const JobNode& node) {
  if (node.nSpring) {
    const auto it = std::ranges::find(job.springs, *node.nSpring, &JobSpring::nGroup);
    if (it == job.springs.end()) return {};
    return Tell({"spring group {0}: {1}, {2}, {3} kN/mm", "弹簧组 {0}：{1}、{2}、{3} kN/mm"},
                {std::to_string(it->nGroup), FormatShort(it->dKx), FormatShort(it->dKy), FormatShort(it->dKz)});
  }
  std::string strHeld;
  for (std::size_t d = 0; d < c_strDirections.size(); ++d) {
    if (node.restraint[d] != 0) strHeld.append(strHeld.empty() ? "" : " ").append(c_strDirections[d]);
  }
  return strHeld;
}

void WriteSupports(CPage& page, const Job& job) {
  std::map<std::string, std::vector<int>> nodesOf;
  for (const JobNode& node : job.nodes) {
    const std::string strHeld = DescribeSupport(job, node);
    if (!strHeld.empty()) nodesOf[strHeld].push_back(node.nId);
  }
  PageTable table;
  table.strCaption = Tell({"Supports", "支座"});
  table.head = {Tell({"Held directions", "约束方向"}), Tell({"Nodes", "节点数"}), Tell({"Numbers", "节点号"})};
  table.strAlign = "lrl";
  for (const auto& [strHeld, ids] : nodesOf) {
    std::string strNames;
    for (std::size_t k = 0; k < std::min(ids.size(), c_nMostNames); ++k) {
      strNames += (k == 0 ? "" : ", ") + std::to_string(ids[k]);
    }
    if (ids.size() > c_nMostNames) strNames += " …";
    table.rows.push_back({strHeld, std::to_string(ids.size()), strNames});
  }
  if (!table.rows.empty()) page.Table(table);
}

void WriteAssumptions(CPage& page, const Job& job) {
  std::vector<std::string> list = {
      Tell({"Members are straight, elastic and of steel; the masses are those of the members (consistent) and of the "
            "loads of a combination.",
            "构件为线弹性直杆，材料为钢；质量由构件自重（一致质量）和所选荷载组合换算。"}),
      Tell({"Floors are not rigid: they hold as far as the modelled members do.",
            "楼板不按刚性隔板考虑，只计入模型中的构件。"}),
      Tell({"No accidental eccentricity, no walls, no construction stages, no soil.",
            "不计偶然偏心、剪力墙、施工阶段和地基作用。"}),
      Tell({"Loads act at nodes; static analysis leaves out the members' own weight unless a load case has it.",
            "荷载作用于节点；静力分析不自动计入构件自重，须以荷载输入。"})};
  if (!job.springs.empty()) {
    list.push_back(Tell({"Spring supports act as rigid ones.", "弹簧支座按刚性支座起作用。"}));
  }
  page.Text(Tell({"Assumptions and limits of the program:", "计算假定与程序限制："}));
  page.List(list);
}

void WriteLoadSums(CPage& page, const Job& job) {
  PageTable table;
  table.strCaption = Tell({"Sums of the loads by case", "各工况荷载总和"});
  table.head = {Tell({"Case", "工况"}), Tell({"Entries", "荷载数"}), "ΣF<sub>X</sub> [kN]",   "ΣF<sub>Y</sub> [kN]",
                "ΣF<sub>Z</sub> [kN]",  "ΣM<sub>X</sub> [kN·m]",     "ΣM<sub>Y</sub> [kN·m]", "ΣM<sub>Z</sub> [kN·m]"};
  table.strAlign = "lr";
  for (int nCase = 0; !job.loads.empty() && nCase <= job.GetHighestCase(); ++nCase) {
    NodeValues sum = {};
    int nCount = 0;
    for (const JobLoad& load : job.loads) {
      if (load.nCase != nCase) continue;
      sum[static_cast<std::size_t>(load.nDirection)] += load.dValue;
      ++nCount;
    }
    std::vector<std::string>& row = table.rows.emplace_back();
    row = {nCase == 0 ? Tell({"0 (dead)", "0（永久荷载）"})
                      : Tell({"{0} (variable)", "{0}（可变荷载）"}, {std::to_string(nCase)}),
           std::to_string(nCount)};
    for (const double dSum : sum) row.push_back(FormatFixed(dSum, 1));
  }
  if (table.rows.empty()) return page.Text(Tell({"There are no loads.", "没有荷载。"}));
  page.Table(table);
  page.Text(
      Tell({"ΣM: moments entered at nodes, without those of the forces.", "ΣM 为节点力矩之和，不含各力产生的力矩。"}));
}

void WriteStoreyMasses(CPage& page, const BookData& book) {
  PageTable table;
  table.strCaption = Tell({"Representative gravity loads of the storeys", "各楼层重力荷载代表值"});
  table.head = {Tell({"Storey", "楼层"}),
                Tell({"Level [m]", "标高 [m]"}),
                Tell({"Height [m]", "层高 [m]"}),
                Tell({"Nodes", "节点数"}),
                Tell({"Mass m<sub>j</sub> [t]", "质量 m<sub>j</sub> [t]"}),
                "G<sub>j</sub> [kN]",
                Tell({"Centre x [m]", "质心 x [m]"}),
                Tell({"Centre y [m]", "质心 y [m]"}),
                "ΣG [kN]"};
  double dMass = 0.0;
  for (std::size_t j = book.storeys->storeys.size(); j-- > 0;) {
    const Storey& storey = book.storeys->storeys[j];
    const StoreyMass mass = FormStoreyMass(book.job, *book.basis, storey.nodes);
    dMass += mass.dMass;
    table.rows.push_back({std::to_string(j + 1), FormatFixed(storey.dTop, 2), FormatFixed(storey.GetHeight(), 2),
                          std::to_string(storey.nodes.size()), FormatTonnes(mass.dMass),
                          FormatKilo(c_dGravity * mass.dMass), FormatFixed(mass.dX, 2), FormatFixed(mass.dY, 2),
                          FormatKilo(c_dGravity * dMass)});
  }
  const double dBase = FormStoreyMass(book.job, *book.basis, book.storeys->base).dMass;
  table.rows.push_back(
      {Tell({"Sum", "合计"}), "", "", "", FormatTonnes(dMass), FormatKilo(c_dGravity * dMass), "", "", ""});
  table.bSumRow = true;
  page.Table(table);
  constexpr double c_dNoMass = 1.0e-6;
  if (dBase > c_dNoMass * dMass) {
    page.Text(Tell({"Free nodes at the base hold another {0} t, which load no storey.",
                    "基底处的自由节点另有质量 {0} t，不计入楼层。"},
                   {FormatTonnes(dBase)}));
  }
}

void WriteMasses(CPage& page, const BookData& book) {
  page.Section(Tell({"Representative gravity loads", "重力荷载代表值"}));
  if (!book.basis && !Introduce(page, book.modal)) return;
  if (!book.basis) return page.Warn("no-masses", Say(texts::c_noMasses));
  const Vector3 total = SumMasses(*book.basis);
  const double dTotal = GetGravityMass(*book.basis);
  page.Facts({{Tell({"Mass free to move along X, Y, Z", "沿 X、Y、Z 可动的质量"}),
               FormatTonnes(total[0]) + " / " + FormatTonnes(total[1]) + " / " + FormatTonnes(total[2]) + " t"},
              {Tell({"Total G", "总重力荷载代表值 G"}), FormatKilo(c_dGravity * dTotal) + " kN"},
              {Tell({"of it the members", "其中构件自重"}), FormatKilo(c_dGravity * book.dOwnMass) + " kN"},
              {Tell({"of it the loads ({0})", "其中荷载（{0}）"},
                    {DescribeCombination(book.modal.parameters.value_or(ModalJob()).combination)}),
               FormatKilo(c_dGravity * (dTotal - book.dOwnMass)) + " kN"}});
  if (book.storeys) {
    page.Formula("G<sub>j</sub> = 9.81 · Σ<sub>n</sub> (M r)<sub>n</sub>, &ensp; " +
                 Tell({"n: nodes above the lower level of storey j up to its floor; r = 1 along the direction",
                       "n 为第 j 层下端标高以上至本层楼面的节点；r 沿所考虑方向取 1"}));
    WriteStoreyMasses(page, book);
  } else {
    page.Text(Say(texts::c_noStoreys));
  }
}

}  // namespace

void WriteModel(CPage& page, const BookData& book) {
  page.Chapter(Tell({"Model", "计算模型"}));
  WriteCounts(page, book.job);
  page.Figure(Tell({"Model: axonometric view, elevations and plan", "计算模型：轴测图、立面与平面"}),
              DrawModel(book.job));
  if (!book.job.sections.empty()) WriteSections(page, book.job);
  WriteMaterial(page);
  WriteSupports(page, book.job);
  WriteAssumptions(page, book.job);
}

void WriteLoads(CPage& page, const BookData& book) {
  page.Chapter(Tell({"Loads", "荷载"}));
  page.Section(Tell({"Load cases", "荷载工况"}));
  WriteLoadSums(page, book.job);
  WriteMasses(page, book);
}

}  // namespace skyframe::host
