#pragma once

#include <array>
#include <functional>
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

}  // namespace skyframe
