#include "JsonText.h"

#include <algorithm>
#include <bit>
#include <unordered_set>

#include "skyframe/job/Text.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr std::size_t c_nMaxDepth = 32;
// Several times what a job that fills the host records has.
constexpr std::size_t c_nMostValues = 4'000'000;
constexpr std::size_t c_nMostEntries = 90'000;
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
  CTreeBuilder(std::string_view strText, std::span<const ArrayCapacity> capacities, CJsonTree& tree,
               std::vector<JobProblem>& errors)
      : m_strText(strText), m_capacities(capacities), m_tree(tree), m_errors(errors) {}

  bool null() override { return Add({.kind = Kind::Null}); }
  bool boolean(bool bValue) override { return Add({.kind = Kind::Boolean, .nValue = bValue ? 1U : 0U}); }
  bool number_integer(number_integer_t nValue) override {
    return Add({.kind = Kind::Signed, .nValue = std::bit_cast<std::uint64_t>(nValue)});
  }
  bool number_unsigned(number_unsigned_t nValue) override { return Add({.kind = Kind::Unsigned, .nValue = nValue}); }
  bool number_float(number_float_t dValue, const string_t&) override {
    return Add({.kind = Kind::Real, .nValue = std::bit_cast<std::uint64_t>(dValue)});
  }
  bool string(string_t& strValue) override { return Add({.kind = Kind::Text, .nValue = m_tree.KeepText(strValue)}); }
  bool binary(binary_t&) override { return false; }
  bool start_object(std::size_t) override { return Enter(Kind::Object, c_nMostMembers); }
  bool start_array(std::size_t) override { return Enter(Kind::Array, GetCapacity()); }
  bool end_object() override { return Leave(); }
  bool end_array() override { return Leave(); }

  bool key(string_t& strKey) override {
    Level& level = m_levels.back();
    level.nKey = m_tree.KeepText(strKey);
    level.bNewKey = IsNewKey(level);
    return level.bNewKey || AddError(m_errors, {GetPlace(), std::string(Say(texts::c_keyTwice))});
  }

  bool parse_error(std::size_t nPosition, const std::string&, const nlohmann::detail::exception& error) override {
    AddError(m_errors, {FormatPosition(m_strText, nPosition), GetParserReason(error)});
    return false;
  }

 private:
  using Kind = CJsonTree::Kind;

  /// An array or object that is open.
  struct Level {
    std::uint32_t nNode = 0;
    bool bObject = false;
    std::size_t nCapacity = 0;
    std::size_t nSize = 0;   ///< values in it, those of a key that comes again but once
    std::uint32_t nKey = 0;  ///< of the member that comes next or is open
    bool bNewKey = true;
    std::unordered_set<std::uint32_t> keys = {};  ///< of many members
  };

  /// A few keys are compared one by one.
  bool IsNewKey(Level& level) const {
    constexpr std::size_t c_nFew = 16;
    const CJsonValue::Iterator first(m_tree, level.nNode + 1);
    const CJsonValue::Iterator last(m_tree, static_cast<std::uint32_t>(m_tree.GetCount()));
    if (level.nSize < c_nFew) return std::ranges::find(first, last, level.nKey, &CJsonValue::GetKeyNumber) == last;
    if (level.keys.empty()) {
      for (auto it = first; it != last; ++it) level.keys.insert((*it).GetKeyNumber());
    }
    return level.keys.insert(level.nKey).second;
  }

  [[nodiscard]] std::string GetOpenPlace() const {
    return m_levels.empty() ? std::string() : CJsonValue(m_tree, m_levels.back().nNode).GetPlace();
  }

  /// Of the value that comes next.
  [[nodiscard]] std::string GetPlace() const {
    if (m_levels.empty()) return {};
    const Level& level = m_levels.back();
    return level.bObject ? AppendPointer(GetOpenPlace(), m_tree.GetText(level.nKey))
                         : AppendPointer(GetOpenPlace(), level.nSize);
  }

  bool Refuse(const std::string& strPlace, std::string strReason) {
    AddError(m_errors, {strPlace, std::move(strReason)});
    return false;
  }

  /// False when it is too much.
  bool Add(CJsonTree::Node node) {
    if (m_tree.GetCount() == c_nMostValues) {
      return Refuse(GetPlace(), Say(texts::c_tooManyValues, {std::to_string(c_nMostValues)}));
    }
    if (m_levels.empty()) {
      m_tree.Add(node);
      return true;
    }
    Level& level = m_levels.back();
    if (level.nSize == level.nCapacity) {
      const Words& words = level.bObject ? texts::c_tooManyMembers : texts::c_tooManyEntries;
      return Refuse(GetOpenPlace(), Say(words, {std::to_string(level.nCapacity)}));
    }
    node.nParent = level.nNode;
    node.nKey = level.nKey;
    m_tree.Add(node);
    if (level.bNewKey) ++level.nSize;
    return true;
  }

  bool Enter(Kind kind, std::size_t nCapacity) {
    if (m_levels.size() == c_nMaxDepth) {
      return Refuse(GetPlace(), Say(texts::c_tooDeep, {std::to_string(c_nMaxDepth)}));
    }
    if (!Add({.kind = kind})) return false;
    const auto nNode = static_cast<std::uint32_t>(m_tree.GetCount() - 1);
    m_levels.push_back({.nNode = nNode, .bObject = kind == Kind::Object, .nCapacity = nCapacity});
    return true;
  }

  /// Of the array that comes next.
  [[nodiscard]] std::size_t GetCapacity() const {
    if (m_levels.size() != 1) return c_nMostEntries;
    const std::string_view strKey = m_tree.GetText(m_levels.front().nKey);
    const auto it = std::ranges::find(m_capacities, strKey, &ArrayCapacity::strKey);
    return it == m_capacities.end() ? c_nMostEntries : it->nEntries;
  }

  bool Leave() {
    m_tree.Close(m_levels.back().nNode);
    m_levels.pop_back();
    return true;
  }

  std::string_view m_strText;
  std::span<const ArrayCapacity> m_capacities;
  CJsonTree& m_tree;
  std::vector<JobProblem>& m_errors;
  std::vector<Level> m_levels;
};

}  // namespace

bool AddError(std::vector<JobProblem>& errors, JobProblem error) {
  if (!HasTooMany(errors)) errors.push_back(std::move(error));
  return !HasTooMany(errors);
}

bool ParseJson(std::string_view strText, std::span<const ArrayCapacity> capacities, CJsonTree& tree,
               std::vector<JobProblem>& errors) {
  constexpr std::size_t c_nUsual = 8;  // characters of a value with its key
  tree.Reserve(std::min(strText.size() / c_nUsual, c_nMostValues));
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
