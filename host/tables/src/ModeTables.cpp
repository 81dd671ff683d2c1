#include <algorithm>
#include <cmath>

#include "TableParts.h"
#include "skyframe/checks/ModalQuantities.h"
#include "skyframe/connect/Findings.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/run/Stamps.h"
#include "skyframe/values/ResultFiles.h"
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
    const double dMass = masses[i] < c_dRoundOff * dTotal ? 0.0 : masses[i];
    dSum += dMass;
    table.columns[nFirst].numbers[i] = dMass;
    table.columns[nFirst + 1].numbers[i] = GetShare(dMass, dTotal);
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

/// Of a run with this mass; the model is that of the host records.
std::optional<ModalMasses> ComputeMasses(const ModeResultFile& file, const JobCombination& combination) {
  const std::size_t nNodes = file.shapes.empty() ? 0 : file.shapes.front().size();
  const auto basis = FormBasis(file.omega, file.shapes, nNodes, FormModeSettings(combination, file.bShear));
  if (!basis) return std::nullopt;
  ModalMasses masses{SumMasses(*basis), {}};
  for (std::size_t i = 0; i < basis->GetCount(); ++i) {
    Vector3 L = SumInertia(*basis, i);
    for (double& d : L) d *= d;
    masses.effective.push_back(L);
  }
  return masses;
}

}  // namespace

bool AreOfFile(const std::vector<double>& found, const std::vector<double>& file) {
  constexpr double c_dFileDigits = 1.0e-5;
  return std::ranges::equal(found, file, [](double dOne, double dOther) {
    return std::abs(dOne - dOther) <= c_dFileDigits * std::abs(dOne);
  });
}

std::optional<ModalMasses> FindModalMasses(const Job& job, const std::string& strJobPath, const ModeResultFile& file) {
  const ModalFindings& findings = GetModalFindings();
  if (AreOfFile(findings.omega, file.omega)) return ModalMasses{findings.totalMass, findings.effectiveMasses};
  const CStamps stamps = CStamps::Read(strJobPath);
  const ResultStamp* const pStamp = stamps.Find(suffix::c_strModes);
  if (pStamp == nullptr || pStamp->strModel != FormModelMark(job)) return std::nullopt;
  const std::optional<JobAnalysis> analysis = ParseAnalysis(pStamp->strAnalysis, job);
  const auto* const pModal = analysis ? std::get_if<ModalJob>(&*analysis) : nullptr;
  return pModal == nullptr ? std::nullopt : ComputeMasses(file, pModal->combination);
}

Table FormModeTable(const ModeResultFile& file, const std::optional<ModalMasses>& masses) {
  Table table = StartModeTable(file.omega.size());
  std::ranges::transform(file.omega, AddColumn(table, texts::c_frequency, "Hz").numbers.begin(),
                         [](double dOmega) { return dOmega * c_dHertzPerRadian; });
  std::ranges::transform(file.omega, AddColumn(table, texts::c_period, "s").numbers.begin(),
                         [](double dOmega) { return dOmega > 0.0 ? c_dTwoPi / dOmega : c_dNoNumber; });
  if (!masses) {
    table.note = texts::c_noMasses;
    return table;
  }
  for (std::size_t d = 0; d < 3; ++d) {
    std::vector<double> along;
    for (const auto& mass : masses->effective) along.push_back(mass[d]);
    AddMasses(table, along, masses->total[d], {texts::c_mass[d], texts::c_share[d], texts::c_runningSum[d]});
  }
  AddFooting(table, texts::c_sum, FootingKind::Sum, std::array<std::size_t, 6>{3, 4, 6, 7, 9, 10});
  return table;
}

Table FormParticipationTable(const SpectrumResultFile& file) {
  Table table = StartModeTable(file.gamma.size());
  AddColumn(table, texts::c_participation, "").numbers = file.gamma;
  DropRoundOff(table, {1});
  AddMasses(table, file.masses, file.dTotalMass, {texts::c_quakeMass, texts::c_quakeShare, texts::c_quakeSum});
  AddColumn(table, texts::c_damping, "").numbers = file.damping;
  AddFooting(table, texts::c_sum, FootingKind::Sum, std::array<std::size_t, 2>{2, 3});
  return table;
}

}  // namespace skyframe::host
