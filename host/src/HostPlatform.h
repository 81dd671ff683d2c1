#pragma once

#include <string>

#include "skyframe/platform/HeadlessPlatform.h"

namespace skyframe::host {

/// Scripted dialogs for the command line. The box that reports the elapsed time at the end of a run is
/// kept apart from the messages, so that every message left is an error.
class CHostPlatform : public CHeadlessPlatform {
 public:
  /// pProgress: terminal for a progress bar; null: none.
  CHostPlatform(std::ostream& strmMessages, std::ostream& strmConsole, std::ostream* pProgress = nullptr)
      : CHeadlessPlatform(strmMessages, strmConsole), m_pProgress(pProgress) {}

  /// Forgets what the last run left.
  void StartRun();
  /// "0hour: 0min: 3s"; empty when the run did not report it.
  [[nodiscard]] const std::string& GetElapsedTime() const { return m_strElapsedTime; }
  /// Takes the bar off the terminal.
  void EndProgress();

  void ShowMessage(std::string_view strText) override;
  void ReportProgress(double dFraction, std::string_view strLabel) override;

 private:
  std::ostream* m_pProgress;
  int m_nPercent = -1;  ///< on the terminal; -1: no bar
  std::string m_strElapsedTime;
};

}  // namespace skyframe::host
