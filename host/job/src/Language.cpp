#include "skyframe/job/Language.h"

#include <utility>

namespace skyframe::host {

namespace {

Language g_language = Language::English;

}  // namespace

Language GetLanguage() { return g_language; }

Language SetLanguage(Language language) { return std::exchange(g_language, language); }

std::string Say(const Words& words, std::initializer_list<std::string_view> values) {
  const std::string_view strPattern = Say(words);
  std::string strText;
  for (std::size_t k = 0; k < strPattern.size(); ++k) {
    const bool bPlace = strPattern[k] == '{' && k + 2 < strPattern.size() && strPattern[k + 2] == '}';
    const std::size_t nValue = bPlace ? static_cast<std::size_t>(strPattern[k + 1] - '0') : values.size();
    if (nValue >= values.size()) {
      strText += strPattern[k];
      continue;
    }
    strText += values.begin()[nValue];
    k += 2;
  }
  return strText;
}

}  // namespace skyframe::host
