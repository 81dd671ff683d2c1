#include <algorithm>
#include <array>
#include <cmath>

#include "JobBuilder.h"
#include "SteelSections.h"
#include "skyframe/generate/Generate.h"

namespace skyframe::host {

namespace {

constexpr int c_nX = 0;
constexpr int c_nZ = 2;

/// Points of a box-shaped grid, numbered along the axis with the most points last.
class CGrid {
 public:
  explicit CGrid(const std::array<int, 3>& count) : m_count(count) {
    m_axes = {0, 1, 2};
    std::stable_sort(m_axes.begin(), m_axes.end(), [&count](int a, int b) { return count[a] < count[b]; });
  }

  /// From 1.
  int GetNumber(const std::array<int, 3>& point) const {
    const auto [a, b, c] = m_axes;
    return point[a] + m_count[a] * (point[b] + m_count[b] * point[c]) + 1;
  }

  /// Calls the visitor with every point in the order of its number.
  template <class Visitor>
  void ForEach(Visitor visitor) const {
    const auto [a, b, c] = m_axes;
    std::array<int, 3> point = {};
    for (point[c] = 0; point[c] < m_count[c]; ++point[c]) {
      for (point[b] = 0; point[b] < m_count[b]; ++point[b]) {
        for (point[a] = 0; point[a] < m_count[a]; ++point[a]) visitor(point);
      }
    }
  }

 private:
  std::array<int, 3> m_count;
  std::array<int, 3> m_axes;  ///< axis with the fewest points first
};

/// Usual for so many storeys of a frame without bracing.
JobSection ChooseColumn(int nStoreys) {
  if (nStoreys <= 5) return MakeBoxSection(350, 14);
  if (nStoreys <= 10) return MakeBoxSection(450, 20);
  if (nStoreys <= 20) return MakeBoxSection(600, 30);
  return MakeBoxSection(800, 50);
}

/// Height about a fifteenth of the span, more in tall frames.
JobSection ChooseBeam(double dSpan, int nStoreys) {
  if (dSpan <= 6.0 && nStoreys <= 10) return MakeHSection(400, 200, 8, 13);
  if (dSpan <= 9.0 && nStoreys <= 20) return MakeHSection(600, 250, 10, 16);
  return MakeHSection(800, 300, 14, 26);
}

/// Damping ratio of steel structures of this height in frequent earthquakes. Source: GB 50011-2010, 8.2.2.
double ChooseDamping(double dHeight) {
  if (dHeight <= 50.0) return 0.04;
  return dHeight < 200.0 ? 0.03 : 0.02;
}

/// Floors without slabs: each frame, of either direction, may sway by itself. Three shapes along the height of each.
int ChooseModes(const BuildingParameters& parameters) {
  constexpr int c_nMost = 60;
  const int nFrames = parameters.nBaysX + parameters.nBaysY + 2;
  return std::min(c_nMost, nFrames * std::min(3, parameters.nStoreys));
}

class CBuildingGenerator {
 public:
  explicit CBuildingGenerator(const BuildingParameters& parameters)
      : m_parameters(parameters),
        m_count({parameters.nBaysX + 1, parameters.nBaysY + 1, parameters.nStoreys + 1}),
        m_grid(m_count),
        m_builder("Building, " + std::to_string(parameters.nBaysX) + " x " + std::to_string(parameters.nBaysY) +
                  " bays, " + std::to_string(parameters.nStoreys) + " storeys") {}

