#include "skyframe/cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <new>
#include <sstream>
#include <system_error>

#include "Commands.h"
#include "skyframe/job/Text.h"

namespace skyframe::host {

namespace {

using CommandMaker = std::unique_ptr<CCommand> (*)(const CommandContext& context);

/// In the order of the help text.
constexpr CommandMaker c_commands[] = {MakeRunCommand,   MakeCheckCommand,    MakePlotCommand,
                                       MakeTableCommand, MakeGenerateCommand, MakeSchemaCommand};

class CCommandLine {
 public:
  explicit CCommandLine(const CommandContext& context) : m_out(context.out), m_err(context.err) {
    m_app.set_version_flag("--version", SKYFRAME_VERSION);
    m_app.require_subcommand(1);
    for (const CommandMaker maker : c_commands) {
      m_commands.push_back(maker(context));
      m_commands.back()->AddTo(m_app, m_pChosen);
    }
  }

  int Run(std::vector<std::string> arguments) {
    // The parser would look at it for ever.
    if (std::ranges::find(arguments, "") != arguments.end()) {
      m_err << "an argument is empty\n";
      return c_nExitBadInput;
    }
    std::reverse(arguments.begin(), arguments.end());  // as the parser wants it
    try {
      m_app.parse(arguments);
    } catch (const CLI::ParseError& error) {
      std::ostringstream message;  // repeats arguments
      const bool bAsked = m_app.exit(error, m_out, message) == 0;
      m_err << EscapeLines(message.str());
      return bAsked ? c_nExitGood : c_nExitBadInput;
    }
    return m_pChosen->Run();
  }

 private:
  CLI::App m_app{"Dynamic and static analysis of space frames and trusses", "skyframe"};
  std::vector<std::unique_ptr<CCommand>> m_commands;
  CCommand* m_pChosen = nullptr;
  std::ostream& m_out;
  std::ostream& m_err;
};

/// Whether all output has left the program; says so when not.
bool IsWritten(std::ostream& out, std::ostream& err) {
  errno = 0;
  if (out.flush()) return true;
  err << "cannot write the standard output";
  if (errno != 0) err << ": " << std::generic_category().message(errno);
  err << '\n';
  return false;
}

}  // namespace

int RunCommandLine(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err,
                   const std::filesystem::path& program) {
  try {
    const int nStatus = CCommandLine({out, err, program}).Run(arguments);
    return IsWritten(out, err) || nStatus != c_nExitGood ? nStatus : c_nExitAnalysisFailed;
  } catch (const std::bad_alloc&) {
    err << "out of memory\n";
    return c_nExitAnalysisFailed;
  }
}

}  // namespace skyframe::host
