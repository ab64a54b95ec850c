// Files that other hands made: whatever stands in them is read as well as it can be, and nothing of it runs.

#include "platform/dao/sample.h"

#include <gmock/gmock.h>

#include <limits>

namespace mrd::dao {
namespace {

using base::ErrorNumber;
using testing::ElementsAre;

class StoredContent : public testing::Test {
protected:
  Database make(const std::string& sql)
  {
    runPlainSql(directory, "fremd.mdb", sql);
    return Database::open(directory.file("fremd.mdb"));
  }

  support::TemporaryDirectory directory;
};

TEST_F(StoredContent, of_any_type_is_read_in_any_form)
{
  auto database = make("CREATE TABLE t (text TEXT, zahl INTEGER, frei); INSERT INTO t VALUES (x'4142ff', 'keine Zahl', 1e300), "
                       "(CAST(x'6772fc' AS TEXT), 9223372036854775807, x''), (7, 2.5, NULL);");
  auto rows = database.openRecordset("t");

  EXPECT_EQ(rows.value("text").text(), "AB\uFFFD");
  EXPECT_EQ(rows.value("zahl").text(), "keine Zahl");
  EXPECT_EQ(rows.value("zahl").integer(), 0);
  EXPECT_EQ(rows.value("frei").integer(), std::numeric_limits<std::int64_t>::max());
  rows.moveNext();
  EXPECT_EQ(rows.value("text").text(), "gr\uFFFD");
  EXPECT_EQ(rows.value("zahl").integer(), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(rows.value("frei").text(), "");
  rows.moveNext();
  EXPECT_EQ(rows.value("text").text(), "7");
  EXPECT_DOUBLE_EQ(rows.value("zahl").number(), 2.5);
  EXPECT_TRUE(rows.value("frei").isNull());
}

TEST_F(StoredContent, of_any_type_can_be_searched)
{
  auto database = make("CREATE TABLE t (id TEXT, n INTEGER); INSERT INTO t VALUES (x'3031', 'x'), ('01', '5'), (NULL, NULL), "
                       "(CAST(x'ff' AS TEXT), 0.5);");
  const auto count = [&](const char* where) {
    return database.openRecordset(std::string("SELECT * FROM t WHERE ") + where + " ORDER BY id, n").recordCount();
  };

  EXPECT_EQ(count("id = '01'"), 1U);
  EXPECT_EQ(count("id LIKE '*'"), 3U);
  EXPECT_EQ(count("n = 5"), 1U);
  EXPECT_EQ(count("n = '5'"), 1U);
  EXPECT_EQ(count("n = TRUE"), 2U);
  EXPECT_EQ(count("n = FALSE"), 1U);
  EXPECT_EQ(count("Mid(id, 1, 2) = 1"), 2U);
}

TEST_F(StoredContent, in_another_encoding_is_read_too)
{
  auto database = make("PRAGMA encoding = 'UTF-16le'; CREATE TABLE t (\"Überschrift\" TEXT); INSERT INTO t VALUES ('Größe');");
  auto rows = database.openRecordset("SELECT * FROM t WHERE ÜBERSCHRIFT = 'GRÖßE'");
  EXPECT_EQ(rows.value("überschrift").text(), "Größe");
}

TEST_F(StoredContent, of_views_and_tables_without_row_ids_can_be_read)
{
  auto database =
      make("CREATE TABLE w (a TEXT PRIMARY KEY, b TEXT) WITHOUT ROWID; INSERT INTO w VALUES ('x', 'eins'), ('Y', 'zwei');"
           "CREATE VIEW v AS SELECT a, b FROM w;");

  for (const char* source : {"w", "v"}) {
    auto rows = database.openRecordset(std::string("SELECT * FROM ") + source + " WHERE a <> 'z' ORDER BY a DESC");
    EXPECT_EQ(rows.recordCount(), 2U);
    EXPECT_EQ(rows.value("B").text(), "zwei");
    rows.findFirst("a = 'X'");
    EXPECT_EQ(rows.value("b").text(), "eins");
    EXPECT_EQ(errorOf([&] { rows.edit(); }), number(ErrorNumber::EngineError));
  }
}

TEST_F(StoredContent, with_columns_that_hide_the_row_id_is_edited_all_the_same)
{
  auto database = make("CREATE TABLE t (rowid TEXT, _rowid_ TEXT); INSERT INTO t VALUES ('a', 'b');"
                       "CREATE TABLE u (rowid TEXT, _rowid_ TEXT, oid TEXT); INSERT INTO u VALUES ('a', 'b', 'c');");
  auto rows = database.openRecordset("t");
  rows.edit();
  rows.set("rowid", "neu");
  rows.update();

  EXPECT_EQ(database.openRecordset("t").value("rowid").text(), "neu");
  EXPECT_EQ(database.openRecordset("u").value("oid").text(), "c");
}

TEST_F(StoredContent, cannot_run_triggers)
{
  auto database = make("CREATE TABLE t (a TEXT); CREATE TABLE u (a TEXT); INSERT INTO u VALUES ('bleibt');"
                       "CREATE TRIGGER boese AFTER INSERT ON t BEGIN DELETE FROM u; END;");
  database.execute("INSERT INTO t VALUES ('x')");
  EXPECT_EQ(database.openRecordset("u").recordCount(), 1U);
}

TEST_F(StoredContent, cannot_keep_the_program_busy_for_ever)
{
  auto database =
      make("CREATE TABLE t (a TEXT); CREATE VIEW endlos AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) "
           "SELECT i FROM n WHERE i < 0;");

  EXPECT_EQ(errorOf([&] { database.openRecordset("endlos"); }), number(ErrorNumber::EngineError));
  EXPECT_EQ(database.execute("INSERT INTO t VALUES ('geht')"), 1U);
}

TEST_F(StoredContent, with_zero_bytes_keeps_them)
{
  auto database = make("CREATE TABLE t (a TEXT); INSERT INTO t VALUES (CAST(x'610062' AS TEXT));");
  EXPECT_EQ(database.openRecordset("t").value("a").text(), std::string("a\0b", 3));
}

TEST_F(StoredContent, of_great_length_comes_back_whole)
{
  Sample sample;
  std::string body;
  while (body.size() < 3'000'000)
    body += "Zeile mit Ümläuten und 'Anführung' \r\n";
  sample.page("00");
  auto rows = sample.db().openRecordset("Seite");
  rows.edit();
  rows.set("html", body);
  rows.update();

  auto again = Database::open(sample.path());
  EXPECT_EQ(again.openRecordset("Seite").value("html").text(), body);
}

} // namespace
} // namespace mrd::dao
