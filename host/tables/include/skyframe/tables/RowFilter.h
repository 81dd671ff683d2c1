#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "skyframe/job/NumberSet.h"
#include "skyframe/tables/Table.h"

namespace skyframe::host {

/// Rows by their number as CNumberSet takes them, or by a part of their texts in capitals or not. An empty filter takes
/// all rows.
class CRowFilter {
 public:
  CRowFilter() = default;
  explicit CRowFilter(std::string_view strFilter);

  [[nodiscard]] bool Takes(const Table& table, std::size_t nRow) const;

 private:
  CNumberSet m_numbers;
  std::string m_strPart;  ///< in small letters; empty when there are numbers
};

}  // namespace skyframe::host
