#include "skyframe/scene/DeformedShape.h"

#include <algorithm>
#include <cmath>

#include "skyframe/results/Displacements.h"
#include "skyframe/results/StaticResultFile.h"
#include "skyframe/values/ResultFiles.h"

namespace skyframe::host {

namespace {

bool IsDrawable(const DeformedShape& shape) { return !shape.FindUndrawableNode(); }

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

std::optional<int> DeformedShape::FindUndrawableNode() const {
  const auto isDrawable = [](double d) { return std::abs(d) <= c_dLargestDrawn; };
  const auto at =
      std::ranges::find_if_not(displacements, [&](const NodeValues& u) { return std::ranges::all_of(u, isDrawable); });
  return at == displacements.end() ? std::nullopt : std::optional(static_cast<int>(at - displacements.begin()));
}

DeformedShape FormModeShape(const ModeResultFile& file, int nMode) {
  const auto i = static_cast<std::size_t>(nMode - 1);
  return {ShapeKind::Mode, nMode, file.omega[i], file.shapes[i]};
}

std::optional<DeformedShape> ReadStaticShape(const std::string& strPath, ShapeKind kind, std::size_t nNodes) {
  auto displacements = ReadStaticResultFile(strPath, nNodes);
  if (!displacements) return std::nullopt;
  return DeformedShape{kind, 0, 0.0, std::move(*displacements)};
}

std::vector<DeformedShape> ReadShapes(const std::string& strJobPath, const std::vector<JobNode>& nodes) {
  std::vector<DeformedShape> shapes;
  const auto add = [&shapes](std::optional<DeformedShape> shape) {
    if (shape && IsDrawable(*shape)) shapes.push_back(std::move(*shape));
  };
  const auto addSuffix = [&strJobPath](std::string_view strSuffix) { return strJobPath + std::string(strSuffix); };
  add(ReadStaticShape(addSuffix(suffix::c_strStaticLinear), ShapeKind::LinearState, nodes.size()));
  add(ReadStaticShape(addSuffix(suffix::c_strStaticNonlinear), ShapeKind::NonlinearState, nodes.size()));
  const auto file = ReadModeResultFile(addSuffix(suffix::c_strModes), nodes);
  for (std::size_t i = 0; file && i < file->shapes.size(); ++i) add(FormModeShape(*file, static_cast<int>(i) + 1));
  return shapes;
}

}  // namespace skyframe::host
