#include "skyframe/report/StaticReport.h"

#include "Report.h"
#include "skyframe/job/Text.h"
#include "skyframe/results/Displacements.h"

namespace skyframe::host {

namespace {

void PrintSum(const char* pszLabel, const std::vector<NodeValues>& forces, std::ostream& out) {
  std::array<double, 3> sum = {};
  for (const NodeValues& force : forces) {
    for (std::size_t d = 0; d < sum.size(); ++d) sum[d] += force[d] * c_dKilonewtonPerNewton;
  }
  out << Format("  %-22sX %.3f, Y %.3f, Z %.3f kN\n", pszLabel, DropRoundOff(sum[0]), DropRoundOff(sum[1]),
                DropRoundOff(sum[2]));
}

}  // namespace

void PrintStaticReport(const Job& job, const StaticFindings& findings, std::ostream& out) {
  const std::size_t nLargest = FindLargestTranslation(findings.displacements);
  const NodeValues& u = findings.displacements[nLargest];
  out << Format("  largest displacement  %.6g m at node %d: X %.6g, Y %.6g, Z %.6g\n", GetTranslation(u),
                job.nodes[nLargest].nId, u[0], u[1], u[2]);
  PrintSum("sum of loads", findings.loads, out);
  PrintSum("force on supports", findings.reactions, out);
  if (findings.bNonlinear) out << Format("  iterations            %d\n", findings.nIterations);
}

}  // namespace skyframe::host
