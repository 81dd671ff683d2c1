#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "skyframe/job/Job.h"

namespace skyframe::host {

/// What to draw of a job's results.
struct PlotRequest {
  enum class Kind { Spectrum, Mode, Node, Element, Deformed };
  Kind kind = Kind::Spectrum;
  int nNumber = 1;          ///< mode or element from 1, or node id
  int nDirection = 0;       ///< of a node: X, Y, Z
  bool bNonlinear = false;  ///< deformed structure of the nonlinear static analysis
  bool bViewer = false;     ///< a history as the result viewer shows it
};

/// The picture as SVG, from the job's result files. Nothing, after a line on err, when the files do not
/// have what is asked for.
[[nodiscard]] std::optional<std::string> DrawPlot(const Job& job, const std::string& strJobPath,
                                                  const PlotRequest& request, std::ostream& err);

}  // namespace skyframe::host
