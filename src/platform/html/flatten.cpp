#include "platform/html/flatten.h"

#include "platform/html/tags.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <vector>

namespace mrd::html {
namespace {

constexpr std::size_t kMaxDepth = 100;
constexpr std::size_t kMaxFormatting = 8;
constexpr std::size_t kMaxAttributes = 100;

constexpr std::array<std::string_view, 14> kFormatting{"a",    "b", "big",   "code",   "em",     "font", "i",
                                                       "nobr", "s", "small", "strike", "strong", "tt",   "u"};
constexpr std::array<std::string_view, 8> kTextOnly{"iframe", "noembed",  "noframes", "script",
                                                    "style",  "textarea", "title",    "xmp"};
constexpr std::array<std::string_view, 3> kOncePerDocument{"body", "head", "html"};

// The parser mixes these up with their HTML namesakes when they are foreign elements.
constexpr std::array<std::string_view, 14> kNotInForeign{"button", "caption",  "colgroup", "form", "frameset", "select", "table",
                                                         "tbody",  "template", "tfoot",    "td",   "th",       "thead",  "tr"};

/// A start tag ends such an open element without an end tag.
struct ImpliedEnd {
  std::string_view start;
  std::array<std::string_view, 7> ends;
};
constexpr std::array kImpliedEnds{
    ImpliedEnd{"dd", {"p", "dd", "dt"}},
    ImpliedEnd{"dt", {"p", "dd", "dt"}},
    ImpliedEnd{"li", {"p", "li"}},
    ImpliedEnd{"optgroup", {"option", "optgroup"}},
    ImpliedEnd{"option", {"option"}},
    ImpliedEnd{"tbody", {"p", "td", "th", "tr", "tbody", "thead", "tfoot"}},
    ImpliedEnd{"td", {"p", "li", "td", "th"}},
    ImpliedEnd{"tfoot", {"p", "td", "th", "tr", "tbody", "thead", "tfoot"}},
    ImpliedEnd{"th", {"p", "li", "td", "th"}},
    ImpliedEnd{"thead", {"p", "td", "th", "tr", "tbody", "thead", "tfoot"}},
    ImpliedEnd{"tr", {"p", "li", "td", "th", "tr"}},
};

bool isOneOf(const auto& names, std::string_view name) { return std::ranges::find(names, name) != names.end(); }

bool impliesEndOf(std::string_view start, std::string_view open)
{
  if (open == "p" && (traitsOf(start) & kBlock) != 0)
    return true;
  const auto* const rule = std::ranges::find(kImpliedEnds, start, &ImpliedEnd::start);
  return rule != kImpliedEnds.end() && isOneOf(rule->ends, open);
}

struct Tag {
  std::string name;
  std::string_view text;
  std::size_t attributes = 0;
  bool closesItself = false;
};

/// The tag at the start of `text`, which begins with "<" or "</" and a letter.
Tag scanTag(std::string_view text)
{
  Tag tag;
  std::size_t at = text[1] == '/' ? 2 : 1;
  for (; at < text.size() && !isHtmlSpace(text[at]) && text[at] != '/' && text[at] != '>'; ++at)
    tag.name += lowerAscii(text[at]);
  bool awaitsValue = false;
  bool inWord = false;
  for (; at < text.size() && text[at] != '>'; ++at) {
    const char c = text[at];
    if (awaitsValue && (c == '"' || c == '\'')) {
      at = std::min(text.find(c, at + 1), text.size() - 1);
      awaitsValue = inWord = false;
      continue;
    }
    const bool separates = isHtmlSpace(c) || (c == '/' && !awaitsValue);
    tag.attributes += !separates && !inWord ? 1 : 0;
    inWord = !separates;
    awaitsValue = c == '=' || (awaitsValue && isHtmlSpace(c));
  }
  tag.closesItself = at > 0 && at < text.size() && text[at - 1] == '/';
  tag.text = text.substr(0, std::min(at + 1, text.size()));
  return tag;
}

class Flattener {
public:
  Flattener(std::string_view html, Flattening flattening) : rest_(html), keepsElements_(flattening == Flattening::Balanced)
  {
    out_.reserve(html.size());
  }

  std::string run()
  {
    while (!rest_.empty())
      step();
    return std::move(out_);
  }

private:
  void step();
  void keep(std::size_t bytes);
  void drop(std::size_t bytes) { rest_.remove_prefix(std::min(bytes, rest_.size())); }
  void markup();
  void startTag(const Tag& tag);
  void element(const Tag& tag);
  void endTag(const std::string& name);
  void textOnly(const std::string& name, bool isDropped);
  void write(const Tag& tag);
  void closeTop();
  bool goesTooFar(const std::string& name) const;
  bool isForeign() const { return isOneOf(open_, "svg") || isOneOf(open_, "math"); }

