// What a run in a template layout brings, enters and says beside its pages.

#include "generator/template_run.h"
#include "generator/templates/template_site.h"

#include <gmock/gmock.h>

namespace mrd::generator {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

settings::ComboBox box(int index, std::string_view text)
{
  settings::ComboBox out;
  out.ListIndex = index;
  out.Text = text;
  return out;
}

TEST(LayoutName, of_the_first_entries_is_that_of_their_tree)
{
  EXPECT_EQ(layoutName(box(1, "Navigation in Laschen oben")), "tabnavigation");
  EXPECT_EQ(layoutName(box(2, "ohne alles")), "sparta");
  EXPECT_EQ(layoutName(box(3, "einfache Tabelle")), "einfachetabelle");
}

TEST(LayoutName, of_a_users_layout_is_its_file)
{
  EXPECT_EQ(layoutName(box(5, "Modern (modern.xml)")), "modern.xml");
  EXPECT_EQ(layoutName(box(6, "Grüne Wiese (grün.xml)")), "grün.xml");
  EXPECT_EQ(layoutName(box(7, " (x.xml)")), "x.xml");
}

TEST(LayoutName, of_a_heading_is_what_the_cut_leaves)
{
  EXPECT_EQ(layoutName(box(4, "-- benutzerdefinierte Layouts --")), "- benutzerdefinierte Layouts -");
}

TEST(LayoutName, of_a_short_text_is_empty)
{
  EXPECT_EQ(layoutName(box(5, "")), "");
  EXPECT_EQ(layoutName(box(5, "x")), "");
}

TEST(TemplateRun, enters_stylesheet_pictures_scripts_and_pages_in_this_order)
{
  TemplateSite site{{"00", "Start", ""}, {"01", "Haus", ""}};
  site.programDirectory.write("mrdshop.js", "shop");
  site.programDirectory.write("cookiefunctions.js", "cookies");
  site.useFragment("[mrd:Inhalt]");

  EXPECT_TRUE(site.run().finished);

  EXPECT_THAT(site.entered(),
              ElementsAre(EnteredFile{"mrdstyle.css", 1}, EnteredFile{"pix\\mrdbanner.gif", 2}, EnteredFile{"pix\\pixel.gif", 2},
                          EnteredFile{"pix\\nav_home.gif", 2}, EnteredFile{"pix\\nav_links.gif", 2},
                          EnteredFile{"pix\\nav_rechts.gif", 2}, EnteredFile{"pix\\nav_oben.gif", 2},
                          EnteredFile{"pix\\nav_top.gif", 2}, EnteredFile{"mrdnav.js", 1}, EnteredFile{"mrdshop.js", 1},
                          EnteredFile{"cookiefunctions.js", 1}, EnteredFile{"picturetransfer.js", 1}, EnteredFile{"index.htm", 1},
                          EnteredFile{"01.htm", 1}));
}

TEST(TemplateRun, names_each_picture_that_is_missing_and_goes_on)
{
  TemplateSite site{{"00", "Start", ""}};
  site.useFragment("[mrd:Inhalt]");
  for (const auto& name : kLayoutPictures) {
    std::filesystem::remove(site.programDirectory.native() / name);
    site.ui.expect(0, "Datei " + name + " nicht gefunden.");
  }

  EXPECT_TRUE(site.run().finished);

  EXPECT_THAT(site.entered(2), IsEmpty());
  EXPECT_TRUE(site.has("index.htm"));
}

TEST(TemplateRun, brings_pictures_from_the_help_where_the_program_directory_lacks_them)
{
  TemplateSite site{{"00", "Start", ""}};
  std::filesystem::remove(site.programDirectory.native() / "pixel.gif");
  site.programDirectory.write("hilfe/pix/pixel.gif", "help");
  site.programDirectory.write("hilfe/pix/nav_top.gif", "help");

  site.run();

  EXPECT_EQ(site.site.read("pix/pixel.gif"), "help");
  EXPECT_EQ(site.site.read("pix/nav_top.gif"), "nav_top.gif");
  EXPECT_THAT(site.entered(2), Contains("pix\\pixel.gif"));
}

TEST(TemplateRun, leaves_pictures_that_the_site_has)
{
  TemplateSite site{{"00", "Start", ""}};
  site.site.write("pix/pixel.gif", "mine");

  site.run();

  EXPECT_EQ(site.site.read("pix/pixel.gif"), "mine");
  EXPECT_THAT(site.entered(2), Contains("pix\\pixel.gif"));
}

TEST(TemplateRun, brings_the_picture_transfer_script_over_an_older_one)
{
  TemplateSite site{{"00", "Start", ""}};
  site.site.write("picturetransfer.js", "old");

  site.run();

  EXPECT_EQ(site.site.read("picturetransfer.js"), "transfer");
  EXPECT_THAT(site.entered(1), Contains("picturetransfer.js"));
}

TEST(TemplateRun, enters_the_sites_own_picture_transfer_script)
{
  TemplateSite site{{"00", "Start", ""}};
  std::filesystem::remove(site.programDirectory.native() / "picturetransfer.js");
  site.site.write("picturetransfer.js", "old");

  site.run();

  EXPECT_EQ(site.site.read("picturetransfer.js"), "old");
  EXPECT_THAT(site.entered(1), Contains("picturetransfer.js"));
}

TEST(TemplateRun, never_brings_the_popup_page)
{
  TemplateSite site{{"00", "Start", "popup"}};
  site.programDirectory.write("popupbild.htm", "popup");

  site.run();

  EXPECT_FALSE(site.has("popupbild.htm"));
  EXPECT_THAT(site.page("index.htm"), HasSubstr("popupbild.htm?"));
}

TEST(TemplateRun, makes_no_corners)
{
  TemplateSite site{{"00", "Start", ""}};
  site.fields.CheckRundeEcke = true;

  site.run();

  EXPECT_FALSE(site.has("pix/ecke-ol.jpg"));
}

TEST(TemplateRun, ends_its_closing_line_with_an_exclamation_mark)
{
  TemplateSite site{{"00", "Start", ""}, {"01", "Haus", ""}};

  const auto outcome = site.run();

  EXPECT_EQ(outcome.generated, 2u);
  EXPECT_EQ(site.labelSeite, "Fertig! Es wurden 2 Seiten generiert!");
  EXPECT_EQ(site.ui.statusTexts.back(), "");
}

TEST(TemplateRun, shows_its_start_and_its_pages_on_the_status_bar)
{
  TemplateSite site{{"00", "Start", ""}, {"01", "Haus", ""}};

  site.run();

  EXPECT_THAT(site.ui.statusTexts, Contains("Generator wird gestartet "));
  EXPECT_THAT(site.ui.statusTexts, Contains("Generator: 00: Start"));
  EXPECT_THAT(site.ui.statusTexts, Contains("Generator: 01: Haus"));
}

TEST(TemplateRun, without_pages_ends_normally)
{
  TemplateSite site{{"01", "Haus", ""}};
  site.project.db().execute("DELETE FROM Seite", {});

  const auto outcome = site.run();

  EXPECT_TRUE(outcome.finished);
  EXPECT_EQ(site.labelSeite, "Fertig! Es wurden 0 Seiten generiert!");
  EXPECT_TRUE(site.project.setting("lastgendate"));
}

TEST(TemplateRun, takes_pages_by_their_ids_and_keeps_the_first_file)
{
  TemplateSite site{{"02", "B", "", {}, 1, {}, "2024-05-03 00:00:00"},
                    {"01", "A", "", {}, 1, {}, "2024-05-01 00:00:00"},
                    {"0101", "AA", "", {}, 1, {}, "2024-05-02 00:00:00"}};

  const auto outcome = site.run();

  EXPECT_EQ(outcome.startdatei, "01.htm");
  auto pages = site.entered(1);
  EXPECT_THAT(std::vector(pages.end() - 3, pages.end()), ElementsAre("01.htm", "0101.htm", "02.htm"));
}

TEST(TemplateRun, of_new_pages_writes_the_homepage_and_what_changed)
{
  TemplateSite site{{"00", "Start", "", {}, 1, {}, "2020-01-01 00:00:00"},
                    {"01", "Alt", "", {}, 1, {}, "2020-01-01 00:00:00"},
                    {"02", "Neu", "", {}, 1, {}, "2024-05-03 00:00:00"}};
  site.project.setSetting("lastgendate", "01.05.2024 00:00:00");

  EXPECT_EQ(site.runNewOnly().generated, 2u);

  EXPECT_TRUE(site.has("index.htm"));
  EXPECT_FALSE(site.has("01.htm"));
  EXPECT_TRUE(site.has("02.htm"));
  EXPECT_THAT(site.entered(1), Not(Contains("01.htm")));
}

TEST(TemplateRun, of_new_pages_stops_at_a_date_that_is_none)
{
  TemplateSite site{{"00", "Start", ""}};
  site.project.setSetting("lastgendate", "gestern");
  site.ui.expect(1, "(13) in Modul cbHTML_Click");

  EXPECT_FALSE(site.runNewOnly().finished);
}

TEST(TemplateRun, as_a_preview_shows_the_page_and_moves_the_date)
{
  TemplateSite site{{"00", "Start", ""}, {"01", "Haus", ""}};
  site.project.setSetting("lastgendate", "01.05.2020 00:00:00");

  EXPECT_EQ(site.preview("01").generated, 1u);

  EXPECT_FALSE(site.has("index.htm"));
  EXPECT_THAT(site.shell.opened, ElementsAre(HasSubstr("01.htm")));
  EXPECT_EQ(site.project.setting("lastgendate"), "17.05.2024 08:30:15");
}

TEST(TemplateRun, uses_the_base_address_in_a_preview_too)
{
  TemplateSite site{{"00", "Start", ""}, {"01", "Fremd", "", {}, 2}};
  site.fields.tbbasisurl = "x.example";
  site.useFragment("[mrd:ID]");

  site.preview("01");

  EXPECT_THAT(site.shown("01.htm"), ElementsAre("http://x.example/01.htm"));
}

TEST(TemplateRun, without_an_export_directory_is_message_37)
{
  TemplateSite site{{"00", "Start", ""}};
  site.project.db().execute("INSERT INTO Dateien (pfad, dateiname, erweiterung, [dateityp-id]) VALUES ('p', 'alt', 'htm', 1)",
                            {});
  site.fields.tbpfadexport = site.site.file("nirgends");
  site.ui.expect(37);

  EXPECT_FALSE(site.run().finished);

  EXPECT_THAT(site.entered(1), ElementsAre("palt.htm"));
}

TEST(TemplateRun, puts_the_name_addition_before_files_and_not_into_menus)
{
  TemplateSite site{{"00", "Start", ""}, {"01", "Haus", "", "haus-*.htm"}, {"02", "Fremd", "", "http://y.example/", 2}};
  site.useLayout("<template ismenuitem='true'><code>[mrd:ID]</code><codeactive>[mrd:ID]</codeactive></template>");
  frmHTMLExport dialog({site.program, site.language, site.fields, site.clock, site.shell});
  ASSERT_TRUE(dialog.Form_Load(site.dbName));
  dialog.tbNamenszusatz = "neu_";

  const auto outcome = dialog.cbHTML_Click();

  EXPECT_EQ(outcome.generated, 3u);
  EXPECT_EQ(outcome.startdatei, "neu_index.htm");
  EXPECT_TRUE(site.has("neu_haus-01.htm"));
  EXPECT_THAT(site.shown("neu_haus-01.htm"), ElementsAre("index.htm", "haus-01.htm", "http://y.example/"));
}

TEST(TemplateRun, names_the_files_of_addresses_by_their_pages)
{
  TemplateSite site{{"00", "Start", ""}, {"01", "Fremd", "", "http://y.example/", 2}, {"0102", "Stern", "", "*.htm"}};
  site.useLayout("<template ismenuitem='true'><code>[mrd:ID]</code><codeactive>[mrd:ID]</codeactive></template>");

  site.run();

  EXPECT_TRUE(site.has("01.htm"));
  EXPECT_TRUE(site.has("0102.htm"));
  EXPECT_THAT(site.shown("index.htm"), ElementsAre("index.htm", "http://y.example/"));
}

TEST(TemplateRun, refuses_a_name_addition_that_leads_out)
{
  TemplateSite site{{"00", "Start", ""}};
  site.ui.expect(101);
  frmHTMLExport dialog({site.program, site.language, site.fields, site.clock, site.shell});
  ASSERT_TRUE(dialog.Form_Load(site.dbName));
  dialog.tbNamenszusatz = "../";

  const auto outcome = dialog.cbHTML_Click();

  EXPECT_EQ(outcome.refused, 1u);
  EXPECT_FALSE(std::filesystem::exists(site.site.native().parent_path() / "index.htm"));
}

TEST(TemplateRun, reads_columns_without_a_value_as_empty)
{
  TemplateSite site{{"00", std::nullopt}, {"01", std::nullopt, {}, {}, std::nullopt}, {"02", "B"}};
  site.useLayout(
      "<template ismenuitem='true'><code>-[mrd:ID][mrd:Überschrift]</code><codeactive>+[mrd:ID]</codeactive></template>"
      "<template><code>([mrd:Überschrift][mrd:Inhalt][mrd:script])</code></template>");

  EXPECT_EQ(site.run().generated, 3u);

  EXPECT_THAT(site.shown("01.htm"), ElementsAre("-index.htm", "-02.htmB", "()"));
}

TEST(ScriptBlock, holds_meta_tags_popup_script_and_scripts_in_this_order)
{
  TemplateSite site{{"00", "Start", "", {}, 1, "eigenes"}};
  site.useFragment("[mrd:Scripts]");
  site.fields.tbmeta = {"Alles", "Anna", "a, b"};

  site.run();

  const auto block = site.shown("index.htm");
  ASSERT_EQ(block.size(), 23u);
  EXPECT_THAT(std::vector(block.begin(), block.begin() + 8),
              ElementsAre("<meta name='description' content='Alles'>", "<meta name='author' content='Anna'>",
                          "<meta name='keywords' content='a, b'>", "<meta name='date' content='2024-05-17'>",
                          "<meta name='revisit' content='After 20 days'>", "<meta name='expires' content='NEVER'>",
                          "<meta name='imagetoolbar' content='no'>", "<meta name='robots' content='INDEX,FOLLOW'>"));
  EXPECT_THAT(block[8], HasSubstr("<meta name='generator' content='"));
  EXPECT_THAT(
      std::vector(block.begin() + 9, block.end()),
      ElementsAre(
          "<script language=JavaScript>", "function popupfenster(source, bu)", "     {", "    if (bu == null) { bu = \"\";};",
          "        bu = bu.replace(/ /g,\"%20\");", "        scu = source.replace(/ /g,\"%20\");",
          "        f1 = open('popupbild.htm?src=' + source + '&bu=' + bu,'fenster1','width=320,height=350,screenx=-0,"
          "screeny=-100,scrollbars=Yes,resizable=Yes,left=10,top=10');",
          "        f1.focus();", "     }", "</script>", "<script src='picturetransfer.js' TYPE='text/javascript'></script>",
          "<!-- Bl&auml;ttern-Typ:4 -->", "<!-- benutzerdef. Script -->", "eigenes"));
}

TEST(ScriptBlock, ends_with_the_pages_script)
{
  TemplateSite site{{"00", "Start", "", {}, 1, "eigenes"}, {"01", "Haus", ""}};
  site.useFragment("[mrd:Scripts]|");

  site.run();

  EXPECT_THAT(site.page("index.htm"), HasSubstr("<!-- benutzerdef. Script -->\r\neigenes\r\n|"));
  EXPECT_THAT(site.page("01.htm"), HasSubstr("<!-- benutzerdef. Script -->\r\n\r\n|"));
}

TEST(ScriptBlock, has_two_line_ends_behind_the_robots_tag)
{
  TemplateSite site{{"00", "Start", ""}};
  site.useFragment("[mrd:Scripts]");

  site.run();

  EXPECT_THAT(site.page("index.htm"), HasSubstr("content='INDEX,FOLLOW'>\r\n\r\n<meta name='generator'"));
}

TEST(ScriptBlock, leaves_out_meta_tags_without_a_text)
{
  TemplateSite site{{"00", "Start", ""}};
  site.useFragment("[mrd:Scripts]");
  site.fields.tbmeta = {"", "Anna", ""};

  site.run();

  EXPECT_EQ(site.shown("index.htm")[0], "<meta name='author' content='Anna'>");
  EXPECT_EQ(site.shown("index.htm")[1], "<meta name='date' content='2024-05-17'>");
}

TEST(ScriptBlock, loads_the_script_that_keeps_a_strip_in_view)
{
  TemplateSite site{{"00", "Start", ""}};
  site.useFragment("[mrd:Scripts]");
  for (int style = 0; style <= 4; ++style) {
    site.fields.ComboBlättern.selectIndex(style);
    site.run();

    const auto shown = site.shown("index.htm");
    if (style == 0 || style == 2)
      EXPECT_THAT(shown, Contains("<SCRIPT language='Javascript1.2' src='mrdnav.js' type='text/javascript'></SCRIPT>")) << style;
    else
      EXPECT_THAT(shown, Contains("<!-- Bl&auml;ttern-Typ:" + std::to_string(style) + " -->")) << style;
  }
}

TEST(SiteValues, fill_all_their_placeholders)
{
  TemplateSite site{{"00", "Start", ""}};
  site.useFragment("[mrd:Schriftart]|[mrd:Hintergrundfarbe]|[mrd:Hintergrundfarbeaussen]|[mrd:Textfarbe]|[mrd:Menütextfarbe]|"
                   "[mrd:Tabellenfarbe]|[mrd:Menüaktivfarbe]|[mrd:Hyperlinkfarbe]|[mrd:Inhaltbreite]|[mrd:Kopf]|"
                   "[mrd:Tabellenfarbeinaktiv]|[mrd:Titel]|[mrd:GenDat]");
  auto& fields = site.fields;
  fields.tbschriftart = "Tahoma";
  fields.tbhintergrund = "111111";
  fields.tbhintergrundaussen = "222222";
  fields.tbText = "333333";
  fields.tbmenütext = "444444";
  fields.Tbtabelle = "555555";
  fields.tbmenü = "666666";
  fields.tbHyperlink = "777777";
  fields.ComboInhalt.selectText("640 px");
  fields.tbRahmeninaktiv = "#888888";
  fields.tbtitel = "Titel";

  site.run();

  EXPECT_THAT(site.shown("index.htm"),
              ElementsAre("Tahoma|#111111|#222222|#333333|#444444|#555555|#666666|#777777|640 px|Kopf|#888888|Titel|17.05.2024"));
}

TEST(SiteValues, are_read_again_by_the_next_run)
{
  TemplateSite site{{"00", "Start", ""}};
  site.useFragment("[mrd:Textfarbe]");
  site.run();
  site.fields.tbText = "abcdef";

  site.run();

  EXPECT_THAT(site.shown("index.htm"), ElementsAre("#abcdef"));
}

TEST(SiteValues, reach_the_text_and_the_head_of_pages)
{
  TemplateSite site{{"00", "Start", "[mrd:Titel] [mrd:Schriftart] [mrd:GenDat]"}};
  site.project.setSetting("KopfHTML", "<b>[mrd:Schriftart]</b>[mrd:Titel][mrd:SeitenID]");
  site.fields.tbtitel = "Haus";
  site.useFragment("[mrd:Kopf]|[mrd:Inhalt]");

  site.run();

  EXPECT_THAT(site.shown("index.htm"), ElementsAre("<b>Arial</b>Haus00|Haus Arial 17.05.2024"));
}

TEST(SiteValues, never_hold_the_menu_width)
{
  TemplateSite site{{"00", "Start", "[mrd:Menübreite]"}};
  site.useFragment("[mrd:Menübreite] [mrd:Inhalt]");

  site.run();

  EXPECT_THAT(site.shown("index.htm"), ElementsAre("[mrd:Men&uuml;breite] [mrd:Men&uuml;breite]"));
}

TEST(SiteValues, that_hold_their_own_placeholder_end)
{
  TemplateSite site{{"00", "Start", "[mrd:Inhalt]"}};
  site.fields.tbtitel = "<[mrd:Titel][mrd:Titel]>";
  site.useFragment("[mrd:Inhalt]");

  EXPECT_TRUE(site.run().finished);

  EXPECT_THAT(site.shown("index.htm"), ElementsAre("[mrd:Inhalt]"));
}

TEST(Head, without_a_setting_is_the_makers)
{
  TemplateSite site{{"00", "Start", ""}};
  site.project.db().execute("DELETE FROM Einstellungen WHERE Einstellung = 'KopfHTML'", {});
  site.useFragment("[mrd:Kopf]");

  site.run();

  EXPECT_THAT(site.page("index.htm"), HasSubstr("made with Mirandel"));
  EXPECT_THAT(site.page("index.htm"), HasSubstr("Arial"));
}

} // namespace
} // namespace mrd::generator
