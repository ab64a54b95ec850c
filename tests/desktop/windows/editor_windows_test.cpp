// The editor's menus, dialogs and keys on the real surface.

#include "desktop/controls/html_source.h"
#include "desktop/windows/editor_desk.h"
#include "platform/ui/editing_commands.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QImage>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTabWidget>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::desktop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr int kSourceTab = 1, kLayoutTab = 3;

// --- Edit

TEST_F(EditorWindows, cut_copy_paste_undo_and_redo)
{
  page("<p id=\"a\">eins</p><p id=\"b\">zwei</p>");
  select("#a");
  trigger("editsub_3");
  EXPECT_EQ(QApplication::clipboard()->text(), "eins");
  const std::string cut = body();
  EXPECT_THAT(cut, Not(HasSubstr("eins")));
  trigger("editsub_0");
  EXPECT_EQ(body(), "<p id=\"a\">eins</p><p id=\"b\">zwei</p>");
  trigger("editsub_1");
  EXPECT_EQ(body(), cut);
  select("#b");
  trigger("editsub_4");
  EXPECT_EQ(QApplication::clipboard()->text(), "zwei");
  trigger("editsub_6");
  trigger("editsub_5");
  EXPECT_THAT(body(), HasSubstr("zwei"));
  page("<p>x</p>");
  select("p");
  QApplication::clipboard()->setText("<b>Text</b>");
  trigger("editsub_12");

  EXPECT_THAT(body(), HasSubstr("&lt;b&gt;Text&lt;/b&gt;"));
  EXPECT_TRUE(dirty());
}

TEST_F(EditorWindows, show_in_the_menu_edit_what_the_selection_allows)
{
  page("<p>Text</p>");
  EXPECT_FALSE(shown("Edit", "editsub_0").enabled);
  EXPECT_FALSE(shown("Edit", "editsub_1").enabled);
  placeCursor("p");
  EXPECT_FALSE(shown("Edit", "editsub_3").enabled);
  select("p");
  EXPECT_TRUE(shown("Edit", "editsub_3").enabled);
  trigger("editsub_3");
  EXPECT_TRUE(shown("Edit", "editsub_0").enabled);

  // With the menu closed the keys reach every command.
  EXPECT_TRUE(desk->action("editsub_1").isEnabled());
}

TEST_F(EditorWindows, find_a_text_and_find_it_again_by_its_key)
{
  page("<p>Haus</p><p>haus</p>");
  inDialog([](QDialog& dialog) {
    QTest::keyClicks(dialog.findChild<QLineEdit*>(), "HAUS");
    dialog.accept();
  });
  trigger("editsub_8");
  EXPECT_EQ(surface().selectedText(), "Haus");
  desk->action("findNext").trigger();
  EXPECT_EQ(surface().selectedText(), "haus");
  inDialog([](QDialog& dialog) {
    QTest::keyClicks(dialog.findChild<QLineEdit*>(), "Garten");
    dialog.accept();
  });
  trigger("editsub_11");

  EXPECT_THAT(desk->answers.boxes, ElementsAre(HasSubstr("nicht gefunden")));
  EXPECT_FALSE(dirty());
}

TEST_F(EditorWindows, tick_the_grid)
{
  trigger("editsub_10");
  EXPECT_TRUE(shown("Edit", "editsub_10").checked);
  trigger("editsub_10");

  EXPECT_FALSE(shown("Edit", "editsub_10").checked);
}

