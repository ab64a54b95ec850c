// The shop's window over a page in the real editor, and the auction's buttons with the real clipboard.

#include "base/product.h"
#include "desktop/windows/desk.h"
#include "generator/html_export.h"

#include <QClipboard>
#include <QDialog>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <QWebEngineView>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::desktop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr int kSource = 1, kPageSettings = 2;

struct ShopDesk : testing::Test {
  ShopDesk()
  {
    project.setSetting("Exportpfad", project.directory().file("site\\"));
    std::filesystem::create_directories(project.directory().native() / "site" / "pix");
    project.db().execute("INSERT INTO Artikel (Artikelnummer, Artikel_deutsch, Artikel_englisch, Preis_Euro) "
                         "VALUES (7, 'Poster', 'Poster', 12.5)");
    home.lastWorkedOn(project.file());
    desk = std::make_unique<Desk>(home);
    desk->start();
    desk->clickNode("@01");
  }

  void openShop()
  {
    desk->action("mnuShop").trigger();
    desk->settle();
  }
  QDialog* shop() { return desk->window().findChild<QDialog*>("frmmrdshop"); }
  QLineEdit& box(const char* name) { return *shop()->findChild<QLineEdit*>(QString::fromUtf8(name)); }
  void press(const char* name)
  {
    shop()->findChild<QPushButton*>(QString::fromUtf8(name))->click();
    desk->settle();
  }
  bool shopIsGone()
  {
    // What closes by itself goes in the loop that it was closed from, which a test has none of.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return shop() == nullptr;
  }
  /// Runs a script in the edited document, in the world of the editor's own.
  void inDocument(const QString& script)
  {
    const auto done = std::make_shared<bool>(false);
    desk->surface().findChild<QWebEngineView*>()->page()->runJavaScript(script, QWebEngineScript::ApplicationWorld,
                                                                        [done](const QVariant&) { *done = true; });
    comesTrue([&] { return *done; });
    desk->settle();
  }
  void placeCursor(const char* element, int offset)
  {
    inDocument(QString("getSelection().collapse(document.querySelector('%1').firstChild, %2)").arg(element).arg(offset));
  }
  std::string html(std::string_view id) { return project.column(id, "html").text(); }
  std::string script(std::string_view id) { return project.column(id, "script").text(); }

  support::TemporaryProject project{{"00", "Start", heading("Start")},
                                    {"01", "Laden", heading("Laden") + "<p>vorher nachher</p>"},
                                    {"02", "Angebot", heading("Angebot") + "<p>Möwe</p>", "angebot-*.htm", 4}};
  ProgramHome home;
  std::unique_ptr<Desk> desk;
};

TEST_F(ShopDesk, shows_the_first_article_and_stays_above_the_page)
{
  openShop();

  ASSERT_NE(shop(), nullptr);
  EXPECT_TRUE(shop()->isVisible());
  EXPECT_FALSE(shop()->isModal());
  EXPECT_EQ(box("txtFields_0").text(), "7");
  EXPECT_EQ(box("txtFields_3").text(), "12,5");
  EXPECT_EQ(shop()->findChild<QLabel*>("Data1")->text(), "Datensatz: 1");
  EXPECT_EQ(box("TBShopID").text(), "9950");
}

TEST_F(ShopDesk, is_one_window_however_often_it_is_asked_for)
{
  openShop();
  openShop();

  EXPECT_EQ(desk->window().findChildren<QDialog*>("frmmrdshop").size(), 1);
}

TEST_F(ShopDesk, keeps_articles)
{
  openShop();

  press("cmdAdd");
  EXPECT_TRUE(box("txtFields_1").hasFocus() || !shop()->isActiveWindow());
  box("txtFields_1").setText("Tasse");
  box("txtFields_3").setText("10");
  press("cmdUpdate");

  EXPECT_EQ(box("txtFields_2").text(), "Tasse");
  EXPECT_EQ(box("txtFields_4").text(), "15");
  EXPECT_EQ(shop()->findChild<QLabel*>("Data1")->text(), "Datensatz: 2");
  press("DataPrevious");
  EXPECT_EQ(box("txtFields_1").text(), "Poster");
  press("cmdDelete");
  EXPECT_EQ(box("txtFields_1").text(), "Tasse");
  press("cmdDelete");
  EXPECT_EQ(shop()->findChild<QLabel*>("Data1")->text(), "Datensatz: 0");
  EXPECT_THAT(desk->answers.boxes, IsEmpty());
}

TEST_F(ShopDesk, takes_the_heading_of_the_page)
{
  openShop();

  press("cbNimmÜberschrift");

  EXPECT_EQ(box("txtFields_1").text(), "Laden");
  EXPECT_EQ(box("txtFields_1").selectedText(), "Laden");
}

