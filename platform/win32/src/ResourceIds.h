#pragma once

namespace skyframe {

// Texts of the module's string table; a dialog's title stands under the dialog's identifier.
inline constexpr unsigned c_nTitleText = 1;
inline constexpr unsigned c_nBusyText = 2;

}  // namespace skyframe
