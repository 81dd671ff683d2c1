#pragma once

#include <cstddef>

namespace skyframe::bench {

/// Bytes that operator new has handed out and not got back, and the most there were since ResetPeakBytes.
std::size_t GetBytes();
std::size_t GetPeakBytes();
void ResetPeakBytes();

}  // namespace skyframe::bench
