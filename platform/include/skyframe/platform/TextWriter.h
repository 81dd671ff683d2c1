#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <ostream>
#include <span>
#include <string_view>

#include "skyframe/values/Export.h"

namespace skyframe {

enum class Align { Left, Right };

/// Buffered writer of the result files. Fields shorter than their width are filled with blanks;
/// longer ones are written whole; widths count bytes. Numbers have the text that C's printf gives in the C locale.
/// NaN and infinities print as "nan", "inf", "-inf".
class SKYFRAME_API CTextWriter {
 public:
  explicit CTextWriter(std::ostream& strm);
  ~CTextWriter();
  CTextWriter(const CTextWriter&) = delete;
  CTextWriter& operator=(const CTextWriter&) = delete;

  CTextWriter& Text(std::string_view strText, int nWidth = 0, Align align = Align::Left);
  CTextWriter& Integer(long long nValue, int nWidth = 0, Align align = Align::Left);
  /// General notation, six significant digits, trailing zeros dropped ("%g").
  CTextWriter& General(double dValue, int nWidth = 0, Align align = Align::Left);
  /// General notation, six significant digits, the point and trailing zeros shown ("%#g").
  CTextWriter& GeneralPoint(double dValue, int nWidth = 0, Align align = Align::Left);
  /// Fixed notation with the point shown ("%#.*f"); nDecimals 0..64.
  CTextWriter& Fixed(double dValue, int nDecimals, int nWidth = 0, Align align = Align::Left);
  /// Each of them with Fixed, left-aligned; one that looks like the one before it is copied.
  CTextWriter& FixedRow(std::span<const double> values, int nDecimals, int nWidth);
  CTextWriter& EndLine();

  /// Hands the buffer to the stream. False when the stream has failed.
  bool Flush();

 private:
  /// nScaled: |dValue| 10^nDecimals, rounded; nothing when not known.
  CTextWriter& Decimal(double dValue, std::optional<std::uint64_t> nScaled, int nDecimals, int nWidth, Align align);
  /// put writes the nLength characters of the text at the place given; it may write over a few behind them.
  template <class Put>
  CTextWriter& Field(std::size_t nLength, int nWidth, Align align, Put put);
  /// Place for so many more characters.
  char* Extend(std::size_t nCount);
  void MakeRoom(std::size_t nNeed);

  std::ostream& m_strm;
  std::size_t m_nRoom;
  std::unique_ptr<char[]> m_pBuffer;
  std::size_t m_nUsed = 0;
};

}  // namespace skyframe
