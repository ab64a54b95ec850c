// The page-turn strip, to the letter.

#include "generator/templates/nav_info.h"

#include "generator/templates/page_list.h"

#include <gmock/gmock.h>

namespace mrd::templates {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr int kHeadingsAfloat = 0, kHeadingsFixed = 1, kSymbolsAfloat = 2, kSymbolsFixed = 3, kNone = 4;

constexpr const char* kAbsolute = "<div ID='mrdnav' STYLE='position:absolute;'>";
constexpr const char* kRelative = "<div ID='mrdnav' STYLE='position:relative;'>";
constexpr const char* kTable = "<table border=0 cellpadding=0 cellspacing=0><tr>";
constexpr const char* kColouredCell = "<td bgColor='[mrd:Tabellenfarbe]'><layer ID='nsmrdnav' STYLE='position:absolute;'> ";
constexpr const char* kPlainCell = "<td><layer ID='nsmrdnav' STYLE='position:absolute;'> ";
constexpr const char* kEnd = "</layer></td></tr></table></div>        ";

const std::string kHeadings = " <a style='color:[mrd:Menüaktivfarbe]' href='0201.htm'><-- Vor</a> | "
                              " <a  style='color:[mrd:Menüaktivfarbe]' href='index.htm'>Homepage</a> | "
                              "<a  style='color:[mrd:Menüaktivfarbe]'  href='#oben'>hoch</a> | "
                              " <a  style='color:[mrd:Menüaktivfarbe]' href='02.htm'>Ober</a> | "
                              " <a  style='color:[mrd:Menüaktivfarbe]' href='03.htm'>Nach --></a> ";

const std::string kSymbols =
    " <a href='0201.htm'><img src='pix/nav_links.gif' align='bottom' alt='Vor' border=0></a> "
    " <a href='index.htm'><img src='pix/nav_home.gif'  align='bottom' alt='Homepage' border=0></a> "
    " <a href='#oben'><img src='pix/nav_top.gif'  align='bottom' alt='auf dieser Seite nach oben' border=0></a> "
    " <a href='02.htm'><img src='pix/nav_oben.gif'  align='bottom' alt='Ober' border=0></a> "
    " <a href='03.htm'><img src='pix/nav_rechts.gif' alt='Nach' border=0></a> ";

/// Turns the pages of a list, as a run does.
struct PageTurn {
  PageList pages;
  NavInfo info;

  explicit PageTurn(std::initializer_list<PageRow> rows) : pages(rows)
  {
    info.Homepage.setDateiname("*.htm");
    info.Homepage.Seitenid = "00";
    info.Homepage.Überschrift = "Homepage";
  }

  std::string strip(std::string_view id, int style)
  {
    const auto type = pages.find(id).seitentyp;
    info.AktuelleSeitenId(id == "00" ? "index" : id, type, pages, "http://x.example/");
    return info.getBlätternNavigation(style);
  }

