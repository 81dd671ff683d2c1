#pragma once

#include <string>

#include "skyframe/compare/Compare.h"

namespace skyframe::host {

/// What a value belongs to; what is 0 or empty does not apply.
struct ValuePlace {
  int nMode = 0;
  int nNode = 0;  ///< id
  int nElement = 0;
  std::string_view strComponent = {};
  int nStation = 0;
  double dTime = 0.0;
};

/// Takes the pairs of values of a quantity and keeps the largest difference.
class CLargestDifference {
 public:
  /// dDecimal: one in the last decimal of a file that prints a fixed count of them; 0: it prints six digits.
  CLargestDifference(Words quantity, std::string_view strUnit, double dDecimal = 0.0) : m_dDecimal(dDecimal) {
    m_found.quantity = quantity;
    m_found.strUnit = strUnit;
  }

  void Add(double dFirst, double dSecond, const ValuePlace& place);
  [[nodiscard]] Difference Conclude(double dTolerance) const;

 private:
  [[nodiscard]] double GetRounding(double dFirst, double dSecond) const;

  double m_dDecimal;
  Difference m_found;
  ValuePlace m_place;
  double m_dLargest = 0.0;    ///< of all values
  double m_dUnrounded = 0.0;  ///< largest difference that is more than rounding
};

}  // namespace skyframe::host
