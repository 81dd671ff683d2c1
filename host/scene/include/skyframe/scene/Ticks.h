#pragma once

#include <string>

namespace skyframe::host {

/// Equally spaced round values: dFirst, dFirst + dStep, ... nCount of them, two or more.
struct Ticks {
  double dFirst = 0.0;
  double dStep = 1.0;
  int nCount = 2;

  [[nodiscard]] double Get(int k) const { return dFirst + k * dStep; }
  [[nodiscard]] double GetLast() const { return Get(nCount - 1); }
  /// Text of tick k, all with the same decimals.
  [[nodiscard]] std::string FormatTick(int k) const;
};
/// Ticks in steps of 1, 2 or 5 times a power of ten, at most nMost + 1 of them, that enclose the range.
[[nodiscard]] Ticks ChooseTicks(double dLow, double dHigh, int nMost);

}  // namespace skyframe::host
