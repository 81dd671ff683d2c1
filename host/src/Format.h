#pragma once

#include <string>

namespace skyframe::host {

/// Text of printf in the C locale.
[[nodiscard, gnu::format(printf, 1, 2)]] std::string Format(const char* pszFormat, ...);

}  // namespace skyframe::host
