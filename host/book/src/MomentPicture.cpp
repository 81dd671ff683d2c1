#include <algorithm>
#include <cmath>
#include <sstream>

#include "Figures.h"
#include "Pictures.h"
#include "skyframe/plot/Plots.h"
#include "skyframe/scene/MemberForces.h"

namespace skyframe::host {

namespace {

double GetPlace(const JobNode& node, int nAcross) { return nAcross == 0 ? node.dX : node.dY; }

const JobNode& GetEnd(const Job& job, int nNode) { return job.nodes[static_cast<std::size_t>(nNode - 1)]; }

double GetLargest(const MemberForces& member) {
  double dLargest = 0.0;
  for (const double M : member.Get(MemberQuantity::My)) dLargest = std::max(dLargest, std::abs(M));
  return dLargest;
}

/// Whether a member lies across an axis.
bool IsAcross(const Job& job, const JobElement& element, int nAcross) {
  const double dI = GetPlace(GetEnd(job, element.nNodeI), nAcross);
  return std::abs(GetPlace(GetEnd(job, element.nNodeJ), nAcross) - dI) <= c_dLevelTolerance;
}

/// The plane, across Y where it can be, of the member with the largest moment of those that do not lie askew.
std::optional<FramePlane> FindFrame(const Job& job, const StructureForces& forces) {
  std::optional<FramePlane> frame;
  double dLargest = 0.0;
  for (std::size_t n = 0; n < job.elements.size(); ++n) {
    const double M = forces.members[n].Has(MemberQuantity::My) ? GetLargest(forces.members[n]) : 0.0;
    const int nAcross = IsAcross(job, job.elements[n], 1) ? 1 : 0;
    if (M <= dLargest * (1.0 + 1.0e-9) || !IsAcross(job, job.elements[n], nAcross)) continue;
    dLargest = M;
    frame = FramePlane{nAcross, GetPlace(GetEnd(job, job.elements[n].nNodeI), nAcross)};
  }
  return frame;
}

}  // namespace

std::optional<MomentPicture> DrawMoments(const Job& job, const std::string& strJobPath, const StaticResultFile& file) {
  const Reading<StructureForces> forces = FormMemberForces(file, {job.nodes.size(), job.elements.size()});
  if (!forces) return std::nullopt;
  PlotRequest request;
  request.kind = PlotRequest::Kind::Diagram;
  request.frame = FindFrame(job, *forces);
  if (!request.frame) return std::nullopt;
  std::ostringstream err;
  const auto strSvg = DrawPlot(job, strJobPath, request, err);
  if (!strSvg) return std::nullopt;
  const std::string strAxis(c_strAxes[static_cast<std::size_t>(request.frame->nAxis)]);
  return MomentPicture{strAxis + " = " + FormatFixed(request.frame->dAt, 2) + " m", *strSvg};
}

}  // namespace skyframe::host
