#pragma once

#include <array>
#include <filesystem>
#include <memory>
#include <ostream>
#include <streambuf>
#include <string>
#include <utility>

#include "skyframe/platform/Platform.h"

namespace skyframe {

/// Bytes on their way into an open file; owns the descriptor.
class COutputBuffer final : public std::streambuf {
 public:
  COutputBuffer();
  ~COutputBuffer() override;
  COutputBuffer(const COutputBuffer&) = delete;
  COutputBuffer& operator=(const COutputBuffer&) = delete;

  /// Takes over an open descriptor.
  void Attach(int nDescriptor) { m_nDescriptor = nDescriptor; }
  /// Writes what is left and closes. The code of the first failure since the beginning, 0: none.
  [[nodiscard]] int Close();

 protected:
  int_type overflow(int_type c) override;
  std::streamsize xsputn(const char_type* pBytes, std::streamsize nCount) override;
  int sync() override;

 private:
  // False when the bytes, or others before them, could not be written.
  bool WriteOut();
  bool Write(const char* pBytes, std::size_t nCount);

  static constexpr std::size_t c_nSize = std::size_t{1} << 16U;

  int m_nDescriptor = -1;  ///< -1: closed
  int m_nError = 0;
  std::array<char, c_nSize> m_bytes;
};

/// An output file under a temporary name beside its place, in the care of this process, or a device. Opening one
/// removes the temporary files that runs for the same place have left when they were killed.
class CPendingFile final : public IPendingFile {
 public:
  explicit CPendingFile(std::filesystem::path target) : m_target(std::move(target)) {}
  ~CPendingFile() override;
  CPendingFile(const CPendingFile&) = delete;
  CPendingFile& operator=(const CPendingFile&) = delete;

  /// Null, and the reason, when not possible.
  static std::unique_ptr<IPendingFile> Open(const std::filesystem::path& target, OutputPlace place,
                                            std::string& strReason);

  std::ostream& GetStream() override { return m_strm; }
  [[nodiscard]] std::string Commit() override;

 private:
  // The reason of a failure, empty: none.
  [[nodiscard]] std::string OpenDevice();
  [[nodiscard]] std::string Create();
  [[nodiscard]] std::string MoveToTarget();

  std::filesystem::path m_target;
  std::filesystem::path m_temporary;  ///< empty: nothing to remove
  int m_nCare = -1;                   ///< keeps the temporary file from being taken for an orphan
  COutputBuffer m_buffer;
  std::ostream m_strm{&m_buffer};
};

}  // namespace skyframe
