#include <algorithm>

#include "Format.h"
#include "PlatformScope.h"
#include "Records.h"
#include "skyframe/host/JobRunner.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/model/AnalysisModel.h"

namespace skyframe::host {

namespace {

/// Size of the leading F x F block in skyline storage and cost of factorising it.
struct ProfileStatistics {
  int nFree = 0;
  int nRestrained = 0;
  double dEntries = 0.0;
  double dLargestHeight = 0.0;
  double dOperations = 0.0;  ///< sum of squared column heights

  [[nodiscard]] double GetMeanHeight() const { return nFree == 0 ? 0.0 : dEntries / nFree; }
};

ProfileStatistics MeasureProfile(const CAnalysisModel& model) {
  ProfileStatistics result;
  result.nFree = model.GetFreeDofs();
  result.nRestrained = model.GetTotalDofs() - result.nFree;
  const std::vector<int>& diagonal = model.GetDiagonalAddresses();
  for (int i = 0; i < result.nFree; ++i) {
    const double dHeight = i == 0 ? 1.0 : static_cast<double>(diagonal[i]) - diagonal[i - 1];
    result.dEntries += dHeight;
    result.dLargestHeight = std::max(result.dLargestHeight, dHeight);
    result.dOperations += dHeight * dHeight;
  }
  return result;
}

/// Nothing when the module refuses the model; it has then said why.
std::optional<ProfileStatistics> BuildAndMeasure(bool bForModes) {
  CAnalysisModel model;
  if (bForModes) {
    model.BuildModelForModes(false);
  } else {
    model.BuildModel();
  }
  return model.m_bValid ? std::optional(MeasureProfile(model)) : std::nullopt;
}

void PrintCounts(const Job& job, std::ostream& out) {
  std::array<int, 4> elements = {};
  for (const JobElement& element : job.elements) ++elements[element.nType];
  const auto nRigid =
      std::count_if(job.nodes.begin(), job.nodes.end(), [](const JobNode& node) { return node.nJoint == c_nRigid; });
  out << Format("nodes        %zu (%td rigid, %td pinned)\n", job.nodes.size(), nRigid,
                static_cast<std::ptrdiff_t>(job.nodes.size()) - nRigid);
  out << Format("elements     %zu (%d bars, %d beams, %d cables, %d membranes), %zu sections\n", job.elements.size(),
                elements[c_nBar], elements[c_nBeam], elements[c_nCable], elements[c_nMembrane], job.sections.size());
  out << Format("loads        %zu in %d cases\n", job.loads.size(), job.loads.empty() ? 0 : job.GetHighestCase() + 1);
  out << Format("analyses     %zu\n", job.analyses.size());
}

void PrintProfile(const char* pszTitle, const ProfileStatistics& profile, std::ostream& out) {
  out << Format("%-12s %.0f entries, mean height %.1f, largest %.0f, %.1f MB, %.3f GFLOP to factorise\n", pszTitle,
                profile.dEntries, profile.GetMeanHeight(), profile.dLargestHeight, profile.dEntries * 8.0e-6,
                profile.dOperations * 1.0e-9);
}

}  // namespace

bool CheckJob(const Job& job, const HostStreams& streams) {
  CPlatformScope platform(streams.err, streams.console);
  if (!FillRecords(job, "", "")) return false;
  PrintCounts(job, streams.out);

  const bool bForModes = std::any_of(job.analyses.begin(), job.analyses.end(), [](const JobAnalysis& analysis) {
    return std::holds_alternative<ModalJob>(analysis) || std::holds_alternative<SpectrumJob>(analysis);
  });
  const std::optional<ProfileStatistics> own = BuildAndMeasure(bForModes);
  if (!own) return false;
  CCommonData::OnReNodeCode();
  const std::optional<ProfileStatistics> renumbered = BuildAndMeasure(bForModes);
  CCommonData::OnRestoreNodeCode();
  streams.out << Format("equations    %d free, %d restrained\n", own->nFree, own->nRestrained);
  PrintProfile("profile", *own, streams.out);
  if (renumbered) PrintProfile("renumbered", *renumbered, streams.out);
  return platform.Get().GetMessages().empty();
}

}  // namespace skyframe::host
