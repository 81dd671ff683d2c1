#include "TokenReader.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace skyframe {
namespace {

constexpr std::size_t c_nBlockBytes = 1U << 16U;
constexpr std::size_t c_nMaxToken = 512;

bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

/// Numbers may carry a leading plus, which from_chars does not know.
std::string_view WithoutPlus(std::string_view strToken) {
  const bool bPlus = strToken.size() > 1 && strToken[0] == '+' && strToken[1] != '-';
  return bPlus ? strToken.substr(1) : strToken;
}

template <typename T>
std::errc Parse(std::string_view strToken, T& value) {
  const std::string_view strNumber = WithoutPlus(strToken);
  const char* const pEnd = strNumber.data() + strNumber.size();
  const auto [p, error] = std::from_chars(strNumber.data(), pEnd, value);
  return p == pEnd ? error : std::errc::invalid_argument;
}

}  // namespace

std::string_view CTokenReader::Next() {
  if (m_bFailed) return {};
  SkipBlanks();
  std::string_view strToken = TakeWord();
  if (m_nPosition == m_strBlock.size()) {
    // The block ends here, the token perhaps not.
    m_strToken = strToken;
    while (m_nPosition == m_strBlock.size() && ReadBlock()) {
      m_strToken.append(TakeWord());
      m_strToken.resize(std::min(m_strToken.size(), c_nMaxToken));
    }
    strToken = m_strToken;
  }
  if (strToken.empty()) m_bFailed = true;
  return strToken.substr(0, c_nMaxToken);
}

void CTokenReader::Skip(int nTokens) {
  for (int k = 0; k < nTokens && !m_bFailed; ++k) Next();
}

void CTokenReader::Read(int& nValue) {
  if (m_bFailed) return;
  int nParsed = 0;
  if (Parse(Next(), nParsed) != std::errc()) {
    m_bFailed = true;
    nParsed = 0;
  }
  nValue = nParsed;
}

void CTokenReader::Read(double& dValue) {
  if (m_bFailed || ReadInBlock(dValue)) return;
  double dParsed = 0.0;
  const std::string_view strToken = Next();
  const std::errc error = Parse(strToken, dParsed);
  const bool bTooSmall = error == std::errc::result_out_of_range && strToken.find("e-") != std::string_view::npos;
  if (!bTooSmall && (error != std::errc() || !std::isfinite(dParsed))) m_bFailed = true;
  dValue = m_bFailed || bTooSmall ? 0.0 : dParsed;
}

void CTokenReader::SkipBlanks() {
  do {
    while (m_nPosition < m_strBlock.size() && IsBlank(m_strBlock[m_nPosition])) ++m_nPosition;
  } while (m_nPosition == m_strBlock.size() && ReadBlock());
}

/// A plain finite number that ends within the block. False, and nothing read, for anything else.
bool CTokenReader::ReadInBlock(double& dValue) {
  SkipBlanks();
  const char* const pBegin = m_strBlock.data() + m_nPosition;
  const char* const pEnd = m_strBlock.data() + m_strBlock.size();
  double dParsed = 0.0;
  const auto [p, error] = std::from_chars(pBegin, pEnd, dParsed);
  if (error != std::errc() || p == pEnd || !IsBlank(*p) || !std::isfinite(dParsed)) return false;
  if (static_cast<std::size_t>(p - pBegin) > c_nMaxToken) return false;
  m_nPosition += static_cast<std::size_t>(p - pBegin);
  dValue = dParsed;
  return true;
}

/// What the block holds up to the next blank.
std::string_view CTokenReader::TakeWord() {
  const std::size_t nFirst = m_nPosition;
  while (m_nPosition < m_strBlock.size() && !IsBlank(m_strBlock[m_nPosition])) ++m_nPosition;
  return std::string_view(m_strBlock).substr(nFirst, m_nPosition - nFirst);
}

/// False at the end of the file; the block is then empty.
bool CTokenReader::ReadBlock() {
  m_strBlock.resize(c_nBlockBytes);
  m_strm.read(m_strBlock.data(), static_cast<std::streamsize>(c_nBlockBytes));
  m_strBlock.resize(static_cast<std::size_t>(m_strm.gcount()));
  m_nPosition = 0;
  return !m_strBlock.empty();
}

}  // namespace skyframe
