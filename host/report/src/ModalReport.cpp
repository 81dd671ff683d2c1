#include "skyframe/report/ModalReport.h"

#include "Report.h"
#include "skyframe/job/Text.h"
#include "skyframe/values/SpectrumSite.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr double c_dEnoughMass = 0.9;

double Share(double dMass, double dTotal) { return dTotal > 0.0 ? dMass / dTotal : 0.0; }

/// kg; too long for a column in powers of ten.
std::string FormatMass(double dMass) { return Format(dMass < 1.0e9 ? "%.1f" : "%.5e", dMass); }

void PrintHead(std::ostream& out) {
  out << PadRight("", 26);
  for (const std::string_view strAxis : c_strAxes) out << PadLeft(Say(texts::c_effectiveMass, {strAxis}), 25);
  out << "\n  " << PadLeft(Say(texts::c_mode), 4) << Format(" %9s %9s", "f [Hz]", "T [s]");
  for (int d = 0; d < 3; ++d) out << Format("  %11s %5s ", "[kg]", "[%]") << PadLeft(Say(texts::c_sum), 5);
  out << '\n';
}

void PrintTable(const ModalFindings& findings, std::ostream& out) {
  PrintHead(out);
  std::array<double, 3> sum = {};
  for (std::size_t i = 0; i < findings.omega.size(); ++i) {
    out << Format("  %4d %9.4f %9.4f", static_cast<int>(i) + 1, findings.omega[i] * c_dHertzPerRadian,
                  c_dTwoPi / findings.omega[i]);
    for (std::size_t d = 0; d < 3; ++d) {
      const double dMass = findings.effectiveMasses[i][d];
      sum[d] += dMass;
      out << Format("  %11s %5.1f %5.1f", FormatMass(dMass).c_str(), 100.0 * Share(dMass, findings.totalMass[d]),
                    100.0 * Share(sum[d], findings.totalMass[d]));
    }
    out << '\n';
  }
  out << "  " << PadRight(Say(texts::c_totalMass), 24);
  for (std::size_t d = 0; d < 3; ++d) out << Format("%*s", d == 0 ? 13 : 25, FormatMass(findings.totalMass[d]).c_str());
  out << '\n';
}

}  // namespace

std::vector<std::string> ListShortfalls(const std::array<double, 3>& totalMass,
                                        const std::vector<std::array<double, 3>>& effectiveMasses) {
  std::vector<std::string> lines;
  for (std::size_t d = 0; d < 3; ++d) {
    double dSum = 0.0;
    for (const std::array<double, 3>& mode : effectiveMasses) dSum += mode[d];
    const double dShare = Share(dSum, totalMass[d]);
    if (totalMass[d] <= 0.0 || dShare >= c_dEnoughMass) continue;
    lines.push_back(Say(texts::c_shortfall, {c_strDirections[d], Format("%.1f", 100.0 * dShare)}));
  }
  return lines;
}

void PrintModalReport(const ModalFindings& findings, std::ostream& out) {
  PrintTable(findings, out);
  for (const std::string& strLine : ListShortfalls(findings.totalMass, findings.effectiveMasses)) {
    out << "  " << strLine << '\n';
  }
}

void PrintModeCount(const std::optional<ModeCount>& count, std::ostream& out) {
  if (!count || count->nCounted != count->nFound) return;
  PrintLine(Say(texts::c_sturmCount), Say(texts::c_noneMissing, {Format("%.4f", count->dBelow * c_dHertzPerRadian)}),
            out);
}

}  // namespace skyframe::host
