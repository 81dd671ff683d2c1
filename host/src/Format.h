#pragma once

#include <string>
#include <string_view>

namespace skyframe::host {

/// Text of printf in the C locale.
#if defined(__GNUC__)
__attribute__((format(printf, 1, 2)))
#endif
[[nodiscard]] std::string
Format(const char* pszFormat, ...);

}  // namespace skyframe::host
