#pragma once

#include <array>
#include <limits>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "JsonText.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/job/Text.h"

namespace skyframe::host {

enum class Need { Required, Optional };

/// One JSON object of a job file. Each query checks presence, type and range, reports what is wrong at
/// the member's place, and returns nothing when the value cannot be used. Unasked members are unknown.
class CJobObject {
 public:
  /// A value that is no object is reported; every query then returns nothing in silence.
  CJobObject(const Json& value, std::string strPlace, std::vector<JobProblem>& errors);

  std::optional<int> Integer(std::string_view strKey, Need need, int nLowest = std::numeric_limits<int>::min(),
                             int nHighest = std::numeric_limits<int>::max());
  /// A number that a single-precision record holds.
  std::optional<double> Number(std::string_view strKey, Need need);
  std::optional<double> NumberAtLeast(std::string_view strKey, Need need, double dLowest);
  std::optional<bool> Boolean(std::string_view strKey, Need need);
  std::optional<std::string> Text(std::string_view strKey, Need need);
  /// Index of the word.
  std::optional<int> Word(std::string_view strKey, Need need, std::span<const std::string_view> words);
  /// Likewise of an entry of an array.
  std::optional<double> CheckNumber(const Json& value, const std::string& strPlace);
  /// An array of so many numbers.
  template <std::size_t nCount>
  std::optional<std::array<double, nCount>> Numbers(std::string_view strKey, Need need) {
    std::array<double, nCount> values = {};
    return ReadNumbers(strKey, need, values) ? std::optional(values) : std::nullopt;
  }
  /// Null when absent or no array.
  const Json* Array(std::string_view strKey, Need need);
  /// The entries of an array of objects.
  std::vector<CJobObject> Objects(std::string_view strKey, Need need);
  /// Nothing when absent.
  std::optional<CJobObject> Object(std::string_view strKey, Need need);

  [[nodiscard]] bool Has(std::string_view strKey) const;
  [[nodiscard]] std::string GetPlace(std::string_view strKey) const { return AppendPointer(m_strPlace, strKey); }
  void Error(std::string_view strKey, std::string_view strReason);

  /// Names of all members.
  [[nodiscard]] std::vector<std::string> GetKeys() const;

  /// Reports every member that no query asked for.
  void ReportUnknownKeys();
  /// For an object whose kind is not known: its other members are no further errors.
  void AcceptAllKeys();

 private:
  const Json* Find(std::string_view strKey, Need need);
  bool ReadNumbers(std::string_view strKey, Need need, std::span<double> values);

  const Json& m_value;
  std::string m_strPlace;
  std::vector<JobProblem>& m_errors;
  std::set<std::string, std::less<>> m_asked;
};

/// True when the number is finite in single precision.
[[nodiscard]] bool FitsSingle(double dValue);

}  // namespace skyframe::host
