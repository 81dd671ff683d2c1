#pragma once

#include <array>

#include "skyframe/numeric/SkylineKernel.h"

/// Register-tiled inner loops of the factorisation and of the solution with several right-hand sides,
/// one set per vector unit.
namespace skyframe::skyline {

inline constexpr int c_nGroup = 6;     ///< finished columns of one register tile
inline constexpr int c_nRowTile = 48;  ///< rows of a tile
inline constexpr int c_nMaxPanelWidth = 32;

/// Six finished columns of a row tile, of about the same top. They are six rows of a panel.
struct ColumnGroup {
  int nRows = c_nGroup;                           ///< columns in use; the others repeat the last one
  int nTop = 0;                                   ///< first row that any of them stores
  int nCommonTop = 0;                             ///< from this row down all of them are stored
  int nLastRow = 0;                               ///< the largest of rows
  std::array<int, c_nGroup> rows{};               ///< their numbers
  std::array<const double*, c_nGroup> heads{};    ///< L(k, rows[a]) = heads[a][k], nTop <= k < nCommonTop, zero-filled
  std::array<const double*, c_nGroup> columns{};  ///< L(k, rows[a]) = columns[a][k], nCommonTop <= k < tile
};

/// Consecutive rows nFirst .. nFirst + nRows - 1, at most c_nRowTile of them, whose columns are finished.
struct RowTile {
  int nFirst = 0;
  int nRows = 0;
  int nTop = 0;     ///< first row that any of the columns stores
  int nGroups = 0;  ///< groups cover what lies above nFirst
  std::array<ColumnGroup, (c_nRowTile + c_nGroup - 1) / c_nGroup> groups{};
  /// L(nFirst + b, nFirst + a), b < a; zero above the skyline and beyond nRows.
  std::array<std::array<double, c_nRowTile>, c_nRowTile + c_nGroup> triangle{};
};

/// A few columns interleaved by row: entry (r, c) is rows[(r - nBase) * width + c].
/// Zero above the skyline.
struct Panel {
  double* rows = nullptr;
  int nBase = 0;
  int nTop = 0;  ///< no column holds anything above this row; c_nRowTile rows above it are there and zero
  int nFirstCol = 0;
  int nCols = 0;  ///< columns in use, at most the width
};

/// The inner loops of one vector unit.
struct PanelKernel {
  int nPanelWidth;
  /// g(i) -= sum of L(k, i) g(k), nBegin <= k < nEnd <= tile.nFirst, for the rows i of the tile.
  void (*Update)(const RowTile& tile, const Panel& panel, int nBegin, int nEnd);
  /// The same over tile.nFirst <= k < i, row after row: the rows are then final.
  void (*Finish)(const RowTile& tile, const Panel& panel);
  /// g(k) -= sum of L(k, i) g(i) over the rows i of the tile, for nBegin <= k < nEnd <= tile.nFirst.
  void (*Subtract)(const RowTile& tile, const Panel& panel, int nBegin, int nEnd);
  /// The same for the rows k of the tile, the last one first.
  void (*FinishBack)(const RowTile& tile, const Panel& panel);
  /// L D L^T of the panel's own rows: D into pivots, 1 / D into reciprocals (nCols values each); row r keeps
  /// g(r, c), c > r.
  void (*FactoriseOwn)(const Panel& panel, double* pivots, double* reciprocals);
  /// Copies the rows nBegin .. nEnd - 1 of the columns, all of which store them, to the panel.
  void (*Gather)(const double* const* columns, const Panel& panel, int nBegin, int nEnd);
  /// Copies them back, row r multiplied by factors[r].
  void (*Scatter)(double* const* columns, const double* factors, const Panel& panel, int nBegin, int nEnd);
};

/// The kernel of a unit that IsAvailable, or the best one. bTall: for columns so tall that the wider panel, where the
/// unit has one, pays for what it wastes at their tops and diagonals.
PanelKernel SelectKernel(VectorUnit unit, bool bTall = false);

}  // namespace skyframe::skyline
