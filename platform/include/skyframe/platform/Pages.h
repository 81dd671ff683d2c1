#pragma once

#include <cstddef>

#include "skyframe/values/Export.h"

namespace skyframe {

inline constexpr std::size_t c_nLargePage = std::size_t{1} << 21U;  ///< bytes; such pages begin at multiples of it

/// Asks the system to back the nBytes from p on, which nobody has touched yet, by pages of megabytes: fewer of them to
/// touch for the first time, and memory read through at a rate that pages of 4 KB do not reach. A hint; not taken where
/// the system has no such pages or the memory holds none.
void PreferLargePages(void* p, std::size_t nBytes);

/// Fills memory with zeros that the program was given as zeros: allocated, or static without other initial values.
/// Where the system can, whole pages are given back to it, so that what nobody touches afterwards costs nothing.
void ClearPages(void* p, std::size_t nBytes);

/// Before the first large allocation of a program that runs once: freed blocks of up to 4 MB (the job file's text, say)
/// stay with the program for those that come next; larger ones are given back each time, also where the allocator would
/// have learnt to keep them.
SKYFRAME_API void KeepFreedBlocks();

}  // namespace skyframe
