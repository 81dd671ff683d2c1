#include "ReportFields.h"

#include <algorithm>

#include "FieldList.h"
#include "texts.h"

namespace skyframe::host {

namespace {

struct TextField {
  const char* pszKey;
  std::optional<std::string> JobReport::*pMember;
  const char* pszMeaning;
};
constexpr TextField c_texts[] = {
    {"project", &JobReport::strProject, "name of the project; the job's title when left out"},
    {"engineer", &JobReport::strEngineer, "who answers for the calculation"},
};

struct WordField {
  const char* pszKey;
  std::optional<int> JobReport::*pMember;
  Choices words;
  const char* pszMeaning;
};
constexpr WordField c_words[] = {
    {"structure", &JobReport::nStructure, c_strStructures,
     "decides the limits of drift; towers and domes have no storeys"},
    {"edition", &JobReport::nEdition, c_strEditions, "edition of GB 50011 whose limits are checked"},
};

struct LimitField {
  const char* pszKey;
  std::optional<double> JobLimits::*pMember;
  const char* pszMeaning;
};
constexpr LimitField c_limits[] = {
    {"drift", &JobLimits::dDrift, "n of the limit 1/n, frequent earthquake"},
    {"rare_drift", &JobLimits::dRareDrift, "n of the limit 1/n, rare earthquake"},
    {"shear_weight", &JobLimits::dShearWeight, "least ratio of storey shear to weight"},
    {"mass_participation", &JobLimits::dMassParticipation, "least share of the mass in the earthquake's directions"},
    {"period_ratio", &JobLimits::dPeriodRatio, "largest ratio of the first torsional to the first lateral period"},
    {"displacement_ratio", &JobLimits::dDisplacementRatio, "largest ratio of largest to mean displacement of a storey"},
};

constexpr const char* c_pszStoreys = "storeys";
constexpr const char* c_pszLimits = "limits";

std::vector<double> ReadLevels(CJobObject& object) {
  std::vector<double> levels;
  const std::optional<CJsonValue> array = object.Array(c_pszStoreys, Need::Optional);
  if (!array) return levels;
  for (const CJsonValue value : *array) levels.push_back(object.CheckNumber(value).value_or(0.0));
  const bool bAscending = std::ranges::adjacent_find(levels, std::ranges::greater_equal()) == levels.end();
  if (levels.size() < 2 || !bAscending) object.Error(c_pszStoreys, std::string(Say(texts::c_badLevels)));
  return levels;
}

JobLimits ReadLimits(CJobObject& object) {
  JobLimits limits;
  for (const LimitField& field : c_limits) {
    limits.*field.pMember = object.Number(field.pszKey, Need::Optional);
    if (limits.*field.pMember && *(limits.*field.pMember) <= 0.0)
      object.Error(field.pszKey, std::string(Say(texts::c_notPositive)));
  }
  object.ReportUnknownKeys();
  return limits;
}

}  // namespace

JobReport ReadReportFields(CJobObject& object) {
  JobReport report;
  for (const TextField& field : c_texts) report.*field.pMember = object.Text(field.pszKey, Need::Optional);
  for (const WordField& field : c_words) report.*field.pMember = object.Word(field.pszKey, Need::Optional, field.words);
  report.storeys = ReadLevels(object);
  if (std::optional<CJobObject> limits = object.Object(c_pszLimits, Need::Optional))
    report.limits = ReadLimits(*limits);
  object.ReportUnknownKeys();
  return report;
}

Json WriteReportFields(const JobReport& report) {
  Json object = Json::object();
  for (const TextField& field : c_texts) {
    if (report.*field.pMember) object[field.pszKey] = *(report.*field.pMember);
  }
  for (const WordField& field : c_words) {
    if (report.*field.pMember) object[field.pszKey] = field.words[static_cast<std::size_t>(*(report.*field.pMember))];
  }
  if (!report.storeys.empty()) object[c_pszStoreys] = report.storeys;
  for (const LimitField& field : c_limits) {
    if (report.limits.*field.pMember) object[c_pszLimits][field.pszKey] = *(report.limits.*field.pMember);
  }
  return object;
}

Json DescribeReportFields() {
  const auto Describe = [](Json type, const char* pszMeaning) {
    type["description"] = pszMeaning;
    return type;
  };
  Json limits = Json::object();
  for (const LimitField& field : c_limits) limits[field.pszKey] = Describe(NumberType(0.0), field.pszMeaning);
  Json members = Json::object();
  for (const TextField& field : c_texts) members[field.pszKey] = Describe(TextType(), field.pszMeaning);
  for (const WordField& field : c_words) members[field.pszKey] = Describe(WordType(field.words), field.pszMeaning);
  members[c_pszStoreys] = Describe(ArrayType(NumberType()),
                                   "levels of the base and the floors, m, upwards; found in the model when left out");
  members[c_pszLimits] = Describe(ObjectType(std::move(limits)), "limits in the place of the code's");
  return ObjectType(std::move(members));
}

}  // namespace skyframe::host
