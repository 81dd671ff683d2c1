#include "skyframe/platform/TextWriter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

namespace skyframe {

namespace {

constexpr size_t c_nBufferSize = size_t{1} << 20U;
constexpr int c_nMaxDecimals = 64;
constexpr int c_nDigits = 6;             // significant digits of the general notation
constexpr int c_nSmallestExponent = -4;  // below it the general notation is scientific

/// Text of one number: 309 digits before the point, c_nMaxDecimals after it.
class CNumberBuffer {
 public:
  template <class... Format>
  explicit CNumberBuffer(double dValue, Format... format) {
    const auto result = std::to_chars(m_text.data(), m_text.data() + m_text.size() - 1, dValue, format...);
    m_nLength = static_cast<size_t>(result.ptr - m_text.data());
  }

  /// nScaled / 10^nDecimals with the sign given.
  CNumberBuffer(bool bNegative, std::uint64_t nScaled, int nDecimals) {
    std::array<char, 24> digits;
    const auto [pEnd, error] = std::to_chars(digits.data(), digits.data() + digits.size(), nScaled);
    const auto nDigits = static_cast<int>(pEnd - digits.data());
    char* p = m_text.data();
    if (bNegative) *p++ = '-';
    const int nWhole = std::max(nDigits - nDecimals, 0);
    p = nWhole > 0 ? std::copy_n(digits.data(), nWhole, p) : std::fill_n(p, 1, '0');
    *p++ = '.';
    p = std::fill_n(p, nDecimals - (nDigits - nWhole), '0');
    m_nLength = static_cast<size_t>(std::copy(digits.data() + nWhole, pEnd, p) - m_text.data());
  }

  /// A NaN has no sign here.
  [[nodiscard]] std::string_view Get(double dValue) const {
    return std::isnan(dValue) ? "nan" : std::string_view(m_text.data(), m_nLength);
  }

  void AppendPoint() { m_text[m_nLength++] = '.'; }

  /// Decimal exponent of a text in scientific notation.
  [[nodiscard]] int GetExponent() const {
    const char* pExponent = std::find(m_text.data(), m_text.data() + m_nLength, 'e') + 1;
    if (*pExponent == '+') ++pExponent;
    int nExponent = 0;
    std::from_chars(pExponent, m_text.data() + m_nLength, nExponent);
    return nExponent;
  }

 private:
  std::array<char, 400> m_text;
  size_t m_nLength = 0;
};

constexpr int c_nFastDecimals = 9;
constexpr double c_dFastLimit = 1e13;  ///< of |x| 10^n; below it, its nearest integer is exact

/// 10^n
constexpr std::array<double, c_nFastDecimals + 1> c_dPowers = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};

/// The integer nearest to |x| 10^n, where the rounding of the product cannot have moved it to another.
std::optional<std::uint64_t> RoundScaled(double dValue, int nDecimals) {
  if (nDecimals > c_nFastDecimals) return std::nullopt;
  const double dScaled = std::abs(dValue) * c_dPowers[static_cast<std::size_t>(nDecimals)];
  if (!(dScaled < c_dFastLimit)) return std::nullopt;
  const auto nBelow = static_cast<std::uint64_t>(dScaled);
  const double dFromHalf = dScaled - static_cast<double>(nBelow) - 0.5;
  if (std::abs(dFromHalf) <= dScaled * std::numeric_limits<double>::epsilon()) return std::nullopt;  // about a tie
  return dFromHalf < 0.0 ? nBelow : nBelow + 1;
}

CNumberBuffer FormFixedPoint(double dValue, int nDecimals) {
  if (const auto nScaled = RoundScaled(dValue, nDecimals)) return {std::signbit(dValue), *nScaled, nDecimals};
  CNumberBuffer number(dValue, std::chars_format::fixed, nDecimals);
  if (nDecimals == 0) number.AppendPoint();
  return number;
}

/// P significant digits, exponent X after rounding: fixed with P - 1 - X decimals when
/// -4 <= X < P, else scientific with P - 1 decimals.
CNumberBuffer FormGeneralPoint(double dValue) {
  const CNumberBuffer scientific(dValue, std::chars_format::scientific, c_nDigits - 1);
  const int nExponent = scientific.GetExponent();
  if (nExponent < c_nSmallestExponent || nExponent >= c_nDigits) return scientific;
  return FormFixedPoint(dValue, c_nDigits - 1 - nExponent);
}

}  // namespace

CTextWriter::CTextWriter(std::ostream& strm) : m_strm(strm) { m_strBuffer.reserve(c_nBufferSize); }

CTextWriter::~CTextWriter() { Flush(); }

CTextWriter& CTextWriter::Text(std::string_view strText, int nWidth, Align align) {
  return Field(strText, nWidth, align);
}

CTextWriter& CTextWriter::Integer(long long nValue, int nWidth, Align align) {
  std::array<char, 24> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), nValue);
  return Field({buffer.data(), result.ptr}, nWidth, align);
}

CTextWriter& CTextWriter::General(double dValue, int nWidth, Align align) {
  return Field(CNumberBuffer(dValue, std::chars_format::general, c_nDigits).Get(dValue), nWidth, align);
}

CTextWriter& CTextWriter::GeneralPoint(double dValue, int nWidth, Align align) {
  if (!std::isfinite(dValue)) return General(dValue, nWidth, align);
  return Field(FormGeneralPoint(dValue).Get(dValue), nWidth, align);
}

CTextWriter& CTextWriter::Fixed(double dValue, int nDecimals, int nWidth, Align align) {
  if (!std::isfinite(dValue)) return General(dValue, nWidth, align);
  return Field(FormFixedPoint(dValue, std::clamp(nDecimals, 0, c_nMaxDecimals)).Get(dValue), nWidth, align);
}

CTextWriter& CTextWriter::EndLine() { return Field("\n", 0, Align::Left); }

CTextWriter& CTextWriter::Field(std::string_view strText, int nWidth, Align align) {
  const size_t nFill =
      static_cast<size_t>(std::max(nWidth, 0)) > strText.size() ? static_cast<size_t>(nWidth) - strText.size() : 0;
  if (m_strBuffer.size() + nFill + strText.size() > c_nBufferSize) Flush();
  if (align == Align::Right) m_strBuffer.append(nFill, ' ');
  m_strBuffer.append(strText);
  if (align == Align::Left) m_strBuffer.append(nFill, ' ');
  return *this;
}

bool CTextWriter::Flush() {
  m_strm.write(m_strBuffer.data(), static_cast<std::streamsize>(m_strBuffer.size()));
  m_strBuffer.clear();
  return !m_strm.fail();
}

}  // namespace skyframe
