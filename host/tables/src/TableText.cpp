#include <algorithm>
#include <cmath>
#include <numeric>

#include "skyframe/job/Text.h"
#include "skyframe/tables/Table.h"

namespace skyframe::host {

namespace {

constexpr int c_nDigits = 6;  // of a column's largest number
constexpr int c_nMostDecimals = 4;
constexpr double c_dLargestFixed = 1.0e9;

/// NaN does not count.
double Join(FootingKind kind, double dOne, double dOther) {
  switch (kind) {
    case FootingKind::Sum:
      return std::isnan(dOne) ? dOther : dOne + (std::isnan(dOther) ? 0.0 : dOther);
    case FootingKind::Largest:
      return std::fmax(dOne, dOther);
    case FootingKind::Smallest:
      return std::fmin(dOne, dOther);
    default:
      return c_dNoNumber;
  }
}

std::string GetCell(const TableColumn& column, std::size_t nRow) {
  return column.kind == ColumnKind::Text ? column.texts[nRow] : FormatWhole(column.numbers[nRow]);
}

/// In quotes where it must be.
std::string QuoteField(std::string strText, char cBetween) {
  if (strText.find_first_of("\"\r\n") == std::string::npos && strText.find(cBetween) == std::string::npos)
    return strText;
  for (std::size_t n = 0; (n = strText.find('"', n)) != std::string::npos; n += 2) strText.insert(n, 1, '"');
  return '"' + strText + '"';
}

/// A line of fields, one for each column.
template <class Field>
void AddLine(std::string& strText, const Table& table, char cBetween, std::string_view strEnd, Field field) {
  for (std::size_t c = 0; c < table.columns.size(); ++c) {
    if (c > 0) strText += cBetween;
    strText += QuoteField(field(c), cBetween);
  }
  strText += strEnd;
}

}  // namespace

std::vector<double> FormFooting(const Table& table, const TableFooting& footing, std::span<const std::size_t> rows) {
  if (rows.size() == table.CountRows()) return footing.numbers;
  std::vector<double> numbers(footing.numbers.size(), c_dNoNumber);
  for (std::size_t c = 0; c < numbers.size(); ++c) {
    if (std::isnan(footing.numbers[c])) continue;
    for (const std::size_t r : rows) numbers[c] = Join(footing.kind, numbers[c], table.columns[c].numbers[r]);
  }
  return numbers;
}

void AddFooting(Table& table, const Words& name, FootingKind kind, std::span<const std::size_t> columns) {
  TableFooting footing{name, kind, std::vector<double>(table.columns.size(), c_dNoNumber)};
  for (const std::size_t c : columns) {
    for (const double d : table.columns[c].numbers) footing.numbers[c] = Join(kind, footing.numbers[c], d);
  }
  table.footings.push_back(std::move(footing));
}

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
  return FormatDecimals(dValue, m_nDecimals);
}

std::string FormatWhole(double dValue) { return std::isnan(dValue) ? std::string() : Format("%.12g", dValue + 0.0); }

std::string FormatCsv(const Table& table) {
  std::vector<std::size_t> rows(table.CountRows());
  std::iota(rows.begin(), rows.end(), std::size_t{0});
  return FormatCsv(table, rows);
}

std::string FormatCsv(const Table& table, std::span<const std::size_t> rows) {
  std::string strText(c_strByteOrderMark);
  constexpr std::string_view c_strEnd = "\r\n";
  AddLine(strText, table, ',', c_strEnd, [&](std::size_t c) { return FormHeading(table.columns[c]); });
  for (const std::size_t r : rows) {
    AddLine(strText, table, ',', c_strEnd, [&](std::size_t c) { return GetCell(table.columns[c], r); });
  }
  for (const TableFooting& footing : table.footings) {
    const std::vector<double> numbers = FormFooting(table, footing, rows);
    AddLine(strText, table, ',', c_strEnd,
            [&](std::size_t c) { return c == 0 ? std::string(Say(footing.name)) : FormatWhole(numbers[c]); });
  }
  return strText;
}

std::string FormatTabbed(const Table& table, std::span<const std::size_t> rows) {
  std::string strText;
  AddLine(strText, table, '\t', "\n", [&](std::size_t c) { return FormHeading(table.columns[c]); });
  for (const std::size_t r : rows) {
    AddLine(strText, table, '\t', "\n", [&](std::size_t c) { return GetCell(table.columns[c], r); });
  }
  return strText;
}

}  // namespace skyframe::host
