#include "skyframe/connect/Inquiries.h"

#include <algorithm>
#include <exception>

#include "Renumbering.h"
#include "skyframe/modal/DesignSpectrum.h"
#include "skyframe/modal/Inertia.h"
#include "skyframe/modal/ModalCombination.h"
#include "skyframe/modal/ModeCount.h"
#include "skyframe/model/AnalysisModel.h"
#include "skyframe/platform/Platform.h"
#include "texts.h"

namespace skyframe {
namespace {

/// Keeps progress and trace lines off the console for the life of the object: they belong to runs.
class CQuietConsole {
 public:
  CQuietConsole() : m_console(GetPlatform().GetConsole()), m_state(m_console.rdstate()) {
    m_console.clear(m_state | std::ios::badbit);
  }
  ~CQuietConsole() { m_console.clear(m_state); }
  CQuietConsole(const CQuietConsole&) = delete;
  CQuietConsole& operator=(const CQuietConsole&) = delete;

 private:
  std::ostream& m_console;
  std::ios::iostate m_state;
};

/// Answers within the module's state; nothing after a message when memory is short.
template <class Question>
auto Answer(Question question) -> decltype(question()) {
  const CModuleStateScope scope;
  try {
    const CQuietConsole quiet;
    return question();
  } catch (const std::exception&) {
    GetPlatform().ShowMessage(texts::c_strOutOfMemory);
    return std::nullopt;
  }
}

ProfileMeasure MeasureProfile(const CAnalysisModel& model) {
  ProfileMeasure result;
  result.nFree = model.GetFreeDofs();
  result.nRestrained = model.GetTotalDofs() - result.nFree;
  const std::vector<int>& diagonal = model.GetDiagonalAddresses();
  for (int i = 0; i < result.nFree; ++i) {
    const auto k = static_cast<std::size_t>(i);
    const double dHeight = i == 0 ? 1.0 : static_cast<double>(diagonal[k]) - diagonal[k - 1];
    result.dEntries += dHeight;
    result.dLargestHeight = std::max(result.dLargestHeight, dHeight);
    result.dOperations += dHeight * dHeight;
  }
  result.dBytes = diagonal.empty() ? 0.0 : sizeof(double) * (diagonal.back() + 1.0);
  return result;
}

std::optional<ProfileMeasure> BuildAndMeasure(bool bForModes) {
  CAnalysisModel model;
  if (bForModes) {
    model.BuildModelForModes(false);
  } else {
    model.BuildModel();
  }
  return model.m_bValid ? std::optional(MeasureProfile(model)) : std::nullopt;
}

/// m_bValid tells whether the module refused the model.
void BuildForModes(const ModeSettings& settings, CAnalysisModel& model) {
  model.m_nLoadCaseFlag = settings.loadFlags;
  model.m_dLoadFactor = settings.loadFactors;
  model.m_bLoadComb = std::ranges::any_of(settings.loadFlags, [](int n) { return n != 0; });
  model.m_bShear = settings.bShear ? 1 : 0;
  model.BuildModelForModes(model.m_bLoadComb);
}

}  // namespace

std::optional<ModelMeasure> MeasureModel(bool bForModes) {
  return Answer([bForModes]() -> std::optional<ModelMeasure> {
    const std::optional<ProfileMeasure> own = BuildAndMeasure(bForModes);
    if (!own) return std::nullopt;
    const CRenumbering renumbering;
    const std::optional<ProfileMeasure> renumbered = BuildAndMeasure(bForModes);
    return renumbered ? std::optional(ModelMeasure{*own, *renumbered}) : std::nullopt;
  });
}

std::optional<int> CountModesBelow(double dOmega, const ModeSettings& settings) {
  return Answer([&]() -> std::optional<int> {
    const CRenumbering renumbering;  // the smaller profile
    CAnalysisModel model;
    BuildForModes(settings, model);
    return model.m_bValid ? CountModesBelow(model, dOmega, model.m_bLoadComb) : std::nullopt;
  });
}

std::optional<std::vector<std::vector<NodeValues>>> FormInertia(
    const std::vector<std::vector<NodeValues>>& accelerations, const ModeSettings& settings) {
  return Answer([&]() -> std::optional<std::vector<std::vector<NodeValues>>> {
    CAnalysisModel model;
    BuildForModes(settings, model);
    const auto nNodes = static_cast<std::size_t>(model.GetNodes().GetNodeCount());
    const bool bWhole = std::ranges::all_of(accelerations, [nNodes](const auto& a) { return a.size() == nNodes; });
    return model.m_bValid && bWhole ? FormInertia(model, model.m_bLoadComb, accelerations) : std::nullopt;
  });
}

std::vector<double> CombineMaxima(const CombinationRule& rule, const std::vector<std::vector<double>>& maxima) {
  const CModalCombination combination(rule.nMethod, rule.omega, rule.zeta);
  std::vector<double> combined(maxima.empty() ? 0 : maxima.front().size());
  std::vector<double> R(maxima.size());
  for (std::size_t q = 0; q < combined.size(); ++q) {
    std::ranges::transform(maxima, R.begin(), [q](const std::vector<double>& mode) { return mode[q]; });
    combined[q] = combination.Combine(R);
  }
  return combined;
}

std::optional<DesignSpectrumValue> EvaluateDesignSpectrum(const SpectrumSite& site, double dPeriod, double dDampRatio) {
  return Answer([&]() -> std::optional<DesignSpectrumValue> {
    if (const auto strError = FindSiteError(site)) {
      GetPlatform().ShowMessage(*strError);
      return std::nullopt;
    }
    const CDesignSpectrum spectrum(site);
    return DesignSpectrumValue{spectrum.GetAlpha(dPeriod, dDampRatio), spectrum.GetAlphaMax(), spectrum.GetTg()};
  });
}

}  // namespace skyframe
