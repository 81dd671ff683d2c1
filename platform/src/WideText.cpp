#ifdef _WIN32

#include "skyframe/platform/WideText.h"

#include <windows.h>

namespace skyframe {

std::wstring ToWide(std::string_view strText) {
  const int nBytes = static_cast<int>(strText.size());
  std::wstring strWide(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, strText.data(), nBytes, nullptr, 0)),
                       L'\0');
  MultiByteToWideChar(CP_UTF8, 0, strText.data(), nBytes, strWide.data(), static_cast<int>(strWide.size()));
  return strWide;
}

std::string ToUtf8(std::wstring_view strText) {
  const int nUnits = static_cast<int>(strText.size());
  const int nBytes = WideCharToMultiByte(CP_UTF8, 0, strText.data(), nUnits, nullptr, 0, nullptr, nullptr);
  std::string strBytes(static_cast<std::size_t>(nBytes), '\0');
  WideCharToMultiByte(CP_UTF8, 0, strText.data(), nUnits, strBytes.data(), nBytes, nullptr, nullptr);
  return strBytes;
}

}  // namespace skyframe

#endif
