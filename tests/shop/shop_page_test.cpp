// What the shop's dialog does to the page that is open.

#include "open_shop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::shop {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* kScripts = " \r\n<SCRIPT src='mrdshop.js' type='text/javascript'></SCRIPT>\r\n"
                                 "<SCRIPT src='cookiefunctions.js' type='text/javascript'></SCRIPT>\r\n";

std::string html(frmmrdshop& shop)
{
  bool wirklicheinfügen = false;
  std::string Html;
  shop.button_einfügen(wirklicheinfügen, Html);
  return Html;
}

TEST(ArticleOnPage, is_called_with_its_german_name_both_prices_and_the_basket)
{
  OpenShop desk;
  desk.addArticle(7, "Poster", 12.5, 0);
  auto& shop = desk.load();
  EXPECT_EQ(shop.txtFields[kEuro], "12,5");

  EXPECT_THAT(html(shop),
              HasSubstr("artikelinwako(7, 'Poster', 12.50, 18.75, document.form7.anzahl.value, 'DEU', 'wako_de.htm'); \r\n"));
}

TEST(ArticleOnPage, is_ordered_directly_with_shop_language_and_currency)
{
  OpenShop desk;
  desk.addArticle(7, "Poster", 12.5, 0);
  auto& shop = desk.load();
  shop.OptionSpracheDeutsch = shop.OptionWaehrungEuro = shop.OptionStückzahl = shop.OptionWahrenkorb = false;
  shop.TBShopID = "1234";

  EXPECT_THAT(html(shop), HasSubstr("artikelbestellen(7, 'Poster in English', 12.50, 18.75, 1, 1234, 'ENG', 'USD'); \r\n"));
}

TEST(ArticleOnPage, has_a_price_even_without_one)
{
  OpenShop desk;
  desk.addArticle(7, "Poster", dao::Null{}, dao::Null{});
  auto& shop = desk.load();

  EXPECT_THAT(html(shop), HasSubstr("artikelinwako(7, 'Poster', 1.00, 1.50, "));
  shop.txtFields[kEuro] = "viel";
  EXPECT_THAT(html(shop), HasSubstr("artikelinwako(7, 'Poster', 1.00, 1.50, "));
}

TEST(ArticleOnPage, keeps_a_price_in_dollars_of_its_own)
{
  OpenShop desk;
  desk.addArticle(7, "Poster", 1234.5, 20);

  EXPECT_THAT(html(desk.load()), HasSubstr("(7, 'Poster', 1234.50, 20.00, "));
}

TEST(ArticleOnPage, is_put_at_the_cursor_with_the_scripts)
{
  OpenShop desk;
  desk.surface.setBodyInnerHtml("<p>Text</p>");
  desk.addArticle(7, "Poster", 12.5);
  auto& shop = desk.load();

  shop.cbArtikelEinfügen_Click();

  EXPECT_THAT(desk.surface.bodyInnerHtml(), testing::StartsWith("<form name=\"form7\">Poster, 12.50 EUR :&nbsp;<input"));
  EXPECT_THAT(desk.surface.bodyInnerHtml(), testing::EndsWith("</form><p>Text</p>"));
  EXPECT_EQ(desk.page.tbScript, kScripts);
  EXPECT_EQ(desk.pageChanges, 1);
  EXPECT_EQ(desk.scriptChanges, 1);
}

TEST(ArticleOnPage, that_is_a_second_one_brings_no_second_scripts)
{
  OpenShop desk;
  desk.addArticle(7, "Poster");
  auto& shop = desk.load();

  shop.cbArtikelEinfügen_Click();
  shop.cbArtikelEinfügen_Click();

  EXPECT_EQ(desk.page.tbScript, kScripts);
  EXPECT_EQ(desk.pageChanges, 2);
  EXPECT_EQ(desk.scriptChanges, 1);
}

TEST(ArticleOnPage, is_not_put_in_the_place_of_a_selected_element)
{
  OpenShop desk;
  desk.surface.setBodyInnerHtml("<p>Text</p>");
  desk.surface.selected = ui::SelectionType::Control;
  desk.addArticle(7, "Poster");
  auto& shop = desk.load();
  desk.ui.expect(0, "Positionieren Sie den Cursor an der Einfügeposition");
  bool wirklicheinfügen = true;
  std::string Html;

  shop.button_einfügen(wirklicheinfügen, Html);

  EXPECT_EQ(desk.surface.bodyInnerHtml(), "<p>Text</p>");
  EXPECT_EQ(Html, "");
  EXPECT_EQ(desk.page.tbScript, " ");
  EXPECT_EQ(desk.pageChanges, 0);
}

TEST(ArticleOnPage, needs_a_page_that_is_open)
{
  OpenShop desk;
  desk.pageIsOpen = false;
  desk.addArticle(7, "Poster");
  auto& shop = desk.load();

  shop.cbArtikelEinfügen_Click();
  shop.CbWarenkorbeinfügen_Click();
  shop.cbaktualisieren_Click();

  EXPECT_EQ(desk.surface.bodyInnerHtml(), "");
  EXPECT_EQ(desk.page.tbScript, " ");
}

TEST(ArticleOnPage, needs_a_number)
{
  OpenShop desk;
  auto& shop = desk.load();
  shop.txtFields[kGerman] = "Poster";
  desk.ui.expect(141, "gespeichert");

  shop.cbArtikelEinfügen_Click();

  EXPECT_EQ(desk.surface.bodyInnerHtml(), "");
}

