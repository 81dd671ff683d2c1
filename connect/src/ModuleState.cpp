#include "ModuleState.h"

#include <algorithm>

namespace skyframe {

std::string g_strJobPath;
KeptModels g_keptModels;

void SetLoadCombination(CAnalysisModel& model, const LoadCombination& combination) {
  model.m_nLoadCaseFlag = combination.flags;
  model.m_dLoadFactor = combination.factors;
  model.m_bLoadComb = std::any_of(combination.flags.begin(), combination.flags.end(), [](int n) { return n != 0; });
}

}  // namespace skyframe
