#ifndef _WIN32

#include <sys/mman.h>

#include <memory>

#include "skyframe/platform/Pages.h"

namespace skyframe {

void PreferLargePages([[maybe_unused]] void* p, [[maybe_unused]] std::size_t nBytes) {
#ifdef MADV_HUGEPAGE
  constexpr std::size_t c_nLargePage = std::size_t{1} << 21U;
  if (std::align(c_nLargePage, c_nLargePage, p, nBytes) == nullptr) return;
  madvise(p, nBytes - nBytes % c_nLargePage, MADV_HUGEPAGE);
#endif
}

}  // namespace skyframe

#endif
