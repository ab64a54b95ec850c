#pragma once
// Where attributes stand in a text of HTML, for changes that leave every other byte as it is.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::html {

struct AttributePlace {
  /// Lower case.
  std::string tag, name;
  /// The value in the text, without its quotes.
  std::size_t begin = 0, end = 0;
  /// `"`, `'`, or 0 for a value without quotes.
  char quote = 0;
};

/// The attributes with values of all start tags, in the order of the text. Comments, scripts, styles and code for the server hold
/// no tags.
std::vector<AttributePlace> attributePlaces(std::string_view html);

/// What a value as it stands in the text means: character references are read.
std::string attributeText(std::string_view value);

} // namespace mrd::html
