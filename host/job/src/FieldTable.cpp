#include "FieldList.h"
#include "skyframe/job/JobSchema.h"
#include "skyframe/job/Text.h"

namespace skyframe::host {

namespace {

/// Words of the tables.
struct Terms {
  const char* pszHead;
  const char* pszNumber;
  const char* pszInteger;
  const char* pszObject;
  const char* pszNumbers;  ///< with the count
  const char* pszArrayOf;  ///< with the type
  const char* pszObjectWith;
  const char* pszRequired;
  const char* pszEmpty;
  const char* pszEach;  ///< with the value
};
constexpr Terms c_english = {"Key | Type | Unit | Default | Dialog field | Meaning",
                             "number",
                             "integer",
                             "object",
                             "array of %d numbers",
                             "array: %s",
                             "object with %s",
                             "required",
                             "empty",
                             "%s each"};
constexpr Terms c_chinese = {"键 | 类型 | 单位 | 缺省 | 对话框字段 | 含义",
                             "数",
                             "整数",
                             "对象",
                             "%d 个数的数组",
                             "数组：%s",
                             "对象，键 %s",
                             "必需",
                             "空",
                             "各 %s"};

/// Values, or the keys of an object, as they stand in a job file.
std::string Quote(const Json& values, bool bKeys) {
  std::string strText;
  for (const auto& [strKey, value] : values.items()) {
    strText.append(strText.empty() ? "`" : " `").append(bKeys ? strKey : value.dump()).append("`");
  }
  return strText;
}

std::string FormatRange(const Json& type) {
  if (!type.contains("minimum")) return {};
  const std::string strLowest = FormatNumber(type["minimum"].get<double>());
  if (!type.contains("maximum")) return " ≥ " + strLowest;
  return " " + strLowest + "…" + FormatNumber(type["maximum"].get<double>());
}

std::string FormatType(const Json& type, const Terms& terms) {
  if (type.contains("enum")) return Quote(type["enum"], false);
  const auto strType = type["type"].get<std::string>();
  if (strType == "boolean") return "true / false";
  if (strType == "number") return terms.pszNumber + FormatRange(type);
  if (strType == "integer") return terms.pszInteger + FormatRange(type);
  if (strType == "array" && type.contains("minItems")) return Format(terms.pszNumbers, type["minItems"].get<int>());
  if (strType == "array") return Format(terms.pszArrayOf, FormatType(type["items"], terms).c_str());
  return type.contains("properties") ? Format(terms.pszObjectWith, Quote(type["properties"], true).c_str())
                                     : terms.pszObject;
}

std::string FormatDefault(const FieldEntry& entry, const Terms& terms) {
  const Json& value = entry.byDefault;
  if (entry.bRequired) return terms.pszRequired;
  if (value.is_null()) return entry.type.contains("properties") ? "—" : terms.pszEmpty;
  if (value.is_number()) return FormatNumber(value.get<double>());
  if (value.is_object()) return Format(terms.pszEach, FormatNumber(value.front().get<double>()).c_str());
  if (!value.is_array()) return value.is_string() ? "`" + value.dump() + "`" : value.dump();
  std::string strText;
  for (const Json& number : value) strText += (strText.empty() ? "[" : ", ") + FormatNumber(number.get<double>());
  return strText + "]";
}

std::string FormatCell(std::string_view strText) { return " | " + std::string(strText.empty() ? "—" : strText); }

template <class A>
std::string FormatTable(Language language) {
  const bool bEnglish = language == Language::English;
  const Terms& terms = bEnglish ? c_english : c_chinese;
  std::string strTable = Format("| %s |\n|---|---|---|---|---|---|\n", terms.pszHead);
  for (const FieldEntry& entry : CFieldLister::List<A>()) {
    const Field& field = entry.field;
    strTable += "| `" + std::string(field.strKey) + "`" + FormatCell(FormatType(entry.type, terms)) +
                FormatCell(field.strUnit) + FormatCell(FormatDefault(entry, terms)) + FormatCell(entry.strLabel) +
                FormatCell(bEnglish ? field.strEnglish : field.strChinese) + " |\n";
  }
  return strTable;
}

}  // namespace

std::string FormatFieldTable(std::string_view strName, Language language) {
  if (strName == "static") return FormatTable<StaticJob>(language);
  if (strName == "modal") return FormatTable<ModalJob>(language);
  if (strName == "spectrum") return FormatTable<SpectrumJob>(language);
  if (strName == "wilson") return FormatTable<WilsonJob>(language);
  if (strName == "newmark") return FormatTable<NewmarkJob>(language);
  if (strName == "impulse") return FormatTable<ImpulseLoadJob>(language);
  if (strName == "general_load") return FormatTable<GeneralLoadJob>(language);
  if (strName == "earthquake") return FormatTable<EarthquakeJob>(language);
  return {};
}

}  // namespace skyframe::host