TEST_F(EditorWindows, do_what_the_keys_say_once)
{
  page("<p id=\"a\">eins</p><p id=\"b\">zwei</p>");
  surface().setFocus();
  desk->settle();
  QWidget* const view = surface().findChild<QWebEngineView*>()->focusProxy();
  const auto key = [&](Qt::Key pressed, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    QTest::keyClick(view, pressed, modifiers);
    letPass(150);
  };
  select("#a");
  key(Qt::Key_C);
  inPage("getSelection().collapse(document.getElementById('b'), 1)");
  key(Qt::Key_V);
  EXPECT_EQ(body(), "<p id=\"a\">eins</p><p id=\"b\">zweieins</p>");
  key(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(body(), "<p id=\"a\">eins</p><p id=\"b\">zweieinseins</p>");
  key(Qt::Key_Z);
  EXPECT_EQ(body(), "<p id=\"a\">eins</p><p id=\"b\">zweieins</p>");
  key(Qt::Key_Z);
  EXPECT_EQ(body(), "<p id=\"a\">eins</p><p id=\"b\">zwei</p>");
  key(Qt::Key_Y);
  EXPECT_EQ(body(), "<p id=\"a\">eins</p><p id=\"b\">zweieins</p>");
  inDialog([](QDialog& dialog) {
    dialog.findChild<QLineEdit*>()->insert("zwei");
    dialog.accept();
  });
  key(Qt::Key_F);
  desk->settle();
  EXPECT_EQ(surface().selectedText(), "zwei");
  key(Qt::Key_A);

  EXPECT_THAT(surface().selectedText(), HasSubstr("eins"));
}

// --- Insert

TEST_F(EditorWindows, insert_a_picture_with_its_text_size_and_place)
{
  const std::string path = photo("möwe.jpg");
  page("<p>Text</p>");
  placeCursor("p");
  inDialog([&](QDialog& dialog) {
    type(dialog, "tbbild", ("file://" + path).c_str());
    type(dialog, "tbalt", "Eine Möwe");
    type(dialog, "tbbreite", "80");
    auto& alignment = *dialog.findChild<QComboBox*>("ComboAusrichtung");
    alignment.setCurrentIndex(2);
    emit alignment.activated(2);
    press(dialog, "cbok");
  });

  trigger("InsertSub1_0");

  EXPECT_EQ(body(), "<p><img src=\"file://" + path + "\" alt=\"Eine Möwe\" width=\"80\" align=\"right\" border=\"0\">Text</p>");
  EXPECT_TRUE(dirty());
}

TEST_F(EditorWindows, change_the_selected_picture_in_the_same_proportions)
{
  const std::string path = photo("möwe.jpg");
  page("<p><img src=\"file://" + path + "\"></p>");
  comesTrue([&] { return inPage("document.querySelector('img').naturalWidth").toInt() == 40; });
  selectWhole("img");
  inDialog([&](QDialog& dialog) {
    type(dialog, "tbbreite", "20");
    press(dialog, "cbok");
  });

  trigger("pix_eins");

  EXPECT_EQ(body(), "<p><img src=\"file://" + path + "\" width=\"20\" height=\"15\"></p>");
}

TEST_F(EditorWindows, insert_no_picture_when_the_dialog_is_cancelled)
{
  page("<p>Text</p>");
  placeCursor("p");

  trigger("InsertSub1_0");
  trigger("InsertSub1_1");

  EXPECT_EQ(body(), "<p>Text</p>");
  EXPECT_FALSE(dirty());
}

TEST_F(EditorWindows, link_a_text_to_a_page_of_the_project)
{
  page("<p>Text</p>");
  select("p");
  inDialog([&](QDialog& dialog) {
    auto& pages = *dialog.findChild<QListWidget*>("Listseiten");
    EXPECT_EQ(pages.count(), 3);
    EXPECT_FALSE(dialog.findChild<QAbstractButton*>("cbentfernen")->isEnabled());
    QTest::mouseClick(pages.viewport(), Qt::LeftButton, {}, pages.visualItemRect(pages.item(1)).center());
    dialog.findChild<QCheckBox*>("Checkneuesfenster")->click();
    press(dialog, "cbok");
  });
  trigger("InsertSub1_1");
  EXPECT_EQ(body(), "<p><a href=\"haus_01.htm\" target=\"_blank\">Text</a></p>");

  placeCursor("a");
  inDialog([&](QDialog& dialog) {
    EXPECT_EQ(dialog.findChild<QListWidget*>("Listseiten")->currentRow(), 1);
    press(dialog, "cbentfernen");
  });
  trigger("InsertSub1_1");

  EXPECT_EQ(body(), "<p>Text</p>");
}

TEST_F(EditorWindows, insert_html)
{
  page("<p>Text</p>");
  select("p");
  inDialog([&](QDialog& dialog) {
    auto& field = *dialog.findChild<QPlainTextEdit*>("HTMLText");
    EXPECT_EQ(dialog.focusWidget(), &field);
    QTest::keyClicks(&field, "<b>fett</b>");
    press(dialog, "cmdOK");
  });

  trigger("InsertSub1_3");

  EXPECT_EQ(body(), "<p><b>fett</b></p>");
  EXPECT_TRUE(dirty());
}

TEST_F(EditorWindows, insert_no_html_over_a_selected_picture)
{
  page("<p>Text<img src=\"x.jpg\"></p>");
  selectWhole("img");
  inDialog([&](QDialog& dialog) {
    QTest::keyClicks(dialog.findChild<QPlainTextEdit*>("HTMLText"), "<b>fett</b>");
    press(dialog, "cmdOK");
  });

  trigger("InsertSub1_3");

  EXPECT_EQ(body(), "<p>Text<img src=\"x.jpg\"></p>");
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(EditorWindows, make_a_marquee_and_twelve_points)
{
  page("<p>Ein <b>fetter</b> Text</p>");
  placeCursor("p");
  trigger("InsertSub1_4");
  EXPECT_THAT(desk->answers.boxes, ElementsAre(HasSubstr("Bitte markieren Sie zuerst einen Text.")));
  EXPECT_EQ(body(), "<p>Ein <b>fetter</b> Text</p>");
  trigger("InsertSub1_5");
  EXPECT_EQ(body(), "<p style=\"font-size: 12pt;\">Ein <b>fetter</b> Text</p>");
  trigger("editsub_0");
  select("p");
  trigger("InsertSub1_4");
  EXPECT_EQ(body(), "<p><marquee>Ein fetter Text</marquee></p>");
  trigger("editsub_0");

  EXPECT_EQ(body(), "<p>Ein <b>fetter</b> Text</p>");
}

TEST_F(EditorWindows, give_the_body_twelve_points_with_the_cursor_in_it)
{
  page("Text");
  inPage("getSelection().collapse(document.body, 0)");
  desk->settle();

  trigger("InsertSub1_5");

  EXPECT_EQ(inPage("document.body.style.fontSize").toString(), "12pt");
  trigger("InsertSub1_2");
  EXPECT_EQ(body(), "Text");
}

// --- Format

TEST_F(EditorWindows, set_each_of_the_sixteen_formats)
{
  for (int entry = 0; entry < 16; ++entry) {
    page("<div>Text</div>");
    placeCursor("div");
    const std::string name = "FormatSub_" + std::to_string(entry);
    const auto caption = desk->action(name.c_str()).text().toStdString();

    trigger(name);

    surface().refreshStatus();
    EXPECT_EQ(surface().commandValue(ui::command::kGetBlockFormat), caption);
    if (entry > 0) {
      trigger("editsub_0");
      EXPECT_EQ(body(), "<div>Text</div>") << caption;
    }
  }
  EXPECT_TRUE(shown("Format", "FormatSub_3").enabled);
}

// --- Table

constexpr auto kTable =
    "<p>davor</p><table border=\"1\"><tbody><tr><td id=\"x\">a</td><td>b</td></tr><tr><td>c</td><td>d</td></tr>"
    "</tbody></table>";

TEST_F(EditorWindows, insert_a_table_of_the_wanted_size)
{
  page("<p>Text</p>");
  placeCursor("p");
  inDialog([&](QDialog& dialog) {
    type(dialog, "Rows", "x");
    press(dialog, "OkCmd");
    EXPECT_TRUE(dialog.isVisible());
    type(dialog, "Rows", "1");
    type(dialog, "Cols", "2");
    type(dialog, "TableAttrs", "border=0");
    press(dialog, "OkCmd");
  });

  trigger("TableSub_0");

  EXPECT_THAT(desk->answers.boxes, ElementsAre(HasSubstr("Zahlen")));
  EXPECT_THAT(body(), HasSubstr("<table border=\"0\"><tbody><tr><td>&nbsp;</td><td>&nbsp;</td></tr></tbody></table>"));
}

TEST_F(EditorWindows, run_every_table_entry_and_undo_it)
{
  for (const int entry : {2, 3, 4, 6, 7, 8, 10, 11}) {
    page(kTable);
    const std::string before = body();
    if (entry == 10)
      select("tr");
    else
      placeCursor("#x");

    trigger("TableSub_" + std::to_string(entry));

    EXPECT_NE(body(), before) << entry;
    trigger("editsub_0");
    EXPECT_EQ(body(), before) << entry;
  }
}

TEST_F(EditorWindows, offer_table_entries_in_a_table_only)
{
  page(kTable);
  placeCursor("p");
  for (const auto* const entry :
       {"TableSub_2", "TableSub_3", "TableSub_4", "TableSub_6", "TableSub_7", "TableSub_8", "TableSub_10", "TableSub_11"})
    EXPECT_FALSE(shown("Table", entry).enabled) << entry;
  EXPECT_TRUE(shown("Table", "TableSub_0").enabled);
  placeCursor("#x");
  for (const auto* const entry :
       {"TableSub_2", "TableSub_3", "TableSub_4", "TableSub_6", "TableSub_7", "TableSub_8", "TableSub_11"})
    EXPECT_TRUE(shown("Table", entry).enabled) << entry;
  EXPECT_FALSE(shown("Table", "TableSub_10").enabled);
  select("tr");

  EXPECT_TRUE(shown("Table", "TableSub_10").enabled);
}

TEST_F(EditorWindows, change_the_properties_of_the_table_in_one_step)
{
  page(kTable);
  const std::string before = body();
  placeCursor("#x");
  inDialog([&](QDialog& dialog) {
    EXPECT_EQ(dialog.findChild<QLineEdit*>("tb_table_border")->text(), "1");
    type(dialog, "tb_table_border", "3");
    type(dialog, "tb_td_width", "40");
    dialog.findChild<QComboBox*>("tb_td_align")->setEditText("center");
    press(dialog, "cbok");
  });

  trigger("mnuTableProperties");

  EXPECT_THAT(body(), HasSubstr("<table border=\"3\">"));
  EXPECT_THAT(body(), HasSubstr("<td id=\"x\" align=\"center\" width=\"40\">a</td>"));
  trigger("editsub_0");
  EXPECT_EQ(body(), before);
}

TEST_F(EditorWindows, colour_the_rows_in_turn)
{
  page(kTable);
  placeCursor("#x");
  inDialog([&](QDialog& dialog) {
    type(dialog, "tb_tr_bgcolor", "#eeeeee");
    type(dialog, "tb_tr_bgcolor2", "#dddddd");
    press(dialog, "cb_tr_Farbwechsel");
    press(dialog, "cbschließen");
  });

  trigger("mnuTableProperties");

  EXPECT_THAT(body(), HasSubstr("<tr bgcolor=\"#eeeeee\"><td id=\"x\">a</td>"));
  EXPECT_THAT(body(), HasSubstr("<tr bgcolor=\"#dddddd\"><td>c</td>"));
}

TEST_F(EditorWindows, refuse_the_table_properties_of_a_picture)
{
  page("<table><tbody><tr><td><img src=\"x.jpg\"></td></tr></tbody></table>");
  selectWhole("img");

  trigger("mnuTableProperties");

  EXPECT_THAT(desk->answers.boxes, ElementsAre("Bitte stellen Sie den Cursor in die Tabelle."));
}

// --- Positioning

TEST_F(EditorWindows, position_an_element_and_order_the_layers)
{
  page("<p>Text<img src=\"x.jpg\" width=\"20\" height=\"20\"></p>");
  EXPECT_FALSE(shown("D2D", "D2DSub_0").enabled);
  selectWhole("img");
  EXPECT_TRUE(shown("D2D", "D2DSub_0").enabled);
  EXPECT_FALSE(shown("D2D", "D2DSub_1").enabled);
  trigger("D2DSub_0");
  EXPECT_EQ(desk->action("D2DSub_0").text(), "Nicht mehr &absolut positionieren");
  EXPECT_TRUE(shown("D2D", "D2DSub_0").checked);
  for (const int entry : {1, 2, 3, 4, 5, 6}) {
    const std::string before = body();
    trigger("D2DSub_" + std::to_string(entry));
    EXPECT_NE(body(), before) << entry;
  }
  trigger("D2DSub_8");
  EXPECT_TRUE(shown("D2D", "D2DSub_8").checked);
  EXPECT_FALSE(shown("D2D", "D2DSub_1").enabled);
  trigger("D2DSub_8");
  trigger("D2DSub_0");

  EXPECT_EQ(desk->action("D2DSub_0").text(), "&Absolut positionieren");
  EXPECT_EQ(body(), "<p>Text<img src=\"x.jpg\" width=\"20\" height=\"20\"></p>");
}

// --- context menu

TEST_F(EditorWindows, have_a_context_menu_for_a_picture_in_a_table)
{
  const std::string path = photo("möwe.jpg");
  page("<table><tbody><tr><td><img id=\"i\" width=\"60\" height=\"40\" src=\"file://" + path + "\"></td></tr></tbody></table>");
  QMenu* menu = contextMenu("#i");
  ASSERT_NE(menu, nullptr);
  ASSERT_EQ(menu->actions().size(), 21);
  EXPECT_EQ(menu->actions().at(6 + 6 + 8)->text(), "Tabelleneigenschaften");
  choose(*menu, "Schatten hinzufügen");
  EXPECT_THAT(body(), HasSubstr("möwe_shd.jpg"));
  EXPECT_TRUE(dirty());

  menu = contextMenu("#i");
  choose(*menu, "Schatten entfernen");
  EXPECT_THAT(body(), Not(HasSubstr("_shd")));
  menu = contextMenu("#i");
  choose(*menu, "absolute Positionierung");
  EXPECT_THAT(body(), HasSubstr("position: absolute"));
  menu = contextMenu("#i");
  inDialog([&](QDialog& dialog) {
    type(dialog, "tbalt", "Möwe");
    press(dialog, "cbok");
  });
  choose(*menu, "Bildeigenschaften");

  EXPECT_THAT(body(), HasSubstr("alt=\"Möwe\""));
}

TEST_F(EditorWindows, have_a_context_menu_for_text_with_a_font)
{
  page(kTable);
  select("#x");
  QMenu* menu = contextMenu("#x");
  ASSERT_EQ(menu->actions().size(), 15);
  inDialog([&](QDialog& dialog) {
    dialog.findChild<QComboBox*>("Comboschrift")->setEditText("Verdana");
    dialog.findChild<QComboBox*>("Combogröße")->setCurrentIndex(5);
    press(dialog, "cbok");
  });
  choose(*menu, "Schriftart...");
  EXPECT_THAT(body(), HasSubstr("<font face=\"Verdana\" size=\"5\">a</font>"));

  menu = contextMenu("p");
  EXPECT_EQ(menu->actions().size(), 7);
  EXPECT_FALSE(menu->actions().at(0)->isEnabled());
  choose(*menu, "Alles Markieren");
  EXPECT_THAT(surface().selectedText(), HasSubstr("davor"));
}

TEST_F(EditorWindows, paste_a_picture_of_the_clipboard_into_pix)
{
  page("<p>Text</p>");
  placeCursor("p");
  QImage picture(1200, 400, QImage::Format_RGB32);
  picture.fill(Qt::red);
  QApplication::clipboard()->setImage(picture);

  trigger("editsub_5");

  EXPECT_EQ(body(),
            "<p><img src=\"file://" + project.directory().file("site\\pix/01_bild_1_580.jpg") + "\" border=\"0\">Text</p>");
  EXPECT_EQ(image::Image::sizeOf(project.directory().file("site\\pix\\01_bild_1_580.jpg")).width, 580);
  EXPECT_TRUE(dirty());
}

// --- source

TEST_F(EditorWindows, search_and_replace_in_the_source)
{
  page("<p>Haus</p><p>HAUS</p>");
  desk->find<QTabWidget>("tabHtml").setCurrentIndex(kSourceTab);
  desk->settle();
  auto& source = desk->find<HtmlSource>("tbhtml");
  EXPECT_EQ(source.source(), "<p>Haus</p><p>HAUS</p>");
  trigger("editsub_11");
  auto& dialog = desk->find<QDialog>("FormSuchenErsetzen");
  ASSERT_TRUE(dialog.isVisible());
  type(dialog, "tbsuchen", "haus");
  type(dialog, "tbersetzen", "Hof");
  EXPECT_EQ(source.markedPlaces().size(), 2U);
  press(dialog, "cbersetzen");
  EXPECT_EQ(source.selectedText(), "Haus");
  press(dialog, "cbersetzen");
  EXPECT_EQ(source.source(), "<p>Hof</p><p>HAUS</p>");
  EXPECT_EQ(source.selectedText(), "HAUS");
  EXPECT_TRUE(dirty());
  press(dialog, "cbersetzen");
  EXPECT_THAT(desk->answers.boxes, ElementsAre(HasSubstr("nicht gefunden")));
  press(dialog, "cbschließen");
  EXPECT_TRUE(source.markedPlaces().empty());
  trigger("editsub_0");
  EXPECT_EQ(source.source(), "<p>Hof</p><p>HAUS</p>");
  desk->find<QTabWidget>("tabHtml").setCurrentIndex(0);
  desk->settle();

  EXPECT_EQ(body(), "<p>Hof</p><p>HAUS</p>");
}

TEST_F(EditorWindows, tell_that_there_is_nothing_to_replace_among_the_settings)
{
  desk->find<QTabWidget>("tabHtml").setCurrentIndex(kLayoutTab);
  trigger("editsub_11");
  EXPECT_EQ(desk->answers.boxes.size(), 1U);
  trigger("TableSub_2");
  EXPECT_EQ(desk->answers.boxes.size(), 2U);

  EXPECT_FALSE(shown("Table", "TableSub_2").enabled);
}

TEST_F(EditorWindows, show_nothing_but_save_the_typed_source)
{
  desk->find<QTabWidget>("tabHtml").setCurrentIndex(kSourceTab);
  desk->settle();
  auto& source = desk->find<HtmlSource>("tbhtml");
  source.moveCursor(QTextCursor::End);
  QTest::keyClicks(&source, "<p>neu</p>");
  EXPECT_TRUE(dirty());

  desk->action("seitespeichern").trigger();
  desk->settle();

  EXPECT_THAT(project.column("01", "html").text(), HasSubstr("<p>neu</p>"));
}

} // namespace
} // namespace mrd::desktop
