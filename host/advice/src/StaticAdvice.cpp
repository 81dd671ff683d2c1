#include <algorithm>
#include <cmath>
#include <limits>

#include "AdviceBuilder.h"
#include "skyframe/job/Places.h"
#include "skyframe/job/Text.h"
#include "skyframe/results/Displacements.h"
#include "skyframe/values/ResultFiles.h"

namespace skyframe::host {

namespace {

using Vector = std::array<double, 3>;

constexpr double c_dBalanceTolerance = 1.0e-6;
constexpr double c_dMostRoundOff = 1.0e-3;      ///< of what round-off may leave
constexpr double c_dNotableCompression = 0.05;  ///< of pi^2 E I / L^2
constexpr double c_dNotableTwist = 0.01;        ///< rad

/// Resultant about the origin, the largest of its contributions, and the lever arm they can have.
struct Resultant {
  std::array<double, 6> sum = {};
  double dForce = 0.0;
  double dMoment = 0.0;
  double dReach = 0.0;

  /// What a difference counts against: forces and moments bring each other about over the reach.
  [[nodiscard]] double GetScale(std::size_t d) const {
    return d < 3 ? std::max(dForce, dReach > 0.0 ? dMoment / dReach : 0.0) : std::max(dMoment, dForce * dReach);
  }
};

/// Coordinates as the records have them.
Vector GetPosition(const JobNode& node) {
  const auto Single = [](double d) { return static_cast<double>(static_cast<float>(d)); };
  return {Single(node.dX), Single(node.dY), Single(node.dZ)};
}

/// sum <- sum + dSign (F, M + r x F)
void Add(const JobNode& node, const NodeValues& force, double dSign, Resultant& resultant) {
  const auto [x, y, z] = GetPosition(node);
  const auto& [Fx, Fy, Fz, Mx, My, Mz] = force;
  const std::array<double, 6> values = {Fx, Fy, Fz, Mx + y * Fz - z * Fy, My + z * Fx - x * Fz, Mz + x * Fy - y * Fx};
  for (std::size_t d = 0; d < values.size(); ++d) {
    resultant.sum[d] += dSign * values[d];
    double& dLargest = d < 3 ? resultant.dForce : resultant.dMoment;
    dLargest = std::max(dLargest, std::abs(values[d]));
  }
  resultant.dReach = std::max(resultant.dReach, std::hypot(x, y, z));
}

/// Loads on supports and on nodes without elements do not act.
void CheckLoads(const StaticFindings& findings, CAdviceBuilder& advice) {
  const auto IsZero = [](const NodeValues& load) {
    return std::ranges::all_of(load, [](double d) { return d == 0.0; });
  };
  if (!std::ranges::all_of(findings.loads, IsZero)) return;
  advice.Warn("no-load", "no load acts in a free direction: nothing moves");
}

/// What round-off may leave of the forces of members that move far for their stiffness: sum of eps E A / L |u|.
double FormRoundOff(const Job& job, const StaticFindings& findings) {
  constexpr double c_dSteel = 2.06e11;  // every member is steel
  constexpr double c_dSquareMetre = 1.0e-6;
  double dSum = 0.0;
  for (const JobElement& element : job.elements) {
    const auto i = static_cast<std::size_t>(element.nNodeI - 1), j = static_cast<std::size_t>(element.nNodeJ - 1);
    const auto [xi, yi, zi] = GetPosition(job.nodes[i]);
    const auto [xj, yj, zj] = GetPosition(job.nodes[j]);
    const double A = job.sections[static_cast<std::size_t>(element.nSection)].dArea * c_dSquareMetre;
    const double u = std::max(GetTranslation(findings.displacements[i]), GetTranslation(findings.displacements[j]));
    dSum += c_dSteel * A / std::hypot(xj - xi, yj - yi, zj - zi) * u;
  }
  return std::numeric_limits<double>::epsilon() * dSum;
}

/// The supports take what the loads bring.
void CheckBalance(const Job& job, const StaticFindings& findings, CAdviceBuilder& advice) {
  const std::size_t nNodes = job.nodes.size();
  if (findings.loads.size() != nNodes || findings.reactions.size() != nNodes) return;
  Resultant resultant;
  for (std::size_t i = 0; i < nNodes; ++i) {
    Add(job.nodes[i], findings.loads[i], 1.0, resultant);
    Add(job.nodes[i], findings.reactions[i], -1.0, resultant);
  }
  const double dRoundOff = FormRoundOff(job, findings);
  for (std::size_t d = 0; d < resultant.sum.size(); ++d) {
    const double dScale = resultant.GetScale(d);
    const double dLeft = std::abs(resultant.sum[d]);
    if (dLeft <= c_dBalanceTolerance * dScale) continue;
    const char* const pszUnit = d < 3 ? "kN" : "kNm";
    const std::string strLeft = Format("%.3g %s in %s is left of %.6g %s", resultant.sum[d] * 1.0e-3, pszUnit,
                                       std::string(c_strDirections[d]).c_str(), dScale * 1.0e-3, pszUnit);
    const double dAllowed = std::min(c_dMostRoundOff * dScale, dRoundOff * (d < 3 ? 1.0 : resultant.dReach));
    if (dLeft <= dAllowed) {
      advice.Warn("equilibrium", "round-off of stiff members: " + strLeft);
    } else {
      advice.Error("equilibrium", "loads and support forces do not balance: " + strLeft);
    }
    return;
  }
}

/// How far an iteration came that did not converge.
void DescribeIteration(const Job& job, const StaticFindings& findings, CAdviceBuilder& advice) {
  if (!findings.bNonlinear || findings.status != RunStatus::Failed || findings.nIterations == 0) return;
  const bool bGrows = !(findings.dIncrement < findings.dPreviousIncrement);
  advice.Error("no-convergence",
               Format("no equilibrium after %d iterations: ||R|| = %.3g N of ||P|| = %.3g N, ||du|| = %.3g m, %s, "
                      "the largest at %s",
                      findings.nIterations, findings.dResidual, findings.dForce, findings.dIncrement,
                      findings.nIterations < 2 ? "its first"
                      : bGrows                 ? "growing"
                                               : "falling",
                      DescribePlace(job, findings.largestIncrement).c_str()));
}

void CheckCompression(const StaticFindings& findings, CAdviceBuilder& advice) {
  const auto it = std::ranges::min_element(findings.eulerRatios);
  if (it == findings.eulerRatios.end() || -*it <= c_dNotableCompression) return;
  const auto nCount = std::ranges::count_if(findings.eulerRatios, [](double d) { return -d > c_dNotableCompression; });
  advice.Warn("divide-members",
              Format("element %d carries %.2f of its own pi^2 E I / L^2 in compression (%d above %.2f): one element a "
                     "member overestimates its stability, divide it",
                     static_cast<int>(it - findings.eulerRatios.begin()) + 1, -*it, static_cast<int>(nCount),
                     c_dNotableCompression));
}

/// The rule of the local axes follows the member's plan projection; a section that turns with it takes the member's
/// stiffness along.
void CheckTwist(const StaticFindings& findings, CAdviceBuilder& advice) {
  if (findings.nTwistedElement == 0 || !(findings.dLargestTwist > c_dNotableTwist)) return;
  advice.Warn("axes-twist",
              Format("the section of element %d turned by %.2g rad about its own axis with its plan projection: second-"
                     "order effects are a few per cent off, as its Iy and Iz differ",
                     findings.nTwistedElement, findings.dLargestTwist));
}

}  // namespace

AdviceList AdviseOnStatic(const Job& job, const StaticFindings& findings) {
  CAdviceBuilder advice(job, findings);
  advice.CheckConditioning();
  DescribeIteration(job, findings, advice);
  if (findings.status == RunStatus::Done) {
    const std::string_view strSuffix = findings.bNonlinear ? suffix::c_strStaticNonlinear : suffix::c_strStaticLinear;
    const bool bFinite = advice.CheckNodeValues(findings.displacements, "displacement", strSuffix) &&
                         advice.CheckNodeValues(findings.reactions, "reaction", strSuffix);
    if (bFinite && !findings.bNonlinear) CheckBalance(job, findings, advice);
    CheckLoads(findings, advice);
    CheckCompression(findings, advice);
    CheckTwist(findings, advice);
  }
  return advice.Take();
}

}  // namespace skyframe::host
