// How trees become pages.

#include "generator/templates/template.h"

#include "base/errors.h"
#include "generator/site_run.h"
#include "generator/templates/page_list.h"

#include <gmock/gmock.h>

namespace mrd::templates {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string crlf(std::string_view text) { return generator::lines(text); }

TEST(HTMLTemplates, keeps_the_order_and_finds_by_position_and_key)
{
  HTMLTemplates nodes;
  auto first = std::make_unique<Template>();
  const auto* address = first.get();

  EXPECT_EQ(&nodes.Add(std::move(first), "eins"), address);
  nodes.Add(std::make_unique<Template>()).Code = "zwei";

  EXPECT_EQ(nodes.Count(), 2u);
  EXPECT_EQ(&nodes.Item(1), address);
  EXPECT_EQ(&nodes.Item("eins"), address);
  EXPECT_EQ(nodes.Item(2).Code, "zwei");
}

TEST(HTMLTemplates, makes_nodes_of_their_values)
{
  HTMLTemplates nodes;
  const auto& node = nodes.AddNew(true, "Code", "Active", "Name", "k");

  EXPECT_EQ(&node, &nodes.Item("k"));
  EXPECT_TRUE(node.isMenuitem);
  EXPECT_EQ(node.Code, "Code");
  EXPECT_EQ(node.CodeActive, "Active");
  EXPECT_EQ(node.TemplateName, "Name");
}

TEST(HTMLTemplates, forgets_the_key_of_a_removed_node)
{
  HTMLTemplates nodes;
  nodes.AddNew(false, "a", "", "", "eins");
  nodes.AddNew(false, "b", "", "", "zwei");

  nodes.Remove(1);

  EXPECT_EQ(nodes.Count(), 1u);
  EXPECT_EQ(nodes.Item("zwei").Code, "b");
  EXPECT_THROW(nodes.Item("eins"), base::Error);
  EXPECT_THROW(nodes.Item(2), base::Error);
  EXPECT_THROW(nodes.Item(0), base::Error);
  EXPECT_THROW(nodes.Remove(2), base::Error);
}

TEST(Template, is_empty_at_first)
{
  const Template node;

  EXPECT_FALSE(node.isMenuitem);
  EXPECT_FALSE(node.isActiveMenuitem);
  EXPECT_FALSE(node.isShowChildren);
  EXPECT_FALSE(node.hasChildren());
  EXPECT_EQ(node.TemplateName + node.Code + node.CodeActive, "");
  EXPECT_EQ(node.Blätterntyp, 0);
  EXPECT_EQ(node.SeitenAttribute.Count(), 0u);
}

TEST(Template, makes_its_spare_node_once)
{
  Template node;
  node.spare().Code = "x";

  EXPECT_EQ(node.spare().Code, "x");
  EXPECT_FALSE(node.hasChildren());
}

TEST(PlainNode, writes_its_code_its_children_and_two_line_ends)
{
  Rendering site{{"00", "Start", "", 1}};
  Template node;
  node.Code = "a";
  addNode(node, "", "b");
  addNode(node, "", "");

  EXPECT_EQ(site.of(node, "00"), crlf("a¶b¶¶¶¶¶¶¶¶"));
}

TEST(PlainNode, never_shows_its_active_code)
{
  Rendering site{{"00", "Start", "", 1}};
  addNode(site.root, "A S", "a", "aktiv");

  EXPECT_THAT(site.lines("00"), ElementsAre("a"));
}

TEST(PlainNode, closes_no_placeholders)
{
  Rendering site{{"00", "Start", "", 1}};
  Template node;
  node.Code = "[mrd:Inhalt][mrd:Titel][mrd:ID]";
  node.SeitenAttribute.Add("[mrd:Titel]", "Haus");

  EXPECT_EQ(site.of(node, "00", "x"), crlf("[mrd:Inhalt][mrd:Titel][mrd:ID]¶¶¶"));
  EXPECT_THAT(site.pictureTexts, IsEmpty());
}

TEST(MenuNode, writes_a_row_for_each_page_of_the_first_level_the_homepage_first)
{
  Rendering site{{"00", "Start", "", 1}, {"01", "Haus", "", 1}, {"0101", "Küche", "", 1}, {"02", "Garten", "", 1}};
  Template node;
  node.isMenuitem = true;
  node.Code = "[mrd:ID] [mrd:Überschrift]";
  node.CodeActive = "*[mrd:ID] [mrd:Überschrift]";

  EXPECT_EQ(site.of(node, "02"), crlf("index.htm Start¶01.htm Haus¶*02.htm Garten¶¶¶"));
}

TEST(MenuNode, takes_ids_of_exactly_two_characters_for_the_first_level)
{
  Rendering site{
      {"0", "Eins", "", 1}, {"00", "Start", "", 1}, {"001", "Drei", "", 1}, {"01", "Haus", "", 1}, {"AB", "Buchstaben", "", 1}};
  addNode(site.root, "M", "[mrd:Überschrift]");

  EXPECT_THAT(site.lines("001"), ElementsAre("Start", "Haus", "Buchstaben"));
}

TEST(MenuNode, leaves_blind_pages_out)
{
  Rendering site{{"00", "Start", "", 1}, {"01", "Blind", "", 3}, {"02", "Garten", "", 1}};
  addNode(site.root, "M", "[mrd:Überschrift]");

  EXPECT_THAT(site.lines("01"), ElementsAre("Start", "Garten"));
}

TEST(MenuNode, lowers_file_names_of_its_rows)
{
  Rendering site{{"00", "Start", "START.HTM", 1},
                 {"01", "Haus", "Über-*.HTM", 1},
                 {"02", "Fest", "Fest.htm", 1},
                 {"03", "Auch", "Fest.htm", 1}};
  addNode(site.root, "M", "[mrd:ID]", "[mrd:ID]");

  EXPECT_THAT(site.lines("00"), ElementsAre("start.htm", "über-01.htm", "fest.htm", "fest.htm"));
}

TEST(MenuNode, keeps_html_in_headings)
{
  Rendering site{{"00", "<b>Start</b> & \"mehr\"", "", 1}};
  addNode(site.root, "M", "", "[mrd:Überschrift]");

  EXPECT_THAT(site.lines("00"), ElementsAre("<b>Start</b> & \"mehr\""));
}

TEST(MenuNode, is_active_for_ancestors_only_where_it_says_so)
{
  Rendering site{{"00", "Start", "", 1}, {"01", "Haus", "", 1}, {"0102", "Bad", "", 1}, {"02", "Garten", "", 1}};
  addNode(site.root, "M", "-[mrd:Überschrift]", "+[mrd:Überschrift]");
  addNode(site.root, "M A", "-[mrd:Überschrift]", "+[mrd:Überschrift]");

  EXPECT_THAT(site.lines("0102"), ElementsAre("-Start", "-Haus", "-Garten", "-Start", "+Haus", "-Garten"));
}

TEST(MenuNode, without_code_for_a_row_writes_an_empty_line)
{
  Rendering site{{"00", "Start", "", 1}, {"01", "Haus", "", 1}};
  Template node;
  node.isMenuitem = true;
  node.CodeActive = "x";

  EXPECT_EQ(site.of(node, "01"), crlf("¶x¶¶¶"));
}

TEST(MenuNode, without_rows_writes_two_line_ends)
{
  Rendering site{{"00", "Start", "", 1}, {"01", "Haus", "", 1}};
  auto& walk = addNode(site.root, "M", "");
  addNode(walk, "M", "[mrd:Überschrift]");

  // The root's code, the rows of the walk with the two line ends of the child, of the walk, of the root.
  EXPECT_EQ(site.of(site.root, "01"), crlf("¶"
                                           "¶¶"
                                           "¶¶"
                                           "¶¶"
                                           "¶¶"));
}

struct DeepSite : testing::Test {
  Rendering site{{"00", "S", "", 1},       {"01", "A", "", 1},    {"0101", "AA", "", 1},
                 {"010101", "AAA", "", 1}, {"0102", "AB", "", 1}, {"02", "B", "", 1},
                 {"0201", "BA", "", 1},    {"0202", "BB", "", 1}, {"020201", "BBA", "", 1}};
};

TEST_F(DeepSite, opens_on_the_way_to_the_current_page)
{
  auto& level1 = addNode(site.root, "M", "1 [mrd:Überschrift]", "1* [mrd:Überschrift]");
  auto& level2 = addNode(level1, "M", "2 [mrd:Überschrift]", "2* [mrd:Überschrift]");
  addNode(level2, "M", "3 [mrd:Überschrift]", "3* [mrd:Überschrift]");

  EXPECT_THAT(site.lines("0202"), ElementsAre("1 S", "1 A", "1 B", "2 BA", "2* BB", "3 BBA"));
  EXPECT_THAT(site.lines("01"), ElementsAre("1 S", "1* A", "2 AA", "2 AB", "1 B"));
}

TEST_F(DeepSite, opens_everywhere_where_children_are_always_shown)
{
  auto& level1 = addNode(site.root, "M S", "1 [mrd:Überschrift]", "1* [mrd:Überschrift]");
  auto& level2 = addNode(level1, "M", "2 [mrd:Überschrift]", "2* [mrd:Überschrift]");
  addNode(level2, "M", "3 [mrd:Überschrift]", "3* [mrd:Überschrift]");

  EXPECT_THAT(site.lines("0101"), ElementsAre("1 S", "1 A", "2* AA", "3 AAA", "2 AB", "1 B", "2 BA", "2 BB"));
}

TEST_F(DeepSite, is_reached_through_menu_nodes_without_code)
{
  auto& level1 = addNode(site.root, "M", "");
  auto& level2 = addNode(level1, "M", "");
  addNode(level2, "M", "3 [mrd:Überschrift]", "3* [mrd:Überschrift]");

  EXPECT_THAT(site.lines("020201"), ElementsAre("3* BBA"));
  EXPECT_THAT(site.lines("0202"), ElementsAre("3 BBA"));
  EXPECT_THAT(site.lines("02"), IsEmpty());
}

TEST_F(DeepSite, writes_plain_children_once_for_each_open_row)
{
  auto& level1 = addNode(site.root, "M S", "");
  addNode(level1, "", "<tr>");
  addNode(level1, "M", "[mrd:Überschrift]", "[mrd:Überschrift]");
  addNode(level1, "", "</tr>");

  EXPECT_THAT(site.lines("01"), ElementsAre("<tr>", "</tr>", "<tr>", "AA", "AB", "</tr>", "<tr>", "BA", "BB", "</tr>"));
}

TEST_F(DeepSite, writes_only_plain_children_below_the_homepage)
{
  auto& level1 = addNode(site.root, "M", "1 [mrd:Überschrift]", "1* [mrd:Überschrift]");
  addNode(level1, "", "plain");
  addNode(level1, "M", "2 [mrd:Überschrift]", "2* [mrd:Überschrift]");

  EXPECT_THAT(site.lines("00"), ElementsAre("1* S", "plain", "1 A", "1 B"));
}

TEST_F(DeepSite, walks_the_rows_level_below_plain_children_too)
{
  auto& level1 = addNode(site.root, "M", "1 [mrd:Überschrift]");
  auto& plain = addNode(level1, "", "plain");
  addNode(plain, "M", "2 [mrd:Überschrift]", "2* [mrd:Überschrift]");

  EXPECT_THAT(site.lines("0101"), ElementsAre("1 S", "1 A", "plain", "2* AA", "2 AB", "1 B"));
}

TEST_F(DeepSite, fills_placeholders_between_rows_with_the_next_rows_values)
{
  auto& level1 = addNode(site.root, "M S", "1 [mrd:Überschrift]", "1 [mrd:Überschrift]");
  addNode(level1, "", "behind: [mrd:Überschrift] [mrd:ID]");

  EXPECT_THAT(site.lines("0101"),
              ElementsAre("1 S", "behind: A 01.htm", "1 A", "behind: B 02.htm", "1 B", "behind: AA 0101.htm"));
}

TEST(OpenPath, is_a_test_of_the_ids_beginning)
{
  Rendering site{{"00", "S", "", 1}, {"01", "A", "", 1}, {"0102", "AB", "", 1}, {"010203", "ABC", "", 1}, {"0103", "AC", "", 1}};
  auto& level1 = addNode(site.root, "M A", "-[mrd:Überschrift]", "+[mrd:Überschrift]");
  addNode(level1, "M A", "-[mrd:Überschrift]", "+[mrd:Überschrift]");

  EXPECT_THAT(site.lines("010203"), ElementsAre("-S", "+A", "+AB", "-AC"));
}

TEST(Root, gives_placeholders_the_values_of_the_page)
{
  Rendering site{{"00", "Start", "", 1}, {"0102", "Bad", "bad-*.htm", 1}};
  addNode(site.root, "", "[mrd:Überschrift]|[mrd:SeitenID]|[mrd:ID]|[mrd:Inhalt]|[mrd:script]|[mrd:Dateiname]");

  EXPECT_THAT(site.lines("0102", "html", "script"), ElementsAre("Bad|0102|bad-0102.htm|html|script|[mrd:Dateiname]"));
}

TEST(Root, knows_the_homepage_by_its_id_and_links_it_as_index)
{
  Rendering site{{"00", "Start", "", 1}};
  addNode(site.root, "", "[mrd:SeitenID] [mrd:ID]");

  EXPECT_THAT(site.lines("00"), ElementsAre("00 index.htm"));
}

TEST(Root, fills_placeholders_in_a_pages_own_text)
{
  Rendering site{{"00", "Start", "", 1}};
  site.root.SeitenAttribute.Add("[mrd:Titel]", "Haus");
  addNode(site.root, "", "[mrd:Inhalt]");

  EXPECT_THAT(site.lines("00", "[mrd:Titel] [mrd:ID] [mrd:script] [mrd:Überschrift] [mrd:SeitenID]", "js"),
              ElementsAre("Haus index.htm js [mrd:Überschrift] [mrd:SeitenID]"));
}

TEST(Root, ends_with_a_heading_or_text_that_holds_its_own_placeholder)
{
  Rendering site{{"00", "[mrd:Überschrift]!", "", 1}};
  addNode(site.root, "", "[mrd:Überschrift] [mrd:Inhalt]");

  EXPECT_THAT(site.lines("00", "<[mrd:Inhalt][mrd:Inhalt]>"), ElementsAre("[mrd:Überschrift]! <[mrd:Inhalt][mrd:Inhalt]>"));
}

TEST(Root, ends_with_rows_whose_headings_hold_their_own_placeholder)
{
  Rendering site{{"00", "<[mrd:Überschrift]>", "", 1}, {"01", "<[mrd:Überschrift]>", "", 1}};
  addNode(site.root, "M", "-[mrd:Überschrift]", "+[mrd:Überschrift]");

  EXPECT_THAT(site.lines("00"), ElementsAre(testing::StartsWith("+<"), testing::StartsWith("-<")));
}

TEST(Root, never_grows_beyond_reason_by_headings_that_hold_their_own_placeholder)
{
  Rendering site{{"00", "Start", "", 1}};
  for (int number = 10; number < 30; ++number)
    site.pages.add({std::to_string(number), "[mrd:Überschrift][mrd:Überschrift]", "", 1});
  addNode(site.root, "M", "[mrd:Überschrift]");

  EXPECT_LT(site.of(site.root, "00").size(), 5'000'000u);
}

TEST(Root, never_grows_beyond_reason_by_headings_that_hold_the_strips_placeholder)
{
  Rendering site{{"00", "Start", "", 1}};
  for (int number = 10; number < 24; ++number)
    site.pages.add({std::to_string(number), "[mrd:BlätternNavigation]", "", 1});
  addNode(site.root, "M", "[mrd:Überschrift]");

  EXPECT_LT(site.of(site.root, "00").size(), 50'000'000u);
}

TEST(Root, links_the_page_where_its_heading_says_so)
{
  Rendering site{{"00", "Start", "", 1}, {"01", "siehe [mrd:ID]", "", 1}};
  addNode(site.root, "", "[mrd:Überschrift]");

  EXPECT_THAT(site.lines("01"), ElementsAre("siehe 01.htm"));
}

TEST(Root, has_pictures_rewritten_once_between_its_two_passes)
{
  Rendering site{{"00", "Start", "", 1}};
  site.root.SeitenAttribute.Add("[mrd:Titel]", "Haus");
  addNode(site.root, "", "[mrd:Titel] [mrd:Inhalt]");

  site.of(site.root, "00", "[mrd:Titel]");

  EXPECT_THAT(site.pictureTexts, ElementsAre(crlf("¶Haus [mrd:Titel]¶¶¶")));
  EXPECT_THAT(site.pictureLinks, ElementsAre(""));
}

TEST(Root, has_pictures_rewritten_with_the_base_address_of_external_pages)
{
  Rendering site{{"00", "Start", "", 1}, {"01", "Fremd", "", 2}, {"02", "Auktion", "", 4}};
  site.tbbasisurl = "x.example";

  site.of(site.root, "01");
  site.of(site.root, "02");
  site.of(site.root, "00");

  EXPECT_THAT(site.pictureLinks, ElementsAre("http://x.example/", "http://x.example/", ""));
}

TEST(Root, shows_the_strip_of_its_style)
{
  Rendering site{{"00", "Start", "", 1}, {"01", "Haus", "", 1}};
  site.root.Blätterntyp = 3;
  addNode(site.root, "", "[mrd:BlätternNavigation]");

  EXPECT_THAT(site.lines("00"), ElementsAre(testing::HasSubstr("nav_rechts.gif' alt='Haus'")));

  site.root.Blätterntyp = 4;
  EXPECT_THAT(site.lines("00"), IsEmpty());
}

TEST(Root, keeps_links_of_the_strip_from_page_to_page)
{
  Rendering site{{"00", "Start", "", 1}, {"01", "Fremd", "", 2}, {"02", "Letzte", "", 1}};
  site.root.Blätterntyp = 1;
  addNode(site.root, "", "[mrd:BlätternNavigation]");

  site.of(site.root, "01");

  EXPECT_THAT(site.lines("02"), ElementsAre(testing::HasSubstr("href='http://x.example/index.htm'> --></a>")));
}

TEST(Strip, in_a_menu_row_is_that_of_the_rows_page_in_the_first_style)
{
  Rendering site{{"00", "Start", "", 1}, {"01", "Haus", "", 1}, {"02", "Garten", "", 1}};
  site.root.Blätterntyp = 4;
  addNode(site.root, "M", "", "[mrd:BlätternNavigation]");

  const auto strips = site.lines("01");

  ASSERT_THAT(strips, testing::SizeIs(1));
  EXPECT_THAT(strips[0], testing::HasSubstr("position:absolute;'><table"));
  EXPECT_THAT(strips[0], testing::HasSubstr("href='02.htm'>Garten --></a>"));
}

struct ForeignSite : testing::Test {
  Rendering site{{"00", "S", "", 1},    {"01", "A", "", 1}, {"0101", "AA", "http://Y.example/", 2},
                 {"0102", "AB", "", 4}, {"02", "B", "", 2}, {"0201", "BA", "", 1}};

