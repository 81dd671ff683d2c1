#include <algorithm>
#include <cmath>

#include "TableParts.h"
#include "skyframe/scene/MemberForces.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr std::size_t c_nMy = 4;
constexpr std::size_t c_nMz = 5;

using Station = std::array<double, c_nForceComponents>;

/// Members that the result has, indices; each as many times.
std::vector<int> ListMembers(const StructureForces& forces, int nTimes) {
  std::vector<int> members;
  for (std::size_t i = 0; i < forces.members.size(); ++i) {
    if (!forces.members[i].stations.empty()) members.insert(members.end(), nTimes, static_cast<int>(i));
  }
  return members;
}

/// N alone in a bar.
void SetForces(Table& table, std::size_t nFirst, std::size_t nRow, const MemberForces& member, const Station& values) {
  for (std::size_t q = 0; q < values.size(); ++q) {
    if (member.Has(static_cast<MemberQuantity>(q))) table.columns[nFirst + q].numbers[nRow] = values[q];
  }
}

/// Empty.
void AddForceColumns(Table& table) {
  for (std::size_t q = 0; q < c_nForceComponents; ++q) {
    AddColumn(table, texts::c_force[q], GetUnit(static_cast<MemberQuantity>(q)));
  }
}

Table FormEnds(const Job& job, const StructureForces& forces) {
  Table table = StartElementTable(ListMembers(forces, 2));
  AddColumn(table, texts::c_end, "", ColumnKind::Text);
  AddColumn(table, texts::c_node, "", ColumnKind::Whole);
  const std::size_t nFirst = table.columns.size();
  AddForceColumns(table);
  for (std::size_t r = 0; r < table.CountRows(); ++r) {
    const bool bStart = r % 2 == 0;
    const auto nMember = static_cast<std::size_t>(table.subjects[r]);
    const JobElement& element = job.elements[nMember];
    const int nNode = bStart ? element.nNodeI : element.nNodeJ;
    table.columns[nFirst - 2].texts[r] = bStart ? "i" : "j";
    table.columns[nFirst - 1].numbers[r] = job.nodes[static_cast<std::size_t>(nNode - 1)].nId;
    const MemberForces& member = forces.members[nMember];
    SetForces(table, nFirst, r, member, bStart ? member.stations.front() : member.stations.back());
  }
  DropRoundOff(table, {nFirst, nFirst + 1, nFirst + 2});
  DropRoundOff(table, {nFirst + 3, nFirst + 4, nFirst + 5});
  AddSections(table, job);
  AddExtremes(table, nFirst, nFirst + c_nForceComponents, forces.bAbsolute);
  return table;
}

/// The station with the largest magnitude of a component, the first of equal ones.
std::size_t FindStation(const MemberForces& member, std::size_t q) {
  const auto it = std::ranges::max_element(member.stations, {}, [q](const Station& s) { return std::abs(s[q]); });
  return static_cast<std::size_t>(it - member.stations.begin());
}

Table FormExtremes(const Job& job, const StructureForces& forces) {
  Table table = StartElementTable(ListMembers(forces, 1));
  const std::size_t nFirst = table.columns.size();
  AddForceColumns(table);
  AddColumn(table, texts::c_placeMy, "");
  AddColumn(table, texts::c_placeMz, "");
  for (std::size_t r = 0; r < table.CountRows(); ++r) {
    const MemberForces& member = forces.members[static_cast<std::size_t>(table.subjects[r])];
    Station largest = {};
    for (std::size_t q = 0; q < largest.size(); ++q) largest[q] = member.stations[FindStation(member, q)][q];
    SetForces(table, nFirst, r, member, largest);
    if (member.stations.size() < 2) continue;
    const double dLast = static_cast<double>(member.stations.size() - 1);
    const std::size_t nPlaces = nFirst + c_nForceComponents;
    table.columns[nPlaces].numbers[r] = static_cast<double>(FindStation(member, c_nMy)) / dLast;
    table.columns[nPlaces + 1].numbers[r] = static_cast<double>(FindStation(member, c_nMz)) / dLast;
  }
  DropRoundOff(table, {nFirst, nFirst + 1, nFirst + 2});
  DropRoundOff(table, {nFirst + 3, nFirst + 4, nFirst + 5});
  AddSections(table, job);
  AddExtremes(table, nFirst, nFirst + c_nForceComponents, forces.bAbsolute);
  return table;
}

/// Peak of a history.
struct Peak {
  double dValue = 0.0;
  int nStep = 0;
};

std::vector<Peak> FindPeaks(const CHistoryTable& values) {
  std::vector<Peak> peaks(static_cast<std::size_t>(values.GetCols()));
  for (int k = 0; k < values.GetRows(); ++k) {
    for (int i = 0; i < values.GetCols(); ++i) {
      Peak& peak = peaks[static_cast<std::size_t>(i)];
      const double dValue = values[k][i];
      if (std::isfinite(dValue) && std::abs(dValue) > std::abs(peak.dValue)) peak = {dValue, k + 1};
    }
  }
  return peaks;
}

/// Peaks with their times, of the rows' subjects.
void AddPeaks(Table& table, const HistorySet& histories, std::size_t nQuantity, const Words& heading,
              std::string_view strUnit) {
  const std::vector<Peak> peaks = FindPeaks(histories.values[nQuantity]);
  std::ranges::transform(peaks, AddColumn(table, heading, strUnit).numbers.begin(), [nQuantity](const Peak& peak) {
    return nQuantity == c_nHistoryForce ? peak.dValue / c_dNewtons : peak.dValue * c_dMillimetres;
  });
  std::ranges::transform(peaks, AddColumn(table, texts::c_time[nQuantity], "s").numbers.begin(),
                         [&](const Peak& peak) { return peak.nStep * histories.dTimeStep; });
}

/// Where nothing moves there is no time of a peak.
void DropTimes(Table& table, std::size_t nPeaks) {
  for (std::size_t r = 0; r < table.CountRows(); ++r) {
    if (table.columns[nPeaks].numbers[r] == 0.0) table.columns[nPeaks + 1].numbers[r] = c_dNoNumber;
  }
}

}  // namespace

template <class File>
Reading<Table> FormForceTable(const Job& job, const File& file, bool bExtremes) {
  const auto forces = FormMemberForces(file, {job.nodes.size(), job.elements.size()});
  if (!forces) return RefuseTable(forces.strError);
  Table table = bExtremes ? FormExtremes(job, *forces) : FormEnds(job, *forces);
  table.note = forces->bAbsolute ? texts::c_combined : texts::c_forceSigns;
  return {std::move(table)};
}

template Reading<Table> FormForceTable(const Job&, const StaticResultFile&, bool);
template Reading<Table> FormForceTable(const Job&, const SpectrumResultFile&, bool);

Table FormPeakTable(const Job& job, const HistorySet& histories) {
  Table table = StartNodeTable(job, CountUp(job.nodes.size()));
  for (std::size_t d = 0; d < 3; ++d) AddPeaks(table, histories, d, texts::c_displacement[d], "mm");
  DropRoundOff(table, {1, 3, 5});
  for (const std::size_t c : {1U, 3U, 5U}) DropTimes(table, c);
  return table;
}

Table FormForcePeakTable(const Job& job, const HistorySet& histories) {
  Table table = StartElementTable(CountUp(job.elements.size()));
  AddPeaks(table, histories, c_nHistoryForce, texts::c_force[0], "kN");
  DropRoundOff(table, {1});
  DropTimes(table, 1);
  AddSections(table, job);
  return table;
}

}  // namespace skyframe::host
