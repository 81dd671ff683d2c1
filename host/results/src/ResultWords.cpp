#include "ResultWords.h"

#include <algorithm>
#include <utility>

namespace skyframe::host {

std::string_view CResultWords::Peek() {
  if (m_strNext.empty() && !m_bFailed) m_strNext = m_reader.Next();
  return m_bFailed ? std::string_view() : m_strNext;
}

std::string_view CResultWords::Word() {
  Expect(!Peek().empty());
  m_strWord = std::exchange(m_strNext, {});
  return m_bFailed ? std::string_view() : m_strWord;
}

void CResultWords::Skip(int nWords) {
  for (int i = 0; i < nWords && !m_bFailed; ++i) Word();
}

double CResultWords::NextNumber() {
  double dValue = 0.0;
  m_reader.Read(dValue);
  Expect(!m_reader.HasFailed());
  return m_bFailed ? 0.0 : dValue;
}

double CResultWords::FixedNumber() {
  constexpr std::size_t c_nDecimals = 3;
  const std::string strWord(Word());
  const std::size_t nPoint = std::min(strWord.find('.'), strWord.size());
  const std::size_t nEnd = std::min(nPoint + 1 + c_nDecimals, strWord.size());
  m_strNext = strWord.substr(nEnd);
  return Convert<double>(std::string_view(strWord).substr(0, nEnd));
}

}  // namespace skyframe::host
