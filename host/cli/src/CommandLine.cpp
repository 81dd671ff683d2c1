#include "skyframe/cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <new>
#include <sstream>
#include <system_error>

#include "Commands.h"
#include "HelpFormatter.h"
#include "skyframe/advice/Advice.h"
#include "skyframe/job/Text.h"
#include "skyframe/platform/Platform.h"
#include "texts.h"

namespace skyframe::host {

namespace {

using CommandMaker = std::unique_ptr<CCommand> (*)(const CommandContext& context);

/// In the order of the help text.
constexpr CommandMaker c_commands[] = {MakeRunCommand,     MakeCheckCommand,  MakePlotCommand,     MakeTableCommand,
                                       MakeCompareCommand, MakeReportCommand, MakeGenerateCommand, MakeSchemaCommand};

/// What the arguments ask for, before they are parsed: the parser has texts, too. Else what the environment wants.
Language ChooseLanguage(const std::vector<std::string>& arguments) {
  constexpr std::string_view c_strOption = "--lang", c_strWithValue = "--lang=";
  std::string strLanguage = ReadVariable("SKYFRAME_LANG");
  for (std::size_t k = 0; k < arguments.size(); ++k) {
    if (arguments[k].starts_with(c_strWithValue)) strLanguage = arguments[k].substr(c_strWithValue.size());
    if (arguments[k] == c_strOption && k + 1 < arguments.size()) strLanguage = arguments[k + 1];
  }
  return strLanguage.starts_with("zh") ? Language::Chinese : Language::English;
}

class CCommandLine {
 public:
  explicit CCommandLine(const CommandContext& context) : m_out(context.out), m_err(context.err) {
    m_app.formatter(std::make_shared<CHelpFormatter>());
    m_app.failure_message(FormatParseError);
    m_app.set_help_flag("-h,--help", std::string(Say(texts::c_help)));
    m_app.set_version_flag("--version", SKYFRAME_VERSION, std::string(Say(texts::c_version)));
    m_app.add_option("--lang", m_strLanguage, std::string(Say(texts::c_language)))
        ->check(CLI::IsMember(std::vector<std::string>(std::begin(c_strLanguages), std::end(c_strLanguages))));
    m_app.fallthrough();  // the language behind a command, too
    m_app.require_subcommand(1);
    for (const CommandMaker maker : c_commands) {
      m_commands.push_back(maker(context));
      m_commands.back()->AddTo(m_app, m_pChosen);
    }
  }

  int Run(std::vector<std::string> arguments) {
    // The parser would look at it for ever.
    if (std::ranges::find(arguments, "") != arguments.end()) {
      m_err << Say(texts::c_emptyArgument) << '\n';
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
  CLI::App m_app{std::string(Say(texts::c_program)), "skyframe"};
  std::string m_strLanguage;  ///< in force already
  std::vector<std::unique_ptr<CCommand>> m_commands;
  CCommand* m_pChosen = nullptr;
  std::ostream& m_out;
  std::ostream& m_err;
};

/// Whether all output has left the program; says so when not.
bool IsWritten(std::ostream& out, std::ostream& err) {
  errno = 0;
  if (out.flush()) return true;
  const std::string strReason = errno == 0 ? std::string() : std::generic_category().message(errno);
  const std::string strPlace(Say(texts::c_standardOutput));
  err << (strReason.empty() ? std::string(Say(texts::c_outputLost)) : FormatFailure({strPlace, strReason})) << '\n';
  return false;
}

}  // namespace

int RunCommandLine(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err,
                   const std::filesystem::path& program) {
  const CLanguageScope scope(ChooseLanguage(arguments));
  try {
    const int nStatus = CCommandLine({out, err, program}).Run(arguments);
    return IsWritten(out, err) || nStatus != c_nExitGood ? nStatus : c_nExitAnalysisFailed;
  } catch (const std::bad_alloc&) {
    err << Say(texts::c_outOfMemory) << '\n';
    return c_nExitAnalysisFailed;
  }
}

}  // namespace skyframe::host
