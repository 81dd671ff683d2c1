#include "PartData.h"

#include <algorithm>
#include <cmath>

#include "ShapeTitle.h"
#include "skyframe/job/Text.h"
#include "skyframe/scene/MemberForces.h"
#include "texts.h"

namespace skyframe::gui {

namespace {

std::string FormatValue(double dValue, std::string_view strUnit) {
  return host::Format("%.6g ", dValue) + std::string(strUnit);
}

const host::JobNode& GetNode(const host::Job& job, int nNode) { return job.nodes[static_cast<std::size_t>(nNode)]; }

/// Results that are there and belong to the model as it is.
std::vector<host::ResultKind> ListResults(const CDocument& document) {
  std::vector<host::ResultKind> kinds;
  for (const host::ResultKind kind :
       {host::ResultKind::Linear, host::ResultKind::Nonlinear, host::ResultKind::Spectrum}) {
    if (document.HasResult(kind) && !document.IsOutdated(GetSuffix(kind))) kinds.push_back(kind);
  }
  return kinds;
}

PartData DescribeLoads(const host::Job& job, int nNode) {
  PartData data{std::string(Say(texts::c_loadChoice)), {}};
  for (const host::JobLoad& load : job.loads) {
    if (load.nNode != nNode + 1) continue;
    data.lines.emplace_back(Say(texts::c_loadCase, {std::to_string(load.nCase)}) + "  " +
                                std::string(host::c_strDirections[load.nDirection]),
                            FormatValue(load.dValue, load.nDirection < 3 ? "kN" : "kN·m"));
  }
  return data;
}

void AddDisplacement(const NodeValues& u, PartData& data) {
  for (std::size_t d = 0; d < host::c_strAxes.size(); ++d) {
    data.lines.emplace_back("u" + std::string(host::c_strAxes[d]), FormatValue(1.0e3 * u[d], "mm"));
  }
}

void AddReactions(const host::StructureForces* pForces, int nNode, PartData& data) {
  if (pForces == nullptr) return;
  for (const host::SupportForces& reaction : pForces->reactions) {
    if (reaction.nNode != nNode) continue;
    for (std::size_t d = 0; d < reaction.forces.size(); ++d) {
      data.lines.emplace_back(Say(texts::c_reactionOf, {host::c_strDirections[d]}),
                              FormatValue(reaction.forces[d], d < 3 ? "kN" : "kN·m"));
    }
  }
}

void AddElementForces(const host::StructureForces* pForces, int nElement, PartData& data) {
  if (pForces == nullptr) return;
  const host::MemberForces& member = pForces->members[static_cast<std::size_t>(nElement)];
  for (std::size_t q = 0; q < host::c_nForceComponents; ++q) {
    const auto quantity = static_cast<host::MemberQuantity>(q);
    if (!member.Has(quantity)) continue;
    const std::vector<double> values = member.Get(quantity);
    const double dExtreme = *std::ranges::max_element(values, {}, [](double d) { return std::abs(d); });
    const std::string strName(host::c_strMemberQuantities[q]);
    const std::string strUnit(host::GetUnit(quantity));
    if (values.size() == 1) {
      data.lines.emplace_back(strName, FormatValue(values.front(), strUnit));
    } else {
      data.lines.emplace_back(
          strName, host::Format("i %.6g   j %.6g   |max| %.6g ", values.front(), values.back(), dExtreme) + strUnit);
    }
  }
}

std::string DescribeSupport(const host::JobNode& node) {
  if (node.nSpring) return Say(texts::c_springGroup, {std::to_string(*node.nSpring)});
  std::string strText;
  for (std::size_t d = 0; d < node.restraint.size(); ++d) {
    if (node.restraint[d] == 1) strText += std::string(host::c_strDirections[d]) + " ";
  }
  return strText.empty() ? std::string(Say(texts::c_free)) : strText;
}

}  // namespace

std::vector<PartData> DescribeNode(CDocument& document, int nNode) {
  const host::Job& job = document.GetJob();
  const host::JobNode& node = GetNode(job, nNode);
  PartData data{Say(texts::c_nodeOf, {std::to_string(node.nId)}), {}};
  data.lines = {{"X", FormatValue(node.dX, "m")},
                {"Y", FormatValue(node.dY, "m")},
                {"Z", FormatValue(node.dZ, "m")},
                {std::string(Say(texts::c_joint)),
                 std::string(Say(node.nJoint == host::c_nRigid ? texts::c_rigid : texts::c_pinned))},
                {std::string(Say(texts::c_support)), DescribeSupport(node)}};
  if (node.nId != nNode + 1) data.lines.emplace_back(Say(texts::c_hostNumber), std::to_string(nNode + 1));
  std::vector<PartData> groups = {std::move(data), DescribeLoads(job, nNode)};
  for (const host::ResultKind kind : ListResults(document)) {
    PartData results{FormResultTitle(kind), {}};
    const auto add = [nNode, &results](const auto* pFile) {
      if (pFile != nullptr) AddDisplacement(pFile->displacements[static_cast<std::size_t>(nNode)], results);
    };
    kind == host::ResultKind::Spectrum ? add(document.GetSpectrum())
                                       : add(document.GetStatic(kind == host::ResultKind::Nonlinear));
    AddReactions(document.GetForces(kind), nNode, results);
    groups.push_back(std::move(results));
  }
  return groups;
}

std::vector<PartData> DescribeElement(CDocument& document, int nElement) {
  const host::Job& job = document.GetJob();
  const host::JobElement& element = job.elements[static_cast<std::size_t>(nElement)];
  const host::JobNode& i = GetNode(job, element.nNodeI - 1);
  const host::JobNode& j = GetNode(job, element.nNodeJ - 1);
  const host::JobSection& section = job.sections[static_cast<std::size_t>(element.nSection)];
  constexpr std::array c_types = {texts::c_bar, texts::c_beam, texts::c_cable, texts::c_membrane};
  PartData data{Say(texts::c_elementOf, {std::to_string(nElement + 1)}), {}};
  data.lines = {
      {std::string(Say(texts::c_type)), std::string(Say(c_types[static_cast<std::size_t>(element.nType)]))},
      {std::string(Say(texts::c_endNodes)), std::to_string(i.nId) + " – " + std::to_string(j.nId)},
      {std::string(Say(texts::c_length)), FormatValue(std::hypot(j.dX - i.dX, j.dY - i.dY, j.dZ - i.dZ), "m")},
      {std::string(Say(texts::c_section)), section.strId},
      {"A", FormatValue(section.dArea, "mm²")},
      {"Ix", FormatValue(section.dIx, "mm⁴")},
      {"Iy", FormatValue(section.dIy, "mm⁴")},
      {"Iz", FormatValue(section.dIz, "mm⁴")}};
  std::vector<PartData> groups = {std::move(data)};
  for (const host::ResultKind kind : ListResults(document)) {
    PartData results{FormResultTitle(kind), {}};
    AddElementForces(document.GetForces(kind), nElement, results);
    groups.push_back(std::move(results));
  }
  return groups;
}

}  // namespace skyframe::gui
