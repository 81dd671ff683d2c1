#include "AnalysisReader.h"

#include <algorithm>

namespace skyframe::host {

namespace {

constexpr std::size_t c_nAxes = 3;

std::span<const std::string_view> GetAxes() { return std::span(c_strDirections).first(c_nAxes); }

/// Reports members that the dialog would not let a person fill in.
void Forbid(CJobObject& object, std::initializer_list<std::string_view> keys, const std::string& strReason) {
  for (const std::string_view strKey : keys) {
    if (object.Has(strKey)) object.Error(strKey, strReason);
  }
}

JobPeaks ReadPeaks(CJobObject& object) {
  JobPeaks peaks;
  std::optional<CJobObject> members = object.Object("peaks", Need::Optional);
  if (!members) return peaks;
  for (std::size_t k = 0; k < peaks.size(); ++k) peaks[k] = members->Number(c_strPeaks[k], Need::Optional);
  members->ReportUnknownKeys();
  return peaks;
}

WilsonJob ReadWilson(CJobObject& object, const AnalysisContext& context) {
  WilsonJob analysis;
  analysis.damping = object.Numbers<2>("damping", Need::Optional);
  analysis.dTheta = object.Number("theta", Need::Optional);
  analysis.dTimeStep = object.Number("time_step", Need::Optional);
  analysis.dDuration = object.Number("duration", Need::Optional);
  analysis.bNonlinear = object.Boolean("nonlinear", Need::Optional);
  analysis.peaks = ReadPeaks(object);
  analysis.combination = ReadCombination(object, context);
  return analysis;
}

JobImpulse ReadImpulse(CJobObject& object, const AnalysisContext& context) {
  JobImpulse impulse;
  if (const std::optional<int> nId = object.Integer("node", Need::Required)) {
    const auto it = context.numberOfId.find(*nId);
    if (it == context.numberOfId.end()) object.Error("node", "no node has the id " + std::to_string(*nId));
    impulse.nNode = it == context.numberOfId.end() ? 0 : it->second;
  }
  impulse.nDirection = object.Word("direction", Need::Required, GetAxes()).value_or(0);
  impulse.dPeak = object.Number("peak", Need::Required).value_or(0.0);
  object.ReportUnknownKeys();
  return impulse;
}

ImpulseLoadJob ReadImpulseLoad(CJobObject object, const AnalysisContext& context) {
  ImpulseLoadJob load;
  load.nShape = object.Word("shape", Need::Optional, c_strImpulseShapes);
  for (CJobObject& entry : object.Objects("loads", Need::Required)) {
    load.impulses.push_back(ReadImpulse(entry, context));
  }
  load.dPeakTime = object.Number("peak_time", Need::Optional);
  load.dUnloadTime = object.Number("unload_time", Need::Optional);
  load.dTimeStep = object.Number("time_step", Need::Optional);
  load.dDuration = object.Number("duration", Need::Optional);
  object.ReportUnknownKeys();
  return load;
}

GeneralLoadJob ReadGeneralLoad(CJobObject object) {
  GeneralLoadJob load;
  load.dTimeStep = object.Number("time_step", Need::Optional);
  load.dDuration = object.Number("duration", Need::Optional);
  object.ReportUnknownKeys();
  return load;
}

/// Array of distinct axis names.
std::array<bool, c_nAxes> ReadAxes(CJobObject& object, std::string_view strKey) {
  std::array<bool, c_nAxes> axes = {};
  const Json* pArray = object.Array(strKey, Need::Optional);
  if (pArray == nullptr) return axes;
  for (const Json& value : *pArray) {
    const auto it = std::find(GetAxes().begin(), GetAxes().end(), value.is_string() ? value.get<std::string>() : "");
    if (it == GetAxes().end()) {
      object.Error(strKey, "must list some of " + JoinWords(GetAxes()));
      return axes;
    }
    axes[static_cast<std::size_t>(it - GetAxes().begin())] = true;
  }
  return axes;
}

void CheckQuakeMode(CJobObject& object, const EarthquakeJob& quake) {
  if (quake.nMode == 1) {
    Forbid(object, {"directions"}, "belongs to mode \"principal\"");
  } else {
    Forbid(object, {"oblique_axis"}, "belongs to mode \"oblique\"");
  }
  for (std::size_t k = 0; k < quake.peaks.size(); ++k) {
    const bool bOpen = k < c_nAxes ? quake.nMode != 1 && quake.directions[k] : quake.nMode == 1;
    if (quake.peaks[k] && !bOpen) {
      object.Error("peaks", "peak " + Quote(c_strPeaks[k]) + " of a direction in which the ground does not move");
    }
  }
}

EarthquakeJob ReadEarthquake(CJobObject object) {
  EarthquakeJob quake;
  quake.dTimeStep = object.Number("time_step", Need::Optional);
  quake.dDuration = object.Number("duration", Need::Optional);
  quake.nMode = object.Word("mode", Need::Optional, c_strQuakeModes);
  quake.directions = ReadAxes(object, "directions");
  quake.obliqueAxis = object.Numbers<c_nAxes>("oblique_axis", Need::Optional);
  quake.peaks = ReadPeaks(object);
  CheckQuakeMode(object, quake);
  object.ReportUnknownKeys();
  return quake;
}

void CheckNewmark(CJobObject& object, const NewmarkJob& analysis) {
  const bool bFromFile = analysis.bFromFile.value_or(false);
  if (!analysis.bNonlinear.value_or(false)) {
    Forbid(object, {"criterion", "tolerance", "max_iterations"}, "needs \"nonlinear\": true");
  }
  if (analysis.HasGroundMotion()) {
    Forbid(object, {"impulse", "general_load"}, "belongs to load \"nodal_force\"");
    return;
  }
  Forbid(object, {"earthquake"}, "belongs to load \"ground_motion\"");
  if (bFromFile) {
    Forbid(object, {"impulse"}, "the loads are read from a file");
  } else {
    Forbid(object, {"general_load"}, "needs \"from_file\": true");
  }
}

NewmarkJob ReadNewmark(CJobObject& object, const AnalysisContext& context) {
  NewmarkJob analysis;
  analysis.nLoad = object.Word("load", Need::Optional, c_strDynamicLoads);
  analysis.damping = object.Numbers<2>("damping", Need::Optional);
  analysis.dAlpha = object.Number("alpha", Need::Optional);
  analysis.dDelta = object.Number("delta", Need::Optional);
  analysis.bNonlinear = object.Boolean("nonlinear", Need::Optional);
  analysis.nCriterion = object.Word("criterion", Need::Optional, c_strCriteria);
  analysis.dTolerance = object.NumberAtLeast("tolerance", Need::Optional, 0.0);
  analysis.nMaxIterations = object.Integer("max_iterations", Need::Optional, 1);
  analysis.bFromFile = object.Boolean("from_file", Need::Optional);
  if (auto load = object.Object("impulse", Need::Optional)) {
    analysis.impulse = ReadImpulseLoad(*std::move(load), context);
  }
  if (auto load = object.Object("general_load", Need::Optional))
    analysis.generalLoad = ReadGeneralLoad(*std::move(load));
  if (auto quake = object.Object("earthquake", Need::Optional)) analysis.earthquake = ReadEarthquake(*std::move(quake));
  analysis.combination = ReadCombination(object, context);
  CheckNewmark(object, analysis);
  return analysis;
}

}  // namespace

std::optional<JobAnalysis> ReadTimeHistory(CJobObject& object, const AnalysisContext& context) {
  const std::optional<int> nMethod = object.Word("method", Need::Required, c_strMethods);
  if (!nMethod) {
    object.AcceptAllKeys();
    return std::nullopt;
  }
  if (*nMethod == 0) return ReadWilson(object, context);
  return ReadNewmark(object, context);
}

}  // namespace skyframe::host
