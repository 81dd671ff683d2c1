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
  CInputBuffer() = default;
  ~CInputBuffer() override;
  CInputBuffer(const CInputBuffer&) = delete;
  CInputBuffer& operator=(const CInputBuffer&) = delete;

  /// False when it cannot be opened or is no regular file.
  bool Open(const std::filesystem::path& path);

 protected:
  int_type underflow() override;

 private:
  static constexpr std::size_t c_nSize = std::size_t{1} << 16U;

  int m_nDescriptor = -1;  ///< -1: closed
  std::array<char, c_nSize> m_bytes;
};

/// A regular file being read.
class CInputFile final : public std::istream {
 public:
  CInputFile() : std::istream(nullptr) { rdbuf(&m_buffer); }

  /// Null when it cannot be opened or is no regular file.
  static std::unique_ptr<std::istream> Open(const std::filesystem::path& path);

 private:
  CInputBuffer m_buffer;
};

}  // namespace skyframe
