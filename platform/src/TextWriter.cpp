#include "skyframe/platform/TextWriter.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <utility>

namespace skyframe {

namespace {

constexpr size_t c_nBufferSize = size_t{1} << 16U;
constexpr size_t c_nSlack = 32;  // behind what is written; short texts are copied in one piece of fixed length
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

  [[nodiscard]] std::string_view Get() const { return {m_text.data(), m_nLength}; }

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
  const auto nBelow = static_cast<std::int64_t>(dScaled);
  const double dFromHalf = dScaled - static_cast<double>(nBelow) - 0.5;
  if (std::abs(dFromHalf) <= dScaled * std::numeric_limits<double>::epsilon()) return std::nullopt;  // about a tie
  return static_cast<std::uint64_t>(nBelow + static_cast<std::int64_t>(dFromHalf > 0.0));
}

/// The digits of a number below 10^8 in one word.
class CEightDigits {
 public:
  /// So many decimals among them; the bytes of a word stand as a text of them does.
  static bool CanHold(std::uint64_t nValue, int nDecimals) {
    return nValue < 100'000'000 && nDecimals < c_nCount && std::endian::native == std::endian::little;
  }

  /// Each step splits all groups of digits in two, side by side; the first digit ends up in the lowest byte.
  explicit CEightDigits(std::uint64_t nValue) {
    std::uint64_t n = nValue / 10'000 | (nValue % 10'000) << 32U;
    const std::uint64_t nHundreds = (n * 10'486 >> 20U) & 0x0000'007f'0000'007fU;  // n / 100
    n = nHundreds | (n - nHundreds * 100) << 16U;
    const std::uint64_t nTens = (n * 103 >> 10U) & 0x000f'000f'000f'000fU;  // n / 10
    m_nDigits = nTens | (n - nTens * 10) << 8U;
  }

  /// Without the zeros before them; of 0 none.
  [[nodiscard]] int Count() const { return c_nCount - (std::countr_zero(m_nDigits) >> 3); }

  /// Writes the last nCount digits, and something over them up to the fixed length.
  void PutLast(int nCount, char* p) const {
    const std::uint64_t nText = (m_nDigits | c_nZeros) >> static_cast<unsigned>(8 * (c_nCount - nCount)) % 64U;
    std::memcpy(p, &nText, sizeof nText);
  }

 private:
  static constexpr int c_nCount = 8;
  static constexpr std::uint64_t c_nZeros = 0x3030'3030'3030'3030U;

  std::uint64_t m_nDigits;  ///< a byte each, the first one the lowest
};

/// nScaled: the value times 10^nDecimals, where it is known.
CNumberBuffer FormFixed(double dValue, std::optional<std::uint64_t> nScaled, int nDecimals) {
  if (nScaled) return {std::signbit(dValue), *nScaled, nDecimals};
  CNumberBuffer number(dValue, std::chars_format::fixed, nDecimals);
  if (nDecimals == 0) number.AppendPoint();
  return number;
}

/// A few blanks are written in one piece of fixed length.
void FillBlanks(char* p, size_t nCount) {
  std::memset(p, ' ', c_nSlack);
  if (nCount > c_nSlack) std::memset(p, ' ', nCount);
}

}  // namespace

CTextWriter::CTextWriter(std::ostream& strm)
    : m_strm(strm), m_nRoom(c_nBufferSize), m_pBuffer(std::make_unique_for_overwrite<char[]>(m_nRoom)) {}

CTextWriter::~CTextWriter() { Flush(); }

CTextWriter& CTextWriter::Text(std::string_view strText, int nWidth, Align align) {
  return Field(strText.size(), nWidth, align, [strText](char* p) { std::ranges::copy(strText, p); });
}

CTextWriter& CTextWriter::Integer(long long nValue, int nWidth, Align align) {
  std::array<char, 24> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), nValue);
  return Text({buffer.data(), result.ptr}, nWidth, align);
}

CTextWriter& CTextWriter::General(double dValue, int nWidth, Align align) {
  if (std::isnan(dValue)) return Text("nan", nWidth, align);  // without a sign
  return Text(CNumberBuffer(dValue, std::chars_format::general, c_nDigits).Get(), nWidth, align);
}

