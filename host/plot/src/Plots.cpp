#include "skyframe/plot/Plots.h"

#include "PlotSource.h"

namespace skyframe::host {

std::optional<std::string> DrawPlot(const Job& job, const std::string& strJobPath, const PlotRequest& request,
                                    std::ostream& err) {
  using Kind = PlotRequest::Kind;
  CPlotSource source(job, strJobPath, err);
  switch (request.kind) {
    case Kind::Spectrum:
      return DrawSpectrum(source);
    case Kind::Mode:
      return DrawMode(source, request);
    case Kind::Deformed:
      return DrawDeformed(source, request);
    case Kind::Node:
    case Kind::Element:
      return DrawHistory(source, request);
    case Kind::Diagram:
    case Kind::Colours:
    case Kind::Reactions:
      return DrawForces(source, request);
    case Kind::Loads:
      return DrawLoads(source, request);
    case Kind::Structure:
      return DrawStructure(source, request);
  }
  return std::nullopt;
}

}  // namespace skyframe::host
