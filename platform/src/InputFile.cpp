#include "InputFile.h"

#include "SystemFile.h"

namespace skyframe {

CInputBuffer::~CInputBuffer() { static_cast<void>(system_file::Close(m_nDescriptor)); }

CInputBuffer::int_type CInputBuffer::underflow() {
  const std::size_t nRead = system_file::Read(m_nDescriptor, m_bytes.data(), m_bytes.size());
  setg(m_bytes.data(), m_bytes.data(), m_bytes.data() + nRead);
  return nRead == 0 ? traits_type::eof() : traits_type::to_int_type(m_bytes.front());
}

std::unique_ptr<std::istream> CInputFile::Open(const std::filesystem::path& path) {
  const int nDescriptor = system_file::OpenToRead(path);
  return nDescriptor < 0 ? nullptr : std::make_unique<CInputFile>(nDescriptor);
}

}  // namespace skyframe
