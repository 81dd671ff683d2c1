#include <algorithm>
#include <cmath>
#include <limits>

#include "AdviceBuilder.h"
#include "skyframe/job/Places.h"
#include "skyframe/job/Text.h"
#include "skyframe/results/Displacements.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

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
  advice.Warn("no-load", std::string(Say(texts::c_noLoad)));
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
    const std::string_view strUnit = d < 3 ? "kN" : Say(texts::c_momentUnit);
    const std::string strLeft = Say(texts::c_leftOver, {Format("%.3g", resultant.sum[d] * 1.0e-3), strUnit,
                                                        c_strDirections[d], Format("%.6g", dScale * 1.0e-3)});
    const double dAllowed = std::min(c_dMostRoundOff * dScale, dRoundOff * (d < 3 ? 1.0 : resultant.dReach));
    if (dLeft <= dAllowed) {
      advice.Warn("equilibrium", Say(texts::c_roundOff, {strLeft}));
    } else {
      advice.Error("equilibrium", Say(texts::c_unbalanced, {strLeft}));
    }
    return;
  }
}

/// How far an iteration came that did not converge.
void DescribeIteration(const Job& job, const StaticFindings& findings, CAdviceBuilder& advice) {
  if (!findings.bNonlinear || findings.status != RunStatus::Failed || findings.nIterations == 0) return;
  const bool bGrows = !(findings.dIncrement < findings.dPreviousIncrement);
  const Words& way = findings.nIterations < 2 ? texts::c_first : bGrows ? texts::c_growing : texts::c_falling;
  advice.Error("no-convergence",
               Say(texts::c_noConvergence, {std::to_string(findings.nIterations), Format("%.3g", findings.dResidual),
                                            Format("%.3g", findings.dForce), Format("%.3g", findings.dIncrement),
                                            Say(way), DescribePlace(job, findings.largestIncrement)}));
}

void CheckCompression(const StaticFindings& findings, CAdviceBuilder& advice) {
  const auto it = std::ranges::min_element(findings.eulerRatios);
  if (it == findings.eulerRatios.end() || -*it <= c_dNotableCompression) return;
  const auto nCount = std::ranges::count_if(findings.eulerRatios, [](double d) { return -d > c_dNotableCompression; });
  advice.Warn("divide-members",
              Say(texts::c_divideMembers, {std::to_string(it - findings.eulerRatios.begin() + 1), Format("%.2f", -*it),
                                           std::to_string(nCount), Format("%.2f", c_dNotableCompression)}));
}

/// The rule of the local axes follows the member's plan projection; a section that turns with it takes the member's
/// stiffness along.
void CheckTwist(const StaticFindings& findings, CAdviceBuilder& advice) {
  if (findings.nTwistedElement == 0 || !(findings.dLargestTwist > c_dNotableTwist)) return;
  advice.Warn("axes-twist", Say(texts::c_axesTwist,
                                {std::to_string(findings.nTwistedElement), Format("%.2g", findings.dLargestTwist)}));
}

}  // namespace

AdviceList AdviseOnStatic(const Job& job, const StaticFindings& findings) {
  CAdviceBuilder advice(job, findings);
  advice.CheckConditioning();
  DescribeIteration(job, findings, advice);
  if (findings.status == RunStatus::Done) {
    const std::string_view strSuffix = findings.bNonlinear ? suffix::c_strStaticNonlinear : suffix::c_strStaticLinear;
    const bool bFinite = advice.CheckNodeValues(findings.displacements, texts::c_displacementAt, strSuffix) &&
                         advice.CheckNodeValues(findings.reactions, texts::c_reactionAt, strSuffix);
    if (bFinite && !findings.bNonlinear) CheckBalance(job, findings, advice);
    CheckLoads(findings, advice);
    CheckCompression(findings, advice);
    CheckTwist(findings, advice);
  }
  return advice.Take();
}

}  // namespace skyframe::host
