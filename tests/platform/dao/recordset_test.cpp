#include "platform/dao/sample.h"

#include <gmock/gmock.h>

namespace mrd::dao {
namespace {

using base::ErrorNumber;
using testing::ElementsAre;

class RecordsetTest : public testing::Test {
protected:
  RecordsetTest()
  {
    sample.page("00", "Start"), sample.page("01", "Haus"), sample.page("02", "Hof"), sample.page("03", "Garten");
  }

  Sample sample;
};

TEST_F(RecordsetTest, walks_its_rows_in_order)
{
  EXPECT_THAT(sample.ids("SELECT * FROM Seite ORDER BY ID DESC"), ElementsAre("03", "02", "01", "00"));
}

TEST_F(RecordsetTest, counts_its_rows_from_the_start)
{
  auto rows = sample.db().openRecordset("SELECT * FROM Seite WHERE ID > '00'");
  EXPECT_EQ(rows.recordCount(), 3U);
  EXPECT_EQ(sample.db().openRecordset("SELECT * FROM Dateien").recordCount(), 0U);
}

TEST_F(RecordsetTest, without_rows_is_at_its_end)
{
  auto rows = sample.db().openRecordset("Dateien");

  EXPECT_TRUE(rows.eof());
  rows.moveFirst();
  rows.moveLast();
  EXPECT_TRUE(rows.eof());
  EXPECT_EQ(errorOf([&] { rows.moveNext(); }), number(ErrorNumber::NoCurrentRecord));
  EXPECT_EQ(errorOf([&] { rows.value("pfad"); }), number(ErrorNumber::NoCurrentRecord));
  EXPECT_EQ(errorOf([&] { rows.edit(); }), number(ErrorNumber::NoCurrentRecord));
  EXPECT_EQ(errorOf([&] { rows.remove(); }), number(ErrorNumber::NoCurrentRecord));
}

TEST_F(RecordsetTest, goes_to_its_last_row_and_back)
{
  auto rows = sample.db().openRecordset("SELECT * FROM Seite ORDER BY ID");
  rows.moveLast();
  EXPECT_EQ(rows.value("id").text(), "03");
  rows.moveFirst();
  EXPECT_EQ(rows.value("id").text(), "00");
  EXPECT_FALSE(rows.eof());
}

TEST_F(RecordsetTest, is_not_disturbed_by_edits_of_the_key_that_it_walks)
{
  auto rows = sample.db().openRecordset("SELECT * FROM Seite Where ID > '00' ORDER BY ID;");
  std::vector<std::string> seen;
  for (; !rows.eof(); rows.moveNext()) {
    seen.push_back(rows.value("ID").text());
    rows.edit();
    rows.set("ID", "9" + seen.back());
    rows.update();
    EXPECT_EQ(rows.value("id").text(), "9" + seen.back());
  }

  EXPECT_THAT(seen, ElementsAre("01", "02", "03"));
  EXPECT_THAT(sample.ids("SELECT * FROM Seite ORDER BY ID"), ElementsAre("00", "901", "902", "903"));
}

TEST_F(RecordsetTest, is_not_disturbed_by_edits_of_the_key_in_another_recordset)
{
  auto walk = sample.db().openRecordset("SELECT * FROM Seite ORDER BY ID");
  std::vector<std::string> headings;
  for (; !walk.eof(); walk.moveNext()) {
    headings.push_back(walk.value("Überschrift").text());
    for (auto other = sample.db().openRecordset("SELECT id FROM Seite"); !other.eof(); other.moveNext()) {
      other.edit();
      other.set("id", "M" + other.value("id").text());
      other.update();
    }
  }
  EXPECT_THAT(headings, ElementsAre("Start", "Haus", "Hof", "Garten"));
}

TEST_F(RecordsetTest, passes_over_rows_that_were_removed_meanwhile)
{
  auto rows = sample.db().openRecordset("SELECT * FROM Seite ORDER BY ID");
  sample.db().execute("DELETE * FROM Seite WHERE id = '01' OR id = '03'");

  rows.moveNext();
  EXPECT_EQ(rows.value("id").text(), "02");
  rows.moveNext();
  EXPECT_TRUE(rows.eof());
  rows.moveLast();
  EXPECT_EQ(rows.value("id").text(), "02");
}

TEST_F(RecordsetTest, tells_when_the_current_row_was_removed)
{
  auto rows = sample.db().openRecordset("SELECT * FROM Seite ORDER BY ID");
  sample.db().execute("DELETE * FROM Seite WHERE id = '00'");

  EXPECT_EQ(errorOf([&] { rows.value("html"); }), number(ErrorNumber::NoCurrentRecord));
  rows.edit();
  rows.set("html", "x");
  EXPECT_EQ(errorOf([&] { rows.update(); }), number(ErrorNumber::NoCurrentRecord));
}

TEST_F(RecordsetTest, adds_a_row_and_stays_where_it_was)
{
  auto rows = sample.db().openRecordset("SELECT * FROM Seite ORDER BY ID");
  rows.moveNext();
  rows.addNew();
  rows.set("ID", "04");
  rows.set("überschrift", "O'Neill");
  EXPECT_EQ(rows.value("Id").text(), "04");
  EXPECT_TRUE(rows.value("html").isNull());
  rows.update();

  EXPECT_EQ(rows.value("id").text(), "01");
  EXPECT_EQ(rows.recordCount(), 5U);
  rows.findFirst("id = '04'");
  EXPECT_EQ(rows.value("Überschrift").text(), "O'Neill");
}

TEST_F(RecordsetTest, adds_to_an_empty_table)
{
  auto rows = sample.db().openRecordset("Einstellungen");
  rows.addNew();
  rows.set("einstellung", "dbVersion");
  rows.set("Wert", Null{});
  rows.update();

  EXPECT_TRUE(rows.eof());
  EXPECT_EQ(rows.recordCount(), 1U);
  rows.moveFirst();
  EXPECT_TRUE(rows.value("Wert").isNull());
}

TEST_F(RecordsetTest, writes_only_what_was_set)
{
  auto rows = sample.db().openRecordset("SELECT * FROM Seite WHERE id = '02'");
  auto other = sample.db().openRecordset("SELECT * FROM Seite WHERE id = '02'");
  rows.edit();
  rows.set("html", "neu");
  other.edit();
  other.set("script", "auch");
  other.update();
  rows.update();

  EXPECT_EQ(rows.value("html").text(), "neu");
  EXPECT_EQ(rows.value("script").text(), "auch");
  EXPECT_EQ(rows.value("Überschrift").text(), "Hof");
}

TEST_F(RecordsetTest, forgets_an_open_edit_when_it_moves)
{
  auto rows = sample.db().openRecordset("SELECT * FROM Seite ORDER BY ID");
  rows.edit();
  rows.set("html", "verworfen");
  rows.moveNext();

  EXPECT_EQ(errorOf([&] { rows.update(); }), number(ErrorNumber::EngineError));
  EXPECT_EQ(errorOf([&] { rows.set("html", "x"); }), number(ErrorNumber::EngineError));
  EXPECT_THAT(sample.column("SELECT html FROM Seite WHERE id = '00'", "html"), ElementsAre("NULL"));
}

TEST_F(RecordsetTest, removes_rows_during_its_walk)
{
  auto rows = sample.db().openRecordset("SELECT * FROM Seite ORDER BY ID");
  for (; !rows.eof(); rows.moveNext())
    if (rows.value("id").text() != "02")
      rows.remove();

  EXPECT_EQ(rows.recordCount(), 1U);
  EXPECT_THAT(sample.ids("Seite"), ElementsAre("02"));
}

TEST_F(RecordsetTest, stands_before_the_next_row_after_a_removal)
{
  auto rows = sample.db().openRecordset("SELECT * FROM Seite ORDER BY ID");
  rows.remove();

  EXPECT_FALSE(rows.eof());
  EXPECT_EQ(errorOf([&] { rows.value("id"); }), number(ErrorNumber::NoCurrentRecord));
  rows.moveNext();
  EXPECT_EQ(rows.value("id").text(), "01");
}

TEST_F(RecordsetTest, finds_rows_after_removals_and_additions)
{
  auto rows = sample.db().openRecordset("SELECT * FROM Seite ORDER BY ID");
  rows.findFirst("id = '01'");
  rows.remove();
  rows.findFirst("id = '03'");
  EXPECT_EQ(rows.value("Überschrift").text(), "Garten");
  rows.findFirst("id = '01'");
  EXPECT_TRUE(rows.noMatch());
}

TEST_F(RecordsetTest, changes_a_counter_without_losing_the_row)
{
  sample.db().execute("CREATE TABLE Artikel (Name TEXT, Nummer COUNTER CONSTRAINT Nummer PRIMARY KEY)");
  sample.db().execute("INSERT INTO Artikel (Name) VALUES ('Stuhl')");
  auto rows = sample.db().openRecordset("Artikel");
  rows.edit();
  rows.set("Nummer", 17);
  rows.update();

  EXPECT_EQ(rows.value("nummer").integer(), 17);
  EXPECT_EQ(rows.value("Name").text(), "Stuhl");
}

TEST_F(RecordsetTest, knows_only_the_columns_of_its_statement)
{
  auto rows = sample.db().openRecordset("select id, Überschrift from Seite");

  EXPECT_THAT(rows.columns(), ElementsAre("id", "Überschrift"));
  EXPECT_EQ(errorOf([&] { rows.value("html"); }), number(ErrorNumber::ItemNotFound));
  EXPECT_EQ(errorOf([&] { rows.value(""); }), number(ErrorNumber::ItemNotFound));
  EXPECT_EQ(errorOf([&] { rows.column("html"); }), number(ErrorNumber::ItemNotFound));
}

TEST_F(RecordsetTest, is_read_by_place_as_well)
{
  auto rows = sample.db().openRecordset("SELECT * FROM Seite ORDER BY ID");
  const auto heading = rows.column("ÜBERSCHRIFT");
  const auto type = rows.column("seitentyp-id");

  EXPECT_EQ(rows.text(heading), "Start");
  EXPECT_EQ(rows.text(type), "1");
  EXPECT_EQ(rows.value(type), Value(1));
  EXPECT_TRUE(rows.isNull(rows.column("html")));
  EXPECT_EQ(rows.text(heading), "Start");
}

TEST_F(RecordsetTest, of_a_renamed_or_calculated_column_is_for_reading)
{
  auto rows = sample.db().openRecordset("SELECT id AS Nummer, Len(id) AS Laenge FROM Seite ORDER BY id");

  EXPECT_EQ(rows.value("nummer").text(), "00");
  EXPECT_EQ(rows.value("laenge").integer(), 2);
  EXPECT_EQ(errorOf([&] { rows.edit(); }), number(ErrorNumber::EngineError));
  EXPECT_EQ(errorOf([&] { rows.addNew(); }), number(ErrorNumber::EngineError));
  EXPECT_EQ(errorOf([&] { rows.remove(); }), number(ErrorNumber::EngineError));
}

TEST_F(RecordsetTest, as_a_snapshot_shows_what_was_there_when_it_opened)
{
  auto rows = sample.db().openSnapshot("SELECT id, Überschrift FROM Seite WHERE id > ? ORDER BY ID", {"00"});
  sample.db().execute("UPDATE Seite SET Überschrift = 'anders'");
  sample.db().execute("DELETE * FROM Seite");

  EXPECT_EQ(rows.recordCount(), 3U);
  EXPECT_EQ(rows.value("überschrift").text(), "Haus");
  rows.findFirst("Überschrift = 'garten'");
  EXPECT_EQ(rows.text(rows.column("ID")), "03");
  EXPECT_EQ(errorOf([&] { rows.edit(); }), number(ErrorNumber::EngineError));
}

TEST_F(RecordsetTest, survives_being_moved)
{
  auto first = sample.db().openRecordset("SELECT * FROM Seite ORDER BY ID");
  auto second = std::move(first);
  second.moveNext();
  EXPECT_EQ(second.value("id").text(), "01");
}

TEST_F(RecordsetTest, does_not_lock_the_file_while_it_stands_on_a_row)
{
  auto rows = sample.db().openRecordset("SELECT * FROM Seite ORDER BY ID");
  EXPECT_EQ(rows.value("id").text(), "00");

  auto other = Database::open(sample.path());
  EXPECT_EQ(other.execute("UPDATE Seite SET html = 'von nebenan' WHERE id = '01'"), 1U);
  rows.moveNext();
  EXPECT_EQ(rows.value("html").text(), "von nebenan");
}

TEST_F(RecordsetTest, checks_the_number_of_its_parameters)
{
  EXPECT_EQ(errorOf([&] { sample.db().openRecordset("SELECT * FROM Seite WHERE id = ?"); }), number(ErrorNumber::SyntaxError));
  EXPECT_EQ(errorOf([&] { sample.db().openRecordset("SELECT * FROM Seite", {"x"}); }), number(ErrorNumber::SyntaxError));
  EXPECT_EQ(sample.db().openRecordset("SELECT * FROM Seite WHERE id = ? OR id = ?", {"01", "02"}).recordCount(), 2U);
}

} // namespace
} // namespace mrd::dao
