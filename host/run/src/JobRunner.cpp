#include "skyframe/run/JobRunner.h"

#include "skyframe/job/Text.h"
#include "skyframe/run/AnalysisRun.h"
#include "texts.h"

namespace skyframe::host {

namespace {

/// Runs analyses of a session and tells of each.
class CJobRunner {
 public:
  CJobRunner(CSession& session, const HostStreams& streams, RunOutcome& outcome)
      : m_session(session), m_streams(streams), m_outcome(outcome) {}

  void Run(const JobAnalysis& analysis) {
    m_streams.out << GetName(analysis) << '\n';
    CHostPlatform platform(m_streams.err, m_streams.console, m_streams.pProgress);
    Conclude(analysis, RunScripted(m_session, analysis, platform));
  }

  /// The values are those that a person confirmed, known only afterwards.
  void Run(const JobAnalysis& analysis, IPlatform& windows) {
    AnalysisRun run = RunInDialogs(m_session, GetKind(analysis), &analysis, windows, m_streams.console);
    m_streams.out << GetName(run.analysis.value_or(analysis)) << '\n';
    const bool bCancelled = GetFindings(GetKind(analysis)).status == RunStatus::Cancelled;
    if (bCancelled) m_streams.out << "  " << Say(texts::c_cancelled) << '\n';
    Conclude(analysis, run);
  }

 private:
  void Conclude(const JobAnalysis& analysis, const AnalysisRun& run) {
    m_streams.console.flush();
    for (const std::string& strError : run.errors) {
      m_streams.err << SayForeign(strError, texts::c_dialogErrors, texts::c_dialogReasons) << '\n';
    }
    m_streams.out << run.report.GetSummary();
    for (const Advice& advice : AdviseOnFiles(GetFindings(GetKind(analysis)))) {
      m_streams.err << EscapeControls(advice.strText) << '\n';
    }
    m_outcome.bGood = m_outcome.bGood && run.bGood;
    m_outcome.bWarned = m_outcome.bWarned || !run.report.GetAdvice().empty();
    m_outcome.advice.push_back(run.report.GetAdvice());
  }

  CSession& m_session;
  const HostStreams& m_streams;
  RunOutcome& m_outcome;
};

}  // namespace

RunOutcome RunJob(const Job& job, const std::string& strJobPath, const std::string& strProgramPath,
                  const HostStreams& streams, IPlatform* pWindows) {
  RunOutcome outcome;
  std::optional<CSession> session = CSession::Open(job, strJobPath, strProgramPath);
  if (!session) {
    streams.err << Say(texts::c_pathTooLong) << '\n';
    outcome.bGood = false;
    return outcome;
  }
  CJobRunner runner(*session, streams, outcome);
  for (const JobAnalysis& analysis : job.analyses) {
    pWindows == nullptr ? runner.Run(analysis) : runner.Run(analysis, *pWindows);
  }
  if (!job.HasConsecutiveIds()) streams.out << Say(texts::c_otherNumbers) << '\n';
  return outcome;
}

}  // namespace skyframe::host
