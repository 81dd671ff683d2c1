#include <algorithm>
#include <cmath>

#include "TableParts.h"
#include "skyframe/connect/Findings.h"
#include "skyframe/values/SpectrumSite.h"
#include "texts.h"

namespace skyframe::host {

namespace {

double GetShare(double dMass, double dTotal) { return dTotal > 0.0 ? c_dPercent * dMass / dTotal : 0.0; }

/// Masses with their shares of the total and the shares' running sums, headings in this order.
void AddMasses(Table& table, const std::vector<double>& masses, double dTotal, const std::array<Words, 3>& headings) {
  const std::size_t nFirst = table.columns.size();
  AddColumn(table, headings[0], "kg");
  AddColumn(table, headings[1], "%");
  AddColumn(table, headings[2], "%");
  double dSum = 0.0;
  for (std::size_t i = 0; i < masses.size(); ++i) {
    dSum += masses[i];
    table.columns[nFirst].numbers[i] = masses[i];
    table.columns[nFirst + 1].numbers[i] = GetShare(masses[i], dTotal);
    table.columns[nFirst + 2].numbers[i] = GetShare(dSum, dTotal);
  }
}

/// Numbered rows.
Table StartModeTable(std::size_t nModes) {
  Table table;
  TableColumn& number = AddColumn(table, texts::c_mode, "", ColumnKind::Whole);
  for (std::size_t i = 0; i < nModes; ++i) number.numbers.push_back(static_cast<double>(i) + 1.0);
  return table;
}

}  // namespace

bool AreOfFile(const std::vector<double>& found, const std::vector<double>& file) {
  constexpr double c_dFileDigits = 1.0e-5;
  return std::ranges::equal(found, file, [](double dOne, double dOther) {
    return std::abs(dOne - dOther) <= c_dFileDigits * std::abs(dOne);
  });
}

Table FormModeTable(const ModeResultFile& file) {
  Table table = StartModeTable(file.omega.size());
  std::ranges::transform(file.omega, AddColumn(table, texts::c_frequency, "Hz").numbers.begin(),
                         [](double dOmega) { return dOmega * c_dHertzPerRadian; });
  std::ranges::transform(file.omega, AddColumn(table, texts::c_period, "s").numbers.begin(),
                         [](double dOmega) { return dOmega > 0.0 ? c_dTwoPi / dOmega : c_dNoNumber; });
  const ModalFindings& findings = GetModalFindings();
  if (!AreOfFile(findings.omega, file.omega)) {
    table.note = texts::c_noMasses;
    return table;
  }
  for (std::size_t d = 0; d < 3; ++d) {
    std::vector<double> masses;
    for (const auto& mass : findings.effectiveMasses) masses.push_back(mass[d]);
    AddMasses(table, masses, findings.totalMass[d], {texts::c_mass[d], texts::c_share[d], texts::c_runningSum[d]});
  }
  AddFooting(table, texts::c_sum, FootingKind::Sum, std::array<std::size_t, 6>{3, 4, 6, 7, 9, 10});
  return table;
}

Table FormParticipationTable(const SpectrumResultFile& file) {
  Table table = StartModeTable(file.gamma.size());
  AddColumn(table, texts::c_participation, "").numbers = file.gamma;
  AddMasses(table, file.masses, file.dTotalMass, {texts::c_quakeMass, texts::c_quakeShare, texts::c_quakeSum});
  AddColumn(table, texts::c_damping, "").numbers = file.damping;
  AddFooting(table, texts::c_sum, FootingKind::Sum, std::array<std::size_t, 2>{2, 3});
  return table;
}

}  // namespace skyframe::host
