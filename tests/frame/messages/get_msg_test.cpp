#include "frame/messages/messages.h"
#include "support/test_program.h"
#include "tools/database_text.h"

#include <gmock/gmock.h>

namespace mrd::messages {
namespace {

using ui::Button;

/// Messages of their own: 1 in three pieces, 2 with two, 3 a question that is not active, 4 in German alone.
struct GetMsgTest : testing::Test {
  support::TemporaryDirectory directory;
  paths::ProgramFiles program{directory.path()};
  support::ScriptedUi ui;
  Language language{program, ui};

  void SetUp() override
  {
    auto db = dao::Database::create(program.file("\\language.mdb"));
    tools::runStatements(db, support::resourceText("language/schema.sql"));
    tools::insertRows(
        db, "Messages",
        "MsgNo\tMsgLang\tMsgActive\tMsgPrompt1\tMsgPrompt2\tMsgPrompt3\tMsgTitle\tMsgHelpFile\tMsgContext\tMsgCButtons\n"
        "1\tGER\t1\t eins \tzwei\tdrei \t Titel \t\\N\t\\N\t 37 \n"
        "1\tENG\t1\tone\ttwo\tthree\tTitle\thelp.hlp\t17\t0\n"
        "2\tGER\t1\tHallo\t\\N\t\\N\t\\N\t\\N\t\\N\t48\n"
        "3\tGER\t0\tstumm\t\\N\t\\N\t\\N\t\\N\t\\N\t4\n"
        "31\tGER\t1\tnochmal?\t\\N\t\\N\t\\N\t\\N\t\\N\t36\n");
    language.Sprachstart();
  }

  std::string shown(int MsgNo, std::string_view Wert = {}, std::string_view Position = {})
  {
    ui.acceptAll();
    language.GetMsg(MsgNo, Wert, Position);
    return ui.messages.back().text;
  }
};

TEST_F(GetMsgTest, joins_the_three_pieces_without_a_value) { EXPECT_EQ(shown(1), "eins zwei drei"); }

TEST_F(GetMsgTest, puts_a_value_in_front_at_L) { EXPECT_EQ(shown(1, " Wert ", "L"), "Wert eins zwei drei"); }

TEST_F(GetMsgTest, puts_a_value_behind_the_second_piece_without_a_blank_at_R)
{
  EXPECT_EQ(shown(1, "Wert", "R"), "eins zweiWert drei");
}

TEST_F(GetMsgTest, puts_a_value_behind_the_first_piece_at_Z) { EXPECT_EQ(shown(1, "Wert", "Z"), "eins Wert zwei drei"); }

TEST_F(GetMsgTest, takes_the_position_in_any_case) { EXPECT_EQ(shown(1, "Wert", "z"), "eins Wert zwei drei"); }

TEST_F(GetMsgTest, shows_the_first_piece_alone_for_a_value_without_position) { EXPECT_EQ(shown(1, "Wert"), "eins"); }

TEST_F(GetMsgTest, reads_like_a_call_without_value_for_an_empty_value) { EXPECT_EQ(shown(1, "", "R"), "eins zwei drei"); }

TEST_F(GetMsgTest, reads_missing_pieces_as_empty) { EXPECT_EQ(shown(2, "Wert", "R"), "Hallo Wert"); }

TEST_F(GetMsgTest, hands_title_style_number_and_help_to_the_box)
{
  ui.expect(1, "eins", Button::Retry).expect(1, "one", Button::Cancel);

  EXPECT_EQ(language.GetMsg(1), Button::Retry);
  language.setSprache("ENG");
  EXPECT_EQ(language.GetMsg(1), Button::Cancel);

  EXPECT_EQ(ui.messages[0].title, "Titel");
  EXPECT_EQ(ui.messages[0].style, 37);
  EXPECT_EQ(ui.messages[0].helpFile, "");
  EXPECT_EQ(ui.messages[0].helpContext, 0);
  EXPECT_EQ(ui.messages[1].helpFile, "help.hlp");
  EXPECT_EQ(ui.messages[1].helpContext, 17);
}

TEST_F(GetMsgTest, hides_the_opening_picture_between_two_pumps_of_the_event_queue)
{
  shown(2);

  EXPECT_EQ(ui.splashHidden, 1);
  EXPECT_EQ(ui.eventPumps, 2);
}

TEST_F(GetMsgTest, shows_the_German_box_for_a_number_that_is_missing_or_not_active)
{
  EXPECT_EQ(shown(3, "Wert"), "Fehler im Fehlerbehandlungsmodul!");
  EXPECT_EQ(ui.messages.back().title, "Fehlerbehandlungsmodul\r\nGetMsg: Nr.3 Spr.GER Wert:Wert");
  EXPECT_EQ(ui.messages.back().style, ui::box::kOk);
}

TEST_F(GetMsgTest, exchanges_text_and_title_of_that_box_in_another_language_and_returns_its_OK)
{
  language.setSprache("ENG");
  ui.expect(31, "", Button::Ok);

  EXPECT_EQ(static_cast<int>(language.GetMsg(31)), 1);

  EXPECT_EQ(ui.messages.back().text, "Error in errorhandler!\r\nGetMsg: Nr.31 Spr.ENG Wert:");
  EXPECT_EQ(ui.messages.back().title, "Errorhandler");
}

TEST_F(GetMsgTest, warns_without_the_database_and_answers_no_button)
{
  language.close();
  ui.expect(22, "Achtung! GetMsg: Nr.22 Spr.GER Wert:x");

  EXPECT_EQ(language.GetMsg(22, "x", "R"), Button::None);

  EXPECT_EQ(ui.splashHidden, 1);
}

TEST_F(GetMsgTest, takes_a_language_of_its_own)
{
  ui.expect(1, "one two three");

  language.GetMsgIn(1, "ENG ", "", "");
}

} // namespace
} // namespace mrd::messages
