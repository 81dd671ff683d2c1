#pragma once

#include <string_view>
#include <utility>
#include <vector>

namespace skyframe::host {

/// Numbers as a person lists them: "1-20, 35". What is no number is passed over.
class CNumberSet {
 public:
  explicit CNumberSet(std::string_view strText);

  [[nodiscard]] bool Has(int nNumber) const;
  [[nodiscard]] bool IsEmpty() const { return m_ranges.empty(); }

 private:
  std::vector<std::pair<int, int>> m_ranges;  ///< first and last
};

}  // namespace skyframe::host
