#pragma once

#include <span>
#include <string>
#include <string_view>

namespace skyframe::host {

/// Text of printf; it has decimal points unless the program has put another C locale in force.
[[nodiscard, gnu::format(printf, 1, 2)]] std::string Format(const char* pszFormat, ...);

/// "a, b, c or d" in the language in force.
[[nodiscard]] std::string JoinWords(std::span<const std::string_view> words);

/// Text with blanks before or behind it, so that it is as wide in a terminal; a Chinese letter takes two columns.
[[nodiscard]] std::string PadLeft(std::string_view strText, int nColumns);
[[nodiscard]] std::string PadRight(std::string_view strText, int nColumns);

/// Shortest text that reads back as the same number.
[[nodiscard]] std::string FormatNumber(double dValue);

/// With so many decimals; no minus before zero.
[[nodiscard]] std::string FormatDecimals(double dValue, int nDecimals);

/// Bytes of a text of the job that a message shows.
inline constexpr std::size_t c_nLongestShown = 60;

/// Text fit for a terminal: its control characters as \u001b and the like.
[[nodiscard]] std::string EscapeControls(std::string_view strText);

/// The same with its line ends.
[[nodiscard]] std::string EscapeLines(std::string_view strText);

/// Text in quotes, fit for a terminal: control characters escaped, cut.
[[nodiscard]] std::string Quote(std::string_view strText);

}  // namespace skyframe::host
