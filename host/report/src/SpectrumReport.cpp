#include "skyframe/report/SpectrumReport.h"

#include "Report.h"
#include "skyframe/job/Text.h"
#include "skyframe/results/Displacements.h"

namespace skyframe::host {

void PrintSpectrumReport(const Job& job, const SpectrumFindings& findings, std::ostream& out) {
  const auto strMethod = std::string(c_strModalCombinations[static_cast<std::size_t>(findings.nCombination)]);
  out << Format("  combination           %s of %d modes%s, damping ratio %g\n", strMethod.c_str(), findings.nModes,
                findings.bVirtual ? " and the virtual mode" : "", findings.dDampRatio);
  const std::array<double, 3>& V = findings.baseShear;
  out << Format("  base shear            X %.3f, Y %.3f, Z %.3f kN\n", V[0] * c_dKilonewtonPerNewton,
                V[1] * c_dKilonewtonPerNewton, V[2] * c_dKilonewtonPerNewton)
      << "                        (support forces summed mode by mode, then the sums combined)\n";
  const std::size_t nLargest = FindLargestTranslation(findings.displacements);
  out << Format("  largest displacement  %.6g m at node %d, combined\n",
                GetTranslation(findings.displacements[nLargest]), job.nodes[nLargest].nId);
}

}  // namespace skyframe::host
