#include "frame/messages/messages.h"
#include "recording_window.h"
#include "support/test_program.h"

#include <gmock/gmock.h>

namespace mrd::messages {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct LanguageStartTest : testing::Test {
  support::TemporaryDirectory directory;
  paths::ProgramFiles program{directory.path()};
  support::ScriptedUi ui;
  Language language{program, ui};
  RecordingWindow window{"frmLeer"};

  std::string ini(std::string_view key) { return paths::LeseIni("LastFile", key, program.iniFile()); }
};

TEST_F(LanguageStartTest, without_any_database_shows_a_critical_box_and_changes_no_caption)
{
  ui.expect(0, "Language Database konnte nicht gefunden werden. \r\nBitte wenden Sie sich an den Support.");

  language.Sprachstart(window);

  EXPECT_EQ(ui.messages.front().style, ui::box::kCritical);
  EXPECT_THAT(window.calls, IsEmpty());
}

TEST_F(LanguageStartTest, takes_the_database_of_the_program_directory_and_notes_its_place)
{
  support::makeLanguageDatabase(program.file("\\language.mdb"));
  ui.expect(8);

  language.Sprachstart(window);
  language.GetMsg(8);

  EXPECT_EQ(ini("LangFile"), program.file("\\language.mdb"));
}

TEST_F(LanguageStartTest, replaces_a_stale_place_of_the_INI_file)
{
  support::makeLanguageDatabase(program.file("\\language.mdb"));
  directory.write("mirandel.INI", "[LastFile]\r\nLangFile=\\weg\\language.mdb\r\n");

  language.Sprachstart();

  EXPECT_EQ(ini("LangFile"), program.file("\\language.mdb"));
}

TEST_F(LanguageStartTest, prefers_the_place_of_the_INI_file)
{
  support::makeLanguageDatabase(directory.file("andere.mdb"));
  directory.write("mirandel.INI", "[LastFile]\r\nLangFile=" + directory.file("andere.mdb") + " \r\n");

  language.Sprachstart();

  EXPECT_EQ(ini("LangFile"), directory.file("andere.mdb"));
}

TEST_F(LanguageStartTest, tells_of_a_file_that_is_no_database_with_number_and_words)
{
  directory.write("language.mdb", "kein Datenbankformat, sondern ein Brief an die Oma");
  ui.expect(0, " Fehler: 3343").expect(8, "Achtung! GetMsg");

  language.Sprachstart(window);
  language.GetMsg(8);

  EXPECT_EQ(ui.messages.front().style, ui::box::kCritical);
  EXPECT_TRUE(ui.messages.front().text.ends_with(" ist aufgetreten!"));
}

TEST_F(LanguageStartTest, a_change_of_language_checks_its_menu_and_is_kept_in_the_INI_file)
{
  support::makeLanguageDatabase(program.file("\\language.mdb"));
  language.Sprachstart();

  language.eng_Click(window);
  EXPECT_EQ(language.Sprache(), "ENG");
  EXPECT_THAT(window.calls, ElementsAre("ENG checked=1", "GER checked=0"));
  EXPECT_EQ(paths::LeseIni("Language", "Lang", program.iniFile()), "ENG");

  window.calls.clear();
  language.GER_Click(window);
  EXPECT_EQ(language.Sprache(), "GER");
  EXPECT_THAT(window.calls, ElementsAre("GER checked=1", "ENG checked=0"));
}

} // namespace
} // namespace mrd::messages
