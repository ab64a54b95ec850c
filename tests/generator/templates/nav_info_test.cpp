// Where a page's neighbours are found, and how their links read.

#include "generator/templates/nav_info.h"

#include "generator/templates/page_list.h"

#include <gmock/gmock.h>

namespace mrd::templates {
namespace {

TEST(LinkInfo, without_values_leads_to_the_homepage)
{
  LinkInfo link;

  EXPECT_EQ(link.href(), "index.htm");
  EXPECT_EQ(link.dateiname(), "*.htm");
}

TEST(LinkInfo, puts_the_pages_id_into_the_pattern_everywhere)
{
  LinkInfo link;
  link.Seitenid = "0102";
  EXPECT_EQ(link.href(), "0102.htm");

  link.setDateiname("a*b*.htm");
  EXPECT_EQ(link.href(), "a0102b0102.htm");
}

TEST(LinkInfo, of_the_homepage_is_called_index)
{
  LinkInfo link;
  link.Seitenid = "00";
  link.setDateiname("seite-*.htm");

  EXPECT_EQ(link.href(), "seite-index.htm");
}

TEST(LinkInfo, takes_a_name_without_a_star_as_it_stands)
{
  LinkInfo link;
  link.Seitenid = "01";
  link.setDateiname("haus.htm");

  EXPECT_EQ(link.href(), "haus.htm");
}

TEST(LinkInfo, puts_the_base_address_first)
{
  LinkInfo link;
  link.Seitenid = "01";
  link.KompletterLink = "http://x.example/";

  EXPECT_EQ(link.href(), "http://x.example/01.htm");
}

TEST(LinkInfo, lowers_file_names_and_leaves_addresses)
{
  LinkInfo link;
  link.setDateiname("Über UNS.HTM");
  EXPECT_EQ(link.dateiname(), "über uns.htm");

  link.setDateiname("http://X.example/Seite.htm");
  EXPECT_EQ(link.dateiname(), "http://X.example/Seite.htm");
}

TEST(LinkInfo, lowers_addresses_of_other_schemes)
{
  LinkInfo link;
  for (const auto& [name, read] : {std::pair{"HTTP://X.example/", "http://x.example/"},
                                   std::pair{"https://X.example/", "https://x.example/"}, std::pair{"http:X", "http:x"}}) {
    link.setDateiname(name);
    EXPECT_EQ(link.dateiname(), read);
  }
}

TEST(BaseAddress, is_that_of_external_and_auction_pages_alone)
{
  EXPECT_EQ(basislinkFor(2, "http://x.example/"), "http://x.example/");
  EXPECT_EQ(basislinkFor(4, "http://x.example/"), "http://x.example/");
  for (const int type : {0, 1, 3, 5})
    EXPECT_EQ(basislinkFor(type, "http://x.example/"), "") << type;
}

TEST(BaseAddress, gets_a_slash_and_a_scheme_where_they_are_missing)
{
  EXPECT_EQ(basislinkFor(2, "http://x.example"), "http://x.example/");
  EXPECT_EQ(basislinkFor(2, "x.example"), "http://x.example/");
  EXPECT_EQ(basislinkFor(2, "HTTP://X.example"), "HTTP://X.example/");
}

TEST(BaseAddress, knows_one_scheme_only)
{
  EXPECT_EQ(basislinkFor(2, "httpd.example"), "http://httpd.example/");
  EXPECT_EQ(basislinkFor(2, "https://x.example/"), "http://https://x.example/");
}

struct Neighbours : testing::Test {
  PageList pages{
      {"00", "Start", "", 1},   {"01", "Haus", "", 1},      {"0101", "Küche", "", 1}, {"010101", "Herd", "Herd.htm", 1},
      {"0102", "Bad", "", 1},   {"02", "Verborgen", "", 3}, {"0201", "Kind", "", 1},  {"03", "Garten", "garten.htm", 1},
      {"0301", "Teich", "", 1}, {"04", "Letzte", "", 1}};
  NavInfo info;

  Neighbours()
  {
    info.Homepage.setDateiname("*.htm");
    info.Homepage.Seitenid = "00";
    info.Homepage.Überschrift = "Homepage";
  }

