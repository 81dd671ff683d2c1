#include "skyframe/run/Scripts.h"

#include "ScriptBuilder.h"
#include "skyframe/values/DialogIds.h"

namespace skyframe::host {

namespace {

constexpr std::array<int, 2> c_rootChecks = {c_nIdSturm, c_nIdModeComparison};
constexpr std::array<int, 3> c_directions = {c_nIdDirectionX, c_nIdDirectionY, c_nIdDirectionZ};
constexpr std::array<int, 4> c_siteClasses = {c_nIdSiteClass1, c_nIdSiteClass2, c_nIdSiteClass3, c_nIdSiteClass4};
constexpr std::array<int, 3> c_zoneGroups = {c_nIdZoneGroup1, c_nIdZoneGroup2, c_nIdZoneGroup3};
constexpr std::array<int, 6> c_intensities = {c_nIdIntensity6, c_nIdIntensity7,     c_nIdIntensity7Half,
                                              c_nIdIntensity8, c_nIdIntensity8Half, c_nIdIntensity9};
constexpr std::array<int, 2> c_levels = {c_nIdFrequentQuake, c_nIdRareQuake};
constexpr std::array<int, 3> c_modalCombinations = {c_nIdSrss, c_nIdCqc, c_nIdGrp};

}  // namespace

void AddScripts(const StaticJob& analysis, CHeadlessPlatform& platform) {
  CScriptBuilder script(c_nIdNonlinStaticDlg, platform);
  script.Tick(c_nIdNonlinear, analysis.bNonlinear);
  script.ChooseItem(c_nIdCriterion, analysis.nCriterion);
  script.Type(c_nIdTolerance, analysis.dTolerance);
  script.TypeInteger(c_nIdMaxIter, analysis.nMaxIterations);
  script.Combine(c_nIdLoadComb, analysis.combination);
  script.Finish();
}

void AddScripts(const ModalJob& analysis, CHeadlessPlatform& platform) {
  CScriptBuilder script(c_nIdModeDlg, platform);
  script.TypeInteger(c_nIdModes, analysis.nModes);
  script.Choose(c_rootChecks, analysis.nRootCheck);
  script.Type(c_nIdAccuracy, analysis.dAccuracy);
  script.TypeInteger(c_nIdIterMultiple, analysis.nIterationMultiple);
  script.Tick(c_nIdShear, analysis.bShear);
  script.Combine(c_nIdModeLoadComb, analysis.combination);
  script.Finish();
}

void AddScripts(const SpectrumJob& analysis, CHeadlessPlatform& platform) {
  CScriptBuilder script(c_nIdSpectrumDlg, platform);
  const auto ToIndex = [](std::optional<int> nValue) { return nValue ? std::optional(*nValue - 1) : nValue; };
  script.TypeInteger(c_nIdMeshDiv, analysis.nMeshDivision);
  script.TypeInteger(c_nIdExpandModes, analysis.nModes);
  for (std::size_t k = 0; analysis.direction && k < c_directions.size(); ++k) {
    script.Type(c_directions[k], (*analysis.direction)[k]);
  }
  script.Choose(c_siteClasses, ToIndex(analysis.nSiteClass));
  script.Choose(c_zoneGroups, ToIndex(analysis.nZoneGroup));
  script.Choose(c_intensities, analysis.nIntensity);
  script.Choose(c_levels, analysis.nLevel);
  script.Type(c_nIdDampRatio, analysis.dDamping);
  script.Choose(c_modalCombinations, analysis.nMethod);
  script.Combine(c_nIdLoadValues, analysis.combination);
  script.Finish();
}

}  // namespace skyframe::host
