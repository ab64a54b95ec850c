#include "frame/project/migration.h"
#include "support/scripted_ui.h"
#include "support/temporary.h"

#include <gmock/gmock.h>

namespace mrd::project {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

struct MigrationTest : testing::Test {
  support::TemporaryDirectory directory;
  dao::Database db = dao::Database::create(directory.file("alt.mdb"));
  support::ScriptedUi ui;
  Migration migration{db, ui};

  /// The tables of the oldest projects.
  void SetUp() override
  {
    db.execute("CREATE TABLE Seite (id TEXT, Überschrift TEXT, html MEMO, dateiname TEXT, [seitentyp-id] LONG)");
    db.execute("CREATE TABLE Einstellungen (Einstellung TEXT, Wert MEMO)");
    db.execute("CREATE TABLE Dateien (pfad TEXT, dateiname TEXT, erweiterung TEXT, [dateityp-id] LONG, übertragen BIT, "
               "dateidatum DATE)");
  }

  void addPage(std::string_view id) { db.execute("INSERT INTO Seite (id) VALUES (?)", {id}); }
  void addSetting(std::string_view key, dao::Value value)
  {
    db.execute("INSERT INTO Einstellungen (Einstellung, Wert) VALUES (?, ?)", {key, std::move(value)});
  }
  std::vector<std::string> ids()
  {
    std::vector<std::string> out;
    for (auto rows = db.openRecordset("SELECT id FROM Seite ORDER BY ID"); !rows.eof(); rows.moveNext())
      out.push_back(rows.value("id").text());
    return out;
  }
  std::string version() { return migration.UpdTblEinstellungenReadRec("dbVersion", false); }
};

TEST_F(MigrationTest, gives_an_old_project_all_columns_the_articles_and_version_5)
{
  addPage("00");

  migration.UpdDatabase();

  EXPECT_THAT(db.columns("Seite"),
              ElementsAre("id", "Überschrift", "html", "dateiname", "seitentyp-id", "expanded", "script", "changingdate"));
  EXPECT_THAT(db.columns("Artikel"),
              ElementsAre("Artikel_deutsch", "Artikel_englisch", "Preis_Euro", "Preis_Dollar", "Artikelnummer"));
  EXPECT_EQ(version(), "5");
  EXPECT_EQ(migration.UpdTblEinstellungenReadRec("LastActivePage", false), "00");
}

TEST_F(MigrationTest, numbers_articles_by_itself)
{
  migration.UpdDatabase();

  for (const auto* name : {"Tasse", "Teller"})
    db.execute("INSERT INTO Artikel (Artikel_deutsch) VALUES (?)", {name});

  auto rows = db.openRecordset("Select * from Artikel");
  rows.moveNext();
  EXPECT_EQ(rows.value("Artikelnummer").integer(), 2);
}

TEST_F(MigrationTest, adds_no_column_twice)
{
  db.execute("ALTER TABLE Seite ADD COLUMN expanded BIT");
  addSetting("dbVersion", "0");

  migration.UpdDatabase();

  EXPECT_EQ(db.columns("Seite").size(), 8u);
  EXPECT_EQ(version(), "5");
}

TEST_F(MigrationTest, goes_on_from_the_version_that_a_project_has)
{
  addSetting("dbVersion", "3");

  migration.UpdDatabase();

  EXPECT_THAT(db.columns("Seite"), Not(Contains("expanded")));
  EXPECT_THAT(db.columns("Seite"), Contains("changingdate"));
  EXPECT_TRUE(db.hasTable("Artikel"));
}

TEST_F(MigrationTest, renames_the_old_root_page)
{
  addPage("index");
  addPage("01");

  migration.UpdDatabase();

  EXPECT_THAT(ids(), ElementsAre("00", "01"));
}

TEST_F(MigrationTest, leaves_a_page_index_alone_where_there_is_a_root_already)
{
  addPage("00");
  addPage("index");

  migration.UpdDatabase();

  EXPECT_THAT(ids(), ElementsAre("00", "index"));
}

TEST_F(MigrationTest, changes_nothing_in_a_present_project)
{
  support::TemporaryProject project{{"00", "Start"}};
  const auto before = project.db().openRecordset("Select * from Einstellungen").recordCount();

  Migration(project.db(), ui).UpdDatabase();

  EXPECT_EQ(project.db().openRecordset("Select * from Einstellungen").recordCount(), before);
  EXPECT_EQ(project.setting("dbVersion"), "5");
}

TEST_F(MigrationTest, does_no_step_for_the_version_9999)
{
  addSetting("dbVersion", "9999");

  migration.UpdDatabase();

  EXPECT_EQ(db.columns("Seite").size(), 5u);
  EXPECT_FALSE(db.hasTable("Artikel"));
  EXPECT_EQ(version(), "9999");
}

TEST_F(MigrationTest, does_not_stumble_over_articles_that_are_there_already)
{
  migration.addTableArtikel();

  migration.UpdDatabase();

  EXPECT_EQ(version(), "5");
}

TEST_F(MigrationTest, reads_Null_as_empty_and_a_missing_row_as_9999)
{
  addSetting("BasisURL", dao::Null{});
  addSetting("Titel", "  Möwe ");

  EXPECT_EQ(migration.UpdTblEinstellungenReadRec("BasisURL", true), "");
  EXPECT_EQ(migration.UpdTblEinstellungenReadRec("Titel", true), "Möwe");
  EXPECT_EQ(migration.UpdTblEinstellungenReadRec("Fehlt", false), "9999");
}

TEST_F(MigrationTest, tells_of_a_row_that_it_cannot_read_or_write)
{
  ui.expect(0, "Fehlt  konnte nicht gelesen werden.  Wert: ").expect(0, "Fehlt  konnte nicht aktualisiert werden.  Wert: 7");

  migration.UpdTblEinstellungenReadRec("Fehlt", true);
  migration.UpdTblEinstellungenWriteRec("Fehlt", "7");

  EXPECT_EQ(db.openRecordset("Select * from Einstellungen").recordCount(), 0u);
}

TEST_F(MigrationTest, adds_a_setting_once_and_writes_it_trimmed)
{
  migration.UpdTblEinstellungenAddRec(" Titel ", " Möwe ");
  migration.UpdTblEinstellungenAddRec("Titel", "anders");
  EXPECT_EQ(migration.UpdTblEinstellungenReadRec("Titel", true), "Möwe");

  migration.UpdTblEinstellungenWriteRec("Titel", " neu ");
  EXPECT_EQ(migration.UpdTblEinstellungenReadRec("Titel", true), "neu");
}

TEST_F(MigrationTest, checks_columns_whatever_their_case)
{
  EXPECT_EQ(migration.CheckColumnExistInTable("Seite", "ÜBERSCHRIFT"), 0);
  EXPECT_EQ(migration.CheckColumnExistInTable("seite", "expanded"), 1);
}

TEST_F(MigrationTest, tells_of_a_column_that_cannot_be_added_and_goes_on)
{
  ui.expect(0, " in Modul AddColumn.");

  migration.AddColumn("Fehlt", "expanded", "BIT");
}

} // namespace
} // namespace mrd::project
