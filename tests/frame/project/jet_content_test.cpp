#include "base/errors.h"
#include "frame/project/jet_content.h"
#include "frame/project/migration.h"
#include "support/scripted_ui.h"
#include "support/temporary.h"

#include <gmock/gmock.h>

#include <optional>
#include <string>
#include <vector>

namespace mrd::project {
namespace {

using dao::JetTable;
using dao::Null;
using dao::Value;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const JetTable kPages{
    "Seite", {{"id", "TEXT"}, {"Überschrift", "TEXT"}, {"html", "MEMO"}, {"dateiname", "TEXT"}, {"seitentyp-id", "LONG"}}};
const JetTable kSettings{"Einstellungen", {{"Einstellung", "TEXT"}, {"Wert", "MEMO"}}};
const JetTable kFiles{"Dateien",
                      {{"pfad", "TEXT"},
                       {"dateiname", "TEXT"},
                       {"erweiterung", "TEXT"},
                       {"dateityp-id", "LONG"},
                       {"übertragen", "BIT"},
                       {"dateidatum", "DATE"},
                       {"pfadLokal", "TEXT"}}};

struct JetContentTest : testing::Test {
  void page(const std::string& id, const std::string& heading = "Text")
  {
    content.row({id, heading, "<p>" + heading + "</p>", "*.htm", 1});
  }

  /// A sound project of the first version with these pages.
  void project(const std::vector<std::string>& ids)
  {
    content.table(kPages);
    for (const auto& id : ids)
      page(id);
    content.table(kSettings);
    content.row({"Titel", "Am Meer"});
    content.table(kFiles);
  }

  std::vector<std::string> column(const std::string& statement)
  {
    std::vector<std::string> out;
    for (auto rows = db.openRecordset(statement); !rows.eof(); rows.moveNext())
      out.push_back(rows.value(std::size_t{0}).isNull() ? "NULL" : rows.value(std::size_t{0}).text());
    return out;
  }

  std::string failure()
  {
    try {
      content.finish("haus.mdb");
    } catch (const base::Error& error) {
      return error.description();
    }
    return "none";
  }