TEST_F(ShopDesk, puts_an_article_at_the_cursor_and_the_page_keeps_it)
{
  openShop();
  placeCursor("p", 7);

  press("cbArtikelEinfügen");
  desk->action("seitespeichern").trigger();
  desk->settle();

  EXPECT_THAT(html("01"),
              testing::MatchesRegex("(.|\n)*vorher (.|\n)*<form name=\"form7\">Poster, 12.50 EUR :&nbsp;<input (.|\n)*"
                                    "artikelinwako\\(7, 'Poster', 12.50, 18.75, (.|\n)*</form>(.|\n)*nachher(.|\n)*"));
  EXPECT_THAT(html("01"), HasSubstr(" function my_onclick() {\r\n     artikelinwako(7, 'Poster', 12.50, 18.75, "
                                    "document.form7.anzahl.value, 'DEU', 'wako_de.htm'); \r\n  }\r\n"
                                    "document.form7.mybutton.onclick = my_onclick \r\n</script></button></form>"));
  EXPECT_EQ(script("01"), " \r\n<SCRIPT src='mrdshop.js' type='text/javascript'></SCRIPT>\r\n"
                          "<SCRIPT src='cookiefunctions.js' type='text/javascript'></SCRIPT>\r\n");
  EXPECT_THAT(desk->answers.boxes, IsEmpty());
}

TEST_F(ShopDesk, puts_nothing_in_the_place_of_a_selected_picture)
{
  openShop();
  inDocument("document.body.append(document.createElement('img'))");
  inDocument("{ const r = document.createRange(); r.selectNode(document.querySelector('img')); "
             "getSelection().removeAllRanges(); getSelection().addRange(r); }");

  press("cbArtikelEinfügen");

  EXPECT_THAT(desk->answers.boxes, ElementsAre("Positionieren Sie den Cursor an der Einfügeposition"));
  EXPECT_THAT(desk->surface().bodyInnerHtml(), Not(HasSubstr("<form")));
  EXPECT_THAT(desk->form().pages().fields.tbScript, Not(HasSubstr("mrdshop.js")));
}

TEST_F(ShopDesk, puts_the_basket_into_the_page)
{
  openShop();
  shop()->findChild<QRadioButton*>("OptionSpracheEnglisch")->click();
  shop()->findChild<QRadioButton*>("OptionWaehrngDollar")->click();
  box("TBShopID").setText("1234");
  placeCursor("p", 0);

  press("CbWarenkorbeinfügen");

  EXPECT_THAT(desk->surface().bodyInnerHtml(), HasSubstr("<b>Content: </b>"));
  EXPECT_THAT(desk->surface().bodyInnerHtml(),
              HasSubstr("<script type=\"text/javascript\"><!--\r\nwakozeigen(1234,'ENG','USD'); \r\n// -->\r\n</script>"));
}

TEST_F(ShopDesk, brings_articles_of_the_page_up_to_date)
{
  openShop();
  placeCursor("p", 7);
  press("cbArtikelEinfügen");
  inDocument(
      "document.body.insertAdjacentHTML('beforeend', '<form name=\"form8\">weg</form><form name=\"formular\">fremd</form>')");
  box("txtFields_3").setText("20");
  press("cmdUpdate");

  press("cbaktualisieren");

  EXPECT_THAT(desk->answers.boxes, ElementsAre("Es wurden 1 Artikel aktualisiert."));
  const std::string body = desk->surface().bodyInnerHtml();
  EXPECT_THAT(body, HasSubstr("artikelinwako(7, 'Poster', 20.00, 30.00, "));
  EXPECT_THAT(body, HasSubstr("<form name=\"form8\">weg</form><form name=\"formular\">fremd</form>"));
  EXPECT_THAT(body, HasSubstr("vorher"));
  EXPECT_TRUE(desk->form().pages().PageDirty());
}

TEST_F(ShopDesk, shows_the_page_before_it_puts_something_into_it)
{
  openShop();
  auto& tabs = desk->find<QTabWidget>("tabHtml");
  tabs.setCurrentIndex(kSource);
  desk->settle();

  press("cbArtikelEinfügen");

  EXPECT_EQ(tabs.currentIndex(), 0);
  EXPECT_THAT(desk->surface().bodyInnerHtml(), HasSubstr("<form name=\"form7\">"));
  tabs.setCurrentIndex(kSource);
  desk->settle();
  tabs.setCurrentIndex(0);
  desk->settle();
  EXPECT_THAT(desk->surface().bodyInnerHtml(), HasSubstr("<form name=\"form7\">"));
}

TEST_F(ShopDesk, puts_nothing_into_the_head_of_the_site)
{
  openShop();
  desk->find<QTabWidget>("TabTree").setCurrentIndex(1);
  desk->settle();

  press("cbArtikelEinfügen");

  EXPECT_EQ(desk->answers.boxes.size(), 1U);
  EXPECT_THAT(desk->surface().bodyInnerHtml(), Not(HasSubstr("<form")));
}

