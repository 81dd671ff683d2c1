#include "skyframe/gui/Shape.h"

#include <algorithm>
#include <cmath>

#include "skyframe/platform/NumberText.h"
#include "skyframe/results/ModeResultFile.h"
#include "skyframe/results/StaticResultFile.h"
#include "skyframe/values/ResultFiles.h"
#include "skyframe/values/SpectrumSite.h"
#include "texts.h"

namespace skyframe::gui {

namespace {

std::string DescribeMode(std::size_t nMode, double dFrequency) {
  std::string strText = std::string(texts::c_strMode) + " " + std::to_string(nMode);
  strText += "   f = " + FormatGeneral(dFrequency) + " Hz";
  if (dFrequency > 0.0) strText += "   T = " + FormatGeneral(1.0 / dFrequency) + " s";
  return strText;
}

bool IsFinite(const std::vector<NodeValues>& values) {
  return std::ranges::all_of(
      values, [](const NodeValues& u) { return std::ranges::all_of(u, [](double d) { return std::isfinite(d); }); });
}

void AppendStatic(const std::string& strPath, std::string_view strTitle, std::size_t nNodes,
                  std::vector<Shape>& shapes) {
  auto file = host::ReadStaticResultFile(strPath, nNodes);
  if (!file || !IsFinite(file->displacements)) return;
  Shape shape;
  shape.strTitle = strTitle;
  shape.values = std::move(file->displacements);
  shapes.push_back(std::move(shape));
}

void AppendModes(const std::string& strPath, const std::vector<host::JobNode>& nodes, std::vector<Shape>& shapes) {
  auto file = host::ReadModeResultFile(strPath, nodes);
  for (std::size_t i = 0; file && i < file->shapes.size(); ++i) {
    if (!IsFinite(file->shapes[i])) continue;
    Shape shape;
    shape.bMode = true;
    shape.bRotations = true;
    shape.strTitle = DescribeMode(i + 1, file->omega[i] * c_dHertzPerRadian);
    shape.values = std::move(file->shapes[i]);
    shapes.push_back(std::move(shape));
  }
}

}  // namespace

double Shape::GetLargestTranslation() const {
  double dLargest = 0.0;
  for (const auto& u : values) dLargest = std::max(dLargest, std::hypot(u[0], u[1], u[2]));
  return dLargest;
}

std::vector<Shape> ReadShapes(const std::string& strJobPath, const std::vector<host::JobNode>& nodes) {
  std::vector<Shape> shapes;
  const auto AddSuffix = [&strJobPath](std::string_view strSuffix) { return strJobPath + std::string(strSuffix); };
  AppendStatic(AddSuffix(suffix::c_strStaticLinear), texts::c_strLinearState, nodes.size(), shapes);
  AppendStatic(AddSuffix(suffix::c_strStaticNonlinear), texts::c_strNonlinearState, nodes.size(), shapes);
  AppendModes(AddSuffix(suffix::c_strModes), nodes, shapes);
  return shapes;
}

}  // namespace skyframe::gui
