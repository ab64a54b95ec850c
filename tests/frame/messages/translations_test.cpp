#include "frame/messages/messages.h"
#include "support/test_program.h"
#include "tools/database_text.h"

#include <gtest/gtest.h>

namespace mrd::messages {
namespace {

constexpr std::string_view kRows =
    "FormName\tControlType\tcontrolname\tIndex\tLanguage\tCaptionText\tToolTipText\tcontrolenabled\tcontrolvisible\n"
    "Texte\tLabel\tDone\t\\N\tGER\tFertig!\t\t1\t1\n"
    "Texte\tLabel\tDone\t\\N\tENG\tDone!\t\t1\t1\n"
    "Texte\tLabel\tMissing\t\\N\tGER\tDie Datei {} fehlt in {}!\t\t1\t1\n"
    "Texte\tLabel\tMissing\t\\N\tENG\tThe file {} is missing in {}!\t\t1\t1\n"
    "Texte\tLabel\tUnreadable\t\\N\tGER\t{}: nicht lesbar\t\t1\t1\n"
    "Texte\tLabel\tUnreadable\t\\N\tENG\t{}: cannot be read\t\t1\t1\n"
    "Texte\tLabel\tLines\t\\N\tGER\teins\\nzwei\t\t1\t1\n"
    "Texte\tLabel\tLines\t\\N\tENG\tone\\ntwo\t\t1\t1\n"
    "Texte\tLabel\tGermanOnly\t\\N\tGER\tnur deutsch\t\t1\t1\n"
    "frmAndere\tLabel\tOther\t\\N\tGER\tfremd\t\t1\t1\n"
    "frmAndere\tLabel\tOther\t\\N\tENG\tforeign\t\t1\t1\n";

struct ShownText : testing::Test {
  ShownText()
  {
    {
      auto db = dao::Database::create(program.file("\\language.mdb"));
      tools::runStatements(db, support::resourceText("language/schema.sql"));
      tools::insertRows(db, "tbl_Language", kRows);
    }
    language.Sprachstart();
    language.setSprache("ENG");
  }

  support::TemporaryDirectory directory;
  paths::ProgramFiles program{directory.path()};
  support::ScriptedUi ui;
  Language language{program, ui};
};

TEST_F(ShownText, is_the_systems_own_in_german)
{
  language.setSprache("GER");

  EXPECT_EQ(language.shownText("Fertig!"), "Fertig!");
}

TEST_F(ShownText, is_the_translation_in_another_language) { EXPECT_EQ(language.shownText("Fertig!"), "Done!"); }

TEST_F(ShownText, follows_a_change_of_the_language)
{
  EXPECT_EQ(language.shownText("Fertig!"), "Done!");
  language.setSprache("GER");
  EXPECT_EQ(language.shownText("Fertig!"), "Fertig!");
  language.setSprache("ENG");
  EXPECT_EQ(language.shownText("Fertig!"), "Done!");
}

TEST_F(ShownText, takes_over_what_differs_from_one_text_to_the_next)
{
  EXPECT_EQ(language.shownText("Die Datei a.jpg fehlt in pix!"), "The file a.jpg is missing in pix!");
  EXPECT_EQ(language.shownText("Die Datei  fehlt in !"), "The file  is missing in !");
  EXPECT_EQ(language.shownText("/home/anna/a.jpg: nicht lesbar"), "/home/anna/a.jpg: cannot be read");
}

TEST_F(ShownText, of_which_only_the_beginning_or_the_end_is_known_stays_as_it_is)
{
  for (const auto* const text : {"Fertig! Und nun?", "Nun: Fertig!", "Die Datei a.jpg fehlt", "Die Datei a.jpg fehlt in pix", ""})
    EXPECT_EQ(language.shownText(text), text);
}

TEST_F(ShownText, is_known_with_any_line_ends_and_with_blanks_around_it)
{
  EXPECT_EQ(language.shownText("eins\r\nzwei"), "one\ntwo");
  EXPECT_EQ(language.shownText("Fertig! "), "Done!");
}

TEST_F(ShownText, comes_only_from_rows_that_both_languages_have) { EXPECT_EQ(language.shownText("nur deutsch"), "nur deutsch"); }

TEST_F(ShownText, comes_from_no_row_of_a_window) { EXPECT_EQ(language.shownText("fremd"), "fremd"); }

TEST_F(ShownText, is_the_systems_own_without_a_language_database)
{
  language.close();

  EXPECT_EQ(language.shownText("Fertig!"), "Fertig!");
}

} // namespace
} // namespace mrd::messages
