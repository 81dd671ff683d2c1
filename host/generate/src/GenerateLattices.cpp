#include <array>
#include <cmath>
#include <numbers>

#include "JobBuilder.h"
#include "skyframe/generate/Generate.h"

namespace skyframe::host {

namespace {

constexpr int c_nX = 0;
constexpr int c_nZ = 2;

JobSection MakeBarSection(std::string strId, double dArea) { return {std::move(strId), 1, dArea, 0.0, 0.0, 0.0}; }

StaticJob MakeLinear() {
  StaticJob analysis;
  analysis.bNonlinear = false;
  return analysis;
}

StaticJob MakeNonlinear() {
  StaticJob analysis;
  analysis.bNonlinear = true;
  analysis.nCriterion = 2;  // relative force
  analysis.dTolerance = 1.0e-8;
  analysis.nMaxIterations = 500;
  return analysis;
}

}  // namespace

Job GenerateTower(const TowerParameters& parameters) {
  CJobBuilder builder("Lattice tower, " + std::to_string(parameters.nPanels) + " panels");
  const int nLeg = builder.AddSection(MakeBarSection("leg", 3000.0));
  const int nBrace = builder.AddSection(MakeBarSection("brace", 1200.0));
  const auto Corner = [](int nLevel, int nCorner) { return 4 * nLevel + nCorner % 4 + 1; };

  for (int nLevel = 0; nLevel <= parameters.nPanels; ++nLevel) {
    const double dShare = static_cast<double>(nLevel) / parameters.nPanels;
    const double dHalf = 0.5 * std::lerp(parameters.dBase, parameters.dTop, dShare);
    const char* pszRestraint = nLevel == 0 ? "111000" : "000000";
    for (const auto& [nSignX, nSignY] : {std::array{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}) {
      builder.AddNode(nSignX * dHalf, nSignY * dHalf, nLevel * parameters.dPanelHeight, c_nPinned, pszRestraint);
    }
  }
  for (int nLevel = 1; nLevel <= parameters.nPanels; ++nLevel) {
    for (int nCorner = 0; nCorner < 4; ++nCorner) {
      builder.AddElement(c_nBar, Corner(nLevel - 1, nCorner), Corner(nLevel, nCorner), nLeg);
      builder.AddElement(c_nBar, Corner(nLevel - 1, nCorner), Corner(nLevel, nCorner + 1), nBrace);
      builder.AddElement(c_nBar, Corner(nLevel - 1, nCorner + 1), Corner(nLevel, nCorner), nBrace);
      builder.AddElement(c_nBar, Corner(nLevel, nCorner), Corner(nLevel, nCorner + 1), nBrace);
    }
    builder.AddElement(c_nBar, Corner(nLevel, 0), Corner(nLevel, 2), nBrace);
  }
  for (int nNode = 5; nNode <= 4 * (parameters.nPanels + 1); ++nNode) builder.AddLoad(0, nNode, c_nZ, -2.0);
  for (int nNode = 5; nNode <= 4 * (parameters.nPanels + 1); ++nNode) builder.AddLoad(1, nNode, c_nX, 1.0);
  builder.AddStatic(MakeLinear());
  return builder.Take();
}

namespace {

/// Nodes: the crown, then ring by ring outwards.
class CDomeGenerator {
 public:
  explicit CDomeGenerator(const DomeParameters& parameters)
      : m_parameters(parameters),
        m_type(parameters.bBeams ? c_nBeam : c_nBar),
        m_builder("Dome, " + std::to_string(parameters.nRings) + " rings of " + std::to_string(parameters.nSegments)) {}

  Job Generate() {
    m_nSection = m_builder.AddSection({"tube", 3, 4000.0, 2.6e7, 1.3e7, 1.3e7});
    AddNodes();
    for (int nRing = 1; nRing <= m_parameters.nRings; ++nRing) {
      for (int nSegment = 0; nSegment < m_parameters.nSegments; ++nSegment) AddMembers(nRing, nSegment);
    }
    AddLoads();
    m_builder.AddStatic(MakeLinear());
    m_builder.AddStatic(MakeNonlinear());
    return m_builder.Take();
  }

 private:
  int GetNode(int nRing, int nSegment) const {
    const int n = m_parameters.nSegments;
    return nRing == 0 ? 1 : 2 + (nRing - 1) * n + nSegment % n;
  }

  double GetRadius(double dRing) const { return 0.5 * m_parameters.dSpan * dRing / m_parameters.nRings; }

  void AddNodes() {
    // R = (a^2 + h^2)/(2h), z = sqrt(R^2 - r^2) - (R - h)
    const double a = 0.5 * m_parameters.dSpan;
    const double h = m_parameters.dRise;
    const double R = (a * a + h * h) / (2.0 * h);
    const JointKind joint = m_parameters.bBeams ? c_nRigid : c_nPinned;
    m_builder.AddNode(0.0, 0.0, h, joint);
    for (int nRing = 1; nRing <= m_parameters.nRings; ++nRing) {
      const bool bEdge = nRing == m_parameters.nRings;
      const double r = GetRadius(nRing);
      const double z = bEdge ? 0.0 : std::sqrt(R * R - r * r) - (R - h);
      for (int nSegment = 0; nSegment < m_parameters.nSegments; ++nSegment) {
        const double dAngle = 2.0 * std::numbers::pi * nSegment / m_parameters.nSegments;
        m_builder.AddNode(r * std::cos(dAngle), r * std::sin(dAngle), z, joint, bEdge ? "111000" : "000000");
      }
    }
  }

  /// The meridian from within, and unless this is the edge the ring; a diagonal outside the first ring.
  void AddMembers(int nRing, int nSegment) {
    m_builder.AddElement(m_type, GetNode(nRing - 1, nSegment), GetNode(nRing, nSegment), m_nSection);
    if (nRing < m_parameters.nRings) {
      m_builder.AddElement(m_type, GetNode(nRing, nSegment), GetNode(nRing, nSegment + 1), m_nSection);
    }
    if (nRing > 1) m_builder.AddElement(m_type, GetNode(nRing - 1, nSegment), GetNode(nRing, nSegment + 1), m_nSection);
  }

  /// Each node carries the plan area half way to its neighbours.
  void AddLoads() {
    const double dFirst = GetRadius(0.5);
    m_builder.AddLoad(0, 1, c_nZ, -m_parameters.dLoad * std::numbers::pi * dFirst * dFirst);
    for (int nRing = 1; nRing < m_parameters.nRings; ++nRing) {
      const double dInner = GetRadius(nRing - 0.5);
      const double dOuter = GetRadius(nRing + 0.5);
      const double dArea = std::numbers::pi * (dOuter * dOuter - dInner * dInner) / m_parameters.nSegments;
      for (int nSegment = 0; nSegment < m_parameters.nSegments; ++nSegment) {
        m_builder.AddLoad(0, GetNode(nRing, nSegment), c_nZ, -m_parameters.dLoad * dArea);
      }
    }
  }

  const DomeParameters& m_parameters;
  ElementType m_type;
  CJobBuilder m_builder;
  int m_nSection = 0;
};

}  // namespace

Job GenerateDome(const DomeParameters& parameters) { return CDomeGenerator(parameters).Generate(); }

Job GenerateArch(const ArchParameters& parameters) {
  const bool bBars = parameters.nSegments == 2;
  const int nApex = parameters.nSegments / 2 + 1;
  CJobBuilder builder(bBars ? "Two-bar arch" : "Arch of " + std::to_string(parameters.nSegments) + " beams");
  const int nSection =
      builder.AddSection(bBars ? MakeBarSection("bar", 1000.0) : JobSection{"rib", 2, 20000.0, 4.0e8, 6.0e8, 2.0e8});
  for (int k = 0; k <= parameters.nSegments; ++k) {
    const double dShare = 2.0 * k / parameters.nSegments - 1.0;  // -1 .. 1
    const bool bSupport = k == 0 || k == parameters.nSegments;
    // z = h (1 - (x/a)^2); the plane of the arch holds it sideways
    builder.AddNode(dShare * parameters.dHalfSpan, 0.0, parameters.dRise * (1.0 - dShare * dShare),
                    bBars ? c_nPinned : c_nRigid, bSupport ? (bBars ? "111000" : "111111") : "010000");
    if (k > 0) builder.AddElement(bBars ? c_nBar : c_nBeam, k, k + 1, nSection);
  }
  builder.AddLoad(0, nApex, c_nZ, -parameters.dLoad);
  builder.AddStatic(MakeLinear());
  builder.AddStatic(MakeNonlinear());
  return builder.Take();
}

}  // namespace skyframe::host
