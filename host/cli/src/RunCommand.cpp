#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
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

namespace skyframe::host {

namespace {

namespace texts {

constexpr Words c_oneJob = {"{0}: belongs to a run of one job", "{0}：只能用于单个作业"};
constexpr Words c_noProgram = {"many jobs: the file of this program is not known", "多个作业：找不到本程序的文件"};
constexpr Words c_sameResults = {"{0} and {1}: have the same result files", "{0} 与 {1}：结果文件相同"};

}  // namespace texts

class CRunCommand final : public CCommand {
 public:
  explicit CRunCommand(const CommandContext& context)
      : CCommand("run", "Run every analysis of a job; results stand beside the job file", context) {}

  int Run() override { return m_jobFiles.size() == 1 ? RunOne() : RunMany(); }

 private:
  void Define(CLI::App& app) override {
    app.add_option("job", m_jobFiles, "Job file (JSON); of many, each runs in a process of its own")->required();
    CLI::Option* pLog =
        app.add_option("--log", m_strLogFile, "File for the progress and trace lines (default: standard output)");
    app.add_flag("--quiet", m_bQuiet, "No progress and trace lines")->excludes(pLog);
    app.add_flag("--strict", m_bStrict, "End with status 3 when there was a warning");
    app.add_flag("--dialogs", m_bDialogs, "Show the dialogs with the job's values, to be changed and confirmed");
    app.add_option("--data", m_strProgramPath, "Directory that holds GroundAccData")->capture_default_str();
    app.add_option("--jobs", m_nAtOnce, "Of many jobs, so many at once (default: one a processor)")
        ->check(CLI::Range(1, CChildProcesses::c_nMostProcesses));
  }

  int RunOne() {
    m_strJobFile = m_jobFiles.front();
    if (IsJobFile(m_strLogFile, m_strJobFile)) return RefuseJobFile(m_strLogFile);
    const std::optional<Job> job = LoadJob();
    if (!job) return c_nExitBadInput;
    const std::unique_ptr<IPlatform> pWindows = m_bDialogs ? OpenWindows() : nullptr;
    if (m_bDialogs && pWindows == nullptr) return Refuse("--dialogs: no screen, or no windows in this installation");
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
    if (m_program.empty()) return Refuse(std::string(Say(texts::c_noProgram)));
    for (std::size_t i = 0; i < m_jobFiles.size(); ++i) {
      const std::string strLog = GetRunLog(m_jobFiles[i]);
      for (std::size_t j = 0; j < m_jobFiles.size(); ++j) {
        if (IsSameFile(strLog, m_jobFiles[j])) return RefuseJobFile(strLog);
        if (j < i && HaveSameResults(m_jobFiles[j], m_jobFiles[i])) {
          return Refuse(Say(texts::c_sameResults, {m_jobFiles[j], m_jobFiles[i]}));
        }
      }
    }
    const int nProcessors = static_cast<int>(std::thread::hardware_concurrency());
    const int nAtOnce = m_nAtOnce > 0 ? m_nAtOnce : std::clamp(nProcessors, 1, CChildProcesses::c_nMostProcesses);
    const std::vector<std::string> options = {"run", "--quiet", "--strict", "--data", m_strProgramPath};
    const int nStatus = RunManyJobs({m_program, options, m_jobFiles, nAtOnce}, m_out);
    return nStatus == c_nExitWarned && !m_bStrict ? c_nExitGood : nStatus;
  }

  /// One job under two names, or two files whose names differ in the ending alone.
  static bool HaveSameResults(const std::string& strOne, const std::string& strOther) {
    const auto getFolder = [](const std::string& strFile) {
      return FromFilePath(std::filesystem::absolute(ToFilePath(strFile)).parent_path());
    };
    if (IsSameFile(GetJobPath(strOne), GetJobPath(strOther))) return true;
    return IsSameFile(strOne, strOther) && IsSameFile(getFolder(strOne), getFolder(strOther));
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
