#pragma once

#include <string_view>
#include <utility>
#include <vector>

namespace skyframe::host {

/// Numbers as a person lists them: "1-20, 35" and "40-" to the end, with blanks, commas and semicolons of both
/// languages between. None when there is anything else among them.
class CNumberSet {
 public:
  CNumberSet() = default;
  explicit CNumberSet(std::string_view strText);

  [[nodiscard]] bool Has(int nNumber) const;
  [[nodiscard]] bool IsEmpty() const { return m_ranges.empty(); }

 private:
  std::vector<std::pair<int, int>> m_ranges;  ///< first and last
};

}  // namespace skyframe::host
