#include "skyframe/checks/CheckList.h"

#include <algorithm>
#include <cmath>

namespace skyframe::host {

namespace {

constexpr double c_dRoundOff = 1.0e-9;

/// The storey with the largest value of a quantity, and the check of that.
template <class Quantity>
Check CheckLargest(std::span<const StoreyResponse> responses, CheckKind kind, const std::optional<Limit>& limit,
                   Quantity quantity) {
  const auto it = std::ranges::max_element(responses, {}, quantity);
  Check check = FormCheck(kind, quantity(*it), limit, false);
  check.nStorey = static_cast<int>(it - responses.begin()) + 1;
  return check;
}

/// Not under the code's conditions: no rigid floors, no accidental eccentricity.
Check AsInformation(Check check) {
  check.bInformation = true;
  return check;
}

struct Extents {
  double dTop = 0.0;  ///< highest level
  double dHeight = 0.0;
  double dShort = 0.0;  ///< in plan
  double dLong = 0.0;

  /// The shorter side in plan; of a plane structure the only one.
  [[nodiscard]] double GetSpan() const { return dShort > c_dLevelTolerance ? dShort : dLong; }
};

Extents FindExtents(const Job& job) {
  const auto [lowX, highX] = std::ranges::minmax(job.nodes, {}, &JobNode::dX);
  const auto [lowY, highY] = std::ranges::minmax(job.nodes, {}, &JobNode::dY);
  const auto [lowZ, highZ] = std::ranges::minmax(job.nodes, {}, &JobNode::dZ);
  const auto [dShort, dLong] = std::minmax({highX.dX - lowX.dX, highY.dY - lowY.dY});
  return {highZ.dZ, highZ.dZ - lowZ.dZ, dShort, dLong};
}

}  // namespace

Check FormCheck(CheckKind kind, double dValue, const std::optional<Limit>& limit, bool bLeast) {
  Check check;
  check.kind = kind;
  check.dValue = dValue;
  check.limit = limit;
  if (!limit) return check;
  const double dSlack = bLeast ? dValue - limit->dValue : limit->dValue - dValue;
  check.verdict = dSlack >= -c_dRoundOff * limit->dValue ? Verdict::Satisfied : Verdict::NotSatisfied;
  return check;
}

Check FormUnchecked(CheckKind kind, Doubt doubt) {
  Check check;
  check.kind = kind;
  check.verdict = Verdict::NotChecked;
  check.doubt = doubt;
  return check;
}

double FormShearFactor(const StoreyResponse& response, const std::optional<Limit>& least) {
  const double dRatio = response.GetShearWeight();
  return least && dRatio > 0.0 ? std::max(1.0, least->dValue / dRatio) : 1.0;
}

Check CheckMassParticipation(const ModalBasis& basis, const Vector3& direction, const CCodeLimits& limits) {
  constexpr double c_dNoComponent = 1.0e-15;
  const Vector3 total = SumMasses(basis);
  double dLeast = 1.0;
  for (std::size_t d = 0; d < 3; ++d) {
    if (std::abs(direction[d]) <= c_dNoComponent || total[d] <= 0.0) continue;
    double dSum = 0.0;
    for (std::size_t i = 0; i < basis.GetCount(); ++i) dSum += FormMassShares(basis, i)[d];
    dLeast = std::min(dLeast, dSum);
  }
  return FormCheck(CheckKind::MassParticipation, dLeast, limits.GetMassParticipation(), true);
}

std::vector<Check> CheckStoreys(std::span<const StoreyResponse> responses, const CCodeLimits& limits,
                                const SpectrumLevel& level, double dFirstPeriod) {
  if (responses.empty()) return {};
  std::vector<Check> checks;
  const bool bFrequent = level.nLevel == 0;
  if (bFrequent) {
    const auto it = std::ranges::min_element(responses, {}, &StoreyResponse::GetShearWeight);
    checks.push_back(FormCheck(CheckKind::ShearWeight, it->GetShearWeight(),
                               limits.FindShearWeight(level.nIntensity, dFirstPeriod), true));
    checks.back().nStorey = static_cast<int>(it - responses.begin()) + 1;
  }
  const auto Angle = [](const StoreyResponse& r) { return r.dAngle; };
  const Check drift = CheckLargest(responses, bFrequent ? CheckKind::Drift : CheckKind::RareDrift,
                                   limits.FindDrift(level.nLevel), Angle);
  checks.push_back(bFrequent ? drift : AsInformation(drift));
  if (!bFrequent) return checks;
  const auto Ratio = [](const StoreyResponse& r) { return std::max(r.GetDisplacementRatio(), r.GetDriftRatio()); };
  const Limit regular = {CCodeLimits::GetRegularDisplacementRatio(), false};
  checks.push_back(AsInformation(CheckLargest(responses, CheckKind::RegularDisplacement, regular, Ratio)));
  checks.push_back(
      AsInformation(CheckLargest(responses, CheckKind::DisplacementRatio, limits.GetDisplacementRatio(), Ratio)));
  return checks;
}

std::vector<Check> ListUncheckedStoreys(int nLevel, Doubt doubt) {
  if (nLevel != 0) return {FormUnchecked(CheckKind::RareDrift, doubt)};
  std::vector<Check> checks;
  for (const CheckKind kind :
       {CheckKind::ShearWeight, CheckKind::Drift, CheckKind::RegularDisplacement, CheckKind::DisplacementRatio}) {
    checks.push_back(FormUnchecked(kind, doubt));
  }
  return checks;
}

Check FormMovement(const Job& job, const NodeField& displacements) {
  const Extents extents = FindExtents(job);
  const int nStructure = job.report.nStructure.value_or(c_nOther);
  constexpr double c_dFlat = 0.5;  // a structure lower than this part of its plan has no top to speak of
  const bool bTower = nStructure == c_nTower || (nStructure != c_nDome && extents.dHeight >= c_dFlat * extents.dLong);
  Check check = FormCheck(bTower ? CheckKind::TopDisplacement : CheckKind::Deflection, 0.0, std::nullopt, false);
  check.dLength = bTower ? extents.dHeight : extents.GetSpan();
  for (std::size_t n = 0; n < displacements.size(); ++n) {
    const NodeValues& u = displacements[n];
    if (bTower && job.nodes[n].dZ < extents.dTop - c_dLevelTolerance) continue;
    check.dValue = std::max(check.dValue, bTower ? std::hypot(u[0], u[1]) : std::abs(u[2]));
  }
  return check;
}

Check FormQuakeMovement(const Job& job, const NodeField& displacements, const Vector3& direction) {
  const Extents extents = FindExtents(job);
  const auto size = [](double c) { return std::abs(c); };
  const auto d = static_cast<std::size_t>(std::ranges::max_element(direction, {}, size) - direction.begin());
  Check check = FormCheck(CheckKind::QuakeTopDisplacement, 0.0, std::nullopt, false);
  check.direction = direction;
  check.dLength = d < 2 ? extents.dHeight : extents.GetSpan();
  for (std::size_t n = 0; n < displacements.size(); ++n) {
    if (job.nodes[n].dZ < extents.dTop - c_dLevelTolerance) continue;
    check.dValue = std::max(check.dValue, std::abs(displacements[n][d]));
  }
  return check;
}

std::optional<Check> CheckPeriodRatio(const ModalBasis& basis, const FirstModes& first, const CCodeLimits& limits) {
  if (!first.translation || !first.torsion) return std::nullopt;
  const double dRatio = basis.GetPeriod(*first.torsion) / basis.GetPeriod(*first.translation);
  return AsInformation(FormCheck(CheckKind::PeriodRatio, dRatio, limits.GetPeriodRatio(), false));
}

}  // namespace skyframe::host
