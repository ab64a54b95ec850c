#include "base/errors.h"
#include "support/temporary.h"
#include "tools/database_text.h"

#include <gtest/gtest.h>

namespace mrd::tools {
namespace {

struct DatabaseTextTest : testing::Test {
  support::TemporaryDirectory directory;
  dao::Database db = dao::Database::create(directory.file("text.mdb"));
};

TEST_F(DatabaseTextTest, makes_tables_and_rows_and_passes_over_comments)
{
  runStatements(db, "-- Ein Kommentar;\n\nCREATE TABLE Orte (Name TEXT,\n  Zahl LONG);\n");
  insertRows(db, "Orte", "# noch einer\nName\tZahl\nKiel\t1\n\nÜlzen\t\\N\n");

  auto rows = db.openRecordset("SELECT * FROM Orte");
  EXPECT_EQ(rows.recordCount(), 2u);
  EXPECT_EQ(rows.value("Zahl").integer(), 1);
  rows.moveNext();
  EXPECT_EQ(rows.value("Name").text(), "Ülzen");
  EXPECT_TRUE(rows.value("Zahl").isNull());
}

TEST_F(DatabaseTextTest, writes_tabs_line_ends_and_backslashes_by_escapes)
{
  runStatements(db, "CREATE TABLE Texte (Inhalt MEMO);");
  insertRows(db, "Texte", "Inhalt\na\\tb\\r\\nc\\\\d\n");

  EXPECT_EQ(db.openRecordset("Texte").value("Inhalt").text(), "a\tb\r\nc\\d");
}

TEST_F(DatabaseTextTest, refuses_a_row_of_another_width_than_its_head)
{
  runStatements(db, "CREATE TABLE Orte (Name TEXT, Zahl LONG);");

  EXPECT_THROW(insertRows(db, "Orte", "Name\tZahl\nKiel\n"), base::Error);
}

} // namespace
} // namespace mrd::tools
