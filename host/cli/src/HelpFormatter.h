#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace skyframe::host {

/// The parser's help texts in the language in force, in columns.
class CHelpFormatter final : public CLI::Formatter {
 public:
  std::string make_usage(const CLI::App* pApp, std::string strName) const override;
  std::string make_group(std::string strGroup, bool bPositional,
                         std::vector<const CLI::Option*> options) const override;
  std::string make_subcommands(const CLI::App* pApp, CLI::AppFormatMode mode) const override;
  std::string make_expanded(const CLI::App* pApp) const override;
  std::string make_option(const CLI::Option* pOption, bool bPositional) const override;
  std::string make_option_opts(const CLI::Option* pOption) const override;
  std::string make_option_desc(const CLI::Option* pOption) const override;
};

/// What is wrong with the arguments, in the language in force.
[[nodiscard]] std::string FormatParseError(const CLI::App* pApp, const CLI::Error& error);

}  // namespace skyframe::host
