#include "skyframe/results/Histories.h"

#include <cmath>

#include "skyframe/job/Text.h"
#include "texts.h"

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

HistorySet FormHistorySet(const HistoryResultFile& file) {
  HistorySet set;
  static_cast<HistoryRun&>(set) = file;
  set.bComplete = true;
  set.Allocate(file.nSteps, static_cast<int>(file.displacements.size()), static_cast<int>(file.forces.size()));
  for (std::size_t q = 0; q < set.values.size(); ++q) {
    CHistoryTable& table = set.values[q];
    for (int i = 0; i < table.GetCols(); ++i) {
      const auto nColumn = static_cast<std::size_t>(i);
      const std::vector<double>& column = q == c_nHistoryForce ? file.forces[nColumn] : file.displacements[nColumn][q];
      for (int k = 0; k < table.GetRows(); ++k) table[k][i] = column[static_cast<std::size_t>(k)];
    }
  }
  return set;
}

std::string DescribeHistory(const HistoryRun& run) {
  const std::string_view strMethod = run.nMethod == c_nNewmarkMethod ? "Newmark" : "Wilson";
  const std::string_view strAssumption = Say(run.nAssumption == 1 ? texts::c_nonlinear : texts::c_linear);
  std::string strText =
      Say(texts::c_history, {strMethod, strAssumption, std::to_string(run.nSteps), Format("%g", run.dTimeStep)});
  if (!run.strFinished.empty()) strText += Say(texts::c_finished, {run.strFinished});
  return strText;
}

}  // namespace skyframe::host
