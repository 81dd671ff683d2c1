#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "skyframe/connect/Inquiries.h"
#include "skyframe/job/Job.h"
#include "skyframe/results/HistoryResultFile.h"
#include "skyframe/run/HostPlatform.h"
#include "skyframe/values/Findings.h"

namespace skyframe::host {

enum class AnalysisKind { Static, Modal, Spectrum, TimeHistory };

[[nodiscard]] AnalysisKind GetKind(const JobAnalysis& analysis);

/// What the last run of a kind found.
[[nodiscard]] const RunFindings& GetFindings(AnalysisKind kind);

/// A job in the host records, which nothing else of the host reads or writes. The last one that was opened has them.
class CSession {
 public:
  /// Fills the records; what they held before is lost. Loads are stored in the order of their cases, and a case below
  /// the highest one that has no load gets one record of value 0, so that the module's load group g is case g.
  /// Nothing when the job path is too long for its record. strProgramPath: directory that holds GroundAccData.
  [[nodiscard]] static std::optional<CSession> Open(Job job, std::string strJobPath, const std::string& strProgramPath);

  [[nodiscard]] const Job& GetJob() const { return m_job; }
  /// The model stays.
  void SetAnalyses(std::vector<JobAnalysis> analyses) { m_job.analyses = std::move(analyses); }
  [[nodiscard]] const std::string& GetJobPath() const { return m_strJobPath; }

  /// Calls the entry point of the analysis, whose dialogs the platform in force shows.
  const RunFindings& Run(AnalysisKind kind);
  /// Likewise, with dialogs that are filled in with the job's values.
  const RunFindings& Run(const JobAnalysis& analysis, CHostPlatform& platform);

  /// The result viewer, until a person closes it.
  void ShowHistories();
  /// The picture that the viewer shows of a history; false after a message when its file is damaged or of another
  /// model.
  [[nodiscard]] bool PaintViewer(const HistoryChoice& curve, CHostPlatform& platform, IPaintContext& paint);
  /// The viewer writes these histories, unseen, to files of their own. False after messages when it cannot.
  [[nodiscard]] bool WriteOutputs(const JobOutputs& outputs, CHostPlatform& platform);
  /// Files that the last run of a kind has written, those of WriteOutputs with them.
  [[nodiscard]] std::vector<std::string> GetFiles(AnalysisKind kind) const;
  /// Histories of this job that the viewer shows: those kept since the session was opened. No steps without one.
  [[nodiscard]] const HistorySet& GetHistories() const;

  /// Counts, profile and memory; nothing after a message when the module refuses the model.
  [[nodiscard]] std::optional<ModelMeasure> Measure() const;

 private:
  CSession(Job job, std::string strJobPath);

  Job m_job;
  std::string m_strJobPath;
  int m_nKeptBefore;  ///< sets of histories that are not of this job
  HistorySet m_none;
  std::vector<std::string> m_outputs;  ///< files of the last time history that WriteOutputs has written
};

}  // namespace skyframe::host
