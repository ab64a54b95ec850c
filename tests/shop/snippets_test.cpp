#include "shop/snippets.h"

#include <gtest/gtest.h>

namespace mrd::shop {
namespace {

const SnippetArticle kPoster{"7", "Poster", "12.50", "18.75"};

SnippetOptions shopOptions()
{
  SnippetOptions options;
  options.shopId = "1234";
  options.germanBasketPage = "wako_de.htm";
  options.englishBasketPage = "wako_en.htm";
  return options;
}

TEST(ArticleSnippet, puts_into_the_german_basket_with_a_field_for_the_quantity)
{
  EXPECT_EQ(articleSnippet(kPoster, shopOptions()),
            "<form name='form7' >Poster, 12.50 EUR :&nbsp;"
            "<input id='anzahl' name='anzahl' value='1' size=3> Stück&nbsp;"
            "<BUTTON type='button' name='mybutton'>in den Warenkorb<script> function my_onclick() {\r\n"
            "     artikelinwako(7, 'Poster', 12.50, 18.75, document.form7.anzahl.value, 'DEU', 'wako_de.htm'); \r\n"
            "  }\r\n"
            "document.form7.mybutton.onclick = my_onclick \r\n"
            "</script></BUTTON></form>");
}

TEST(ArticleSnippet, orders_one_piece_directly_in_english_and_dollars)
{
  auto options = shopOptions();
  options.isGerman = options.isEuro = options.hasQuantityField = options.usesBasket = false;

  EXPECT_EQ(articleSnippet(kPoster, options),
            "<form name='form7' >Poster, 18.75 USD :&nbsp;"
            "<BUTTON type='button' name='mybutton'>order article<script> function my_onclick() {\r\n"
            "     artikelbestellen(7, 'Poster', 12.50, 18.75, 1, 1234, 'ENG', 'USD'); \r\n"
            "  }\r\n"
            "document.form7.mybutton.onclick = my_onclick \r\n"
            "</script></BUTTON></form>");
}

/// The pieces in which the options show, written out once more for each of the combinations.
struct Combination {
  bool german, euro, field, basket;
  const char* price;
  const char* field_text;
  const char* caption;
  const char* call;
};

class ArticleSnippets : public testing::TestWithParam<Combination> {};

TEST_P(ArticleSnippets, follow_the_options)
{
  const auto& [german, euro, field, basket, price, fieldText, caption, call] = GetParam();
  auto options = shopOptions();
  options.isGerman = german;
  options.isEuro = euro;
  options.hasQuantityField = field;
  options.usesBasket = basket;

  EXPECT_EQ(articleSnippet(kPoster, options), std::string("<form name='form7' >Poster, ") + price + " :&nbsp;" + fieldText +
                                                  "<BUTTON type='button' name='mybutton'>" + caption +
                                                  "<script> function my_onclick() {\r\n     " + call +
                                                  "); \r\n  }\r\ndocument.form7.mybutton.onclick = my_onclick \r\n"
                                                  "</script></BUTTON></form>");
}

constexpr const char* kStück = "<input id='anzahl' name='anzahl' value='1' size=3> Stück&nbsp;";
constexpr const char* kItems = "<input id='anzahl' name='anzahl' value='1' size=3> items&nbsp;";

INSTANTIATE_TEST_SUITE_P(
    AllOptions, ArticleSnippets,
    testing::Values(Combination{true, true, true, true, "12.50 EUR", kStück, "in den Warenkorb",
                                "artikelinwako(7, 'Poster', 12.50, 18.75, document.form7.anzahl.value, 'DEU', 'wako_de.htm'"},
                    Combination{true, true, true, false, "12.50 EUR", kStück, "zur Bestellung",
                                "artikelbestellen(7, 'Poster', 12.50, 18.75, document.form7.anzahl.value, 1234, 'DEU', 'EUR'"},
                    Combination{true, true, false, true, "12.50 EUR", "", "in den Warenkorb",
                                "artikelinwako(7, 'Poster', 12.50, 18.75, 1, 'DEU', 'wako_de.htm'"},
                    Combination{true, true, false, false, "12.50 EUR", "", "zur Bestellung",
                                "artikelbestellen(7, 'Poster', 12.50, 18.75, 1, 1234, 'DEU', 'EUR'"},
                    Combination{true, false, true, true, "18.75 USD", kStück, "in den Warenkorb",
                                "artikelinwako(7, 'Poster', 12.50, 18.75, document.form7.anzahl.value, 'DEU', 'wako_de.htm'"},
                    Combination{true, false, true, false, "18.75 USD", kStück, "zur Bestellung",
                                "artikelbestellen(7, 'Poster', 12.50, 18.75, document.form7.anzahl.value, 1234, 'DEU', 'USD'"},
                    Combination{true, false, false, true, "18.75 USD", "", "in den Warenkorb",
                                "artikelinwako(7, 'Poster', 12.50, 18.75, 1, 'DEU', 'wako_de.htm'"},
                    Combination{true, false, false, false, "18.75 USD", "", "zur Bestellung",
                                "artikelbestellen(7, 'Poster', 12.50, 18.75, 1, 1234, 'DEU', 'USD'"},
                    Combination{false, true, true, true, "12.50 EUR", kItems, "add to basket",
                                "artikelinwako(7, 'Poster', 12.50, 18.75, document.form7.anzahl.value, 'ENG', 'wako_en.htm'"},
                    Combination{false, true, true, false, "12.50 EUR", kItems, "order article",
                                "artikelbestellen(7, 'Poster', 12.50, 18.75, document.form7.anzahl.value, 1234, 'ENG', 'EUR'"},
                    Combination{false, true, false, true, "12.50 EUR", "", "add to basket",
                                "artikelinwako(7, 'Poster', 12.50, 18.75, 1, 'ENG', 'wako_en.htm'"},
                    Combination{false, true, false, false, "12.50 EUR", "", "order article",
                                "artikelbestellen(7, 'Poster', 12.50, 18.75, 1, 1234, 'ENG', 'EUR'"},
                    Combination{false, false, true, true, "18.75 USD", kItems, "add to basket",
                                "artikelinwako(7, 'Poster', 12.50, 18.75, document.form7.anzahl.value, 'ENG', 'wako_en.htm'"},
                    Combination{false, false, true, false, "18.75 USD", kItems, "order article",
                                "artikelbestellen(7, 'Poster', 12.50, 18.75, document.form7.anzahl.value, 1234, 'ENG', 'USD'"},
                    Combination{false, false, false, true, "18.75 USD", "", "add to basket",
                                "artikelinwako(7, 'Poster', 12.50, 18.75, 1, 'ENG', 'wako_en.htm'"},
                    Combination{false, false, false, false, "18.75 USD", "", "order article",
                                "artikelbestellen(7, 'Poster', 12.50, 18.75, 1, 1234, 'ENG', 'USD'"}),
    [](const auto& combination) {
      const auto& options = combination.param;
      return std::string(options.german ? "German" : "English") + (options.euro ? "Euro" : "Dollar") +
             (options.field ? "Field" : "One") + (options.basket ? "Basket" : "Direct");
    });

TEST(ArticleSnippet, takes_the_name_as_it_stands)
{
  EXPECT_NE(articleSnippet({"8", "Anna's <b>Bild</b> & mehr", "1.00", "1.50"}, shopOptions())
                .find("artikelinwako(8, 'Anna's <b>Bild</b> & mehr', 1.00"),
            std::string::npos);
}

TEST(BasketSnippet, shows_the_basket_in_both_languages_and_currencies)
{
  auto options = shopOptions();
  EXPECT_EQ(basketSnippet(options), "<b>Inhalt: </b>\r\n<SCRIPT type=text/javascript><!--\r\n"
                                    "wakozeigen(1234,'DEU','EUR'); \r\n// -->\r\n</SCRIPT></P>");
  options.isEuro = false;
  EXPECT_EQ(basketSnippet(options), "<b>Inhalt: </b>\r\n<SCRIPT type=text/javascript><!--\r\n"
                                    "wakozeigen(1234,'DEU','USD'); \r\n// -->\r\n</SCRIPT></P>");
  options.isGerman = false;
  EXPECT_EQ(basketSnippet(options), "<b>Content: </b>\r\n<SCRIPT type=text/javascript><!--\r\n"
                                    "wakozeigen(1234,'ENG','USD'); \r\n// -->\r\n</SCRIPT></P>");
  options.isEuro = true;
  EXPECT_EQ(basketSnippet(options), "<b>Content: </b>\r\n<SCRIPT type=text/javascript><!--\r\n"
                                    "wakozeigen(1234,'ENG','EUR'); \r\n// -->\r\n</SCRIPT></P>");
}

TEST(ShopScripts, are_two_tags_on_lines_of_their_own)
{
  EXPECT_EQ(shopScripts(), "\r\n<SCRIPT src='mrdshop.js' type='text/javascript'></SCRIPT>\r\n"
                           "<SCRIPT src='cookiefunctions.js' type='text/javascript'></SCRIPT>\r\n");
  EXPECT_TRUE(hasShopScripts(" " + shopScripts()));
  EXPECT_FALSE(hasShopScripts("<script src='cookiefunctions.js'></script>"));
}

} // namespace
} // namespace mrd::shop
