#pragma once

#include <array>
#include <istream>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "skyframe/model/NodeTable.h"
#include "skyframe/values/Settings.h"

namespace skyframe {

/// Numbers of the stream up to the first one that cannot be read, scaled so that the largest magnitude
/// is dPeak. Deliberate: a record of zeros is scaled all the same and becomes NaN.
[[nodiscard]] std::vector<double> ReadAccelerationRecord(std::istream& strm, double dPeak);
/// Empty when the file cannot be opened, or reading breaks off before its end.
[[nodiscard]] std::optional<std::vector<double>> ReadAccelerationRecord(const std::string& strPath, double dPeak);

enum QuakeMode : int { c_nPrincipalQuake = 0, c_nObliqueQuake = 1 };

/// Ground acceleration in X, Y, Z, one value a step, m/s2.
class CGroundMotion {
 public:
  /// Reads the record that the settings ask for; none when the principal mode has no direction.
  /// bFromFile: instead of the standard record the job's own, strPrefix + "_Xacc.txt", "_Yacc.txt", "_Zacc.txt" or,
  /// oblique, "_Tacc.txt".
  /// False after the direction's message when the file cannot be opened.
  [[nodiscard]] bool Read(const QuakeSettings& settings, bool bFromFile, const std::string& strPrefix);

  [[nodiscard]] std::span<const double> GetRecord(int nDirection) const {
    return m_records[static_cast<std::size_t>(nDirection)];
  }
  /// g = -acceleration of step nStep at the free translations of all nodes, 0 elsewhere and beyond
  /// the record. g: F values.
  void FormVector(int nStep, const CNodeTable& nodes, std::span<double> g) const;

 private:
  std::array<std::vector<double>, 3> m_records;
};

}  // namespace skyframe
