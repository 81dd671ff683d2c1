#pragma once

#include <QString>
#include <array>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "skyframe/gui/Notice.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/job/Language.h"
#include "skyframe/results/HistoryResultFile.h"
#include "skyframe/results/ModeResultFile.h"
#include "skyframe/results/ResultKind.h"
#include "skyframe/results/SpectrumResultFile.h"
#include "skyframe/results/StaticResultFile.h"
#include "skyframe/run/Session.h"
#include "skyframe/run/Stamps.h"
#include "skyframe/scene/MemberForces.h"

namespace skyframe::gui {

/// Nodes and elements that a person has chosen, by index from 0.
struct Selection {
  std::set<int> nodes;
  std::set<int> elements;

  [[nodiscard]] bool IsEmpty() const { return nodes.empty() && elements.empty(); }
  bool operator==(const Selection&) const = default;
};

/// What the window works on: the open job with its analyses, its results, the selection, the language. Panels listen
/// to its notices and read from it; what they change they change here.
class CDocument {
 public:
  CDocument() = default;
  CDocument(const CDocument&) = delete;
  CDocument& operator=(const CDocument&) = delete;

  // Job

  /// Reads a job file; its errors, in which case the former job stays.
  std::vector<host::JobProblem> Open(const QString& strFile);
  [[nodiscard]] bool IsOpen() const { return m_session.has_value(); }
  [[nodiscard]] const QString& GetFile() const { return m_strFile; }
  [[nodiscard]] const std::vector<host::JobProblem>& GetWarnings() const { return m_warnings; }
  // With an open job:
  [[nodiscard]] host::CSession& GetSession() { return *m_session; }
  [[nodiscard]] const host::Job& GetJob() const { return m_session->GetJob(); }
  [[nodiscard]] const std::string& GetJobPath() const { return m_session->GetJobPath(); }

  // Its analyses

  /// Index of the first one of the kind; nothing when there is none.
  [[nodiscard]] std::optional<std::size_t> FindAnalysis(host::AnalysisKind kind) const;
  /// What became of the analysis with the index in its dialogs: takes its place when it still writes the same results,
  /// else that of the first one that does, else comes last.
  void KeepAnalysis(std::optional<std::size_t> nIndex, const host::JobAnalysis& analysis);
  void SetAnalyses(std::vector<host::JobAnalysis> analyses);
  /// Whether the analyses differ from those of the file.
  [[nodiscard]] bool IsModified() const { return m_bModified; }
  /// Whether somebody else has written the job file since it was read or saved.
  [[nodiscard]] bool IsChangedOnDisk() const;
  /// Writes the job; empty, or the reason why it was not written. Another file becomes the job's: its results are
  /// those beside it.
  [[nodiscard]] std::string Save(const QString& strFile);
  /// Changes that are not saved need not be.
  void Forget() { m_bModified = false; }

  // Results, read from the files beside the job when they are asked for; null where there are none that belong to it.

  [[nodiscard]] const host::StaticResultFile* GetStatic(bool bNonlinear);
  [[nodiscard]] const host::ModeResultFile* GetModes();
  [[nodiscard]] const host::SpectrumResultFile* GetSpectrum();
  /// Of the result file, or of the run of this session.
  [[nodiscard]] const HistorySet* GetHistories();
  /// Whether the file is there, or for histories a run of this session.
  [[nodiscard]] bool HasResult(host::ResultKind kind) const;
  /// Forces of a result, of a history those of the step; null where there are none.
  [[nodiscard]] const host::StructureForces* GetForces(host::ResultKind kind);
  /// Step of the histories that is looked at, from 0.
  [[nodiscard]] int GetStep() const { return m_nStep; }
  void SetStep(int nStep);
  /// Whether the result file comes from another model than the open one.
  [[nodiscard]] bool IsOutdated(std::string_view strSuffix) const;
  [[nodiscard]] bool HasOutdatedResults() const;
  /// Why the run that wrote the result file failed; null when it did not, or when that is not known.
  [[nodiscard]] const host::Advice* FindError(std::string_view strSuffix) const;
  /// The run that had these parameters and whose files are all there as it wrote them; null when there is none.
  [[nodiscard]] const host::ResultStamp* FindStamp(const host::JobAnalysis& analysis) const;
  [[nodiscard]] bool IsOutdated(const host::ResultStamp& stamp) const { return stamp.strModel != m_strModel; }
  [[nodiscard]] const host::CStamps& GetStamps() const { return m_stamps; }
  /// Looks at the files again.
  void RefreshResults();

  // Selection

  [[nodiscard]] const Selection& GetSelection() const { return m_selection; }
  void Select(Selection selection);

  // Language

  void SetLanguage(host::Language language);
  /// Says something now, and again in the other language when it changes.
  void OnLanguage(const std::function<void()>& speak);

  // Notices

  CNotice jobOpened;        ///< another job, or the same file read again
  CNotice analysesChanged;  ///< or whether they are saved
  CNotice resultsChanged;
  CNotice stepChanged;
  CNotice selectionChanged;

 private:
  template <class File>
  using Kept = std::optional<host::Reading<File>>;
  template <class File, class Reader>
  const File* Get(Kept<File>& kept, std::string_view strSuffix, Reader reader);

  [[nodiscard]] host::Reading<host::StructureForces> FormForces(host::ResultKind kind);
  void ForgetResults();

  QString m_strFile;
  std::optional<std::string> m_onDisk;  ///< text of the job file as it was read or saved
  std::optional<host::CSession> m_session;
  std::vector<host::JobProblem> m_warnings;
  bool m_bModified = false;

  std::string m_strModel;  ///< mark of the open job's
  host::CStamps m_stamps;
  Kept<host::StaticResultFile> m_linear;
  Kept<host::StaticResultFile> m_nonlinear;
  Kept<host::ModeResultFile> m_modes;
  Kept<host::SpectrumResultFile> m_spectrum;
  Kept<HistorySet> m_histories;
  std::array<Kept<host::StructureForces>, host::c_resultKinds.size()> m_forces;  ///< by host::ResultKind

  int m_nStep = 0;
  Selection m_selection;
  CNotice m_languageChanged;
};

}  // namespace skyframe::gui
