// Design spectrum, mode shapes, deformed structure.

#include "PlotSource.h"
#include "skyframe/connect/Inquiries.h"
#include "skyframe/job/DialogFields.h"
#include "skyframe/job/Text.h"
#include "skyframe/job/Wording.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr double c_dMillimetres = 1.0e3;

/// Settings of the spectrum analysis; what the job leaves out is what the dialog would show.
struct SpectrumChoice {
  SpectrumSite site;
  double dDamping = 0.0;
  int nModes = 0;
};

SpectrumChoice GetSpectrumChoice(const SpectrumJob& analysis) {
  const SpectrumJob whole = WithDefaults(analysis);
  SpectrumChoice choice;
  choice.site.m_nQuakeLevel = *whole.nLevel;
  choice.site.m_nIntensity = *whole.nIntensity + c_nLowestIntensity;
  choice.site.m_nZoneGroup = *whole.nZoneGroup;
  choice.site.m_nSiteClass = *whole.nSiteClass;
  choice.dDamping = *whole.dDamping;
  choice.nModes = *whole.nModes;
  return choice;
}

/// The structure with one of its shapes; nothing after a line about the first value that cannot be drawn.
std::optional<ShapePicture> MakeShapePicture(CPlotSource& source, DeformedShape shape, std::string_view strSuffix) {
  if (const std::optional<int> nNode = shape.FindUndrawableNode()) {
    const int nId = source.GetJob().nodes[static_cast<std::size_t>(*nNode)].nId;
    return source.Refuse(source.GetJobPath() + std::string(strSuffix),
                         Say(texts::c_badDisplacement, {std::to_string(nId)}));
  }
  ShapePicture picture;
  picture.strTitle = source.GetTitle();
  picture.scene = CScene(source.GetJob());
  picture.shape = std::move(shape);
  return picture;
}

std::string RenderShape(const ShapePicture& picture) {
  return Render(c_sheetSize, [&](IPaintContext& paint) { PaintShape(paint, picture); });
}

}  // namespace

std::optional<std::string> DrawSpectrum(CPlotSource& source) {
  const SpectrumJob* pAnalysis = nullptr;
  for (const JobAnalysis& analysis : source.GetJob().analyses) {
    if (pAnalysis == nullptr) pAnalysis = std::get_if<SpectrumJob>(&analysis);
  }
  if (pAnalysis == nullptr) return source.Refuse(Say(texts::c_noSpectrum));
  const SpectrumChoice choice = GetSpectrumChoice(*pAnalysis);
  if (!EvaluateDesignSpectrum(choice.site, 0.0, choice.dDamping)) return std::nullopt;
  const auto file = source.LoadModes();
  if (!file) return std::nullopt;
  const std::size_t nModes = file->omega.size();
  if (choice.nModes > static_cast<int>(nModes)) {
    return source.Refuse(source.GetJobPath() + std::string(suffix::c_strModes),
                         Say(texts::c_fewModes, {std::to_string(choice.nModes), std::to_string(nModes)}));
  }
  SpectrumPicture picture;
  picture.site = choice.site;
  for (int i = 0; i < choice.nModes; ++i)
    picture.periods.push_back(c_dTwoPi / file->omega[static_cast<std::size_t>(i)]);
  picture.strTitle = source.GetTitle();
  picture.dDamping = choice.dDamping;
  picture.strSite = DescribeSite(choice.site);
  return Render(c_chartSize, [&](IPaintContext& paint) { PaintSpectrum(paint, picture); });
}

std::optional<std::string> DrawMode(CPlotSource& source, const PlotRequest& request) {
  const auto file = source.LoadModes();
  if (!file) return std::nullopt;
  const int nModes = static_cast<int>(file->omega.size());
  const std::string strMode = std::to_string(request.nMode);
  if (request.nMode < 1 || request.nMode > nModes) {
    return source.Refuse(source.GetJobPath() + std::string(suffix::c_strModes),
                         Say(texts::c_noMode, {strMode, std::to_string(nModes)}));
  }
  auto picture = MakeShapePicture(source, FormModeShape(*file, request.nMode), suffix::c_strModes);
  if (!picture) return std::nullopt;
  const double omega = picture->shape.dOmega;
  picture->bColours = request.bShapeColours;
  picture->strShape = Say(texts::c_mode, {strMode});
  picture->strSubtitle = Say(
      texts::c_modeOf,
      {strMode, std::to_string(nModes), Format("%.4g", omega * c_dHertzPerRadian), Format("%.4g", c_dTwoPi / omega)});
  return RenderShape(*picture);
}

std::optional<std::string> DrawDeformed(CPlotSource& source, const PlotRequest& request) {
  const ResultKind kind = request.bNonlinear ? ResultKind::Nonlinear : ResultKind::Linear;
  auto file = source.LoadStatic(kind);
  if (!file) return std::nullopt;
  auto picture = MakeShapePicture(source, FormStaticShape(*std::move(file)), GetSuffix(kind));
  if (!picture) return std::nullopt;
  picture->bColours = request.bShapeColours;
  picture->strShape = Say(texts::c_deformed);
  picture->strSubtitle =
      Say(texts::c_largestOf,
          {Say(GetAnalysisName(kind)), Format("%.4g", c_dMillimetres * picture->shape.GetLargestTranslation())});
  return RenderShape(*picture);
}

}  // namespace skyframe::host
