// Forces and loads on the structure.

#include <algorithm>
#include <cmath>

#include "PlotSource.h"
#include "skyframe/job/Text.h"
#include "skyframe/job/Wording.h"
#include "skyframe/scene/ResultPainter.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe::host {

namespace {

using Kind = PlotRequest::Kind;

/// Forces with words for where they come from.
struct NamedForces {
  StructureForces forces;
  std::string strSource;
};

std::optional<NamedForces> LoadStaticForces(CPlotSource& source, ResultKind kind) {
  const auto file = source.LoadStatic(kind);
  if (!file) return std::nullopt;
  auto forces =
      source.Take(source.GetJobPath() + std::string(GetSuffix(kind)), FormMemberForces(*file, source.GetSize()));
  if (!forces) return std::nullopt;
  return NamedForces{*std::move(forces), std::string(Say(GetAnalysisName(kind)))};
}

std::optional<NamedForces> LoadSpectrumForces(CPlotSource& source) {
  const auto strPath = source.FindFile(suffix::c_strSpectrum, texts::c_spectrumAnalysis);
  if (!strPath) return std::nullopt;
  const auto file = source.Take(*strPath, ReadSpectrumResultFile(*strPath, source.GetJob().nodes));
  if (!file) return std::nullopt;
  auto forces = source.Take(*strPath, FormMemberForces(*file, source.GetSize()));
  if (!forces) return std::nullopt;
  const std::string_view strMethod = c_strModalCombinations[static_cast<std::size_t>(file->nCombination)];
  return NamedForces{*std::move(forces), Say(texts::c_spectrumForces, {strMethod})};
}

std::optional<NamedForces> LoadHistoryForces(CPlotSource& source, double t) {
  const auto strPath = source.FindFile(suffix::c_strHistory, texts::c_historyAnalysis);
  if (!strPath) return std::nullopt;
  const auto file = source.Take(*strPath, ReadHistoryFile(*strPath, source.GetHistoryModel()));
  if (!file) return std::nullopt;
  const double dStep = std::round(t / file->dTimeStep);
  if (!(dStep >= 1.0 && dStep <= file->nSteps)) {
    return source.Refuse(*strPath,
                         Say(texts::c_noTime, {Format("%g", t), Format("%g", file->nSteps * file->dTimeStep)}));
  }
  std::vector<double> axial;
  for (const std::vector<double>& history : file->forces) axial.push_back(history[static_cast<std::size_t>(dStep) - 1]);
  auto forces = source.Take(*strPath, FormMemberForces(axial, source.GetSize()));
  if (!forces) return std::nullopt;
  return NamedForces{*std::move(forces), Say(texts::c_historyForces, {Format("%g", dStep * file->dTimeStep)})};
}

std::optional<NamedForces> LoadForces(CPlotSource& source, const PlotRequest& request) {
  switch (request.source) {
    case ResultKind::Spectrum:
      return LoadSpectrumForces(source);
    case ResultKind::History:
      return LoadHistoryForces(source, request.dTime);
    default:
      return LoadStaticForces(source, request.source);
  }
}

/// What no picture can show; empty: nothing.
std::string_view FindMisfit(const PlotRequest& request) {
  const bool bQuantity = request.kind == Kind::Diagram || request.kind == Kind::Colours;
  if (request.kind == Kind::Diagram && request.quantity >= MemberQuantity::Shear) return Say(texts::c_noDiagram);
  if (request.source != ResultKind::History) return "";
  if (bQuantity && request.quantity != MemberQuantity::N) return Say(texts::c_axialAlone);
  return request.kind == Kind::Reactions || request.bReactions ? Say(texts::c_noReactions) : "";
}

double GetCoordinate(Point3 at, int nAxis) { return nAxis == 0 ? at.dX : nAxis == 1 ? at.dY : at.dZ; }

/// Members of the plane asked for, seen from straight before it.
bool ChooseFrame(CPlotSource& source, const PlotRequest& request, StructurePicture& picture) {
  constexpr std::array<ViewDirection, 3> c_views = {c_sideView, c_frontView, c_planView};
  constexpr double c_dSamePlace = 1.0e-3;  // m
  if (request.frame) {
    const int nAxis = request.frame->nAxis;
    const double dAt = request.frame->dAt;
    std::vector<bool> members;
    const auto isThere = [&](int nNode) {
      return std::abs(GetCoordinate(picture.scene.GetPlace(nNode), nAxis) - dAt) < c_dSamePlace;
    };
    for (const SceneMember& member : picture.scene.GetMembers())
      members.push_back(isThere(member.nNodeI) && isThere(member.nNodeJ));
    const std::string strAt = Format("%g", dAt);
    const std::string_view strAxis = c_strAxes[static_cast<std::size_t>(nAxis)];
    if (std::ranges::find(members, true) == members.end()) {
      source.Refuse(Say(texts::c_noFrame, {strAxis, strAt}));
      return false;
    }
    picture.shown = CShownParts(picture.scene, std::move(members));
    picture.view = c_views[static_cast<std::size_t>(nAxis)];
    picture.strSubtitle += "; " + Say(texts::c_framesAt, {strAxis, strAt});
  }
  if (request.view) picture.view = *request.view;
  return true;
}

StructurePicture MakePicture(CPlotSource& source, const PlotRequest& request) {
  StructurePicture picture;
  picture.strTitle = source.GetTitle();
  picture.scene = CScene(source.GetJob());
  picture.bLocalAxes = request.bLocalAxes;
  picture.bSectionNames = request.bSectionNames;
  return picture;
}

std::optional<std::string> RenderStructure(CPlotSource& source, const PlotRequest& request, StructurePicture& picture) {
  if (!ChooseFrame(source, request, picture)) return std::nullopt;
  return Render(c_sheetSize, [&](IPaintContext& paint) { PaintStructure(paint, picture); });
}

std::string DescribeForces(const PlotRequest& request, const NamedForces& named) {
  if (request.kind == Kind::Reactions) return Say(texts::c_reactionsOf, {named.strSource});
  if (request.kind == Kind::Colours)
    return Say(texts::c_coloursOf, {named.strSource, GetName(request.quantity), GetUnit(request.quantity)});
  return Say(texts::c_diagramOf, {named.strSource, GetName(request.quantity), GetUnit(request.quantity),
                                  DescribeDiagramSide(named.forces, request.quantity)});
}

/// A case that the loads do not have; nothing when there is none.
std::optional<int> FindEmptyCase(const std::vector<SceneLoad>& loads, const JobCombination& combination) {
  for (const auto& [nCase, dFactor] : combination) {
    if (std::ranges::find(loads, nCase, &SceneLoad::nCase) == loads.end()) return nCase;
  }
  return std::nullopt;
}

bool HasQuantity(const StructureForces& forces, MemberQuantity quantity) {
  return std::ranges::any_of(forces.members, [quantity](const MemberForces& member) { return member.Has(quantity); });
}

}  // namespace