  /// "previous home top parent next", as far as the strip shows them.
  std::string shown(std::string_view id)
  {
    const auto text = strip(id, kSymbolsFixed);
    std::string out;
    for (const auto& [picture, name] :
         {std::pair{"nav_links", "previous "}, std::pair{"nav_home", "home "}, std::pair{"nav_top", "top "},
          std::pair{"nav_oben", "parent "}, std::pair{"nav_rechts", "next "}})
      if (text.find(picture) != text.npos)
        out += name;
    return out.substr(0, out.size() - 1);
  }
};

struct FullStrip : testing::Test {
  PageTurn site{
      {"00", "Start", "", 1}, {"02", "Ober", "", 1}, {"0201", "Vor", "", 1}, {"0202", "Hier", "", 1}, {"03", "Nach", "", 1}};
};

TEST_F(FullStrip, of_headings_that_stay_in_view)
{
  EXPECT_EQ(site.strip("0202", kHeadingsAfloat), std::string(kAbsolute) + kTable + kColouredCell + kHeadings + kEnd);
}

TEST_F(FullStrip, of_headings_that_are_fixed)
{
  EXPECT_EQ(site.strip("0202", kHeadingsFixed), std::string(kRelative) + kTable + kColouredCell + kHeadings + kEnd);
}

TEST_F(FullStrip, of_symbols_that_stay_in_view)
{
  EXPECT_EQ(site.strip("0202", kSymbolsAfloat), std::string(kAbsolute) + kTable + kPlainCell + kSymbols + kEnd);
}

TEST_F(FullStrip, of_symbols_that_are_fixed)
{
  EXPECT_EQ(site.strip("0202", kSymbolsFixed), std::string(kRelative) + kTable + kPlainCell + kSymbols + kEnd);
}

TEST_F(FullStrip, of_no_style_is_empty)
{
  for (const int style : {kNone, 5, -1})
    EXPECT_EQ(site.strip("0202", style), "") << style;
}

TEST_F(FullStrip, shows_headings_as_they_are_stored)
{
  PageTurn odd{{"00", "Start", "", 1}, {"01", "Hier", "", 1}, {"02", "<b>Ü & 'x'</b>", "", 1}};

  EXPECT_THAT(odd.strip("01", kHeadingsFixed), HasSubstr("href='02.htm'><b>Ü & 'x'</b> --></a>"));
}

TEST(Strip, stays_afloat_in_two_styles)
{
  EXPECT_TRUE(isAfloat(kHeadingsAfloat));
  EXPECT_TRUE(isAfloat(kSymbolsAfloat));
  for (const int style : {kHeadingsFixed, kSymbolsFixed, kNone, -1})
    EXPECT_FALSE(isAfloat(style)) << style;
}

TEST(Strip, of_the_homepage_leads_up_and_on)
{
  PageTurn site{{"00", "Start", "", 1}, {"01", "Haus", "", 1}};

  EXPECT_EQ(site.shown("00"), "top next");
}

TEST(Strip, of_a_single_page_leads_up)
{
  PageTurn site{{"00", "Start", "", 1}};

  EXPECT_EQ(site.shown("00"), "top");
}

TEST(Strip, of_the_last_page_has_no_next_link)
{
  PageTurn site{{"00", "Start", "", 1}, {"01", "Haus", "", 1}, {"02", "Letzte", "", 1}};

  EXPECT_EQ(site.shown("02"), "previous home top");
}

TEST(Strip, of_a_first_level_page_has_no_parent_link)
{
  PageTurn site{{"00", "Start", "", 1}, {"01", "A", "", 1}, {"02", "B", "", 1}, {"03", "C", "", 1}};

  EXPECT_EQ(site.shown("02"), "previous home top next");
}

TEST(Strip, has_no_previous_link_to_the_homepage)
{
  PageTurn site{{"00", "Start", "", 1}, {"01", "A", "", 1}, {"02", "B", "", 1}};

  EXPECT_EQ(site.shown("01"), "home top next");
}

TEST(Strip, compares_with_index_also_where_the_homepage_has_another_name)
{
  PageTurn site{{"00", "Start", "start.htm", 1}, {"01", "A", "", 1}};

  EXPECT_EQ(site.shown("01"), "previous home top");
  EXPECT_THAT(site.strip("01", kHeadingsFixed), HasSubstr(" href='start.htm'><-- Start</a>"));
  EXPECT_THAT(site.strip("01", kHeadingsFixed), HasSubstr(" href='index.htm'>Homepage</a>"));
}

TEST(Strip, shows_a_parent_that_is_the_previous_page_once)
{
  PageTurn site{{"00", "Start", "", 1}, {"01", "A", "", 1}, {"0101", "B", "", 1}, {"02", "C", "", 1}};

  EXPECT_EQ(site.shown("0101"), "previous home top next");
}

TEST(Strip, skips_blind_neighbours)
{
  PageTurn site{{"00", "S", "", 1}, {"01", "A", "", 1}, {"0101", "V", "", 1},   {"02", "Blind", "", 3},
                {"03", "C", "", 1}, {"04", "X", "", 3}, {"0401", "Kind", "", 1}};

  EXPECT_THAT(site.strip("03", kHeadingsFixed), HasSubstr("href='0101.htm'><-- V</a>"));
  EXPECT_THAT(site.strip("03", kHeadingsFixed), HasSubstr("href='0401.htm'>Kind --></a>"));
  EXPECT_EQ(site.shown("0401"), "previous home top");
}

TEST(Strip, of_a_blind_page_shows_the_pages_around_it)
{
  PageTurn site{{"00", "S", "", 1}, {"01", "A", "", 1}, {"02", "Blind", "", 3}, {"03", "C", "", 1}};

  EXPECT_THAT(site.strip("02", kHeadingsFixed), HasSubstr("href='01.htm'><-- A</a>"));
  EXPECT_THAT(site.strip("02", kHeadingsFixed), HasSubstr("href='03.htm'>C --></a>"));
}

TEST(Strip, of_the_last_page_behind_an_external_one_leads_to_the_base_address)
{
  PageTurn site{{"00", "S", "", 1}, {"01", "A", "", 1}, {"02", "Fremd", "", 2}, {"03", "C", "", 1}};

  site.strip("01", kHeadingsFixed);
  site.strip("02", kHeadingsFixed);

  EXPECT_THAT(site.strip("03", kHeadingsFixed), HasSubstr("href='http://x.example/index.htm'> --></a>"));
  EXPECT_EQ(site.shown("03"), "previous home top next");
}

TEST(Strip, of_an_external_page_leads_through_the_base_address_but_home)
{
  PageTurn site{{"00", "S", "", 1}, {"01", "A", "", 1}, {"0101", "B", "", 1}, {"0102", "Fremd", "", 4}, {"02", "C", "", 1}};

  const auto strip = site.strip("0102", kHeadingsFixed);

  EXPECT_THAT(strip, HasSubstr("href='http://x.example/0101.htm'><-- B</a>"));
  EXPECT_THAT(strip, HasSubstr("href='http://x.example/01.htm'>A</a>"));
  EXPECT_THAT(strip, HasSubstr("href='http://x.example/02.htm'>C --></a>"));
  EXPECT_THAT(strip, HasSubstr("href='index.htm'>Homepage</a>"));
}

TEST(Strip, of_symbols_shows_no_next_link_to_a_page_without_a_name)
{
  PageTurn site{{"00", "S", "", 1}, {"01", "A", "", 1}, {"02", "B", ".htm", 1}};

  EXPECT_THAT(site.strip("01", kSymbolsAfloat), Not(HasSubstr("nav_rechts")));
  EXPECT_THAT(site.strip("01", kSymbolsFixed), Not(HasSubstr("nav_rechts")));
  EXPECT_THAT(site.strip("01", kHeadingsAfloat), HasSubstr("href='.htm'>B --></a>"));
  EXPECT_THAT(site.strip("01", kHeadingsFixed), HasSubstr("href='.htm'>B --></a>"));
}

} // namespace
} // namespace mrd::templates