  ForeignSite()
  {
    auto& level1 = addNode(site.root, "M S", "[mrd:ID]", "[mrd:ID]");
    addNode(level1, "M", "[mrd:Kompletterlink]|[mrd:ID]", "[mrd:Kompletterlink]|[mrd:ID]");
  }
};

TEST_F(ForeignSite, links_rows_by_the_type_of_their_parent)
{
  EXPECT_THAT(site.lines("00"), ElementsAre("index.htm", "01.htm", "|http://y.example/", "|0102.htm", "02.htm",
                                            "http://x.example/|http://x.example/0201.htm"));
}

TEST_F(ForeignSite, links_first_level_rows_by_the_type_of_the_current_page)
{
  EXPECT_THAT(site.lines("02"),
              ElementsAre("http://x.example/index.htm", "http://x.example/01.htm", "|http://y.example/", "|0102.htm",
                          "http://x.example/02.htm", "http://x.example/|http://x.example/0201.htm"));
}

TEST_F(ForeignSite, links_addresses_without_the_base_address)
{
  Rendering other{{"00", "S", "", 1}, {"01", "A", "HTTP://Y.example/*", 2}};
  addNode(other.root, "M", "[mrd:ID]", "[mrd:ID]");

  EXPECT_THAT(other.lines("01"), ElementsAre("http://x.example/index.htm", "http://y.example/01"));
}

TEST(Kompletterlink, of_the_page_reaches_its_scripts)
{
  Rendering site{{"00", "S", "", 1}, {"01", "A", "", 2}};
  site.root.SeitenAttribute.Add("[mrd:Scripts]", "[mrd:Kompletterlink]x.js");
  addNode(site.root, "", "[mrd:Scripts]");

  EXPECT_THAT(site.lines("00"), ElementsAre("x.js"));
  EXPECT_THAT(site.lines("01"), ElementsAre("http://x.example/x.js"));
}

TEST(Kompletterlink, that_comes_in_last_stays)
{
  Rendering site{{"00", "S", "", 1}};
  site.root.SeitenAttribute.Add("[mrd:Kopf]", "[mrd:Kompletterlink]x");
  addNode(site.root, "", "[mrd:Inhalt]");

  EXPECT_THAT(site.lines("00", "[mrd:Kopf]"), ElementsAre("[mrd:Kompletterlink]x"));
}

TEST(Root, below_a_menu_row_closes_with_the_values_of_its_row)
{
  Rendering site{{"00", "S", "", 1}, {"01", "A", "", 1}};
  site.pages.html = "row's text";
  auto& level1 = addNode(site.root, "M", "");
  addNode(level1, "", "[mrd:Inhalt] [mrd:Überschrift] [mrd:SeitenID]", "", "root");
  addNode(site.root, "", "[mrd:Inhalt]");

  EXPECT_THAT(site.lines("01", "page's text"), ElementsAre("row's text A 01", "page's text"));
}

} // namespace
} // namespace mrd::templates
