#pragma once

#include <algorithm>
#include <charconv>
#include <string_view>

namespace skyframe::host {

/// White-space separated words of a result file's text. A word that is missing, or is no number where one is asked
/// for, makes every later call fail. Numbers do not depend on the locale; "nan" and "inf" are numbers here.
class CResultWords {
 public:
  explicit CResultWords(std::string_view strText) : m_strRest(strText) {}

  [[nodiscard]] bool HasFailed() const { return m_bFailed; }

  std::string_view Word() {
    constexpr std::string_view c_strSpaces = " \t\r\n\v\f";
    m_strRest.remove_prefix(std::min(m_strRest.find_first_not_of(c_strSpaces), m_strRest.size()));
    const std::string_view strWord = m_strRest.substr(0, m_strRest.find_first_of(c_strSpaces));
    m_strRest.remove_prefix(strWord.size());
    m_bFailed = m_bFailed || strWord.empty();
    return strWord;
  }
  void Skip(int nWords) {
    for (int i = 0; i < nWords && !m_bFailed; ++i) Word();
  }
  void SkipTo(std::string_view strSought) {
    while (!m_bFailed && Word() != strSought) {
    }
  }

  template <class T>
  T Number() {
    std::string_view strWord = Word();
    if (strWord.starts_with('+')) strWord.remove_prefix(1);
    T value{};
    const auto [pEnd, error] = std::from_chars(strWord.data(), strWord.data() + strWord.size(), value);
    m_bFailed = m_bFailed || error != std::errc() || pEnd != strWord.data() + strWord.size();
    return m_bFailed ? T{} : value;
  }

 private:
  std::string_view m_strRest;
  bool m_bFailed = false;
};

}  // namespace skyframe::host
