#include "HelpFormatter.h"

#include <set>
#include <sstream>
#include <utility>

#include "skyframe/job/Text.h"
#include "texts.h"

namespace skyframe::host {

namespace {

/// The keys of "{X->0,Y->1}", or the members of "{a,b}", with bars between; empty when there are no braces.
std::string ListChoices(const std::string& strType) {
  const std::size_t nOpen = strType.find('{');
  if (nOpen == std::string::npos) return {};
  std::istringstream members(strType.substr(nOpen + 1, strType.find('}', nOpen) - nOpen - 1));
  std::string strChoices;
  for (std::string strMember; std::getline(members, strMember, ',');) {
    strChoices += (strChoices.empty() ? "" : "|") + strMember.substr(0, strMember.find("->"));
  }
  return strChoices;
}

/// What an option takes: its choices, or a kind of value without what checks it.
std::string NameType(const std::string& strType) {
  std::string strChoices = ListChoices(strType);
  if (!strChoices.empty()) return strChoices;
  const std::size_t nColon = strType.find(':');
  const bool bNames = nColon != std::string::npos && strType.find('|', nColon) != std::string::npos;
  if (bNames) return strType.substr(nColon + 1);
  const std::string strName = strType.substr(0, nColon);
  if (strName == "FILE") return std::string(Say(texts::c_fileKind));
  if (strName == "INT") return std::string(Say(texts::c_countKind));
  if (strName == "FLOAT") return std::string(Say(texts::c_numberKind));
  return strName == "TEXT" ? std::string(Say(texts::c_textKind)) : strName;
}

std::string ListNames(const std::set<CLI::Option*>& options) {
  std::string strNames;
  for (const CLI::Option* const p : options) strNames += (strNames.empty() ? "" : ", ") + p->get_name();
  return strNames;
}

}  // namespace

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
  if (pOption->get_type_size() == 0) return {};
  const bool bMany = pOption->get_expected_max() == CLI::detail::expected_max_vector_size;
  return " " + NameType(pOption->get_type_name()) + (bMany ? " ..." : "");
}

std::string CHelpFormatter::make_option_desc(const CLI::Option* pOption) const {
  std::string strNotes;
  const auto add = [&strNotes](const std::string& strNote) {
    strNotes += std::string(strNotes.empty() ? "" : Say(texts::c_betweenNotes)) + strNote;
  };
  if (pOption->get_required()) add(std::string(Say(texts::c_isRequired)));
  if (!pOption->get_default_str().empty()) add(Say(texts::c_byDefault, {pOption->get_default_str()}));
  if (!pOption->get_needs().empty()) add(Say(texts::c_goesWith, {ListNames(pOption->get_needs())}));
  if (!pOption->get_excludes().empty()) add(Say(texts::c_goesNotWith, {ListNames(pOption->get_excludes())}));
  const std::string& strMeaning = pOption->get_description();
  return strNotes.empty() ? strMeaning : Say(texts::c_withNotes, {strMeaning, strNotes});
}

std::string FormatParseError(const CLI::App* /*pApp*/, const CLI::Error& error) {
  const std::string strReason = SayForeign(error.what(), texts::c_parserErrors, texts::c_parserTypes);
  return strReason + "\n" + std::string(Say(texts::c_moreHelp)) + "\n";
}

}  // namespace skyframe::host
