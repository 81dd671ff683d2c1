#include "Scripts.h"

#include "JobReader.h"

namespace skyframe::host {

namespace {

// Dialogs and controls of the module.
constexpr int c_nModeDialog = 16000;
constexpr int c_nModeCount = 16000;
constexpr std::array<int, 2> c_nModeRootChecks = {16001, 16002};
constexpr int c_nModeAccuracy = 16003;
constexpr int c_nModeIterationMultiple = 16004;
constexpr int c_nModeShear = 16005;
constexpr int c_nModeCombination = 16044;

constexpr int c_nSpectrumDialog = 16001;
constexpr int c_nSpectrumModes = 16006;
constexpr int c_nSpectrumDamping = 16007;
constexpr int c_nSpectrumMesh = 16009;
constexpr std::array<int, 3> c_nSpectrumDirection = {16022, 16028, 16029};
constexpr std::array<int, 4> c_nSpectrumSites = {16015, 16016, 16017, 16018};
constexpr std::array<int, 3> c_nSpectrumGroups = {16019, 16020, 16021};
constexpr std::array<int, 6> c_nSpectrumIntensities = {16010, 16049, 16047, 16011, 16048, 16012};
constexpr std::array<int, 2> c_nSpectrumLevels = {16013, 16014};
constexpr std::array<int, 3> c_nSpectrumMethods = {16025, 16026, 16027};
constexpr int c_nSpectrumCombination = 16030;

constexpr int c_nCombinationDialog = 16002;
constexpr int c_nCombinationAvailable = 16039;
constexpr int c_nCombinationAdd = 16042;
constexpr int c_nCombinationFactor = 16046;

constexpr int c_nStaticDialog = 16007;
constexpr int c_nStaticCriterion = 16090;
constexpr int c_nStaticTolerance = 16091;
constexpr int c_nStaticMaxIterations = 16092;
constexpr int c_nStaticNonlinear = 16063;
constexpr int c_nStaticCombination = 16059;

/// Name of a load case in the load-combination dialog.
std::string GetCaseName(int nCase) { return nCase == 0 ? "静" : "活" + std::to_string(nCase); }

/// One dialog's steps under way.
class CScript {
 public:
  CScript(int nDialog, CHeadlessPlatform& platform) : m_nDialog(nDialog), m_platform(platform) {}

  void Type(int nId, std::optional<double> dValue) {
    if (dValue) m_steps.push_back(DialogStep::Type(nId, FormatNumber(*dValue)));
  }
  void TypeInteger(int nId, std::optional<int> nValue) {
    if (nValue) m_steps.push_back(DialogStep::Type(nId, std::to_string(*nValue)));
  }
  void Tick(int nId, std::optional<bool> bOn) {
    if (bOn) m_steps.push_back(DialogStep::Tick(nId, *bOn));
  }
  void Choose(std::span<const int> radios, std::optional<int> nIndex) {
    if (nIndex) m_steps.push_back(DialogStep::Choose(radios[*nIndex]));
  }
  void ChooseItem(int nListId, std::optional<int> nIndex) {
    if (nIndex) m_steps.push_back(DialogStep::ChooseItem(nListId, *nIndex));
  }

  /// Opens the load-combination dialog and puts the cases in with their factors.
  void Combine(int nButton, const JobCombination& combination) {
    if (combination.empty()) return;
    m_steps.push_back(DialogStep::Click(nButton));
    std::vector<DialogStep> steps;
    for (const auto& [nCase, dFactor] : combination) {
      steps.push_back(DialogStep::Type(c_nCombinationFactor, FormatNumber(dFactor)));
      steps.push_back(DialogStep::ToggleRow(c_nCombinationAvailable, GetCaseName(nCase)));
      steps.push_back(DialogStep::Click(c_nCombinationAdd));
    }
    steps.push_back(DialogStep::Ok());
    m_platform.AddScript(c_nCombinationDialog, std::move(steps));
  }

  void Finish() {
    m_steps.push_back(DialogStep::Ok());
    m_platform.AddScript(m_nDialog, std::move(m_steps));
  }

 private:
  int m_nDialog;
  CHeadlessPlatform& m_platform;
  std::vector<DialogStep> m_steps;
};

}  // namespace

void AddScripts(const StaticJob& analysis, CHeadlessPlatform& platform) {
  CScript script(c_nStaticDialog, platform);
  script.Tick(c_nStaticNonlinear, analysis.bNonlinear);
  script.ChooseItem(c_nStaticCriterion, analysis.nCriterion);
  script.Type(c_nStaticTolerance, analysis.dTolerance);
  script.TypeInteger(c_nStaticMaxIterations, analysis.nMaxIterations);
  script.Combine(c_nStaticCombination, analysis.combination);
  script.Finish();
}

void AddScripts(const ModalJob& analysis, CHeadlessPlatform& platform) {
  CScript script(c_nModeDialog, platform);
  script.TypeInteger(c_nModeCount, analysis.nModes);
  script.Choose(c_nModeRootChecks, analysis.nRootCheck);
  script.Type(c_nModeAccuracy, analysis.dAccuracy);
  script.TypeInteger(c_nModeIterationMultiple, analysis.nIterationMultiple);
  script.Tick(c_nModeShear, analysis.bShear);
  script.Combine(c_nModeCombination, analysis.combination);
  script.Finish();
}

void AddScripts(const SpectrumJob& analysis, CHeadlessPlatform& platform) {
  CScript script(c_nSpectrumDialog, platform);
  const auto OneLess = [](std::optional<int> nValue) { return nValue ? std::optional(*nValue - 1) : nValue; };
  script.TypeInteger(c_nSpectrumMesh, analysis.nMeshDivision);
  script.TypeInteger(c_nSpectrumModes, analysis.nModes);
  for (std::size_t k = 0; analysis.direction && k < 3; ++k) {
    script.Type(c_nSpectrumDirection[k], (*analysis.direction)[k]);
  }
  script.Choose(c_nSpectrumSites, OneLess(analysis.nSiteClass));
  script.Choose(c_nSpectrumGroups, OneLess(analysis.nZoneGroup));
  script.Choose(c_nSpectrumIntensities, analysis.nIntensity);
  script.Choose(c_nSpectrumLevels, analysis.nLevel);
  script.Type(c_nSpectrumDamping, analysis.dDamping);
  script.Choose(c_nSpectrumMethods, analysis.nMethod);
  script.Combine(c_nSpectrumCombination, analysis.combination);
  script.Finish();
}

}  // namespace skyframe::host
