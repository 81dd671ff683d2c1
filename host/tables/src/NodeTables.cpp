#include <algorithm>
#include <cmath>

#include "TableParts.h"
#include "skyframe/checks/Storeys.h"
#include "skyframe/connect/Findings.h"
#include "skyframe/results/Displacements.h"
#include "texts.h"

namespace skyframe::host {

namespace {

/// Of the displacements of a level along an axis.
struct LevelMotion {
  double dLargest = 0.0;  ///< magnitude
  double dMean = 0.0;
};

LevelMotion FormMotion(const NodeLevel& level, const std::vector<NodeValues>& u, std::size_t d) {
  const auto [pLow, pHigh] = std::ranges::minmax_element(level.nodes, {}, [&](std::size_t i) { return u[i][d]; });
  const double dLow = u[*pLow][d];
  const double dHigh = u[*pHigh][d];
  return {std::abs(dLow) > std::abs(dHigh) ? dLow : dHigh, 0.5 * (dLow + dHigh)};
}

/// Columns of an axis behind those that the table has.
void AddMotion(Table& table, const std::vector<LevelMotion>& motions, std::size_t d, bool bMean,
               const DisplacementUnits& units) {
  const auto fill = [&](const Words& heading, std::string_view strUnit, auto value) {
    std::ranges::transform(motions, AddColumn(table, heading, strUnit).numbers.begin(), value);
  };
  fill(texts::c_largest[d], units.strTranslation, [&](const auto& m) { return units.dTranslation * m.dLargest; });
  if (!bMean) return;
  fill(texts::c_mean[d], units.strTranslation, [&](const auto& m) { return units.dTranslation * m.dMean; });
  constexpr double c_dStill = 1.0e-6;  // of the largest
  fill(texts::c_ratio[d], "", [&](const auto& m) {
    return std::abs(m.dMean) > c_dStill * std::abs(m.dLargest) ? m.dLargest / m.dMean : c_dNoNumber;
  });
}

constexpr std::array<std::size_t, 3> c_forces = {1, 2, 3};  // columns of reactions

/// Columns of reactions, empty.
void AddReactionColumns(Table& table) {
  for (std::size_t d = 0; d < texts::c_reaction.size(); ++d) {
    AddColumn(table, texts::c_reaction[d], d < 3 ? "kN" : "kN·m");
  }
}

void DropRoundOffOfReactions(Table& table) {
  DropRoundOff(table, {1, 2, 3});
  DropRoundOff(table, {4, 5, 6});
}

}  // namespace

Table FormDisplacementTable(const Job& job, const std::vector<NodeValues>& u, bool bRotations,
                            const DisplacementUnits& units) {
  Table table = StartNodeTable(job, CountUp(job.nodes.size()));
  for (std::size_t d = 0; d < 3; ++d) {
    std::ranges::transform(u, AddColumn(table, texts::c_displacement[d], units.strTranslation).numbers.begin(),
                           [&](const NodeValues& v) { return units.dTranslation * v[d]; });
  }
  std::ranges::transform(u, AddColumn(table, texts::c_total, units.strTranslation).numbers.begin(),
                         [&](const NodeValues& v) { return units.dTranslation * GetTranslation(v); });
  for (std::size_t d = 3; bRotations && d < 6; ++d) {
    std::vector<double>& numbers = AddColumn(table, texts::c_displacement[d], units.strRotation).numbers;
    for (std::size_t i = 0; i < u.size(); ++i) {
      if (job.nodes[i].nJoint == c_nRigid) numbers[i] = units.dRotation * u[i][d];
    }
  }
  return table;
}

Table FormLevelTable(const Job& job, const std::vector<NodeValues>& u, bool bMean, const DisplacementUnits& units) {
  const std::vector<NodeLevel> levels = FormNodeLevels(job);
  Table table;
  TableColumn& number = AddColumn(table, texts::c_level, "", ColumnKind::Whole);
  for (std::size_t k = 0; k < levels.size(); ++k) number.numbers.push_back(static_cast<double>(k) + 1.0);
  std::ranges::transform(levels, AddColumn(table, texts::c_height, "m").numbers.begin(), &NodeLevel::dHeight);
  std::ranges::transform(levels, AddColumn(table, texts::c_nodeCount, "", ColumnKind::Whole).numbers.begin(),
                         [](const NodeLevel& level) { return level.nodes.size(); });
  for (std::size_t d = 0; d < 3; ++d) {
    std::vector<LevelMotion> motions;
    motions.reserve(levels.size());
    for (const NodeLevel& level : levels) motions.push_back(FormMotion(level, u, d));
    AddMotion(table, motions, d, bMean && d < 2, units);
  }
  table.note = bMean ? texts::c_meanOfLevel : texts::c_combined;
  return table;
}

Table FormReactionTable(const Job& job, const StaticResultFile& file) {
  std::vector<int> nodes;
  for (const StaticSupport& support : file.supports) nodes.push_back(support.nNode - 1);
  Table table = StartNodeTable(job, std::move(nodes));
  AddReactionColumns(table);
  for (std::size_t r = 0; r < file.supports.size(); ++r) {
    for (std::size_t d = 0; d < 6; ++d) {
      if (const auto& force = file.supports[r].forces[d]) table.columns[d + 1].numbers[r] = *force / c_dNewtons;
    }
  }
  DropRoundOffOfReactions(table);
  AddFooting(table, texts::c_sum, FootingKind::Sum, c_forces);
  table.note = texts::c_supportForces;
  return table;
}

Table FormReactionTable(const Job& job, const SpectrumResultFile& file) {
  std::vector<int> nodes;
  for (const SpectrumSupport& support : file.supports) nodes.push_back(support.nNode - 1);
  Table table = StartNodeTable(job, std::move(nodes));
  AddReactionColumns(table);
  for (std::size_t r = 0; r < file.supports.size(); ++r) {
    const JobNode& node = job.nodes[static_cast<std::size_t>(table.subjects[r])];
    const std::size_t nValues = node.nJoint == c_nRigid ? 6 : 3;
    for (std::size_t d = 0; d < nValues; ++d) {
      table.columns[d + 1].numbers[r] = file.supports[r].forces[d] / c_dNewtons;
    }
  }
  DropRoundOffOfReactions(table);
  table.note = texts::c_combinedForces;
  const SpectrumFindings& findings = GetSpectrumFindings();
  if (!AreOfFile(findings.gamma, file.gamma)) return table;
  TableFooting shear{texts::c_baseShear, FootingKind::Given, std::vector<double>(table.columns.size(), c_dNoNumber)};
  for (std::size_t d = 0; d < 3; ++d) shear.numbers[d + 1] = findings.baseShear[d] / c_dNewtons;
  table.footings.push_back(std::move(shear));
  table.note = texts::c_combinedShear;
  return table;
}

}  // namespace skyframe::host
