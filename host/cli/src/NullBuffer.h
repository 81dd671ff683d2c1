#pragma once

#include <streambuf>

namespace skyframe::host {

/// Swallows the module's progress lines.
class CNullBuffer final : public std::streambuf {
 protected:
  int_type overflow(int_type c) override { return traits_type::not_eof(c); }
  std::streamsize xsputn(const char*, std::streamsize nCount) override { return nCount; }
};

}  // namespace skyframe::host
