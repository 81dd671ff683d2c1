#include "skyframe/modal/ColumnStore.h"

#include "skyframe/numeric/TallColumns.h"

namespace skyframe {

void CColumnStore::Append(std::span<const double> column) {
  m_values.insert(m_values.end(), column.begin(), column.end());
  ++m_nCols;
}

void CColumnStore::MultiplyTransposed(std::span<const double> x, std::span<double> c) const {
  tall::MultiplyTransposed(m_values.data(), x, c.first(static_cast<std::size_t>(m_nCols)));
}

void CColumnStore::SubtractProduct(std::span<const double> c, std::span<double> y) const {
  tall::SubtractProduct(m_values.data(), c, y);
}

}  // namespace skyframe
