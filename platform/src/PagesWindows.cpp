#ifdef _WIN32

#include "skyframe/platform/Pages.h"

namespace skyframe {

// Large pages need a privilege there that a person's programs do not have.
void PreferLargePages(void* /*p*/, std::size_t /*nBytes*/) {}

}  // namespace skyframe

#endif
