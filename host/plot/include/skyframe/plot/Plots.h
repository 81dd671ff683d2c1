#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "skyframe/job/Job.h"
#include "skyframe/results/ResultKind.h"
#include "skyframe/scene/Camera.h"
#include "skyframe/scene/MemberForces.h"

namespace skyframe::host {

/// Members between nodes of one coordinate.
struct FramePlane {
  int nAxis = 0;     ///< X, Y, Z
  double dAt = 0.0;  ///< m
};

/// What to draw of a job or its results.
struct PlotRequest {
  enum class Kind { Spectrum, Mode, Node, Element, Deformed, Diagram, Colours, Reactions, Loads, Structure };
  Kind kind = Kind::Spectrum;
  int nMode = 1;                           ///< from 1
  std::vector<int> numbers;                ///< node ids, or elements from 1, of a history: a curve each
  std::vector<int> directions = {0};       ///< of nodes: X, Y, Z; a curve for each node in each direction
  bool bViewer = false;                    ///< a history as the result viewer shows it, the first curve alone
  bool bNonlinear = false;                 ///< deformed structure of the nonlinear static analysis
  bool bShapeColours = false;              ///< a mode or the deformed structure in colours by its displacement
  ResultKind source = ResultKind::Linear;  ///< of forces
  double dTime = 0.0;                      ///< s, of a history's forces
  MemberQuantity quantity = MemberQuantity::My;
  std::optional<int> nCase;           ///< loads of one case
  JobCombination combination;         ///< loads of a combination; empty: none
  std::optional<FramePlane> frame;    ///< these members alone
  std::optional<ViewDirection> view;  ///< none: isometric, or straight at the frame
  bool bReactions = false;            ///< with a diagram or colours
  bool bLocalAxes = false;
  bool bSectionNames = false;
};

/// The picture as SVG, from the job's result files. Nothing, after a line on err, when the files do not
/// have what is asked for.
[[nodiscard]] std::optional<std::string> DrawPlot(const Job& job, const std::string& strJobPath,
                                                  const PlotRequest& request, std::ostream& err);

}  // namespace skyframe::host
