#include "skyframe/scene/DeformedShape.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "skyframe/results/Displacements.h"
#include "skyframe/values/ResultFiles.h"

namespace skyframe::host {

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
