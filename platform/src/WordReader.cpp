#include "skyframe/platform/WordReader.h"

#include <algorithm>
#include <charconv>

namespace skyframe {
namespace {

constexpr std::size_t c_nBlockBytes = 1U << 16U;
constexpr std::size_t c_nMaxWord = 512;

bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

/// The whole word, without the plus sign that from_chars does not know.
template <typename T>
std::errc Parse(std::string_view strWord, T& value) {
  if (strWord.starts_with('+') && !strWord.starts_with("+-")) strWord.remove_prefix(1);
  const char* const pEnd = strWord.data() + strWord.size();
  const auto [p, error] = std::from_chars(strWord.data(), pEnd, value);
  return p == pEnd ? error : std::errc::invalid_argument;
}

}  // namespace

std::string_view CWordReader::Next() {
  if (m_bFailed) return {};
  SkipBlanks();
  std::string_view strWord = TakeWord();
  if (m_strRest.empty() && m_pStream != nullptr) {
    // The block ends here, the word perhaps not.
    m_strWord = strWord;
    while (m_strRest.empty() && ReadBlock()) {
      m_strWord.append(TakeWord());
      m_strWord.resize(std::min(m_strWord.size(), c_nMaxWord));
    }
    strWord = m_strWord;
  }
  Expect(!strWord.empty());
  return strWord.substr(0, c_nMaxWord);
}

void CWordReader::Skip(int nWords) {
  for (int k = 0; k < nWords && !m_bFailed; ++k) Next();
}

void CWordReader::Read(int& nValue) {
  if (m_bFailed) return;
  int nParsed = 0;
  Expect(Parse(Next(), nParsed) == std::errc());
  nValue = m_bFailed ? 0 : nParsed;
}

void CWordReader::Read(double& dValue) {
  if (m_bFailed || ReadInBlock(dValue)) return;
  double dParsed = 0.0;
  const std::string_view strWord = Next();
  const std::errc error = Parse(strWord, dParsed);
  const bool bTooSmall = error == std::errc::result_out_of_range && strWord.find("e-") != std::string_view::npos;
  Expect(bTooSmall || error == std::errc());
  dValue = m_bFailed || bTooSmall ? 0.0 : dParsed;
}

void CWordReader::SkipBlanks() {
  do {
    m_strRest.remove_prefix(static_cast<std::size_t>(std::ranges::find_if_not(m_strRest, IsBlank) - m_strRest.begin()));
  } while (m_strRest.empty() && ReadBlock());
}

/// A plain number that ends within the block. False, and nothing read, for anything else.
bool CWordReader::ReadInBlock(double& dValue) {
  SkipBlanks();
  const char* const pEnd = m_strRest.data() + m_strRest.size();
  double dParsed = 0.0;
  const auto [p, error] = std::from_chars(m_strRest.data(), pEnd, dParsed);
  const auto nLength = static_cast<std::size_t>(p - m_strRest.data());
  if (error != std::errc() || p == pEnd || !IsBlank(*p) || nLength > c_nMaxWord) return false;
  m_strRest.remove_prefix(nLength);
  dValue = dParsed;
  return true;
}

/// What the block holds up to the next blank.
std::string_view CWordReader::TakeWord() {
  const auto nLength = static_cast<std::size_t>(std::ranges::find_if(m_strRest, IsBlank) - m_strRest.begin());
  const std::string_view strWord = m_strRest.substr(0, nLength);
  m_strRest.remove_prefix(nLength);
  return strWord;
}

/// False at the end of the text; the block is then empty.
bool CWordReader::ReadBlock() {
  if (m_pStream == nullptr) return false;
  m_strBlock.resize(c_nBlockBytes);
  m_pStream->read(m_strBlock.data(), static_cast<std::streamsize>(c_nBlockBytes));
  m_strRest = std::string_view(m_strBlock).substr(0, static_cast<std::size_t>(m_pStream->gcount()));
  return !m_strRest.empty();
}

}  // namespace skyframe
