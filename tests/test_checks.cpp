// Quantities of storeys and modes against figures formed by hand; limits against the tables of the code.

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "skyframe/checks/CheckList.h"
#include "skyframe/checks/HistoryResponse.h"

namespace skyframe::host {
namespace {

// Shear frame of two storeys of 3 m with m = 10 t and k = 40 MN/m each: omega^2 = (3 -+ sqrt 5)/2 k/m, the modes are
// (0.618, 1) and (1, -0.618), gamma phi = (0.7236, 1.1708) and (0.2764, -0.1708).
constexpr double m = 1.0e4, k = 4.0e7;

JobNode MakeNode(double dX, double dZ) {
  JobNode node;
  node.dX = dX;
  node.dZ = dZ;
  return node;
}

JobReport MakeReport(int nStructure, int nEdition) {
  JobReport report;
  report.nStructure = nStructure;
  report.nEdition = nEdition;
  return report;
}

/// A beam between two columns; between the floors a node that is no floor.
Job MakeFrame() {
  Job job;
  for (const double dZ : {6.0, 3.0, 0.0}) {
    for (const double dX : {0.0, 4.0}) job.nodes.push_back(MakeNode(dX, dZ));
  }
  job.nodes.push_back(MakeNode(4.0, 4.5));
  job.sections.push_back({});
  for (const auto& [nI, nJ] : {std::pair(1, 2), {3, 4}, {1, 3}, {2, 7}, {7, 4}, {3, 5}, {4, 6}}) {
    job.elements.push_back({c_nBeam, nI, nJ, 0});
  }
  return job;
}

/// The floor's mass stands in halves at its ends.
ModalBasis MakeBasis() {
  ModalBasis basis;
  const double r = 0.5 * (std::sqrt(5.0) - 1.0), norm = 1.0 / std::sqrt(m * (1.0 + r * r));
  const double top[] = {norm, -r * norm}, first[] = {r * norm, norm};
  basis.omega = {r * std::sqrt(k / m), std::sqrt(k / m) / r};
  basis.masses.assign(7, {});
  for (std::size_t n = 0; n < 4; ++n) basis.masses[n] = {0.5 * m, 0.5 * m, 0.5 * m};
  for (std::size_t i = 0; i < 2; ++i) {
    NodeField shape(7);
    for (std::size_t n = 0; n < 4; ++n) shape[n][0] = n < 2 ? top[i] : first[i];
    shape[6][0] = 0.5 * (top[i] + first[i]);  // without mass
    basis.shapes.push_back(shape);
    for (NodeValues& value : shape) value[0] *= 0.5 * m;
    shape[6] = {};
    basis.inertia.push_back(shape);
  }
  return basis;
}

TEST(Checks, ShearFrameByHand) {
  const Job job = MakeFrame();
  const ModalBasis basis = MakeBasis();
  const auto storeys = FormStoreys(job);
  ASSERT_TRUE(storeys);
  ASSERT_EQ(storeys->storeys.size(), 2U);
  EXPECT_EQ(storeys->storeys[1].nodes.size(), 3U);
  EXPECT_EQ(storeys->storeys[1].columns.size(), 2U);
  ModalLoads loads{{1.0, 0.0, 0.0}, 0, {0.05, 0.05}, {0.10, 0.16}, {}};
  loads.gamma = FormParticipation(basis, loads.direction);
  const auto response = FormStoreyResponse(job, *storeys, basis, loads, {1.0, 0.0});
  // alpha g m = 9.8 and 15.68 kN
  const double V2 = std::hypot(9800.0 * 1.1708204, 15680.0 * 0.1708204);
  const double V1 = std::hypot(9800.0 * 1.8944272, 15680.0 * 0.1055728);
  const double M1 = std::hypot(9800.0 * (0.7236068 * 3 + 1.1708204 * 6), 15680.0 * (0.2763932 * 3 - 0.1708204 * 6));
  const double u2 = std::hypot(9800.0 * 1.1708204 / 0.381966, 15680.0 * 0.1708204 / 2.618034) / k;
  EXPECT_NEAR(response[1].dShear, V2, 1e-2);
  EXPECT_NEAR(response[0].dShear, V1, 1e-2);
  EXPECT_NEAR(response[0].dForce, std::hypot(9800.0 * 0.7236068, 15680.0 * 0.2763932), 1e-2);
  EXPECT_NEAR(response[0].dMoment, M1, 1e-1);
  EXPECT_NEAR(response[1].dDrift, V2 / k, 1e-9);  // the shear over the storey's stiffness
  EXPECT_NEAR(response[0].dAngle, V1 / k / 3.0, 1e-9);
  EXPECT_NEAR(response[1].dLargest, u2, 1e-9);
  EXPECT_NEAR(response[0].GetShearWeight(), V1 / (2.0 * m * 9.81), 1e-9);
  EXPECT_NEAR(CombineBaseShear(basis, loads)[0], V1, 1e-2);
  EXPECT_NEAR(FormMassShares(basis, 0)[0], 0.9472136, 1e-7);

  // first floor at 10 mm, top at 13 mm: the base shear is that of the first storey
  HistoryResultFile history;
  history.nSteps = 1;
  history.displacements.resize(7);
  const double x[] = {0.013, 0.013, 0.010, 0.010, 0.0, 0.0, 0.0115};
  for (std::size_t n = 0; n < 7; ++n) history.displacements[n] = {{{x[n]}, {0.0}, {0.0}}};
  EXPECT_NEAR(FormHistoryShear(basis, history, {1.0, 0.0}).at(0), 0.010 * k, 1e-3);
  EXPECT_NEAR(FormStoreyPeaks(*storeys, history, {1.0, 0.0})[1].dAngle, 0.001, 1e-12);
}

TEST(Checks, TranslationIsToldFromTorsion) {
  const Job job = MakeFrame();
  ModalBasis basis = MakeBasis();
  for (std::size_t n = 0; n < 4; ++n) {  // about the middle of the beam, 1 : 3 with the motion along X
    basis.inertia[0][n][1] = std::sqrt(3.0) * basis.inertia[0][n][0] * (n % 2 == 0 ? -1.0 : 1.0);
  }
  const MotionShares shares = FormMotionShares(job, *FormStoreys(job), basis, 0);
  EXPECT_NEAR(shares.dX, 0.25, 1e-12);
  EXPECT_NEAR(shares.dTorsion, 0.75, 1e-12);
  const FirstModes first = FindFirstModes(std::array{shares, FormMotionShares(job, *FormStoreys(job), basis, 1)});
  EXPECT_EQ(first.torsion, 0U);
  EXPECT_EQ(first.translation, 1U);
}

TEST(Checks, OnlyBuildingsHaveStoreys) {
  Job job = MakeFrame();
  job.report.storeys = {0.0, 4.5, 6.0};  // the job's own levels
  EXPECT_EQ(FormStoreys(job)->storeys[0].floor, std::vector<std::size_t>{6});
  job.report.nStructure = c_nTower;
  EXPECT_FALSE(FormStoreys(job));
  job = MakeFrame();
  for (JobElement& element : job.elements) element.nType = c_nBar;
  EXPECT_FALSE(FormStoreys(job));
  job.report.nStructure = c_nSteelFrame;
  EXPECT_TRUE(FormStoreys(job));
}

// Two close modes: r = 10/11 and zeta = 0.05 give
// rho = 8 zeta^2 (1 + r) r^1.5 / ((1 - r^2)^2 + 4 zeta^2 r (1 + r)^2) ; the top's shears have opposite signs.
TEST(Checks, CloseModesAreCombinedWithTheirSigns) {
  const Job job = MakeFrame();
  ModalBasis basis = MakeBasis();
  basis.omega = {10.0, 11.0};
  ModalLoads loads{{1.0, 0.0, 0.0}, 1, {0.05, 0.05}, {0.10, 0.40}, {}};
  loads.gamma = FormParticipation(basis, loads.direction);
  const auto response = FormStoreyResponse(job, *FormStoreys(job), basis, loads, {1.0, 0.0});
  constexpr double c_dRho = 0.5232153;
  const auto combine = [](double a, double b) { return std::sqrt(a * a + b * b + 2.0 * c_dRho * a * b); };
  const double first = 9800.0, second = 4.0 * 9800.0;  // alpha g m
  EXPECT_NEAR(response[1].dShear, combine(first * 1.1708204, -second * 0.1708204), 1.0);
  EXPECT_NEAR(response[0].dShear, combine(first * 1.8944272, second * 0.1055728), 1.0);
  EXPECT_NEAR(response[0].dForce, combine(first * 0.7236068, second * 0.2763932), 1.0);
  // g is 9.8 and u = alpha gamma g phi / omega^2
  const double u1 = 0.98 * 1.1708204 / 100.0, u2 = -3.92 * 0.1708204 / 121.0;
  const double v1 = 0.98 * 0.7236068 / 100.0, v2 = 3.92 * 0.2763932 / 121.0;
  EXPECT_NEAR(response[1].dLargest, combine(u1, u2), 1e-6);
  EXPECT_NEAR(response[1].dDrift, combine(u1 - v1, u2 - v2), 1e-6);  // not the difference of the combined ones
}

/// Storeys of 4.5 m and 1.5 m.
TEST(Checks, DriftsAreSeenAgainstTheirOwnHeights) {
  Job job = MakeFrame();
  for (const std::size_t n : {2U, 3U}) job.nodes[n].dZ = 4.5;
  job.nodes[6].dZ = 5.0;
  const ModalBasis basis = MakeBasis();
  ModalLoads loads{{1.0, 0.0, 0.0}, 0, {0.05, 0.05}, {0.10, 0.0}, {}};
  loads.gamma = FormParticipation(basis, loads.direction);
  const auto storeys = FormStoreys(job);
  const auto response = FormStoreyResponse(job, *storeys, basis, loads, {1.0, 0.0});
  EXPECT_NEAR(response[0].dAngle, 9800.0 * 1.8944272 / k / 4.5, 1e-10);
  EXPECT_NEAR(response[1].dAngle, 9800.0 * 1.1708204 / k / 1.5, 1e-10);
  EXPECT_NEAR(response[1].dMoment, 9800.0 * 1.1708204 * 1.5, 1e-2);
  EXPECT_NEAR(response[0].dMoment, 9800.0 * (1.1708204 * 6.0 + 0.7236068 * 4.5), 1e-2);
  const JobReport report = MakeReport(c_nSteelFrame, c_nEdition2010);
  const CCodeLimits limits(report);
  const auto checks = CheckStoreys(response, limits, {3, 0}, 1.0);
  EXPECT_EQ(checks[0].kind, CheckKind::ShearWeight);  // 1.8944 alpha 9.8 / (2 9.81) in the first storey
  EXPECT_EQ(checks[0].nStorey, 1);
  EXPECT_NEAR(checks[0].dValue, 0.1 * 1.8944272 * 9.8 / (2.0 * 9.81), 1e-7);
  EXPECT_EQ(checks[1].nStorey, 2);  // the lower shear, but the smaller height
  EXPECT_NEAR(checks[1].limit->dValue, 0.004, 1e-12);
  EXPECT_EQ(CheckStoreys(response, limits, {3, 1}, 1.0).front().kind, CheckKind::RareDrift);
}

// The floor's mass stands 1 : 3 at its ends, the centre at 3 m of 4 m, J = m/4 9 + 3m/4 1 = 3 m.
TEST(Checks, SharesOfAFloorWhoseCentreIsOff) {
  Job job = MakeFrame();
  ModalBasis basis = MakeBasis();
  const struct {
    double left, right;  // motion along Y of the ends
    double dY, dTorsion;
  } cases[] = {{1.0, 1.0, 1.0, 0.0},     // all along Y
               {3.0, -1.0, 0.0, 1.0},    // about the centre of mass
               {0.0, 4.0, 0.75, 0.25},   // about the left end: (3 m)^2/m and (3 m)^2/(3 m)
               {4.0, 0.0, 0.25, 0.75}};  // about the right end: m and 3 m
  for (const auto& c : cases) {
    for (const std::size_t n : {0U, 1U, 2U, 3U}) {
      basis.masses[n] = Vector3{(n % 2 == 0 ? 0.25 : 0.75) * m, (n % 2 == 0 ? 0.25 : 0.75) * m, 0.0};
      basis.inertia[0][n] = {};
      basis.inertia[0][n][1] = 1e-3 * basis.masses[n][1] * (n % 2 == 0 ? c.left : c.right);
    }
    const auto storeys = FormStoreys(job);
    const MotionShares shares = FormMotionShares(job, *storeys, basis, 0);
    EXPECT_NEAR(shares.dY, c.dY, 1e-12);
    EXPECT_NEAR(shares.dTorsion, c.dTorsion, 1e-12);
    EXPECT_NEAR(FormStoreyMass(job, basis, storeys->storeys[0].floor).dX, 3.0, 1e-12);
  }
}

// The floor's ends stand at (0, 0) and (4, 3): J = m 2.5^2, so that a turn of 0.4 about the centre weighs as much as a
// motion of 1.
TEST(Checks, SharesOfAFloorAskew) {
  Job job = MakeFrame();
  for (JobNode& node : job.nodes) node.dY = 0.75 * node.dX;
  ModalBasis basis = MakeBasis();
  for (const std::size_t n : {0U, 1U, 2U, 3U}) {
    const double dSide = n % 2 == 0 ? -1.0 : 1.0;
    basis.inertia[0][n] = {0.5 * m * (1.0 - 0.4 * 1.5 * dSide), 0.5 * m * 0.4 * 2.0 * dSide};
  }
  const MotionShares shares = FormMotionShares(job, *FormStoreys(job), basis, 0);
  EXPECT_NEAR(shares.dX, 0.5, 1e-12);
  EXPECT_NEAR(shares.dY, 0.0, 1e-12);
  EXPECT_NEAR(shares.dTorsion, 0.5, 1e-12);
}

// The floors' ends move 1 : 3 and 0.5 : 1: ratios 3/2 and, of the drifts 0.5 and 2, 2/1.25.
TEST(Checks, RatiosOfATwistedBuilding) {
  const Job job = MakeFrame();
  ModalBasis basis = MakeBasis();
  const double u[] = {1.0, 3.0, 0.5, 1.0};
  for (const std::size_t n : {0U, 1U, 2U, 3U}) basis.shapes[0][n] = {0.0, -1e-3 * u[n]};
  const ModalLoads loads{{0.0, 1.0, 0.0}, 0, {0.05, 0.05}, {basis.omega[0] * basis.omega[0] / 9.8, 0.0}, {1.0, 0.0}};
  const auto response = FormStoreyResponse(job, *FormStoreys(job), basis, loads, {0.0, 1.0});
  EXPECT_NEAR(response[1].dMean, 2e-3, 1e-12);
  EXPECT_NEAR(response[1].GetDisplacementRatio(), 1.5, 1e-9);
  EXPECT_NEAR(response[1].dMeanDrift, 1.25e-3, 1e-12);
  EXPECT_NEAR(response[1].GetDriftRatio(), 1.6, 1e-9);
  const JobReport report;
  const auto checks = CheckStoreys(response, CCodeLimits(report), {3, 0}, 1.0);
  EXPECT_EQ(checks[2].kind, CheckKind::RegularDisplacement);
  EXPECT_NEAR(checks[3].dValue, 1.6, 1e-9);
  EXPECT_EQ(checks[3].verdict, Verdict::NotSatisfied);
  EXPECT_TRUE(checks[3].bInformation);
}

// With one frequency for all modes V = omega^2 sum m u, however they are scaled and mixed; one that follows from the
// others takes no part.
TEST(Checks, HistoryShearOfModesThatAreNotOrthogonal) {
  ModalBasis basis = MakeBasis();
  basis.omega.assign(3, 10.0);
  for (std::size_t n = 0; n < 7; ++n) {
    basis.shapes[0][n][0] *= 3.0;
    basis.shapes[1][n][0] += basis.shapes[0][n][0];
    for (NodeField& shape : basis.shapes) shape[n][1] = 2.0 * shape[n][0];
  }
  basis.shapes.push_back(basis.shapes[0]);
  basis.inertia = basis.shapes;
  for (NodeField& inertia : basis.inertia) {
    for (std::size_t n = 0; n < 7; ++n) {
      for (double& d : inertia[n]) d *= n < 4 ? 0.5 * m : 0.0;
    }
  }
  HistoryResultFile history;
  history.nSteps = 2;
  history.displacements.resize(7);
  const double x[] = {0.013, 0.013, 0.010, 0.010, 0.0, 0.0, 0.0115};
  for (std::size_t n = 0; n < 7; ++n) history.displacements[n] = {{{0.0, x[n]}, {0.0, 2.0 * x[n]}, {0.0, 0.0}}};
  const auto shear = FormHistoryShear(basis, history, {0.6, 0.8});
  EXPECT_NEAR(shear.at(0), 0.0, 1e-9);
  EXPECT_NEAR(shear.at(1), 100.0 * m * 0.023 * (0.6 + 1.6), 1e-3);
}

// A setback, a floor that is 8 mm askew, a column out of plumb and a mast on the roof.
TEST(Checks, StoreysOfAnIrregularBuilding) {
  Job job;
  const std::pair<double, double> places[] = {{0, 0},     {4, 0},   {8, 0},     {0, 3.6}, {4, 3.6},
                                              {8, 3.608}, {0, 7.0}, {4.2, 7.0}, {0, 8.5}, {8, -0.4}};
  for (const auto& [dX, dZ] : places) job.nodes.push_back(MakeNode(dX, dZ));
  job.sections.push_back({});
  for (const auto& [nI, nJ] :
       {std::pair(1, 4), {2, 5}, {3, 6}, {4, 5}, {5, 6}, {4, 7}, {5, 8}, {7, 8}, {7, 9}, {10, 3}}) {
    job.elements.push_back({c_nBeam, nI, nJ, 0});
  }
  job.report.nStructure = c_nSteelFrame;
  job.report.storeys = {0.0, 3.6, 7.0};
  using Nodes = std::vector<std::size_t>;
  const auto storeys = FormStoreys(job);
  ASSERT_EQ(storeys->storeys.size(), 2U);
  EXPECT_EQ(storeys->base, (Nodes{0, 1, 2, 9}));
  EXPECT_EQ(storeys->storeys[0].nodes, (Nodes{3, 4, 5}));
  EXPECT_EQ(storeys->storeys[0].floor, (Nodes{3, 4, 5}));
  EXPECT_EQ(storeys->storeys[0].columns.size(), 3U);
  EXPECT_EQ(storeys->storeys[1].nodes, (Nodes{6, 7, 8}));  // the mast's mass is the roof's
  EXPECT_EQ(storeys->storeys[1].floor, (Nodes{6, 7}));
  EXPECT_EQ(storeys->storeys[1].columns, (std::vector<std::pair<std::size_t, std::size_t>>{{6, 3}}));
  job.report.storeys.clear();  // the foundation's end is the lowest level then, and 0 has no beam
  EXPECT_NEAR(FormStoreys(job)->storeys[0].dBottom, -0.4, 1e-12);
  EXPECT_NEAR(FormStoreys(job)->storeys[0].GetHeight(), 4.0, 1e-12);

  Job heights;
  for (const double dZ : {3.0, 0.012, 0.0, 0.009, -0.001}) heights.nodes.push_back(MakeNode(0.0, dZ));
  const auto levels = FormNodeLevels(heights);  // a level does not creep upwards with its nodes
  ASSERT_EQ(levels.size(), 3U);
  EXPECT_EQ(levels[0].nodes, (Nodes{4, 2, 3}));
  EXPECT_EQ(levels[1].nodes, Nodes{1});
  EXPECT_EQ(levels[2].dHeight, 3.0);
}

TEST(Checks, LimitsOfTheEditions) {
  const struct {
    int nEdition;
    std::array<double, 6> below, above;  // %, T1 below 3.5 s and above 5 s; 6 to 9 degrees
  } ratios[] = {{c_nEdition2001, {0, 1.6, 2.4, 3.2, 4.8, 6.4}, {0, 1.2, 1.8, 2.4, 3.2, 4.0}},
                {c_nEdition2010, {0.8, 1.6, 2.4, 3.2, 4.8, 6.4}, {0.6, 1.2, 1.8, 2.4, 3.6, 4.8}}};
  for (const auto& c : ratios) {
    const JobReport report = MakeReport(c_nOther, c.nEdition);
    const CCodeLimits limits(report);
    for (std::size_t i = 0; i < c.below.size(); ++i) {
      const auto percent = [&](double T1) {
        return 100.0 * limits.FindShearWeight(static_cast<int>(i), T1).value_or(Limit{}).dValue;
      };
      for (const double T1 : {0.1, 3.5}) EXPECT_NEAR(percent(T1), c.below[i], 1e-12) << i;
      for (const double T1 : {5.0, 9.0}) EXPECT_NEAR(percent(T1), c.above[i], 1e-12) << i;
      EXPECT_NEAR(percent(4.25), 0.5 * (c.below[i] + c.above[i]), 1e-12) << i;
      EXPECT_NEAR(percent(3.8), 0.8 * c.below[i] + 0.2 * c.above[i], 1e-12) << i;
    }
  }
  const struct {
    int nStructure, n2001, n2010, nRare;
  } drifts[] = {{c_nSteelFrame, 300, 250, 50}, {c_nConcreteFrame, 550, 550, 50},
                {c_nFrameWall, 800, 800, 100}, {c_nWalls, 1000, 1000, 120},
                {c_nTower, 0, 0, 0},           {c_nOther, 0, 0, 0}};
  for (const auto& c : drifts) {
    for (const int nEdition : {c_nEdition2001, c_nEdition2010}) {
      const JobReport report = MakeReport(c.nStructure, nEdition);
      const CCodeLimits limits(report);
      const auto invert = [](const std::optional<Limit>& limit) { return limit ? 1.0 / limit->dValue : 0.0; };
      EXPECT_NEAR(invert(limits.FindDrift(0)), nEdition == c_nEdition2001 ? c.n2001 : c.n2010, 1e-9);
      EXPECT_NEAR(invert(limits.FindDrift(1)), c.nRare, 1e-9);
    }
  }
  const JobReport early = MakeReport(c_nOther, c_nEdition2001);
  EXPECT_FALSE(CCodeLimits(early).FindShearWeight(0, 1.0));
  JobReport own;
  own.limits.dDrift = 400.0;
  EXPECT_TRUE(CCodeLimits(own).FindDrift(0)->bOwn);
  EXPECT_EQ(FindPeakAcceleration(c_nEdition2001, 0, 1), std::nullopt);
  EXPECT_EQ(FindPeakAcceleration(c_nEdition2010, 0, 1), 1.25);
  EXPECT_EQ(FindPeakAcceleration(c_nEdition2001, 4, 0), 1.10);
  EXPECT_NEAR(FormShearFactor({.dShear = 2.0, .dWeightAbove = 100.0}, Limit{0.032}), 1.6, 1e-12);
  EXPECT_EQ(FormShearFactor({.dShear = 4.0, .dWeightAbove = 100.0}, Limit{0.032}), 1.0);
  EXPECT_EQ(FormCheck(CheckKind::Drift, 1.0 / 301, Limit{1.0 / 300}, false).verdict, Verdict::Satisfied);
  EXPECT_EQ(FormCheck(CheckKind::Drift, 1.0 / 299, Limit{1.0 / 300}, false).verdict, Verdict::NotSatisfied);
  EXPECT_EQ(FormCheck(CheckKind::ShearWeight, 0.0319, Limit{0.032}, true).verdict, Verdict::NotSatisfied);
  EXPECT_EQ(FormUnchecked(CheckKind::Drift, Doubt::OtherModes).verdict, Verdict::NotChecked);
}

TEST(Checks, MassAlongTheEarthquake) {
  ModalBasis basis = MakeBasis();  // the two modes hold all along X, nothing along Y
  EXPECT_NEAR(FormModalMass(basis, 0), 1.0, 1e-12);
  EXPECT_NEAR(FormModalMass(basis, 1), 1.0, 1e-12);
  const JobReport report;
  const CCodeLimits limits(report);
  EXPECT_NEAR(CheckMassParticipation(basis, {1.0, 0.0, 0.0}, limits).dValue, 1.0, 1e-9);
  EXPECT_NEAR(CheckMassParticipation(basis, {0.8, 0.6, 0.0}, limits).dValue, 0.0, 1e-9);
  ModalBasis first = basis;
  first.omega.resize(1);
  EXPECT_NEAR(CheckMassParticipation(first, {1.0, 0.0, 0.0}, limits).dValue, 0.9472136, 1e-7);
  EXPECT_EQ(CheckMassParticipation(first, {1.0, 0.0, 0.0}, limits).verdict, Verdict::Satisfied);
  EXPECT_EQ(CheckMassParticipation(basis, {0.8, 0.6, 0.0}, limits).verdict, Verdict::NotSatisfied);
  for (Vector3& mass : basis.masses) mass[1] *= 1.5;  // some nodes are held along X
  EXPECT_NEAR(GetGravityMass(basis), 3.0 * m, 1e-6);
  EXPECT_FALSE(FindHorizontal({0.0, 0.0, -1.0}));
  EXPECT_NEAR(FindHorizontal({3.0, 4.0, 12.0})->at(1), 0.8, 1e-12);
  const ModeSettings settings = FormModeSettings({{0, -1.0}, {2, 0.5}}, true);
  EXPECT_EQ(settings.loadFlags[0] + settings.loadFlags[1] + settings.loadFlags[2], 2);
  EXPECT_EQ(settings.loadFactors[2], 0.5);
  EXPECT_TRUE(settings.bShear);
}

// Without storeys: a mast of 10 m, a flat arch of 8 m, a shell of 6 m by 9 m.
TEST(Checks, MovementsInPlaceOfStoreys) {
  const struct {
    double dWidth, dDepth, dHeight;
    std::optional<int> nStructure;
    CheckKind kind;
    double dValue, dLength;
  } cases[] = {{1, 1, 10, std::nullopt, CheckKind::TopDisplacement, 0.005, 10},
               {8, 0, 1, std::nullopt, CheckKind::Deflection, 0.02, 8},
               {6, 9, 2, c_nDome, CheckKind::Deflection, 0.02, 6},
               {6, 9, 20, c_nDome, CheckKind::Deflection, 0.02, 6},
               {6, 9, 2, c_nTower, CheckKind::TopDisplacement, 0.005, 2}};
  for (const auto& c : cases) {
    Job job;
    job.report.nStructure = c.nStructure;
    job.nodes = {MakeNode(7, 2), MakeNode(7 + c.dWidth, 2), MakeNode(7 + c.dWidth, 2 + c.dHeight)};
    for (JobNode& node : job.nodes) node.dY = 5.0;
    job.nodes[1].dY += c.dDepth;
    const NodeField u = {{}, {0.04, 0.0, -0.02}, {0.003, -0.004, 0.01}};
    const Check check = FormMovement(job, u);
    EXPECT_EQ(check.kind, c.kind);
    EXPECT_NEAR(check.dValue, c.dValue, 1e-12);
    EXPECT_NEAR(check.dLength, c.dLength, 1e-12);
    EXPECT_NEAR(FormQuakeMovement(job, u, {0.0, -1.0, 0.0}).dValue, 0.004, 1e-12);  // not of the node below
    EXPECT_NEAR(FormQuakeMovement(job, u, {0.0, -1.0, 0.0}).dLength, c.dHeight, 1e-12);
    const Check vertical = FormQuakeMovement(job, u, {0.0, 0.6, 0.8});
    EXPECT_NEAR(vertical.dValue, 0.01, 1e-12);
    EXPECT_NEAR(vertical.dLength, c.dDepth > 0.0 ? std::min(c.dWidth, c.dDepth) : c.dWidth, 1e-12);
  }
}

TEST(Checks, ShearOfTheRunThatTheFileHolds) {
  HistorySet run;
  run.Allocate(2, 1, 0);
  run.bComplete = true;
  run.dTimeStep = 0.02;
  run.baseShear = CHistoryTable(2, 3);
  HistoryResultFile file;
  file.nSteps = 2;
  file.dTimeStep = 0.02;
  file.displacements = {{{{0.010001, -0.02}, {0.0, 0.0}, {0.0, 0.0}}}};
  for (int i = 0; i < 2; ++i) {
    run.values[c_nHistoryX][i][0] = i == 0 ? 0.0100010000004 : -0.02;
    run.baseShear[i][0] = 100.0 * (i + 1);
    run.baseShear[i][1] = -50.0;
  }
  const std::array e = {0.6, 0.8};
  ASSERT_TRUE(FindHistoryShear(run, file, e));
  EXPECT_NEAR(FindHistoryShear(run, file, e)->at(1), 0.6 * 200.0 - 0.8 * 50.0, 1e-12);
  const std::function<void(HistorySet&)> changes[] = {[](HistorySet& r) { r.values[c_nHistoryX][1][0] = -0.0201; },
                                                      [](HistorySet& r) { r.bComplete = false; },
                                                      [](HistorySet& r) { r.dTimeStep = 0.01; },
                                                      [](HistorySet& r) { r.baseShear = CHistoryTable(); },
                                                      [](HistorySet& r) { r.Allocate(2, 2, 0); },
                                                      [](HistorySet& r) { r.nSteps = 1; }};
  for (const auto& change : changes) {
    HistorySet other = run;
    change(other);
    EXPECT_FALSE(FindHistoryShear(other, file, e)) << &change - changes;
  }
}

}  // namespace
}  // namespace skyframe::host
