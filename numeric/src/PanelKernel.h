#pragma once

#include <array>

/// Register-tiled inner loops of the factorisation, one set per vector unit.
namespace skyframe::skyline {

inline constexpr int c_nGroup = 6;  ///< finished columns of one register tile

/// Six consecutive finished columns i .. i + 5, read where they lie. They are six rows of a panel.
struct ColumnGroup {
  int nFirst = 0;                                 ///< i
  int nRows = c_nGroup;                           ///< columns in use; the others repeat the last one
  int nCommonTop = 0;                             ///< from this row down to i - 1 all of them are stored
  std::array<int, c_nGroup> nTop{};               ///< first stored row of each, at most nCommonTop
  std::array<const double*, c_nGroup> columns{};  ///< L(k, i + a) = columns[a][k]
  /// L(i + b, i + a), b < a; zero above the skyline.
  std::array<std::array<double, c_nGroup>, c_nGroup> triangle{};
};

/// A few columns of the block in work, interleaved by row: entry (r, c) is rows[(r - nBase) * width + c].
/// Zero above the skyline.
struct Panel {
  double* rows = nullptr;
  int nBase = 0;
  int nTop = 0;  ///< no column holds anything above this row
  int nFirstCol = 0;
  int nCols = 0;  ///< columns in use, at most the width
};

/// The inner loops of one vector unit.
struct PanelKernel {
  int nPanelWidth;
  /// g(i) -= sum of L(k, i) g(k), nBegin <= k < nEnd, for the rows i of all groups.
  void (*Update)(const ColumnGroup* groups, int nGroups, const Panel& panel, int nBegin, int nEnd);
  /// The same over nBegin <= k < i, group after group, the 6 x 6 triangles included: the rows are then final.
  void (*Finish)(const ColumnGroup* groups, int nGroups, const Panel& panel, int nBegin);
};

/// 16-byte vectors; every processor has them.
PanelKernel GetKernel16();

#if defined(__x86_64__)
PanelKernel GetKernel32();  ///< needs AVX2 and FMA
PanelKernel GetKernel64();  ///< needs AVX-512 F
#endif

}  // namespace skyframe::skyline
