// What is painted in colours and what is said of it.

#include <algorithm>
#include <cmath>

#include "skyframe/job/Text.h"
#include "skyframe/scene/ResultPainter.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr double c_dMillimetres = 1.0e3;
constexpr double c_dPartOfRadius = 0.1;
constexpr double c_dPartOfMember = 0.45;

std::string DescribeExtreme(const Words& words, double dValue, double dLargest, MemberQuantity quantity,
                            std::size_t nMember) {
  return Say(words, {FormatForce(dValue, dLargest), GetUnit(quantity), std::to_string(nMember + 1)});
}

/// A straight line in so many parts; others as they are.
MemberLine DivideEvenly(const MemberLine& line, int nParts) {
  if (line.size() != 2) return line;
  MemberLine divided;
  for (int k = 0; k <= nParts; ++k)
    divided.push_back(line.front() + (static_cast<double>(k) / nParts) * (line.back() - line.front()));
  return divided;
}

}  // namespace

std::string FormatForce(double dValue, double dLargest) {
  constexpr double c_dLargestPlain = 1.0e7;
  constexpr double c_dLeastPlain = 0.1;
  if (dLargest >= c_dLargestPlain || dLargest < c_dLeastPlain) return Format("%.3g", dValue);
  const int nDecimals = dLargest >= 1000.0 ? 0 : dLargest >= 10.0 ? 1 : 2;
  const std::string strText = Format("%.*f", nDecimals, dValue);
  return strText.find_first_of("123456789") == std::string::npos ? "0" : strText;
}

double ChooseDiagramSize(const CScene& scene) {
  double dSum = 0.0;
  for (const SceneMember& member : scene.GetMembers())
    dSum += Length(scene.GetPlace(member.nNodeJ) - scene.GetPlace(member.nNodeI));
  const double dRadius = scene.GetRadius();
  if (dSum == 0.0) return c_dPartOfRadius * dRadius;
  const double dMember = dSum / static_cast<double>(scene.GetMembers().size());
  return std::min(c_dPartOfRadius * dRadius, c_dPartOfMember * dMember);
}

std::vector<ColouredLine> ColourByForce(const CDrawnPlaces& places, const StructureForces& forces,
                                        MemberQuantity quantity) {
  std::vector<ColouredLine> lines(places.GetScene().GetMembers().size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (!forces.members[i].Has(quantity)) continue;
    auto& [line, values] = lines[i];
    values = forces.members[i].Get(quantity);
    if (values.size() == 1) values.push_back(values.front());
    const int nParts = static_cast<int>(values.size()) - 1;
    line = DivideEvenly(places.GetMember(i, nParts), nParts);
  }
  return lines;
}

std::vector<ColouredLine> ColourByDisplacement(const CScene& scene, const DeformedShape& shape, double dFactor,
                                               int nSteps) {
  const double dLargest = shape.GetLargestTranslation();
  const double dUnit = !shape.IsMode() ? c_dMillimetres : dLargest > 0.0 ? 1.0 / dLargest : 0.0;
  std::vector<ColouredLine> lines;
  for (const SceneMember& member : scene.GetMembers()) {
    const MemberLine at = DivideEvenly({scene.GetPlace(member.nNodeI), scene.GetPlace(member.nNodeJ)}, nSteps);
    const MemberLine moved = DivideEvenly(BendMember(scene, member, shape, 1.0, nSteps), nSteps);
    ColouredLine& one = lines.emplace_back();
    for (std::size_t k = 0; k < at.size(); ++k) {
      one.line.push_back(at[k] + dFactor * (moved[k] - at[k]));
      one.values.push_back(dUnit * Length(moved[k] - at[k]));
    }
  }
  return lines;
}

ColourLegend FormForceLegend(const StructureForces& forces, MemberQuantity quantity, const CShownParts& shown) {
  const ForceExtremes extremes = FindExtremes(forces, quantity, shown);
  return {std::string(GetName(quantity)), std::string(GetUnit(quantity)),
          CColourScale(extremes.dLowest, extremes.dHighest), DescribeExtremes(forces, quantity, shown)};
}

ColourLegend FormDisplacementLegend(const CScene& scene, const DeformedShape& shape) {
  const double dLargest = shape.GetLargestTranslation();
  const std::string strNode =
      dLargest > 0.0 ? std::to_string(scene.GetNodes()[static_cast<std::size_t>(shape.FindLargestNode())].nId) : "";
  ColourLegend legend{std::string(Say(texts::c_displacement)), "", CColourScale(0.0, dLargest), {}};
  if (shape.IsMode()) {
    legend.strTitle = Say(texts::c_relativeDisplacement);
    legend.scale = CColourScale(0.0, 1.0);
    if (dLargest > 0.0) legend.notes.push_back(Say(texts::c_largestMovesOne, {strNode}));
    return legend;
  }
  legend.strUnit = "mm";
  legend.scale = CColourScale(0.0, c_dMillimetres * dLargest);
  if (dLargest > 0.0) {
    legend.notes.push_back(Say(texts::c_largestDisplacement, {Format("%.4g", c_dMillimetres * dLargest), strNode}));
  }
  return legend;
}

std::vector<std::string> DescribeExtremes(const StructureForces& forces, MemberQuantity quantity,
                                          const CShownParts& shown) {
  const ForceExtremes extremes = FindExtremes(forces, quantity, shown);
  if (!extremes.nHighest || !extremes.nLowest) return {std::string(Say(texts::c_noMemberHasIt))};
  const double dLargest = extremes.GetMagnitude();
  std::vector<std::string> lines = {
      DescribeExtreme(texts::c_highest, extremes.dHighest, dLargest, quantity, *extremes.nHighest)};
  if (forces.bAbsolute || quantity >= MemberQuantity::Shear || extremes.dLowest == extremes.dHighest) return lines;
  lines.push_back(DescribeExtreme(texts::c_lowest, extremes.dLowest, dLargest, quantity, *extremes.nLowest));
  return lines;
}

std::string DescribeDiagramSide(const StructureForces& forces, MemberQuantity quantity) {
  if (forces.bAbsolute) return std::string(Say(texts::c_absoluteValues));
  if (quantity == MemberQuantity::My || quantity == MemberQuantity::Mz) return std::string(Say(texts::c_tensionSide));
  return std::string(Say(quantity == MemberQuantity::N ? texts::c_tensionRed : texts::c_positiveSide));
}

}  // namespace skyframe::host
