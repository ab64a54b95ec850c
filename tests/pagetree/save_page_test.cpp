#include "page_desk.h"

#include <gmock/gmock.h>

namespace mrd::pagetree {
namespace {

using testing::ElementsAre;

std::string heading(const std::string& text) { return "<h3 id=\"ueberschrift\">" + text + "</h3>"; }

TEST(SavePage, stores_the_surface_and_the_fields_with_the_present_moment)
{
  PageDesk desk{{"00", "Start"}, {"01", "Haus", heading("Haus")}};
  desk.store.LoadPage("@01");
  desk.surface.setBodyInnerHtml(heading("Das Haus") + "<p>am Meer</p>");
  desk.fields.tbdateiname = "haus*.htm";
  desk.fields.tbScript = "<!-- kopf -->";
  desk.fields.opseitentyp = 2;
  desk.active.PageDirty = true;

  EXPECT_TRUE(desk.store.SavePage("@01"));

  EXPECT_EQ(desk.text("01", "html"), heading("Das Haus") + "<p>am Meer</p>");
  EXPECT_EQ(desk.text("01", "Überschrift"), "Das Haus");
  EXPECT_EQ(desk.text("01", "dateiname"), "haus*.htm");
  EXPECT_EQ(desk.text("01", "script"), "<!-- kopf -->");
  EXPECT_EQ(desk.project.column("01", "seitentyp-id").integer(), 2);
  EXPECT_EQ(desk.text("01", "changingdate"), "2003-04-17 09:05:06");
  EXPECT_FALSE(desk.active.PageDirty);
}

TEST(SavePage, rebuilds_the_tree_with_the_new_heading_after_its_open_nodes_were_stored)
{
  PageDesk desk{{"00", "Start", heading("Start")}};
  desk.store.LoadPage("@00");
  desk.surface.setBodyInnerHtml(heading("Willkommen"));
  desk.calls.clear();

  desk.store.SavePage("@00");

  EXPECT_THAT(desk.calls, ElementsAre("WriteExpandedNodes", "ZeigeStruktur"));
  EXPECT_EQ(desk.tree.label("@00"), "Willkommen");
  EXPECT_EQ(desk.project.setting("LastActivePage"), "00");
}

TEST(SavePage, does_nothing_for_an_empty_key)
{
  PageDesk desk{{"00", "Start", "alt"}};
  desk.surface.setBodyInnerHtml("neu");
  desk.active.PageDirty = true;

  desk.store.SavePage("");

  EXPECT_EQ(desk.text("00", "html"), "alt");
  EXPECT_TRUE(desk.active.PageDirty);
}

TEST(SavePage, knows_the_root_by_key_and_by_id)
{
  for (const auto* const root : {"00", "@00"}) {
    PageDesk desk{{"00", "Start"}};
    desk.surface.setBodyInnerHtml(heading("Neu"));

    desk.store.SavePage(root);

    EXPECT_EQ(desk.text("00", "Überschrift"), "Neu") << root;
    EXPECT_EQ(desk.project.ids().size(), 1u) << root;
  }
}

TEST(SavePage, adds_a_row_for_a_page_that_has_none)
{
  PageDesk desk{{"00", "Start"}};
  desk.surface.setBodyInnerHtml(heading("Bad"));

  desk.store.SavePage("@0102");

  EXPECT_EQ(desk.project.ids(), (std::vector<std::string>{"00", "0102"}));
  EXPECT_EQ(desk.text("0102", "Überschrift"), "Bad");
}

TEST(SavePage, of_an_id_that_two_rows_share_is_refused_and_leaves_both_unchanged)
{
  PageDesk desk{{"00", "Start"}, {"01", "eins", "<p>eins</p>"}, {"01", "zwei", "<p>zwei</p>"}};
  desk.surface.setBodyInnerHtml(heading("drei"));
  desk.active.PageDirty = true;
  desk.program.ui.expect(17);

  desk.store.SavePage("@01");

  auto rows = desk.project.db().openRecordset("SELECT * FROM Seite WHERE ID = '01' ORDER BY Überschrift");
  EXPECT_EQ(rows.recordCount(), 2u);
  EXPECT_EQ(rows.value("html").text(), "<p>eins</p>");
  rows.moveNext();
  EXPECT_EQ(rows.value("html").text(), "<p>zwei</p>");
  EXPECT_TRUE(desk.active.PageDirty);
}

TEST(SavePage, names_a_page_with_an_empty_heading_by_three_dashes_and_shows_them_in_the_tree)
{
  PageDesk desk{{"00", "Start"}};
  desk.surface.setBodyInnerHtml(heading("  "));

  desk.store.SavePage("@00");

  EXPECT_EQ(desk.text("00", "Überschrift"), "- - -");
  EXPECT_EQ(desk.tree.label("@00"), "- - -");
}

TEST(SavePage, does_not_fail_for_a_body_without_a_heading_or_one_that_only_mentions_it)
{
  for (const auto* const body : {"", "<p>Text</p>", "<p>die ueberschrift fehlt</p>", "<a name=\"ueberschrift\">x</a>"}) {
    PageDesk desk{{"00", "Start"}};
    desk.surface.setBodyInnerHtml(body);

    EXPECT_TRUE(desk.store.SavePage("@00")) << body;

    EXPECT_EQ(desk.text("00", "Überschrift"), "- - -") << body;
    EXPECT_EQ(desk.text("00", "html"), body);
  }
}

TEST(SavePage, takes_the_first_of_several_headings)
{
  PageDesk desk{{"00", "Start"}};
  desk.surface.setBodyInnerHtml(heading(" Eins ") + heading("Zwei"));

  desk.store.SavePage("@00");

  EXPECT_EQ(desk.text("00", "Überschrift"), "Eins");
}

TEST(SavePage, prefers_the_heading_that_the_cursor_stands_in)
{
  PageDesk desk{{"00", "Start"}};
  desk.surface.setBodyInnerHtml(heading("Eins") + heading("Zwei"));
  desk.surface.headingAroundCursor = " Zwei ";

  desk.store.SavePage("@00");

  EXPECT_EQ(desk.text("00", "Überschrift"), "Zwei");
  EXPECT_EQ(desk.surface.selectionsCleared, 1);
}

TEST(SavePage, cuts_the_heading_to_255_characters_and_counts_umlauts_as_one)
{
  PageDesk desk{{"00", "Start"}};
  std::string longHeading, cut;
  for (int i = 0; i < 300; ++i)
    longHeading += "ä";
  cut = longHeading.substr(0, std::string("ä").size() * 255);
  desk.surface.setBodyInnerHtml(heading(longHeading));

  desk.store.SavePage("@00");

  EXPECT_EQ(desk.text("00", "Überschrift"), cut);
}

TEST(SavePage, keeps_the_source_of_a_page_with_server_code_as_typed)
{
  for (const auto* const fileName : {"haus.php", "*.asp", "shop.php?lang=de"}) {
    PageDesk desk{{"00", "Start", heading("Start")}};
    desk.store.LoadPage("@00");
    desk.fields.tbhtml = "<?php if ($a < 1) echo '<P>'; ?>\n" + heading("Start");
    desk.fields.tbdateiname = fileName;

    desk.store.SavePage("@00");

    EXPECT_EQ(desk.text("00", "html"), "<?php if ($a < 1) echo '<P>'; ?>\n" + heading("Start")) << fileName;
  }
}

TEST(SavePage, with_the_source_on_top_stores_the_source_and_names_the_page_as_before)
{
  PageDesk desk{{"00", "Start", heading("Alt")}};
  desk.store.LoadPage("@00");
  desk.fields.tbhtml = heading("Neu");
  desk.fields.sourceOnTop = true;

  desk.store.SavePage("@00");

  EXPECT_EQ(desk.text("00", "html"), heading("Neu"));
  EXPECT_EQ(desk.text("00", "Überschrift"), "Alt");
}

TEST(SavePage, keeps_texts_with_apostrophes_and_foreign_letters)
{
  PageDesk desk{{"00", "Start"}};
  desk.surface.setBodyInnerHtml(heading("Oma's \"Küche\" ♥"));
  desk.fields.tbdateiname = "oma's*.htm";
  desk.fields.tbScript = "var a = 'b';";

  desk.store.SavePage("@00");

  EXPECT_EQ(desk.text("00", "Überschrift"), "Oma's \"Küche\" ♥");
  EXPECT_EQ(desk.text("00", "dateiname"), "oma's*.htm");
  EXPECT_EQ(desk.text("00", "script"), "var a = 'b';");
}

TEST(SavePage, takes_the_last_type_where_no_option_is_set)
{
  PageDesk desk{{"00", "Start"}};
  desk.fields.opseitentyp = 0;

  desk.store.SavePage("@00");

  EXPECT_EQ(desk.project.column("00", "seitentyp-id").integer(), 4);
}

TEST(SavePage, of_the_sites_head_adds_its_row_once_and_leaves_the_page_alone)
{
  PageDesk desk{{"00", "Start", heading("Start")}};
  desk.store.LoadPage("@00");
  desk.fields.headOnTop = true;

  desk.surface.setBodyInnerHtml("<b>Kopf</b>");
  desk.store.SavePage("@00");
  EXPECT_EQ(desk.project.setting("KopfHTML"), "<b>Kopf</b>");
  desk.surface.setBodyInnerHtml("<i>Kopf</i>");
  desk.store.SavePage("@00");

  EXPECT_EQ(desk.project.setting("KopfHTML"), "<i>Kopf</i>");
  EXPECT_EQ(desk.project.db().openRecordset("SELECT * FROM Einstellungen WHERE Einstellung = 'KopfHTML'").recordCount(), 1u);
  EXPECT_EQ(desk.text("00", "html"), heading("Start"));
}

TEST(SavePage, of_the_sites_head_takes_the_source_where_it_is_on_top)
{
  PageDesk desk{{"00", "Start"}};
  desk.fields.headOnTop = desk.fields.sourceOnTop = true;
  desk.surface.setBodyInnerHtml("<b>Kopf</b>");
  desk.fields.tbhtml = "<B>Kopf";

  desk.store.SavePage("@00");

  EXPECT_EQ(desk.project.setting("KopfHTML"), "<B>Kopf");
}

TEST(SavePage, that_fails_shows_one_box_and_leaves_the_page_dirty)
{
  PageDesk desk{{"00", "Start"}};
  desk.project.db().execute("DROP TABLE Seite");
  desk.active.PageDirty = true;
  desk.program.ui.expect(1, ") in Modul SavePage");

  EXPECT_FALSE(desk.store.SavePage("@00"));

  EXPECT_EQ(desk.program.ui.messages.size(), 1u);
  EXPECT_TRUE(desk.active.PageDirty);
}

} // namespace
} // namespace mrd::pagetree
