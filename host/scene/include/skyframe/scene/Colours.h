#pragma once

#include <cmath>
#include <cstdint>

#include "skyframe/platform/PaintContext.h"

namespace skyframe::host {

inline constexpr Colour c_inkColour{0x33, 0x3a, 0x44};

/// a at t = 0, b at t = 1.
inline Colour MixColours(Colour a, Colour b, double t) {
  const auto mix = [t](int nA, int nB) { return static_cast<std::uint8_t>(std::lround(nA + t * (nB - nA))); };
  return {mix(a.nRed, b.nRed), mix(a.nGreen, b.nGreen), mix(a.nBlue, b.nBlue)};
}

}  // namespace skyframe::host
