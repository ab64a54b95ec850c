#include "main_window.h"

#include <gmock/gmock.h>

namespace mrd::mainform {
namespace {

using testing::HasSubstr;

struct TabsTest : testing::Test, OpenMainWindow {
  TabsTest()
  {
    start();
    click("@01");
  }
  auto& fields() { return window.pages().fields; }
};

TEST_F(TabsTest, carry_the_text_into_the_source_and_back)
{
  surface.type("<p>eins</p>");
  surface.busyFor = 2;

  selectTab(1);
  EXPECT_EQ(fields().tbhtml, "<p>eins</p>");
  EXPECT_TRUE(fields().sourceOnTop);

  fields().tbhtml = "<p>zwei";
  selectTab(0);
  EXPECT_EQ(surface.bodyInnerHtml(), "<p>zwei</p>");
  EXPECT_FALSE(fields().sourceOnTop);
}

TEST_F(TabsTest, say_that_the_source_is_on_its_way_while_the_page_loads)
{
  surface.busyFor = 2;
  std::string shown;
  surface.whenLoaded = [&] { shown = fields().tbhtml; };

  selectTab(1);

  EXPECT_EQ(shown, "Bitte warten - HTML wird geladen ...");
}

TEST_F(TabsTest, take_the_page_into_a_server_pages_source_on_yes)
{
  fields().tbdateiname = "haus.asp";
  surface.type("<p>neu</p>");
  ui.expect(7, {}, ui::Button::Yes);

  selectTab(1);

  EXPECT_EQ(fields().tbhtml, "<p>neu</p>");
}

TEST_F(TabsTest, keep_a_server_pages_old_source_on_no_and_write_it_into_the_page_on_the_way_back)
{
  fields().tbdateiname = "haus.asp";
  fields().tbhtml = "<p>alt</p>";
  surface.type("<p>neu</p>");
  ui.expect(7, {}, ui::Button::No);

  selectTab(1);
  EXPECT_EQ(fields().tbhtml, "<p>alt</p>");

  selectTab(0);
  EXPECT_EQ(surface.bodyInnerHtml(), "<p>alt</p>");
}

TEST_F(TabsTest, show_the_formats_beside_the_page_alone)
{
  for (const int tab : {1, 2, 3, 4, 5}) {
    selectTab(tab);
    EXPECT_FALSE(screen.visible("Toolbar1"));
    selectTab(0);
    EXPECT_TRUE(screen.visible("Toolbar1"));
  }
}

TEST_F(TabsTest, have_a_help_page_each)
{
  const std::array<std::string_view, 6> pages{"seitenbereich.htm", "htmleditor.htm", "seiteneinstellungen.htm",
                                              "layout.htm",        "export.htm",     "sonstiges.htm"};
  for (const int tab : {1, 2, 3, 4, 5, 0}) {
    selectTab(tab);
    EXPECT_EQ(window.help().page, pages.at(static_cast<std::size_t>(tab)));
  }
  EXPECT_EQ(helpPageOf(6), "index.htm");
  EXPECT_EQ(helpPageOf(-1), "index.htm");
}

TEST_F(TabsTest, save_what_stands_in_the_source)
{
  selectTab(1);
  fields().tbhtml = "<h3 id=\"ueberschrift\">Haus</h3><p>Quelle</p>";
  window.pages().tbhtml_Change();

  click("@02");

  EXPECT_THAT(text("01", "html"), HasSubstr("<p>Quelle</p>"));
  EXPECT_THAT(fields().tbhtml, HasSubstr("Garten"));
}

TEST_F(TabsTest, leave_the_source_without_a_word_where_the_page_does_not_take_it)
{
  selectTab(1);
  fields().tbhtml = "<p>kaputt";
  surface.failing = true;

  selectTab(0);

  EXPECT_EQ(window.tabs().tabHtml, 0);
  EXPECT_TRUE(screen.visible("Toolbar1"));
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("Dach"));
}

struct TabsWithoutPageTest : testing::Test, MainWindow {};

TEST_F(TabsWithoutPageTest, change_without_harm)
{
  ui.answerOpenDialog(std::nullopt);
  ui.expect(14, {}, ui::Button::Cancel).expect(15);
  window.Form_Load();

  for (const int tab : {1, 2, 0, 5, 1, 0})
    selectTab(tab);

  EXPECT_EQ(surface.bodyInnerHtml(), "");
}

struct HeadTest : TabsTest {};

TEST_F(HeadTest, without_a_row_shows_the_title_and_gets_its_row_by_the_next_save)
{
  window.settings().fields().tbtitel = "Am Meer";

  selectTreeTab(1);

  EXPECT_EQ(surface.bodyInnerHtml(), "<div align=\"center\"> Am Meer </div>");
  EXPECT_EQ(screen.caption("tabHtml[0]"), "Seitenkopf");
  EXPECT_EQ(project.setting("KopfHTML"), std::nullopt);

  surface.type("<b>Kopf</b>");
  window.Toolbar2_ButtonClick("seitespeichern");

  EXPECT_EQ(project.setting("KopfHTML"), "<b>Kopf</b>");
  EXPECT_EQ(text("01", "Überschrift"), "Haus");
}

TEST_F(HeadTest, is_saved_on_the_way_back_to_the_tree)
{
  project.setSetting("KopfHTML", "<i>alt</i>");
  selectTreeTab(1);
  EXPECT_EQ(surface.bodyInnerHtml(), "<i>alt</i>");
  surface.type("<i>neu</i>");

  selectTreeTab(0);

  EXPECT_EQ(project.setting("KopfHTML"), "<i>neu</i>");
  EXPECT_EQ(screen.caption("tabHtml[0]"), "Normal");
  EXPECT_EQ(active(), "@01");
  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("Dach"));
  EXPECT_FALSE(window.pages().PageDirty());
}

