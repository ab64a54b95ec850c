#include "platform/dao/like_pattern.h"

#include "base/text.h"

#include <algorithm>
#include <string>

namespace mrd::dao {
namespace {

constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

/// The character at `at`, which moves behind it. A broken byte is a character of its own.
char32_t takeCharacter(std::string_view text, std::size_t& at)
{
  const auto lead = static_cast<unsigned char>(text[at]);
  const std::size_t bytes = lead < 0xC2 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 1;
  if (bytes == 1 || at + bytes > text.size()) {
    ++at;
    return lead;
  }
  char32_t character = lead & (0xFFU >> (bytes + 1));
  for (std::size_t i = 1; i < bytes; ++i) {
    const auto byte = static_cast<unsigned char>(text[at + i]);
    if ((byte & 0xC0) != 0x80) {
      ++at;
      return lead;
    }
    character = character << 6 | (byte & 0x3FU);
  }
  at += bytes;
  return character;
}

} // namespace

LikePattern::LikePattern(std::string_view pattern)
{
  const std::string folded = base::comparisonKey(pattern);
  for (std::size_t at = 0; at < folded.size();) {
    if (folded[at] == '[') {
      at = addSet(folded, at);
      continue;
    }
    const char32_t character = takeCharacter(folded, at);
    if (character == '*')
      elements_.push_back({Kind::AnyText});
    else if (character == '?')
      elements_.push_back({Kind::AnyCharacter});
    else if (character == '#')
      elements_.push_back({Kind::Digit});
    else
      elements_.push_back({Kind::Character, character});
  }
}

/// Adds the set that begins at `at`; the place behind it. A bracket that is never closed stands for itself: headings with one are
/// looked up by pattern.
std::size_t LikePattern::addSet(std::string_view pattern, std::size_t at)
{
  const auto end = pattern.find(']', at);
  if (end == std::string_view::npos) {
    elements_.push_back({Kind::Character, U'['});
    return at + 1;
  }
  std::string_view content = pattern.substr(at + 1, end - at - 1);
  Element set{Kind::OneOf};
  if (content.size() > 1 && content.front() == '!') {
    set.kind = Kind::NoneOf;
    content.remove_prefix(1);
  }
  for (std::size_t i = 0; i < content.size();) {
    const char32_t first = takeCharacter(content, i);
    char32_t last = first;
    if (i + 1 < content.size() && content[i] == '-')
      last = takeCharacter(content, ++i);
    set.ranges.emplace_back(first, last);
  }
  // An empty set stands for the empty text.
  if (!set.ranges.empty())
    elements_.push_back(std::move(set));
  return end + 1;
}

bool LikePattern::fits(const Element& element, char32_t character)
{
  const auto inside = [character](const auto& range) { return range.first <= character && character <= range.second; };
  switch (element.kind) {
  case Kind::Character:
    return element.character == character;
  case Kind::AnyText:
  case Kind::AnyCharacter:
    return true;
  case Kind::Digit:
    return character >= U'0' && character <= U'9';
  case Kind::OneOf:
    return std::any_of(element.ranges.begin(), element.ranges.end(), inside);
  case Kind::NoneOf:
    return std::none_of(element.ranges.begin(), element.ranges.end(), inside);
  }
  return false;
}

bool LikePattern::matches(std::string_view text) const
{
  const std::string folded = base::comparisonKey(text);
  std::size_t at = 0;
  std::size_t element = 0;
  // Where to go on when the rest does not fit: behind the last `*`, one character later each time. Earlier ones need no second
  // try, so the work is bounded by the product of both lengths.
  std::size_t retryElement = kNowhere;
  std::size_t retryAt = 0;
  while (at < folded.size()) {
    if (element < elements_.size() && elements_[element].kind == Kind::AnyText) {
      retryElement = ++element;
      retryAt = at;
      continue;
    }
    std::size_t next = at;
    if (element < elements_.size() && fits(elements_[element], takeCharacter(folded, next))) {
      ++element;
      at = next;
      continue;
    }
    if (retryElement == kNowhere)
      return false;
    takeCharacter(folded, retryAt);
    at = retryAt;
    element = retryElement;
  }
  while (element < elements_.size() && elements_[element].kind == Kind::AnyText)
    ++element;
  return element == elements_.size();
}

} // namespace mrd::dao
