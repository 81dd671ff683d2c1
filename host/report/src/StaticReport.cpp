#include "skyframe/report/StaticReport.h"

#include "Report.h"
#include "skyframe/job/Text.h"
#include "skyframe/results/Displacements.h"
#include "texts.h"

namespace skyframe::host {

namespace {

void PrintSum(const Words& label, const std::vector<NodeValues>& forces, std::ostream& out) {
  std::array<double, 3> sum = {};
  for (const NodeValues& force : forces) {
    for (std::size_t d = 0; d < sum.size(); ++d) sum[d] += force[d] * c_dKilonewtonPerNewton;
  }
  PrintLine(Say(label), FormatForces(sum), out);
}

}  // namespace

void PrintStaticReport(const Job& job, const StaticFindings& findings, std::ostream& out) {
  const std::size_t nLargest = FindLargestTranslation(findings.displacements);
  const NodeValues& u = findings.displacements[nLargest];
  PrintLine(Say(texts::c_largestDisplacement),
            Say(texts::c_displacementAt, {Format("%.6g", GetTranslation(u)), std::to_string(job.nodes[nLargest].nId),
                                          Format("%.6g", u[0]), Format("%.6g", u[1]), Format("%.6g", u[2])}),
            out);
  PrintSum(texts::c_sumOfLoads, findings.loads, out);
  PrintSum(texts::c_forceOnSupports, findings.reactions, out);
  if (findings.bNonlinear) PrintLine(Say(texts::c_iterations), std::to_string(findings.nIterations), out);
}

}  // namespace skyframe::host
