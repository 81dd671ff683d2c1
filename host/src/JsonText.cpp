#include "JsonText.h"

#include <algorithm>
#include <unordered_set>

namespace skyframe::host {

namespace {

constexpr std::size_t c_nMaxDepth = 32;

/// "line L, column C", both from 1, of the last of the bytes read so far.
std::string FormatPosition(std::string_view strText, std::size_t nBytesRead) {
  const std::string_view strBefore =
      strText.substr(0, std::min(std::max<std::size_t>(nBytesRead, 1) - 1, strText.size()));
  const auto nLine = std::count(strBefore.begin(), strBefore.end(), '\n') + 1;
  const std::size_t nLineStart = strBefore.rfind('\n') + 1;  // npos + 1 = 0
  return "line " + std::to_string(nLine) + ", column " + std::to_string(strBefore.size() - nLineStart + 1);
}

/// The parser's own words without its tag and its position.
std::string GetParserReason(const std::exception& error) {
  std::string_view strText = error.what();
  for (const std::string_view strMark : {"; last read", "] ", "parse error at line ", ": "}) {
    const std::size_t n = strText.find(strMark);
    if (n == std::string_view::npos) continue;
    strText = strMark.front() == ';' ? strText.substr(0, n) : strText.substr(n + strMark.size());
  }
  return std::string(strText);
}

/// Walks the text once and looks for what the tree could not show: depth, keys given twice.
class CScanner final : public nlohmann::json_sax<Json> {
 public:
  CScanner(std::string_view strText, std::vector<JobProblem>& errors) : m_strText(strText), m_errors(errors) {}

  bool null() override { return Value(); }
  bool boolean(bool) override { return Value(); }
  bool number_integer(number_integer_t) override { return Value(); }
  bool number_unsigned(number_unsigned_t) override { return Value(); }
  bool number_float(number_float_t, const string_t&) override { return Value(); }
  bool string(string_t&) override { return Value(); }
  bool binary(binary_t&) override { return Value(); }
  bool start_object(std::size_t) override { return Enter(true); }
  bool start_array(std::size_t) override { return Enter(false); }
  bool end_object() override { return Leave(); }
  bool end_array() override { return Leave(); }

  bool key(string_t& strKey) override {
    Level& level = m_levels.back();
    level.strKey = strKey;
    if (!level.keys.insert(strKey).second) m_errors.push_back({GetPlace(), "key given twice"});
    return true;
  }

  bool parse_error(std::size_t nPosition, const std::string&, const nlohmann::detail::exception& error) override {
    m_errors.push_back({FormatPosition(m_strText, nPosition), GetParserReason(error)});
    return false;
  }

 private:
  struct Level {
    bool bObject = false;
    std::string strKey;
    std::size_t nIndex = 0;
    std::unordered_set<std::string> keys;
  };

  std::string GetPlace() const {
    std::string strPlace;
    for (const Level& level : m_levels) {
      strPlace = level.bObject ? AppendPointer(strPlace, level.strKey) : AppendPointer(strPlace, level.nIndex);
    }
    return strPlace;
  }

  bool Enter(bool bObject) {
    if (m_levels.size() == c_nMaxDepth) {
      m_errors.push_back({GetPlace(), "nested deeper than " + std::to_string(c_nMaxDepth) + " levels"});
      return false;
    }
    m_levels.push_back({bObject, {}, 0, {}});
    return true;
  }

  bool Leave() {
    m_levels.pop_back();
    return Value();
  }

  bool Value() {
    if (!m_levels.empty()) ++m_levels.back().nIndex;
    return true;
  }

  std::string_view m_strText;
  std::vector<JobProblem>& m_errors;
  std::vector<Level> m_levels;
};

}  // namespace

std::optional<Json> ParseJson(std::string_view strText, std::vector<JobProblem>& errors) {
  const std::size_t nErrors = errors.size();
  CScanner scanner(strText, errors);
  if (!Json::sax_parse(strText.begin(), strText.end(), &scanner) || errors.size() != nErrors) return std::nullopt;
  Json tree = Json::parse(strText.begin(), strText.end(), nullptr, false);
  if (tree.is_discarded()) return std::nullopt;
  return tree;
}

std::string AppendPointer(const std::string& strPlace, std::string_view strKey) {
  std::string strResult = strPlace + '/';
  for (const char c : strKey.substr(0, 60)) {
    if (c == '~') {
      strResult += "~0";
    } else if (c == '/') {
      strResult += "~1";
    } else {
      strResult += static_cast<unsigned char>(c) < 0x20 || c == 0x7f ? '?' : c;
    }
  }
  return strResult;
}

std::string AppendPointer(const std::string& strPlace, std::size_t nIndex) {
  return strPlace + '/' + std::to_string(nIndex);
}

std::string Quote(std::string_view strText) {
  const auto strCut = std::string(strText.substr(0, 60));
  // Json::dump escapes quotes and control characters; a character cut in the middle is replaced.
  return Json(strCut).dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace skyframe::host
