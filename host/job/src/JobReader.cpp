#include "JobReader.h"

#include <algorithm>
#include <cmath>

#include "texts.h"

namespace skyframe::host {

bool FitsSingle(double dValue) { return std::isfinite(static_cast<float>(dValue)); }

CJobObject::CJobObject(CJsonValue value, std::vector<JobProblem>& errors) : m_value(value), m_errors(errors) {
  if (!value.IsObject()) AddError(m_errors, {value.GetPlace(), std::string(Say(texts::c_notObject))});
}

bool CJobObject::Has(std::string_view strKey) const {
  return m_value.IsObject() && std::ranges::find(m_value, strKey, &CJsonValue::GetKey) != m_value.end();
}

void CJobObject::Error(std::string_view strKey, std::string_view strReason) {
  AddError(m_errors, {GetPlace(strKey), std::string(strReason)});
}

std::optional<CJsonValue> CJobObject::Find(std::string_view strKey, Need need) {
  if (!m_value.IsObject()) return std::nullopt;
  std::size_t nMember = 0;
  for (const CJsonValue member : m_value) {
    if (member.GetKey() == strKey) {
      m_asked.set(nMember);
      return member;
    }
    ++nMember;
  }
  if (need == Need::Required) Error(strKey, Say(texts::c_missing));
  return std::nullopt;
}

std::optional<int> CJobObject::Integer(std::string_view strKey, Need need, int nLowest, int nHighest) {
  const std::optional<CJsonValue> value = Find(strKey, need);
  if (!value) return std::nullopt;
  if (!value->IsInteger()) {
    Error(strKey, Say(texts::c_notInteger));
    return std::nullopt;
  }
  const std::int64_t nValue = value->GetInteger();
  if (nValue < nLowest) {
    Error(strKey, Say(texts::c_tooSmall, {std::to_string(nLowest)}));
  } else if (nValue > nHighest) {
    Error(strKey, Say(texts::c_tooLarge, {std::to_string(nHighest)}));
  } else {
    return static_cast<int>(nValue);
  }
  return std::nullopt;
}

std::optional<double> CJobObject::CheckNumber(CJsonValue value) {
  if (!value.IsNumber()) {
    AddError(m_errors, {value.GetPlace(), std::string(Say(texts::c_notNumber))});
    return std::nullopt;
  }
  const double dValue = value.GetNumber();
  if (FitsSingle(dValue)) return dValue;
  AddError(m_errors, {value.GetPlace(), std::string(Say(texts::c_notSingle))});
  return std::nullopt;
}

std::optional<double> CJobObject::Number(std::string_view strKey, Need need) {
  const std::optional<CJsonValue> value = Find(strKey, need);
  return value ? CheckNumber(*value) : std::nullopt;
}

std::optional<double> CJobObject::NumberAtLeast(std::string_view strKey, Need need, double dLowest) {
  const std::optional<double> dValue = Number(strKey, need);
  if (!dValue || *dValue >= dLowest) return dValue;
  Error(strKey, Say(texts::c_tooSmall, {FormatNumber(dLowest)}));
  return std::nullopt;
}

std::optional<bool> CJobObject::Boolean(std::string_view strKey, Need need) {
  const std::optional<CJsonValue> value = Find(strKey, need);
  if (!value) return std::nullopt;
  if (value->IsBoolean()) return value->GetBoolean();
  Error(strKey, Say(texts::c_notBoolean));
  return std::nullopt;
}

std::optional<std::string_view> CJobObject::Text(std::string_view strKey, Need need) {
  const std::optional<CJsonValue> value = Find(strKey, need);
  if (!value) return std::nullopt;
  if (value->IsText()) return value->GetText();
  Error(strKey, Say(texts::c_notText));
  return std::nullopt;
}

std::optional<int> CJobObject::Word(std::string_view strKey, Need need, std::span<const std::string_view> words) {
  const std::optional<std::string_view> strText = Text(strKey, need);
  if (!strText) return std::nullopt;
  for (std::size_t k = 0; k < words.size(); ++k) {
    if (*strText == words[k]) return static_cast<int>(k);
  }
  Error(strKey, Say(texts::c_notWord, {JoinWords(words), Quote(*strText)}));
  return std::nullopt;
}

bool CJobObject::ReadNumbers(std::string_view strKey, Need need, std::span<double> values) {
  const std::optional<CJsonValue> array = Array(strKey, need);
  if (!array) return false;
  if (array->GetSize() != values.size()) {
    Error(strKey, Say(texts::c_notNumbers, {std::to_string(values.size())}));
    return false;
  }
  bool bGood = true;
  std::ranges::transform(*array, values.begin(), [&](CJsonValue value) {
    const std::optional<double> dValue = CheckNumber(value);
    bGood = bGood && dValue.has_value();
    return dValue.value_or(0.0);
  });
  return bGood;
}

std::optional<CJsonValue> CJobObject::Array(std::string_view strKey, Need need) {
  const std::optional<CJsonValue> value = Find(strKey, need);
  if (!value || value->IsArray()) return value;
  Error(strKey, Say(texts::c_notArray));
  return std::nullopt;
}

std::vector<CJobObject> CJobObject::Objects(std::string_view strKey, Need need) {
  std::vector<CJobObject> objects;
  const std::optional<CJsonValue> array = Array(strKey, need);
  if (!array) return objects;
  for (const CJsonValue entry : *array) objects.emplace_back(entry, m_errors);
  return objects;
}

std::optional<CJobObject> CJobObject::Object(std::string_view strKey, Need need) {
  const std::optional<CJsonValue> value = Find(strKey, need);
  if (!value) return std::nullopt;
  return CJobObject(*value, m_errors);
}

std::vector<std::string> CJobObject::GetKeys() const {
  std::vector<std::string> keys;
  if (!m_value.IsObject()) return keys;
  for (const CJsonValue member : m_value) keys.emplace_back(member.GetKey());
  return keys;
}

void CJobObject::AcceptAllKeys() { m_asked.set(); }

void CJobObject::ReportUnknownKeys() {
  if (!m_value.IsObject()) return;
  std::size_t nMember = 0;
  for (const CJsonValue member : m_value) {
    if (!m_asked.test(nMember++)) Error(member.GetKey(), Say(texts::c_unknownKey));
  }
}

}  // namespace skyframe::host