TEST_F(ShopDesk, stores_its_options_by_the_button_and_not_by_the_close_box)
{
  openShop();
  box("TBShopID").setText("4711");
  shop()->close();
  EXPECT_TRUE(shopIsGone());
  EXPECT_EQ(project.setting("ShopID"), std::nullopt);

  openShop();
  box("TBShopID").setText("4712");
  shop()->findChild<QRadioButton*>("OptionArtikelDirekt")->click();
  press("cmdClose");
  EXPECT_TRUE(shopIsGone());
  EXPECT_EQ(project.setting("ShopID"), "4712");
  EXPECT_EQ(project.setting("Shopwako"), "nein");

  openShop();
  EXPECT_EQ(box("TBShopID").text(), "4712");
  EXPECT_TRUE(shop()->findChild<QRadioButton*>("OptionArtikelDirekt")->isChecked());
}

TEST_F(ShopDesk, stays_open_with_an_article_that_cannot_be_stored)
{
  openShop();
  box("txtFields_3").setText("abc");

  shop()->close();
  desk->settle();

  EXPECT_THAT(desk->answers.boxes, ElementsAre("Datenfehler-Ereignis ausgelöst. Fehler:Das ist keine Zahl: abc"));
  ASSERT_NE(shop(), nullptr);
  EXPECT_TRUE(shop()->isVisible());
  press("cmdRefresh");
  shop()->close();
  EXPECT_TRUE(shopIsGone());
}

TEST_F(ShopDesk, closes_with_the_main_window_and_keeps_the_article)
{
  openShop();
  box("txtFields_1").setText("Plakat");

  desk->window().close();
  desk->settle();

  EXPECT_FALSE(shop() && shop()->isVisible());
  EXPECT_EQ(project.db().openRecordset("SELECT * FROM Artikel").value("Artikel_deutsch").text(), "Plakat");
}

struct AuctionDesk : ShopDesk {
  AuctionDesk()
  {
    desk->clickNode("@02");
    desk->find<QTabWidget>("tabHtml").setCurrentIndex(kPageSettings);
    desk->settle();
    QGuiApplication::clipboard()->setText("alt");
  }
  void generate()
  {
    desk->answers.dialogs.push_back([](QDialog& dialog) {
      dialog.findChild<QAbstractButton*>("cbHTML")->click();
      dialog.reject();
    });
    desk->action("html").trigger();
    desk->settle();
  }
  void copy()
  {
    desk->find<QPushButton>("cbEbayHTMLkopieren").click();
    desk->settle();
  }
  std::string copied() { return QGuiApplication::clipboard()->text().toStdString(); }
};

TEST_F(AuctionDesk, copies_style_and_body_of_the_generated_page)
{
  generate();
  ASSERT_TRUE(std::filesystem::exists(project.directory().native() / "site" / "angebot-02.htm"));

  copy();

  EXPECT_THAT(desk->answers.boxes, ElementsAre(HasSubstr("in der Zwischenablage")));
  EXPECT_THAT(copied(), testing::StartsWith("<STYLE"));
  EXPECT_THAT(copied(), HasSubstr("<p>Möwe</p>"));
  EXPECT_THAT(copied(), HasSubstr("</BODY"));
  EXPECT_THAT(copied(), Not(HasSubstr("</HEAD")));
  EXPECT_THAT(copied(), Not(HasSubstr("<title>")));
}

TEST_F(AuctionDesk, says_when_the_page_has_not_been_generated)
{
  copy();

  EXPECT_THAT(desk->answers.boxes, ElementsAre(HasSubstr("noch nicht erzeugt")));
  EXPECT_EQ(copied(), "alt");
}

TEST_F(AuctionDesk, empties_the_clipboard_for_a_page_without_a_style_element)
{
  project.directory().write("site/angebot-02.htm", "<html><head><link rel=stylesheet></head>\r\n<BODY>\r\nx\r\n</BODY>\r\n");

  copy();

  EXPECT_EQ(copied(), "");
  EXPECT_THAT(desk->answers.boxes, ElementsAre(HasSubstr("in der Zwischenablage")));
}

TEST_F(AuctionDesk, makes_the_tag_that_leads_to_the_auction)
{
  desk->find<QLineEdit>("TBEbayArtikelnummer").setText("4711");

  desk->find<QPushButton>("CbEbayMetatag").click();
  desk->action("seitespeichern").trigger();
  desk->settle();

  EXPECT_EQ(script("02"), "<meta http-equiv='refresh' content='0; URL=" + std::string(base::kAuctionItemServer) +
                              "/ws/eBayISAPI.dll?ViewItem&item=4711'>");
}

TEST_F(AuctionDesk, buttons_are_out_of_sight_on_pages_of_another_type)
{
  EXPECT_TRUE(desk->find<QPushButton>("cbEbayHTMLkopieren").isVisible());

  desk->clickNode("@01");

  for (const auto* const name : {"cbEbayHTMLkopieren", "CbEbayMetatag", "cbebaykategorien"})
    EXPECT_FALSE(desk->find<QPushButton>(name).isVisible()) << name;
}

} // namespace
} // namespace mrd::desktop