CTextWriter& CTextWriter::GeneralPoint(double dValue, int nWidth, Align align) {
  if (!std::isfinite(dValue)) return General(dValue, nWidth, align);
  // P significant digits, exponent X after rounding: fixed with P - 1 - X decimals when -4 <= X < P, else scientific
  // with P - 1 decimals.
  const CNumberBuffer scientific(dValue, std::chars_format::scientific, c_nDigits - 1);
  const int nExponent = scientific.GetExponent();
  const bool bFixed = nExponent >= c_nSmallestExponent && nExponent < c_nDigits;
  return bFixed ? Fixed(dValue, c_nDigits - 1 - nExponent, nWidth, align) : Text(scientific.Get(), nWidth, align);
}

CTextWriter& CTextWriter::Fixed(double dValue, int nDecimals, int nWidth, Align align) {
  if (!std::isfinite(dValue)) return General(dValue, nWidth, align);
  nDecimals = std::clamp(nDecimals, 0, c_nMaxDecimals);
  return Decimal(dValue, RoundScaled(dValue, nDecimals), nDecimals, nWidth, align);
}

CTextWriter& CTextWriter::FixedRow(std::span<const double> values, int nDecimals, int nWidth) {
  nDecimals = std::clamp(nDecimals, 0, c_nMaxDecimals);
  const bool bNarrow = nWidth <= static_cast<int>(c_nSlack);
  std::optional<std::uint64_t> nLast;  // of the field before, where it may be copied
  bool bLastNegative = false;
  size_t nField = 0;
  for (const double dValue : values) {
    const std::optional<std::uint64_t> nScaled = RoundScaled(dValue, nDecimals);
    const bool bNegative = std::signbit(dValue);
    const bool bRoom = bNarrow && m_nUsed + 2 * c_nSlack <= m_nRoom;
    if (bRoom && nScaled && nScaled == nLast && bNegative == bLastNegative) {
      std::memmove(m_pBuffer.get() + m_nUsed, m_pBuffer.get() + m_nUsed - nField, c_nSlack);
      m_nUsed += nField;
      continue;
    }
    const size_t nStart = m_nUsed;
    nScaled ? Decimal(dValue, nScaled, nDecimals, nWidth, Align::Left) : Fixed(dValue, nDecimals, nWidth);
    nField = m_nUsed - nStart;
    nLast = bRoom ? nScaled : std::nullopt;
    bLastNegative = bNegative;
  }
  return *this;
}

CTextWriter& CTextWriter::Decimal(double dValue, std::optional<std::uint64_t> nScaled, int nDecimals, int nWidth,
                                  Align align) {
  if (!nScaled || !CEightDigits::CanHold(*nScaled, nDecimals)) {
    return Text(FormFixed(dValue, nScaled, nDecimals).Get(), nWidth, align);
  }
  const CEightDigits digits(*nScaled);
  const std::size_t nSign = std::signbit(dValue) ? 1 : 0;
  const int nWhole = std::max(digits.Count() - nDecimals, 1);
  return Field(nSign + static_cast<size_t>(nWhole) + 1 + static_cast<size_t>(nDecimals), nWidth, align, [=](char* p) {
    *p = '-';
    p += nSign;
    digits.PutLast(nWhole + nDecimals, p);
    p += nWhole;
    *p = '.';
    digits.PutLast(nDecimals, p + 1);
  });
}

CTextWriter& CTextWriter::EndLine() { return Text("\n"); }

template <class Put>
CTextWriter& CTextWriter::Field(size_t nLength, int nWidth, Align align, Put put) {
  const auto nWhole = static_cast<size_t>(std::max(nWidth, 0));
  if (nLength >= nWhole) {
    put(Extend(nLength));
    return *this;
  }
  char* const pField = Extend(nWhole);
  const size_t nFill = nWhole - nLength;
  if (align == Align::Right) FillBlanks(pField, nFill);
  put(align == Align::Right ? pField + nFill : pField);
  if (align == Align::Left) FillBlanks(pField + nLength, nFill);
  return *this;
}

char* CTextWriter::Extend(size_t nCount) {
  const size_t nNeed = nCount + c_nSlack;
  if (m_nUsed + nNeed > m_nRoom) MakeRoom(nNeed);
  return m_pBuffer.get() + std::exchange(m_nUsed, m_nUsed + nCount);
}

void CTextWriter::MakeRoom(size_t nNeed) {
  Flush();
  if (nNeed <= m_nRoom) return;
  m_pBuffer = std::make_unique_for_overwrite<char[]>(nNeed);
  m_nRoom = nNeed;
}

bool CTextWriter::Flush() {
  m_strm.write(m_pBuffer.get(), static_cast<std::streamsize>(m_nUsed));
  m_nUsed = 0;
  return !m_strm.fail();
}

}  // namespace skyframe
