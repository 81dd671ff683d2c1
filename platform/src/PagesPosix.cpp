#ifndef _WIN32

#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <memory>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "skyframe/platform/Pages.h"

namespace skyframe {

void PreferLargePages([[maybe_unused]] void* p, [[maybe_unused]] std::size_t nBytes) {
#ifdef MADV_HUGEPAGE
  if (std::align(c_nLargePage, c_nLargePage, p, nBytes) == nullptr) return;
  madvise(p, nBytes - nBytes % c_nLargePage, MADV_HUGEPAGE);
#endif
}

void ClearPages(void* p, std::size_t nBytes) {
#ifdef __linux__  // elsewhere the pages that come again need not be zero
  const auto nPage = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  void* pWhole = p;
  std::size_t nRest = nBytes;
  if (std::align(nPage, nPage, pWhole, nRest) != nullptr) {
    const std::size_t nWhole = nRest - nRest % nPage;
    if (madvise(pWhole, nWhole, MADV_DONTNEED) == 0) {
      std::memset(p, 0, nBytes - nRest);
      std::memset(static_cast<char*>(pWhole) + nWhole, 0, nRest - nWhole);
      return;
    }
  }
#endif
  std::memset(p, 0, nBytes);
}

void KeepFreedBlocks() {
#ifdef __GLIBC__
  constexpr int c_nLargestBlock = 4 << 20;
  mallopt(M_MMAP_THRESHOLD, c_nLargestBlock);
  mallopt(M_TRIM_THRESHOLD, 2 * c_nLargestBlock);
#endif
}

}  // namespace skyframe

#endif
