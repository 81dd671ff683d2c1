#include "skyframe/run/Stamps.h"

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <system_error>

#include "skyframe/job/DialogFields.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/job/Text.h"
#include "skyframe/platform/OutputFile.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/results/ResultList.h"
#include "texts.h"

namespace skyframe::host {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::array<const char*, 2> c_pszAdvice = {"advice_en", "advice_zh"};

std::optional<std::uintmax_t> MeasureFile(const std::string& strPath) {
  std::error_code error;
  const std::uintmax_t nBytes = std::filesystem::file_size(ToFilePath(strPath), error);
  return error ? std::nullopt : std::optional(nBytes);
}

std::string FormatTime(const LocalTime& t) {
  return Format("%04d-%02d-%02d %02d:%02d:%02d", t.nYear, t.nMonth, t.nDay, t.nHour, t.nMinute, t.nSecond);
}

Json ToJson(const AdviceList& list) {
  Json rows = Json::array();
  for (const Advice& advice : list) {
    rows.push_back({{"error", advice.severity == Severity::Error}, {"name", advice.strName}, {"text", advice.strText}});
  }
  return rows;
}

Json ToJson(const ResultStamp& stamp) {
  Json object = {{"model", stamp.strModel}, {"version", stamp.strVersion}, {"time", stamp.strTime}};
  if (Json analysis = Json::parse(stamp.strAnalysis, nullptr, false); analysis.is_object()) {
    object["analysis"] = std::move(analysis);
  }
  object["files"] = Json::object();
  for (const auto& [strSuffix, nBytes] : stamp.files) object["files"][strSuffix] = nBytes;
  for (std::size_t k = 0; k < stamp.advice.size(); ++k) object[c_pszAdvice[k]] = ToJson(stamp.advice[k]);
  return object;
}

std::string ReadText(const Json& object, const char* pszKey) {
  const auto it = object.find(pszKey);
  return it != object.end() && it->is_string() ? it->get<std::string>() : std::string();
}

AdviceList ReadAdvice(const Json& object, const char* pszKey) {
  AdviceList list;
  const auto it = object.find(pszKey);
  if (it == object.end() || !it->is_array()) return list;
  for (const Json& row : *it) {
    if (!row.is_object()) continue;
    const Severity severity = row.value("error", Json()) == Json(true) ? Severity::Error : Severity::Warning;
    list.push_back({severity, ReadText(row, "name"), ReadText(row, "text")});
  }
  return list;
}

ResultStamp ReadStamp(const Json& object) {
  ResultStamp stamp;
  stamp.strModel = ReadText(object, "model");
  stamp.strVersion = ReadText(object, "version");
  stamp.strTime = ReadText(object, "time");
  const auto analysis = object.find("analysis");
  if (analysis != object.end() && analysis->is_object()) stamp.strAnalysis = analysis->dump();
  const auto files = object.find("files");
  if (files != object.end() && files->is_object()) {
    for (const auto& [strSuffix, bytes] : files->items()) {
      if (bytes.is_number_unsigned()) stamp.files[strSuffix] = bytes.get<std::uintmax_t>();
    }
  }
  for (std::size_t k = 0; k < stamp.advice.size(); ++k) stamp.advice[k] = ReadAdvice(object, c_pszAdvice[k]);
  return stamp;
}

}  // namespace

CStamps CStamps::Read(const std::string& strJobPath) {
  CStamps stamps(strJobPath);
  const std::optional<std::string> strText = ReadWholeFile(strJobPath + std::string(c_strStampSuffix));
  constexpr int c_nDeepest = 16;  // of what a stamp holds
  const auto isShallow = [](int nDepth, Json::parse_event_t, Json&) { return nDepth <= c_nDeepest; };
  const Json tree = strText ? Json::parse(*strText, isShallow, false) : Json();
  if (!tree.is_array()) return stamps;
  for (const Json& object : tree) {
    if (object.is_object()) stamps.m_stamps.push_back(ReadStamp(object));
  }
  return stamps;
}

bool CStamps::Holds(const ResultStamp& stamp, std::string_view strSuffix) const {
  const auto it = stamp.files.find(std::string(strSuffix));
  return it != stamp.files.end() && MeasureFile(m_strJobPath + it->first) == it->second;
}

const ResultStamp* CStamps::Find(std::string_view strSuffix) const {
  const auto holds = [&](const ResultStamp& stamp) { return Holds(stamp, strSuffix); };
  const auto it = std::ranges::find_if(m_stamps, holds);
  return it != m_stamps.end() ? &*it : nullptr;
}

bool CStamps::IsOutdated(std::string_view strSuffix, std::string_view strModel) const {
  const ResultStamp* const pStamp = Find(strSuffix);
  return pStamp != nullptr && pStamp->strModel != strModel;
}

void CStamps::Add(ResultStamp stamp) {
  for (ResultStamp& older : m_stamps) {
    for (const auto& file : stamp.files) older.files.erase(file.first);
  }
  std::erase_if(m_stamps, [](const ResultStamp& older) { return older.files.empty(); });
  m_stamps.push_back(std::move(stamp));
}

std::string CStamps::Write() const {
  Json tree = Json::array();
  for (const ResultStamp& stamp : m_stamps) tree.push_back(ToJson(stamp));
  COutputFile file(m_strJobPath + std::string(c_strStampSuffix));
  file.GetStream() << tree.dump(1, ' ', false, Json::error_handler_t::replace) << '\n';
  return file.Commit() ? std::string() : file.GetError();
}

std::string StampResults(const CSession& session, const JobAnalysis& analysis, const RunReport& report) {
  const std::string& strJobPath = session.GetJobPath();
  ResultStamp stamp;
  for (const std::string& strFile : session.GetFiles(GetKind(analysis))) {
    const std::optional<std::uintmax_t> nBytes = MeasureFile(strFile);
    if (nBytes && strFile.starts_with(strJobPath)) stamp.files[strFile.substr(strJobPath.size())] = *nBytes;
  }
  if (stamp.files.empty()) return {};
  stamp.strModel = FormModelMark(session.GetJob());
  stamp.strVersion = SKYFRAME_VERSION;
  stamp.strTime = FormatTime(GetPlatform().GetLocalTime());
  stamp.strAnalysis = FormatAnalysis(WithDefaults(analysis), session.GetJob());
  stamp.advice = report.adviceIn;
  CStamps stamps = CStamps::Read(strJobPath);
  stamps.Add(std::move(stamp));
  return stamps.Write();
}

AdviceList AdviseOnAge(const Job& job, const std::string& strJobPath, std::string_view strSuffix) {
  const CStamps stamps = CStamps::Read(strJobPath);
  if (!stamps.IsOutdated(strSuffix, FormModelMark(job))) return {};
  const std::string strFile = FromFilePath(ToFilePath(strJobPath + std::string(strSuffix)).filename());
  return {{Severity::Warning, "outdated-result", Say(texts::c_outdated, {strFile, stamps.Find(strSuffix)->strTime})}};
}

}  // namespace skyframe::host
