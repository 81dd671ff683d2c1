#include "HelpFormat.h"

#include <set>

#include "skyframe/job/Language.h"

namespace skyframe::host {

namespace {

namespace texts {

constexpr Words c_required = {"required", "必需"};
constexpr Words c_default = {"default {0}", "缺省 {0}"};
constexpr Words c_needs = {"with {0}", "与 {0} 同用"};
constexpr Words c_excludes = {"not with {0}", "不与 {0} 同用"};

}  // namespace texts

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

/// What an option takes, without what checks it.
std::string NameType(const std::string& strType) {
  const std::string strChoices = ListChoices(strType);
  if (!strChoices.empty()) return strChoices;
  const std::string strName = strType.substr(0, strType.find(':'));
  return strName == "INT" ? "N" : strName == "FLOAT" ? "NUMBER" : strName;
}

std::string ListNames(const std::set<CLI::Option*>& options) {
  std::string strNames;
  for (const CLI::Option* const p : options) strNames += (strNames.empty() ? "" : ", ") + p->get_name();
  return strNames;
}

}  // namespace

std::string CHelpFormat::make_option_opts(const CLI::Option* pOption) const {
  if (pOption->get_type_size() == 0) return {};
  const bool bMany = pOption->get_expected_max() == CLI::detail::expected_max_vector_size;
  return " " + NameType(pOption->get_type_name()) + (bMany ? " ..." : "");
}

std::string CHelpFormat::make_option_desc(const CLI::Option* pOption) const {
  std::string strNotes;
  const auto add = [&strNotes](const std::string& strNote) { strNotes += (strNotes.empty() ? "" : "; ") + strNote; };
  if (pOption->get_required()) add(std::string(Say(texts::c_required)));
  if (!pOption->get_default_str().empty()) add(Say(texts::c_default, {pOption->get_default_str()}));
  if (!pOption->get_needs().empty()) add(Say(texts::c_needs, {ListNames(pOption->get_needs())}));
  if (!pOption->get_excludes().empty()) add(Say(texts::c_excludes, {ListNames(pOption->get_excludes())}));
  const std::string strMeaning = pOption->get_description();
  return strNotes.empty() ? strMeaning : strMeaning + " (" + strNotes + ")";
}

}  // namespace skyframe::host