  NavInfo& of(std::string_view id, int type = 1)
  {
    info.AktuelleSeitenId(id, type, pages, "http://x.example/");
    return info;
  }
};

TEST_F(Neighbours, follow_the_text_order_of_the_ids)
{
  EXPECT_EQ(of("01").nächste.Seitenid, "0101");
  EXPECT_EQ(of("0101").nächste.Seitenid, "010101");
  EXPECT_EQ(of("010101").nächste.Seitenid, "0102");
  EXPECT_EQ(of("0102").vorherige.Seitenid, "010101");
  EXPECT_EQ(of("04").vorherige.Seitenid, "0301");
}

TEST_F(Neighbours, bring_heading_and_file)
{
  of("0301");

  EXPECT_EQ(info.vorherige.href(), "garten.htm");
  EXPECT_EQ(info.vorherige.Überschrift, "Garten");
  EXPECT_EQ(info.übergeordnete.href(), "garten.htm");
  EXPECT_EQ(info.übergeordnete.Überschrift, "Garten");
  EXPECT_EQ(info.nächste.href(), "04.htm");
}

TEST_F(Neighbours, are_no_blind_pages)
{
  EXPECT_EQ(of("0102").nächste.Seitenid, "0201");
  EXPECT_EQ(of("0201").vorherige.Seitenid, "0102");
  EXPECT_EQ(of("0201").übergeordnete.href(), "index.htm");
  EXPECT_EQ(of("0201").übergeordnete.Überschrift, "");
}

TEST_F(Neighbours, of_a_blind_page_are_those_around_it)
{
  of("02", 3);

  EXPECT_EQ(info.vorherige.Seitenid, "0102");
  EXPECT_EQ(info.nächste.Seitenid, "0201");
}

TEST_F(Neighbours, of_the_homepage_are_the_next_page_alone)
{
  for (const auto* id : {"index", "00"}) {
    of(id);
    EXPECT_EQ(info.nächste.Seitenid, "01") << id;
    EXPECT_EQ(info.vorherige.href(), "index.htm") << id;
    EXPECT_EQ(info.vorherige.Überschrift, "") << id;
    EXPECT_EQ(info.übergeordnete.href(), "index.htm") << id;
    EXPECT_EQ(info.übergeordnete.Überschrift, "") << id;
  }
}

TEST_F(Neighbours, of_a_first_level_page_have_the_homepage_for_a_parent)
{
  of("04");

  EXPECT_EQ(info.übergeordnete.href(), info.Homepage.href());
  EXPECT_EQ(info.übergeordnete.Überschrift, "Homepage");
  EXPECT_EQ(info.übergeordnete.Seitenid, "00");
}

TEST_F(Neighbours, behind_the_last_page_are_none)
{
  of("01");
  of("04");

  EXPECT_EQ(info.nächste.Seitenid, "");
  EXPECT_EQ(info.nächste.Überschrift, "");
  EXPECT_EQ(info.nächste.href(), "index.htm");
}

TEST_F(Neighbours, of_external_pages_are_linked_through_the_base_address)
{
  of("0101", 2);

  EXPECT_EQ(info.vorherige.href(), "http://x.example/01.htm");
  EXPECT_EQ(info.übergeordnete.href(), "http://x.example/01.htm");
  EXPECT_EQ(info.nächste.href(), "http://x.example/herd.htm");
  EXPECT_EQ(info.Homepage.href(), "index.htm");
}

TEST_F(Neighbours, lose_the_base_address_on_the_next_normal_page)
{
  of("0101", 4);

  EXPECT_EQ(of("0102").vorherige.href(), "herd.htm");
  EXPECT_EQ(info.nächste.href(), "0201.htm");
}

TEST_F(Neighbours, that_are_none_keep_the_base_address_of_the_page_before)
{
  of("0301", 2);
  of("04", 1);

  EXPECT_EQ(info.nächste.href(), "http://x.example/index.htm");
  EXPECT_EQ(info.nächste.Überschrift, "");
  EXPECT_EQ(info.vorherige.href(), "0301.htm");
}

} // namespace
} // namespace mrd::templates
