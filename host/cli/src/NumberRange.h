#pragma once

#include <CLI/CLI.hpp>
#include <cmath>
#include <string>

namespace skyframe::host {

/// Takes numbers within limits; unlike its base it does not take nan.
class CNumberRange : public CLI::Range {
 public:
  CNumberRange(double dLowest, double dHighest) : CLI::Range(dLowest, dHighest) {
    func_ = [inRange = func_, dLowest, dHighest](std::string& strValue) {
      double dValue = 0.0;
      if (!CLI::detail::lexical_cast(strValue, dValue) || !std::isnan(dValue)) return inRange(strValue);
      return "Value " + strValue + " not in range " + std::to_string(dLowest) + " to " + std::to_string(dHighest);
    };
  }
};

}  // namespace skyframe::host