  Job Generate() {
    m_nColumn = m_builder.AddSection(ChooseColumn(m_parameters.nStoreys));
    m_nBeam = m_builder.AddSection(ChooseBeam(m_parameters.dSpan, m_parameters.nStoreys));
    m_grid.ForEach([this](const std::array<int, 3>& point) { AddNode(point); });
    m_grid.ForEach([this](const std::array<int, 3>& point) { AddElements(point); });
    for (int nCase = 0; nCase < 3; ++nCase) {
      m_grid.ForEach([this, nCase](const std::array<int, 3>& point) { AddLoad(point, nCase); });
    }
    m_builder.AddStatic(
        {.bNonlinear = false, .nCriterion = {}, .dTolerance = {}, .nMaxIterations = {}, .combination = {}});
    m_builder.AddEarthquake(ChooseModes(m_parameters), ChooseDamping(m_parameters.nStoreys * m_parameters.dHeight));
    return m_builder.Take();
  }

 private:
  void AddNode(const std::array<int, 3>& point) {
    const double dSpan = m_parameters.dSpan;
    m_builder.AddNode(point[0] * dSpan, point[1] * dSpan, point[2] * m_parameters.dHeight, c_nRigid,
                      point[2] == 0 ? "111111" : "000000");
  }

  /// The column that ends here, the two beams that start here.
  void AddElements(const std::array<int, 3>& point) {
    const auto [x, y, z] = point;
    if (z == 0) return;
    const int nHere = m_grid.GetNumber(point);
    m_builder.AddElement(c_nBeam, m_grid.GetNumber({x, y, z - 1}), nHere, m_nColumn);
    if (x + 1 < m_count[0]) m_builder.AddElement(c_nBeam, nHere, m_grid.GetNumber({x + 1, y, z}), m_nBeam);
    if (y + 1 < m_count[1]) m_builder.AddElement(c_nBeam, nHere, m_grid.GetNumber({x, y + 1, z}), m_nBeam);
  }

  /// Share of a span that belongs to a point: 1, or half of it at an edge.
  static double GetShare(int nPoint, int nCount) { return nPoint == 0 || nPoint + 1 == nCount ? 0.5 : 1.0; }

  void AddLoad(const std::array<int, 3>& point, int nCase) {
    const auto [x, y, z] = point;
    if (z == 0) return;
    const int nNode = m_grid.GetNumber(point);
    const double dWidthY = GetShare(y, m_count[1]) * m_parameters.dSpan;
    const double dArea = GetShare(x, m_count[0]) * m_parameters.dSpan * dWidthY;
    if (nCase == 0) m_builder.AddLoad(nCase, nNode, c_nZ, -m_parameters.dDeadLoad * dArea);
    if (nCase == 1) m_builder.AddLoad(nCase, nNode, c_nZ, -m_parameters.dLiveLoad * dArea);
    if (nCase == 2 && x == 0) {
      const double dHeight = (z + 1 == m_count[2] ? 0.5 : 1.0) * m_parameters.dHeight;
      m_builder.AddLoad(nCase, nNode, c_nX, m_parameters.dWindLoad * dWidthY * dHeight);
    }
  }

  const BuildingParameters& m_parameters;
  std::array<int, 3> m_count;  ///< grid points along X, Y, Z
  CGrid m_grid;
  CJobBuilder m_builder;
  int m_nColumn = 0;
  int m_nBeam = 0;
};

}  // namespace

Job GenerateBuilding(const BuildingParameters& parameters) { return CBuildingGenerator(parameters).Generate(); }

int ChooseStoreys(int nNodes, int nBaysX, int nBaysY) {
  const double dPlan = (nBaysX + 1.0) * (nBaysY + 1.0);
  return std::max(1, static_cast<int>(std::lround(nNodes / dPlan)) - 1);
}

BuildingParameters ChooseBuilding(int nNodes) {
  constexpr double c_dLevelsPerRow = 5.0;  // levels = 5 rows of columns: slender
  BuildingParameters parameters;
  const int nRows = std::max(2, static_cast<int>(std::lround(std::cbrt(nNodes / c_dLevelsPerRow))));
  parameters.nBaysX = nRows - 1;
  parameters.nBaysY = nRows - 1;
  parameters.nStoreys = ChooseStoreys(nNodes, parameters.nBaysX, parameters.nBaysY);
  return parameters;
}

}  // namespace skyframe::host