std::optional<std::string> DrawForces(CPlotSource& source, const PlotRequest& request) {
  if (const std::string_view strMisfit = FindMisfit(request); !strMisfit.empty()) return source.Refuse(strMisfit);
  auto named = LoadForces(source, request);
  if (!named) return std::nullopt;
  if (request.kind != Kind::Reactions && !HasQuantity(named->forces, request.quantity)) {
    return source.Refuse(Say(texts::c_noQuantity, {GetName(request.quantity)}));
  }
  StructurePicture picture = MakePicture(source, request);
  picture.strSubtitle = DescribeForces(request, *named);
  picture.forces = std::move(named->forces);
  if (request.kind == Kind::Diagram) picture.diagram = request.quantity;
  if (request.kind == Kind::Colours) picture.colours = request.quantity;
  picture.bReactions = request.kind == Kind::Reactions || request.bReactions;
  return RenderStructure(source, request, picture);
}

std::optional<std::string> DrawLoads(CPlotSource& source, const PlotRequest& request) {
  StructurePicture picture = MakePicture(source, request);
  const std::vector<SceneLoad>& loads = picture.scene.GetLoads();
  if (const auto nEmpty = FindEmptyCase(loads, request.combination)) {
    return source.Refuse(Say(texts::c_noCase, {std::to_string(*nEmpty)}));
  }
  if (!request.combination.empty()) {
    picture.loads = CombineLoads(loads, request.combination);
    picture.strSubtitle = Say(texts::c_combinedLoads, {FormatCombination(request.combination)});
  } else {
    picture.loads = SelectLoads(loads, request.nCase);
    picture.strSubtitle =
        request.nCase ? Say(texts::c_caseLoads, {std::to_string(*request.nCase)}) : std::string(Say(texts::c_allLoads));
  }
  if (picture.loads.empty()) {
    return source.Refuse(request.nCase ? Say(texts::c_noCase, {std::to_string(*request.nCase)})
                                       : std::string(Say(texts::c_noLoads)));
  }
  return RenderStructure(source, request, picture);
}

std::optional<std::string> DrawStructure(CPlotSource& source, const PlotRequest& request) {
  StructurePicture picture = MakePicture(source, request);
  picture.strSubtitle = Say(texts::c_structure);
  return RenderStructure(source, request, picture);
}

}  // namespace skyframe::host
