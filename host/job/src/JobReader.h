#pragma once

#include <array>
#include <bitset>
#include <limits>
#include <optional>
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
  CJobObject(CJsonValue value, std::vector<JobProblem>& errors);

  std::optional<int> Integer(std::string_view strKey, Need need, int nLowest = std::numeric_limits<int>::min(),
                             int nHighest = std::numeric_limits<int>::max());
  /// A number that a single-precision record holds.
  std::optional<double> Number(std::string_view strKey, Need need);
  std::optional<double> NumberAtLeast(std::string_view strKey, Need need, double dLowest);
  std::optional<bool> Boolean(std::string_view strKey, Need need);
  /// Lives as long as the tree.
  std::optional<std::string_view> Text(std::string_view strKey, Need need);
  /// Index of the word.
  std::optional<int> Word(std::string_view strKey, Need need, std::span<const std::string_view> words);
  /// Likewise of an entry of an array.
  std::optional<double> CheckNumber(CJsonValue value);
  /// An array of so many numbers.
  template <std::size_t nCount>
  std::optional<std::array<double, nCount>> Numbers(std::string_view strKey, Need need) {
    std::array<double, nCount> values = {};
    return ReadNumbers(strKey, need, values) ? std::optional(values) : std::nullopt;
  }
  /// Nothing when absent or no array.
  std::optional<CJsonValue> Array(std::string_view strKey, Need need);
  /// The entries of an array of objects.
  std::vector<CJobObject> Objects(std::string_view strKey, Need need);
  /// Nothing when absent.
  std::optional<CJobObject> Object(std::string_view strKey, Need need);

  [[nodiscard]] bool Has(std::string_view strKey) const;
  [[nodiscard]] std::string GetPlace(std::string_view strKey) const {
    return AppendPointer(m_value.GetPlace(), strKey);
  }
  void Error(std::string_view strKey, std::string_view strReason);

  /// Names of all members.
  [[nodiscard]] std::vector<std::string> GetKeys() const;

  /// Reports every member that no query asked for.
  void ReportUnknownKeys();
  /// For an object whose kind is not known: its other members are no further errors.
  void AcceptAllKeys();

 private:
  std::optional<CJsonValue> Find(std::string_view strKey, Need need);
  bool ReadNumbers(std::string_view strKey, Need need, std::span<double> values);

  CJsonValue m_value;
  std::vector<JobProblem>& m_errors;
  std::bitset<c_nMostMembers> m_asked;  ///< members in their order
};

/// True when the number is finite in single precision.
[[nodiscard]] bool FitsSingle(double dValue);

}  // namespace skyframe::host
