#include "skyframe/scene/DeformedShape.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "skyframe/results/Displacements.h"
#include "skyframe/values/ResultFiles.h"

namespace skyframe::host {

namespace {

Point3 GetTranslation(const HistorySet& history, int nStep, int nNode) {
  return {history.values[c_nHistoryX][nStep][nNode], history.values[c_nHistoryY][nStep][nNode],
          history.values[c_nHistoryZ][nStep][nNode]};
}

}  // namespace

Point3 DeformedShape::GetTranslation(int nNode) const {
  const NodeValues& u = displacements[static_cast<std::size_t>(nNode)];
  return {u[0], u[1], u[2]};
}

Point3 DeformedShape::GetRotation(int nNode) const {
  const NodeValues& u = displacements[static_cast<std::size_t>(nNode)];
  return {u[3], u[4], u[5]};
}

int DeformedShape::FindLargestNode() const { return static_cast<int>(FindLargestTranslation(displacements)); }

double DeformedShape::GetLargestTranslation() const {
  return displacements.empty() ? 0.0 : Length(GetTranslation(FindLargestNode()));
}

double DeformedShape::GetScaleTranslation() const {
  return kind == ShapeKind::Moment ? dLargest : GetLargestTranslation();
}

std::optional<int> DeformedShape::FindUndrawableNode() const {
  const auto isDrawable = [](double d) { return std::abs(d) <= c_dLargestDrawn; };
  const auto at =
      std::ranges::find_if_not(displacements, [&](const NodeValues& u) { return std::ranges::all_of(u, isDrawable); });
  return at == displacements.end() ? std::nullopt : std::optional(static_cast<int>(at - displacements.begin()));
}

DeformedShape FormStaticShape(StaticResultFile file) {
  return {file.bNonlinear ? ShapeKind::NonlinearState : ShapeKind::LinearState, 0, 0.0, std::move(file.displacements)};
}

DeformedShape FormModeShape(const ModeResultFile& file, int nMode) {
  const auto i = static_cast<std::size_t>(nMode - 1);
  return {ShapeKind::Mode, nMode, file.omega[i], file.shapes[i]};
}

double MeasureMotion(const HistorySet& history) {
  double dLargest = 0.0;
  for (int k = 0; k < history.nSteps; ++k) {
    for (int i = 0; i < history.GetNodeCount(); ++i) {
      const double dLength = Length(GetTranslation(history, k, i));
      if (dLength <= c_dLargestDrawn) dLargest = std::max(dLargest, dLength);
    }
  }
  return dLargest;
}

DeformedShape FormMoment(const HistorySet& history, int nStep, double dLargest) {
  DeformedShape shape;
  shape.kind = ShapeKind::Moment;
  for (int i = 0; i < history.GetNodeCount(); ++i) {
    const Point3 u = GetTranslation(history, nStep, i);
    shape.displacements.push_back({u.dX, u.dY, u.dZ});
  }
  shape.dTime = (nStep + 1) * history.dTimeStep;
  shape.dLargest = dLargest;
  return shape;
}

std::vector<DeformedShape> ReadShapes(const std::string& strJobPath, const std::vector<JobNode>& nodes) {
  std::vector<DeformedShape> shapes;
  const auto add = [&shapes](DeformedShape shape) {
    if (!shape.FindUndrawableNode()) shapes.push_back(std::move(shape));
  };
  for (const std::string_view strSuffix : {suffix::c_strStaticLinear, suffix::c_strStaticNonlinear}) {
    auto file = ReadStaticResultFile(strJobPath + std::string(strSuffix), nodes.size());
    if (file) add(FormStaticShape(*std::move(file)));
  }
  const auto modes = ReadModeResultFile(strJobPath + std::string(suffix::c_strModes), nodes);
  for (std::size_t i = 0; modes && i < modes->shapes.size(); ++i) add(FormModeShape(*modes, static_cast<int>(i) + 1));
  return shapes;
}

}  // namespace skyframe::host
