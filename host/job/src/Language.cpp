#include "skyframe/job/Language.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace skyframe::host {

namespace {

Language g_language = Language::English;

constexpr std::size_t c_nPlaceLength = 3;  // {0}
constexpr std::size_t c_nPlaces = 10;      // digits
using Values = std::array<std::string, c_nPlaces>;

/// Number of the place with which the pattern begins.
std::optional<std::size_t> GetPlace(std::string_view strPattern) {
  if (strPattern.size() < c_nPlaceLength || strPattern[0] != '{' || strPattern[2] != '}') return std::nullopt;
  const char cDigit = strPattern[1];
  return cDigit >= '0' && cDigit <= '9' ? std::optional(static_cast<std::size_t>(cDigit - '0')) : std::nullopt;
}

std::string Fill(std::string_view strPattern, std::span<const std::string_view> values) {
  std::string strText;
  while (!strPattern.empty()) {
    const std::optional<std::size_t> place = GetPlace(strPattern);
    const bool bFilled = place && *place < values.size();
    strText += bFilled ? values[*place] : strPattern.substr(0, 1);
    strPattern.remove_prefix(bFilled ? c_nPlaceLength : 1);
  }
  return strText;
}

/// What the text has at the places of the pattern; a place ends where the letters behind it come first.
std::optional<Values> Match(std::string_view strPattern, std::string_view strText) {
  Values values;
  while (!strPattern.empty()) {
    if (const std::optional<std::size_t> place = GetPlace(strPattern)) {
      strPattern.remove_prefix(c_nPlaceLength);
      const std::string_view strBehind = strPattern.substr(0, strPattern.find('{'));
      const std::size_t nEnd = strPattern.empty() ? strText.size() : strText.find(strBehind);
      if (nEnd == std::string_view::npos) return std::nullopt;
      values[*place] = strText.substr(0, nEnd);
      strText.remove_prefix(nEnd);
    } else if (strText.starts_with(strPattern[0])) {
      strPattern.remove_prefix(1);
      strText.remove_prefix(1);
    } else {
      return std::nullopt;
    }
  }
  return strText.empty() ? std::optional(values) : std::nullopt;
}

}  // namespace

Language GetLanguage() { return g_language; }

Language SetLanguage(Language language) { return std::exchange(g_language, language); }

std::string Say(const Words& words, std::initializer_list<std::string_view> values) {
  return Fill(Say(words), std::span(values.begin(), values.size()));
}

std::string SayForeign(std::string_view strText, std::span<const Words> words, std::span<const Words> parts) {
  for (const Words& candidate : words) {
    std::optional<Values> values = Match(candidate.strEnglish, strText);
    if (!values) continue;
    std::array<std::string_view, c_nPlaces> said;
    for (std::size_t k = 0; k < c_nPlaces; ++k) {
      (*values)[k] = SayForeign((*values)[k], parts, parts);
      said[k] = (*values)[k];
    }
    return Fill(Say(candidate), said);
  }
  return std::string(strText);
}

}  // namespace skyframe::host
