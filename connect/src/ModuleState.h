#pragma once

#include <array>
#include <memory>
#include <string>

#include "skyframe/dialogs/LoadCombination.h"
#include "skyframe/model/AnalysisModel.h"
#include "skyframe/values/Findings.h"

namespace skyframe {

// What outlives a call: one instance each for the life of the loaded module.

/// Job path of the last analysis started by the time-history or static driver.
extern std::string g_strJobPath;

/// Histories of the last complete time-history run, or of the file read for the viewer.
extern HistorySet g_history;
/// Its matrices: X, Y, Z displacement (m, steps x nodes) and axial force (N, steps x elements).
extern std::array<CHistoryTable, c_nHistoryQuantities>& g_matHistory;
extern int g_nHistorySteps;
extern int g_nHistoryPoints;  ///< nodes

/// Job path of the host's record, also when that has no terminating zero.
[[nodiscard]] std::string GetHostJobPath();

/// Takes over a set of histories and its counts.
void KeepHistory(HistorySet history);

/// What the last call of each entry point found.
struct KeptFindings {
  StaticFindings statics;
  ModalFindings modal;
  SpectrumFindings spectrum;
  HistoryFindings history;
};
extern KeptFindings g_findings;

/// Models that stay allocated after their entry point returned: the last one of each.
struct KeptModels {
  std::unique_ptr<CAnalysisModel> m_pStatic;
  std::unique_ptr<CAnalysisModel> m_pTimeHistory;
};
extern KeptModels g_keptModels;

/// Frees the kept model of an entry point and puts a new one in its place.
CAnalysisModel& KeepNewModel(std::unique_ptr<CAnalysisModel>& pKept);

/// Load types of the host's model: its load cases and one. A count that no dialog can hold stays one.
[[nodiscard]] int CountLoadTypes();
/// Copies these parts of the settings.
template <class... Part, class Settings>
void TakeSettings(CAnalysisModel& model, const Settings& settings) {
  ((static_cast<Part&>(model) = settings), ...);
}
/// Copies flags and factors.
void SetLoadCombination(CAnalysisModel& model, const LoadCombination& combination);
/// Whether any load type takes part.
[[nodiscard]] bool HasLoads(const LoadCombination& combination);

}  // namespace skyframe
