#include "skyframe/platform/ConsoleBuffer.h"

#include <algorithm>
#include <string>
#include <utility>

#include "SystemFile.h"

namespace skyframe {

namespace {

constexpr int c_nStandardOutput = 1;
constexpr int c_nStandardError = 2;

}  // namespace

CConsoleBuffer::CConsoleBuffer(Sink sink) : m_sink(std::move(sink)) {
  setp(m_buffer.data(), m_buffer.data() + m_buffer.size());
}

CConsoleBuffer::~CConsoleBuffer() { HandOnAll(); }

void CConsoleBuffer::SetSink(Sink sink) {
  HandOnAll();
  m_sink = std::move(sink);
}

CConsoleBuffer::int_type CConsoleBuffer::overflow(int_type c) {
  const std::string_view strText(pbase(), static_cast<std::size_t>(pptr() - pbase()));
  const std::size_t nLineEnd = strText.rfind('\n');
  HandOn(nLineEnd == std::string_view::npos ? strText.size() : nLineEnd + 1);
  if (!traits_type::eq_int_type(c, traits_type::eof())) sputc(traits_type::to_char_type(c));
  return traits_type::not_eof(c);
}

int CConsoleBuffer::sync() {
  HandOnAll();
  return 0;
}

void CConsoleBuffer::HandOnAll() { HandOn(static_cast<std::size_t>(pptr() - pbase())); }

void CConsoleBuffer::HandOn(std::size_t nCount) {
  const std::string strText(pbase(), pptr());
  setp(m_buffer.data(), m_buffer.data() + m_buffer.size());
  std::copy(strText.begin() + static_cast<std::ptrdiff_t>(nCount), strText.end(), m_buffer.begin());
  pbump(static_cast<int>(strText.size() - nCount));
  if (nCount > 0) m_sink(std::string_view(strText).substr(0, nCount));
}

CConsoleScope::CConsoleScope(std::ostream& out, std::ostream& err)
    : m_diversions{Divert(out, c_nStandardOutput), Divert(err, c_nStandardError)} {}

CConsoleScope::~CConsoleScope() {
  for (const Diversion& diversion : m_diversions) {
    if (diversion.pBuffer) diversion.strm.rdbuf(diversion.pPrevious);
  }
}

CConsoleScope::Diversion CConsoleScope::Divert(std::ostream& strm, int nDescriptor) {
  if (!system_file::BeginText(nDescriptor)) return {strm, nullptr, nullptr};
  auto pBuffer = std::make_unique<CConsoleBuffer>(
      [nDescriptor](std::string_view strText) { system_file::WriteToConsole(nDescriptor, strText); });
  std::streambuf* const pPrevious = strm.rdbuf(pBuffer.get());
  return {strm, std::move(pBuffer), pPrevious};
}

}  // namespace skyframe
