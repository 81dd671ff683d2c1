#include "ScriptBuilder.h"

#include "skyframe/job/Text.h"
#include "skyframe/values/DialogIds.h"

namespace skyframe::host {

namespace {

/// Name of a load case in the load-combination dialog.
std::string GetCaseName(int nCase) { return nCase == 0 ? "静" : "活" + std::to_string(nCase); }

}  // namespace

void CScriptBuilder::Type(int nId, std::optional<double> dValue) {
  if (dValue) m_steps.push_back(DialogStep::Type(nId, FormatNumber(*dValue)));
}

void CScriptBuilder::TypeInteger(int nId, std::optional<int> nValue) {
  if (nValue) m_steps.push_back(DialogStep::Type(nId, std::to_string(*nValue)));
}

void CScriptBuilder::Tick(int nId, std::optional<bool> bOn) {
  if (bOn) m_steps.push_back(DialogStep::Tick(nId, *bOn));
}

void CScriptBuilder::Choose(std::span<const int> radios, std::optional<int> nIndex) {
  if (nIndex) m_steps.push_back(DialogStep::Choose(radios[*nIndex]));
}

void CScriptBuilder::ChooseItem(int nListId, std::optional<int> nIndex) {
  if (nIndex) m_steps.push_back(DialogStep::ChooseItem(nListId, *nIndex));
}

void CScriptBuilder::Combine(int nButton, const JobCombination& combination) {
  if (combination.empty()) return;
  Click(nButton);
  CScriptBuilder script(c_nIdLoadCombDlg, m_platform);
  for (const auto& [nCase, dFactor] : combination) {
    script.Type(c_nIdFactor, dFactor);
    script.m_steps.push_back(DialogStep::ToggleRow(c_nIdAvailable, GetCaseName(nCase)));
    script.Click(c_nIdAdd);
  }
  script.Finish();
}

void CScriptBuilder::Finish() {
  m_steps.push_back(DialogStep::Ok());
  m_platform.AddScript(m_nDialog, std::move(m_steps));
}

}  // namespace skyframe::host
