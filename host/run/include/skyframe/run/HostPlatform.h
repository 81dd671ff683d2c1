#pragma once

#include "skyframe/platform/HeadlessPlatform.h"

namespace skyframe::host {

/// Scripted dialogs for the command line. Notices are not shown: the summary has what they tell.
class CHostPlatform : public CHeadlessPlatform {
 public:
  /// pProgress: terminal for a progress bar; null: none.
  CHostPlatform(std::ostream& strmMessages, std::ostream& strmConsole, std::ostream* pProgress = nullptr)
      : CHeadlessPlatform(strmMessages, strmConsole), m_pProgress(pProgress) {}

  /// Takes the bar off the terminal.
  void EndProgress();

  void ShowMessage(std::string_view strText) override;
  void ShowNotice(std::string_view strText) override;
  void ReportProgress(double dFraction, std::string_view strLabel) override;

 private:
  std::ostream* m_pProgress;
  int m_nPercent = -1;  ///< on the terminal; -1: no bar
};

}  // namespace skyframe::host
