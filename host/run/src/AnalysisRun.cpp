#include "skyframe/run/AnalysisRun.h"

#include "skyframe/job/DialogFields.h"
#include "skyframe/job/Text.h"
#include "skyframe/results/ResultKind.h"
#include "skyframe/run/PlatformScope.h"
#include "skyframe/run/PrefillPlatform.h"
#include "skyframe/run/Stamps.h"
#include "texts.h"

namespace skyframe::host {

namespace {

struct NameOf {
  const Words& operator()(const StaticJob& analysis) const {
    return GetAnalysisName(*WithDefaults(analysis).bNonlinear ? ResultKind::Nonlinear : ResultKind::Linear);
  }
  const Words& operator()(const ModalJob&) const { return GetAnalysisName(ResultKind::Modes); }
  const Words& operator()(const SpectrumJob&) const { return GetAnalysisName(ResultKind::Spectrum); }
  const Words& operator()(const WilsonJob&) const { return texts::c_wilson; }
  const Words& operator()(const NewmarkJob&) const { return texts::c_newmark; }
};

/// Whether a count of the modes is wanted.
bool IsCountWanted(const JobAnalysis& analysis) {
  const auto* pModal = std::get_if<ModalJob>(&analysis);
  return pModal != nullptr && *WithDefaults(*pModal).bVerify;
}

/// What the dialogs have no control for stays as it was.
struct HiddenFields {
  void operator()(ModalJob& analysis, const ModalJob& former) const { analysis.bVerify = former.bVerify; }
  void operator()(SpectrumJob& analysis, const SpectrumJob& former) const {
    analysis.bVirtualMode = former.bVirtualMode;
    analysis.nPseudoLoad = former.nPseudoLoad;
  }
  template <class A, class B>
  void operator()(A& analysis, const B& former) const {
    if constexpr (requires { analysis.outputs = former.outputs; }) analysis.outputs = former.outputs;
  }
};

/// The histories that a job wants in files of their own; unseen, on a platform that runs scripts alone.
bool WriteOutputs(CSession& session, const JobAnalysis& analysis, CHostPlatform& platform) {
  if (GetFindings(GetKind(analysis)).status != RunStatus::Done) return true;
  return std::visit(
      [&](const auto& parameters) {
        if constexpr (requires { parameters.outputs; }) return session.WriteOutputs(parameters.outputs, platform);
        return true;
      },
      analysis);
}

/// Likewise between windows, which show what went wrong.
bool WriteOutputsUnseen(CSession& session, const JobAnalysis& analysis, IPlatform& windows, std::ostream& console) {
  CHostPlatform platform(console, console);
  const CInstalledPlatform installed(platform);
  const bool bWritten = WriteOutputs(session, analysis, platform);
  for (const std::string& strMessage : platform.GetMessages()) windows.ShowMessage(strMessage);
  return bWritten;
}

/// Without a stamp the results look as if they came from nowhere: a warning.
void Stamp(const CSession& session, const JobAnalysis& analysis, RunReport& report) {
  const std::string strReason = StampResults(session, analysis, report);
  if (strReason.empty()) return;
  for (const Language language : {Language::English, Language::Chinese}) {
    const CLanguageScope scope(language);
    const Advice advice{Severity::Warning, "unwritten-stamp", Say(texts::c_unwrittenStamp, {strReason})};
    const auto k = static_cast<std::size_t>(language);
    report.adviceIn[k].push_back(advice);
    report.summaryIn[k] += "  " + EscapeControls(FormatAdvice(advice)) + '\n';
  }
}

/// bCalm: every step of the dialogs was taken, and all outputs were written.
AnalysisRun Conclude(const CSession& session, AnalysisKind kind, std::optional<JobAnalysis> analysis,
                     const CHostPlatform& platform, bool bCalm) {
  const RunFindings& findings = GetFindings(kind);
  AnalysisRun run;
  run.analysis = std::move(analysis);
  run.errors = platform.GetScriptErrors();
  run.report = ReportRun(session, kind, !run.analysis || IsCountWanted(*run.analysis));
  run.bGood = findings.status == RunStatus::Done && bCalm && run.errors.empty() && findings.failures.empty() &&
              !HasError(run.report.GetAdvice());
  if (run.analysis) Stamp(session, *run.analysis, run.report);
  return run;
}

}  // namespace

std::string_view GetName(const JobAnalysis& analysis) { return Say(std::visit(NameOf{}, analysis)); }

AnalysisRun RunScripted(CSession& session, const JobAnalysis& analysis, CHostPlatform& platform) {
  const CInstalledPlatform installed(platform);
  session.Run(analysis, platform);
  const bool bCalm = !platform.HasUnusedScripts();
  const bool bWritten = WriteOutputs(session, analysis, platform);
  return Conclude(session, GetKind(analysis), analysis, platform, bCalm && bWritten);
}

AnalysisRun RunInDialogs(CSession& session, AnalysisKind kind, const JobAnalysis* pValues, IPlatform& windows,
                         std::ostream& console) {
  CPrefillPlatform platform(windows, console);
  const CInstalledPlatform installed(platform);
  pValues == nullptr ? session.Run(kind) : session.Run(*pValues, platform);
  std::optional<JobAnalysis> confirmed = platform.GetConfirmed();
  if (confirmed && pValues != nullptr) std::visit(HiddenFields{}, *confirmed, *pValues);
  if (!confirmed && pValues != nullptr) confirmed = *pValues;
  const bool bWritten = !confirmed || WriteOutputsUnseen(session, *confirmed, windows, console);
  return Conclude(session, kind, std::move(confirmed), platform, bWritten);
}

}  // namespace skyframe::host
