#include <string>

#include "JsonText.h"
#include "skyframe/job/JobFile.h"

namespace skyframe::host {

namespace {

template <class Value>
void Put(Json& object, std::string_view strKey, const std::optional<Value>& value) {
  if (value) object[strKey] = *value;
}

template <class Words>
void PutWord(Json& object, std::string_view strKey, const std::optional<int>& nIndex, const Words& words) {
  if (nIndex) object[strKey] = words[*nIndex];
}

void PutCombination(Json& object, const JobCombination& combination) {
  for (const auto& [nCase, dFactor] : combination) object["combination"][std::to_string(nCase)] = dFactor;
}

Json ToJson(const JobNode& node) {
  Json object = {{"id", node.nId}, {"x", node.dX}, {"y", node.dY}, {"z", node.dZ}, {"joint", c_strJoints[node.nJoint]}};
  std::string strRestraint;
  for (const int nFlag : node.restraint) strRestraint += nFlag == 1 ? '1' : '0';
  if (strRestraint != "000000") object["restraint"] = strRestraint;
  Put(object, "spring", node.nSpring);
  return object;
}

Json ToJson(const JobSpring& spring) {
  return {{"group", spring.nGroup}, {"kx", spring.dKx}, {"ky", spring.dKy}, {"kz", spring.dKz}};
}

Json ToJson(const JobSection& section) {
  return {{"id", section.strId}, {"shape", section.nShape}, {"area", section.dArea},
          {"Ix", section.dIx},   {"Iy", section.dIy},       {"Iz", section.dIz}};
}

Json ToJson(const JobElement& element, const Job& job) {
  return {{"type", c_strElementTypes[element.nType]},
          {"i", job.nodes[element.nNodeI - 1].nId},
          {"j", job.nodes[element.nNodeJ - 1].nId},
          {"section", job.sections[element.nSection].strId}};
}

Json ToJson(const JobLoad& load, const Job& job) {
  return {{"case", load.nCase},
          {"node", job.nodes[load.nNode - 1].nId},
          {"direction", c_strDirections[load.nDirection]},
          {"value", load.dValue}};
}

Json ToJson(const StaticJob& analysis) {
  Json object = {{"type", "static"}};
  Put(object, "nonlinear", analysis.bNonlinear);
  PutWord(object, "criterion", analysis.nCriterion, c_strCriteria);
  Put(object, "tolerance", analysis.dTolerance);
  Put(object, "max_iterations", analysis.nMaxIterations);
  PutCombination(object, analysis.combination);
  return object;
}

Json ToJson(const ModalJob& analysis) {
  Json object = {{"type", "modal"}};
  Put(object, "modes", analysis.nModes);
  PutWord(object, "root_check", analysis.nRootCheck, c_strRootChecks);
  Put(object, "accuracy", analysis.dAccuracy);
  Put(object, "iteration_multiple", analysis.nIterationMultiple);
  Put(object, "shear", analysis.bShear);
  Put(object, "verify_modes", analysis.bVerify);
  PutCombination(object, analysis.combination);
  return object;
}

Json ToJson(const SpectrumJob& analysis) {
  Json object = {{"type", "spectrum"}};
  Put(object, "modes", analysis.nModes);
  Put(object, "mesh_division", analysis.nMeshDivision);
  Put(object, "direction", analysis.direction);
  Put(object, "site_class", analysis.nSiteClass);
  Put(object, "zone_group", analysis.nZoneGroup);
  PutWord(object, "intensity", analysis.nIntensity, c_strIntensities);
  PutWord(object, "level", analysis.nLevel, c_strQuakeLevels);
  Put(object, "damping", analysis.dDamping);
  PutWord(object, "modal_combination", analysis.nMethod, c_strModalCombinations);
  Put(object, "virtual_mode", analysis.bVirtualMode);
  Put(object, "pseudo_load", analysis.nPseudoLoad);
  PutCombination(object, analysis.combination);
  return object;
}

void PutPeaks(Json& object, const JobPeaks& peaks) {
  for (std::size_t k = 0; k < peaks.size(); ++k) {
    if (peaks[k]) object["peaks"][c_strPeaks[k]] = *peaks[k];
  }
}

Json ToJson(const WilsonJob& analysis) {
  Json object = {{"type", "time_history"}, {"method", "wilson"}};
  Put(object, "damping", analysis.damping);
  Put(object, "theta", analysis.dTheta);
  Put(object, "time_step", analysis.dTimeStep);
  Put(object, "duration", analysis.dDuration);
  Put(object, "nonlinear", analysis.bNonlinear);
  PutPeaks(object, analysis.peaks);
  PutCombination(object, analysis.combination);
  return object;
}

Json ToJson(const ImpulseLoadJob& load, const Job& job) {
  Json object = Json::object();
  PutWord(object, "shape", load.nShape, c_strImpulseShapes);
  object["loads"] = Json::array();
  for (const JobImpulse& impulse : load.impulses) {
    object["loads"].push_back({{"node", job.nodes[impulse.nNode - 1].nId},
                               {"direction", c_strDirections[impulse.nDirection]},
                               {"peak", impulse.dPeak}});
  }
  Put(object, "peak_time", load.dPeakTime);
  Put(object, "unload_time", load.dUnloadTime);
  Put(object, "time_step", load.dTimeStep);
  Put(object, "duration", load.dDuration);
  return object;
}

Json ToJson(const GeneralLoadJob& load) {
  Json object = Json::object();
  Put(object, "time_step", load.dTimeStep);
  Put(object, "duration", load.dDuration);
  return object;
}

Json ToJson(const EarthquakeJob& quake) {
  Json object = Json::object();
  Put(object, "time_step", quake.dTimeStep);
  Put(object, "duration", quake.dDuration);
  PutWord(object, "mode", quake.nMode, c_strQuakeModes);
  for (std::size_t k = 0; k < quake.directions.size(); ++k) {
    if (quake.directions[k]) object["directions"].push_back(c_strDirections[k]);
  }
  Put(object, "oblique_axis", quake.obliqueAxis);
  PutPeaks(object, quake.peaks);
  return object;
}

Json ToJson(const NewmarkJob& analysis, const Job& job) {
  Json object = {{"type", "time_history"}, {"method", "newmark"}};
  PutWord(object, "load", analysis.nLoad, c_strDynamicLoads);
  Put(object, "damping", analysis.damping);
  Put(object, "alpha", analysis.dAlpha);
  Put(object, "delta", analysis.dDelta);
  Put(object, "nonlinear", analysis.bNonlinear);
  PutWord(object, "criterion", analysis.nCriterion, c_strCriteria);
  Put(object, "tolerance", analysis.dTolerance);
  Put(object, "max_iterations", analysis.nMaxIterations);
  Put(object, "from_file", analysis.bFromFile);
  if (analysis.impulse) object["impulse"] = ToJson(*analysis.impulse, job);
  if (analysis.generalLoad) object["general_load"] = ToJson(*analysis.generalLoad);
  if (analysis.earthquake) object["earthquake"] = ToJson(*analysis.earthquake);
  PutCombination(object, analysis.combination);
  return object;
}

Json ToJson(const JobAnalysis& analysis, const Job& job) {
  if (const auto* pNewmark = std::get_if<NewmarkJob>(&analysis)) return ToJson(*pNewmark, job);
  if (const auto* pWilson = std::get_if<WilsonJob>(&analysis)) return ToJson(*pWilson);
  if (const auto* pSpectrum = std::get_if<SpectrumJob>(&analysis)) return ToJson(*pSpectrum);
  if (const auto* pModal = std::get_if<ModalJob>(&analysis)) return ToJson(*pModal);
  return ToJson(std::get<StaticJob>(analysis));
}

/// One entry a line.
template <class Entries, class Convert>
std::string FormatList(std::string_view strKey, const Entries& entries, Convert convert) {
  std::string strText = "  " + Json(strKey).dump() + ": [";
  std::string_view strSeparator = "\n    ";
  for (const auto& entry : entries) {
    strText.append(strSeparator).append(convert(entry).dump());
    strSeparator = ",\n    ";
  }
  return strText + (entries.empty() ? "]" : "\n  ]");
}

}  // namespace

std::string FormatJob(const Job& job) {
  const auto Plain = [](const auto& entry) { return ToJson(entry); };
  const auto InJob = [&job](const auto& entry) { return ToJson(entry, job); };
  const auto AsId = [&job](int nNode) { return Json(job.nodes[nNode - 1].nId); };

  std::string strText = "{\n  \"title\": " + Json(job.strTitle).dump();
  for (const std::string& strList :
       {FormatList("nodes", job.nodes, Plain), FormatList("springs", job.springs, Plain),
        FormatList("sections", job.sections, Plain), FormatList("elements", job.elements, InJob),
        FormatList("inclined_supports", job.inclinedSupports, AsId), FormatList("loads", job.loads, InJob),
        FormatList("analyses", job.analyses, InJob)}) {
    strText.append(",\n").append(strList);
  }
  return strText + "\n}\n";
}

}  // namespace skyframe::host