TEST_F(HeadTest, comes_behind_a_saved_page)
{
  surface.type("<h3 id=\"ueberschrift\">Villa</h3>");

  selectTreeTab(1);

  EXPECT_EQ(text("01", "Überschrift"), "Villa");
}

TEST_F(HeadTest, has_no_page_settings)
{
  selectTab(2);
  selectTreeTab(1);

  EXPECT_EQ(window.tabs().tabHtml, 0);
  EXPECT_FALSE(screen.enabled("tabHtml[2]"));

  selectTab(2);
  EXPECT_EQ(window.tabs().tabHtml, 0);

  selectTreeTab(0);
  EXPECT_TRUE(screen.enabled("tabHtml[2]"));
}

TEST_F(HeadTest, is_edited_as_source_without_the_pages_text)
{
  project.setSetting("KopfHTML", "<i>Kopf</i>");
  fields().tbdateiname = "haus.php";
  ui.expect(7, {}, ui::Button::No);
  selectTab(1);

  selectTreeTab(1);
  EXPECT_EQ(fields().tbhtml, "<i>Kopf</i>");
  fields().tbhtml = "<i>Quelle</i>";
  window.pages().tbhtml_Change();
  window.Toolbar2_ButtonClick("seitespeichern");
  selectTab(0);
  selectTab(1);

  EXPECT_EQ(project.setting("KopfHTML"), "<i>Quelle</i>");
}

TEST_F(HeadTest, has_the_colours_of_the_frame)
{
  window.settings().fields().Tbtabelle = "#112233";
  window.settings().fields().tbmenütext = "445566";

  selectTreeTab(1);

  EXPECT_EQ(surface.colours, "#112233 #445566");
}

TEST_F(HeadTest, keeps_its_caption_in_another_language)
{
  selectTreeTab(1);

  window.eng_Click();

  EXPECT_EQ(screen.caption("tabHtml[0]"), "Seitenkopf");
  EXPECT_FALSE(screen.enabled("tabHtml[2]"));
}

TEST_F(HeadTest, stays_where_a_new_page_is_made_and_is_saved_first)
{
  selectTreeTab(1);
  surface.type("<i>neu</i>");

  window.Toolbar2_ButtonClick("seiteneu");

  EXPECT_EQ(project.setting("KopfHTML"), "<i>neu</i>");
  EXPECT_EQ(window.tabs().TabTree, 0);
  EXPECT_EQ(active(), "@0102");
}

struct HelpTest : TabsTest {};

TEST_F(HelpTest, opens_the_page_of_the_tab_in_the_users_language)
{
  directory.write("hilfe/layout.htm", "x");
  directory.write("help/layout.htm", "x");
  selectTab(3);

  window.HilfeAnzeigen();
  window.eng_Click();
  window.HelpSub1_Click(0);

  EXPECT_THAT(shell.opened, testing::ElementsAre(directory.file("hilfe\\layout.htm"), directory.file("help\\layout.htm")));
}

TEST_F(HelpTest, falls_back_to_the_start_page_and_then_to_message_45)
{
  selectTab(3);
  ui.expect(45);
  window.HilfeAnzeigen();

  directory.write("hilfe/index.htm", "x");
  window.HilfeAnzeigen();

  EXPECT_THAT(shell.opened, testing::ElementsAre(directory.file("hilfe\\index.htm")));
}

TEST_F(HelpTest, of_the_picture_window_is_its_own)
{
  directory.write("hilfe/bildereinfuegen.htm", "x");
  directory.write("hilfe/index.htm", "x");
  window.help().HilfeAnzeigen("FrmFileScan");
  window.help().HilfeAnzeigen("");

  EXPECT_THAT(shell.opened,
              testing::ElementsAre(directory.file("hilfe\\bildereinfuegen.htm"), directory.file("hilfe\\index.htm")));
}

} // namespace
} // namespace mrd::mainform
