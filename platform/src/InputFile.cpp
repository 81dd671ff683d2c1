#include "InputFile.h"

#include <utility>

#include "SystemFile.h"

namespace skyframe {

CInputBuffer::~CInputBuffer() {
  if (m_nDescriptor >= 0) static_cast<void>(system_file::Close(m_nDescriptor));
}

bool CInputBuffer::Open(const std::filesystem::path& path) {
  m_nDescriptor = system_file::OpenToRead(path);
  return m_nDescriptor >= 0;
}

CInputBuffer::int_type CInputBuffer::underflow() {
  const std::size_t nRead = system_file::Read(m_nDescriptor, m_bytes.data(), m_bytes.size());
  setg(m_bytes.data(), m_bytes.data(), m_bytes.data() + nRead);
  return nRead == 0 ? traits_type::eof() : traits_type::to_int_type(m_bytes.front());
}

std::unique_ptr<std::istream> CInputFile::Open(const std::filesystem::path& path) {
  auto pFile = std::make_unique<CInputFile>();  // may throw: nothing is open yet
  return pFile->m_buffer.Open(path) ? std::move(pFile) : nullptr;
}

}  // namespace skyframe
