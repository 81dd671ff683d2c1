#include "skyframe/results/Histories.h"

#include <cmath>

#include "skyframe/job/Text.h"

namespace skyframe::host {

HistoryPeak FindPeak(const HistorySet& history, int nQuantity) {
  const CHistoryTable& values = history.values[static_cast<std::size_t>(nQuantity)];
  HistoryPeak peak;
  for (int k = 0; k < history.nSteps; ++k) {
    for (int i = 0; i < values.GetCols(); ++i) {
      const double dValue = values[k][i];
      peak.bFinite = peak.bFinite && std::isfinite(dValue);
      if (!std::isfinite(dValue) || std::abs(dValue) <= std::abs(peak.dValue)) continue;
      peak = {dValue, i + 1, (k + 1) * history.dTimeStep, peak.bFinite};
    }
  }
  return peak;
}

std::string DescribeHistory(const HistorySet& history) {
  std::string strText = Format("%s, %s, %d steps of %g s", history.nMethod == c_nNewmarkMethod ? "Newmark" : "Wilson",
                               history.nAssumption == 1 ? "nonlinear" : "linear", history.nSteps, history.dTimeStep);
  if (!history.strFinished.empty()) strText += ", finished " + history.strFinished;
  return strText;
}

}  // namespace skyframe::host
