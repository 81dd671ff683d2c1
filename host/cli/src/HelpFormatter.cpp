#include "HelpFormatter.h"

#include <utility>

#include "skyframe/job/Text.h"
#include "texts.h"

namespace skyframe::host {

std::string CHelpFormatter::make_usage(const CLI::App* pApp, std::string strName) const {
  return SayForeign(Formatter::make_usage(pApp, std::move(strName)), texts::c_helpParts);
}

std::string CHelpFormatter::make_group(std::string strGroup, bool bPositional,
                                       std::vector<const CLI::Option*> options) const {
  return SayForeign(Formatter::make_group(std::move(strGroup), bPositional, std::move(options)), texts::c_helpParts);
}

std::string CHelpFormatter::make_subcommands(const CLI::App* pApp, CLI::AppFormatMode mode) const {
  return SayForeign(Formatter::make_subcommands(pApp, mode), texts::c_helpParts);
}

std::string CHelpFormatter::make_expanded(const CLI::App* pApp) const {
  return SayForeign(Formatter::make_expanded(pApp), texts::c_helpParts);
}

std::string CHelpFormatter::make_option(const CLI::Option* pOption, bool bPositional) const {
  const auto nColumns = static_cast<int>(get_column_width());
  const std::string strName = "  " + make_option_name(pOption, bPositional) + make_option_opts(pOption);
  std::string strLine = PadRight(strName, nColumns);
  if (strLine == strName) strLine += "\n" + PadRight("", nColumns);
  return strLine + make_option_desc(pOption) + "\n";
}

std::string CHelpFormatter::make_option_opts(const CLI::Option* pOption) const {
  std::string strText = SayForeign(Formatter::make_option_opts(pOption), texts::c_optionParts, texts::c_optionParts);
  const std::string strKind = pOption->get_type_name();
  const std::size_t n = strText.find(strKind);
  return n == std::string::npos ? strText
                                : strText.replace(n, strKind.size(), SayForeign(strKind, texts::c_valueKinds));
}

std::string FormatParseError(const CLI::App* /*pApp*/, const CLI::Error& error) {
  const std::string strReason = SayForeign(error.what(), texts::c_parserErrors, texts::c_parserTypes);
  return strReason + "\n" + std::string(Say(texts::c_moreHelp)) + "\n";
}

}  // namespace skyframe::host
