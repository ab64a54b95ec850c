#include "page_desk.h"

#include <gmock/gmock.h>

namespace mrd::pagetree {
namespace {

using testing::ElementsAre;

const std::string kBody = "<h3 id=\"ueberschrift\">Haus</h3>\r\n<p>Text</p>";

TEST(LoadPage, shows_a_stored_page_in_the_surface_and_the_fields)
{
  PageDesk desk{
      {"00", "Start"},
      {.id = "01", .heading = " Haus ", .html = kBody, .dateiname = "haus*.html", .type = 3, .script = "<script></script>"}};
  desk.fields.TBEbayArtikelnummer = "4711";

  desk.store.LoadPage("@01");

  EXPECT_EQ(desk.surface.bodyInnerHtml(), kBody);
  EXPECT_EQ(desk.fields.tbhtml, kBody);
  EXPECT_EQ(desk.fields.tbdateiname, "haus*.html");
  EXPECT_EQ(desk.fields.tbScript, "<script></script>");
  EXPECT_EQ(desk.fields.opseitentyp, 3);
  EXPECT_EQ(desk.fields.caption, "Mirandel: Haus");
  EXPECT_EQ(desk.fields.statusPanel, "ID:@01");
  EXPECT_EQ(desk.program.ui.statusTexts.back(), "ID:@01");
  EXPECT_EQ(desk.fields.TBEbayArtikelnummer, "");
}

TEST(LoadPage, makes_the_page_the_current_one_in_window_tree_and_project)
{
  PageDesk desk{{"00", "Start"}, {"01", "Haus", kBody}};
  desk.active.PageDirty = true;

  desk.store.LoadPage("@01");

  EXPECT_EQ(desk.active.LastActivePage, "@01");
  EXPECT_EQ(desk.tree.selected(), "@01");
  EXPECT_EQ(desk.project.setting("LastActivePage"), "01");
  EXPECT_EQ(desk.active.ActiveNodeText, "Haus");
  EXPECT_FALSE(desk.active.PageDirty);
}

TEST(LoadPage, takes_the_id_that_is_given_in_place_of_the_nodes)
{
  PageDesk desk{{"00", "Start"}, {"01", "Haus", kBody}, {"02", "Garten", "<p id=\"ueberschrift\">Garten</p>"}};

  desk.store.LoadPage("@01", "02");

  EXPECT_EQ(desk.active.LastActivePage, "@02");
  EXPECT_EQ(desk.surface.textOfElement("ueberschrift"), "Garten");
}

TEST(LoadPage, gives_a_page_of_nulls_its_defaults)
{
  PageDesk desk{{.id = "00", .heading = "Start", .html = {}, .dateiname = {}, .type = {}, .script = {}}};
  desk.fields.opseitentyp = 4;

  desk.store.LoadPage("@00");

  EXPECT_EQ(desk.fields.tbdateiname, "*.htm");
  EXPECT_EQ(desk.fields.tbScript, " ");
  EXPECT_EQ(desk.fields.opseitentyp, 1);
  EXPECT_EQ(
      desk.surface.bodyInnerHtml(),
      "<h3 align=\"center\" style=\"font-size:16pt;\" id=\"ueberschrift\">Start</h3>\r\n<div align=\"center\">&nbsp;</div>");
  EXPECT_EQ(desk.fields.tbhtml, desk.surface.bodyInnerHtml());
  EXPECT_THAT(desk.calls, ElementsAre("farbenaktualisieren", "farbenaktualisieren"));
}

TEST(LoadPage, gives_a_body_that_lost_its_heading_one_with_the_trees_label)
{
  PageDesk desk{{"00", "Start"}, {"01", "Küche & Bad", "<p>Text</p>"}};

  desk.store.LoadPage("@01");

  EXPECT_EQ(desk.fields.tbhtml, "<h3 style=\"font-size:16pt;\" id=\"ueberschrift\">Küche & Bad</h3>\r\n<div></div><p>Text</p>");
  EXPECT_EQ(desk.surface.textOfElement("ueberschrift"), "Küche & Bad");
  EXPECT_THAT(desk.calls, ElementsAre("farbenaktualisieren"));
}

TEST(LoadPage, gives_an_empty_body_a_heading_too)
{
  PageDesk desk{{"00", "Start", ""}};

  desk.store.LoadPage("@00");

  EXPECT_EQ(desk.fields.tbhtml, "<h3 style=\"font-size:16pt;\" id=\"ueberschrift\">Start</h3>\r\n<div></div>");
}

TEST(LoadPage, leaves_a_body_alone_that_only_mentions_the_headings_id)
{
  PageDesk desk{{"00", "Start", "<p>die ueberschrift fehlt</p>"}};

  desk.store.LoadPage("@00");

  EXPECT_EQ(desk.fields.tbhtml, "<p>die ueberschrift fehlt</p>");
}

TEST(LoadPage, of_a_page_without_a_row_begins_a_new_one)
{
  PageDesk desk{{"00", "Start"}};
  desk.tree.addNode("@00", "@01", "neue Seite:@01", 1);
  desk.fields.opseitentyp = 2;
  desk.fields.tbdateiname = "alt.htm";

  desk.store.LoadPage("@01");

  EXPECT_EQ(desk.fields.caption, "Mirandel: Neue Seite");
  EXPECT_EQ(desk.fields.tbdateiname, "*.htm");
  EXPECT_EQ(desk.fields.opseitentyp, 2);
  EXPECT_EQ(desk.surface.bodyInnerHtml(),
            "<base fontsize=\"2\"><h3 align=\"center\" style=\"font-size:16pt;\" id=\"ueberschrift\">"
            "neue Seite:@01</h3>\r\n<div align=\"center\">&nbsp;</div>");
  EXPECT_EQ(desk.fields.tbhtml, desk.surface.bodyInnerHtml());
  EXPECT_EQ(desk.project.ids(), std::vector<std::string>{"00"});
}

TEST(LoadPage, waits_until_the_surface_has_loaded_its_document)
{
  PageDesk desk{{"00", "Start"}};
  desk.surface.busyFor = 3;

  desk.store.LoadPage("@00");

  EXPECT_EQ(desk.surface.busyFor, 0);
  EXPECT_GE(desk.program.ui.eventPumps, 3);
}

TEST(LoadPage, of_an_id_with_an_apostrophe_or_a_pattern_finds_no_other_row)
{
  PageDesk desk{{"00", "Start", "<p id=\"ueberschrift\">Start</p>"}};
  for (const auto* const id : {"' or '1'='1", "*", "0?"}) {
    desk.tree.addNode("@00", keyOf(id), "fremd", 1);

    desk.store.LoadPage(keyOf(id));

    EXPECT_EQ(desk.fields.caption, "Mirandel: Neue Seite") << id;
  }
}

TEST(LoadPage, of_a_node_that_the_tree_lacks_reaches_the_caller)
{
  PageDesk desk{{"00", "Start"}};

  EXPECT_ANY_THROW(desk.store.LoadPage("@09"));
}

} // namespace
} // namespace mrd::pagetree
