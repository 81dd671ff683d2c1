#include "TableParts.h"

#include <algorithm>
#include <numeric>

#include "texts.h"

namespace skyframe::host {

TableColumn& AddColumn(Table& table, const Words& heading, std::string_view strUnit, ColumnKind kind) {
  const std::size_t nRows = table.columns.empty() ? table.subjects.size() : table.CountRows();
  TableColumn& column = table.columns.emplace_back(TableColumn{heading, strUnit, kind});
  if (kind == ColumnKind::Text) {
    column.texts.resize(nRows);
  } else {
    column.numbers.resize(nRows, c_dNoNumber);
  }
  return column;
}

Table StartNodeTable(const Job& job, std::vector<int> nodes) {
  Table table{RowSubject::Node, std::move(nodes)};
  TableColumn& column = AddColumn(table, texts::c_node, "", ColumnKind::Whole);
  std::ranges::transform(table.subjects, column.numbers.begin(),
                         [&job](int i) { return job.nodes[static_cast<std::size_t>(i)].nId; });
  return table;
}

Table StartElementTable(std::vector<int> elements) {
  Table table{RowSubject::Element, std::move(elements)};
  TableColumn& number = AddColumn(table, texts::c_element, "", ColumnKind::Whole);
  std::ranges::transform(table.subjects, number.numbers.begin(), [](int i) { return i + 1; });
  return table;
}

void AddSections(Table& table, const Job& job) {
  TableColumn& section = AddColumn(table, texts::c_section, "", ColumnKind::Text);
  std::ranges::transform(table.subjects, section.texts.begin(), [&job](int i) {
    const JobElement& element = job.elements[static_cast<std::size_t>(i)];
    return job.sections[static_cast<std::size_t>(element.nSection)].strId;
  });
}

std::vector<int> CountUp(std::size_t nCount) {
  std::vector<int> indices(nCount);
  std::iota(indices.begin(), indices.end(), 0);
  return indices;
}

void AddExtremes(Table& table, std::size_t nFirst, std::size_t nEnd, bool bAbsolute) {
  std::vector<std::size_t> columns(nEnd - nFirst);
  std::iota(columns.begin(), columns.end(), nFirst);
  AddFooting(table, texts::c_max, FootingKind::Largest, columns);
  if (!bAbsolute) AddFooting(table, texts::c_min, FootingKind::Smallest, columns);
}

Reading<Table> RefuseTable(std::string_view strReason) {
  Reading<Table> reading;
  reading.strError = strReason;
  return reading;
}

}  // namespace skyframe::host
