#include <algorithm>
#include <cmath>

#include "Figures.h"
#include "Pictures.h"
#include "skyframe/plot/Chart.h"
#include "skyframe/scene/MemberForces.h"
#include "skyframe/scene/ResultPainter.h"
#include "skyframe/scene/ScenePainter.h"
#include "texts.h"

namespace skyframe::host {

namespace {

// Pixels
constexpr int c_nWidth = 1000, c_nHeight = 900;
constexpr double c_dMargin = 60, c_dTextHeight = 12;
constexpr std::size_t c_nMostLabels = 160;
constexpr Colour c_memberColour{0x4a, 0x55, 0x63};

/// A vertical plane of the structure, across the axis X (0) or Y (1).
struct Frame {
  std::size_t nAcross = 1;
  double dPlace = 0.0;  ///< m
  std::vector<bool> members;
};

double GetPlace(const JobNode& node, std::size_t nAcross) { return nAcross == 0 ? node.dX : node.dY; }

const JobNode& GetEnd(const Job& job, int nNode) { return job.nodes[static_cast<std::size_t>(nNode - 1)]; }

double GetLargest(const MemberForces& member) {
  double dLargest = 0.0;
  for (const double M : member.Get(MemberQuantity::My)) dLargest = std::max(dLargest, std::abs(M));
  return dLargest;
}

/// Whether a member lies across an axis.
bool IsAcross(const Job& job, const JobElement& element, std::size_t nAcross) {
  const double dI = GetPlace(GetEnd(job, element.nNodeI), nAcross);
  return std::abs(GetPlace(GetEnd(job, element.nNodeJ), nAcross) - dI) <= c_dLevelTolerance;
}

/// The plane, across Y where it can be, of the member with the largest moment of those that do not lie askew.
std::optional<Frame> FindFrame(const Job& job, const StructureForces& forces) {
  std::optional<Frame> frame;
  double dLargest = 0.0;
  for (std::size_t n = 0; n < job.elements.size(); ++n) {
    const double M = forces.members[n].Has(MemberQuantity::My) ? GetLargest(forces.members[n]) : 0.0;
    const std::size_t nAcross = IsAcross(job, job.elements[n], 1) ? 1 : 0;
    if (M <= dLargest * (1.0 + 1.0e-9) || !IsAcross(job, job.elements[n], nAcross)) continue;
    dLargest = M;
    frame = Frame{nAcross, GetPlace(GetEnd(job, job.elements[n].nNodeI), nAcross), {}};
  }
  if (!frame) return frame;
  const auto isInPlane = [&](int nNode) {
    return std::abs(GetPlace(GetEnd(job, nNode), frame->nAcross) - frame->dPlace) <= c_dLevelTolerance;
  };
  for (const JobElement& element : job.elements) {
    frame->members.push_back(isInPlane(element.nNodeI) && isInPlane(element.nNodeJ));
  }
  return frame;
}

CCamera FormCamera(const CScene& scene, const Frame& frame) {
  CCamera camera;
  camera.SetDirection(frame.nAcross == 1 ? c_frontView : c_sideView);
  camera.SetViewport({0.0, 0.0, c_nWidth, c_nHeight});
  std::vector<Point3> points;
  for (std::size_t n = 0; n < frame.members.size(); ++n) {
    if (!frame.members[n]) continue;
    points.push_back(scene.GetPlace(scene.GetMembers()[n].nNodeI));
    points.push_back(scene.GetPlace(scene.GetMembers()[n].nNodeJ));
  }
  camera.Fit(points, c_dMargin);
  return camera;
}

}  // namespace

std::optional<MomentPicture> DrawMoments(const Job& job, const StaticResultFile& file) {
  const Reading<StructureForces> forces = FormMemberForces(file, {job.nodes.size(), job.elements.size()});
  if (!forces) return std::nullopt;
  const std::optional<Frame> frame = FindFrame(job, *forces);
  if (!frame) return std::nullopt;

  const CScene scene(job);
  const CCamera camera = FormCamera(scene, *frame);
  const CShownParts shown(scene, frame->members);
  CSvgPaintContext paint(c_nWidth, c_nHeight);
  CLabelField labels({0.0, 0.0, c_nWidth, c_nHeight}, c_nMostLabels, c_dTextHeight);
  CResultPainter results(paint, scene, camera, shown);
  results.PaintDiagram(*forces, MemberQuantity::My, ChooseDiagramSize(scene), &labels);
  CScenePainter painter(paint, scene, camera, shown);
  painter.PaintMembers({c_memberColour, c_memberColour, 1.4, 1.0});
  painter.PaintSupports(c_markColour);
  labels.Paint(paint);
  return MomentPicture{Tell({"{0} = {1} m", "{0} = {1} m"}, {c_strAxes[frame->nAcross], FormatFixed(frame->dPlace, 2)}),
                       paint.GetDocument()};
}

}  // namespace skyframe::host
