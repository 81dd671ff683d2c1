#include "skyframe/gui/HistoryCurves.h"

#include <cmath>
#include <limits>

#include "HistoryTexts.h"
#include "skyframe/results/Histories.h"
#include "skyframe/scene/DeformedShape.h"
#include "skyframe/tables/Table.h"

namespace skyframe::gui {

namespace {

/// Where a curve's values stand: a column of a table.
struct CurveColumn {
  const CHistoryTable& table;
  int nColumn;

  [[nodiscard]] bool Exists() const { return nColumn < table.GetCols(); }
};

CurveColumn FindColumn(const HistorySet& history, const CurveId& curve) {
  const auto nKind = static_cast<std::size_t>(curve.kind);
  if (curve.GetGroup() != CurveGroup::BaseShear) return {history.values[nKind], curve.nIndex};
  return {history.baseShear, static_cast<int>(nKind - static_cast<std::size_t>(CurveKind::ShearX))};
}

/// m or N by step; not a number where it cannot be drawn.
std::vector<double> FormDrawnCurve(const HistorySet& history, const CurveId& curve) {
  std::vector<double> values;
  values.reserve(static_cast<std::size_t>(history.nSteps));
  for (int k = 0; k < history.nSteps; ++k) {
    const double dValue = ReadValue(history, curve, k);
    values.push_back(std::abs(dValue) <= host::c_dLargestDrawn ? dValue : std::numeric_limits<double>::quiet_NaN());
  }
  return values;
}

}  // namespace

CurveGroup CurveId::GetGroup() const {
  if (kind < CurveKind::AxialForce) return CurveGroup::Displacement;
  return kind == CurveKind::AxialForce ? CurveGroup::AxialForce : CurveGroup::BaseShear;
}

const host::HistoryUnit& CurveUnits::Get(CurveGroup group) const {
  return group == CurveGroup::Displacement ? length : force;
}

bool CanDraw(const HistorySet& history) {
  return history.nSteps > 0 && history.dTimeStep > 0.0 && history.nSteps * history.dTimeStep <= host::c_dLargestDrawn;
}

bool HasCurve(const HistorySet& history, const CurveId& curve) { return FindColumn(history, curve).Exists(); }

double ReadValue(const HistorySet& history, const CurveId& curve, int nStep) {
  const CurveColumn column = FindColumn(history, curve);
  return column.table[nStep][column.nColumn];
}

CurveId FindLargestCurve(const HistorySet& history) {
  CurveId largest;
  double dLargest = 0.0;
  for (const CurveKind kind : {CurveKind::X, CurveKind::Y, CurveKind::Z}) {
    const host::HistoryPeak peak = host::FindPeak(history, static_cast<int>(kind));
    if (std::abs(peak.dValue) <= dLargest) continue;
    dLargest = std::abs(peak.dValue);
    largest = {kind, peak.nNumber - 1};
  }
  return largest;
}

std::string NameCurve(const host::Job& job, const CurveId& curve) {
  const std::string_view strAxis = c_strCurveAxes[static_cast<std::size_t>(curve.kind)];
  if (curve.GetGroup() == CurveGroup::BaseShear) return Say(texts::c_shearCurve, {strAxis});
  if (curve.GetGroup() == CurveGroup::AxialForce) return Say(texts::c_axialCurve, {std::to_string(curve.nIndex + 1)});
  const int nId = job.nodes[static_cast<std::size_t>(curve.nIndex)].nId;
  return Say(texts::c_nodeCurve, {std::to_string(nId), strAxis});
}

host::HistoryPicture FormPicture(const host::Job& job, const HistorySet& history, CurveGroup group,
                                 const std::vector<CurveId>& curves, const CurveUnits& units) {
  host::HistoryPicture picture;
  const std::string strGroup(Say(texts::c_groupNames[static_cast<std::size_t>(group)]));
  picture.strQuantity = strGroup;
  picture.unit = units.Get(group);
  picture.dTimeStep = history.dTimeStep;
  for (const CurveId& curve : curves) picture.curves.push_back({NameCurve(job, curve), FormDrawnCurve(history, curve)});
  // A single curve has no legend.
  const bool bNamed = curves.size() == 1;
  if (bNamed) picture.strQuantity = picture.curves.front().strName;
  if (bNamed && group != CurveGroup::BaseShear) picture.strQuantity += "   " + strGroup;
  return picture;
}

std::string FormCsv(const host::Job& job, const HistorySet& history, const std::vector<CurveId>& curves,
                    const CurveUnits& units) {
  std::vector<std::string> names;  // for the headings, which do not own their texts
  names.reserve(curves.size());
  for (const CurveId& curve : curves) names.push_back(NameCurve(job, curve));
  host::Table table;
  table.columns.push_back({host::Words(std::string_view("t"), "t"), "s"});
  for (std::size_t c = 0; c < curves.size(); ++c) {
    const std::string_view strName = names[c];
    table.columns.push_back({host::Words(strName, strName), units.Get(curves[c].GetGroup()).strName});
  }
  for (int k = 0; k < history.nSteps; ++k) {
    table.columns.front().numbers.push_back((k + 1) * history.dTimeStep);
    for (std::size_t c = 0; c < curves.size(); ++c) {
      const double dFactor = units.Get(curves[c].GetGroup()).dFactor;
      table.columns[c + 1].numbers.push_back(dFactor * ReadValue(history, curves[c], k));
    }
  }
  return host::FormatCsv(table);
}

}  // namespace skyframe::gui
