#include <algorithm>

#include "skyframe/job/Text.h"
#include "skyframe/run/JobRunner.h"
#include "skyframe/run/PlatformScope.h"
#include "skyframe/run/Session.h"

namespace skyframe::host {

namespace {

void PrintCounts(const Job& job, std::ostream& out) {
  std::array<int, 4> elements = {};
  for (const JobElement& element : job.elements) ++elements[element.nType];
  const auto nRigid =
      std::count_if(job.nodes.begin(), job.nodes.end(), [](const JobNode& node) { return node.nJoint == c_nRigid; });
  out << "nodes        " << job.nodes.size() << " (" << nRigid << " rigid, " << std::ssize(job.nodes) - nRigid
      << " pinned)\n"
      << "elements     " << job.elements.size()
      << Format(" (%d bars, %d beams, %d cables, %d membranes), ", elements[c_nBar], elements[c_nBeam],
                elements[c_nCable], elements[c_nMembrane])
      << job.sections.size() << " sections\n"
      << "loads        " << job.loads.size() << " in " << (job.loads.empty() ? 0 : job.GetHighestCase() + 1)
      << " cases\n"
      << "analyses     " << job.analyses.size() << '\n';
}

void PrintProfile(const char* pszTitle, const ProfileMeasure& profile, std::ostream& out) {
  out << Format("%-12s %.0f entries, mean height %.1f, largest %.0f, %.1f MB, %.3f GFLOP to factorise\n", pszTitle,
                profile.dEntries, profile.GetMeanHeight(), profile.dLargestHeight, profile.dBytes * 1.0e-6,
                profile.dOperations * 1.0e-9);
}

}  // namespace

bool CheckJob(const Job& job, const HostStreams& streams) {
  CPlatformScope platform(streams.err, streams.console);
  const std::optional<CSession> session = CSession::Open(job, "", "");
  if (!session) return false;
  PrintCounts(job, streams.out);
  const std::optional<ModelMeasure> measure = session->Measure();
  if (!measure) return false;
  streams.out << Format("equations    %d free, %d restrained\n", measure->own.nFree, measure->own.nRestrained);
  PrintProfile("profile", measure->own, streams.out);
  PrintProfile("renumbered", measure->renumbered, streams.out);
  return true;
}

}  // namespace skyframe::host
