#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace skyframe::host {

enum class Language { English, Chinese };

/// A text in both languages. What is filled in stands in it as {0}, {1} ..., in any order.
struct Words {
  std::string_view strEnglish;
  std::string_view strChinese;

  [[nodiscard]] std::string_view In(Language language) const {
    return language == Language::English ? strEnglish : strChinese;
  }
};

/// The language in which the host speaks: summaries, warnings, errors, pictures, windows. English at the start.
[[nodiscard]] Language GetLanguage();
/// Returns the former one.
Language SetLanguage(Language language);

/// A language in force for the life of the object.
class CLanguageScope {
 public:
  explicit CLanguageScope(Language language) : m_previous(SetLanguage(language)) {}
  ~CLanguageScope() { SetLanguage(m_previous); }
  CLanguageScope(const CLanguageScope&) = delete;
  CLanguageScope& operator=(const CLanguageScope&) = delete;

 private:
  Language m_previous;
};

/// The text in the language in force.
[[nodiscard]] inline std::string_view Say(const Words& words) { return words.In(GetLanguage()); }
/// Likewise, filled in.
[[nodiscard]] std::string Say(const Words& words, std::initializer_list<std::string_view> values);

}  // namespace skyframe::host
