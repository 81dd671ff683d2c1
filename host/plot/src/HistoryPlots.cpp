// Histories of a job.

#include <algorithm>
#include <cmath>

#include "PlotSource.h"
#include "skyframe/job/Text.h"
#include "skyframe/results/Histories.h"
#include "skyframe/run/Session.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr PictureSize c_viewerSize{665, 300};  // client area of the result viewer

/// A curve with the name that it has for a person.
struct NamedChoice {
  HistoryChoice choice;
  int nShown = 0;  ///< node id or element number
};

std::optional<std::vector<NamedChoice>> FindElements(CPlotSource& source, const std::vector<int>& numbers) {
  std::vector<NamedChoice> choices;
  const int nElements = static_cast<int>(source.GetJob().elements.size());
  for (const int nNumber : numbers) {
    if (nNumber < 1 || nNumber > nElements)
      return source.Refuse(Say(texts::c_noElement, {std::to_string(nNumber), std::to_string(nElements)}));
    choices.push_back({{c_nHistoryForce, nNumber}, nNumber});
  }
  return choices;
}

std::optional<std::vector<NamedChoice>> FindNodes(CPlotSource& source, const PlotRequest& request) {
  std::vector<NamedChoice> choices;
  const std::vector<JobNode>& nodes = source.GetJob().nodes;
  for (const int nId : request.numbers) {
    const auto it = std::ranges::find(nodes, nId, &JobNode::nId);
    if (it == nodes.end()) return source.Refuse(Say(texts::c_noNode, {std::to_string(nId)}));
    for (const int nDirection : request.directions)
      choices.push_back({{c_nHistoryX + nDirection, static_cast<int>(it - nodes.begin()) + 1}, nId});
  }
  return choices;
}

/// What the result viewer wrote of the curve.
std::optional<SingleHistory> LoadExtract(CPlotSource& source, const HistoryChoice& choice) {
  const std::string strSuffix =
      "_" + std::to_string(choice.nNumber) +
      std::string(choice.nQuantity == c_nHistoryForce ? suffix::c_strElementHistory : suffix::c_strNodeHistory);
  const auto strPath = source.FindFile(source.HasFile(strSuffix) ? strSuffix : std::string(suffix::c_strHistory),
                                       texts::c_historyAnalysis);
  if (!strPath) return std::nullopt;
  auto history = source.Take(*strPath, ReadHistoryExtract(*strPath, source.GetHistoryModel()));
  if (history && history->nQuantity != choice.nQuantity) return source.Refuse(*strPath, Say(texts::c_otherDirection));
  return history;
}

/// The curves from the file of all histories, or from those of single ones when it is not there.
std::optional<std::vector<SingleHistory>> LoadHistories(CPlotSource& source, const std::vector<NamedChoice>& choices) {
  if (source.HasFile(suffix::c_strHistory)) {
    const auto strPath = source.FindFile(suffix::c_strHistory, texts::c_historyAnalysis);
    if (!strPath) return std::nullopt;
    std::vector<HistoryChoice> wanted;
    wanted.reserve(choices.size());
    for (const NamedChoice& named : choices) wanted.push_back(named.choice);
    return source.Take(*strPath, ReadHistories(*strPath, source.GetHistoryModel(), wanted));
  }
  std::vector<SingleHistory> histories;
  for (const NamedChoice& named : choices) {
    auto history = LoadExtract(source, named.choice);
    if (!history) return std::nullopt;
    histories.push_back(*std::move(history));
  }
  return histories;
}

bool IsForce(const HistoryChoice& choice) { return choice.nQuantity == c_nHistoryForce; }

std::string_view GetAxis(const HistoryChoice& choice) {
  return c_strAxes[static_cast<std::size_t>(choice.nQuantity - c_nHistoryX)];
}

