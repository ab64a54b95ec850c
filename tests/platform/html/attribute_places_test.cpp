#include "platform/html/attribute_places.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace mrd::html {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// "tag name=value" of each attribute.
std::vector<std::string> found(const std::string& html)
{
  std::vector<std::string> out;
  for (const auto& place : attributePlaces(html))
    out.push_back(place.tag + " " + place.name + "=" + html.substr(place.begin, place.end - place.begin));
  return out;
}

TEST(AttributePlaces, stand_in_quotes_of_either_kind_or_in_none)
{
  EXPECT_THAT(found(R"(<IMG Src="a b" alt='c"d' width=5 border>)"), ElementsAre("img src=a b", R"(img alt=c"d)", "img width=5"));
}

TEST(AttributePlaces, know_their_quotes)
{
  const auto places = attributePlaces(R"(<p a="1" b='2' c=3>)");
  ASSERT_EQ(places.size(), 3u);
  EXPECT_EQ(places[0].quote, '"');
  EXPECT_EQ(places[1].quote, '\'');
  EXPECT_EQ(places[2].quote, '\0');
}

TEST(AttributePlaces, allow_blanks_and_line_ends_around_the_sign)
{
  EXPECT_THAT(found("<a\r\n href\t= \"x\"\r\n>"), ElementsAre("a href=x"));
  EXPECT_THAT(found("<a/href=x/y>"), ElementsAre("a href=x/y"));
}

TEST(AttributePlaces, are_not_in_comments_scripts_styles_and_code_for_the_server)
{
  EXPECT_THAT(found("<!-- <img src=1> --><script>'<img src=2>'</script><style><img src=3></style><?php echo '<img src=4>' ?><% "
                    "<img src=5> %>"
                    "<textarea><img src=6></textarea><img src=7>"),
              ElementsAre("img src=7"));
}

TEST(AttributePlaces, of_a_script_tag_itself_count)
{
  EXPECT_THAT(found("<script src=a.js></script>"), ElementsAre("script src=a.js"));
}

TEST(AttributePlaces, follow_the_marks_that_text_programs_leave)
{
  EXPECT_THAT(found("<?xml:namespace prefix = o ns = \"urn:x\" /><img src=1>"), ElementsAre("img src=1"));
}

TEST(AttributePlaces, are_none_in_text_and_end_tags) { EXPECT_THAT(found("a < b=c </p class=x> <3 d=4>"), IsEmpty()); }

TEST(AttributePlaces, end_with_a_text_that_is_cut_off)
{
  for (const char* cut : {"<", "<a", "<a ", "<a b", "<a b=", "<a b=\"", "<a b=\"c", "<!--", "<script>", "<?php"})
    EXPECT_THAT(found(cut), IsEmpty()) << cut;
  EXPECT_THAT(found("<a b=c"), ElementsAre("a b=c"));
}

TEST(AttributeText, reads_character_references)
{
  EXPECT_EQ(attributeText("Haus &amp; Hof &#228; &quot;x&quot;"), "Haus & Hof ä \"x\"");
  EXPECT_EQ(attributeText("a'b\"c"), "a'b\"c");
  EXPECT_EQ(attributeText("\"&lt;"), "\"<");
}

} // namespace
} // namespace mrd::html
