#pragma once

#include <charconv>
#include <istream>
#include <string>
#include <string_view>

namespace skyframe::host {

/// White-space separated words of a result file, read block by block. A word that is missing, or is not what was asked
/// for, makes every later call fail. Numbers do not depend on the locale; "nan" and "inf" are numbers here.
class CResultWords {
 public:
  explicit CResultWords(std::istream& strm) : m_strm(strm) {}
  CResultWords(const CResultWords&) = delete;
  CResultWords& operator=(const CResultWords&) = delete;

  [[nodiscard]] bool HasFailed() const { return m_bFailed; }
  void Expect(bool bTrue) { m_bFailed = m_bFailed || !bTrue; }

  /// The next word, which stays the next; empty at the end of the file or after a failure. Views last until the
  /// next call.
  std::string_view Peek();
  std::string_view Word();
  void Skip(int nWords);

  template <class T>
  T Number() {
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
  template <class T>
  T Convert(std::string_view strWord) {
    if (strWord.starts_with('+') && !strWord.starts_with("+-")) strWord.remove_prefix(1);
    T value{};
    const auto [pEnd, error] = std::from_chars(strWord.data(), strWord.data() + strWord.size(), value);
    Expect(error == std::errc() && pEnd == strWord.data() + strWord.size());
    return m_bFailed ? T{} : value;
  }
  bool Refill();

  std::istream& m_strm;
  std::string m_strBlock;
  std::string_view m_strRest;  ///< part of the block that was not read yet
  bool m_bFailed = false;
};

}  // namespace skyframe::host
