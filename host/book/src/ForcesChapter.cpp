// Forces of supports and members, static with and without the earthquake.

#include <algorithm>
#include <map>

#include "Chapters.h"
#include "Doubts.h"
#include "Figures.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr std::size_t c_nMostRows = 60;

/// Components at a section of a member, in the order of the spectrum's file.
enum ForceKind : std::size_t { c_nN, c_nShearY, c_nShearZ, c_nTorsion, c_nMomentY, c_nMomentZ, c_nForces };
constexpr std::array<const char*, c_nForces> c_pszForces = {"N [kN]",    "Qy [kN]",   "Qz [kN]",
                                                            "Mx [kN·m]", "My [kN·m]", "Mz [kN·m]"};
using MemberForces = std::array<double, c_nForces>;

/// Static forces at an end of a member.
MemberForces GetEndForces(const StaticMember& member, bool bEndJ) {
  MemberForces forces = {};
  forces[c_nN] = member.dAxialForce;
  if (member.diagrams.empty()) return forces;
  const std::size_t n = bEndJ ? c_nDiagramStations - 1 : 0;
  forces[c_nShearY] = member.diagrams[c_nQy][n];
  forces[c_nShearZ] = member.diagrams[c_nQz][n];
  forces[c_nTorsion] = member.diagrams[c_nMyz][n];
  forces[c_nMomentY] = member.diagrams[c_nMzx][n];
  forces[c_nMomentZ] = member.diagrams[c_nMxy][n];
  return forces;
}

/// S + E or S - E with its parts and place.
struct Envelope {
  double dValue = 0.0;
  double dStatic = 0.0;
  double dQuake = 0.0;
  int nElement = 0;  ///< 0: none
  bool bEndJ = false;
};

struct Envelopes {
  Envelope largest;
  Envelope smallest;

  void Take(double dStatic, double dQuake, int nElement, bool bEndJ) {
    const Envelope upper = {dStatic + dQuake, dStatic, dQuake, nElement, bEndJ};
    const Envelope lower = {dStatic - dQuake, dStatic, dQuake, nElement, bEndJ};
    if (largest.nElement == 0 || upper.dValue > largest.dValue) largest = upper;
    if (smallest.nElement == 0 || lower.dValue < smallest.dValue) smallest = lower;
  }
};
using SectionEnvelopes = std::array<Envelopes, c_nForces>;

void TakeMember(const StaticMember& member, const SpectrumMember& quake, SectionEnvelopes& envelopes) {
  if (quake.stations.empty()) return;
  for (const bool bEndJ : {false, true}) {
    const MemberForces forces = GetEndForces(member, bEndJ);
    const std::array<double, 6>& E = bEndJ ? quake.stations.back() : quake.stations.front();
    const std::size_t nForces = member.diagrams.empty() ? std::size_t{c_nN} + 1 : std::size_t{c_nForces};
    for (std::size_t q = 0; q < nForces; ++q) envelopes[q].Take(forces[q], E[q], member.nElement, bEndJ);
  }
}

std::vector<SectionEnvelopes> FormEnvelopes(const BookData& book) {
  std::vector<SectionEnvelopes> envelopes(book.job.sections.size());
  std::map<int, const SpectrumMember*> quakes;
  for (const SpectrumMember& member : book.spectrum.content->members) quakes[member.nElement] = &member;
  for (const StaticMember& member : book.linear.content->members) {
    const auto it = quakes.find(member.nElement);
    if (it == quakes.end() || member.nElement < 1 || member.nElement > std::ssize(book.job.elements)) continue;
    const JobElement& element = book.job.elements[static_cast<std::size_t>(member.nElement - 1)];
    TakeMember(member, *it->second, envelopes[static_cast<std::size_t>(element.nSection)]);
  }
  return envelopes;
}

void AddEnvelope(std::vector<std::string>& row, const Envelope& envelope) {
  row.push_back(FormatKilo(envelope.dValue));
  row.push_back(FormatKilo(envelope.dStatic));
  row.push_back(FormatKilo(envelope.dQuake));
  row.push_back(std::to_string(envelope.nElement) + (envelope.bEndJ ? " j" : " i"));
}

