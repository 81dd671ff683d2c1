#include "FieldList.h"

#include <algorithm>

namespace skyframe::host {

Json TextType(const char* pszPattern) {
  Json type = {{"type", "string"}};
  if (pszPattern != nullptr) type["pattern"] = pszPattern;
  return type;
}

Json NumberType(double dLowest) {
  Json type = {{"type", "number"}};
  if (dLowest > std::numeric_limits<double>::lowest()) type["minimum"] = dLowest;
  return type;
}

Json IntegerType(int nLowest, int nHighest) {
  Json type = {{"type", "integer"}};
  if (nLowest > std::numeric_limits<int>::min()) type["minimum"] = nLowest;
  if (nHighest < std::numeric_limits<int>::max()) type["maximum"] = nHighest;
  return type;
}

Json WordType(Choices words) { return {{"enum", words}}; }

Json ArrayType(Json items) { return {{"type", "array"}, {"items", std::move(items)}}; }

Json ObjectType(Json members, Json required) {
  Json type = {{"type", "object"}, {"additionalProperties", false}, {"properties", std::move(members)}};
  if (!required.empty()) type["required"] = std::move(required);
  return type;
}

namespace {

std::string Join(std::span<const std::string_view> words, std::string_view strSeparator) {
  std::string strText;
  for (const std::string_view strWord : words) {
    strText.append(strText.empty() ? "" : strSeparator).append(strWord);
  }
  return strText;
}

/// Text of the last label or group before the control.
std::string_view FindBefore(const DialogTemplate& layout, int nControl, ControlKind kind) {
  std::string_view strFound;
  for (const ControlTemplate& control : layout.controls) {
    if (control.nId == nControl) break;
    if (control.kind == kind) strFound = control.strText;
  }
  return strFound.ends_with(':') ? strFound.substr(0, strFound.size() - 1) : strFound;
}

}  // namespace

std::string FindLabel(const DialogTemplate& layout, const Field& field) {
  if (!field.HasControl()) return {};
  const ControlTemplate& control = *layout.Find(field.controls.front());
  const bool bSeveral = field.controls[1] != 0;
  const auto FindTitle = [&](ControlKind kind) { return std::string(FindBefore(layout, control.nId, kind)); };
  switch (control.kind) {
    case ControlKind::Radio: {
      std::vector<std::string_view> choices;
      for (const int nId : layout.GetRadioGroup(control.nId)) choices.push_back(layout.Find(nId)->strText);
      return FindTitle(ControlKind::Group) + ": " + Join(choices, " / ");
    }
    case ControlKind::DropList:
      return FindTitle(ControlKind::Label) + ": " + Join(control.items, " / ");
    case ControlKind::ListView:
      return Join(control.items, " / ");
    case ControlKind::Edit:
      return FindTitle(bSeveral ? ControlKind::Group : ControlKind::Label);
    default:
      return bSeveral ? FindTitle(ControlKind::Group) : std::string(control.strText);
  }
}

Json DescribeFields(const FieldEntries& entries) {
  Json members = Json::object();
  Json required = Json::array();
  for (const FieldEntry& entry : entries) {
    Json& member = members[entry.field.strKey] = entry.type;
    std::string strMeaning(entry.field.strEnglish);
    if (!entry.field.strUnit.empty()) strMeaning.append(", ").append(entry.field.strUnit);
    member["description"] = strMeaning.append(" · ").append(entry.field.strChinese);
    if (!entry.byDefault.is_null()) member["default"] = entry.byDefault;
    if (entry.bRequired) required.push_back(entry.field.strKey);
  }
  return ObjectType(std::move(members), std::move(required));
}

void CFieldLister::Add(const Field& field, Json type) {
  m_entries.push_back({field, FindLabel(m_layout, field), std::move(type), m_defaults[field.strKey]});
}

void CFieldLister::Visit(const Field& field, const JobCombination& /*combination*/) {
  Add(field, {{"type", "object"}, {"propertyNames", TextType("^1?[0-9]$")}, {"additionalProperties", NumberType()}});
}

void CFieldLister::Visit(const Field& field, const JobPeaks& /*peaks*/) {
  Json members = Json::object();
  for (const std::string_view strPeak : c_strPeaks) members[strPeak] = NumberType();
  Add(field, ObjectType(std::move(members)));
}

void CFieldLister::Visit(const Field& field, const JobAxes& /*axes*/) { Add(field, ArrayType(WordType(c_strAxes))); }

void CFieldLister::Visit(const Field& field, const std::vector<JobImpulse>& /*impulses*/) {
  Add(field, ArrayType(ObjectType({{"node", IntegerType()}, {"direction", WordType(c_strAxes)}, {"peak", NumberType()}},
                                  {"node", "direction", "peak"})));
  m_entries.back().byDefault = nullptr;
  m_entries.back().bRequired = true;
}

void CFieldLister::Visit(const Field& field, const JobOutputs& /*outputs*/) {
  const Json node = ObjectType({{"node", IntegerType()}, {"direction", WordType(c_strAxes)}}, {"node", "direction"});
  Add(field, ObjectType({{"nodes", ArrayType(node)}, {"elements", ArrayType(IntegerType(1))}}));
}

}  // namespace skyframe::host
