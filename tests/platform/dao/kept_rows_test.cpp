#include "platform/dao/kept_rows.h"

#include "base/errors.h"
#include "platform/files/path.h"
#include "support/temporary.h"

#include <sqlite3.h>

#include <gmock/gmock.h>

namespace mrd::dao {
namespace {

using testing::ElementsAre;

struct KeptRowsTest : testing::Test {
  KeptRowsTest()
  {
    db.execute("CREATE TABLE Seite (id TEXT, html MEMO, Preis DOUBLE)");
    raw("INSERT INTO Seite VALUES ('01', 'eins', 1.5), ('02', NULL, NULL), ('0201', x'00FF41', 'kein Preis'), "
        "('03', CAST(x'C3' AS TEXT), 2)");
  }

  /// Without the adapter: each row as the engine shows it.
  std::vector<std::string> raw(const char* statement) const
  {
    std::vector<std::string> out;
    sqlite3* connection = nullptr;
    EXPECT_EQ(sqlite3_open(files::nativePath(file).c_str(), &connection), SQLITE_OK);
    const auto take = [](void* rows, int count, char** values, char**) {
      std::string row;
      for (int i = 0; i < count; ++i)
        row.append(i == 0 ? "" : "|").append(values[i]);
      static_cast<std::vector<std::string>*>(rows)->push_back(row);
      return 0;
    };
    EXPECT_EQ(sqlite3_exec(connection, statement, take, &out, nullptr), SQLITE_OK) << sqlite3_errmsg(connection);
    sqlite3_close(connection);
    return out;
  }
  std::vector<std::string> rows() const
  {
    return raw("SELECT rowid, quote(id), typeof(html), hex(html), typeof(Preis), quote(Preis) FROM Seite ORDER BY rowid");
  }

  support::TemporaryDirectory directory;
  const std::string file = directory.file("haus.mdb");
  Database db = Database::create(file);
};

TEST_F(KeptRowsTest, come_back_to_the_byte_under_their_numbers)
{
  const auto before = rows();
  const KeptRows kept(db, "Seite", "id LIKE ?", {"0*"});
  EXPECT_EQ(kept.size(), 4U);
  db.execute("DELETE * FROM Seite");

  kept.putBack(db);

  EXPECT_EQ(rows(), before);
}

TEST_F(KeptRowsTest, are_those_of_the_criteria)
{
  const auto before = rows();
  const KeptRows kept(db, "Seite", "id LIKE ?", {"02*"});
  db.execute("DELETE * FROM Seite WHERE id LIKE '02*'");

  kept.putBack(db);

  EXPECT_EQ(kept.size(), 2U);
  EXPECT_EQ(rows(), before);
}

TEST_F(KeptRowsTest, get_another_number_where_a_row_has_theirs)
{
  const KeptRows kept(db, "Seite", "id = ?", {"03"});
  db.execute("DELETE * FROM Seite WHERE id = '03'");
  db.execute("INSERT INTO Seite (id) VALUES ('neu')");

  kept.putBack(db);

  EXPECT_THAT(raw("SELECT rowid, id FROM Seite WHERE rowid > 3"), ElementsAre("4|neu", "5|03"));
}

TEST_F(KeptRowsTest, that_are_forgotten_stay_away)
{
  KeptRows kept(db, "Seite", "id LIKE ?", {"0*"});
  db.execute("DELETE * FROM Seite WHERE id = '01' OR id = '02'");

  kept.forget({2, 3, 4});
  kept.putBack(db);

  EXPECT_THAT(raw("SELECT id FROM Seite ORDER BY rowid"), ElementsAre("01", "0201", "03"));
}

TEST_F(KeptRowsTest, keep_a_counter_as_the_number_of_the_row)
{
  db.execute("CREATE TABLE Artikel (Name TEXT, Nummer COUNTER CONSTRAINT Nummer PRIMARY KEY)");
  for (const auto* const name : {"Tasse", "Poster"})
    db.execute("INSERT INTO Artikel (Name) VALUES (?)", {name});
  const KeptRows kept(db, "Artikel", "Name = ?", {"Tasse"});
  db.execute("DELETE * FROM Artikel WHERE Name = 'Tasse'");

  kept.putBack(db);

  EXPECT_THAT(raw("SELECT Nummer, Name FROM Artikel ORDER BY Nummer"), ElementsAre("1|Tasse", "2|Poster"));
}

TEST_F(KeptRowsTest, are_none_of_a_table_that_is_missing) { EXPECT_THROW(KeptRows(db, "Fehlt", "id = ?", {"01"}), base::Error); }

} // namespace
} // namespace mrd::dao
