#include <algorithm>

#include "skyframe/job/Text.h"
#include "skyframe/run/JobRunner.h"
#include "skyframe/run/PlatformScope.h"
#include "skyframe/run/Session.h"
#include "texts.h"

namespace skyframe::host {

namespace {

void PrintLine(const Words& label, std::string_view strText, std::ostream& out) {
  out << PadRight(Say(label), 13) << strText << '\n';
}

void PrintCounts(const Job& job, std::ostream& out) {
  std::array<int, 4> elements = {};
  for (const JobElement& element : job.elements) ++elements[element.nType];
  const auto nRigid =
      std::count_if(job.nodes.begin(), job.nodes.end(), [](const JobNode& node) { return node.nJoint == c_nRigid; });
  PrintLine(texts::c_nodes,
            Say(texts::c_nodeCounts, {std::to_string(job.nodes.size()), std::to_string(nRigid),
                                      std::to_string(std::ssize(job.nodes) - nRigid)}),
            out);
  PrintLine(texts::c_elements,
            Say(texts::c_elementCounts, {std::to_string(job.elements.size()), std::to_string(elements[c_nBar]),
                                         std::to_string(elements[c_nBeam]), std::to_string(elements[c_nCable]),
                                         std::to_string(elements[c_nMembrane]), std::to_string(job.sections.size())}),
            out);
  const int nCases = job.loads.empty() ? 0 : job.GetHighestCase() + 1;
  PrintLine(texts::c_loads, Say(texts::c_loadCounts, {std::to_string(job.loads.size()), std::to_string(nCases)}), out);
  PrintLine(texts::c_analyses, std::to_string(job.analyses.size()), out);
}

void PrintProfile(const Words& label, const ProfileMeasure& profile, std::ostream& out) {
  PrintLine(
      label,
      Say(texts::c_profileMeasures, {Format("%.0f", profile.dEntries), Format("%.1f", profile.GetMeanHeight()),
                                     Format("%.0f", profile.dLargestHeight), Format("%.1f", profile.dBytes * 1.0e-6),
                                     Format("%.3f", profile.dOperations * 1.0e-9)}),
      out);
}

}  // namespace

bool CheckJob(const Job& job, const HostStreams& streams) {
  CPlatformScope platform(streams.err, streams.console);
  const std::optional<CSession> session = CSession::Open(job, "", "");
  if (!session) return false;
  PrintCounts(job, streams.out);
  const std::optional<ModelMeasure> measure = session->Measure();
  if (!measure) return false;
  PrintLine(
      texts::c_equations,
      Say(texts::c_equationCounts, {std::to_string(measure->own.nFree), std::to_string(measure->own.nRestrained)}),
      streams.out);
  PrintProfile(texts::c_profile, measure->own, streams.out);
  PrintProfile(texts::c_renumbered, measure->renumbered, streams.out);
  return true;
}

}  // namespace skyframe::host
