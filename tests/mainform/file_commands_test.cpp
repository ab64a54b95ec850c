#include "main_window.h"

#include <gmock/gmock.h>

namespace mrd::mainform {
namespace {

using testing::HasSubstr;

struct FileCommandsTest : testing::Test, OpenMainWindow {
  FileCommandsTest()
  {
    start();
    click("@01");
  }
  void open(const std::string& name)
  {
    ui.answerOpenDialog(directory.file(name));
    window.menu_Click("FileOpen", std::nullopt);
  }
  const std::string& caption() { return window.pages().fields.caption; }
};

TEST_F(FileCommandsTest, open_a_file_in_place_of_the_page)
{
  directory.write("brief.htm", "<html><head><title>Brief</title></head><body><p>Liebe Oma</p></body></html>");

  open("brief.htm");

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Liebe Oma</p>");
  EXPECT_EQ(caption(), "Begrol - " + (directory.native() / "brief.htm").string());
  EXPECT_EQ(window.pages().document.kind, DocumentKind::File);
  EXPECT_FALSE(screen.enabled("tabHtml[2]"));
}

TEST_F(FileCommandsTest, leave_the_tab_of_the_page_which_a_file_has_not)
{
  selectTab(2);

  window.menu_Click("FileNew", std::nullopt);

  EXPECT_EQ(window.tabs().tabHtml, 0);
  EXPECT_TRUE(screen.visible("Toolbar1"));
  EXPECT_EQ(window.help().page, "seitenbereich.htm");
}

TEST_F(FileCommandsTest, never_write_the_file_into_the_page)
{
  directory.write("brief.htm", "<p>Liebe Oma</p>");
  open("brief.htm");
  surface.type("<p>Liebe Tante</p>");
  ui.expect(3, {}, ui::Button::No);

  click("@02");
  click("@01");

  EXPECT_THAT(text("01", "html"), HasSubstr("Dach"));
  EXPECT_EQ(directory.read("brief.htm"), "<p>Liebe Oma</p>");
  EXPECT_TRUE(screen.enabled("tabHtml[2]"));
}

TEST_F(FileCommandsTest, save_the_body_and_keep_what_stands_around_it)
{
  directory.write("brief.htm", "<html><head><title>Gr\xFC\xDF"
                               "e</title></head><body><p>x</p></body></html>");
  open("brief.htm");
  surface.type("<p>schön ♥</p>");

  window.menu_Click("FileSave", std::nullopt);

  EXPECT_THAT(directory.read("brief.htm"), HasSubstr("<title>Gr\xFC\xDF"
                                                     "e</title>"));
  EXPECT_THAT(directory.read("brief.htm"), HasSubstr("<p>sch\xF6n &#9829;</p>"));
  EXPECT_FALSE(window.pages().document.isDirty);
}

TEST_F(FileCommandsTest, keep_a_file_in_utf_8)
{
  directory.write("brief.htm", "<p>Größe</p>");
  open("brief.htm");
  surface.type("<p>schön ♥</p>");

  window.Toolbar2_ButtonClick("seitespeichern");

  EXPECT_THAT(directory.read("brief.htm"), HasSubstr("<p>schön ♥</p>"));
}

TEST_F(FileCommandsTest, ask_for_the_name_of_a_new_file)
{
  window.menu_Click("FileNew", std::nullopt);
  EXPECT_EQ(caption(), "Begrol");
  EXPECT_EQ(surface.bodyInnerHtml(), "");
  surface.type("<p>neu</p>");
  ui.answerOpenDialog(directory.file("neu.htm"));

  window.menu_Click("FileSave", std::nullopt);

  EXPECT_THAT(directory.read("neu.htm"), HasSubstr("<p>neu</p>"));
  EXPECT_EQ(caption(), "Begrol - " + (directory.native() / "neu.htm").string());
}

TEST_F(FileCommandsTest, save_the_source_that_is_on_top)
{
  window.menu_Click("FileNew", std::nullopt);
  selectTab(1);
  window.pages().fields.tbhtml = "<p>Quelle</p>";
  window.pages().tbhtml_Change();
  ui.answerOpenDialog(directory.file("neu.htm"));

  window.menu_Click("FileSaveAs", std::nullopt);

  EXPECT_THAT(directory.read("neu.htm"), HasSubstr("<p>Quelle</p>"));
}

TEST_F(FileCommandsTest, ask_about_a_changed_page_first)
{
  surface.type("<h3 id=\"ueberschrift\">Villa</h3>");
  ui.expect(3, {}, ui::Button::Cancel);
  window.menu_Click("FileNew", std::nullopt);
  EXPECT_EQ(window.pages().document.kind, DocumentKind::Page);

  ui.expect(3, {}, ui::Button::Yes);
  window.menu_Click("FileNew", std::nullopt);
  EXPECT_EQ(text("01", "Überschrift"), "Villa");
  EXPECT_EQ(window.pages().document.kind, DocumentKind::File);
}

TEST_F(FileCommandsTest, stay_with_a_changed_file_that_is_not_saved)
{
  window.menu_Click("FileNew", std::nullopt);
  surface.type("<p>neu</p>");
  ui.expect(3, {}, ui::Button::Cancel);
  click("@02");
  EXPECT_EQ(window.pages().document.kind, DocumentKind::File);

  ui.expect(3, {}, ui::Button::Yes);
  ui.answerOpenDialog(std::nullopt);
  EXPECT_FALSE(window.Form_QueryUnload());
  EXPECT_EQ(surface.bodyInnerHtml(), "<p>neu</p>");
}

TEST_F(FileCommandsTest, tell_what_cannot_be_opened)
{
  directory.write("rahmen.htm", "<html><FRAMESET cols=1></FRAMESET></html>");
  directory.write("skript.htm", "\r\n<?php echo 1 ?>");
  std::filesystem::create_directory(directory.native() / "ordner.htm");
  for (const auto& [name, text] :
       {std::pair("fehlt.htm", "File not found"), std::pair("rahmen.htm", "Document contains a frameset"),
        std::pair("skript.htm", "Document is primarily server side script"), std::pair("ordner.htm", "Access denied")}) {
    ui.expect(0, text);
    open(name);
    EXPECT_EQ(window.pages().document.kind, DocumentKind::Page) << name;
  }
  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("Dach"));
}

TEST_F(FileCommandsTest, tell_what_cannot_be_saved)
{
  window.menu_Click("FileNew", std::nullopt);
  surface.type("<p>neu</p>");
  ui.expect(0, "Path not found");
  ui.answerOpenDialog(directory.file("fehlt\\neu.htm"));

  window.menu_Click("FileSave", std::nullopt);

  EXPECT_TRUE(window.pages().document.isDirty);
}

TEST_F(FileCommandsTest, copy_a_page_out_and_stay_with_it)
{
  ui.answerOpenDialog(directory.file("kopie.htm"));

  window.menu_Click("FileSaveAs", std::nullopt);

  EXPECT_THAT(directory.read("kopie.htm"), HasSubstr("Dach"));
  EXPECT_EQ(window.pages().document.kind, DocumentKind::Page);
}

} // namespace
} // namespace mrd::mainform
