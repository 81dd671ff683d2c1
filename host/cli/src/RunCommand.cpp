#include <CLI/CLI.hpp>
#include <iostream>

#include "Commands.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/job/Text.h"
#include "skyframe/platform/OutputFile.h"
#include "skyframe/run/DataDirectory.h"
#include "skyframe/run/JobRunner.h"

namespace skyframe::host {

namespace {

class CRunCommand final : public CCommand {
 public:
  explicit CRunCommand(const CommandContext& context)
      : CCommand("run", "Run every analysis of a job; results stand beside the job file", context) {}

  int Run() override {
    if (IsJobFile(m_strLogFile, m_strJobFile)) return RefuseJobFile(m_strLogFile);
    const std::optional<Job> job = LoadJob();
    if (!job) return c_nExitBadInput;
    const std::unique_ptr<IPlatform> pWindows = m_bDialogs ? OpenWindows() : nullptr;
    if (m_bDialogs && pWindows == nullptr) return Refuse("--dialogs: no screen, or no windows in this installation");
    if (m_strLogFile.empty()) return RunAnalyses(*job, m_out, pWindows.get());
    COutputFile log(m_strLogFile, OutputPlace::FileOrDevice);
    if (!log.IsOpen()) return RefuseToWrite(log);
    const int nStatus = RunAnalyses(*job, log.GetStream(), pWindows.get());
    if (log.Commit()) return nStatus;
    RefuseToWrite(log);
    return c_nExitAnalysisFailed;
  }

 private:
  void Define(CLI::App& app) override {
    AddJobFile(app);
    app.add_option("--log", m_strLogFile, "File for the progress and trace lines (default: standard output)");
    app.add_flag("--strict", m_bStrict, "End with status 3 when there was a warning");
    app.add_flag("--dialogs", m_bDialogs, "Show the dialogs with the job's values, to be changed and confirmed");
    app.add_option("--data", m_strProgramPath, "Directory that holds GroundAccData")->capture_default_str();
  }

  int RunAnalyses(const Job& job, std::ostream& console, IPlatform* pWindows) {
    const bool bTerminal = &m_err == &std::cerr && IsErrorTerminal();
    const HostStreams streams{m_out, m_err, console, bTerminal ? &m_err : nullptr};
    if (!job.strTitle.empty()) m_out << EscapeControls(job.strTitle) << '\n';
    const RunOutcome outcome = RunJob(job, GetJobPath(m_strJobFile), m_strProgramPath, streams, pWindows);
    if (!outcome.bGood) return c_nExitAnalysisFailed;
    return m_bStrict && (outcome.bWarned || m_bInputWarned) ? c_nExitWarned : c_nExitGood;
  }

  std::string m_strLogFile;
  std::string m_strProgramPath = FindDataDirectory();
  bool m_bDialogs = false;
  bool m_bStrict = false;
};

}  // namespace

std::unique_ptr<CCommand> MakeRunCommand(const CommandContext& context) {
  return std::make_unique<CRunCommand>(context);
}

}  // namespace skyframe::host
