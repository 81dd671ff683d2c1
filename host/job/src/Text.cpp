#include "skyframe/job/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdarg>
#include <cstdio>

#include "JsonText.h"
#include "skyframe/platform/NumberText.h"
#include "texts.h"

namespace skyframe::host {

namespace {

/// Columns of a byte in a terminal: the first one of a letter has them all.
int GetColumns(char c) {
  const auto cByte = static_cast<unsigned char>(c);
  if (cByte >= 0x80 && cByte < 0xc0) return 0;
  return cByte < 0xe3 ? 1 : 2;  // from U+3000 on
}

/// What the text lacks.
std::string FormBlanks(std::string_view strText, int nColumns) {
  for (const char c : strText) nColumns -= GetColumns(c);
  return std::string(static_cast<std::size_t>(std::max(nColumns, 0)), ' ');
}

}  // namespace

std::string Format(const char* pszFormat, ...) {
  va_list arguments;
  va_start(arguments, pszFormat);
  va_list copy;
  va_copy(copy, arguments);
  const int nLength = std::vsnprintf(nullptr, 0, pszFormat, copy);
  va_end(copy);
  std::string strText(static_cast<std::size_t>(nLength > 0 ? nLength : 0), '\0');
  std::vsnprintf(strText.data(), strText.size() + 1, pszFormat, arguments);
  va_end(arguments);
  return strText;
}

std::string JoinWords(std::span<const std::string_view> words) {
  std::string strResult;
  for (std::size_t k = 0; k < words.size(); ++k) {
    if (k > 0) strResult += Say(k + 1 == words.size() ? texts::c_or : texts::c_comma);
    strResult += Quote(words[k]);
  }
  return strResult;
}

std::string PadLeft(std::string_view strText, int nColumns) { return FormBlanks(strText, nColumns).append(strText); }

std::string PadRight(std::string_view strText, int nColumns) {
  return std::string(strText) + FormBlanks(strText, nColumns);
}

std::string FormatNumber(double dValue) {
  std::array<char, 32> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), dValue);
  return {buffer.data(), result.ptr};
}

std::string FormatDecimals(double dValue, int nDecimals) {
  std::string strText = FormatFixed(dValue, nDecimals);
  if (std::isfinite(dValue) && strText.find_first_of("123456789") == std::string::npos && strText.starts_with('-')) {
    strText.erase(0, 1);
  }
  return strText;
}

std::string EscapeControls(std::string_view strText) {
  constexpr unsigned char c_cHighControls = 0xc2;  // first byte of U+0080 to U+009F, which are two bytes long
  std::string strResult;
  for (std::size_t k = 0; k < strText.size(); ++k) {
    auto c = static_cast<unsigned char>(strText[k]);
    const bool bHigh =
        c == c_cHighControls && k + 1 < strText.size() && static_cast<unsigned char>(strText[k + 1]) < 0xa0;
    if (bHigh) c = static_cast<unsigned char>(strText[++k]);
    if (bHigh || c < 0x20 || c == 0x7f) {
      strResult += Format("\\u%04x", c);
    } else {
      strResult += strText[k];
    }
  }
  return strResult;
}

std::string EscapeLines(std::string_view strText) {
  std::string strResult;
  for (std::size_t nEnd = 0; (nEnd = strText.find('\n')) != std::string_view::npos; strText.remove_prefix(nEnd + 1)) {
    strResult += EscapeControls(strText.substr(0, nEnd)) + '\n';
  }
  return strResult + EscapeControls(strText);
}

std::string Quote(std::string_view strText) {
  const auto strCut = std::string(strText.substr(0, c_nLongestShown));
  // Json::dump escapes quotes; a character cut in the middle is replaced.
  return EscapeControls(Json(strCut).dump(-1, ' ', false, Json::error_handler_t::replace));
}

}  // namespace skyframe::host
