#include "JobReader.h"

#include <charconv>
#include <cmath>

#include "texts.h"

namespace skyframe::host {

bool FitsSingle(double dValue) { return std::isfinite(static_cast<float>(dValue)); }

CJobObject::CJobObject(const Json& value, std::string strPlace, std::vector<JobProblem>& errors)
    : m_value(value), m_strPlace(std::move(strPlace)), m_errors(errors) {
  if (!value.is_object()) AddError(m_errors, {m_strPlace, std::string(Say(texts::c_notObject))});
}

bool CJobObject::Has(std::string_view strKey) const { return m_value.is_object() && m_value.contains(strKey); }

void CJobObject::Error(std::string_view strKey, std::string_view strReason) {
  AddError(m_errors, {GetPlace(strKey), std::string(strReason)});
}

const Json* CJobObject::Find(std::string_view strKey, Need need) {
  m_asked.emplace(strKey);
  if (!m_value.is_object()) return nullptr;
  const auto it = m_value.find(strKey);
  if (it != m_value.end()) return &*it;
  if (need == Need::Required) Error(strKey, Say(texts::c_missing));
  return nullptr;
}

std::optional<int> CJobObject::Integer(std::string_view strKey, Need need, int nLowest, int nHighest) {
  const Json* pValue = Find(strKey, need);
  if (pValue == nullptr) return std::nullopt;
  if (!pValue->is_number_integer()) {
    Error(strKey, Say(texts::c_notInteger));
    return std::nullopt;
  }
  const bool bTooLarge = pValue->is_number_unsigned() && pValue->get<std::uint64_t>() > std::uint64_t{1} << 62U;
  const std::int64_t nValue = bTooLarge ? std::numeric_limits<std::int64_t>::max() : pValue->get<std::int64_t>();
  if (nValue < nLowest) {
    Error(strKey, Say(texts::c_tooSmall, {std::to_string(nLowest)}));
  } else if (nValue > nHighest) {
    Error(strKey, Say(texts::c_tooLarge, {std::to_string(nHighest)}));
  } else {
    return static_cast<int>(nValue);
  }
  return std::nullopt;
}

std::optional<double> CJobObject::CheckNumber(const Json& value, const std::string& strPlace) {
  if (!value.is_number()) {
    AddError(m_errors, {strPlace, std::string(Say(texts::c_notNumber))});
    return std::nullopt;
  }
  const auto dValue = value.get<double>();
  if (FitsSingle(dValue)) return dValue;
  AddError(m_errors, {strPlace, std::string(Say(texts::c_notSingle))});
  return std::nullopt;
}

std::optional<double> CJobObject::Number(std::string_view strKey, Need need) {
  const Json* pValue = Find(strKey, need);
  return pValue == nullptr ? std::nullopt : CheckNumber(*pValue, GetPlace(strKey));
}

std::optional<double> CJobObject::NumberAtLeast(std::string_view strKey, Need need, double dLowest) {
  const std::optional<double> dValue = Number(strKey, need);
  if (!dValue || *dValue >= dLowest) return dValue;
  Error(strKey, Say(texts::c_tooSmall, {FormatNumber(dLowest)}));
  return std::nullopt;
}

std::optional<bool> CJobObject::Boolean(std::string_view strKey, Need need) {
  const Json* pValue = Find(strKey, need);
  if (pValue == nullptr) return std::nullopt;
  if (pValue->is_boolean()) return pValue->get<bool>();
  Error(strKey, Say(texts::c_notBoolean));
  return std::nullopt;
}

std::optional<std::string> CJobObject::Text(std::string_view strKey, Need need) {
  const Json* pValue = Find(strKey, need);
  if (pValue == nullptr) return std::nullopt;
  if (pValue->is_string()) return pValue->get<std::string>();
  Error(strKey, Say(texts::c_notText));
  return std::nullopt;
}

std::optional<int> CJobObject::Word(std::string_view strKey, Need need, std::span<const std::string_view> words) {
  const std::optional<std::string> strText = Text(strKey, need);
  if (!strText) return std::nullopt;
  for (std::size_t k = 0; k < words.size(); ++k) {
    if (*strText == words[k]) return static_cast<int>(k);
  }
  Error(strKey, Say(texts::c_notWord, {JoinWords(words), Quote(*strText)}));
  return std::nullopt;
}

bool CJobObject::ReadNumbers(std::string_view strKey, Need need, std::span<double> values) {
  const Json* pValue = Array(strKey, need);
  if (pValue == nullptr) return false;
  if (pValue->size() != values.size()) {
    Error(strKey, Say(texts::c_notNumbers, {std::to_string(values.size())}));
    return false;
  }
  bool bGood = true;
  for (std::size_t k = 0; k < values.size(); ++k) {
    const std::optional<double> dValue = CheckNumber((*pValue)[k], AppendPointer(GetPlace(strKey), k));
    bGood = bGood && dValue.has_value();
    values[k] = dValue.value_or(0.0);
  }
  return bGood;
}

const Json* CJobObject::Array(std::string_view strKey, Need need) {
  const Json* pValue = Find(strKey, need);
  if (pValue == nullptr || pValue->is_array()) return pValue;
  Error(strKey, Say(texts::c_notArray));
  return nullptr;
}

std::vector<CJobObject> CJobObject::Objects(std::string_view strKey, Need need) {
  std::vector<CJobObject> objects;
  const Json* pArray = Array(strKey, need);
  if (pArray == nullptr) return objects;
  for (std::size_t k = 0; k < pArray->size(); ++k) {
    objects.emplace_back((*pArray)[k], AppendPointer(GetPlace(strKey), k), m_errors);
  }
  return objects;
}

std::optional<CJobObject> CJobObject::Object(std::string_view strKey, Need need) {
  const Json* pValue = Find(strKey, need);
  if (pValue == nullptr) return std::nullopt;
  return CJobObject(*pValue, GetPlace(strKey), m_errors);
}

std::vector<std::string> CJobObject::GetKeys() const {
  std::vector<std::string> keys;
  if (!m_value.is_object()) return keys;
  for (const auto& [strKey, value] : m_value.items()) keys.push_back(strKey);
  return keys;
}

void CJobObject::AcceptAllKeys() {
  for (std::string& strKey : GetKeys()) m_asked.insert(std::move(strKey));
}

void CJobObject::ReportUnknownKeys() {
  for (const std::string& strKey : GetKeys()) {
    if (!m_asked.contains(strKey)) Error(strKey, Say(texts::c_unknownKey));
  }
}

}  // namespace skyframe::host
