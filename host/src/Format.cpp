#include "Format.h"

#include <cstdarg>
#include <cstdio>

namespace skyframe::host {

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

}  // namespace skyframe::host
