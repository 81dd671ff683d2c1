#pragma once

#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "skyframe/job/JobFile.h"
#include "skyframe/job/Language.h"

namespace CLI {
class App;
}

namespace skyframe {
class COutputFile;
}

namespace skyframe::host {

/// Where a command works.
struct CommandContext {
  std::ostream& out;
  std::ostream& err;
  std::filesystem::path program = {};  ///< to be started again for one job of many; empty: that is not possible
};

/// A command of the program: its options, and what it does with them. Made for one call of the program.
class CCommand {
 public:
  CCommand(const CCommand&) = delete;
  CCommand& operator=(const CCommand&) = delete;
  virtual ~CCommand() = default;

  /// Adds the command and its options to the program; pChosen becomes the command when the arguments ask for it.
  void AddTo(CLI::App& program, CCommand*& pChosen);

  /// Exit status; the options are set.
  [[nodiscard]] virtual int Run() = 0;

 protected:
  CCommand(std::string strName, std::string_view strHelp, const CommandContext& context)
      : m_out(context.out),
        m_err(context.err),
        m_program(context.program),
        m_strName(std::move(strName)),
        m_strHelp(strHelp) {}

  /// The options of the command. They stand in the object's members.
  virtual void Define(CLI::App& app) = 0;

  /// The text of an option.
  [[nodiscard]] static std::string Help(const Words& words) { return std::string(Say(words)); }

  void AddJobFile(CLI::App& app);
  void AddJobFile(CLI::App& app, const std::string& strHelp);

  /// Nothing when the job file has errors; they are then listed.
  [[nodiscard]] std::optional<Job> LoadJob() { return LoadJob(m_strJobFile); }
  [[nodiscard]] std::optional<Job> LoadJob(const std::string& strJobFile);

  /// Lists what a job file or a generated job has against it.
  void PrintProblems(const std::string& strFile, const std::vector<JobProblem>& problems, std::string_view strKind);

  /// Warns of results beside the job that come from another model.
  void WarnOfAge(const Job& job, const std::string& strJobFile);

  /// Writes the text to the output file, to the standard output when there is none.
  [[nodiscard]] int Deliver(const std::string& strOutput, const std::string& strText);
  [[nodiscard]] int Save(const std::string& strOutput, const std::string& strText);

  /// Whether an output would take the place of the job file, of a result or of an input beside it.
  [[nodiscard]] static bool IsJobFile(const std::string& strOutput, const std::string& strJobFile);

  /// Also through links and other spellings; the files need not be there.
  [[nodiscard]] static bool IsSameFile(const std::string& strOne, const std::string& strOther);

  [[nodiscard]] int RefuseJobFile(const std::string& strOutput);
  int RefuseToWrite(const COutputFile& file);
  [[nodiscard]] int Refuse(std::string_view strReason);

  std::ostream& m_out;
  std::ostream& m_err;
  const std::filesystem::path m_program;
  std::string m_strJobFile;
  bool m_bInputWarned = false;  ///< a job file that was loaded has warnings

 private:
  std::string m_strName;
  std::string m_strHelp;
};

}  // namespace skyframe::host
