#pragma once

#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

namespace skyframe::host {

enum class Language { English, Chinese };
inline constexpr std::string_view c_strLanguages[] = {"en", "zh"};  ///< what a person types, by Language

/// A text in both languages. What is filled in stands in it as {0}, {1} ..., in any order; literals that do not have
/// the same places do not compile.
struct Words {
  std::string_view strEnglish;
  std::string_view strChinese;

  consteval Words(const char* pszEnglish, const char* pszChinese) : strEnglish(pszEnglish), strChinese(pszChinese) {
    if (FindPlaces(strEnglish) != FindPlaces(strChinese)) throw "the languages differ in what is filled in";
  }
  constexpr Words(std::string_view strInEnglish, std::string_view strInChinese)
      : strEnglish(strInEnglish), strChinese(strInChinese) {}

  [[nodiscard]] std::string_view In(Language language) const {
    return language == Language::English ? strEnglish : strChinese;
  }

 private:
  /// Bit k: {k} stands in it.
  static constexpr unsigned FindPlaces(std::string_view strText) {
    unsigned nFound = 0;
    for (std::size_t k = 0; k + 2 < strText.size(); ++k) {
      const bool bPlace = strText[k] == '{' && strText[k + 2] == '}' && strText[k + 1] >= '0' && strText[k + 1] <= '9';
      if (bPlace) nFound |= 1U << static_cast<unsigned>(strText[k + 1] - '0');
    }
    return nFound;
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

/// A text of a library that speaks English, by the first of the words that it fits; as it is when it fits none. What
/// stands in their places is said by the parts.
[[nodiscard]] std::string SayForeign(std::string_view strText, std::span<const Words> words,
                                     std::span<const Words> parts = {});

}  // namespace skyframe::host
