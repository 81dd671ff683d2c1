#include "skyframe/scene/Ticks.h"

#include <algorithm>
#include <cmath>

#include "skyframe/job/Text.h"

namespace skyframe::host {

namespace {

constexpr double c_dLargestPlain = 1.0e6;
constexpr int c_nMostDecimals = 6;

/// 1, 2 or 5 times a power of ten, not below the value.
double RoundUp(double dValue) {
  const double dPower = std::pow(10.0, std::floor(std::log10(dValue)));
  for (const double dDigit : {1.0, 2.0, 5.0}) {
    if (dDigit * dPower >= dValue * (1.0 - 1e-9)) return dDigit * dPower;
  }
  return 10.0 * dPower;
}

}  // namespace

std::string Ticks::FormatTick(int k) const {
  // the nearest multiple: 0 is then 0, not round-off
  const double dValue = std::round(Get(k) / dStep) * dStep;
  const int nDecimals = std::max(0, -static_cast<int>(std::floor(std::log10(dStep) + 1e-9)));
  const double dLargest = std::max(std::abs(dFirst), std::abs(GetLast()));
  if (nDecimals > c_nMostDecimals || dLargest >= c_dLargestPlain) return Format("%.4g", dValue + 0.0);
  return Format("%.*f", nDecimals, dValue + 0.0);
}

Ticks ChooseTicks(double dLow, double dHigh, int nMost) {
  if (!(dHigh - dLow > 1e-12 * std::max(std::abs(dLow), std::abs(dHigh)))) {
    const double dHalf = dLow == 0.0 ? 1.0 : 0.5 * std::abs(dLow);
    dLow -= dHalf;
    dHigh += dHalf;
  }
  // two steps may be lost where the ends are rounded outwards
  Ticks ticks;
  ticks.dStep = RoundUp((dHigh - dLow) / std::max(nMost - 1, 1));
  const double dFirst = std::floor(dLow / ticks.dStep + 1e-9);
  const double dLast = std::ceil(dHigh / ticks.dStep - 1e-9);
  ticks.dFirst = dFirst * ticks.dStep;
  ticks.nCount = static_cast<int>(dLast - dFirst) + 1;
  return ticks;
}

}  // namespace skyframe::host
