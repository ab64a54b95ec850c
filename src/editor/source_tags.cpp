#include "editor/source_tags.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace mrd::editor {
namespace {

using View = std::u16string_view;

/// Where a line ends. Programs keep their element, whose end tag ends them.
enum Mode : int { kText, kComment, kTag, kDoubleQuoted, kSingleQuoted, kProgram };
constexpr int kModes = 8;
/// Elements whose content is no HTML, by their number in a state; 0 is none of them.
constexpr std::array<View, 4> kPrograms{u"", u"script", u"style", u"textarea"};
constexpr std::array<View, 14> kVoid{u"area",  u"base", u"br",   u"col",   u"embed",  u"hr",    u"img",
                                     u"input", u"link", u"meta", u"param", u"source", u"track", u"wbr"};

char16_t lowered(char16_t letter) { return letter >= u'A' && letter <= u'Z' ? static_cast<char16_t>(letter + 32) : letter; }
bool isLetter(char16_t letter) { return lowered(letter) >= u'a' && lowered(letter) <= u'z'; }
bool isBlank(char16_t letter) { return letter == u' ' || letter == u'\t' || letter == u'\n' || letter == u'\r'; }
bool isInName(char16_t letter) { return !isBlank(letter) && letter != u'>' && letter != u'/' && letter != u'<'; }

bool same(View a, View b)
{
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(), [](char16_t x, char16_t y) { return lowered(x) == lowered(y); });
}

template <std::size_t Count>
int placeOf(const std::array<View, Count>& names, View name)
{
  const auto found = std::find_if(names.begin(), names.end(), [&](View one) { return !one.empty() && same(one, name); });
  return found == names.end() ? 0 : static_cast<int>(found - names.begin());
}

bool isVoid(View name)
{
  return std::any_of(kVoid.begin(), kVoid.end(), [&](View one) { return same(one, name); });
}

/// Whether a tag begins here: "<" and a letter, or "</" and a letter.
bool beginsTag(View text, std::size_t at)
{
  const std::size_t name = at + 1 < text.size() && text[at + 1] == u'/' ? at + 2 : at + 1;
  return text[at] == u'<' && name < text.size() && isLetter(text[name]);
}

std::size_t endOfName(View text, std::size_t at)
{
  while (at < text.size() && isInName(text[at]))
    ++at;
  return at;
}

/// The end tag of a program, or the end of the text.
std::size_t endOfProgram(View text, std::size_t from, View element)
{
  for (std::size_t at = text.find(u"</", from); at != View::npos; at = text.find(u"</", at + 2))
    if (same(text.substr(at + 2, element.size()), element))
      return at;
  return text.size();
}

/// One line, read from the left.
class LineReader {
public:
  using Tell = std::function<void(SourcePart, std::size_t, std::size_t)>;
  LineReader(View line, int state, const Tell& tell) : line_(line), mode_(state % kModes), program_(state / kModes), tell_(tell)
  {
  }

  int read()
  {
    while (at_ < line_.size())
      readPart();
    return mode_ + kModes * program_;
  }

private:
  void tell(SourcePart part, std::size_t until)
  {
    if (until > at_)
      tell_(part, at_, until - at_);
    at_ = until;
  }
  std::size_t find(View text) const
  {
    const std::size_t found = line_.find(text, at_);
    return found == View::npos ? line_.size() : found;
  }

  void readPart()
  {
    switch (mode_) {
    case kComment:
      return readComment();
    case kTag:
      return readInTag();
    case kDoubleQuoted:
      return readQuoted(u"\"");
    case kSingleQuoted:
      return readQuoted(u"'");
    case kProgram:
      return readProgram();
    default:
      return readText();
    }
  }

  void readComment()
  {
    const std::size_t end = find(u"-->");
    mode_ = end < line_.size() ? kText : kComment;
    tell(SourcePart::Comment, std::min(end + 3, line_.size()));
  }

  void readQuoted(View quote)
  {
    const std::size_t end = find(quote);
    if (end < line_.size())
      mode_ = kTag;
    tell(SourcePart::Value, std::min(end + 1, line_.size()));
  }

  void readProgram()
  {
    const std::size_t end = endOfProgram(line_, at_, kPrograms[static_cast<std::size_t>(program_)]);
    tell(SourcePart::Program, end);
    if (at_ < line_.size()) {
      program_ = 0;
      mode_ = kText;
    }
  }

  void readText()
  {
    at_ = std::min(line_.find_first_of(u"<&", at_), line_.size());
    if (at_ == line_.size())
      return;
    if (line_[at_] == u'&')
      return readEntity();
    if (line_.substr(at_, 4) == u"<!--") {
      mode_ = kComment;
    } else if (beginsTag(line_, at_)) {
      const bool opens = line_[at_ + 1] != u'/';
      const std::size_t name = at_ + (opens ? 1 : 2), end = endOfName(line_, name);
      program_ = opens ? placeOf(kPrograms, line_.substr(name, end - name)) : 0;
      mode_ = kTag;
      tell(SourcePart::Tag, end);
    } else if (line_.substr(at_, 2) == u"<!" || line_.substr(at_, 2) == u"<?") {
      tell(SourcePart::Comment, std::min(find(u">") + 1, line_.size()));
    } else {
      ++at_;
    }
  }