/// Why a history cannot be drawn; empty when it can.
std::string FindFault(const SingleHistory& history, const NamedChoice& named, const HistoryPicture& picture) {
  if (history.values.empty()) return std::string(Say(texts::c_noStep));
  const double dDuration = history.dTimeStep * static_cast<double>(history.values.size());
  if (!(history.dTimeStep > 0.0 && dDuration <= c_dLargestDrawn)) return std::string(Say(texts::c_badTimeStep));
  for (std::size_t k = 0; k < history.values.size(); ++k) {
    if (std::abs(picture.unit.dFactor * history.values[k]) <= c_dLargestDrawn) continue;
    const double t = static_cast<double>(k + 1) * history.dTimeStep;
    const Words& holder = IsForce(named.choice) ? texts::c_element : texts::c_node;
    return Say(texts::c_badHistory,
               {picture.strQuantity, Say(holder, {std::to_string(named.nShown)}), Format("%g", t)});
  }
  return "";
}

/// All but the curves.
HistoryPicture MakePicture(CPlotSource& source, const std::vector<NamedChoice>& choices, const SingleHistory& first) {
  HistoryPicture picture;
  picture.strTitle = source.GetTitle();
  const HistoryChoice& choice = choices.front().choice;
  const bool bForce = IsForce(choice);
  const bool bSameAxis = std::ranges::all_of(
      choices, [&](const NamedChoice& named) { return named.choice.nQuantity == choice.nQuantity; });
  picture.strQuantity = bForce      ? std::string(Say(texts::c_axialForce))
                        : bSameAxis ? Say(texts::c_displacement, {GetAxis(choice)})
                                    : std::string(Say(texts::c_displacements));
  picture.unit = bForce ? c_forceUnits.front() : c_displacementUnits.front();
  const Words& holder = choices.size() > 1 ? texts::c_severalCurves : bForce ? texts::c_elementOf : texts::c_nodeOf;
  const int nShown = choices.size() > 1 ? static_cast<int>(choices.size()) : choices.front().nShown;
  picture.strSubtitle = Say(holder, {std::to_string(nShown), DescribeHistory(first)});
  picture.dTimeStep = first.dTimeStep;
  return picture;
}

std::string NameCurve(const NamedChoice& named) {
  const std::string strNumber = std::to_string(named.nShown);
  if (IsForce(named.choice)) return Say(texts::c_element, {strNumber});
  return Say(texts::c_nodeCurve, {strNumber, GetAxis(named.choice)});
}

/// The module's own picture of a history.
std::optional<std::string> DrawViewer(CPlotSource& source, const HistoryChoice& curve) {
  std::optional<CSession> session = CSession::Open(source.GetJob(), source.GetJobPath(), "");
  if (!session) return source.Refuse(Say(texts::c_longPath));
  CSvgPaintContext paint(c_viewerSize.nWidth, c_viewerSize.nHeight);
  return session->PaintViewer(curve, source.GetOwnPlatform(), paint) ? std::optional(paint.GetDocument())
                                                                     : std::nullopt;
}

}  // namespace

std::optional<std::string> DrawHistory(CPlotSource& source, const PlotRequest& request) {
  const auto choices =
      request.kind == PlotRequest::Kind::Element ? FindElements(source, request.numbers) : FindNodes(source, request);
  if (!choices || choices->empty()) return std::nullopt;
  auto histories = LoadHistories(source, *choices);
  if (!histories) return std::nullopt;
  HistoryPicture picture = MakePicture(source, *choices, histories->front());
  for (std::size_t c = 0; c < choices->size(); ++c) {
    SingleHistory& history = (*histories)[c];
    if (const std::string strFault = FindFault(history, (*choices)[c], picture); !strFault.empty())
      return source.Refuse(source.GetJobPath() + std::string(suffix::c_strHistory), strFault);
    picture.curves.push_back({NameCurve((*choices)[c]), std::move(history.values)});
  }
  if (request.bViewer) return DrawViewer(source, choices->front().choice);
  return Render(c_chartSize, [&](IPaintContext& paint) { PaintHistoryChart(paint, picture); });
}

}  // namespace skyframe::host
