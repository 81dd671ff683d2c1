#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace skyframe::host {

/// Help texts as a manual has them: "--dir X|Y|Z", and behind the meaning the default and what an option goes with.
class CHelpFormat final : public CLI::Formatter {
 public:
  CHelpFormat() { column_width(c_nColumn); }

  std::string make_option_opts(const CLI::Option* pOption) const override;
  std::string make_option_desc(const CLI::Option* pOption) const override;

 private:
  static constexpr std::size_t c_nColumn = 28;
};

}  // namespace skyframe::host
