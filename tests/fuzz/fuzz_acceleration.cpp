// Ground-motion record: no more values than characters.

#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "skyframe/history/GroundMotion.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
  std::istringstream strm(std::string(reinterpret_cast<const char*>(pData), nSize));
  if (skyframe::ReadAccelerationRecord(strm, 0.35).size() > nSize) std::abort();
  return 0;
}
