#include "open_shop.h"

#include "base/product.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::shop {
namespace {

using testing::ElementsAre;

TEST(Shop, without_settings_begins_as_it_was_designed)
{
  OpenShop desk;
  const auto& shop = desk.load();

  EXPECT_EQ(shop.TBShopID, "9950");
  EXPECT_EQ(shop.tbwakodeu, "wako_de.htm");
  EXPECT_EQ(shop.tbwakoeng, "wako_en.htm");
  EXPECT_TRUE(shop.OptionStückzahl && shop.OptionSpracheDeutsch && shop.OptionWahrenkorb && shop.OptionWaehrungEuro);
}

TEST(Shop, takes_its_settings_trimmed_and_without_regard_to_case_of_the_key)
{
  OpenShop desk;
  for (const auto& [key, value] : {std::pair{"shopid", " 1234 "},
                                   {"ShopStückzahl", "nein"},
                                   {"ShopDeutsch", " ja "},
                                   {"Shopwako", "vielleicht"},
                                   {"ShopWakoDeu", " korb.htm"},
                                   {"ShopWakoEng", ""}})
    desk.project.setSetting(key, value);

  const auto& shop = desk.load();

  EXPECT_EQ(shop.TBShopID, "1234");
  EXPECT_FALSE(shop.OptionStückzahl);
  EXPECT_TRUE(shop.OptionSpracheDeutsch);
  EXPECT_FALSE(shop.OptionWahrenkorb);
  EXPECT_EQ(shop.tbwakodeu, "korb.htm");
  EXPECT_EQ(shop.tbwakoeng, "");
}

TEST(Shop, stores_its_settings_when_it_is_closed_by_its_button)
{
  OpenShop desk;
  desk.project.setSetting("ShopDeutsch", "ja");
  auto& shop = desk.load();
  shop.TBShopID = "4711";
  shop.OptionStückzahl = shop.OptionSpracheDeutsch = false;
  shop.tbwakodeu = "Anna's Korb.htm";

  shop.cmdClose_Click();

  EXPECT_EQ(desk.unloads, 1);
  EXPECT_EQ(desk.project.setting("ShopID"), "4711");
  EXPECT_EQ(desk.project.setting("ShopStückzahl"), "nein");
  EXPECT_EQ(desk.project.setting("ShopDeutsch"), "nein");
  EXPECT_EQ(desk.project.setting("Shopwako"), "ja");
  EXPECT_EQ(desk.project.setting("ShopWakoDeu"), "Anna's Korb.htm");
  EXPECT_EQ(desk.project.setting("ShopWakoEng"), "wako_en.htm");
}

TEST(Shop, adds_missing_settings_in_their_order)
{
  OpenShop desk;
  std::vector<std::string> keys;
  desk.load().cmdClose_Click();

  for (auto rows = desk.project.db().openRecordset("SELECT * FROM Einstellungen WHERE Einstellung LIKE 'shop*'"); !rows.eof();
       rows.moveNext())
    keys.push_back(rows.value("Einstellung").text());
  EXPECT_THAT(keys, ElementsAre("ShopID", "ShopStückzahl", "ShopDeutsch", "Shopwako", "ShopWakoDeu", "ShopWakoEng"));
}

TEST(Shop, loses_changed_settings_by_the_close_box)
{
  OpenShop desk;
  auto& shop = desk.load();
  shop.TBShopID = "4711";

  EXPECT_TRUE(shop.Form_QueryUnload());
  shop.Form_Unload();

  EXPECT_EQ(desk.project.setting("ShopID"), std::nullopt);
}

TEST(Shop, tells_when_its_settings_cannot_be_stored_and_stays)
{
  OpenShop desk;
  auto& shop = desk.load();
  desk.project.db().execute("DROP TABLE Einstellungen");
  desk.ui.expect(1, "cmdClose_Click");

  shop.cmdClose_Click();

  EXPECT_EQ(desk.unloads, 0);
}

TEST(Shop, opens_the_partners_page)
{
  OpenShop desk;

  desk.load().lblPartner_Click();

  EXPECT_THAT(desk.shell.opened, ElementsAre(std::string(base::kShopPartnerAddress)));
}

TEST(NewArticle, begins_in_the_box_for_the_german_name)
{
  OpenShop desk;
  desk.addArticle(1, "Poster");
  auto& shop = desk.load();

  shop.cmdAdd_Click();

  EXPECT_THAT(shop.txtFields, testing::Each(""));
  EXPECT_EQ(desk.focus, "txtFields1");
  EXPECT_EQ(desk.ui.pointerShape, ui::Pointer::Default);
}

TEST(NewArticle, with_a_name_and_a_price_gets_the_others_from_them)
{
  OpenShop desk;
  auto& shop = desk.load();
  shop.cmdAdd_Click();
  shop.txtFields[kGerman] = "Möwe";
  shop.txtFields[kEuro] = "10";

  shop.cmdUpdate_Click();

  EXPECT_THAT(shop.txtFields, ElementsAre("1", "Möwe", "Möwe", "10", "15"));
  EXPECT_EQ(desk.stored(1, "Artikel_englisch").text(), "Möwe");
  EXPECT_EQ(desk.stored(1, "Preis_Euro").number(), 10);
  EXPECT_EQ(desk.stored(1, "Preis_Dollar").number(), 15);
  EXPECT_EQ(desk.focus, "cmdAdd");
  EXPECT_EQ(shop.Data1.caption, "Datensatz: 1");
}

TEST(NewArticle, is_the_current_one_when_it_is_stored)
{
  OpenShop desk;
  desk.addArticle(1, "Poster");
  desk.addArticle(5, "Tasse");
  auto& shop = desk.load();
  shop.cmdAdd_Click();
  shop.txtFields[kGerman] = "Karte";
  shop.txtFields[kEuro] = "1,2";

  shop.cmdUpdate_Click();

  EXPECT_THAT(shop.txtFields, ElementsAre("6", "Karte", "Karte", "1,2", "1,8"));
  EXPECT_EQ(shop.Data1.caption, "Datensatz: 3");
}

TEST(Article, without_a_number_as_its_price_is_not_stored_and_stays_changed)
{
  for (const auto* const price : {"abc", ""}) {
    OpenShop desk;
    desk.addArticle(1, "Poster", 12.5);
    auto& shop = desk.load();
    shop.txtFields[kEuro] = price;
    desk.ui.expect(0, "Der Euro-Preis muß numerisch sein.");

    shop.cmdUpdate_Click();

    EXPECT_EQ(shop.txtFields[kEuro], price);
    EXPECT_TRUE(shop.Data1.isDirty());
    EXPECT_EQ(desk.stored(1, "Preis_Euro").number(), 12.5);
  }
}

TEST(Article, keeps_a_price_in_dollars_that_was_given_even_nothing)
{
  OpenShop desk;
  desk.addArticle(1, "Poster", 12.5, 20);
  auto& shop = desk.load();
  shop.txtFields[kDollar] = "0";

  shop.cmdUpdate_Click();

  EXPECT_EQ(desk.stored(1, "Preis_Dollar").number(), 0);
  EXPECT_EQ(shop.txtFields[kDollar], "0");
}

TEST(Article, has_its_price_in_dollars_worked_out_by_the_fixed_rate)
{
  OpenShop desk;
  desk.addArticle(1, "Poster", 12.5);
  auto& shop = desk.load();
  shop.txtFields[kDollar] = "viel";

  shop.cmdUpdate_Click();

  EXPECT_EQ(shop.txtFields[kDollar], "18,75");
  EXPECT_EQ(desk.stored(1, "Preis_Dollar").number(), 18.75);
}

TEST(Article, is_shown_with_a_decimal_point_in_english)
{
  OpenShop desk("ENG");
  desk.addArticle(1, "Poster", 12.5);

  EXPECT_EQ(desk.load().txtFields[kEuro], "12.5");
}

TEST(Article, that_was_the_last_leaves_an_empty_list)
{
  OpenShop desk;
  desk.addArticle(1, "Poster");
  auto& shop = desk.load();

  shop.cmdDelete_Click();

  EXPECT_EQ(desk.articles(), 0U);
  EXPECT_EQ(shop.Data1.caption, "Datensatz: 0");
  EXPECT_EQ(desk.ui.pointerShape, ui::Pointer::Default);
}

TEST(Article, that_is_not_there_cannot_be_deleted)
{
  OpenShop desk;
  auto& shop = desk.load();
  desk.ui.expect(0, "Datenfehler-Ereignis ausgelöst. Fehler:Kein aktueller Datensatz.");

  shop.cmdDelete_Click();

  EXPECT_EQ(desk.ui.pointerShape, ui::Pointer::Default);
}

TEST(Article, gets_back_what_is_stored_when_it_is_read_anew)
{
  OpenShop desk;
  desk.addArticle(1, "Poster");
  auto& shop = desk.load();
  shop.txtFields[kGerman] = "Plakat";

  shop.cmdRefresh_Click();

  EXPECT_EQ(shop.txtFields[kGerman], "Poster");
}

TEST(Article, that_was_changed_is_stored_when_the_dialog_closes)
{
  OpenShop desk;
  desk.addArticle(1, "Poster");
  auto& shop = desk.load();
  shop.txtFields[kGerman] = "Plakat";

  shop.cmdClose_Click();

  EXPECT_EQ(desk.stored(1, "Artikel_deutsch").text(), "Plakat");
}

TEST(Article, that_cannot_be_stored_keeps_the_dialog_open)
{
  OpenShop desk;
  desk.addArticle(1, "Poster");
  auto& shop = desk.load();
  shop.txtFields[kEuro] = "abc";
  desk.ui.expect(0, "Datenfehler-Ereignis ausgelöst. Fehler:Das ist keine Zahl: abc");

  shop.cmdClose_Click();

  EXPECT_EQ(desk.unloads, 0);
}

TEST(Article, takes_the_heading_of_the_page_as_its_name)
{
  OpenShop desk;
  desk.addArticle(1, "Poster");
  auto& shop = desk.load();

  shop.cbNimmÜberschrift_Click();
  EXPECT_EQ(shop.txtFields[kGerman], "Das Haus");
  EXPECT_EQ(desk.focus, "txtFields1");
  EXPECT_EQ(desk.selected, "txtFields1");

  shop.cbnimmenglisch_Click();
  EXPECT_EQ(shop.txtFields[kEnglish], "Das Haus");
  EXPECT_EQ(desk.focus, "txtFields2");
  EXPECT_EQ(desk.selected, "txtFields2");
}

TEST(DataControl, has_the_hourglass_until_another_record_is_there)
{
  OpenShop desk;
  desk.addArticle(1, "Poster");
  desk.addArticle(2, "Tasse");
  auto& shop = desk.load();
  bool waited = false;
  shop.window.refresh = [&] { waited = desk.ui.pointerShape == ui::Pointer::Default; };

  shop.Data1_Click(DataAction::MoveNext);

  EXPECT_TRUE(waited);
  EXPECT_EQ(shop.txtFields[kGerman], "Tasse");
}

} // namespace
} // namespace mrd::shop
