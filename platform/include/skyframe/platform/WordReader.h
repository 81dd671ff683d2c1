#pragma once

#include <istream>
#include <string>
#include <string_view>

#include "skyframe/values/Export.h"

namespace skyframe {

/// White-space separated words of a text. A file is read in blocks: memory does not grow with it.
/// Failure is sticky, as on a stream: after a missing or malformed word every read leaves its
/// target unchanged. The read that fails sets its target to 0.
class SKYFRAME_API CWordReader {
 public:
  explicit CWordReader(std::istream& strm) : m_pStream(&strm) {}
  /// The text must outlive the reader.
  explicit CWordReader(std::string_view strText) : m_strRest(strText) {}
  CWordReader(const CWordReader&) = delete;
  CWordReader& operator=(const CWordReader&) = delete;

  [[nodiscard]] bool HasFailed() const { return m_bFailed; }
  /// Fails where the condition does not hold.
  void Expect(bool bTrue) { m_bFailed = m_bFailed || !bTrue; }
  /// Empty at the end of the text. Bytes of a word beyond a fixed limit are dropped. Good until the next call.
  std::string_view Next();
  void Skip(int nWords);
  /// Decimal, in the range of int; anything else fails. Numbers may carry a plus sign.
  void Read(int& nValue);
  /// Decimal, "nan" or "inf"; what is too large for a double fails, what is too small is 0.
  void Read(double& dValue);
  /// Bytes that are at hand: of a text, all that are left.
  [[nodiscard]] std::size_t GetRestLength() const { return m_strRest.size(); }

 private:
  void SkipBlanks();
  [[nodiscard]] bool ReadInBlock(double& dValue);
  [[nodiscard]] std::string_view TakeWord();
  [[nodiscard]] bool ReadBlock();

  std::istream* m_pStream = nullptr;  ///< null: the text is the only block
  bool m_bFailed = false;
  std::string_view m_strRest;  ///< of the block
  std::string m_strBlock;
  std::string m_strWord;  ///< a word that two blocks share
};

}  // namespace skyframe
