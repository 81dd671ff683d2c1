#include "TokenReader.h"

#include <charconv>
#include <cmath>

namespace skyframe {
namespace {

constexpr std::size_t c_nBlockBytes = 1U << 16U;
constexpr std::size_t c_nMaxToken = 512;
constexpr int c_nEndOfFile = -1;

bool IsBlank(int nByte) { return nByte == ' ' || (nByte >= '\t' && nByte <= '\r'); }

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
  m_strToken.clear();
  if (m_bFailed) return {};
  int nByte = GetByte();
  while (IsBlank(nByte)) nByte = GetByte();
  for (; nByte != c_nEndOfFile && !IsBlank(nByte); nByte = GetByte()) {
    if (m_strToken.size() < c_nMaxToken) m_strToken.push_back(static_cast<char>(nByte));
  }
  if (m_strToken.empty()) m_bFailed = true;
  return m_strToken;
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
  if (m_bFailed) return;
  double dParsed = 0.0;
  const std::errc error = Parse(Next(), dParsed);
  const bool bTooSmall = error == std::errc::result_out_of_range && m_strToken.find("e-") != std::string::npos;
  if (!bTooSmall && (error != std::errc() || !std::isfinite(dParsed))) m_bFailed = true;
  dValue = m_bFailed || bTooSmall ? 0.0 : dParsed;
}

/// The next byte 0..255, or c_nEndOfFile.
int CTokenReader::GetByte() {
  if (m_nPosition == m_strBlock.size()) {
    m_strBlock.resize(c_nBlockBytes);
    m_strm.read(m_strBlock.data(), static_cast<std::streamsize>(c_nBlockBytes));
    m_strBlock.resize(static_cast<std::size_t>(m_strm.gcount()));
    m_nPosition = 0;
    if (m_strBlock.empty()) return c_nEndOfFile;
  }
  return static_cast<unsigned char>(m_strBlock[m_nPosition++]);
}

}  // namespace skyframe
