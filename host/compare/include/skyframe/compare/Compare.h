#pragma once

#include <cmath>
#include <string>
#include <vector>

#include "skyframe/job/Job.h"
#include "skyframe/job/Language.h"

namespace skyframe::host {

/// A job and where its results stand: prefix of their names.
struct ResultSet {
  const Job& job;
  std::string strJobPath;
};

/// Where two result sets differ most in a quantity.
struct Difference {
  Words quantity = {"", ""};
  std::string_view strUnit;
  double dFirst = 0.0;
  double dSecond = 0.0;
  double dLargest = 0.0;   ///< magnitude that the difference is measured by: the largest of the quantity in both sets
  std::string strPlace;    ///< "element 3 My at station 4"; empty: they are the same everywhere
  bool bAbove = false;     ///< a difference, here or elsewhere, is above the tolerance and no rounding of the files
  bool bRounding = false;  ///< it is above the tolerance, but no more than one in the last digit that the files print

  /// Infinite when one value alone is a number.
  [[nodiscard]] double GetAbsolute() const;
  [[nodiscard]] double GetRelative() const;
};

/// Results of one analysis.
struct KindComparison {
  Words kind = {"", ""};
  std::string strError;  ///< why they cannot be compared: one damaged, or of other counts than the other
  std::string strNote;   ///< what is not compared: results that one set alone has, modes that are more in one
  std::vector<Difference> differences;
};

/// The results that both sets have, and those that one has.
struct Comparison {
  std::string strError;  ///< the models do not belong together, or nothing is there to compare
  std::vector<KindComparison> kinds;

  [[nodiscard]] bool IsAbove() const;
  /// Something could not be compared.
  [[nodiscard]] bool HasError() const;
};

/// Nodes are matched by their ids, elements by their numbers. Static results, modes, spectrum response and history file
/// are compared. The sign of a shape does not count, and shapes of equal frequencies only as far as they span the same
/// space. A difference of one in the last digit that the files print never counts.
[[nodiscard]] Comparison CompareResults(const ResultSet& first, const ResultSet& second, double dTolerance);

}  // namespace skyframe::host
