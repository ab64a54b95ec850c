#include "platform/dao/dialect.h"
#include "platform/dao/sample.h"

#include <gmock/gmock.h>

namespace mrd::dao {
namespace {

using base::ErrorNumber;
using testing::ElementsAre;

std::string sqlOf(std::string_view statement) { return translateStatement(statement).sql; }

TEST(Definitions, use_types_that_any_tool_knows)
{
  EXPECT_EQ(sqlOf("CREATE TABLE t (a TEXT(255), b MEMO, c LONG, d DOUBLE, e BIT, f DATE, [g-h] DATETIME NOT NULL)"),
            "CREATE TABLE \"t\" (\"a\" TEXT, \"b\" TEXT, \"c\" INTEGER, \"d\" REAL, \"e\" INTEGER DEFAULT 0, \"f\" TEXT, "
            "\"g-h\" TEXT NOT NULL)");
}

TEST(Definitions, make_a_counter_the_key_of_its_table)
{
  EXPECT_EQ(sqlOf("CREATE TABLE t (a COUNTER CONSTRAINT k PRIMARY KEY);"),
            "CREATE TABLE \"t\" (\"a\" INTEGER CONSTRAINT \"k\" PRIMARY KEY AUTOINCREMENT)");
  EXPECT_EQ(sqlOf("CREATE TABLE t (a COUNTER, b TEXT)"),
            "CREATE TABLE \"t\" (\"a\" INTEGER PRIMARY KEY AUTOINCREMENT, \"b\" TEXT)");
}

TEST(Definitions, know_keys_of_several_columns)
{
  EXPECT_EQ(sqlOf("CREATE TABLE t (a TEXT, b LONG, CONSTRAINT k PRIMARY KEY (A, b))"),
            "CREATE TABLE \"t\" (\"a\" TEXT, \"b\" INTEGER, CONSTRAINT \"k\" PRIMARY KEY (\"a\", \"b\"))");
}

TEST(Definitions, know_indexes)
{
  Sample sample;
  sample.db().execute("CREATE INDEX SeiteId ON seite (ID)");
  sample.page("01"), sample.page("01"), sample.page("00");

  EXPECT_THAT(sample.ids("SELECT * FROM Seite WHERE id = '01'"), ElementsAre("01", "01"));
  sample.db().execute("CREATE UNIQUE INDEX n ON Einstellungen (Einstellung, Wert)");
  EXPECT_EQ(errorOf([&] { sample.db().execute("CREATE INDEX x ON Seite (fehlt)"); }), number(ErrorNumber::ItemNotFound));
}

TEST(Definitions, refuse_a_name_that_is_taken_in_any_case)
{
  Sample sample;
  EXPECT_EQ(errorOf([&] { sample.db().execute("CREATE TABLE SEITE (a TEXT)"); }), number(ErrorNumber::EngineError));
  EXPECT_EQ(errorOf([&] { sample.db().execute("ALTER TABLE Seite ADD COLUMN ÜBERSCHRIFT TEXT"); }),
            number(ErrorNumber::EngineError));
  EXPECT_EQ(errorOf([&] { sample.db().execute("CREATE TABLE t (ä TEXT, Ä TEXT)"); }), number(ErrorNumber::EngineError));
  EXPECT_EQ(errorOf([&] { sample.db().execute("ALTER TABLE Fehlt ADD COLUMN a TEXT"); }), number(ErrorNumber::ItemNotFound));
}

TEST(Definitions, refuse_what_they_do_not_know)
{
  for (const char* text :
       {"CREATE TABLE t", "CREATE TABLE t ()", "CREATE TABLE t (a)", "CREATE TABLE t (a BLOB)", "CREATE TABLE t (a TEXT",
        "CREATE TABLE t (a TEXT) WITHOUT ROWID", "CREATE TABLE t AS SELECT * FROM u", "CREATE VIEW v AS SELECT 1",
        "CREATE TRIGGER x", "ALTER TABLE t DROP COLUMN a", "ALTER TABLE t ADD COLUMN a TEXT; DROP TABLE t",
        "ALTER TABLE t ADD COLUMN a TEXT DEFAULT 'x'", "CREATE TABLE t (a TEXT CONSTRAINT k)"})
    EXPECT_EQ(errorOf([&] { translateStatement(text); }), number(ErrorNumber::SyntaxError)) << text;
}

TEST(Definitions, may_drop_a_table)
{
  Sample sample;
  sample.db().execute("DROP TABLE DATEIEN;");
  EXPECT_FALSE(sample.db().hasTable("Dateien"));
}

} // namespace
} // namespace mrd::dao
