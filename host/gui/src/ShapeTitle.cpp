#include "ShapeTitle.h"

#include <array>

#include "skyframe/job/Text.h"
#include "skyframe/platform/NumberText.h"
#include "skyframe/values/SpectrumSite.h"
#include "texts.h"

namespace skyframe::gui {

std::string FormShapeTitle(const host::DeformedShape& shape) {
  if (shape.kind == host::ShapeKind::LinearState) return std::string(Say(texts::c_linearState));
  if (shape.kind == host::ShapeKind::NonlinearState) return std::string(Say(texts::c_nonlinearState));
  if (shape.kind == host::ShapeKind::Moment) return Say(texts::c_moment, {host::Format("%.6g", shape.dTime)});
  const double dFrequency = shape.dOmega * c_dHertzPerRadian;
  std::string strText = Say(texts::c_mode, {std::to_string(shape.nMode)});
  strText += "   f = " + FormatGeneral(dFrequency) + " Hz";
  if (dFrequency > 0.0) strText += "   T = " + FormatGeneral(1.0 / dFrequency) + " s";
  return strText;
}

std::string FormResultTitle(host::ResultKind kind) {
  constexpr std::array c_titles = {texts::c_linear, texts::c_nonlinear, texts::c_modes, texts::c_response,
                                   texts::c_history};
  return std::string(Say(c_titles[static_cast<std::size_t>(kind)]));
}

std::string FormResultMark(bool bFailed, bool bOutdated) {
  return std::string(bFailed ? Say(texts::c_failedMark) : "") + (bOutdated ? FormOutdatedMark() : "");
}

std::string FormResultMark(const CDocument& document, std::string_view strSuffix) {
  return FormResultMark(document.FindError(strSuffix) != nullptr, document.IsOutdated(strSuffix));
}

std::string FormOutdatedMark() { return std::string(Say(texts::c_outdatedMark)); }

}  // namespace skyframe::gui
