#include "frame/messages/messages.h"
#include "recording_window.h"
#include "support/test_program.h"
#include "tools/database_text.h"

#include <gmock/gmock.h>

namespace mrd::messages {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr std::string_view kColumns =
    "FormName\tControlType\tcontrolname\tIndex\tLanguage\tCaptionText\tToolTipText\tcontrolenabled\tcontrolvisible\n";

struct SetLanguageTest : testing::Test {
  support::TemporaryDirectory directory;
  paths::ProgramFiles program{directory.path()};
  support::ScriptedUi ui;
  Language language{program, ui};
  RecordingWindow window;

  /// Rows of the window, one a line; cells are parted by tabs.
  void apply(std::string_view rows)
  {
    {
      auto db = dao::Database::create(program.file("\\language.mdb"));
      tools::runStatements(db, support::resourceText("language/schema.sql"));
      tools::insertRows(db, "tbl_Language", std::string(kColumns).append(rows));
    }
    language.Sprachstart(window);
  }
};

TEST_F(SetLanguageTest, sets_caption_tip_and_state_of_a_control_and_of_an_element_of_an_array)
{
  apply("Mainform\tLabel\tlbltitel\t\\N\tGER\t Titel: \tTipp\t1\t1\n"
        "Mainform\tLabel\tlblfarbe\t3\tGER\tFarbe\t\\N\t0\t0\n"
        "Mainform\tLabel\tlbltitel\t\\N\tENG\tTitle:\t\\N\t1\t1\n"
        "frmAndere\tLabel\tlbltitel\t\\N\tGER\tfremd\t\\N\t1\t1\n");

  EXPECT_THAT(window.calls, UnorderedElementsAre("lbltitel caption=Titel: tip=Tipp enabled visible",
                                                 "lblfarbe(3) caption=Farbe tip= disabled hidden"));
}

TEST_F(SetLanguageTest, leaves_the_tip_of_a_menu_alone)
{
  apply("Mainform\tMenu\tFileMenu\t\\N\tGER\t&Datei\tTipp\t1\t1\n");

  EXPECT_THAT(window.calls, ElementsAre("FileMenu caption=&Datei enabled visible"));
}

TEST_F(SetLanguageTest, sets_the_text_where_a_control_has_no_caption)
{
  apply("Mainform\tTextBox\tTextBox\t2\tGER\tHallo\tTipp\t1\t1\n"
        "Mainform\tTextBox\tHTMLText\t\\N\tGER\tWelt\tTipp\t1\t1\n"
        "Mainform\tTextBox\tHTMLText\t1\tGER\tFeld\tTipp\t1\t1\n");

  EXPECT_THAT(window.calls,
              UnorderedElementsAre("TextBox(2) text=Hallo", "TextBox(2) tip=Tipp enabled visible", "HTMLText text=Welt",
                                   "HTMLText tip=Tipp enabled visible", "HTMLText(1) caption=Feld tip=Tipp enabled visible"));
}

TEST_F(SetLanguageTest, gives_tips_alone_to_the_first_toolbar_and_captions_to_the_others)
{
  apply("Mainform\tToolbar\tToolbar1\t4\tGER\tNeu\tneue Seite\t1\t1\n"
        "Mainform\tToolbar\tTOOLBAR2\t1\tGER\tFett\tfette Schrift\t1\t1\n"
        "Mainform\tToolbar\ttoolbar3\t2\tGER\tLinks\tlinksbündig\t1\t1\n"
        "Mainform\tToolbar\tToolbar9\t2\tGER\tNichts\tnichts\t1\t1\n");

  EXPECT_THAT(window.calls, UnorderedElementsAre("Toolbar1(4) tip=neue Seite enabled visible",
                                                 "TOOLBAR2(1) caption=Fett tip=fette Schrift enabled visible",
                                                 "toolbar3(2) caption=Links tip=linksbündig enabled visible"));
}

TEST_F(SetLanguageTest, sets_the_window_itself_frames_and_check_boxes)
{
  apply("Mainform\tForm\tMainform\t\\N\tGER\tMirandel\tTipp\t1\t1\n"
        "Mainform\tForm\tTeil\t2\tGER\tTeil zwei\tTipp\t0\t1\n"
        "Mainform\tFrame\tfrmftp\t\\N\tGER\tFTP\tTipp\t1\t1\n"
        "Mainform\tCheckBox\tCheckRundeEcke\t\\N\tGER\trunde Ecken\tTipp\t1\t0\n");

  EXPECT_THAT(window.calls, UnorderedElementsAre("window caption=Mirandel enabled", "Teil(2) caption=Teil zwei disabled",
                                                 "frmftp caption=FTP tip=Tipp enabled visible",
                                                 "CheckRundeEcke caption=runde Ecken tip=Tipp enabled hidden"));
}

TEST_F(SetLanguageTest, writes_tab_pages_from_the_last_to_the_first_and_puts_the_current_page_back)
{
  window.tabs = {{"tabHtml", 1}};

  apply("Mainform\tTab\ttabHtml\t0\tGER\tSeite\t\\N\t1\t1\n"
        "Mainform\tTab\ttabHtml\t10\tGER\tSkript\t\\N\t1\t1\n"
        "Mainform\tTab\ttabHtml\t2\tGER\tQuelle\t\\N\t1\t1\n");

  EXPECT_THAT(window.calls, ElementsAre("tabHtml page=10", "tabHtml caption=Skript tip= enabled visible", "tabHtml page=2",
                                        "tabHtml caption=Quelle tip= enabled visible", "tabHtml page=0",
                                        "tabHtml caption=Seite tip= enabled visible", "tabHtml page=1"));
}

TEST_F(SetLanguageTest, puts_the_page_of_one_tab_control_back_before_it_works_on_the_next)
{
  window.tabs = {{"tabHtml", 1}, {"TabTree", 0}};

  apply("Mainform\tTab\ttabHtml\t2\tGER\tQuelle\t\\N\t1\t1\n"
        "Mainform\tTab\tTabTree\t1\tGER\tLayout\t\\N\t1\t1\n");

  EXPECT_THAT(window.calls, ElementsAre("tabHtml page=2", "tabHtml caption=Quelle tip= enabled visible", "tabHtml page=1",
                                        "TabTree page=1", "TabTree caption=Layout tip= enabled visible", "TabTree page=0"));
}

TEST_F(SetLanguageTest, skips_types_that_it_does_not_know)
{
  apply("Mainform\tSlider\tSlider1\t\\N\tGER\tx\tx\t1\t1\n");

  EXPECT_THAT(window.calls, IsEmpty());
}

TEST_F(SetLanguageTest, does_nothing_for_a_window_without_rows)
{
  apply("frmAndere\tLabel\tlbltitel\t\\N\tGER\tfremd\t\\N\t1\t1\n");

  EXPECT_THAT(window.calls, IsEmpty());
}

TEST_F(SetLanguageTest, shows_one_box_for_each_row_of_a_control_that_the_window_lacks_and_goes_on)
{
  window.missing = {"lblweg", "lblfort"};
  for (int box = 0; box < 2; ++box)
    ui.expect(0, "Fehler beim Laden der Spracheinstellungen.\r\nSetlanguage: 730 Element nicht gefunden\r\n\r\n"
                 "Bitte besorgen Sie sich eine aktuelle language.mdb !");

  apply("Mainform\tLabel\tlblweg\t\\N\tGER\ta\t\\N\t1\t1\n"
        "Mainform\tLabel\tlblfort\t\\N\tGER\tb\t\\N\t1\t1\n"
        "Mainform\tLabel\tlblda\t\\N\tGER\tc\t\\N\t1\t1\n");

  EXPECT_THAT(window.calls, ElementsAre("lblda caption=c tip= enabled visible"));
}

TEST_F(SetLanguageTest, shows_one_box_when_no_database_is_open)
{
  ui.expect(0, "Fehler beim Laden der Spracheinstellungen.");

  language.Setlanguage(window);

  EXPECT_EQ(ui.splashHidden, 1);
}

} // namespace
} // namespace mrd::messages
