#include "skyframe/report/HistoryReport.h"

#include "Report.h"
#include "skyframe/job/Text.h"
#include "skyframe/results/Histories.h"
#include "texts.h"

namespace skyframe::host {

namespace {

std::string DescribePeak(const Job& job, const HistoryPeak& peak) {
  if (!peak.bFinite) return std::string(Say(texts::c_notFinite));
  if (peak.nNumber == 0) return std::string(Say(texts::c_none));
  const int nId = job.nodes[static_cast<std::size_t>(peak.nNumber - 1)].nId;
  return Say(texts::c_peakAtNode, {Format("%.6g", peak.dValue), std::to_string(nId), Format("%g", peak.dTime)});
}

}  // namespace

void PrintHistoryReport(const Job& job, const HistorySet& history, std::ostream& out) {
  PrintLine(Say(texts::c_steps),
            Say(texts::c_stepsOf, {std::to_string(history.nSteps), Format("%g", history.dTimeStep)}), out);
  for (int d = c_nHistoryX; d <= c_nHistoryZ; ++d) {
    PrintLine(Say(texts::c_peakDisplacement, {c_strDirections[static_cast<std::size_t>(d)]}),
              DescribePeak(job, FindPeak(history, d)), out);
  }
  const HistoryPeak force = FindPeak(history, c_nHistoryForce);
  if (force.nNumber == 0 || !force.bFinite) return;
  PrintLine(Say(texts::c_peakForce),
            Say(texts::c_peakInElement, {Format("%.6g", force.dValue * c_dKilonewtonPerNewton),
                                         std::to_string(force.nNumber), Format("%g", force.dTime)}),
            out);
}

}  // namespace skyframe::host
