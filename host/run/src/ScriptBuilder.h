#pragma once

#include <optional>
#include <span>
#include <vector>

#include "skyframe/job/Job.h"
#include "skyframe/platform/HeadlessPlatform.h"

namespace skyframe::host {

/// The steps of a person in one dialog. Values that are not set are not touched.
class CScriptBuilder {
 public:
  CScriptBuilder(int nDialog, CHeadlessPlatform& platform) : m_nDialog(nDialog), m_platform(platform) {}

  void Type(int nId, std::optional<double> dValue);
  void TypeInteger(int nId, std::optional<int> nValue);
  void Tick(int nId, std::optional<bool> bOn);
  void Choose(std::span<const int> radios, std::optional<int> nIndex);
  void ChooseItem(int nListId, std::optional<int> nIndex);
  void Click(int nButton) { m_steps.push_back(DialogStep::Click(nButton)); }

  /// Opens the load-combination dialog and puts the cases in with their factors.
  void Combine(int nButton, const JobCombination& combination);

  /// Ends the dialog with OK and hands the script to the platform.
  void Finish();

 private:
  int m_nDialog;
  CHeadlessPlatform& m_platform;
  std::vector<DialogStep> m_steps;
};

}  // namespace skyframe::host
