#include "imode/row_table.h"

#include "base/text.h"
#include "imode/imode_site.h"

#include <gmock/gmock.h>

#include <map>

namespace mrd::imode {
namespace {

using testing::HasSubstr;
using testing::Not;

const std::map<std::size_t, std::string_view> kExpected{
    {1, "<HTML><HEAD>"},
    {2, "<TITLE>[mrd:Titel]: [mrd:Überschrift]</TITLE>"},
    {3, "</HEAD><BODY bgColor=[mrd:Hintergrundfarbe]><FONT color=[mrd:Textfarbe]>"},
    {4, "¶"},
    {11, "[0] [mrd:Überschrift]<br>"},
    {12, "<A href='[mrd:ID]'>[mrd:Überschrift]</A><br>¶"},
    {15, "<!-- def15 --><br>"},
    {16, "<!-- def16 --><br>"},
    {17, "</font>"},
    {18, "<!-- def18 -->&nbsp;&gt;[mrd:Überschrift]&lt;<br>"},
    {19, "<!-- htmldef 19 [mrd:aktivID] -->¶&nbsp;&nbsp;<A href='[mrd:ID]'>[mrd:Überschrift]</A><br>"},
    {20, "<!-- htmldef 20 [mrd:aktivID] -->¶&nbsp;&nbsp;&gt;[mrd:Überschrift]&lt;<br>"},
    {21, "<!-- htmldef 21 [mrd:aktivID] -->¶&nbsp;&nbsp;&nbsp;<A href='[mrd:ID]'>[mrd:Überschrift]</A><br>¶"},
    {22, "<!-- def 22 [mrd:aktivID] -->¶&nbsp;&nbsp;&nbsp;&gt;[mrd:Überschrift]&lt;<br>¶"},
    {23, "<!-- def 23 [mrd:aktivID] -->¶&nbsp;&nbsp;&nbsp;&nbsp;<A href='[mrd:ID]'>[mrd:Überschrift]</A><br>¶"},
    {24, "<!-- def 24 [mrd:aktivID] -->¶&nbsp;&nbsp;&nbsp;&nbsp;&gt;[mrd:Überschrift]&lt;<br>¶"},
    {25, "[0] <A href='[mrd:ID]' accesskey='0'>[mrd:Überschrift]</A><br>¶"},
};

TEST(ImodeRows, are_501_of_which_17_are_filled_letter_for_letter)
{
  const auto rows = htmldefs();

  ASSERT_EQ(rows.size(), 501u);
  for (std::size_t row = 0; row < rows.size(); ++row) {
    const auto expected = kExpected.find(row);
    EXPECT_EQ(rows[row], expected == kExpected.end() ? "" : lines(expected->second)) << "row " << row;
  }
}

TEST(ImodeMenu, shows_only_the_first_level_on_the_homepage)
{
  ImodeSite site{{"00", "Start", ""}, {"01", "Haus", ""}, {"0101", "Küche", ""}, {"02", "Garten", ""}};

  site.run();

  EXPECT_EQ(site.menu("index.htm"), lines("<A href='01.htm'>Haus</A><br>¶<A href='02.htm'>Garten</A><br>¶"));
}

TEST(ImodeMenu, marks_the_current_page_and_the_pages_above_it_without_a_link)
{
  ImodeSite site{{"00", "Start", ""},      {"01", "Eins", ""},       {"0101", "Zwei", ""},
                 {"010101", "Drei", ""},   {"01010101", "Vier", ""}, {"01010102", "Vier b", ""},
                 {"010102", "Drei b", ""}, {"0102", "Zwei b", ""},   {"02", "Eins b", ""}};

  site.run();

  EXPECT_EQ(site.menu("01010101.htm"),
            lines("¶"
                  "<!-- def18 -->&nbsp;&gt;Eins&lt;<br>"
                  "<!-- htmldef 20 [mrd:aktivID] -->¶&nbsp;&nbsp;&gt;Zwei&lt;<br>"
                  "<!-- def 22 [mrd:aktivID] -->¶&nbsp;&nbsp;&nbsp;&gt;Drei&lt;<br>¶"
                  "<!-- def 24 [mrd:aktivID] -->¶&nbsp;&nbsp;&nbsp;&nbsp;&gt;Vier&lt;<br>¶"
                  "<!-- def 23 [mrd:aktivID] -->¶&nbsp;&nbsp;&nbsp;&nbsp;<A href='01010102.htm'>Vier b</A><br>¶"
                  "<!-- htmldef 21 [mrd:aktivID] -->¶&nbsp;&nbsp;&nbsp;<A href='010102.htm'>Drei b</A><br>¶"
                  "<!-- htmldef 19 [mrd:aktivID] -->¶&nbsp;&nbsp;<A href='0102.htm'>Zwei b</A><br>"
                  "<A href='02.htm'>Eins b</A><br>¶"));
}

TEST(ImodeMenu, has_pages_above_the_current_one_as_neighbours_though_they_have_no_link)
{
  ImodeSite site{{"00", "Start", ""}, {"01", "Haus", ""}, {"0101", "Küche", ""}};

  site.run();

  EXPECT_THAT(site.keys("0101.htm"), testing::ElementsAre("01.htm", "index.htm"));
  EXPECT_THAT(site.keys("01.htm"), testing::ElementsAre("index.htm", "0101.htm"));
}

TEST(ImodeMenu, takes_a_heading_with_an_ampersand_as_it_is)
{
  ImodeSite site{{"00", "Start", ""}, {"01", "Haus & Hof <b>", ""}};

  site.run();

  EXPECT_EQ(site.menu("index.htm"), lines("<A href='01.htm'>Haus & Hof <b></A><br>¶"));
}

TEST(ImodeHomepageEntry, has_no_link_on_the_homepage_and_the_key_0_elsewhere)
{
  ImodeSite site{{"00", "Start", ""}, {"01", "Haus", ""}};

  site.run();

  EXPECT_THAT(site.page("index.htm"), HasSubstr("<!-- def15 --><br>\r\n[0] Homepage<br><A href='01.htm'>"));
  EXPECT_THAT(site.page("index.htm"), Not(HasSubstr("accesskey='0'")));
  EXPECT_THAT(site.page("01.htm"),
              HasSubstr("<!-- def15 --><br>\r\n[0] <A href='index.htm' accesskey='0'>Homepage</A><br>\r\n<!-- def18 -->"));
}

TEST(ImodeMenu, gives_no_key_to_its_entries_and_none_to_2)
{
  ImodeSite site{{"00", "Start", ""}, {"01", "Haus", ""}, {"02", "Garten", ""}};

  site.run();

  EXPECT_THAT(generator::allBetween(site.page("01.htm"), "accesskey='", "'"), testing::ElementsAre("0", "1", "3"));
}

} // namespace
} // namespace mrd::imode