void WriteMembers(CPage& page, const BookData& book) {
  PageTable table;
  table.strCaption = Tell(
      {"Largest S + E and smallest S − E at member ends by section", "各截面杆端内力 S + E 的最大值与 S − E 的最小值"});
  table.head = {Tell({"Section", "截面"}),
                Tell({"Force", "内力"}),
                "max S + E",
                "S",
                "E",
                Tell({"member", "单元"}),
                "min S − E",
                "S",
                "E",
                Tell({"member", "单元"})};
  table.strAlign = "llrrrrrrrr";
  const std::vector<SectionEnvelopes> envelopes = FormEnvelopes(book);
  for (std::size_t k = 0; k < envelopes.size(); ++k) {
    for (std::size_t q = 0; q < c_nForces; ++q) {
      const Envelopes& envelope = envelopes[k][q];
      if (envelope.largest.nElement == 0) continue;
      std::vector<std::string>& row = table.rows.emplace_back();
      row = {book.job.sections[k].strId, c_pszForces[q]};
      AddEnvelope(row, envelope.largest);
      AddEnvelope(row, envelope.smallest);
    }
  }
  if (!table.rows.empty()) page.Table(table);
}

void WriteSupports(CPage& page, const BookData& book) {
  PageTable table;
  table.strCaption =
      Tell({"Forces of the structure on its supports (reactions have the opposite sign), kN and kN·m: static S and "
            "earthquake ±E",
            "结构作用于支座的力（支座反力与之反号），kN、kN·m：静力 S 与地震 ±E"});
  table.head = {Tell({"Node", "节点"}),
                "F<sub>X</sub> S",
                "±E",
                "F<sub>Y</sub> S",
                "±E",
                "F<sub>Z</sub> S",
                "±E",
                "F<sub>Z</sub> S + E",
                "F<sub>Z</sub> S − E",
                "M<sub>X</sub> S",
                "±E",
                "M<sub>Y</sub> S",
                "±E"};
  table.strAlign = "lr";
  std::map<int, const SpectrumSupport*> quakes;
  for (const SpectrumSupport& support : book.spectrum.content->supports) quakes[support.nNode] = &support;
  const auto& supports = book.linear.content->supports;
  for (std::size_t k = 0; k < std::min(supports.size(), c_nMostRows); ++k) {
    const auto it = quakes.find(supports[k].nNode);
    if (it == quakes.end()) continue;
    const NodeValues& E = it->second->forces;
    const auto S = [&](std::size_t d) { return supports[k].forces[d].value_or(0.0); };
    table.rows.push_back({GetNodeName(book.job, static_cast<std::size_t>(supports[k].nNode - 1)), FormatKilo(S(0)),
                          FormatKilo(E[0]), FormatKilo(S(1)), FormatKilo(E[1]), FormatKilo(S(2)), FormatKilo(E[2]),
                          FormatKilo(S(2) + E[2]), FormatKilo(S(2) - E[2]), FormatKilo(S(3)), FormatKilo(E[3]),
                          FormatKilo(S(4)), FormatKilo(E[4])});
  }
  if (!table.rows.empty()) page.Table(table);
  if (supports.size() > c_nMostRows) {
    page.Text(Tell({"The first {0} of {1} supports.", "仅列前 {0} 个支座，共 {1} 个。"},
                   {std::to_string(c_nMostRows), std::to_string(supports.size())}));
  }
}

/// What E is.
std::string DescribeQuake(const BookData& book) {
  const std::string strDirection = DescribeQuakeOfFile(book);
  if (strDirection.empty()) return book.spectrum.strFile;
  return Tell({"the spectrum along {0} ({1})", "{0} 向反应谱（{1}）"}, {strDirection, book.spectrum.strFile});
}

}  // namespace

void WriteForces(CPage& page, const BookData& book) {
  page.Chapter(Tell({"Forces of supports and members with ±E", "支座受力与构件内力（±E）"}));
  if (!Introduce(page, book.linear) || !Introduce(page, book.spectrum)) return;
  for (const std::string& strDoubt : ListSpectrumDoubts(book)) page.Warn("mixed-results", strDoubt);
  for (const std::string& strMissing : ListMissingSpectra(book))
    page.Warn("mixed-results", strMissing + Tell({".", "。"}));
  page.Text(Tell({"S: linear static analysis, {0}. E: combined forces of {1}. Partial safety factors, the factor of "
                  "5.2.5 and other directions are not applied.",
                  "S 为线性静力结果，{0}；E 为{1}组合内力。未乘分项系数和 5.2.5 条调整系数，未作双向组合。"},
                 {DescribeCombination(book.linear.parameters.value_or(StaticJob()).combination), DescribeQuake(book)}));
  WriteSupports(page, book);
  WriteMembers(page, book);
}

}  // namespace skyframe::host