  std::string_view rest_;
  bool keepsElements_;
  std::string out_;
  std::vector<std::string> open_;
  std::unordered_map<std::string, std::size_t> dropped_;
  std::vector<std::string> seenOnce_;
};

void Flattener::keep(std::size_t bytes)
{
  out_.append(rest_, 0, bytes);
  drop(bytes);
}

void Flattener::step()
{
  if (rest_.front() != '<') {
    keep(std::min(rest_.find('<'), rest_.size()));
    return;
  }
  const auto characterAt = [&](std::size_t at) { return at < rest_.size() ? rest_[at] : '\0'; };
  if (characterAt(1) == '!' || characterAt(1) == '?' || (characterAt(1) == '/' && !isAsciiLetter(characterAt(2)))) {
    markup();
  } else if (characterAt(1) == '/' || isAsciiLetter(characterAt(1))) {
    const Tag tag = scanTag(rest_);
    drop(tag.text.size());
    tag.text[1] == '/' ? endTag(tag.name) : startTag(tag);
  } else {
    keep(1);
  }
}

/// A comment, or what is read as one.
void Flattener::markup()
{
  const std::string_view end = rest_.starts_with("<!--") ? "-->" : ">";
  const auto at = rest_.find(end, 2);
  const std::size_t bytes = at == std::string_view::npos ? rest_.size() : at + end.size();
  keepsElements_ ? keep(bytes) : drop(bytes);
}

void Flattener::write(const Tag& tag)
{
  if (tag.attributes <= kMaxAttributes)
    out_ += tag.text;
  else
    out_.append("<").append(tag.name).append(">");
}

void Flattener::startTag(const Tag& tag)
{
  if (isOneOf(kTextOnly, tag.name) && !isForeign()) {
    const bool isDropped = !keepsElements_ && ((traitsOf(tag.name) & kHidden) != 0);
    if (keepsElements_)
      write(tag);
    textOnly(tag.name, isDropped);
  } else if (tag.name == "plaintext") {
    textOnly(tag.name, false);
  } else if ((traitsOf(tag.name) & kVoid) != 0) {
    write(tag);
  } else if (keepsElements_) {
    element(tag);
  }
}

void Flattener::element(const Tag& tag)
{
  if (isOneOf(kOncePerDocument, tag.name)) {
    if (!isOneOf(seenOnce_, tag.name))
      write(tag);
    seenOnce_.push_back(tag.name);
    return;
  }
  while (!open_.empty() && impliesEndOf(tag.name, open_.back()))
    closeTop();
  if (tag.closesItself && isForeign()) {
    write(tag);
  } else if (goesTooFar(tag.name)) {
    ++dropped_[tag.name];
  } else {
    write(tag);
    open_.push_back(tag.name);
  }
}

bool Flattener::goesTooFar(const std::string& name) const
{
  const auto isFormatting = [](const std::string& open) { return isOneOf(kFormatting, open); };
  return open_.size() >= kMaxDepth || (isOneOf(kNotInForeign, name) && isForeign()) ||
         (isFormatting(name) && std::ranges::count_if(open_, isFormatting) >= static_cast<long>(kMaxFormatting));
}

void Flattener::endTag(const std::string& name)
{
  if (name == "br") {
    out_ += "<br>";
    return;
  }
  if (const auto dropped = dropped_.find(name); dropped != dropped_.end() && dropped->second > 0) {
    --dropped->second;
    return;
  }
  if (!isOneOf(open_, name))
    return;
  while (open_.back() != name)
    closeTop();
  closeTop();
}

void Flattener::closeTop()
{
  out_.append("</").append(open_.back()).append(">");
  open_.pop_back();
}

/// What follows up to the end tag is text for the parser, whatever it looks like.
void Flattener::textOnly(const std::string& name, bool isDropped)
{
  const auto isEnd = [&](std::size_t at) { return rest_[at + 1] == '/' && sameName(rest_.substr(at + 2, name.size()), name); };
  std::size_t end = 0;
  while ((end = rest_.find('<', end)) < rest_.size() && !(end + 1 < rest_.size() && name != "plaintext" && isEnd(end)))
    ++end;
  const std::string_view text = rest_.substr(0, std::min(end, rest_.size()));
  if (keepsElements_ && name != "plaintext")
    out_ += text;
  else if (!isDropped)
    for (const char c : text)
      c == '<' ? out_.append("&lt;") : out_.append(1, c);
  drop(text.size());
  if (rest_.empty())
    return;
  const Tag tag = scanTag(rest_);
  drop(tag.text.size());
  if (keepsElements_)
    out_.append("</").append(name).append(">");
}

} // namespace

std::string flattenTags(std::string_view html, Flattening flattening) { return Flattener(html, flattening).run(); }

} // namespace mrd::html
