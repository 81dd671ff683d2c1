#pragma once

#ifdef _WIN32

#include <string>
#include <string_view>

#include "skyframe/values/Export.h"

namespace skyframe {

// Texts as the functions of Windows want them.

[[nodiscard]] SKYFRAME_API std::wstring ToWide(std::string_view strText);
[[nodiscard]] SKYFRAME_API std::string ToUtf8(std::wstring_view strText);

}  // namespace skyframe

#endif
