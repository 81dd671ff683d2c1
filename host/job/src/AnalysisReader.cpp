#include "AnalysisReader.h"

#include <charconv>

namespace skyframe::host {

namespace {

constexpr std::array<std::string_view, 4> c_strAnalyses = {"static", "modal", "spectrum", "time_history"};

/// Keys are case numbers without sign or leading zeros.
std::optional<int> ParseCase(std::string_view strText) {
  int nCase = 0;
  const auto [pEnd, error] = std::from_chars(strText.data(), strText.data() + strText.size(), nCase);
  const bool bWhole = error == std::errc() && pEnd == strText.data() + strText.size();
  return bWhole && std::to_string(nCase) == strText ? std::optional(nCase) : std::nullopt;
}

}  // namespace

JobCombination ReadCombination(CJobObject& object, const AnalysisContext& context) {
  JobCombination combination;
  std::optional<CJobObject> members = object.Object("combination", Need::Optional);
  if (!members) return combination;
  for (const std::string& strKey : members->GetKeys()) {
    const std::optional<int> nCase = ParseCase(strKey);
    if (!nCase || *nCase < 0 || *nCase > context.nHighestCase) {
      members->Error(strKey, "no such load case; the cases are 0 to " + std::to_string(context.nHighestCase));
    } else if (const std::optional<double> dFactor = members->Number(strKey, Need::Required)) {
      combination[*nCase] = *dFactor;
    }
  }
  return combination;
}

namespace {

StaticJob ReadStatic(CJobObject& object, const AnalysisContext& context) {
  StaticJob analysis;
  analysis.bNonlinear = object.Boolean("nonlinear", Need::Optional);
  analysis.nCriterion = object.Word("criterion", Need::Optional, c_strCriteria);
  analysis.dTolerance = object.NumberAtLeast("tolerance", Need::Optional, 0.0);
  analysis.nMaxIterations = object.Integer("max_iterations", Need::Optional, 1);
  analysis.combination = ReadCombination(object, context);
  return analysis;
}

ModalJob ReadModal(CJobObject& object, const AnalysisContext& context) {
  ModalJob analysis;
  analysis.nModes = object.Integer("modes", Need::Optional, 1);
  analysis.nRootCheck = object.Word("root_check", Need::Optional, c_strRootChecks);
  analysis.dAccuracy = object.NumberAtLeast("accuracy", Need::Optional, 0.0);
  analysis.nIterationMultiple = object.Integer("iteration_multiple", Need::Optional, 1);
  analysis.bShear = object.Boolean("shear", Need::Optional);
  analysis.bVerify = object.Boolean("verify_modes", Need::Optional);
  analysis.combination = ReadCombination(object, context);
  return analysis;
}

SpectrumJob ReadSpectrum(CJobObject& object, const AnalysisContext& context) {
  SpectrumJob analysis;
  analysis.nModes = object.Integer("modes", Need::Optional, 1);
  analysis.nMeshDivision = object.Integer("mesh_division", Need::Optional, 1);
  analysis.direction = object.Numbers<3>("direction", Need::Optional);
  analysis.nSiteClass = object.Integer("site_class", Need::Optional, 1, 4);
  analysis.nZoneGroup = object.Integer("zone_group", Need::Optional, 1, 3);
  analysis.nIntensity = object.Word("intensity", Need::Optional, c_strIntensities);
  analysis.nLevel = object.Word("level", Need::Optional, c_strQuakeLevels);
  analysis.dDamping = object.NumberAtLeast("damping", Need::Optional, 0.0);
  analysis.nMethod = object.Word("modal_combination", Need::Optional, c_strModalCombinations);
  analysis.bVirtualMode = object.Boolean("virtual_mode", Need::Optional);
  analysis.nPseudoLoad = object.Integer("pseudo_load", Need::Optional);
  analysis.combination = ReadCombination(object, context);
  return analysis;
}

}  // namespace

std::optional<JobAnalysis> ReadAnalysis(CJobObject& object, const AnalysisContext& context) {
  switch (object.Word("type", Need::Required, c_strAnalyses).value_or(-1)) {
    case 0:
      return ReadStatic(object, context);
    case 1:
      return ReadModal(object, context);
    case 2:
      return ReadSpectrum(object, context);
    case 3:
      return ReadTimeHistory(object, context);
    default:
      object.AcceptAllKeys();
      return std::nullopt;
  }
}

}  // namespace skyframe::host
