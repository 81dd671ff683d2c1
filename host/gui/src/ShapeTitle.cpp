#include "ShapeTitle.h"

#include "skyframe/platform/NumberText.h"
#include "skyframe/values/SpectrumSite.h"
#include "texts.h"

namespace skyframe::gui {

std::string FormShapeTitle(const host::DeformedShape& shape) {
  if (shape.kind == host::ShapeKind::LinearState) return std::string(texts::c_strLinearState);
  if (shape.kind == host::ShapeKind::NonlinearState) return std::string(texts::c_strNonlinearState);
  const double dFrequency = shape.dOmega * c_dHertzPerRadian;
  std::string strText = std::string(texts::c_strMode) + " " + std::to_string(shape.nMode);
  strText += "   f = " + FormatGeneral(dFrequency) + " Hz";
  if (dFrequency > 0.0) strText += "   T = " + FormatGeneral(1.0 / dFrequency) + " s";
  return strText;
}

}  // namespace skyframe::gui
