#pragma once

#include <charconv>
#include <istream>
#include <string>
#include <string_view>
#include <type_traits>

#include "skyframe/platform/WordReader.h"

namespace skyframe::host {

/// Words of a result file, with a look at the next one. A word that is missing, or is not what was asked for, makes
/// every later call fail.
class CResultWords {
 public:
  explicit CResultWords(std::istream& strm) : m_reader(strm) {}

  [[nodiscard]] bool HasFailed() const { return m_bFailed; }
  void Expect(bool bTrue) { m_bFailed = m_bFailed || !bTrue; }

  /// The next word, which stays the next; empty at the end of the file or after a failure. Views last until the
  /// next call.
  std::string_view Peek();
  std::string_view Word();
  void Skip(int nWords);

  template <class T>
  T Number() {
    if constexpr (std::is_same_v<T, double>) {
      if (m_strNext.empty()) return NextNumber();
    }
    return Convert<T>(Word());
  }
  /// The rest of a word that begins with a label.
  template <class T>
  T NumberBehind(std::string_view strLabel) {
    const std::string_view strWord = Word();
    Expect(strWord.starts_with(strLabel));
    return m_bFailed ? T{} : Convert<T>(strWord.substr(strLabel.size()));
  }
  /// A number with three decimals; wide ones touch the next one.
  double FixedNumber();

 private:
  double NextNumber();
  template <class T>
  T Convert(std::string_view strWord) {
    if (strWord.starts_with('+') && !strWord.starts_with("+-")) strWord.remove_prefix(1);
    T value{};
    const auto [pEnd, error] = std::from_chars(strWord.data(), strWord.data() + strWord.size(), value);
    Expect(error == std::errc() && pEnd == strWord.data() + strWord.size());
    return m_bFailed ? T{} : value;
  }

  CWordReader m_reader;
  std::string m_strNext;  ///< looked at already, or the rest of a word; empty: the reader has it
  std::string m_strWord;  ///< read last
  bool m_bFailed = false;
};

}  // namespace skyframe::host
