// The stylesheet of template layouts, and umlauts of finished pages.

#include "generator/template_run.h"
#include "generator/templates/template_site.h"

#include <gmock/gmock.h>

namespace mrd::generator {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

TEST(Umlauts, become_entities)
{
  EXPECT_EQ(wandelUmlaute("äÄöÖüÜß"), "&auml;&Auml;&ouml;&Ouml;&uuml;&Uuml;&szlig;");
  EXPECT_EQ(wandelUmlaute("Straße, Öl & Käse"), "Stra&szlig;e, &Ouml;l & K&auml;se");
}

TEST(Umlauts, are_the_german_ones_alone)
{
  EXPECT_EQ(wandelUmlaute("é€♥ẞ&auml;"), "é€♥ẞ&auml;");
  EXPECT_EQ(wandelUmlaute(""), "");
}

TEST(Umlauts, become_entities_in_scripts_and_attributes_too)
{
  EXPECT_EQ(wandelUmlaute("<script>alert('Größe')</script><img alt='Übersicht' src='pix/ö.gif'>"),
            "<script>alert('Gr&ouml;&szlig;e')</script><img alt='&Uuml;bersicht' src='pix/&ouml;.gif'>");
}

TEST(Umlauts, of_a_script_of_a_page_become_entities)
{
  TemplateSite site{{"00", "Start", "", {}, 1, "var t = 'Maß';"}};
  site.useFragment("[mrd:Scripts]");

  site.run();

  EXPECT_THAT(site.page("index.htm"), HasSubstr("var t = 'Ma&szlig;';"));
}

TEST(Stylesheet, takes_the_values_of_the_site)
{
  TemplateSite site{{"00", "Start", ""}};
  site.programDirectory.write("mrddefault.css", "a {color:[mrd:Hyperlinkfarbe]; width:[mrd:Inhaltbreite]}\r\n"
                                                "td {font-family:[mrd:Schriftart]; color:[mrd:Textfarbe][mrd:Textfarbe]}\r\n"
                                                "/* [mrd:Kopf] [mrd:Titel] [mrd:GenDat] */\r\n");
  site.fields.tbHyperlink = "112233";
  site.fields.tbschriftart = "Verdana";
  site.fields.tbText = "#445566";
  site.fields.tbtitel = "Grün";
  site.fields.ComboInhalt.selectText("90%");

  site.run();

  EXPECT_EQ(site.page("mrdstyle.css"), "a {color:#112233; width:90%}\r\n"
                                       "td {font-family:Verdana; color:#445566#445566}\r\n"
                                       "/* Kopf Grün 17.05.2024 */\r\n");
}

TEST(Stylesheet, keeps_unknown_placeholders_and_those_of_pages)
{
  TemplateSite site{{"00", "Start", ""}};
  site.programDirectory.write("mrddefault.css",
                              "/* [mrd:Menübreite] [mrd:Überschrift] [mrd:ID] [mrd:Inhalt] [mrd:nichts] */\r\n");

  site.run();

  EXPECT_EQ(site.page("mrdstyle.css"), "/* [mrd:Menübreite] [mrd:Überschrift] [mrd:ID] [mrd:Inhalt] [mrd:nichts] */\r\n");
}

TEST(Stylesheet, has_cr_lf_behind_every_line_of_its_master)
{
  TemplateSite site{{"00", "Start", ""}};
  site.programDirectory.write("mrddefault.css", "a {}\r\n\r\nb {}");

  site.run();

  EXPECT_EQ(site.page("mrdstyle.css"), "a {}\r\n\r\nb {}\r\n");
}

TEST(Stylesheet, of_an_empty_master_is_empty)
{
  TemplateSite site{{"00", "Start", ""}};
  site.programDirectory.write("mrddefault.css", "");

  EXPECT_TRUE(site.run().finished);

  EXPECT_TRUE(site.has("mrdstyle.css"));
  EXPECT_EQ(site.page("mrdstyle.css"), "");
}

TEST(Stylesheet, keeps_its_umlauts)
{
  TemplateSite site{{"00", "Start", ""}};
  site.programDirectory.write("mrddefault.css", "/* Größe */\r\n");

  site.run();

  EXPECT_EQ(site.page("mrdstyle.css"), "/* Größe */\r\n");
}

TEST(Stylesheet, replaces_an_old_one_in_every_run)
{
  TemplateSite site{{"00", "Start", ""}};
  site.site.write("mrdstyle.css", std::string(10'000, 'x'));
  site.programDirectory.write("mrddefault.css", "a {color:[mrd:Textfarbe]}\r\n");

  site.run();
  EXPECT_EQ(site.page("mrdstyle.css"), "a {color:#000000}\r\n");

  site.fields.tbText = "ff0000";
  site.preview("00");
  EXPECT_EQ(site.page("mrdstyle.css"), "a {color:#ff0000}\r\n");

  site.fields.tbText = "00ff00";
  site.runNewOnly();
  EXPECT_EQ(site.page("mrdstyle.css"), "a {color:#00ff00}\r\n");
}

TEST(Stylesheet, is_entered_as_a_page)
{
  TemplateSite site{{"00", "Start", ""}};

  site.run();

  EXPECT_THAT(site.entered(1), Contains("mrdstyle.css"));
}

TEST(Stylesheet, of_an_earlier_run_is_not_entered_in_the_built_in_layout)
{
  TemplateSite site{{"00", "Start", ""}};
  site.run();
  site.fields.ComboGrundlayout.selectIndex(0);

  site.run();

  EXPECT_TRUE(site.has("mrdstyle.css"));
  EXPECT_THAT(site.entered(1), Not(Contains("mrdstyle.css")));
}

TEST(Stylesheet, stops_the_run_where_its_master_is_missing)
{
  TemplateSite site{{"00", "Start", ""}};
  std::filesystem::remove(site.programDirectory.native() / "mrddefault.css");
  site.ui.expect(1, "(53) in Modul cbHTML_Click");

  const auto outcome = site.run();

  EXPECT_FALSE(outcome.finished);
  EXPECT_EQ(outcome.generated, 0u);
  EXPECT_FALSE(site.has("index.htm"));
  EXPECT_FALSE(site.project.setting("lastgendate"));
}

} // namespace
} // namespace mrd::generator
