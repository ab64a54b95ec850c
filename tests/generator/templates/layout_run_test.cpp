// Pages of the built-in template layouts and of users' own.

#include "generator/templates/built_in_trees.h"
#include "generator/templates/template_site.h"

#include <gmock/gmock.h>

namespace mrd::generator {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr int kTabNavigation = 1, kSparta = 2, kSimpleTable = 3;

/// The root's line end, its two, and the print's.
constexpr std::string_view kEmptyPage = "¶¶¶¶";

std::string startnavNode() { return std::string(templates::kStartnav) + "\r\n\r\n\r\n"; }

TEST(UserLayout, that_is_missing_is_named_and_gives_empty_pages)
{
  TemplateSite site{{"00", "Start", "x"}, {"01", "Haus", "y"}};
  site.useLayoutFile("weg.xml", "");
  std::filesystem::remove(site.programDirectory.native() / "xml" / "weg.xml");
  site.ui.expect(0, "Folgende Layoutdatei wurde nicht gefunden:\r\n" + site.program.file("\\xml\\weg.xml"));

  const auto outcome = site.run();

  EXPECT_TRUE(outcome.finished);
  EXPECT_EQ(outcome.generated, 2u);
  EXPECT_EQ(site.page("index.htm"), lines(kEmptyPage));
  EXPECT_EQ(site.page("01.htm"), lines(kEmptyPage));
}

TEST(UserLayout, is_missing_where_the_heading_of_the_list_is_chosen)
{
  TemplateSite site{{"00", "Start", ""}};
  site.useLayout("<code>x</code>");
  site.fields.ComboGrundlayout.selectIndex(4);
  site.ui.expect(0, "\\xml\\- benutzerdefinierte Layouts -");

  EXPECT_TRUE(site.run().finished);

  EXPECT_EQ(site.page("index.htm"), lines(kEmptyPage));
}

TEST(UserLayout, that_is_malformed_gives_empty_pages_without_a_message)
{
  TemplateSite site{{"00", "Start", "x"}};
  site.useLayoutFile("eigen.xml", "<root name='Eigenes'><code>x</code><template>");
  site.fields.ComboBlättern.selectIndex(1);

  const auto outcome = site.run();

  EXPECT_TRUE(outcome.finished);
  EXPECT_THAT(site.ui.messages, IsEmpty());
  // At the end of the run, together with all else that it went on in spite of.
  EXPECT_EQ(site.ui.toldWarnings.size(), 1U);
  // The root's line end, the banner's three, the root's two, the print's.
  EXPECT_EQ(site.page("index.htm"), lines("¶¶¶¶¶¶¶"));
}

TEST(UserLayout, that_is_malformed_starts_a_strip_in_view)
{
  TemplateSite site{{"00", "Start", "x"}};
  site.useLayoutFile("eigen.xml", "");
  site.fields.ComboBlättern.selectIndex(2);

  site.run();

  EXPECT_EQ(site.page("index.htm"), lines("¶¶¶¶") + startnavNode() + lines("¶¶¶"));
}

TEST(UserLayout, is_followed_by_the_banner_and_what_starts_a_strip)
{
  TemplateSite site{{"00", "Start", "Text"}};
  site.useLayout("<code>A</code><template><code>[mrd:Inhalt]</code></template>");
  site.fields.ComboBlättern.selectIndex(0);

  site.run();

  EXPECT_EQ(site.page("index.htm"), lines("A¶Text¶¶¶¶¶¶") + startnavNode() + lines("¶¶¶"));
}

TEST(UserLayout, has_nothing_that_starts_a_strip_where_it_is_fixed)
{
  TemplateSite site{{"00", "Start", "Text"}};
  site.useFragment("[mrd:Inhalt]");
  for (const int style : {1, 3, 4}) {
    site.fields.ComboBlättern.selectIndex(style);
    site.run();
    EXPECT_EQ(site.page("index.htm"), lines("¶Text¶¶¶¶¶¶¶¶¶")) << style;
  }
}

TEST(UserLayout, of_two_with_one_name_is_told_by_its_file)
{
  TemplateSite site{{"00", "Start", ""}};
  site.programDirectory.write("xml/eins.xml", "<root name='Eigenes'><code>eins</code></root>");
  site.useLayoutFile("zwei.xml", "<root name='Eigenes'><code>zwei</code></root>");

  site.run();

  EXPECT_THAT(site.shown("index.htm"), ElementsAre("zwei"));
}

TEST(UserLayout, is_found_whatever_the_case_of_its_name)
{
  TemplateSite site{{"00", "Start", ""}};
  site.useLayoutFile("eigen.xml", "<root name='Eigenes'><code>x</code></root>");
  site.fields.ComboGrundlayout.entries[5] = "Eigenes (EIGEN.XML)";
  site.fields.ComboGrundlayout.selectIndex(5);

  site.run();

  EXPECT_THAT(site.shown("index.htm"), ElementsAre("x"));
}

TEST(UserLayout, is_read_again_by_each_run)
{
  TemplateSite site{{"00", "Start", ""}};
  site.useFragment("eins");
  site.run();
  site.useFragment("zwei");

  site.run();

  EXPECT_THAT(site.shown("index.htm"), ElementsAre("zwei"));
}

TEST(UserLayout, brings_pictures_of_its_own_in_lower_case)
{
  TemplateSite site{{"00", "Start", ""}};
  site.programDirectory.write("xml/pix/Logo.GIF", "logo");
  site.useFragment("<img src='pix/Logo.GIF'><img src=\"Logo.GIF\">");

  site.run();

  EXPECT_THAT(site.files(), Contains("pix/logo.gif"));
  EXPECT_EQ(site.site.read("pix/logo.gif"), "logo");
  EXPECT_THAT(site.entered(2), Contains("pix\\logo.gif"));
  EXPECT_THAT(site.page("index.htm"), HasSubstr("<img src='pix/logo.gif'>"));
}

TEST(UserLayout, shows_the_head_as_it_is_stored)
{
  TemplateSite site{{"00", "Start", ""}};
  site.pictures.write("Kopf.jpg", "k");
  site.project.setSetting("KopfHTML", "<IMG SRC=\"" + site.pictures.file("Kopf.jpg") + "\">Hallo");
  site.useFragment("[mrd:Kopf]");

  site.run();

  EXPECT_THAT(site.page("index.htm"), HasSubstr("\"pix/kopf.jpg\""));
  EXPECT_EQ(site.site.read("pix/kopf.jpg"), "k");
}

TEST(Page, is_written_in_windows_1252_with_references_for_other_characters)
{
  TemplateSite site{{"00", "Start", "é € ♥ Ä"}};
  site.useFragment("[mrd:Inhalt]");

  site.run();

  EXPECT_THAT(site.site.read("index.htm"), HasSubstr("\xE9 \x80 &#9829; &Auml;"));
}

struct BuiltInLayout : testing::Test {
  TemplateSite site{{"00", "Start", "Willkommen"}, {"01", "Haus", "H"},         {"0101", "Küche", "K"}, {"010101", "Herd", "E"},
                    {"01010101", "Topf", "T"},     {"02", "Blind", "B", {}, 3}, {"03", "Garten", "G"}};

