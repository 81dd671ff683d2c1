#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "skyframe/tables/Table.h"

namespace skyframe::host {

/// Rows by their number, "1-20, 35" or "40-" to the end, or by a part of their texts in capitals or not. An empty
/// filter takes all rows.
class CRowFilter {
 public:
  CRowFilter() = default;
  explicit CRowFilter(std::string_view strFilter);

  [[nodiscard]] bool Takes(const Table& table, std::size_t nRow) const;

 private:
  std::vector<std::pair<double, double>> m_ranges;
  std::string m_strPart;  ///< in small letters; empty when there are ranges
};

}  // namespace skyframe::host
