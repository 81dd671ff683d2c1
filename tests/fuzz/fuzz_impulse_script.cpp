// Impulse load text: any bytes are read to the end, and every block moves on.

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "skyframe/history/ImpulseScript.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
  skyframe::CImpulseScript script({reinterpret_cast<const char*>(pData), nSize});
  if (!script.FindBlocks()) return 0;
  skyframe::CLoadCase loadCase;
  std::size_t nBlocks = 0;
  while (!script.IsUsedUp()) {
    script.ReadBlock(loadCase);
    if (++nBlocks > nSize) std::abort();
  }
  return 0;
}
