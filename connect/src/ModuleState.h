#pragma once

#include <memory>
#include <string>

#include "skyframe/dialogs/LoadCombination.h"
#include "skyframe/model/AnalysisModel.h"

namespace skyframe {

/// Job path of the last analysis started by the time-history or static driver.
extern std::string g_strJobPath;

/// Models that stay allocated after their entry point returned: the last one of each.
struct KeptModels {
  std::unique_ptr<CAnalysisModel> m_pStatic;
  std::unique_ptr<CAnalysisModel> m_pTimeHistory;
};
extern KeptModels g_keptModels;

/// Copies flags and factors; the model combines loads when any flag is set.
void SetLoadCombination(CAnalysisModel& model, const LoadCombination& combination);

}  // namespace skyframe
