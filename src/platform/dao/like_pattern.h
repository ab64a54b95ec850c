#pragma once
// Patterns of LIKE: `*` any text, `?` one character, `#` one digit, `[a-z]` one of these, `[!a-z]` none of them.

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

namespace mrd::dao {

/// A pattern made ready for many texts. Case and trailing blanks do not count, in the pattern and in the text.
class LikePattern {
public:
  explicit LikePattern(std::string_view pattern);

  bool matches(std::string_view text) const;

private:
  enum class Kind { Character, AnyText, AnyCharacter, Digit, OneOf, NoneOf };

  struct Element {
    Kind kind;
    char32_t character = 0;
    /// First and last character of each range.
    std::vector<std::pair<char32_t, char32_t>> ranges = {};
  };

  static bool fits(const Element& element, char32_t character);
  std::size_t addSet(std::string_view pattern, std::size_t at);

  std::vector<Element> elements_;
};

} // namespace mrd::dao
