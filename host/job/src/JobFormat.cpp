#include <string>

#include "AnalysisWriter.h"
#include "ReportFields.h"
#include "skyframe/job/JobFile.h"

namespace skyframe::host {

namespace {

Json ToJson(const JobNode& node) {
  Json object = {{"id", node.nId}, {"x", node.dX}, {"y", node.dY}, {"z", node.dZ}, {"joint", c_strJoints[node.nJoint]}};
  std::string strRestraint;
  for (const int nFlag : node.restraint) strRestraint += nFlag == 1 ? '1' : '0';
  if (strRestraint != "000000") object["restraint"] = strRestraint;
  if (node.nSpring) object["spring"] = *node.nSpring;
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

Json ToJson(const JobAnalysis& analysis, const Job& job) {
  return std::visit([&job](const auto& parameters) { return CFieldWriter::Write(parameters, job); }, analysis);
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

std::string FormatLists(const Job& job) {
  const auto Plain = [](const auto& entry) { return ToJson(entry); };
  const auto InJob = [&job](const auto& entry) { return ToJson(entry, job); };
  const auto AsId = [&job](int nNode) { return Json(job.nodes[nNode - 1].nId); };
  std::string strText;
  for (const std::string& strList :
       {FormatList("nodes", job.nodes, Plain), FormatList("springs", job.springs, Plain),
        FormatList("sections", job.sections, Plain), FormatList("elements", job.elements, InJob),
        FormatList("inclined_supports", job.inclinedSupports, AsId), FormatList("loads", job.loads, InJob)}) {
    strText.append(strText.empty() ? "" : ",\n").append(strList);
  }
  return strText;
}

}  // namespace

std::string FormatAnalysis(const JobAnalysis& analysis, const Job& job) { return ToJson(analysis, job).dump(); }

std::string FormatJob(const Job& job) {
  const auto InJob = [&job](const auto& entry) { return ToJson(entry, job); };
  const Json report = WriteReportFields(job.report);
  return "{\n  \"title\": " + Json(job.strTitle).dump() + ",\n" + FormatLists(job) + ",\n" +
         FormatList("analyses", job.analyses, InJob) + (report.empty() ? "" : ",\n  \"report\": " + report.dump()) +
         "\n}\n";
}

}  // namespace skyframe::host
