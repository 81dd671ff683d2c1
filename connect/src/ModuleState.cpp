#include "ModuleState.h"

#include <algorithm>
#include <utility>

#include "skyframe/hostdata/HostData.h"

namespace skyframe {

std::string g_strJobPath;
HistorySet g_history;
std::array<CHistoryTable, c_nHistoryQuantities>& g_matHistory = g_history.values;
int g_nHistorySteps = 0;
int g_nHistoryPoints = 0;
KeptFindings g_findings;
KeptModels g_keptModels;

std::string GetHostJobPath() {
  const std::string_view strRecord(std::begin(COMDAT.m_szJobPath), std::size(COMDAT.m_szJobPath));
  return std::string(strRecord.substr(0, strRecord.find('\0')));
}

void KeepHistory(HistorySet history) {
  history.nKept = g_history.nKept + 1;
  g_history = std::move(history);
  g_nHistorySteps = g_history.nSteps;
  g_nHistoryPoints = g_history.GetNodeCount();
}

CAnalysisModel& KeepNewModel(std::unique_ptr<CAnalysisModel>& pKept) {
  pKept.reset();  // before the new one needs its memory
  pKept = std::make_unique<CAnalysisModel>();
  return *pKept;
}

int CountLoadTypes() { return std::clamp(ABCD.m_nLoadCases, 0, c_nLoadTypes) + 1; }

void SetLoadCombination(CAnalysisModel& model, const LoadCombination& combination) {
  model.m_nLoadCaseFlag = combination.flags;
  model.m_dLoadFactor = combination.factors;
}

bool HasLoads(const LoadCombination& combination) {
  return std::any_of(combination.flags.begin(), combination.flags.end(), [](int n) { return n != 0; });
}

}  // namespace skyframe
