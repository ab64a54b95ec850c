#include "generator/navigation_menu.h"

#include "base/text.h"
#include "base/windows1252.h"
#include "generator/site_run.h"

#include <gtest/gtest.h>

namespace mrd::generator {
namespace {

/// A table whose menu rows tell their number, target and heading.
RowTable plainRows()
{
  RowTable rows{};
  for (const auto& level : kMenuRows)
    for (const auto number : {level.other, level.current})
      rows[number] = std::to_string(number) + " [mrd:ID] [mrd:Überschrift]";
  return rows;
}

struct MenuTest : testing::Test {
  support::TemporaryProject project{};
  settings::Fields fields;
  RowTable rows = plainRows();
  MenuStyle style{"\r\n", false};
  std::optional<PageIndex> index;
  MenuNeighbours neighbours;

  /// A page of this id whose heading is "s" and its id.
  MenuTest& add(std::string_view id, std::optional<int> type = 1, std::optional<std::string> dateiname = {})
  {
    project.addPage({std::string(id), "s" + std::string(id), {}, std::move(dateiname), type});
    return *this;
  }
  MenuTest& add(std::initializer_list<std::string_view> ids)
  {
    for (const auto id : ids)
      add(id);
    return *this;
  }

  /// A line for each row; lines end with "\n".
  std::string menu(std::string_view currentId, const std::string& basislink = {})
  {
    index.emplace(project.db());
    std::string bytes;
    neighbours = NavigationMenu(*index, rows, style, fields, basislink).print(bytes, currentId);
    return base::replaceAll(base::fromWindows1252(bytes), "\r\n", "\n");
  }

