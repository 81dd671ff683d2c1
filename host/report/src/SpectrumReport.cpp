#include "skyframe/report/SpectrumReport.h"

#include "Report.h"
#include "skyframe/job/Text.h"
#include "skyframe/results/Displacements.h"
#include "texts.h"

namespace skyframe::host {

void PrintSpectrumReport(const Job& job, const SpectrumFindings& findings, std::ostream& out) {
  const std::string_view strMethod = c_strModalCombinations[static_cast<std::size_t>(findings.nCombination)];
  PrintLine(Say(texts::c_combination),
            Say(findings.bVirtual ? texts::c_combinedWithVirtual : texts::c_combined,
                {strMethod, std::to_string(findings.nModes), Format("%g", findings.dDampRatio)}),
            out);
  std::array<double, 3> shear = findings.baseShear;
  for (double& dForce : shear) dForce *= c_dKilonewtonPerNewton;
  PrintLine(Say(texts::c_baseShear), FormatForces(shear), out);
  PrintLine("", Say(texts::c_forcesCombined), out);
  const std::size_t nLargest = FindLargestTranslation(findings.displacements);
  PrintLine(Say(texts::c_largestDisplacement),
            Say(texts::c_displacementCombined, {Format("%.6g", GetTranslation(findings.displacements[nLargest])),
                                                std::to_string(job.nodes[nLargest].nId)}),
            out);
}

}  // namespace skyframe::host
