#pragma once

#include <istream>
#include <string>
#include <string_view>

namespace skyframe {

/// White-space separated tokens of a text file, read in blocks: memory does not grow with the file.
/// Failure is sticky, as on a stream: after a missing or malformed token every read leaves its
/// target unchanged. The read that fails sets its target to 0.
class CTokenReader {
 public:
  explicit CTokenReader(std::istream& strm) : m_strm(strm) {}

  [[nodiscard]] bool HasFailed() const { return m_bFailed; }
  /// Empty at the end of the file. Bytes of a token beyond a fixed limit are dropped. Good until the next call.
  std::string_view Next();
  void Skip(int nTokens);
  /// Decimal, in the range of int; anything else fails.
  void Read(int& nValue);
  /// Decimal and finite; anything else fails. What is too small for a double is 0.
  void Read(double& dValue);

 private:
  void SkipBlanks();
  [[nodiscard]] bool ReadInBlock(double& dValue);
  [[nodiscard]] std::string_view TakeWord();
  [[nodiscard]] bool ReadBlock();

  std::istream& m_strm;
  bool m_bFailed = false;
  std::string m_strBlock;
  std::size_t m_nPosition = 0;
  std::string m_strToken;  ///< a token that two blocks share
};

}  // namespace skyframe