  void readEntity()
  {
    std::size_t end = at_ + 1;
    while (end < line_.size() && (isLetter(line_[end]) || line_[end] == u'#' || (line_[end] >= u'0' && line_[end] <= u'9')))
      ++end;
    if (end < line_.size() && line_[end] == u';')
      tell(SourcePart::Entity, end + 1);
    else
      at_ = end;
  }

  void readInTag()
  {
    const char16_t letter = line_[at_];
    if (letter == u'>') {
      mode_ = program_ ? kProgram : kText;
      tell(SourcePart::Tag, at_ + 1);
    } else if (letter == u'"' || letter == u'\'') {
      mode_ = letter == u'"' ? kDoubleQuoted : kSingleQuoted;
      tell(SourcePart::Value, at_ + 1);
    } else if (letter == u'/') {
      tell(SourcePart::Tag, at_ + 1);
    } else if (isBlank(letter) || letter == u'<') {
      ++at_;
    } else if (letter == u'=') {
      readValue();
    } else {
      tell(SourcePart::Attribute, std::min(line_.find_first_of(u" \t=>/\"'", at_ + 1), line_.size()));
    }
  }

  void readValue()
  {
    at_ = std::min(line_.find_first_not_of(u" \t", at_ + 1), line_.size());
    if (at_ < line_.size() && line_[at_] != u'"' && line_[at_] != u'\'' && line_[at_] != u'>')
      tell(SourcePart::Value, std::min(line_.find_first_of(u" \t>", at_), line_.size()));
  }

  const View line_;
  std::size_t at_ = 0;
  int mode_, program_;
  const Tell& tell_;
};

struct Tag {
  ui::TextRange range;
  View name;
  bool closes = false;
};

/// The end of a tag that begins here, quoted values passed over.
std::size_t endOfTag(View source, std::size_t at)
{
  while (at < source.size() && source[at] != u'>') {
    if (source[at] == u'=') {
      at = std::min(source.find_first_not_of(u" \t\r\n", at + 1), source.size());
      if (at < source.size() && (source[at] == u'"' || source[at] == u'\''))
        at = std::min(source.find(source[at], at + 1), source.size() - 1) + 1;
    } else {
      ++at;
    }
  }
  return std::min(at + 1, source.size());
}

/// The next tag at or behind a place; comments and programs hold none.
std::optional<Tag> nextTag(View source, std::size_t from)
{
  for (std::size_t at = source.find(u'<', from); at != View::npos; at = source.find(u'<', at)) {
    if (source.substr(at, 4) == u"<!--") {
      at = std::min(source.find(u"-->", at + 4), source.size());
      continue;
    }
    if (!beginsTag(source, at)) {
      ++at;
      continue;
    }
    const bool closes = source[at + 1] == u'/';
    const std::size_t name = at + (closes ? 2 : 1), end = endOfName(source, name);
    return Tag{{at, endOfTag(source, end) - at}, source.substr(name, end - name), closes};
  }
  return std::nullopt;
}

/// Where the search goes on: behind the tag, or behind the program that it begins.
std::size_t behind(View source, const Tag& tag)
{
  const int program = tag.closes ? 0 : placeOf(kPrograms, tag.name);
  return program ? endOfProgram(source, tag.range.end(), kPrograms[static_cast<std::size_t>(program)]) : tag.range.end();
}

std::optional<ui::TextRange> endTagOf(View source, const Tag& opening)
{
  int depth = 0;
  for (auto tag = nextTag(source, behind(source, opening)); tag; tag = nextTag(source, behind(source, *tag))) {
    if (!same(tag->name, opening.name))
      continue;
    depth += tag->closes ? -1 : 1;
    if (depth < 0)
      return tag->range;
  }
  return std::nullopt;
}

} // namespace

int partsOfLine(View line, int state, const std::function<void(SourcePart, std::size_t, std::size_t)>& tell)
{
  return LineReader(line, state, tell).read();
}

std::optional<TagPair> tagAt(View source, std::size_t cursor)
{
  /// Elements that are open, the innermost last.
  std::vector<Tag> open;
  for (auto tag = nextTag(source, 0); tag && tag->range.start <= cursor; tag = nextTag(source, behind(source, *tag))) {
    const bool isHere = cursor <= tag->range.end();
    if (!tag->closes) {
      if (isHere && isVoid(tag->name))
        return TagPair{tag->range, std::nullopt, true};
      if (isHere && cursor < tag->range.end())
        return TagPair{tag->range, endTagOf(source, *tag)};
      if (isHere) {
        // Between two tags the one on the right counts.
        const auto next = nextTag(source, tag->range.end());
        if (!next || next->range.start != cursor)
          return TagPair{tag->range, endTagOf(source, *tag)};
      }
      if (!isVoid(tag->name))
        open.push_back(*tag);
      continue;
    }
    const auto partner = std::find_if(open.rbegin(), open.rend(), [&](const Tag& one) { return same(one.name, tag->name); });
    const auto range = partner == open.rend() ? std::nullopt : std::optional(partner->range);
    if (isHere)
      return TagPair{tag->range, range};
    if (range)
      open.erase(std::prev(partner.base()), open.end());
  }
  return std::nullopt;
}

} // namespace mrd::editor
