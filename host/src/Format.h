#pragma once

#include <string>

namespace skyframe::host {

/// Text of printf; it has decimal points unless the program has put another C locale in force.
[[nodiscard, gnu::format(printf, 1, 2)]] std::string Format(const char* pszFormat, ...);

}  // namespace skyframe::host
