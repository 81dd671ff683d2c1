#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <map>
#include <set>
#include <system_error>
#include <thread>

#include "Commands.h"
#include "ManyJobs.h"
#include "NullBuffer.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/job/Language.h"
#include "skyframe/job/Text.h"
#include "skyframe/platform/ChildProcesses.h"
#include "skyframe/platform/OutputFile.h"
#include "skyframe/run/DataDirectory.h"
#include "skyframe/run/JobRunner.h"
#include "texts.h"

namespace skyframe::host {

namespace {

class CRunCommand final : public CCommand {
 public:
  explicit CRunCommand(const CommandContext& context) : CCommand("run", Say(texts::c_run), context) {}

  int Run() override { return m_jobFiles.size() == 1 ? RunOne() : RunMany(); }

 private:
  void Define(CLI::App& app) override {
    app.add_option("job", m_jobFiles, Help(texts::c_jobFiles))->required();
    CLI::Option* pLog = app.add_option("--log", m_strLogFile, Help(texts::c_log));
    app.add_flag("--quiet", m_bQuiet, Help(texts::c_quiet))->excludes(pLog);
    app.add_flag("--strict", m_bStrict, Help(texts::c_strict));
    app.add_flag("--dialogs", m_bDialogs, Help(texts::c_dialogs));
    app.add_option("--data", m_strProgramPath, Help(texts::c_data))->capture_default_str();
    app.add_option("--jobs", m_nAtOnce, Help(texts::c_atOnce))->check(CLI::Range(1, CChildProcesses::c_nMostProcesses));
  }

  int RunOne() {
    m_strJobFile = m_jobFiles.front();
    if (IsJobFile(m_strLogFile, m_strJobFile)) return RefuseJobFile(m_strLogFile);
    const std::optional<Job> job = LoadJob();
    if (!job) return c_nExitBadInput;
    const std::unique_ptr<IPlatform> pWindows = m_bDialogs ? OpenWindows() : nullptr;
    if (m_bDialogs && pWindows == nullptr) return Refuse(Say(texts::c_noWindows));
    if (m_bQuiet) {
      CNullBuffer nothing;
      std::ostream console(&nothing);
      return RunAnalyses(*job, console, pWindows.get());
    }
    if (m_strLogFile.empty()) return RunAnalyses(*job, m_out, pWindows.get());
    COutputFile log(m_strLogFile, OutputPlace::FileOrDevice);
    if (!log.IsOpen()) return RefuseToWrite(log);
    const int nStatus = RunAnalyses(*job, log.GetStream(), pWindows.get());
    if (log.Commit()) return nStatus;
    RefuseToWrite(log);
    return c_nExitAnalysisFailed;
  }

  int RunMany() {
    if (m_bDialogs) return Refuse(Say(texts::c_oneJob, {"--dialogs"}));
    if (!m_strLogFile.empty()) return Refuse(Say(texts::c_oneJob, {"--log"}));
    if (m_program.empty()) return Refuse(Say(texts::c_noProgram));
    if (const std::string strClash = FindClash(); !strClash.empty()) return Refuse(strClash);
    const int nProcessors = static_cast<int>(std::thread::hardware_concurrency());
    const int nAtOnce = m_nAtOnce > 0 ? m_nAtOnce : std::clamp(nProcessors, 1, CChildProcesses::c_nMostProcesses);
    const std::string strLanguage(c_strLanguages[static_cast<std::size_t>(GetLanguage())]);
    const std::vector<std::string> options = {"run",       "--quiet", "--strict",      "--lang",
                                              strLanguage, "--data",  m_strProgramPath};
    const int nStatus = RunManyJobs({m_program, options, m_jobFiles, nAtOnce}, m_out);
    return nStatus == c_nExitWarned && !m_bStrict ? c_nExitGood : nStatus;
  }

  /// Why the jobs cannot run side by side: one job under two names, two files whose names differ in the ending alone, a
  /// log in the place of a job file. Empty when they can.
  [[nodiscard]] std::string FindClash() const {
    std::map<std::string, std::string> results, files;  // job files by places
    std::set<std::string> places;
    for (const std::string& strFile : m_jobFiles) {
      const std::string strPlace = FindPlace(strFile);
      if (strPlace.empty()) continue;  // its own run tells why
      const auto [itResult, bNewResult] = results.emplace(FindPlace(GetJobPath(strFile)), strFile);
      if (!bNewResult) return Say(texts::c_sameResults, {itResult->second, strFile});
      const auto [itFile, bNewFile] = files.emplace(FindFolder(strFile) + '\n' + strPlace, strFile);
      if (!bNewFile) return Say(texts::c_sameResults, {itFile->second, strFile});
      places.insert(strPlace);
    }
    for (const std::string& strFile : m_jobFiles) {
      const std::string strLog = GetRunLog(strFile);
      if (places.contains(FindPlace(strLog))) return Say(texts::c_belongsToJob, {strLog});
    }
    return {};
  }

  static std::string FindFolder(const std::string& strFile) {
    std::error_code error;
    return FindPlace(FromFilePath(std::filesystem::absolute(ToFilePath(strFile), error).parent_path()));
  }

  int RunAnalyses(const Job& job, std::ostream& console, IPlatform* pWindows) {
    const bool bTerminal = &m_err == &std::cerr && IsErrorTerminal();
    const HostStreams streams{m_out, m_err, console, bTerminal ? &m_err : nullptr};
    if (!job.strTitle.empty()) m_out << EscapeControls(job.strTitle) << '\n';
    const RunOutcome outcome = RunJob(job, GetJobPath(m_strJobFile), m_strProgramPath, streams, pWindows);
    if (!outcome.bGood) return c_nExitAnalysisFailed;
    return m_bStrict && (outcome.bWarned || m_bInputWarned) ? c_nExitWarned : c_nExitGood;
  }

  std::vector<std::string> m_jobFiles;
  std::string m_strLogFile;
  std::string m_strProgramPath = FindDataDirectory();
  bool m_bDialogs = false;
  bool m_bStrict = false;
  bool m_bQuiet = false;
  int m_nAtOnce = 0;  ///< 0: one a processor
};

}  // namespace

std::unique_ptr<CCommand> MakeRunCommand(const CommandContext& context) {
  return std::make_unique<CRunCommand>(context);
}

}  // namespace skyframe::host
