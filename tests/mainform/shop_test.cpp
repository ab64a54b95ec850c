#include "main_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::mainform {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

struct MainShop : testing::Test {
  MainShop()
  {
    desk.project.db().execute("INSERT INTO Artikel (Artikel_deutsch, Preis_Euro) VALUES ('Poster', 12.5)");
    desk.start();
    desk.click("@01");
    desk.dialogs.shop = [this](shop::frmmrdshop& form) {
      opened.push_back(&form);
      if (!form.isOpen())
        form.Form_Load();
      form.window.unload = [this, &form] {
        ++unloads;
        form.Form_Unload();
      };
    };
  }
  shop::frmmrdshop& open()
  {
    desk.window.menu_Click("mnuShop", std::nullopt);
    return *opened.back();
  }

  OpenMainWindow desk;
  std::vector<shop::frmmrdshop*> opened;
  int unloads = 0;
};

TEST_F(MainShop, is_opened_from_the_menu_and_the_same_until_it_is_closed)
{
  auto& first = open();
  EXPECT_EQ(&open(), &first);
  EXPECT_EQ(first.txtFields[shop::kGerman], "Poster");

  first.TBShopID = "4711";
  first.cmdClose_Click();

  EXPECT_EQ(open().TBShopID, "4711");
}

TEST_F(MainShop, changes_the_page_that_is_open_and_its_script)
{
  open().cbArtikelEinfügen_Click();

  EXPECT_TRUE(desk.window.pages().PageDirty());
  EXPECT_TRUE(desk.window.pages().SavePage());
  EXPECT_THAT(desk.text("01", "html"), StartsWith("<form name=\"form1\">Poster, 12.50 EUR"));
  EXPECT_THAT(desk.text("01", "script"), HasSubstr("<SCRIPT src='mrdshop.js'"));
}

TEST_F(MainShop, takes_the_heading_of_the_page_that_is_open)
{
  auto& shop = open();

  shop.cbNimmÜberschrift_Click();

  EXPECT_EQ(shop.txtFields[shop::kGerman], "Haus");
}

TEST_F(MainShop, puts_nothing_into_a_document_that_is_no_page)
{
  auto& shop = open();
  desk.selectTreeTab(1);
  desk.ui.expect(2);
  const std::string before = desk.surface.bodyInnerHtml();

  shop.cbArtikelEinfügen_Click();

  EXPECT_EQ(desk.surface.bodyInnerHtml(), before);
}

TEST_F(MainShop, brings_the_page_on_top_before_it_changes_it)
{
  auto& shop = open();
  desk.selectTab(1);
  desk.window.pages().fields.tbhtml = "<h3 id=\"ueberschrift\">Haus</h3><p>neu</p>";

  shop.cbArtikelEinfügen_Click();

  EXPECT_EQ(desk.window.tabs().tabHtml, 0);
  EXPECT_THAT(desk.surface.bodyInnerHtml(), testing::EndsWith("</form><h3 id=\"ueberschrift\">Haus</h3><p>neu</p>"));
}

TEST_F(MainShop, closes_before_another_project_opens)
{
  auto& shop = open();
  shop.txtFields[shop::kGerman] = "Plakat";
  support::TemporaryProject other{{"00", "Anderes"}};
  desk.ui.answerOpenDialog(other.file());

  desk.window.menu_Click("OpenProject", std::nullopt);

  EXPECT_EQ(unloads, 1);
  EXPECT_EQ(desk.project.db().openRecordset("SELECT * FROM Artikel").value("Artikel_deutsch").text(), "Plakat");
  EXPECT_EQ(open().Data1.recordCount(), 0U);
}

TEST_F(MainShop, keeps_the_project_while_its_article_cannot_be_stored)
{
  auto& shop = open();
  shop.txtFields[shop::kEuro] = "abc";
  desk.ui.expect(0, "Datenfehler-Ereignis");

  desk.window.menu_Click("OpenProject", std::nullopt);

  EXPECT_EQ(unloads, 0);
  EXPECT_EQ(desk.active(), "@01");
}

TEST_F(MainShop, closes_with_the_main_window)
{
  open();

  desk.window.Form_Unload();

  EXPECT_EQ(unloads, 1);
}

TEST(MainShopWithoutProject, cannot_be_opened)
{
  MainWindow desk;
  desk.ui.expect(24);

  desk.window.menu_Click("mnuShop", std::nullopt);

  EXPECT_EQ(desk.dialogs.shown, 0);
}

struct MainAuction : testing::Test {
  MainAuction()
  {
    desk.start();
    desk.click("@02");
  }
  OpenMainWindow desk;
};

TEST_F(MainAuction, copies_the_page_that_is_selected)
{
  desk.directory.write("site/02.htm", "<STYLE>x</STYLE>\r\n</HEAD>\r\n<BODY>\r\n</BODY>\r\n");
  desk.ui.expect(46);

  desk.window.cbEbayHTMLkopieren_Click();

  EXPECT_THAT(desk.clipboard.steps, ElementsAre("clear", "<STYLE>x</STYLE>\r\n<BODY>\r\n</BODY>\r\n"));
}

TEST_F(MainAuction, tag_makes_the_page_dirty)
{
  desk.window.pages().fields.TBEbayArtikelnummer = "1";

  desk.window.CbEbayMetatag_Click();

  EXPECT_TRUE(desk.window.pages().PageDirty());
  EXPECT_THAT(desk.window.pages().fields.tbScript, StartsWith("<meta http-equiv='refresh'"));
}

TEST_F(MainAuction, list_of_categories_is_opened)
{
  desk.window.cbebaykategorien_Click();

  EXPECT_EQ(desk.shell.opened.size(), 1U);
}

} // namespace
} // namespace mrd::mainform
