#pragma once

#include <array>
#include <functional>
#include <memory>
#include <ostream>
#include <streambuf>
#include <string_view>

#include "skyframe/values/Export.h"

namespace skyframe {

/// Collects console text and hands it on in pieces of whole lines; the rest of a line follows with the
/// next flush, or when it alone fills the buffer.
class SKYFRAME_API CConsoleBuffer : public std::streambuf {
 public:
  using Sink = std::function<void(std::string_view)>;

  explicit CConsoleBuffer(Sink sink);
  ~CConsoleBuffer() override;
  CConsoleBuffer(const CConsoleBuffer&) = delete;
  CConsoleBuffer& operator=(const CConsoleBuffer&) = delete;

  void SetSink(Sink sink);

 protected:
  int_type overflow(int_type c) override;
  int sync() override;

 private:
  /// Hands on the first nCount bytes and keeps the others.
  void HandOn(std::size_t nCount);
  void HandOnAll();

  Sink m_sink;
  std::array<char, 8192> m_buffer;
};

/// For the life of the object what a program writes to its standard output and error in UTF-8 is shown so by a console,
/// whatever its code page, and the ends of lines stay as they are.
class SKYFRAME_API CConsoleScope {
 public:
  CConsoleScope(std::ostream& out, std::ostream& err);
  ~CConsoleScope();
  CConsoleScope(const CConsoleScope&) = delete;
  CConsoleScope& operator=(const CConsoleScope&) = delete;

 private:
  struct Diversion {
    std::ostream& strm;
    std::unique_ptr<CConsoleBuffer> pBuffer;  ///< null: the stream writes itself
    std::streambuf* pPrevious;
  };

  static Diversion Divert(std::ostream& strm, int nDescriptor);

  std::array<Diversion, 2> m_diversions;
};

}  // namespace skyframe
