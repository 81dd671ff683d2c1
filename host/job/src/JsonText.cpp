#include "JsonText.h"

#include <algorithm>
#include <unordered_set>

#include "skyframe/job/Text.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr std::size_t c_nMaxDepth = 32;
// Several times what a job that fills the host records has.
constexpr std::size_t c_nMostValues = 4'000'000;
constexpr std::size_t c_nMostEntries = 90'000;
constexpr std::size_t c_nMostMembers = 1'000;
/// Bytes of the parser's words that a message shows.
constexpr std::size_t c_nLongestReason = 200;

/// "line L, column C", both from 1, of the last of the bytes read so far.
std::string FormatPosition(std::string_view strText, std::size_t nBytesRead) {
  const std::string_view strBefore =
      strText.substr(0, std::min(std::max<std::size_t>(nBytesRead, 1) - 1, strText.size()));
  const auto nLine = std::count(strBefore.begin(), strBefore.end(), '\n') + 1;
  const std::size_t nLineStart = strBefore.rfind('\n') + 1;  // npos + 1 = 0
  return Say(texts::c_position, {std::to_string(nLine), std::to_string(strBefore.size() - nLineStart + 1)});
}

/// The parser's reason without its tag and its position. A number that overflows, in its last words, may be long.
std::string GetParserReason(const std::exception& error) {
  std::string_view strText = error.what();
  for (const std::string_view strMark : {"; last read", "] ", "parse error at line ", ": "}) {
    const std::size_t n = strText.find(strMark);
    if (n == std::string_view::npos) continue;
    strText = strMark.front() == ';' ? strText.substr(0, n) : strText.substr(n + strMark.size());
  }
  return SayForeign(strText.substr(0, c_nLongestReason), texts::c_parserReasons, texts::c_parserWords);
}

/// Builds the tree in one walk over the text, and breaks off at the first thing that is too much of it.
class CTreeBuilder final : public nlohmann::json_sax<Json> {
 public:
  CTreeBuilder(std::string_view strText, std::span<const ArrayCapacity> capacities, Json& tree,
               std::vector<JobProblem>& errors)
      : m_strText(strText), m_capacities(capacities), m_tree(tree), m_errors(errors) {}

  bool null() override { return Value(nullptr); }
  bool boolean(bool bValue) override { return Value(bValue); }
  bool number_integer(number_integer_t nValue) override { return Value(nValue); }
  bool number_unsigned(number_unsigned_t nValue) override { return Value(nValue); }
  bool number_float(number_float_t dValue, const string_t&) override { return Value(dValue); }
  bool string(string_t& strValue) override { return Value(std::move(strValue)); }
  bool binary(binary_t&) override { return false; }
  bool start_object(std::size_t) override { return Enter(Json::object()); }
  bool start_array(std::size_t) override { return Enter(Json::array()); }
  bool end_object() override { return Leave(); }
  bool end_array() override { return Leave(); }

  bool key(string_t& strKey) override {
    Level& level = m_levels.back();
    level.strKey = strKey;
    return level.keys.insert(std::move(strKey)).second ||
           AddError(m_errors, {GetPlace(), std::string(Say(texts::c_keyTwice))});
  }

  bool parse_error(std::size_t nPosition, const std::string&, const nlohmann::detail::exception& error) override {
    AddError(m_errors, {FormatPosition(m_strText, nPosition), GetParserReason(error)});
    return false;
  }

 private:
  /// An array or object that is open. It stays where it is: its parent does not grow meanwhile.
  struct Level {
    Json* pValue = nullptr;
    std::size_t nCapacity = 0;
    std::string strKey = {};
    std::unordered_set<std::string> keys = {};
  };

  /// Of the value that comes next; of the innermost open one when bOpen.
  [[nodiscard]] std::string GetPlace(bool bOpen = false) const {
    std::string strPlace;
    for (std::size_t k = 0; k + (bOpen ? 1 : 0) < m_levels.size(); ++k) {
      const Json& parent = *m_levels[k].pValue;
      const std::size_t nIndex = parent.size() - (k + 1 < m_levels.size() ? 1 : 0);  // the open child is in already
      strPlace = parent.is_object() ? AppendPointer(strPlace, m_levels[k].strKey) : AppendPointer(strPlace, nIndex);
    }
    return strPlace;
  }

  bool Refuse(const std::string& strPlace, std::string strReason) {
    AddError(m_errors, {strPlace, std::move(strReason)});
    return false;
  }

  /// Null when it is too much.
  Json* Add(Json value) {
    if (++m_nValues > c_nMostValues) {
      Refuse(GetPlace(), Say(texts::c_tooManyValues, {std::to_string(c_nMostValues)}));
      return nullptr;
    }
    if (m_levels.empty()) return &(m_tree = std::move(value));
    const Level& level = m_levels.back();
    Json& parent = *level.pValue;
    if (parent.size() == level.nCapacity) {
      const Words& words = parent.is_object() ? texts::c_tooManyMembers : texts::c_tooManyEntries;
      Refuse(GetPlace(true), Say(words, {std::to_string(level.nCapacity)}));
      return nullptr;
    }
    if (parent.is_object()) return &(parent[level.strKey] = std::move(value));
    return &parent.emplace_back(std::move(value));
  }

  bool Value(Json value) { return Add(std::move(value)) != nullptr; }

  bool Enter(Json value) {
    if (m_levels.size() == c_nMaxDepth) {
      return Refuse(GetPlace(), Say(texts::c_tooDeep, {std::to_string(c_nMaxDepth)}));
    }
    const std::size_t nCapacity = value.is_object() ? c_nMostMembers : GetCapacity();
    Json* const pValue = Add(std::move(value));
    if (pValue != nullptr) m_levels.push_back({.pValue = pValue, .nCapacity = nCapacity});
    return pValue != nullptr;
  }

  /// Of the array that comes next.
  [[nodiscard]] std::size_t GetCapacity() const {
    if (m_levels.size() != 1) return c_nMostEntries;
    const std::string& strKey = m_levels.front().strKey;
    const auto it = std::ranges::find(m_capacities, strKey, &ArrayCapacity::strKey);
    return it == m_capacities.end() ? c_nMostEntries : it->nEntries;
  }

  bool Leave() {
    m_levels.pop_back();
    return true;
  }

  std::string_view m_strText;
  std::span<const ArrayCapacity> m_capacities;
  Json& m_tree;
  std::vector<JobProblem>& m_errors;
  std::vector<Level> m_levels;
  std::size_t m_nValues = 0;
};

}  // namespace

bool AddError(std::vector<JobProblem>& errors, JobProblem error) {
  if (!HasTooMany(errors)) errors.push_back(std::move(error));
  return !HasTooMany(errors);
}

bool ParseJson(std::string_view strText, std::span<const ArrayCapacity> capacities, Json& tree,
               std::vector<JobProblem>& errors) {
  CTreeBuilder builder(strText, capacities, tree, errors);
  return Json::sax_parse(strText.begin(), strText.end(), &builder) && errors.empty();
}

std::string AppendPointer(const std::string& strPlace, std::string_view strKey) {
  std::string strEscaped;
  for (const char c : strKey.substr(0, c_nLongestShown)) {
    if (c == '~') {
      strEscaped += "~0";
    } else if (c == '/') {
      strEscaped += "~1";
    } else {
      strEscaped += c;
    }
  }
  return strPlace + '/' + EscapeControls(strEscaped);
}

std::string AppendPointer(const std::string& strPlace, std::size_t nIndex) {
  return strPlace + '/' + std::to_string(nIndex);
}

}  // namespace skyframe::host
