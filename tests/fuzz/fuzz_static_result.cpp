// Static result file as the host reads it: refused, or whole for the two nodes asked for.

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

#include "skyframe/results/StaticResultFile.h"

namespace {

/// A file of this process alone, gone at its end.
class CTemporaryFile {
 public:
  CTemporaryFile()
      : m_path(std::filesystem::temp_directory_path() / ("fuzz_static_" + std::to_string(std::random_device()()))) {}
  ~CTemporaryFile() {
    std::error_code error;
    std::filesystem::remove(m_path, error);
  }
  CTemporaryFile(const CTemporaryFile&) = delete;
  CTemporaryFile& operator=(const CTemporaryFile&) = delete;

  std::string Write(std::string_view strText) const {
    std::ofstream(m_path, std::ios::binary) << strText;
    return m_path.string();
  }

 private:
  std::filesystem::path m_path;
};

const CTemporaryFile g_file;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
  const std::string_view strText(reinterpret_cast<const char*>(pData), nSize);
  const auto displacements = skyframe::host::ReadStaticResultFile(g_file.Write(strText), 2);
  if (displacements && displacements->size() != 2) std::abort();
  return 0;
}
