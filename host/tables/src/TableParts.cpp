#include "TableParts.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <span>

#include "texts.h"

namespace skyframe::host {

namespace {

/// Of values of one kind.
class CRoundOff {
 public:
  void Add(std::span<const double> values) {
    for (const double d : values) {
      if (std::isfinite(d)) m_dLargest = std::max(m_dLargest, std::abs(d));
    }
  }
  void Drop(std::span<double> values) const {
    for (double& d : values) {
      if (std::abs(d) < c_dRoundOff * m_dLargest) d = 0.0;
    }
  }

 private:
  double m_dLargest = 0.0;
};

}  // namespace

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

std::vector<NodeValues> WithoutRoundOff(std::vector<NodeValues> values) {
  for (const std::size_t nFirst : {0U, 3U}) {
    CRoundOff roundOff;
    for (const NodeValues& v : values) roundOff.Add(std::span(v).subspan(nFirst, 3));
    for (NodeValues& v : values) roundOff.Drop(std::span(v).subspan(nFirst, 3));
  }
  return values;
}

void DropRoundOff(Table& table, std::initializer_list<std::size_t> columns) {
  CRoundOff roundOff;
  for (const std::size_t c : columns) roundOff.Add(table.columns[c].numbers);
  for (const std::size_t c : columns) roundOff.Drop(table.columns[c].numbers);
}

Reading<Table> RefuseTable(std::string_view strReason) {
  Reading<Table> reading;
  reading.strError = strReason;
  return reading;
}

}  // namespace skyframe::host
