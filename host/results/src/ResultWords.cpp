#include "ResultWords.h"

#include <algorithm>

namespace skyframe::host {

namespace {

constexpr std::size_t c_nBlockBytes = 1U << 16U;  // no word is longer
constexpr std::size_t c_nFixedDecimals = 3;

bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

std::size_t CountBlanks(std::string_view strText) {
  return static_cast<std::size_t>(std::find_if_not(strText.begin(), strText.end(), IsBlank) - strText.begin());
}

std::size_t GetWordLength(std::string_view strText) {
  return static_cast<std::size_t>(std::find_if(strText.begin(), strText.end(), IsBlank) - strText.begin());
}

}  // namespace

std::string_view CResultWords::Peek() {
  if (m_bFailed) return {};
  for (;;) {
    m_strRest.remove_prefix(CountBlanks(m_strRest));
    const std::size_t nLength = GetWordLength(m_strRest);
    // The block ends here, the word perhaps not.
    if (nLength < m_strRest.size() || !Refill()) return m_strRest.substr(0, nLength);
  }
}

std::string_view CResultWords::Word() {
  const std::string_view strWord = Peek();
  m_strRest.remove_prefix(strWord.size());
  Expect(!strWord.empty());
  return strWord;
}

void CResultWords::Skip(int nWords) {
  for (int i = 0; i < nWords && !m_bFailed; ++i) Word();
}

double CResultWords::FixedNumber() {
  const std::string_view strWord = Peek();
  const std::size_t nPoint = std::min(strWord.find('.'), strWord.size());
  const std::string_view strNumber = strWord.substr(0, std::min(nPoint + 1 + c_nFixedDecimals, strWord.size()));
  m_strRest.remove_prefix(strNumber.size());
  return Convert<double>(strNumber);
}

/// False at the end of the file, and when the rest fills the block.
bool CResultWords::Refill() {
  m_strBlock.resize(c_nBlockBytes);
  char* const pFree = std::copy(m_strRest.begin(), m_strRest.end(), m_strBlock.data());
  const std::size_t nRest = m_strRest.size();
  m_strm.read(pFree, static_cast<std::streamsize>(c_nBlockBytes - nRest));
  const auto nRead = static_cast<std::size_t>(m_strm.gcount());
  m_strRest = std::string_view(m_strBlock).substr(0, nRest + nRead);
  return nRead > 0;
}

}  // namespace skyframe::host
