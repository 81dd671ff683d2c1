#include "ScriptBuilder.h"
#include "skyframe/run/Scripts.h"
#include "skyframe/values/DialogIds.h"

namespace skyframe::host {

namespace {

constexpr std::array<int, 2> c_methods = {c_nIdWilson, c_nIdNewmark};
constexpr std::array<int, 2> c_damping = {c_nIdDamping1, c_nIdDamping2};
constexpr std::array<int, 2> c_loads = {c_nIdNodalForce, c_nIdGroundMotion};
constexpr std::array<int, 2> c_shapes = {c_nIdTriangular, c_nIdRectangular};
constexpr std::array<int, 2> c_quakeModes = {c_nIdPrincipal, c_nIdOblique};
constexpr std::array<int, 3> c_quakeAxes = {c_nIdQuakeX, c_nIdQuakeY, c_nIdQuakeZ};
constexpr std::array<int, 3> c_obliqueAxis = {c_nIdObliqueX, c_nIdObliqueY, c_nIdObliqueZ};
constexpr std::array<int, 4> c_peaks = {c_nIdPeakX, c_nIdPeakY, c_nIdPeakZ, c_nIdPeakOblique};

void AddMethodScript(int nMethod, CHeadlessPlatform& platform) {
  CScriptBuilder script(c_nIdDynOptionDlg, platform);
  script.Choose(c_methods, nMethod);
  script.Finish();
}

template <std::size_t nCount>
void TypeAll(CScriptBuilder& script, const std::array<int, nCount>& controls,
             const std::optional<std::array<double, nCount>>& values) {
  for (std::size_t k = 0; values && k < nCount; ++k) script.Type(controls[k], (*values)[k]);
}

void TypePeaks(CScriptBuilder& script, const JobPeaks& peaks) {
  for (std::size_t k = 0; k < peaks.size(); ++k) script.Type(c_peaks[k], peaks[k]);
}

void AddImpulseScript(const ImpulseLoadJob& load, CHeadlessPlatform& platform) {
  CScriptBuilder script(c_nIdImpulseLoadDlg, platform);
  script.Choose(c_shapes, load.nShape);
  for (const JobImpulse& impulse : load.impulses) {
    script.TypeInteger(c_nIdImpulseNode, impulse.nNode);
    script.TypeInteger(c_nIdImpulseDirection, impulse.nDirection);
    script.Type(c_nIdImpulsePeak, impulse.dPeak);
    script.Click(c_nIdImpulseInsert);
  }
  script.Type(c_nIdPeakTime, load.dPeakTime);
  script.Type(c_nIdUnloadTime, load.dUnloadTime);
  script.Type(c_nIdStep, load.dTimeStep);
  script.Type(c_nIdDuration, load.dDuration);
  script.Finish();
}

void AddGeneralLoadScript(const GeneralLoadJob& load, CHeadlessPlatform& platform) {
  CScriptBuilder script(c_nIdGeneralLoadDlg, platform);
  script.Type(c_nIdStep, load.dTimeStep);
  script.Type(c_nIdDuration, load.dDuration);
  script.Finish();
}

void AddEarthquakeScript(const EarthquakeJob& quake, CHeadlessPlatform& platform) {
  CScriptBuilder script(c_nIdEarthquakeDlg, platform);
  script.Type(c_nIdStep, quake.dTimeStep);
  script.Type(c_nIdDuration, quake.dDuration);
  script.Choose(c_quakeModes, quake.nMode);
  for (std::size_t k = 0; k < c_quakeAxes.size(); ++k) {
    if (quake.directions[k]) script.Tick(c_quakeAxes[k], true);
  }
  TypeAll(script, c_obliqueAxis, quake.obliqueAxis);
  TypePeaks(script, quake.peaks);
  script.Finish();
}

}  // namespace

void AddScripts(const WilsonJob& analysis, CHeadlessPlatform& platform) {
  AddMethodScript(0, platform);
  CScriptBuilder script(c_nIdWilsonDlg, platform);
  TypeAll(script, c_damping, analysis.damping);
  script.Type(c_nIdTheta, analysis.dTheta);
  script.Type(c_nIdWilsonStep, analysis.dTimeStep);
  script.Type(c_nIdWilsonDuration, analysis.dDuration);
  script.Tick(c_nIdNonlinear, analysis.bNonlinear);
  TypePeaks(script, analysis.peaks);
  script.Combine(c_nIdLoadComb, analysis.combination);
  script.Finish();
}

void AddScripts(const NewmarkJob& analysis, CHeadlessPlatform& platform) {
  AddMethodScript(1, platform);
  CScriptBuilder script(c_nIdNewmarkDlg, platform);
  script.Choose(c_loads, analysis.nLoad);
  TypeAll(script, c_damping, analysis.damping);
  script.Type(c_nIdAlpha, analysis.dAlpha);
  script.Type(c_nIdDelta, analysis.dDelta);
  script.Tick(c_nIdNonlinear, analysis.bNonlinear);
  script.ChooseItem(c_nIdCriterion, analysis.nCriterion);
  script.Type(c_nIdTolerance, analysis.dTolerance);
  script.TypeInteger(c_nIdMaxIter, analysis.nMaxIterations);
  script.Tick(c_nIdFromFile, analysis.bFromFile);
  if (analysis.impulse) {
    script.Click(c_nIdImpulseLoad);
    AddImpulseScript(*analysis.impulse, platform);
  }
  if (analysis.generalLoad) {
    script.Click(c_nIdGeneralLoad);
    AddGeneralLoadScript(*analysis.generalLoad, platform);
  }
  if (analysis.earthquake) {
    script.Click(c_nIdEarthquake);
    AddEarthquakeScript(*analysis.earthquake, platform);
  }
  script.Combine(c_nIdLoadComb, analysis.combination);
  script.Finish();
}

}  // namespace skyframe::host
