#include "platform/html/attribute_places.h"

#include "platform/html/document.h"
#include "platform/html/tags.h"

#include <algorithm>
#include <array>

namespace mrd::html {
namespace {

/// Elements whose content is text up to their end tag.
constexpr std::array<std::string_view, 8> kTextElements{"iframe", "noembed",  "noframes", "script",
                                                        "style",  "textarea", "title",    "xmp"};

/// What begins something that holds no tags, and what ends it.
struct Passage {
  std::string_view begin, end;
};
constexpr std::array kPassages{
    Passage{"<!--", "-->"}, Passage{"<?php", "?>"}, Passage{"<?=", "?>"}, Passage{"<? ", "?>"},
    Passage{"<?", ">"},     Passage{"<%", "%>"},    Passage{"<!", ">"},   Passage{"</", ">"},
};

std::string lowered(std::string_view text)
{
  std::string out(text);
  std::ranges::transform(out, out.begin(), lowerAscii);
  return out;
}

class Scanner {
public:
  explicit Scanner(std::string_view html) : html_(html) {}

  std::vector<AttributePlace> run()
  {
    while ((at_ = html_.find('<', at_)) != std::string_view::npos) {
      if (at_ + 1 < html_.size() && isAsciiLetter(html_[at_ + 1]))
        tag();
      else if (!passOver())
        ++at_;
    }
    return std::move(places_);
  }

private:
  bool ends() const { return at_ >= html_.size(); }

  bool passOver()
  {
    for (const auto& passage : kPassages) {
      if (html_.substr(at_).starts_with(passage.begin)) {
        const auto end = html_.find(passage.end, at_ + passage.begin.size());
        if (end == std::string_view::npos)
          continue;
        at_ = end + passage.end.size();
        return true;
      }
    }
    return false;
  }

  template <class Belongs>
  std::string_view take(Belongs belongs)
  {
    const auto begin = at_;
    while (!ends() && belongs(html_[at_]))
      ++at_;
    return html_.substr(begin, at_ - begin);
  }

  void tag()
  {
    ++at_;
    const auto name = lowered(take([](char c) { return !isHtmlSpace(c) && c != '/' && c != '>'; }));
    for (;;) {
      take([](char c) { return isHtmlSpace(c) || c == '/'; });
      if (ends() || html_[at_] == '>')
        break;
      attribute(name);
    }
    if (std::ranges::find(kTextElements, name) != kTextElements.end())
      passOverContent(name);
  }

  void attribute(const std::string& tagName)
  {
    const auto begin = at_++; // an equals sign in front belongs to the name
    take([](char c) { return !isHtmlSpace(c) && c != '/' && c != '>' && c != '='; });
    AttributePlace place{tagName, lowered(html_.substr(begin, at_ - begin))};
    take(isHtmlSpace);
    if (ends() || html_[at_] != '=')
      return;
    ++at_;
    take(isHtmlSpace);
    if (ends() || html_[at_] == '>')
      return;
    if (const char mark = html_[at_]; mark == '"' || mark == '\'') {
      place.quote = mark;
      place.begin = ++at_;
      take([mark](char c) { return c != mark; });
      place.end = at_;
      // What is never closed is no tag.
      if (ends())
        return;
      ++at_;
    } else {
      place.begin = at_;
      take([](char c) { return !isHtmlSpace(c) && c != '>'; });
      place.end = at_;
    }
    places_.push_back(std::move(place));
  }

  void passOverContent(const std::string& name)
  {
    for (at_ = html_.find("</", at_); at_ != std::string_view::npos; at_ = html_.find("</", at_ + 2))
      if (lowered(html_.substr(at_ + 2, name.size())) == name)
        return;
    at_ = html_.size();
  }

  std::string_view html_;
  std::size_t at_ = 0;
  std::vector<AttributePlace> places_;
};

} // namespace

std::vector<AttributePlace> attributePlaces(std::string_view html) { return Scanner(html).run(); }

std::string attributeText(std::string_view value)
{
  if (value.find('&') == std::string_view::npos)
    return std::string(value);
  // A value holds one kind of quotes at most, or none.
  const std::string quote = value.find('"') == std::string_view::npos ? "\"" : "'";
  auto document = Document::fromText("<p title=" + quote + std::string(value) + quote + ">");
  const auto paragraphs = document.elementsByTag("p");
  return paragraphs.empty() ? std::string(value) : paragraphs[0].attribute("title").value_or(std::string(value));
}

} // namespace mrd::html
