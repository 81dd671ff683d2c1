#include "skyframe/tables/RowFilter.h"

#include <algorithm>
#include <string>

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

}  // namespace

CRowFilter::CRowFilter(std::string_view strFilter) : m_numbers(strFilter) {
  if (m_numbers.IsEmpty()) m_strPart = MakeSmall(Trim(strFilter));
}

bool CRowFilter::Takes(const Table& table, std::size_t nRow) const {
  if (!m_numbers.IsEmpty()) return m_numbers.Has(static_cast<int>(table.columns.front().numbers[nRow]));
  return m_strPart.empty() || std::ranges::any_of(table.columns, [&](const TableColumn& column) {
           return column.kind == ColumnKind::Text && MakeSmall(column.texts[nRow]).find(m_strPart) != std::string::npos;
         });
}

}  // namespace skyframe::host
