#pragma once

#include <istream>
#include <optional>
#include <string>
#include <string_view>

#include "skyframe/values/Export.h"

namespace skyframe {

// Numbers as text and back, independent of the locale.

/// Fixed notation ("%.*f"); nDecimals 0..64. NaN and infinities: "nan", "inf", "-inf".
SKYFRAME_API std::string FormatFixed(double dValue, int nDecimals);

/// General notation, six significant digits ("%g").
SKYFRAME_API std::string FormatGeneral(double dValue);

/// Fewest digits that read back as the same value.
SKYFRAME_API std::string FormatShortest(double dValue);

/// Whole text as a decimal integer, blanks around it allowed; empty when it is none or no int.
SKYFRAME_API std::optional<int> ParseInt(std::string_view strText);

/// Whole text as a finite decimal number, blanks around it allowed; empty when it is none.
SKYFRAME_API std::optional<double> ParseReal(std::string_view strText);

/// The next decimal number of a text, behind blanks; empty at the end, and where none stands, which is taken out as
/// far as it looks like one. Unlike the stream's own reading it touches no locale, also not for a moment.
SKYFRAME_API std::optional<double> ReadNumber(std::istream& strm);

}  // namespace skyframe
