#pragma once

#include <vector>

#include "PanelKernel.h"
#include "skyframe/numeric/SkylineKernel.h"

namespace skyframe::skyline {

/// Forms the row tiles of finished columns. Columns of a tile are grouped by their tops, so that six of
/// them reach about equally far; where they do not, the rows between the highest and the lowest top are
/// copied with zeros filled in.
class CRowTileMaker {
 public:
  /// Reserves all memory that Form needs.
  CRowTileMaker(const Profile& profile, const double* values);

  /// The tile of the rows nFirst .. nEnd - 1, good until the next call.
  const RowTile& Form(int nFirst, int nEnd);

 private:
  void FormTriangle();
  void FormGroups();
  void FormHeads(ColumnGroup& group);

  Profile m_profile;
  const double* m_values;
  RowTile m_tile;
  std::vector<double> m_heads;
  std::size_t m_nHeads = 0;  ///< entries of m_heads in use
};

}  // namespace skyframe::skyline
