#pragma once

#include <limits>

#if __has_include(<unistd.h>)
#include <unistd.h>
#endif

namespace skyframe {

/// Bytes of the machine's memory; infinite where the system does not tell.
inline double GetPhysicalMemory() {
#if defined(_SC_PHYS_PAGES) && defined(_SC_PAGESIZE)
  const long nPages = sysconf(_SC_PHYS_PAGES);
  const long nPageSize = sysconf(_SC_PAGESIZE);
  if (nPages > 0 && nPageSize > 0) return static_cast<double>(nPages) * static_cast<double>(nPageSize);
#endif
  return std::numeric_limits<double>::infinity();
}

}  // namespace skyframe
