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
    const std::string strLanguage(c_strLanguages[static_cast<std::size_t>(GetLanguage())]);
    const std::vector<std::string> options = {"run",       "--quiet", "--strict",      "--lang",
                                              strLanguage, "--data",  m_strProgramPath};
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
