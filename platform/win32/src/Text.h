#pragma once

#include <string>
#include <string_view>

#include "Windows.h"
#include "skyframe/platform/WideText.h"

namespace skyframe {

/// The text of a window.
[[nodiscard]] std::wstring ReadText(HWND hWindow);

/// An ampersand in the caption of a button stands for itself.
[[nodiscard]] std::wstring ToCaption(std::string_view strText);
[[nodiscard]] std::string FromCaption(std::wstring_view strCaption);

/// A text of the module's string table.
[[nodiscard]] std::wstring LoadText(unsigned nId);

}  // namespace skyframe
