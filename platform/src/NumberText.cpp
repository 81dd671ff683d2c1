#include "skyframe/platform/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

namespace skyframe {

namespace {

constexpr int c_nMaxDecimals = 64;
constexpr std::string_view c_strBlanks = " \t\r\n";

/// Text between the blanks, without a plus sign that stands directly before a number.
std::string_view TrimNumber(std::string_view strText) {
  const size_t nFirst = strText.find_first_not_of(c_strBlanks);
  if (nFirst == std::string_view::npos) return {};
  strText = strText.substr(nFirst, strText.find_last_not_of(c_strBlanks) - nFirst + 1);
  if (strText.size() > 1 && strText[0] == '+' && strText[1] != '-') strText.remove_prefix(1);
  return strText;
}

/// The whole text, or nothing.
template <class T>
std::optional<T> ParseWhole(std::string_view strText) {
  strText = TrimNumber(strText);
  T value{};
  const char* const pEnd = strText.data() + strText.size();
  const auto [pStop, error] = std::from_chars(strText.data(), pEnd, value);
  if (error != std::errc{} || pStop != pEnd) return std::nullopt;
  return value;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsExponent(char c) { return c == 'e' || c == 'E'; }

/// Whether a number that begins with the text can go on with the character.
bool GoesOn(const std::string& strNumber, char c) {
  const bool bExponent = std::ranges::any_of(strNumber, IsExponent);
  if (c == '+' || c == '-') return strNumber.empty() || IsExponent(strNumber.back());
  if (c == '.') return !bExponent && strNumber.find('.') == std::string::npos;
  if (IsExponent(c)) return !bExponent && std::ranges::any_of(strNumber, IsDigit);
  return IsDigit(c);
}

template <class... Format>
std::string ToText(double dValue, Format... format) {
  if (std::isnan(dValue)) return "nan";
  std::array<char, 512> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), dValue, format...);
  return {buffer.data(), result.ptr};
}

}  // namespace

std::string FormatFixed(double dValue, int nDecimals) {
  return ToText(dValue, std::chars_format::fixed, std::clamp(nDecimals, 0, c_nMaxDecimals));
}

std::string FormatGeneral(double dValue) { return ToText(dValue, std::chars_format::general, 6); }

std::string FormatShortest(double dValue) { return ToText(dValue); }

std::optional<int> ParseInt(std::string_view strText) { return ParseWhole<int>(strText); }

std::optional<double> ParseReal(std::string_view strText) {
  const std::optional<double> value = ParseWhole<double>(strText);
  return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<double> ReadNumber(std::istream& strm) {
  strm >> std::ws;
  std::string strNumber;
  for (int n = strm.peek(); n >= 0 && GoesOn(strNumber, static_cast<char>(n)); n = strm.peek()) {
    strNumber += static_cast<char>(strm.get());
  }
  const char* const pFirst = strNumber.data() + (strNumber.starts_with('+') ? 1 : 0);
  const char* const pEnd = strNumber.data() + strNumber.size();
  double dValue = 0.0;
  const auto [pStop, error] = std::from_chars(pFirst, pEnd, dValue);
  const bool bTooSmall = error == std::errc::result_out_of_range && strNumber.find('-', 1) != std::string::npos;
  if (pStop != pEnd || (error != std::errc{} && !bTooSmall)) return std::nullopt;
  return bTooSmall ? 0.0 : dValue;
}

}  // namespace skyframe
