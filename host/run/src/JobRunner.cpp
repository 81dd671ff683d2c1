#include "skyframe/run/JobRunner.h"

#include "skyframe/job/DialogFields.h"
#include "skyframe/job/Text.h"
#include "skyframe/run/PlatformScope.h"
#include "skyframe/run/PrefillPlatform.h"
#include "skyframe/run/RunReport.h"

namespace skyframe::host {

namespace {

std::string_view GetName(const StaticJob& analysis) {
  return *WithDefaults(analysis).bNonlinear ? "Static analysis, nonlinear" : "Static analysis, linear";
}
std::string_view GetName(const ModalJob&) { return "Modal analysis"; }
std::string_view GetName(const SpectrumJob&) { return "Response-spectrum analysis"; }
std::string_view GetName(const WilsonJob&) { return "Time history, Wilson"; }
std::string_view GetName(const NewmarkJob&) { return "Time history, Newmark"; }

/// Whether a count of the modes is wanted.
bool IsCountWanted(const JobAnalysis& analysis) {
  const auto* pModal = std::get_if<ModalJob>(&analysis);
  return pModal != nullptr && *WithDefaults(*pModal).bVerify;
}

/// Runs analyses of a session and tells of each.
class CJobRunner {
 public:
  CJobRunner(CSession& session, const HostStreams& streams, RunOutcome& outcome)
      : m_session(session), m_streams(streams), m_outcome(outcome) {}

  /// Nobody sits there: the values are the job's.
  void Run(const JobAnalysis& analysis) {
    CPlatformScope scope(m_streams.err, m_streams.console, m_streams.pProgress);
    CHostPlatform& platform = scope.Get();
    PrintName(analysis);
    m_session.Run(analysis, platform);
    m_streams.console.flush();
    Conclude(analysis, PrintErrors(platform) && !platform.HasUnusedScripts());
  }

  /// The values are those that a person confirmed, known only afterwards.
  void Run(const JobAnalysis& analysis, IPlatform& windows) {
    CPrefillPlatform platform(windows, m_streams.console);
    const CInstalledPlatform installed(platform);
    const RunFindings& findings = m_session.Run(analysis, platform);
    m_streams.console.flush();
    PrintName(platform.GetConfirmed().value_or(analysis));
    if (findings.status == RunStatus::Cancelled) m_streams.out << "  cancelled in its dialogs\n";
    Conclude(analysis, PrintErrors(platform));
  }

 private:
  void PrintName(const JobAnalysis& analysis) {
    m_streams.out << std::visit([](const auto& parameters) { return GetName(parameters); }, analysis) << '\n';
  }

  /// True when there is none.
  bool PrintErrors(const CHostPlatform& platform) {
    for (const std::string& strError : platform.GetScriptErrors()) m_streams.err << strError << '\n';
    return platform.GetScriptErrors().empty();
  }

  void Conclude(const JobAnalysis& analysis, bool bCalm) {
    const AnalysisKind kind = GetKind(analysis);
    const RunFindings& findings = GetFindings(kind);
    RunReport report = ReportRun(m_session, kind, IsCountWanted(analysis));
    m_streams.out << report.strSummary;
    for (const Advice& advice : AdviseOnFiles(findings)) m_streams.err << EscapeControls(advice.strText) << '\n';
    const bool bGood =
        findings.status == RunStatus::Done && bCalm && !HasError(report.advice) && findings.failures.empty();
    m_outcome.bGood = m_outcome.bGood && bGood;
    m_outcome.bWarned = m_outcome.bWarned || !report.advice.empty();
    m_outcome.advice.push_back(std::move(report.advice));
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
    streams.err << "the path of the job file is too long\n";
    outcome.bGood = false;
    return outcome;
  }
  CJobRunner runner(*session, streams, outcome);
  for (const JobAnalysis& analysis : job.analyses) {
    pWindows == nullptr ? runner.Run(analysis) : runner.Run(analysis, *pWindows);
  }
  if (!job.HasConsecutiveIds()) {
    streams.out << "Result files number the nodes in the order of the job file; this summary uses their ids.\n";
  }
  return outcome;
}

}  // namespace skyframe::host
