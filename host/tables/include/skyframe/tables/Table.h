#pragma once

#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "skyframe/job/Language.h"

namespace skyframe::host {

/// What the rows of a table are about.
enum class RowSubject { None, Node, Element };

enum class ColumnKind { Number, Whole, Text };

/// A cell of a column of numbers without one.
inline constexpr double c_dNoNumber = std::numeric_limits<double>::quiet_NaN();

struct TableColumn {
  Words heading;
  std::string_view strUnit = {};  ///< empty: none
  ColumnKind kind = ColumnKind::Number;
  std::vector<double> numbers = {};     ///< by row; empty in a column of texts
  std::vector<std::string> texts = {};  ///< by row of a column of texts
};

/// How a footing comes from its column's rows.
enum class FootingKind { Sum, Largest, Smallest, Given };

/// A row below the others.
struct TableFooting {
  Words name;
  FootingKind kind = FootingKind::Sum;
  std::vector<double> numbers = {};  ///< by column, of all rows; c_dNoNumber: the column has none
};

/// Results in rows and columns. The numbers of the first column tell the rows apart: those of nodes, elements, modes.
struct Table {
  RowSubject subject = RowSubject::None;
  std::vector<int> subjects = {};  ///< by row: index of the node or the element; empty without a subject
  std::vector<TableColumn> columns = {};
  std::vector<TableFooting> footings = {};
  Words note{"", ""};  ///< what a reader must know; empty: nothing

  [[nodiscard]] std::size_t CountRows() const { return columns.empty() ? 0 : columns.front().numbers.size(); }
};

/// Of the numbers in those columns of a table that is complete.
void AddFooting(Table& table, const Words& name, FootingKind kind, std::span<const std::size_t> columns);
/// A footing of some rows alone, by column. What is given does not hold for them.
[[nodiscard]] std::vector<double> FormFooting(const Table& table, const TableFooting& footing,
                                              std::span<const std::size_t> rows);

/// "N (kN)", in the language in force.
[[nodiscard]] std::string FormHeading(const TableColumn& column);

/// How a column's numbers are shown: as many decimals for all as the largest one needs.
class CColumnFormat {
 public:
  explicit CColumnFormat(const TableColumn& column);

  /// Empty for c_dNoNumber.
  [[nodiscard]] std::string Show(double dValue) const;
  /// The longest text of the column.
  [[nodiscard]] const std::string& GetWidest() const { return m_strWidest; }

 private:
  int m_nDecimals = 0;
  bool m_bPowers = false;  ///< too large for a fixed point
  std::string m_strWidest;
};

/// With all digits that results have, decimal point; empty for c_dNoNumber.
[[nodiscard]] std::string FormatWhole(double dValue);

/// By which spreadsheets know a file in UTF-8.
inline constexpr std::string_view c_strByteOrderMark = "\xef\xbb\xbf";

/// RFC 4180, UTF-8 with a byte order mark: headings, rows, footings.
[[nodiscard]] std::string FormatCsv(const Table& table);
/// Some of the rows, with their own footings.
[[nodiscard]] std::string FormatCsv(const Table& table, std::span<const std::size_t> rows);
/// Rows behind their headings, as spreadsheets take them from the clipboard.
[[nodiscard]] std::string FormatTabbed(const Table& table, std::span<const std::size_t> rows);

}  // namespace skyframe::host
