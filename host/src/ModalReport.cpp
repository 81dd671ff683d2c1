#include "ModalReport.h"

#include "Format.h"
#include "ModeLoader.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/modal/DesignSpectrum.h"
#include "skyframe/modal/ModalReport.h"
#include "skyframe/modal/ModeFile.h"

namespace skyframe::host {

namespace {

constexpr double c_dEnoughMass = 0.9;

double Share(double dMass, double dTotal) { return dTotal > 0.0 ? dMass / dTotal : 0.0; }

/// kg; too long for a column in powers of ten.
std::string FormatMass(double dMass) { return Format(dMass < 1.0e9 ? "%.1f" : "%.5e", dMass); }

void PrintTable(const std::vector<double>& omega, const EffectiveMasses& masses, std::ostream& out) {
  out << Format("  %24s", "");
  for (const char cDirection : {'X', 'Y', 'Z'}) out << Format("         effective mass %c", cDirection);
  out << Format("\n  %4s %9s %9s", "mode", "f [Hz]", "T [s]");
  for (int d = 0; d < 3; ++d) out << Format("  %11s %5s %5s", "[kg]", "[%]", "sum");
  out << '\n';
  std::array<double, 3> sum = {};
  for (std::size_t i = 0; i < omega.size(); ++i) {
    out << Format("  %4zu %9.4f %9.4f", i + 1, omega[i] * c_dHertzPerRadian, c_dTwoPi / omega[i]);
    for (std::size_t d = 0; d < 3; ++d) {
      const double dMass = masses.modes[i][d];
      sum[d] += dMass;
      out << Format("  %11s %5.1f %5.1f", FormatMass(dMass).c_str(), 100.0 * Share(dMass, masses.total[d]),
                    100.0 * Share(sum[d], masses.total[d]));
    }
    out << '\n';
  }
  out << Format("  %-24s", "total mass");
  for (std::size_t d = 0; d < 3; ++d) out << Format("%*s", d == 0 ? 13 : 25, FormatMass(masses.total[d]).c_str());
  out << '\n';
}

/// A direction in which nothing is free to move holds no mass.
void PrintShortfall(const EffectiveMasses& masses, std::ostream& out) {
  for (std::size_t d = 0; d < 3; ++d) {
    double dSum = 0.0;
    for (const std::array<double, 3>& mode : masses.modes) dSum += mode[d];
    const double dShare = Share(dSum, masses.total[d]);
    if (masses.total[d] <= 0.0 || dShare >= c_dEnoughMass) continue;
    out << Format("  effective mass in %s is %.1f %%, below 90 %%: ask for more modes\n",
                  std::string(c_strDirections[d]).c_str(), 100.0 * dShare);
  }
}

/// The count is cheaper in the numbering that the modal analysis uses.
std::optional<int> CountMissed(const JobCombination& combination, const std::vector<double>& omega) {
  CCommonData::OnReNodeCode();
  CAnalysisModel model;
  SetCombination(combination, model);
  model.BuildModelForModes(model.m_bLoadComb);
  model.Omega = omega;
  const std::optional<int> missed = model.m_bValid ? CountMissedModes(model, model.m_bLoadComb) : std::nullopt;
  CCommonData::OnRestoreNodeCode();
  return missed;
}

void PrintVerification(const JobCombination& combination, const CAnalysisModel& modes, std::ostream& out) {
  const std::optional<int> missed = CountMissed(combination, modes.Omega);
  const double dHighest = modes.Omega.empty() ? 0.0 : modes.Omega.back() * c_dHertzPerRadian;
  if (!missed) {
    out << "  warning: the Sturm count failed; nothing is known about missed modes\n";
  } else if (*missed == 0) {
    out << Format("  Sturm count           no mode below %.4f Hz is missing\n", dHighest);
  } else {
    out << Format("  warning: the mode file misses %d modes below %.4f Hz; use \"root_check\": \"compare\"\n", *missed,
                  dHighest);
  }
}

}  // namespace

void PrintModalReport(const ModalJob& analysis, const std::string& strJobPath, std::ostream& out) {
  const std::unique_ptr<CAnalysisModel> pModel = LoadModes(analysis.combination, strJobPath);
  const auto masses = pModel ? ComputeEffectiveMasses(*pModel, pModel->m_bLoadComb) : std::nullopt;
  if (!masses) {
    out << "  the mode file cannot be read back\n";
    return;
  }
  PrintTable(pModel->Omega, *masses, out);
  PrintShortfall(*masses, out);
  if (analysis.bVerify.value_or(false)) PrintVerification(analysis.combination, *pModel, out);
}

}  // namespace skyframe::host
