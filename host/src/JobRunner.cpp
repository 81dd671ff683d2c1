#include "skyframe/host/JobRunner.h"

#include <chrono>
#include <filesystem>

#include "Format.h"
#include "HistoryReport.h"
#include "JsonText.h"
#include "ModalReport.h"
#include "PlatformScope.h"
#include "Records.h"
#include "SpectrumReport.h"
#include "StaticReport.h"
#include "skyframe/connect/Histories.h"
#include "skyframe/connect/ModeConnect.h"
#include "skyframe/host/Scripts.h"
#include "skyframe/hostdata/HostData.h"

namespace skyframe::host {

namespace {

namespace fs = std::filesystem;

/// How an analysis is called and what it leaves.
struct AnalysisKind {
  std::string_view strName;
  /// Suffixes of the result files. The first must be there after the run, and names no file when it is
  /// empty: the histories then stay in memory.
  std::vector<std::string_view> suffixes;
  void (*pEntryPoint)();
};

AnalysisKind GetKind(const StaticJob& analysis) {
  const bool bNonlinear = analysis.bNonlinear.value_or(true);  // as the dialog has it
  return {bNonlinear ? "Static analysis, nonlinear" : "Static analysis, linear",
          {bNonlinear ? "_StaticNonlinearSol.txt" : "_StaticLinearSol.txt"},
          CModeConnect::OnStaticNonlinearSol};
}

AnalysisKind GetKind(const ModalJob&) { return {"Modal analysis", {".mode"}, CModeConnect::OnMode}; }

AnalysisKind GetKind(const SpectrumJob& analysis) {
  COMDYN.m_bVirtualModes = analysis.bVirtualMode.value_or(false) ? 1 : 0;
  COMDYN.m_nPseudoLoadNo = analysis.nPseudoLoad.value_or(0);
  return {"Response-spectrum analysis", {".spec", "_VirtMode.spec", "VIRTRESP.log"}, [] {
            CModeConnect::OnAnsysSpectrum();
          }};
}

void RunTimeHistory() {
  COMDYN.m_bHistoryAvailable = 0;
  CModeConnect::OnTimeHistoryAnalysis();
}

AnalysisKind GetKind(const WilsonJob&) { return {"Time history, Wilson", {""}, RunTimeHistory}; }

AnalysisKind GetKind(const NewmarkJob& analysis) {
  if (analysis.HasGroundMotion()) return {"Time history, Newmark", {"_HisTime.txt"}, RunTimeHistory};
  return {"Time history, Newmark", {"", "_Loadinputtest.txt"}, RunTimeHistory};
}

/// File systems stamp with a clock that may lag a little.
bool IsWrittenSince(const std::string& strPath, fs::file_time_type start) {
  std::error_code error;
  const fs::file_time_type time = fs::last_write_time(fs::path(strPath), error);
  return !error && time >= start - std::chrono::milliseconds(100) && fs::file_size(fs::path(strPath), error) > 0;
}

class CJobRunner {
 public:
  CJobRunner(const Job& job, const std::string& strJobPath, const HostStreams& streams)
      : m_job(job),
        m_strJobPath(strJobPath),
        m_streams(streams),
        m_platform(streams.err, streams.console, streams.pProgress) {}

  bool Run(const JobAnalysis& analysis) {
    const AnalysisKind kind = std::visit([](const auto& parameters) { return GetKind(parameters); }, analysis);
    m_streams.out << kind.strName << '\n';
    const auto start = fs::file_time_type::clock::now();
    const bool bCalm = Call(analysis, kind);
    const bool bInMemory = kind.suffixes.front().empty();
    const bool bDone =
        bInMemory ? COMDYN.m_bHistoryAvailable != 0 : IsWrittenSince(FormPath(kind.suffixes.front()), start);
    if (!bCalm || !bDone) {
      m_streams.out << (bDone ? "  ended with a message\n" : "  no result\n");
      return false;
    }
    std::visit([this, &kind](const auto& parameters) { Report(parameters, kind); }, analysis);
    PrintTimeAndFiles(kind, start);
    return true;
  }

 private:
  /// False when something went wrong on the way.
  bool Call(const JobAnalysis& analysis, const AnalysisKind& kind) {
    CHostPlatform& platform = m_platform.Get();
    platform.StartRun();
    std::visit([&platform](const auto& parameters) { AddScripts(parameters, platform); }, analysis);
    kind.pEntryPoint();
    platform.EndProgress();
    m_streams.console.flush();
    for (const std::string& strError : platform.GetScriptErrors()) m_streams.err << strError << '\n';
    return platform.GetMessages().empty() && platform.GetScriptErrors().empty() && !platform.HasUnusedScripts();
  }

  [[nodiscard]] std::string FormPath(std::string_view strSuffix) const { return m_strJobPath + std::string(strSuffix); }

  void Report(const StaticJob& analysis, const AnalysisKind& kind) {
    PrintStaticReport(m_job, analysis, FormPath(kind.suffixes.front()), m_streams.out);
  }
  void Report(const ModalJob& analysis, const AnalysisKind&) {
    PrintModalReport(analysis, m_strJobPath, m_streams.out);
  }
  void Report(const SpectrumJob& analysis, const AnalysisKind&) {
    PrintSpectrumReport(m_job, analysis, m_strJobPath, m_streams.out);
  }
  void Report(const WilsonJob&, const AnalysisKind&) { PrintHistoryReport(m_job, GetHistories(), m_streams.out); }
  void Report(const NewmarkJob&, const AnalysisKind&) { PrintHistoryReport(m_job, GetHistories(), m_streams.out); }

  void PrintTimeAndFiles(const AnalysisKind& kind, fs::file_time_type start) {
    const std::string& strTime = m_platform.Get().GetElapsedTime();
    if (!strTime.empty()) m_streams.out << "  time                  " << strTime << '\n';
    for (const std::string_view strSuffix : kind.suffixes) {
      const std::string strPath = FormPath(strSuffix);
      if (strSuffix.empty() || !IsWrittenSince(strPath, start)) continue;
      m_streams.out << Format("  file                  %s, %ju bytes\n", EscapeControls(strPath).c_str(),
                              fs::file_size(fs::path(strPath)));
    }
  }

  const Job& m_job;
  const std::string& m_strJobPath;
  const HostStreams& m_streams;
  CPlatformScope m_platform;
};

}  // namespace

bool RunJob(const Job& job, const std::string& strJobPath, const std::string& strProgramPath,
            const HostStreams& streams) {
  if (!FillRecords(job, strJobPath, strProgramPath)) {
    streams.err << "the path of the job file is too long\n";
    return false;
  }
  CJobRunner runner(job, strJobPath, streams);
  bool bGood = true;
  for (const JobAnalysis& analysis : job.analyses) bGood = runner.Run(analysis) && bGood;
  if (!job.HasConsecutiveIds()) {
    streams.out << "Result files number the nodes in the order of the job file; this summary uses their ids.\n";
  }
  return bGood;
}

}  // namespace skyframe::host
