#include "editor/source_tags.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace mrd::editor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string plain(std::u16string_view text) { return {text.begin(), text.end()}; }

/// The parts of lines, each as its kind and its text.
std::vector<std::string> parts(const std::vector<std::u16string>& lines)
{
  constexpr const char* kNames[] = {"tag", "attribute", "value", "entity", "comment", "program"};
  std::vector<std::string> all;
  int state = 0;
  for (const auto& line : lines)
    state = partsOfLine(line, state, [&](SourcePart part, std::size_t start, std::size_t length) {
      all.push_back(std::string(kNames[static_cast<int>(part)]) + " " + plain(std::u16string_view(line).substr(start, length)));
    });
  return all;
}

TEST(SourceParts, are_tags_attributes_values_and_entities)
{
  EXPECT_THAT(parts({u"<a href=\"x.htm\" target=_blank id='1'>A &amp; B & C</a>"}),
              ElementsAre("tag <a", "attribute href", "value \"", "value x.htm\"", "attribute target", "value _blank",
                          "attribute id", "value '", "value 1'", "tag >", "entity &amp;", "tag </a", "tag >"));
}

TEST(SourceParts, go_on_over_the_ends_of_lines)
{
  EXPECT_THAT(parts({u"<!-- eins", u"zwei --><p title=\"drei", u"vier\">"}),
              ElementsAre("comment <!-- eins", "comment zwei -->", "tag <p", "attribute title", "value \"", "value drei",
                          "value vier\"", "tag >"));
}

TEST(SourceParts, of_a_script_are_none_until_its_end_tag)
{
  EXPECT_THAT(
      parts({u"<script>if (a<b)", u"x = '</p>';", u"</SCRIPT><p>"}),
      ElementsAre("tag <script", "tag >", "program if (a<b)", "program x = '</p>';", "tag </SCRIPT", "tag >", "tag <p", "tag >"));
}

TEST(SourceParts, are_none_where_a_sign_is_no_tag) { EXPECT_THAT(parts({u"1 < 2 && 3 > 2"}), IsEmpty()); }

/// The tag at the place of "|" and its partner.
std::string pairAt(std::u16string source)
{
  const std::size_t cursor = source.find(u'|');
  source.erase(cursor, 1);
  const auto pair = tagAt(source, cursor);
  if (!pair)
    return "none";
  const auto text = [&](const ui::TextRange& range) {
    return plain(std::u16string_view(source).substr(range.start, range.length));
  };
  return text(pair->tag) + " " + (pair->partner ? text(*pair->partner) + "@" + std::to_string(pair->partner->start) : "-") +
         (pair->isVoid ? " void" : "");
}

TEST(TagPair, joins_a_tag_with_the_end_of_its_element)
{
  EXPECT_EQ(pairAt(u"<d|iv><div></div></div>"), "<div> </div>@16");
  EXPECT_EQ(pairAt(u"<div><div></d|iv></div>"), "</div> <div>@5");
  EXPECT_EQ(pairAt(u"<div><div></div></div>|"), "</div> <div>@0");
  EXPECT_EQ(pairAt(u"|<DIV></div>"), "<DIV> </div>@5");
}

TEST(TagPair, is_looked_for_over_elements_without_an_end_tag)
{
  EXPECT_EQ(pairAt(u"<ul|><li>a<br><li>b</ul>"), "<ul> </ul>@18");
  EXPECT_EQ(pairAt(u"<ul><li>a<br><li>b</u|l>"), "</ul> <ul>@0");
  EXPECT_EQ(pairAt(u"<p><b|r></p>"), "<br> - void");
  EXPECT_EQ(pairAt(u"<p><b|>x</p>"), "<b> -");
}

TEST(TagPair, passes_over_comments_scripts_and_values)
{
  EXPECT_EQ(pairAt(u"<p|><!-- </p> --><img alt=\"</p>\"><script>'</p>'</script></p>"), "<p> </p>@55");
  EXPECT_EQ(pairAt(u"<!-- <p|> -->"), "none");
  EXPECT_EQ(pairAt(u"Te|xt <p>"), "none");
}

TEST(TagPair, between_two_tags_is_that_of_the_right_one) { EXPECT_EQ(pairAt(u"<p>|<b></b></p>"), "<b> </b>@6"); }

TEST(TagPair, ends_on_every_text)
{
  for (const auto* const text : {u"<", u"<a", u"<a href=", u"<a href=\"", u"<!--", u"<script>", u"</", u"<a b='", u"<a =\""}) {
    const std::u16string source(text);
    for (std::size_t cursor = 0; cursor <= source.size(); ++cursor)
      tagAt(source, cursor);
    partsOfLine(source, 0, [](SourcePart, std::size_t, std::size_t) {});
  }
}

} // namespace
} // namespace mrd::editor
