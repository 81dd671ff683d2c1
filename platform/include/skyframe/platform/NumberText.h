#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace skyframe {

// Numbers as text and back, independent of the locale.

/// Fixed notation ("%.*f"); nDecimals 0..64. NaN and infinities: "nan", "inf", "-inf".
std::string FormatFixed(double dValue, int nDecimals);

/// General notation, six significant digits ("%g").
std::string FormatGeneral(double dValue);

/// Fewest digits that read back as the same value.
std::string FormatShortest(double dValue);

/// Whole text as a decimal integer, blanks around it allowed; empty when it is none or no int.
std::optional<int> ParseInt(std::string_view strText);

/// Whole text as a finite decimal number, blanks around it allowed; empty when it is none.
std::optional<double> ParseReal(std::string_view strText);

}  // namespace skyframe
