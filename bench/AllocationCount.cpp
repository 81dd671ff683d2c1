#include "AllocationCount.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace skyframe::bench {

namespace {
std::size_t g_nBytes = 0, g_nPeakBytes = 0;
}  // namespace

std::size_t GetBytes() { return g_nBytes; }
std::size_t GetPeakBytes() { return g_nPeakBytes; }
void ResetPeakBytes() { g_nPeakBytes = g_nBytes; }

namespace {

void* Take(std::size_t nBytes) {
  void* const p = std::malloc(nBytes);
  if (p == nullptr) throw std::bad_alloc();
  g_nBytes += malloc_usable_size(p);
  g_nPeakBytes = std::max(g_nPeakBytes, g_nBytes);
  return p;
}

void GiveBack(void* p) {
  if (p != nullptr) g_nBytes -= malloc_usable_size(p);
  std::free(p);
}

}  // namespace

}  // namespace skyframe::bench

void* operator new(std::size_t nBytes) { return skyframe::bench::Take(nBytes); }
void operator delete(void* p) noexcept { skyframe::bench::GiveBack(p); }
void operator delete(void* p, std::size_t) noexcept { skyframe::bench::GiveBack(p); }
