// Every entry of the editor's menus on the real surface: when it can be chosen, and that its change is taken back to the letter.

#include "desktop/windows/editor_desk.h"
#include "mainform/menu_table.h"

#include <QApplication>
#include <QClipboard>
#include <QPlainTextEdit>
#include <QTabWidget>

#include <set>
#include <vector>

namespace mrd::desktop {
namespace {

constexpr auto kPage =
    "<p id=\"p\">Ein <b>alter</b> Text</p>\n<table border=\"1\"><tbody><tr><td id=\"x\">a</td><td>b</td></tr>"
    "<tr id=\"r\"><td>c</td><td>d</td></tr></tbody></table><p><img id=\"i\" src=\"x.jpg\" width=\"20\" height=\"20\"></p>"
    "<div id=\"z\" style=\"position: absolute; left: 10px; top: 300px;\">Ebene</div>";

enum class Select { Cursor, All, Whole };

struct Place {
  const char* selector;
  Select how = Select::Cursor;
};

struct EditorMenus : EditorWindows {
  void go(const Place& place)
  {
    switch (place.how) {
    case Select::Cursor:
      return placeCursor(place.selector);
    case Select::All:
      return select(place.selector);
    case Select::Whole:
      return selectWhole(place.selector);
    }
  }

  static std::string nameOf(const mainform::MenuEntry& entry)
  {
    return std::string(entry.name) + (entry.index ? "_" + std::to_string(*entry.index) : "");
  }

