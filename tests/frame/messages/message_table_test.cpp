#include "base/text.h"
#include "support/test_program.h"

#include <gmock/gmock.h>

#include <map>
#include <set>
#include <utility>

namespace mrd::messages {
namespace {

using testing::HasSubstr;

/// Every number that the program shows.
// The numbers that texts elsewhere refer to; later ones are counted on from 101.
const std::set<int> kNumbers{1,  2,  3,  5,  6,  7,  8,  9,  10, 11, 13, 14, 15, 16, 17, 19, 20, 21, 22, 23, 24,
                             27, 28, 29, 30, 31, 32, 33, 34, 35, 36, 37, 38, 39, 40, 41, 42, 43, 44, 45, 46, 47};
const std::set<int> kQuestions{7, 22, 23, 31, 33};
constexpr int kFirstLaterNumber = 101;

struct MessageTableTest : testing::Test {
  support::TestProgram program;
  dao::Database db = dao::Database::open(program.files.file("\\language.mdb"), dao::OpenMode::ReadOnly);

  std::string shown(int MsgNo, std::string_view Wert, std::string_view Position, std::string_view Sprache = "GER")
  {
    program.ui.acceptAll();
    program.language.GetMsgIn(MsgNo, Sprache, Wert, Position);
    return program.ui.messages.back().text;
  }
};

TEST_F(MessageTableTest, holds_every_number_once_and_active_in_both_languages)
{
  std::map<std::pair<int, std::string>, int> rows;
  for (auto row = db.openRecordset("SELECT * FROM Messages WHERE [MsgActive]= yes;"); !row.eof(); row.moveNext())
    ++rows[{static_cast<int>(row.value("MsgNo").integer()), row.value("MsgLang").text()}];

  std::set<int> numbers = kNumbers;
  for (const auto& [row, count] : rows)
    if (row.first >= kFirstLaterNumber)
      numbers.insert(row.first);

  for (const int number : numbers)
    for (const auto* Sprache : {"GER", "ENG"})
      EXPECT_EQ((rows[{number, Sprache}]), 1) << number << " " << Sprache;
  EXPECT_EQ(rows.size(), numbers.size() * 2);
}

TEST_F(MessageTableTest, has_the_same_buttons_in_both_languages_and_Yes_and_No_for_questions)
{
  std::map<int, std::set<int>> styles;
  std::set<int> questions = kQuestions;
  for (auto row = db.openRecordset("SELECT * FROM Messages"); !row.eof(); row.moveNext()) {
    const int number = static_cast<int>(row.value("MsgNo").integer());
    const int style = static_cast<int>(row.value("MsgCButtons").integer());
    styles[number].insert(style);
    if (number >= kFirstLaterNumber && ui::box::icon(style) == ui::box::kQuestion)
      questions.insert(number);
  }

  for (const auto& [number, style] : styles) {
    ASSERT_EQ(style.size(), 1u) << number;
    // What is not saved is neither kept nor thrown away by a key that closes a box.
    const int expected = number == 3 || number == 114 ? ui::box::kYesNoCancel
                         : questions.contains(number) ? ui::box::kYesNo
                         : number == 14               ? ui::box::kRetryCancel
                                                      : ui::box::kOk;
    EXPECT_EQ(ui::box::buttons(*style.begin()), expected) << number;
  }
}

TEST_F(MessageTableTest, has_every_caption_in_both_languages)
{
  std::map<std::string, int> languages;
  for (auto row = db.openRecordset("SELECT * FROM tbl_Language"); !row.eof(); row.moveNext())
    ++languages[row.value("FormName").text() + "." + row.value("controlname").text() + "(" + row.value("Index").text() + ")"];

  EXPECT_FALSE(languages.empty());
  for (const auto& [control, count] : languages)
    EXPECT_EQ(count, 2) << control;
}

TEST_F(MessageTableTest, calls_what_is_done_with_the_pictures_of_pages_by_its_name)
{
  for (const auto& [control, caption] : {std::pair{"mnupixSchatten", "erzeuge Schatten für Bilder der Seite"},
                                         {"FrmVorschaubilder", "Vorschaubilder / Thumbnails"},
                                         {"LblVorschauBreite", "Breite"},
                                         {"LblVorschauAnzahl", "Anzahl pro Reihe"},
                                         {"OptionVorschauMitTitel", "mit Titel"},
                                         {"OptionVorschauOhneTitel", "ohne Titel / nur Bild"},
                                         {"CheckVorschauBilderNeu", "Thumbs immer neu erstellen"},
                                         {"CheckVorschauMeldung", "Hinweismeldung anzeigen"}}) {
    const auto row =
        db.openRecordset("SELECT * FROM tbl_Language WHERE controlname = ? AND Language = 'GER'", {dao::Value(control)});
    ASSERT_FALSE(row.eof()) << control;
    // The letter that a key chooses is marked.
    EXPECT_EQ(base::replaceAll(row.value("CaptionText").text(), "&", ""), caption);
  }
}

TEST_F(MessageTableTest, reads_well_with_its_values)
{
  EXPECT_EQ(shown(1, "Datenträger voll (61) in Modul SavePage", "R"),
            "Es ist ein Fehler aufgetreten: Datenträger voll (61) in Modul SavePage");
  EXPECT_EQ(shown(35, "550: No such directory", "R"), "Der FTP-Server hat einen Befehl nicht ausgeführt: 550: No such directory");
  EXPECT_THAT(shown(36, "12007", "Z"), HasSubstr("Der Fehler 12007 ist aufgetreten."));
  EXPECT_THAT(shown(36, "12007", "Z", "ENG"), HasSubstr("the error 12007 occurred."));
  EXPECT_THAT(shown(34, "12007", "R"), HasSubstr("einen Fehler 12007 – bitte"));
  EXPECT_THAT(shown(38, "a.php\r\nb.asp", "R"), HasSubstr("nicht kopiert: \na.php\r\nb.asp"));
  EXPECT_THAT(shown(101, "0102: ..\\x.htm", "R"), HasSubstr("nicht erzeugt: 0102: ..\\x.htm"));
  EXPECT_EQ(shown(102, "0109", "R"), "Es gibt keine Seite mit der Nummer 0109");
}

} // namespace
} // namespace mrd::messages
