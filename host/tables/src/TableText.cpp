#include <algorithm>
#include <cmath>

#include "skyframe/job/Text.h"
#include "skyframe/platform/NumberText.h"
#include "skyframe/tables/Table.h"

namespace skyframe::host {

namespace {

constexpr int c_nDigits = 6;  // of a column's largest number
constexpr int c_nMostDecimals = 6;
constexpr double c_dLargestFixed = 1.0e9;
constexpr std::string_view c_strByteOrderMark = "\xef\xbb\xbf";

std::string GetCell(const TableColumn& column, std::size_t nRow) {
  return column.kind == ColumnKind::Text ? column.texts[nRow] : FormatWhole(column.numbers[nRow]);
}

/// In quotes where it must be.
std::string QuoteField(std::string strText) {
  if (strText.find_first_of(",\"\r\n") == std::string::npos) return strText;
  for (std::size_t n = 0; (n = strText.find('"', n)) != std::string::npos; n += 2) strText.insert(n, 1, '"');
  return '"' + strText + '"';
}

/// A line of fields, one for each column.
template <class Field>
void AddLine(std::string& strText, const Table& table, char cBetween, std::string_view strEnd, Field field) {
  for (std::size_t c = 0; c < table.columns.size(); ++c) {
    if (c > 0) strText += cBetween;
    strText += field(c);
  }
  strText += strEnd;
}

}  // namespace

std::string FormHeading(const TableColumn& column) {
  std::string strText(Say(column.heading));
  if (!column.strUnit.empty()) strText += " (" + std::string(column.strUnit) + ")";
  return strText;
}

CColumnFormat::CColumnFormat(const TableColumn& column) {
  double dLargest = 0.0;
  bool bNegative = false;
  for (const double d : column.numbers) {
    if (!std::isfinite(d)) continue;
    dLargest = std::max(dLargest, std::abs(d));
    bNegative = bNegative || d < 0.0;
  }
  if (column.kind == ColumnKind::Number && dLargest > 0.0) {
    const int nIntegerDigits = static_cast<int>(std::floor(std::log10(dLargest))) + 1;
    m_bPowers = dLargest >= c_dLargestFixed;
    m_nDecimals = std::clamp(c_nDigits - nIntegerDigits, 0, c_nMostDecimals);
  }
  m_strWidest = Show(bNegative ? -dLargest : dLargest);
  const auto longest = std::ranges::max_element(column.texts, {}, &std::string::size);
  if (longest != column.texts.end()) m_strWidest = *longest;
}

std::string CColumnFormat::Show(double dValue) const {
  if (std::isnan(dValue)) return {};
  if (m_bPowers) return Format("%.*e", c_nDigits - 1, dValue);
  std::string strText = FormatFixed(dValue, m_nDecimals);
  if (strText.starts_with('-') && strText.find_first_of("123456789i") == std::string::npos) strText.erase(0, 1);
  return strText;
}

std::string FormatWhole(double dValue) { return std::isnan(dValue) ? std::string() : Format("%.12g", dValue + 0.0); }

std::string FormatCsv(const Table& table) {
  std::string strText(c_strByteOrderMark);
  constexpr std::string_view c_strEnd = "\r\n";
  AddLine(strText, table, ',', c_strEnd, [&](std::size_t c) { return QuoteField(FormHeading(table.columns[c])); });
  for (std::size_t r = 0; r < table.CountRows(); ++r) {
    AddLine(strText, table, ',', c_strEnd, [&](std::size_t c) { return QuoteField(GetCell(table.columns[c], r)); });
  }
  for (const TableFooting& footing : table.footings) {
    AddLine(strText, table, ',', c_strEnd, [&](std::size_t c) {
      return c == 0 ? QuoteField(std::string(Say(footing.name))) : FormatWhole(footing.numbers[c]);
    });
  }
  return strText;
}

std::string FormatTabbed(const Table& table, const std::vector<std::size_t>& rows) {
  std::string strText;
  AddLine(strText, table, '\t', "\n", [&](std::size_t c) { return FormHeading(table.columns[c]); });
  for (const std::size_t r : rows) {
    AddLine(strText, table, '\t', "\n", [&](std::size_t c) { return GetCell(table.columns[c], r); });
  }
  return strText;
}

}  // namespace skyframe::host
