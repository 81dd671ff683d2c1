#include "ModeLoader.h"

namespace skyframe::host {

void SetCombination(const JobCombination& combination, CAnalysisModel& model) {
  for (const auto& [nCase, dFactor] : combination) {
    const auto g = static_cast<std::size_t>(nCase);
    model.m_nLoadCaseFlag[g] = 1;
    model.m_dLoadFactor[g] = dFactor;
  }
  model.m_bLoadComb = !combination.empty();
}

std::unique_ptr<CAnalysisModel> LoadModes(const JobCombination& combination, const std::string& strJobPath,
                                          int nModes) {
  auto pModel = std::make_unique<CAnalysisModel>();
  SetCombination(combination, *pModel);
  pModel->BuildModelForModes(pModel->m_bLoadComb);
  if (!pModel->m_bValid || !pModel->ReadModeFrequencies(strJobPath)) return nullptr;
  pModel->m_nExpandModes = nModes > 0 ? nModes : static_cast<int>(pModel->Omega.size());
  return pModel->ReadModeFile(strJobPath) ? std::move(pModel) : nullptr;
}

}  // namespace skyframe::host
