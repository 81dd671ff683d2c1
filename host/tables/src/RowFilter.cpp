#include "skyframe/tables/RowFilter.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "skyframe/platform/NumberText.h"

namespace skyframe::host {

namespace {

std::string MakeSmall(std::string_view strText) {
  std::string strResult(strText);
  for (char& c : strResult) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return strResult;
}

std::string_view Trim(std::string_view strText) {
  const std::size_t nFirst = strText.find_first_not_of(' ');
  if (nFirst == std::string_view::npos) return {};
  return strText.substr(nFirst, strText.find_last_not_of(' ') - nFirst + 1);
}

/// Commas of both languages as blanks.
std::string ReplaceCommas(std::string_view strText) {
  constexpr std::string_view c_strCommas[] = {",", "，", "、", ";", "；"};
  std::string strResult(strText);
  for (const std::string_view strComma : c_strCommas) {
    for (std::size_t n = 0; (n = strResult.find(strComma)) != std::string::npos;) {
      strResult.replace(n, strComma.size(), " ");
    }
  }
  return strResult;
}

/// "7", "7-9" or "7-".
std::optional<std::pair<double, double>> ParseRange(std::string_view strText) {
  const std::size_t nDash = strText.find('-', 1);
  const std::optional<int> first = ParseInt(strText.substr(0, nDash));
  if (!first || nDash == std::string_view::npos) {
    return first ? std::optional(std::pair<double, double>(*first, *first)) : std::nullopt;
  }
  if (nDash + 1 == strText.size()) return std::pair(static_cast<double>(*first), std::numeric_limits<double>::max());
  const std::optional<int> last = ParseInt(strText.substr(nDash + 1));
  return last ? std::optional(std::pair<double, double>(*first, *last)) : std::nullopt;
}

/// Nothing when there is anything else among the ranges.
std::vector<std::pair<double, double>> ParseRanges(std::string_view strText) {
  std::vector<std::pair<double, double>> ranges;
  while (!(strText = Trim(strText)).empty()) {
    const std::size_t nEnd = std::min(strText.find(' '), strText.size());
    const auto range = ParseRange(strText.substr(0, nEnd));
    if (!range) return {};
    ranges.push_back(*range);
    strText.remove_prefix(nEnd);
  }
  return ranges;
}

}  // namespace

CRowFilter::CRowFilter(std::string_view strFilter) : m_ranges(ParseRanges(ReplaceCommas(strFilter))) {
  if (m_ranges.empty()) m_strPart = MakeSmall(Trim(strFilter));
}

bool CRowFilter::Takes(const Table& table, std::size_t nRow) const {
  if (!m_ranges.empty()) {
    const double dNumber = table.columns.front().numbers[nRow];
    return std::ranges::any_of(m_ranges,
                               [dNumber](const auto& r) { return r.first <= dNumber && dNumber <= r.second; });
  }
  return m_strPart.empty() || std::ranges::any_of(table.columns, [&](const TableColumn& column) {
           return column.kind == ColumnKind::Text && MakeSmall(column.texts[nRow]).find(m_strPart) != std::string::npos;
         });
}

}  // namespace skyframe::host
