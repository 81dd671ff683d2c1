#include "skyframe/run/JobRunner.h"

#include <cmath>
#include <filesystem>

#include "skyframe/connect/Findings.h"
#include "skyframe/connect/Histories.h"
#include "skyframe/connect/ModeConnect.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/job/Places.h"
#include "skyframe/job/Text.h"
#include "skyframe/report/HistoryReport.h"
#include "skyframe/report/ModalReport.h"
#include "skyframe/report/SpectrumReport.h"
#include "skyframe/report/StaticReport.h"
#include "skyframe/run/PlatformScope.h"
#include "skyframe/run/Records.h"
#include "skyframe/run/Scripts.h"

namespace skyframe::host {

namespace {

namespace fs = std::filesystem;

std::string_view GetName(const StaticJob& analysis) {
  const bool bNonlinear = analysis.bNonlinear.value_or(true);  // as the dialog has it
  return bNonlinear ? "Static analysis, nonlinear" : "Static analysis, linear";
}
std::string_view GetName(const ModalJob&) { return "Modal analysis"; }
std::string_view GetName(const SpectrumJob&) { return "Response-spectrum analysis"; }
std::string_view GetName(const WilsonJob&) { return "Time history, Wilson"; }
std::string_view GetName(const NewmarkJob&) { return "Time history, Newmark"; }

/// Runs the entry point of the analysis.
const RunFindings& CallEntryPoint(const StaticJob&) {
  CModeConnect::OnStaticNonlinearSol();
  return GetStaticFindings();
}
const RunFindings& CallEntryPoint(const ModalJob&) {
  CModeConnect::OnMode();
  return GetModalFindings();
}
const RunFindings& CallEntryPoint(const SpectrumJob& analysis) {
  COMDYN.m_bVirtualModes = analysis.bVirtualMode.value_or(false) ? 1 : 0;
  COMDYN.m_nPseudoLoadNo = analysis.nPseudoLoad.value_or(0);
  CModeConnect::OnAnsysSpectrum();
  return GetSpectrumFindings();
}
const RunFindings& CallTimeHistory() {
  CModeConnect::OnTimeHistoryAnalysis();
  return GetHistoryFindings();
}
const RunFindings& CallEntryPoint(const WilsonJob&) { return CallTimeHistory(); }
const RunFindings& CallEntryPoint(const NewmarkJob&) { return CallTimeHistory(); }

class CJobRunner {
 public:
  CJobRunner(const Job& job, const HostStreams& streams)
      : m_job(job), m_streams(streams), m_platform(streams.err, streams.console, streams.pProgress) {}

  /// False when the analysis has no result that can be used.
  bool Run(const JobAnalysis& analysis) {
    m_streams.out << std::visit([](const auto& parameters) { return GetName(parameters); }, analysis) << '\n';
    const RunFindings& findings = *std::visit([this](const auto& parameters) { return Call(parameters); }, analysis);
    const bool bCalm = ReportScriptErrors();
    m_advice.clear();
    if (findings.status != RunStatus::Done) m_streams.out << "  no result\n";
    std::visit([this](const auto& parameters) { Report(parameters); }, analysis);
    PrintConditioning(findings.conditioning);
    for (const Advice& advice : m_advice) m_streams.out << "  " << EscapeControls(FormatAdvice(advice)) << '\n';
    PrintFiles(findings);
    return findings.status == RunStatus::Done && bCalm && !HasError(m_advice) && findings.failures.empty();
  }

  [[nodiscard]] const AdviceList& GetAdvice() const { return m_advice; }

 private:
  template <class Parameters>
  const RunFindings* Call(const Parameters& parameters) {
    CHostPlatform& platform = m_platform.Get();
    platform.Clear();
    AddScripts(parameters, platform);
    const RunFindings& findings = CallEntryPoint(parameters);
    platform.EndProgress();
    m_streams.console.flush();
    return &findings;
  }

  bool ReportScriptErrors() {
    const CHostPlatform& platform = m_platform.Get();
    for (const std::string& strError : platform.GetScriptErrors()) m_streams.err << strError << '\n';
    return platform.GetScriptErrors().empty() && !platform.HasUnusedScripts();
  }

  void Report(const StaticJob&) {
    const StaticFindings& findings = GetStaticFindings();
    m_advice = AdviseOnStatic(m_job, findings);
    if (findings.status == RunStatus::Done) PrintStaticReport(m_job, findings, m_streams.out);
  }

  void Report(const ModalJob& analysis) {
    const ModalFindings& findings = GetModalFindings();
    m_advice = AdviseOnModes(m_job, findings);
    if (findings.status != RunStatus::Done) return;
    PrintModalReport(findings, m_streams.out);
    if (!analysis.bVerify.value_or(true)) return;
    const std::optional<ModeCount> count = CountModes(findings);
    PrintModeCount(count, m_streams.out);
    for (Advice& advice : AdviseOnCount(findings, count)) m_advice.push_back(std::move(advice));
  }

  void Report(const SpectrumJob&) {
    const SpectrumFindings& findings = GetSpectrumFindings();
    m_advice = AdviseOnSpectrum(m_job, findings);
    if (findings.status == RunStatus::Done) PrintSpectrumReport(m_job, findings, m_streams.out);
  }

  void ReportHistory() {
    const HistoryFindings& findings = GetHistoryFindings();
    m_advice = AdviseOnHistory(m_job, findings, GetHistories());
    if (findings.status == RunStatus::Done) PrintHistoryReport(m_job, GetHistories(), m_streams.out);
  }
  void Report(const WilsonJob&) { ReportHistory(); }
  void Report(const NewmarkJob&) { ReportHistory(); }

  void PrintConditioning(const Conditioning& conditioning) {
    if (conditioning.place.nNode == 0) return;
    const std::string strDigits =
        std::isfinite(conditioning.dLostDigits) ? Format("%.1f", conditioning.dLostDigits) : std::string("all");
    m_streams.out << "  conditioning          " << strDigits << " digits lost, at "
                  << DescribePlace(m_job, conditioning.place) << '\n';
  }

  void PrintFiles(const RunFindings& findings) {
    if (findings.status == RunStatus::Done)
      m_streams.out << Format("  time                  %.2f s\n", findings.dSeconds);
    for (const std::string& strPath : findings.files) {
      std::error_code error;
      m_streams.out << Format("  file                  %s, %ju bytes\n", EscapeControls(strPath).c_str(),
                              fs::file_size(strPath, error));
    }
    for (const Advice& advice : AdviseOnFiles(findings)) m_streams.err << EscapeControls(advice.strText) << '\n';
  }

  const Job& m_job;
  const HostStreams& m_streams;
  CPlatformScope m_platform;
  AdviceList m_advice;  ///< on the last run
};

}  // namespace

RunOutcome RunJob(const Job& job, const std::string& strJobPath, const std::string& strProgramPath,
                  const HostStreams& streams) {
  RunOutcome outcome;
  if (!FillRecords(job, strJobPath, strProgramPath)) {
    streams.err << "the path of the job file is too long\n";
    outcome.bGood = false;
    return outcome;
  }
  CJobRunner runner(job, streams);
  for (const JobAnalysis& analysis : job.analyses) {
    outcome.bGood = runner.Run(analysis) && outcome.bGood;
    outcome.bWarned = outcome.bWarned || !runner.GetAdvice().empty();
    outcome.advice.push_back(runner.GetAdvice());
  }
  if (!job.HasConsecutiveIds()) {
    streams.out << "Result files number the nodes in the order of the job file; this summary uses their ids.\n";
  }
  return outcome;
}

}  // namespace skyframe::host
