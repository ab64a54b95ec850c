#pragma once
// Takes out of a text the tags that would make a parser run away: those nested too deep, and those with too many attributes.

#include <string>
#include <string_view>

namespace mrd::html {

enum class Flattening {
  None,
  /// Every element is closed where its parent is, at most a hundred are nested, and only few of them format text.
  Balanced,
  /// No element has content.
  TextAndVoidTags,
};

/// The text without the tags that go too far. All text that is shown stays.
std::string flattenTags(std::string_view html, Flattening flattening);

} // namespace mrd::html
