#ifdef _WIN32

#include <cstring>

#include "skyframe/platform/Pages.h"

namespace skyframe {

// Large pages need a privilege there that a person's programs do not have.
void PreferLargePages(void* /*p*/, std::size_t /*nBytes*/) {}

void ClearPages(void* p, std::size_t nBytes) { std::memset(p, 0, nBytes); }

void KeepFreedBlocks() {}  // the heap there leaves no choice

}  // namespace skyframe

#endif
