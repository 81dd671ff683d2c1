#include "skyframe/report/HistoryReport.h"

#include "skyframe/job/Text.h"
#include "skyframe/results/Histories.h"

namespace skyframe::host {

void PrintHistoryReport(const Job& job, const HistorySet& history, std::ostream& out) {
  out << Format("  steps                 %d of %g s\n", history.nSteps, history.dTimeStep);
  for (int d = c_nHistoryX; d <= c_nHistoryZ; ++d) {
    const HistoryPeak peak = FindPeak(history, d);
    out << "  peak displacement " << c_strDirections[static_cast<std::size_t>(d)];
    if (!peak.bFinite) {
      out << "   not finite\n";
    } else if (peak.nNumber == 0) {
      out << "   none\n";
    } else {
      out << Format("   %.6g m at node %d, t = %g s\n", peak.dValue,
                    job.nodes[static_cast<std::size_t>(peak.nNumber - 1)].nId, peak.dTime);
    }
  }
  const HistoryPeak force = FindPeak(history, c_nHistoryForce);
  if (force.nNumber == 0 || !force.bFinite) return;
  out << Format("  peak axial force      %.6g kN in element %d, t = %g s\n", 1.0e-3 * force.dValue, force.nNumber,
                force.dTime);
}

}  // namespace skyframe::host