  support::TemporaryDirectory directory;
  dao::Database db = dao::Database::create(directory.file("neu.mdb"));
  JetContent content{db};
};

TEST_F(JetContentTest, of_a_sound_project_is_taken_over_without_a_note)
{
  project({"00", "01", "0101"});

  content.finish("haus.mdb");

  EXPECT_THAT(content.notes(), IsEmpty());
  EXPECT_THAT(column("SELECT id FROM Seite"), ElementsAre("00", "01", "0101"));
  EXPECT_THAT(column("SELECT Wert FROM Einstellungen"), ElementsAre("Am Meer"));
}

TEST_F(JetContentTest, keeps_tables_and_columns_that_are_not_ours)
{
  project({"00"});
  content.table({"Notizen der Familie", {{"Nr", "COUNTER"}, {"Text-1", "MEMO"}, {"wichtig", "BIT"}}});
  content.row({7, "x", 1});
  content.row({3, Null{}, 0});

  content.finish("haus.mdb");

  EXPECT_THAT(column("SELECT Nr FROM [Notizen der Familie] ORDER BY Nr"), ElementsAre("3", "7"));
  EXPECT_THAT(column("SELECT [Text-1] FROM [Notizen der Familie] ORDER BY Nr"), ElementsAre("NULL", "x"));
}

TEST_F(JetContentTest, keeps_a_key_of_the_settings_that_stands_twice)
{
  project({"00"});
  content.table({"Artikel", {{"x", "TEXT"}}});
  db.execute("INSERT INTO Einstellungen (Einstellung, Wert) VALUES ('Titel', 'zweite')");

  content.finish("haus.mdb");

  EXPECT_THAT(column("SELECT Wert FROM Einstellungen"), ElementsAre("Am Meer", "zweite"));
}

TEST_F(JetContentTest, takes_the_root_of_the_first_version)
{
  project({"index", "01"});

  content.finish("haus.mdb");

  EXPECT_THAT(content.notes(), IsEmpty());
  EXPECT_THAT(column("SELECT id FROM Seite"), ElementsAre("index", "01"));
}

TEST_F(JetContentTest, leaves_out_pages_whose_numbers_are_none_and_names_their_headings)
{
  content.table(kPages);
  page("00");
  for (const char* id : {"", "1", "0a", "0100", "0101010101", "M01", "01 ", "-1"})
    page(id, "Verloren");
  content.row({Null{}, "Ohne", Null{}, Null{}, Null{}});
  content.table(kSettings);

  content.finish("haus.mdb");

  EXPECT_THAT(column("SELECT id FROM Seite"), ElementsAre("00"));
  EXPECT_THAT(content.notes(), Contains("Eine Seite mit der unmöglichen Nummer \"0a\" und der Überschrift \"Verloren\" fehlt."));
}

TEST_F(JetContentTest, leaves_out_the_second_of_two_pages_with_one_number)
{
  content.table(kPages);
  page("00", "erste");
  page("00", "zweite");
  content.table(kSettings);
  content.table(kFiles);

  content.finish("haus.mdb");

  EXPECT_THAT(column("SELECT Überschrift FROM Seite"), ElementsAre("erste"));
  EXPECT_THAT(content.notes(), ElementsAre("Eine zweite Seite mit der Nummer \"00\" und der Überschrift \"zweite\" fehlt."));
}

TEST_F(JetContentTest, gets_an_empty_homepage_where_it_is_lost)
{
  project({"01"});

  content.finish("haus.mdb");

  EXPECT_THAT(column("SELECT id FROM Seite ORDER BY ID"), ElementsAre("00", "01"));
  EXPECT_THAT(content.notes(), ElementsAre(HasSubstr("Die Homepage fehlt.")));
}

TEST_F(JetContentTest, names_pages_that_are_missing_above_others)
{
  project({"00", "01", "0201", "020101", "03010101"});

  content.finish("haus.mdb");

  EXPECT_THAT(content.notes(), ElementsAre(HasSubstr("Seite 02 fehlt"), HasSubstr("Seite 030101 fehlt")));
}

TEST_F(JetContentTest, gets_an_empty_register_where_it_is_lost)
{
  content.table(kPages);
  page("00");
  content.table(kSettings);

  content.finish("haus.mdb");

  EXPECT_TRUE(db.hasTable("Dateien"));
  EXPECT_THAT(content.notes(), ElementsAre(HasSubstr("Die Tabelle Dateien fehlt.")));
}

TEST_F(JetContentTest, gets_columns_of_the_register_that_are_lost)
{
  content.table(kPages);
  page("00");
  content.table(kSettings);
  content.table({"Dateien", {{"pfad", "TEXT"}, {"Erweiterung", "TEXT"}, {"meine", "TEXT"}}});
  content.row({"c:\\", "gif", "x"});

  content.finish("haus.mdb");

  EXPECT_THAT(db.columns("Dateien"),
              ElementsAre("pfad", "Erweiterung", "meine", "dateiname", "dateityp-id", "übertragen", "dateidatum", "pfadLokal"));
  EXPECT_EQ(content.notes().size(), 5u);
}

TEST_F(JetContentTest, leaves_out_rows_without_a_number_of_their_own)
{
  project({"00"});
  content.table({"Artikel", {{"Artikel_deutsch", "TEXT"}, {"Artikelnummer", "COUNTER"}}});
  content.row({"eins", 1});
  content.row({"doppelt", 1});
  content.row({"ohne", Null{}});

  content.finish("haus.mdb");

  EXPECT_THAT(column("SELECT Artikel_deutsch FROM Artikel"), ElementsAre("eins"));
  EXPECT_EQ(content.notes().size(), 2u);
}

TEST_F(JetContentTest, leaves_out_what_no_statement_can_name)
{
  project({"00"});
  content.table({"a]b", {{"x", "TEXT"}}});
  content.row({"weg"});
  content.table({"sqlite_master", {{"x", "TEXT"}}});
  content.row({"weg"});
  content.table({"seite", {{"x", "TEXT"}}});
  content.row({"weg"});
  content.table({"leer", {}});
  content.table({"Halb", {{"x", "TEXT"}, {"X", "TEXT"}, {"[", "TEXT"}, {"y", "GUID"}, {"", "LONG"}, {"z", "LONG"}}});
  content.row({"da", "weg", "weg", "weg", 1, 2});

  content.finish("haus.mdb");

  EXPECT_THAT(db.columns("Halb"), ElementsAre("x", "z"));
  EXPECT_THAT(column("SELECT z FROM Halb"), ElementsAre("2"));
  EXPECT_EQ(content.notes().size(), 8u);
}

TEST_F(JetContentTest, names_a_column_that_is_nowhere_readable)
{
  content.table(kPages);
  page("00");
  content.table(kSettings);
  content.row({"Titel", Null{}});
  content.table(kFiles);

  content.finish("haus.mdb");

  EXPECT_THAT(content.notes(), ElementsAre("Tabelle Einstellungen: Die Spalte Wert ist in keiner Zeile lesbar."));
}

TEST_F(JetContentTest, claims_no_version_whose_tables_are_lost)
{
  project({"00"});
  db.execute("INSERT INTO Einstellungen (Einstellung, Wert) VALUES ('dbVersion', '5')");

  content.finish("haus.mdb");
  support::ScriptedUi ui;
  Migration(db, ui).UpdDatabase();

  EXPECT_TRUE(db.hasTable("Artikel"));
  EXPECT_THAT(db.columns("Seite"), Contains("changingdate"));
  EXPECT_THAT(column("SELECT Wert FROM Einstellungen WHERE Einstellung = 'dbVersion'"), ElementsAre("5"));
  EXPECT_THAT(content.notes(), ElementsAre(HasSubstr("neu angelegt")));
}

TEST_F(JetContentTest, of_an_earlier_version_claims_no_column_that_is_lost)
{
  project({"00"});
  db.execute("INSERT INTO Einstellungen (Einstellung, Wert) VALUES ('dbVersion', '3')");

  content.finish("haus.mdb");
  support::ScriptedUi ui;
  Migration(db, ui).UpdDatabase();

  EXPECT_THAT(db.columns("Seite"), Contains("script"));
  EXPECT_THAT(content.notes(), ElementsAre(HasSubstr("neu angelegt")));
}

TEST_F(JetContentTest, names_a_root_of_the_first_version_beside_the_present_one)
{
  project({"00", "index"});

  content.finish("haus.mdb");

  EXPECT_THAT(content.notes(), ElementsAre(HasSubstr("Nummer index")));
}

TEST_F(JetContentTest, of_a_foreign_database_is_refused_with_what_it_lacks)
{
  content.table({"Kunden", {{"Name", "TEXT"}}});

  EXPECT_EQ(failure(), "\"haus.mdb\" ist keine Mirandel-Datenbank: Die Tabelle \"Seite\" fehlt.");
}

TEST_F(JetContentTest, without_a_single_page_is_refused)
{
  project({});

  EXPECT_THAT(failure(), HasSubstr("keine einzige Seite"));
}

TEST_F(JetContentTest, keeps_a_thousand_notes_and_no_more)
{
  project({"00"});
  for (int i = 0; i < 5000; ++i)
    content.leftOut("etwas");

  content.finish("haus.mdb");

  EXPECT_EQ(content.notes().size(), 1000u);
}

} // namespace
} // namespace mrd::project
