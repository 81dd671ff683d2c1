#pragma once

#include <cstddef>

namespace skyframe {

/// Asks the system to back the nBytes from p on, which nobody has touched yet, by pages of megabytes: fewer of them to
/// touch for the first time, and memory read through at a rate that pages of 4 KB do not reach. A hint; not taken where
/// the system has no such pages or the memory holds none.
void PreferLargePages(void* p, std::size_t nBytes);

/// Fills memory with zeros that the program was given as zeros: allocated, or static without other initial values.
/// Where the system can, whole pages are given back to it, so that what nobody touches afterwards costs nothing.
void ClearPages(void* p, std::size_t nBytes);

}  // namespace skyframe