TEST(BasketOnPage, is_put_at_the_cursor_with_the_scripts_whatever_is_selected)
{
  OpenShop desk;
  desk.surface.selected = ui::SelectionType::Control;
  auto& shop = desk.load();
  shop.OptionWaehrungEuro = false;

  shop.CbWarenkorbeinfügen_Click();

  EXPECT_THAT(desk.surface.bodyInnerHtml(), HasSubstr("<b>Inhalt: </b>\r\n<script type=\"text/javascript\"><!--\r\n"
                                                      "wakozeigen(9950,'DEU','USD'); \r\n// -->\r\n</script>"));
  EXPECT_EQ(desk.page.tbScript, kScripts);
}

constexpr const char* kOldPage =
    "<h3 id=\"ueberschrift\">Laden</h3>"
    "<form name=\"form7\">Alter Name, 1.00 EUR<button>kaufen</button></form>"
    "<p>dazwischen</p>"
    "<form name=\"form8\">Gelöscht, 2.00 EUR</form>"
    "<form name=\"formular\"><input name=\"mail\"></form>"
    "<form name=\"Form9\">groß</form><form name=\"form\">leer</form><form name=\"form9.5\">halb</form>"
    "<form><input name=\"suche\"></form>"
    "<form name=\"form9\">Tasse</form>";

struct OldPage : OpenShop {
  OldPage()
  {
    surface.setBodyInnerHtml(kOldPage);
    addArticle(7, "Poster", 12.5);
    addArticle(9, "Tasse", 8, 11);
  }
};

TEST(ArticlesOnPage, get_their_present_data_and_options)
{
  OldPage desk;
  auto& shop = desk.load();
  shop.OptionStückzahl = false;
  desk.ui.expect(0, "Es wurden 2 Artikel aktualisiert.");

  shop.cbaktualisieren_Click();

  const std::string body = desk.surface.bodyInnerHtml();
  EXPECT_THAT(body, HasSubstr("<form name=\"form7\">Poster, 12.50 EUR :&nbsp;<button type=\"button\" name=\"mybutton\">"));
  EXPECT_THAT(body, HasSubstr("artikelinwako(7, 'Poster', 12.50, 18.75, 1, 'DEU', 'wako_de.htm'); \r\n"));
  EXPECT_THAT(body, HasSubstr("artikelinwako(9, 'Tasse', 8.00, 11.00, 1, 'DEU', 'wako_de.htm'); \r\n"));
  EXPECT_THAT(body, Not(HasSubstr("Alter Name")));
  EXPECT_EQ(desk.pageChanges, 1);
  EXPECT_EQ(desk.page.tbScript, kScripts);
}

TEST(ArticlesOnPage, leave_forms_of_other_things_and_of_deleted_articles_alone)
{
  OldPage desk;
  auto& shop = desk.load();
  desk.ui.expect(0, "Es wurden 2 Artikel aktualisiert.");

  shop.cbaktualisieren_Click();

  const std::string body = desk.surface.bodyInnerHtml();
  EXPECT_THAT(body, testing::StartsWith("<h3 id=\"ueberschrift\">Laden</h3><form name=\"form7\">Poster"));
  EXPECT_THAT(body, HasSubstr("</form><p>dazwischen</p><form name=\"form8\">Gelöscht, 2.00 EUR</form>"
                              "<form name=\"formular\"><input name=\"mail\"></form><form name=\"Form9\">groß</form>"
                              "<form name=\"form\">leer</form><form name=\"form9.5\">halb</form>"
                              "<form><input name=\"suche\"></form><form name=\"form9\">Tasse, 8.00 EUR"));
}

TEST(ArticlesOnPage, that_has_none_are_none)
{
  OpenShop desk;
  desk.surface.setBodyInnerHtml("<p>Text</p>");
  auto& shop = desk.load();
  desk.ui.expect(0, "Es wurden 0 Artikel aktualisiert.");

  shop.cbaktualisieren_Click();

  EXPECT_EQ(desk.surface.bodyInnerHtml(), "<p>Text</p>");
  EXPECT_EQ(desk.pageChanges, 0);
  EXPECT_EQ(desk.page.tbScript, " ");
}

TEST(ArticlesOnPage, stay_while_an_element_is_selected)
{
  OldPage desk;
  auto& shop = desk.load();
  desk.surface.selected = ui::SelectionType::Control;
  const std::string before = desk.surface.bodyInnerHtml();
  desk.ui.expect(0, "Positionieren Sie den Cursor").expect(0, "Es wurden 0 Artikel aktualisiert.");

  shop.cbaktualisieren_Click();

  EXPECT_EQ(desk.surface.bodyInnerHtml(), before);
}

TEST(ArticlesOnPage, stay_when_the_dialogs_own_article_cannot_be_stored)
{
  OldPage desk;
  auto& shop = desk.load();
  shop.txtFields[kEuro] = "abc";
  const std::string before = desk.surface.bodyInnerHtml();
  desk.ui.expect(0, "Datenfehler-Ereignis").expect(0, "Es wurden 0 Artikel aktualisiert.");

  shop.cbaktualisieren_Click();

  EXPECT_EQ(desk.surface.bodyInnerHtml(), before);
}

TEST(ArticlesOnPage, are_those_that_the_dialog_has_just_changed)
{
  OldPage desk;
  auto& shop = desk.load();
  shop.txtFields[kGerman] = "Plakat";
  desk.ui.expect(0, "Es wurden 2 Artikel aktualisiert.");

  shop.cbaktualisieren_Click();

  EXPECT_THAT(desk.surface.bodyInnerHtml(), HasSubstr(">Plakat, 12.50 EUR"));
  EXPECT_EQ(desk.stored(7, "Artikel_deutsch").text(), "Plakat");
}

} // namespace
} // namespace mrd::shop
