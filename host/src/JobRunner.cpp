#include "skyframe/host/JobRunner.h"

#include <algorithm>
#include <chrono>
#include <filesystem>

#include "Format.h"
#include "PlatformScope.h"
#include "Records.h"
#include "StaticReport.h"
#include "skyframe/connect/ModeConnect.h"
#include "skyframe/host/Scripts.h"
#include "skyframe/hostdata/HostData.h"

namespace skyframe::host {

namespace {

namespace fs = std::filesystem;

/// The one message that is no error starts so.
constexpr std::string_view c_strTimeReport = "OK!\nTime";

/// How an analysis is called and what it leaves.
struct AnalysisKind {
  std::string_view strName;
  std::string_view strSuffix;  ///< empty: no file, the histories stay in memory
  void (*pEntryPoint)();
};

AnalysisKind GetKind(const StaticJob& analysis) {
  const bool bNonlinear = analysis.bNonlinear.value_or(true);  // as the dialog has it
  return {bNonlinear ? "Static analysis, nonlinear" : "Static analysis, linear",
          bNonlinear ? "_StaticNonlinearSol.txt" : "_StaticLinearSol.txt", CModeConnect::OnStaticNonlinearSol};
}

AnalysisKind GetKind(const ModalJob&) { return {"Modal analysis", ".mode", CModeConnect::OnMode}; }

AnalysisKind GetKind(const SpectrumJob&) {
  return {"Response-spectrum analysis", ".spec", [] { CModeConnect::OnAnsysSpectrum(); }};
}

void RunTimeHistory() {
  COMDYN.m_bHistoryAvailable = 0;
  CModeConnect::OnTimeHistoryAnalysis();
}

AnalysisKind GetKind(const WilsonJob&) { return {"Time history, Wilson", "", RunTimeHistory}; }

AnalysisKind GetKind(const NewmarkJob& analysis) {
  return {"Time history, Newmark", analysis.HasGroundMotion() ? "_HisTime.txt" : "", RunTimeHistory};
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
      : m_job(job), m_strJobPath(strJobPath), m_streams(streams), m_platform(streams.err, streams.console) {}

  bool Run(const JobAnalysis& analysis) {
    const AnalysisKind kind = std::visit([](const auto& parameters) { return GetKind(parameters); }, analysis);
    const std::string strResult = m_strJobPath + std::string(kind.strSuffix);
    m_streams.out << kind.strName << '\n';
    const auto start = fs::file_time_type::clock::now();
    const bool bCalm = Call(analysis, kind);
    const bool bWritten = kind.strSuffix.empty() ? COMDYN.m_bHistoryAvailable != 0 : IsWrittenSince(strResult, start);
    if (!bCalm || !bWritten) {
      m_streams.out << (bWritten ? "  ended with a message\n" : "  no result\n");
      return false;
    }
    std::visit([this, &strResult](const auto& parameters) { Report(parameters, strResult); }, analysis);

    if (kind.strSuffix.empty()) return true;
    m_streams.out << Format("  file                  %s, %ju bytes\n", strResult.c_str(),
                            fs::file_size(fs::path(strResult)));
    return true;
  }

 private:
  /// False when something went wrong on the way.
  bool Call(const JobAnalysis& analysis, const AnalysisKind& kind) {
    CHeadlessPlatform& platform = m_platform.Get();
    platform.Clear();
    std::visit([&platform](const auto& parameters) { AddScripts(parameters, platform); }, analysis);
    kind.pEntryPoint();
    m_streams.console.flush();
    for (const std::string& strError : platform.GetScriptErrors()) m_streams.err << strError << '\n';
    const auto IsError = [](const std::string& strText) { return !strText.starts_with(c_strTimeReport); };
    const auto& messages = platform.GetMessages();
    return std::none_of(messages.begin(), messages.end(), IsError) && platform.GetScriptErrors().empty() &&
           !platform.HasUnusedScripts();
  }

  void Report(const StaticJob& analysis, const std::string& strResult) {
    PrintStaticReport(m_job, analysis, strResult, m_streams.out);
  }
  template <class Parameters>
  void Report(const Parameters&, const std::string&) {}

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
