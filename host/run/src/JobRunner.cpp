#include "skyframe/run/JobRunner.h"

#include "skyframe/job/DialogFields.h"
#include "skyframe/job/Text.h"
#include "skyframe/run/PlatformScope.h"
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

class CJobRunner {
 public:
  CJobRunner(CSession& session, const HostStreams& streams)
      : m_session(session), m_streams(streams), m_platform(streams.err, streams.console, streams.pProgress) {}

  void Run(const JobAnalysis& analysis, RunOutcome& outcome) {
    m_streams.out << std::visit([](const auto& parameters) { return GetName(parameters); }, analysis) << '\n';
    const RunFindings& findings = m_session.Run(analysis, m_platform.Get());
    m_streams.console.flush();
    const bool bCalm = ReportScriptErrors();
    RunReport report = ReportRun(m_session, GetKind(analysis), IsCountWanted(analysis));
    m_streams.out << report.strSummary;
    for (const Advice& advice : AdviseOnFiles(findings)) m_streams.err << EscapeControls(advice.strText) << '\n';
    const bool bGood =
        findings.status == RunStatus::Done && bCalm && !HasError(report.advice) && findings.failures.empty();
    outcome.bGood = outcome.bGood && bGood;
    outcome.bWarned = outcome.bWarned || !report.advice.empty();
    outcome.advice.push_back(std::move(report.advice));
  }

 private:
  bool ReportScriptErrors() {
    const CHostPlatform& platform = m_platform.Get();
    for (const std::string& strError : platform.GetScriptErrors()) m_streams.err << strError << '\n';
    return platform.GetScriptErrors().empty() && !platform.HasUnusedScripts();
  }

  CSession& m_session;
  const HostStreams& m_streams;
  CPlatformScope m_platform;
};

}  // namespace

RunOutcome RunJob(const Job& job, const std::string& strJobPath, const std::string& strProgramPath,
                  const HostStreams& streams) {
  RunOutcome outcome;
  std::optional<CSession> session = CSession::Open(job, strJobPath, strProgramPath);
  if (!session) {
    streams.err << "the path of the job file is too long\n";
    outcome.bGood = false;
    return outcome;
  }
  CJobRunner runner(*session, streams);
  for (const JobAnalysis& analysis : job.analyses) runner.Run(analysis, outcome);
  if (!job.HasConsecutiveIds()) {
    streams.out << "Result files number the nodes in the order of the job file; this summary uses their ids.\n";
  }
  return outcome;
}

}  // namespace skyframe::host
