#include "skyframe/scene/MemberForces.h"

#include <algorithm>
#include <cmath>

#include "skyframe/scene/DeformedShape.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr double c_dKilo = 1.0e-3;  // N to kN
/// Where a static file has the components.
constexpr std::array<std::size_t, c_nForceComponents - 1> c_nPlaces = {c_nQy, c_nQz, c_nMyz, c_nMzx, c_nMxy};

MemberForces FormStations(const StaticMember& member) {
  MemberForces forces;
  forces.stations.resize(member.diagrams.empty() ? 1 : c_nDiagramStations);
  for (std::size_t p = 0; p < forces.stations.size(); ++p) {
    auto& station = forces.stations[p];
    station[0] = c_dKilo * member.dAxialForce;
    for (std::size_t q = 0; q < c_nPlaces.size() && !member.diagrams.empty(); ++q) {
      station[q + 1] = c_dKilo * member.diagrams[c_nPlaces[q]][p];
    }
  }
  return forces;
}

MemberForces FormStations(const SpectrumMember& member) {
  MemberForces forces;
  for (std::array<double, c_nForceComponents> station : member.stations) {
    for (double& d : station) d *= c_dKilo;
    forces.stations.push_back(station);
  }
  return forces;
}

/// The file has forces of the structure on the support.
SupportForces FormReaction(const StaticSupport& support) {
  SupportForces reaction{support.nNode - 1, {}};
  for (std::size_t d = 0; d < reaction.forces.size(); ++d)
    reaction.forces[d] = -c_dKilo * support.forces[d].value_or(0);
  return reaction;
}

SupportForces FormReaction(const SpectrumSupport& support) {
  SupportForces reaction{support.nNode - 1, {}};
  for (std::size_t d = 0; d < reaction.forces.size(); ++d) reaction.forces[d] = c_dKilo * support.forces[d];
  return reaction;
}

Reading<StructureForces> Refuse(std::string strReason) {
  Reading<StructureForces> reading;
  reading.strError = std::move(strReason);
  return reading;
}

bool AreDrawable(std::span<const double> values) {
  return std::ranges::all_of(values, [](double d) { return std::abs(d) <= c_dLargestDrawn; });
}

/// The forces, unless there is a value among them that cannot be drawn.
Reading<StructureForces> Check(StructureForces forces) {
  for (std::size_t i = 0; i < forces.members.size(); ++i) {
    const bool bGood = std::ranges::all_of(forces.members[i].stations, [](const auto& s) { return AreDrawable(s); });
    if (!bGood) return Refuse(Say(texts::c_undrawableMember, {std::to_string(i + 1)}));
  }
  for (const SupportForces& reaction : forces.reactions) {
    if (!AreDrawable(reaction.forces))
      return Refuse(Say(texts::c_undrawableReaction, {std::to_string(reaction.nNode + 1)}));
  }
  return {std::move(forces)};
}

template <class File>
Reading<StructureForces> FormFromFile(const File& file, StructureSize size, bool bAbsolute) {
  StructureForces forces{bAbsolute, std::vector<MemberForces>(size.nMembers), {}};
  for (const auto& member : file.members) {
    if (member.nElement < 1 || member.nElement > std::ssize(forces.members))
      return Refuse(std::string(Say(texts::c_otherModel)));
    forces.members[static_cast<std::size_t>(member.nElement - 1)] = FormStations(member);
  }
  for (const auto& support : file.supports) {
    if (support.nNode < 1 || static_cast<std::size_t>(support.nNode) > size.nNodes)
      return Refuse(std::string(Say(texts::c_otherModel)));
    forces.reactions.push_back(FormReaction(support));
  }
  return Check(std::move(forces));
}

double GetValue(const std::array<double, c_nForceComponents>& station, MemberQuantity quantity) {
  const auto [N, Qy, Qz, Mx, My, Mz] = station;
  if (quantity == MemberQuantity::Shear) return std::hypot(Qy, Qz);
  if (quantity == MemberQuantity::Moment) return std::hypot(My, Mz);
  return station[static_cast<std::size_t>(quantity)];
}

}  // namespace

bool IsMoment(MemberQuantity quantity) {
  return (quantity >= MemberQuantity::Mx && quantity <= MemberQuantity::Mz) || quantity == MemberQuantity::Moment;
}

std::string_view GetUnit(MemberQuantity quantity) { return IsMoment(quantity) ? "kN·m" : "kN"; }

std::string_view GetName(MemberQuantity quantity) {
  return Say(texts::c_memberQuantities[static_cast<std::size_t>(quantity)]);
}

bool MemberForces::Has(MemberQuantity quantity) const {
  return stations.size() > 1 || (stations.size() == 1 && quantity == MemberQuantity::N);
}

std::vector<double> MemberForces::Get(MemberQuantity quantity) const {
  std::vector<double> values;
  values.reserve(stations.size());
  for (const auto& station : stations) values.push_back(GetValue(station, quantity));
  return values;
}

Reading<StructureForces> FormMemberForces(const StaticResultFile& file, StructureSize size) {
  return FormFromFile(file, size, false);
}

Reading<StructureForces> FormMemberForces(const SpectrumResultFile& file, StructureSize size) {
  return FormFromFile(file, size, true);
}

Reading<StructureForces> FormMemberForces(std::span<const double> axialForces, StructureSize size) {
  if (axialForces.size() != size.nMembers) return Refuse(std::string(Say(texts::c_otherModel)));
  StructureForces forces;
  for (const double dForce : axialForces) forces.members.push_back({{{c_dKilo * dForce}}});
  return Check(std::move(forces));
}

double ForceExtremes::GetMagnitude() const { return std::max(std::abs(dLowest), std::abs(dHighest)); }

ForceExtremes FindExtremes(const StructureForces& forces, MemberQuantity quantity, const CShownParts& shown) {
  ForceExtremes extremes;
  for (std::size_t i = 0; i < forces.members.size(); ++i) {
    const MemberForces& member = forces.members[i];
    if (!member.Has(quantity) || !shown.HasMember(i)) continue;
    for (const double dValue : member.Get(quantity)) {
      if (!extremes.nLowest || dValue < extremes.dLowest) extremes.dLowest = dValue, extremes.nLowest = i;
      if (!extremes.nHighest || dValue > extremes.dHighest) extremes.dHighest = dValue, extremes.nHighest = i;
    }
  }
  return extremes;
}

}  // namespace skyframe::host