  /// The entries that work of these menus, without the one that is for the tree.
  static std::vector<std::string> entriesOf(const std::set<std::string_view>& menus)
  {
    std::vector<std::string> names;
    for (const auto& entry : mainform::menuEntries())
      if (entry.works && menus.contains(entry.menu) && entry.name != "D2D" && entry.name != "mnuSeitenZurueck")
        names.push_back(nameOf(entry));
    return names;
  }
};

/// An entry that changes the page, at a place where it does.
struct Change {
  const char* entry;
  Place place;
  /// What the user does in its dialog.
  void (*answer)(QDialog&) = nullptr;
};

const std::vector<Change> kChanges{
    {"editsub_3", {"#p", Select::All}},
    {"editsub_3", {"#i", Select::Whole}},
    {"editsub_5", {"#p"}},
    {"editsub_5", {"#p", Select::All}},
    {"editsub_12", {"#p", Select::All}},
    {"InsertSub1_0",
     {"#p"},
     [](QDialog& dialog) {
       EditorWindows::type(dialog, "tbbild", "neu.jpg");
       EditorWindows::press(dialog, "cbok");
     }},
    {"InsertSub1_0",
     {"#i", Select::Whole},
     [](QDialog& dialog) {
       EditorWindows::type(dialog, "tbalt", "Neu");
       EditorWindows::press(dialog, "cbok");
     }},
    {"InsertSub1_1",
     {"#p", Select::All},
     [](QDialog& dialog) {
       EditorWindows::type(dialog, "tbadresse", "neu.htm");
       EditorWindows::press(dialog, "cbok");
     }},
    {"InsertSub1_3",
     {"#p", Select::All},
     [](QDialog& dialog) {
       dialog.findChild<QPlainTextEdit*>("HTMLText")->setPlainText("<h2>neu</h2>");
       EditorWindows::press(dialog, "cmdOK");
     }},
    {"InsertSub1_4", {"#p", Select::All}},
    {"InsertSub1_5", {"#p"}},
    {"FormatSub_0", {"#p"}},
    {"FormatSub_1", {"#p"}},
    {"FormatSub_2", {"#p"}},
    {"FormatSub_3", {"#p"}},
    {"FormatSub_4", {"#p"}},
    {"FormatSub_5", {"#p"}},
    {"FormatSub_6", {"#p"}},
    {"FormatSub_7", {"#p"}},
    {"FormatSub_8", {"#p"}},
    {"FormatSub_9", {"#p"}},
    {"FormatSub_10", {"#p"}},
    {"FormatSub_11", {"#p"}},
    {"FormatSub_12", {"#p"}},
    {"FormatSub_13", {"#p"}},
    {"FormatSub_14", {"#p"}},
    {"FormatSub_15", {"#z"}},
    {"TableSub_0", {"#p"}, [](QDialog& dialog) { EditorWindows::press(dialog, "OkCmd"); }},
    {"TableSub_2", {"#x"}},
    {"TableSub_3", {"#x"}},
    {"TableSub_4", {"#x"}},
    {"TableSub_6", {"#x"}},
    {"TableSub_7", {"#x"}},
    {"TableSub_8", {"#x"}},
    {"TableSub_10", {"#r", Select::All}},
    {"TableSub_11", {"#x"}},
    {"mnuTableProperties",
     {"#x"},
     [](QDialog& dialog) {
       for (const auto* const field : {"tb_table_border", "tb_table_cellpadding", "tb_tr_bgcolor", "tb_td_width"})
         EditorWindows::type(dialog, field, "7");
       EditorWindows::press(dialog, "cbok");
     }},
    {"mnuTableProperties",
     {"#x"},
     [](QDialog& dialog) {
       EditorWindows::type(dialog, "tb_tr_bgcolor", "#eeeeee");
       EditorWindows::press(dialog, "cb_tr_Farbwechsel");
       EditorWindows::press(dialog, "cbschließen");
     }},
    {"D2DSub_0", {"#i", Select::Whole}},
    {"D2DSub_0", {"#z"}},
    {"D2DSub_1", {"#z"}},
    {"D2DSub_2", {"#z"}},
    {"D2DSub_3", {"#z"}},
    {"D2DSub_4", {"#z"}},
    {"D2DSub_5", {"#z"}},
    {"D2DSub_6", {"#z"}},
    {"D2DSub_8", {"#z"}},
};

/// Undo and redo are what is tested with; the others select, look for something or change the editor itself.
const std::set<std::string> kNoChanges{"editsub_0", "editsub_1",  "editsub_4", "editsub_6",
                                       "editsub_8", "editsub_10", "editsub_11"};

TEST_F(EditorMenus, bring_back_the_exact_page_after_every_entry_that_changes_it)
{
  std::set<std::string> walked = kNoChanges;
  for (const auto& [entry, place, answer] : kChanges) {
    QApplication::clipboard()->setText("aus der Ablage");
    page(kPage);
    const std::string before = body();
    go(place);
    if (answer)
      inDialog(answer);

    trigger(entry);
    const std::string after = body();
    EXPECT_NE(after, before) << entry;
    EXPECT_TRUE(comesTrue([&] { return dirty(); })) << entry;
    trigger("editsub_0");
    EXPECT_EQ(body(), before) << entry;
    trigger("editsub_1");
    EXPECT_EQ(body(), after) << entry;
    walked.insert(entry);
  }

  for (const auto& entry : entriesOf({"Edit", "Insert1", "Format", "Table", "D2D"}))
    EXPECT_TRUE(walked.contains(entry)) << entry;
  EXPECT_TRUE(desk->answers.boxes.empty());
}

TEST_F(EditorMenus, change_nothing_by_the_entries_that_select_and_search)
{
  page(kPage);
  const std::string before = body();
  for (const auto& entry : kNoChanges) {
    select("#p");
    trigger(entry);
    EXPECT_EQ(body(), before) << entry;
  }

  EXPECT_FALSE(dirty());
}

/// Where an entry can be chosen, and where it cannot; the page has just been loaded.
struct State {
  const char* menu;
  std::vector<const char*> entries;
  std::vector<Place> enabled, disabled;
};

const std::vector<State> kStates{
    {"Edit", {"editsub_3", "editsub_4"}, {{"#p", Select::All}, {"#i", Select::Whole}}, {{"#p"}, {"#x"}}},
    {"Edit",
     {"editsub_5", "editsub_6", "editsub_8", "editsub_10", "editsub_11", "editsub_12"},
     {{"#p"}, {"#i", Select::Whole}},
     {}},
    {"Edit", {"editsub_0", "editsub_1"}, {}, {{"#p"}, {"#p", Select::All}}},
    {"Format",
     {"FormatSub_0", "FormatSub_1", "FormatSub_2", "FormatSub_3", "FormatSub_4", "FormatSub_5", "FormatSub_6", "FormatSub_7",
      "FormatSub_8", "FormatSub_9", "FormatSub_10", "FormatSub_11", "FormatSub_12", "FormatSub_13", "FormatSub_14",
      "FormatSub_15"},
     {{"#p"}, {"#x"}},
     {}},
    {"Table", {"TableSub_0", "mnuTableProperties"}, {{"#p"}, {"#x"}}, {}},
    {"Table",
     {"TableSub_2", "TableSub_3", "TableSub_4", "TableSub_6", "TableSub_7", "TableSub_8", "TableSub_11"},
     {{"#x"}},
     {{"#p"}, {"#i", Select::Whole}}},
    {"Table", {"TableSub_10"}, {{"#r", Select::All}}, {{"#x"}, {"#p"}}},
    {"D2D", {"D2DSub_0"}, {{"#z"}, {"#i", Select::Whole}}, {{"#p"}, {"#x"}}},
    {"D2D",
     {"D2DSub_1", "D2DSub_2", "D2DSub_3", "D2DSub_4", "D2DSub_5", "D2DSub_6", "D2DSub_8"},
     {{"#z"}},
     {{"#p"}, {"#i", Select::Whole}}},
    {"Insert1",
     {"InsertSub1_0", "InsertSub1_1", "InsertSub1_3", "InsertSub1_4", "InsertSub1_5"},
     {{"#p"}, {"#i", Select::Whole}},
     {}},
};

TEST_F(EditorMenus, offer_every_entry_where_it_can_be_run_and_nowhere_else)
{
  std::set<std::string> walked;
  QApplication::clipboard()->setText("aus der Ablage");
  page(kPage);
  for (const auto& [menu, entries, enabled, disabled] : kStates)
    for (const auto* const entry : entries) {
      for (const auto& place : enabled) {
        go(place);
        EXPECT_TRUE(shown(menu, entry).enabled) << entry << place.selector;
      }
      for (const auto& place : disabled) {
        go(place);
        EXPECT_FALSE(shown(menu, entry).enabled) << entry << place.selector;
      }
      walked.insert(entry);
    }

  for (const auto& entry : entriesOf({"Edit", "Insert1", "Format", "Table", "D2D"}))
    EXPECT_TRUE(walked.contains(entry)) << entry;
  EXPECT_FALSE(desk->action("InsertSub1_2").isEnabled());
}

TEST_F(EditorMenus, offer_undo_behind_a_change_and_redo_behind_undo)
{
  page(kPage);
  go({"#x"});
  trigger("TableSub_2");
  EXPECT_TRUE(shown("Edit", "editsub_0").enabled);
  EXPECT_FALSE(shown("Edit", "editsub_1").enabled);
  trigger("editsub_0");
  EXPECT_FALSE(shown("Edit", "editsub_0").enabled);

  EXPECT_TRUE(shown("Edit", "editsub_1").enabled);
}

TEST_F(EditorMenus, offer_nothing_for_the_page_while_the_settings_are_on_top)
{
  page(kPage);
  go({"#x"});
  desk->find<QTabWidget>("tabHtml").setCurrentIndex(3);
  desk->settle();

  for (const auto& [menu, entries, enabled, disabled] : kStates)
    for (const std::string_view entry : entries) {
      const bool isForPage =
          entry.starts_with("FormatSub") || entry.starts_with("TableSub") || entry.starts_with("D2DSub") || entry == "editsub_5";
      EXPECT_TRUE(!isForPage || !shown(menu, entry.data()).enabled) << entry;
    }
}

TEST_F(EditorMenus, bring_back_the_exact_page_after_the_entries_for_shadows)
{
  const std::string path = photo("möwe.jpg");
  page("<p>Text <img id=\"i\" width=\"60\" height=\"40\" src=\"file://" + path + "\"></p>");
  const std::string before = body();
  QMenu* menu = contextMenu("#i");
  ASSERT_NE(menu, nullptr);
  choose(*menu, "Schatten hinzufügen");
  const std::string after = body();
  EXPECT_NE(after, before);
  trigger("editsub_0");
  EXPECT_EQ(body(), before);
  trigger("editsub_1");
  EXPECT_EQ(body(), after);
  menu = contextMenu("#i");
  ASSERT_NE(menu, nullptr);
  choose(*menu, "Schatten entfernen");
  EXPECT_NE(body(), after);
  trigger("editsub_0");

  EXPECT_EQ(body(), after);
}

} // namespace
} // namespace mrd::desktop
