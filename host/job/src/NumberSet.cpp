#include "skyframe/job/NumberSet.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <span>
#include <system_error>

namespace skyframe::host {

namespace {

constexpr std::string_view c_strBlanks[] = {" ", "\t", "　"};
constexpr std::string_view c_strSeparators[] = {" ", "\t", "　", ",", ";", "，", "、", "；"};
constexpr std::string_view c_strDashes[] = {"-", "–", "~", "～"};

/// Takes one of the words away from the front of the text.
bool TakeOne(std::string_view& strText, std::span<const std::string_view> words) {
  const auto it =
      std::ranges::find_if(words, [strText](std::string_view strOne) { return strText.starts_with(strOne); });
  if (it == words.end()) return false;
  strText.remove_prefix(it->size());
  return true;
}

void SkipAll(std::string_view& strText, std::span<const std::string_view> words) {
  while (TakeOne(strText, words)) continue;
}

std::optional<int> TakeNumber(std::string_view& strText) {
  int nNumber = 0;
  const bool bDigit = !strText.empty() && strText.front() >= '0' && strText.front() <= '9';
  const auto [pEnd, error] = std::from_chars(strText.data(), strText.data() + strText.size(), nNumber);
  if (!bDigit || error != std::errc{}) return std::nullopt;
  strText.remove_prefix(static_cast<std::size_t>(pEnd - strText.data()));
  return nNumber;
}

/// "7", "7-9" or "7-".
std::optional<std::pair<int, int>> TakeRange(std::string_view& strText) {
  const std::optional<int> first = TakeNumber(strText);
  if (!first) return std::nullopt;
  std::string_view strBehind = strText;
  SkipAll(strBehind, c_strBlanks);
  if (!TakeOne(strBehind, c_strDashes)) return std::pair(*first, *first);
  SkipAll(strBehind, c_strBlanks);
  strText = strBehind;
  const int nLast = TakeNumber(strText).value_or(std::numeric_limits<int>::max());
  return std::minmax(*first, nLast);
}

}  // namespace

CNumberSet::CNumberSet(std::string_view strText) {
  for (SkipAll(strText, c_strSeparators); !strText.empty(); SkipAll(strText, c_strSeparators)) {
    const auto range = TakeRange(strText);
    if (!range) {
      m_ranges.clear();
      return;
    }
    m_ranges.push_back(*range);
  }
}

bool CNumberSet::Has(int nNumber) const {
  return std::ranges::any_of(
      m_ranges, [nNumber](const auto& range) { return range.first <= nNumber && nNumber <= range.second; });
}

}  // namespace skyframe::host
