#pragma once

#include <array>
#include <filesystem>
#include <istream>
#include <memory>
#include <streambuf>

namespace skyframe {

/// Bytes of an open file, forwards only; owns the descriptor.
class CInputBuffer final : public std::streambuf {
 public:
  explicit CInputBuffer(int nDescriptor) : m_nDescriptor(nDescriptor) {}
  ~CInputBuffer() override;
  CInputBuffer(const CInputBuffer&) = delete;
  CInputBuffer& operator=(const CInputBuffer&) = delete;

 protected:
  int_type underflow() override;

 private:
  static constexpr std::size_t c_nSize = std::size_t{1} << 16U;

  int m_nDescriptor;
  std::array<char, c_nSize> m_bytes;
};

/// A regular file being read.
class CInputFile final : public std::istream {
 public:
  explicit CInputFile(int nDescriptor) : std::istream(nullptr), m_buffer(nDescriptor) { rdbuf(&m_buffer); }

  /// Null when it cannot be opened or is no regular file.
  static std::unique_ptr<std::istream> Open(const std::filesystem::path& path);

 private:
  CInputBuffer m_buffer;
};

}  // namespace skyframe