  static std::string idOf(const IndexedPage* page) { return page ? page->id : "none"; }
  std::string previous() const { return idOf(neighbours.previous); }
  std::string next() const { return idOf(neighbours.next); }
  std::string first() const { return idOf(neighbours.first); }
};

TEST_F(MenuTest, lists_only_the_top_level_on_the_homepage)
{
  add({"00", "01", "0101", "02"});

  EXPECT_EQ(menu("00"), "12 01.htm s01\n12 02.htm s02\n");
}

TEST_F(MenuTest, opens_the_path_to_the_current_page_and_nothing_else)
{
  add({"00", "01", "0101", "010101", "0102", "02", "0201", "020101", "02010101", "02010102", "020102", "0202", "020201", "03",
       "0301"});

  EXPECT_EQ(menu("02010101"), "12 01.htm s01\n"
                              "12 02.htm s02\n"
                              "19 0201.htm s0201\n"
                              "21 020101.htm s020101\n"
                              "24 02010101.htm s02010101\n"
                              "23 02010102.htm s02010102\n"
                              "21 020102.htm s020102\n"
                              "19 0202.htm s0202\n"
                              "12 03.htm s03\n");
}

TEST_F(MenuTest, marks_the_current_page_of_each_level_and_shows_its_children)
{
  add({"01", "0101", "010101", "01010101"});

  EXPECT_EQ(menu("01"), "18 01.htm s01\n19 0101.htm s0101\n");
  EXPECT_EQ(menu("0101"), "12 01.htm s01\n20 0101.htm s0101\n21 010101.htm s010101\n");
  EXPECT_EQ(menu("010101"), "12 01.htm s01\n19 0101.htm s0101\n22 010101.htm s010101\n23 01010101.htm s01010101\n");
}

TEST_F(MenuTest, marks_no_ancestor_of_a_page_of_the_third_level)
{
  add({"01", "0101", "010101"});

  const auto text = menu("010101");

  EXPECT_EQ(text, "12 01.htm s01\n19 0101.htm s0101\n22 010101.htm s010101\n");
}

TEST_F(MenuTest, has_no_row_for_the_homepage)
{
  add({"00", "01"});

  EXPECT_EQ(menu("00"), "12 01.htm s01\n");
  EXPECT_EQ(menu("01"), "18 01.htm s01\n");
}

TEST_F(MenuTest, leaves_blind_pages_out_at_every_level_with_their_children)
{
  add({"01", "0102", "010102", "01010102", "02"});
  add("03", 3).add("0301").add("0101", 3).add("010101").add("01010101", 3);

  EXPECT_EQ(menu("01010102"), "12 01.htm s01\n19 0102.htm s0102\n12 02.htm s02\n");
  EXPECT_EQ(menu("0301"), "12 01.htm s01\n12 02.htm s02\n");
  EXPECT_EQ(menu("010101"), "12 01.htm s01\n19 0102.htm s0102\n12 02.htm s02\n");
}

TEST_F(MenuTest, leaves_a_page_without_a_type_out)
{
  add({"01", "02"}).add("03", std::nullopt).add("0301");

  EXPECT_EQ(menu("03"), "12 01.htm s01\n12 02.htm s02\n");
  EXPECT_EQ(menu("0301"), "12 01.htm s01\n12 02.htm s02\n");
}

TEST_F(MenuTest, shows_external_and_auction_pages)
{
  add("01", 2, "http://x.example/a").add("02", 4).add("03", 0).add("04", 7);

  EXPECT_EQ(menu("00"), "12 http://x.example/a s01\n12 02.htm s02\n12 03.htm s03\n12 04.htm s04\n");
}

TEST_F(MenuTest, never_lists_pages_below_the_last_page_of_the_top_level)
{
  add({"98", "9801", "99", "9901"});

  EXPECT_EQ(menu("99"), "12 98.htm s98\n18 99.htm s99\n");
  EXPECT_EQ(menu("9901"), "12 98.htm s98\n12 99.htm s99\n");
  EXPECT_EQ(menu("98"), "18 98.htm s98\n19 9801.htm s9801\n12 99.htm s99\n");
}

TEST_F(MenuTest, lists_pages_below_the_last_page_of_a_deeper_level)
{
  add({"01", "0199", "019901", "01990101", "019999", "01999901"});

  EXPECT_EQ(menu("019901"),
            "12 01.htm s01\n19 0199.htm s0199\n22 019901.htm s019901\n23 01990101.htm s01990101\n21 019999.htm s019999\n");
  EXPECT_EQ(menu("01999901"),
            "12 01.htm s01\n19 0199.htm s0199\n21 019901.htm s019901\n21 019999.htm s019999\n24 01999901.htm s01999901\n");
}

TEST_F(MenuTest, links_a_pattern_with_the_number_in_place_of_each_star)
{
  add("01", 1, "haus-*-*.html").add("02", 1, "").add("03", 1, "fest.htm").add("04", 1, "http://x.example/*");

  EXPECT_EQ(menu("00"), "12 haus-01-01.html s01\n12 02.htm s02\n12 fest.htm s03\n12 http://x.example/04 s04\n");
}

TEST_F(MenuTest, puts_the_base_address_before_every_target_even_a_whole_address)
{
  add("01").add("02", 2, "http://y.example/");

  EXPECT_EQ(menu("01", "http://x.example/"), "18 http://x.example/01.htm s01\n12 http://x.example/http://y.example/ s02\n");
}

TEST_F(MenuTest, keeps_the_order_of_the_numbers_whatever_the_order_of_entry)
{
  add({"10", "02", "0202", "0201", "01"});

  EXPECT_EQ(menu("02"), "12 01.htm s01\n18 02.htm s02\n19 0201.htm s0201\n19 0202.htm s0202\n12 10.htm s10\n");
}

TEST_F(MenuTest, of_an_empty_level_is_empty)
{
  add({"00"});

  EXPECT_EQ(menu("00"), "");
  EXPECT_EQ(previous(), "none");
  EXPECT_EQ(next(), "none");
  EXPECT_EQ(first(), "none");
  EXPECT_FALSE(neighbours.seen);
}

TEST_F(MenuTest, goes_over_gaps_in_the_numbers)
{
  add({"03", "0307", "07"});

  EXPECT_EQ(menu("0307"), "12 03.htm s03\n20 0307.htm s0307\n12 07.htm s07\n");
  EXPECT_EQ(first(), "none");
}

TEST_F(MenuTest, survives_numbers_that_are_none)
{
  add({"", "1", "x", "0", "01", "0a", "0a01", "001", "01011", "010101010", "\xC3\x84\xC3\x96", "M0101", "'", "1e300999"});

  for (const auto* id :
       {"", "1", "x", "01", "0a", "0a01", "001", "01011", "010101010", "\xC3\x84\xC3\x96", "M0101", "'", "1e300999"})
    EXPECT_NO_THROW(menu(id)) << id;
  EXPECT_NE(menu("01").find("18 01.htm s01\n"), std::string::npos);
}

TEST_F(MenuTest, shows_a_heading_of_null_as_nothing)
{
  project.addPage({"01", std::nullopt});

  EXPECT_EQ(menu("00"), "12 01.htm \n");
}

TEST_F(MenuTest, neighbours_are_those_of_its_own_order)
{
  add({"00", "01", "0101", "02", "0201", "0202", "03"});

  menu("02");
  EXPECT_EQ(previous(), "01") << "the child of 01 is not open";
  EXPECT_EQ(next(), "0201");
  EXPECT_EQ(first(), "01");
  EXPECT_TRUE(neighbours.seen);

  menu("0202");
  EXPECT_EQ(previous(), "0201");
  EXPECT_EQ(next(), "03");
}

TEST_F(MenuTest, ends_have_one_neighbour)
{
  add({"00", "01", "02"});

  menu("01");
  EXPECT_EQ(previous(), "none");
  EXPECT_EQ(next(), "02");
  menu("02");
  EXPECT_EQ(previous(), "01");
  EXPECT_EQ(next(), "none");
}

TEST_F(MenuTest, does_not_reach_a_blind_page_and_finds_no_next_page_for_it)
{
  add({"01", "03"}).add("02", 3);

  menu("02");

  EXPECT_FALSE(neighbours.seen);
  EXPECT_EQ(next(), "none");
  EXPECT_EQ(first(), "01");
}

TEST_F(MenuTest, knows_no_first_page_where_it_is_blind)
{
  add("01", 3).add("02");

  menu("02");

  EXPECT_EQ(first(), "none");
}

TEST_F(MenuTest, goes_out_in_the_encoding_of_pages)
{
  project.addPage({"01", "Dünen €♥"});
  index.emplace(project.db());
  std::string bytes;

  NavigationMenu(*index, rows, style, fields, {}).print(bytes, "00");

  EXPECT_EQ(bytes, "12 01.htm D\xFCnen \x80&#9829;\r\n");
}

TEST_F(MenuTest, prints_the_rows_of_the_real_table)
{
  add({"01", "0101"});
  rows = htmldefs(fields);
  fields.tbmenütext = "aa0000";
  fields.Tbtabelle = "0080FF";
  fields.tbmenü = "00bb00";

  EXPECT_EQ(
      menu("0101"),
      base::replaceAll(
          lines(
              "   <TR>¶       <TD bgColor=#0080FF width=8><FONT face='Arial' size=2 color=#aa0000>&#149;</font></TD>¶       <TD "
              "colSpan=2><A href='01.htm'><FONT face='Arial' size=2 color=#aa0000>s01</FONT></A></TD>¶   </TR>¶"
              "<!-- [mrd:aktivID] -->¶<TR>¶  <TD bgColor=#0080FF>&nbsp;</TD>¶  <TD bgColor=#0080FF width=8><FONT "
              "color=#00bb00 face='Arial' size=2>&#149;</font></TD>¶  <TD><FONT color=#00bb00 face='Arial' "
              "size=2>s0101</FONT></TD>¶</TR>¶"),
          "\r\n", "\n"));
}

} // namespace
} // namespace mrd::generator