  std::string pageOf(int layout, const std::string& file, int style = 4)
  {
    site.fields.ComboGrundlayout.selectIndex(layout);
    site.fields.ComboBlättern.selectIndex(style);
    EXPECT_TRUE(site.run().finished);
    return site.page(file);
  }
};

TEST_F(BuiltInLayout, of_tabs_gives_the_homepage_a_tab)
{
  const auto page = pageOf(kTabNavigation, "01.htm");

  EXPECT_THAT(page, HasSubstr("<td class=tab1><a style='color:#ff0000' href='index.htm'>Start</a></td>"));
  EXPECT_THAT(page, HasSubstr("<td class=tab1aktiv><a style='color:#ff0000' href='01.htm'>Haus</a></td>"));
  EXPECT_THAT(allBetween(page, "<td class=tab1><a style='color:#ff0000' href='", "'"),
              ElementsAre("index.htm", "03.htm", "0101.htm"));
}

TEST_F(BuiltInLayout, of_tabs_shows_the_third_and_fourth_level_as_links)
{
  const auto page = pageOf(kTabNavigation, "01010101.htm");

  EXPECT_THAT(page, HasSubstr("<span class=nav3aktiv><a style='color:#ff0000' href='010101.htm'>Herd</a></span>"));
  EXPECT_THAT(page, HasSubstr("<span class=nav4aktiv style='color:#ff0000'>Topf</span>"));
  EXPECT_EQ(allBetween(page, "<tr valign=top><td bgcolor='#0080FF' align=center>", "<").size(), 1u);
}

TEST_F(BuiltInLayout, of_tabs_opens_and_ends_a_document)
{
  const auto page = pageOf(kTabNavigation, "index.htm");

  EXPECT_TRUE(page.starts_with(lines("¶<html>¶<head>¶<title>: Start</title>¶"
                                     "<link rel='STYLESHEET' type='text/css' href='mrdstyle.css'>¶")));
  EXPECT_TRUE(page.ends_with(lines("</body></html>¶¶¶¶¶¶")));
  EXPECT_THAT(page, HasSubstr(lines("¶<br>Willkommen<br>¶")));
}

TEST_F(BuiltInLayout, starts_a_strip_in_view_in_two_styles)
{
  for (const int layout : {kTabNavigation, kSparta, kSimpleTable})
    for (int style = 0; style <= 4; ++style) {
      const auto page = pageOf(layout, "01.htm", style);
      EXPECT_EQ(page.find(templates::kStartnav) != std::string::npos, style == 0 || style == 2) << layout << " " << style;
    }
}

TEST_F(BuiltInLayout, loads_no_script_for_the_strip_where_it_has_no_head)
{
  EXPECT_THAT(pageOf(kTabNavigation, "01.htm", 0), HasSubstr("mrdnav.js"));
  EXPECT_THAT(pageOf(kSparta, "01.htm", 0), Not(HasSubstr("mrdnav.js")));
  EXPECT_THAT(pageOf(kSimpleTable, "01.htm", 0), Not(HasSubstr("mrdnav.js")));
}

TEST_F(BuiltInLayout, of_a_simple_table_has_neither_strip_nor_closing_tags)
{
  const auto page = pageOf(kSimpleTable, "01.htm", 1);

  EXPECT_TRUE(page.starts_with("\r\n<hmtl><body bgcolor='#ffffff'>\r\n"));
  EXPECT_THAT(page, Not(HasSubstr("mrdnav")));
  EXPECT_THAT(page, Not(HasSubstr("</body>")));
  EXPECT_THAT(page, Not(HasSubstr("</html>")));
}

TEST_F(BuiltInLayout, of_a_simple_table_shows_the_second_level_everywhere)
{
  const auto page = pageOf(kSimpleTable, "03.htm");

  EXPECT_THAT(page, HasSubstr("&nbsp;&nbsp;-<a href='0101.htm'>K&uuml;che</a><br>"));
  EXPECT_THAT(page, Not(HasSubstr("010101.htm")));
}

TEST_F(BuiltInLayout, of_nothing_but_text_ends_as_it_is_spelt)
{
  const auto page = pageOf(kSparta, "01.htm", 3);

  EXPECT_TRUE(page.starts_with("\r\n<hmtl><body"));
  EXPECT_TRUE(page.ends_with(lines("</body></hmtl>¶¶¶¶¶¶")));
  EXPECT_THAT(page, HasSubstr("<div ID='mrdnav' STYLE='position:relative;'>"));
}

TEST_F(BuiltInLayout, keeps_the_banner_as_empty_lines)
{
  // Behind the node before it: the banner's line end and its two.
  EXPECT_TRUE(pageOf(kSimpleTable, "01.htm", 4).ends_with(lines("</td></tr></table><br><br>¶¶¶¶¶¶¶¶¶")));
}

TEST_F(BuiltInLayout, shows_colours_in_the_strip)
{
  site.fields.tbmenü = "123456";

  EXPECT_THAT(pageOf(kTabNavigation, "01.htm", 1), HasSubstr("<a style='color:#123456' href='"));
}

TEST_F(BuiltInLayout, shows_blind_pages_in_no_menu_and_writes_them)
{
  const auto page = pageOf(kTabNavigation, "02.htm");

  EXPECT_THAT(page, HasSubstr("<br>B<br>"));
  EXPECT_THAT(page, Not(HasSubstr("href='02.htm'")));
}

TEST_F(BuiltInLayout, links_the_homepage_by_its_own_name)
{
  site.project.db().execute("UPDATE Seite SET dateiname = 'Start.HTM' WHERE id = '00'", {});

  const auto page = pageOf(kTabNavigation, "01.htm", 1);

  EXPECT_THAT(page, HasSubstr("href='start.htm'>Start</a>"));
  EXPECT_THAT(page, HasSubstr("href='index.htm'>Homepage</a>"));
}

} // namespace
} // namespace mrd::generator
