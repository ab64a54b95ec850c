#include "platform/dao/database_copy.h"

#include "base/errors.h"
#include "platform/dao/database.h"
#include "platform/files/files.h"
#include "platform/files/path.h"
#include "support/temporary.h"

#include <sqlite3.h>

#include <gtest/gtest.h>

#include <fstream>

namespace mrd::dao {
namespace {

using base::ErrorNumber;

struct CopyTest : testing::Test {
  CopyTest()
  {
    auto db = Database::create(source);
    db.execute("CREATE TABLE Seite (id TEXT, html MEMO)");
    db.execute("CREATE INDEX SeiteId ON Seite (id)");
    Transaction transaction(db);
    for (int page = 0; page < kPages; ++page)
      db.execute("INSERT INTO Seite (id, html) VALUES (?, ?)", {page, std::string(3000, 'x')});
    transaction.commit();
  }

  static std::size_t pages(const std::string& file)
  {
    auto db = Database::open(file, OpenMode::ReadOnly);
    return db.openRecordset("Seite").recordCount();
  }
  static ErrorNumber refusal(const std::function<void()>& work)
  {
    try {
      work();
    } catch (const base::Error& error) {
      return error.kind();
    }
    ADD_FAILURE() << "nothing was refused";
    return ErrorNumber::EngineError;
  }
  /// Without the precautions of the adapter.
  void raw(const char* statements) const
  {
    sqlite3* connection = nullptr;
    ASSERT_EQ(sqlite3_open(files::nativePath(source).c_str(), &connection), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(connection, statements, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(connection);
    sqlite3_close(connection);
  }

  static constexpr int kPages = 1000;
  support::TemporaryDirectory directory;
  const std::string source = directory.file("haus.mdb"), target = directory.file("kopie.mdb");
};

TEST_F(CopyTest, holds_what_the_database_holds)
{
  DatabaseCopy(source, target).copyRest();

  EXPECT_EQ(pages(target), std::size_t{kPages});
  EXPECT_TRUE(isSound(target));
  constexpr std::size_t kHead = 4096;
  EXPECT_TRUE(files::readFile(target).substr(kHead) == files::readFile(source).substr(kHead));
}

TEST_F(CopyTest, comes_in_pieces)
{
  DatabaseCopy copy(source, target);
  int pieces = 1;
  while (!copy.copyPiece())
    ++pieces;

  EXPECT_GT(pieces, 2);
  EXPECT_EQ(pages(target), std::size_t{kPages});
}

TEST_F(CopyTest, is_of_one_moment_when_somebody_writes_between_two_pieces)
{
  DatabaseCopy copy(source, target);
  ASSERT_FALSE(copy.copyPiece());
  {
    auto db = Database::open(source);
    db.execute("DELETE * FROM Seite WHERE id < '5'");
    db.execute("INSERT INTO Seite (id, html) VALUES ('neu', 'neu')");
  }
  copy.copyRest();

  EXPECT_TRUE(isSound(target));
  EXPECT_EQ(pages(target), pages(source));
}

TEST_F(CopyTest, has_no_part_of_a_transaction_that_is_under_way)
{
  auto db = Database::open(source);
  const Transaction transaction(db);
  db.execute("DELETE * FROM Seite");

  DatabaseCopy(source, target).copyRest();

  EXPECT_EQ(pages(target), std::size_t{kPages});
}

TEST_F(CopyTest, has_what_still_lies_in_a_write_ahead_log_and_needs_none)
{
  raw("PRAGMA journal_mode = WAL");
  sqlite3* connection = nullptr;
  ASSERT_EQ(sqlite3_open(files::nativePath(source).c_str(), &connection), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(connection, "INSERT INTO Seite VALUES ('neu', 'neu')", nullptr, nullptr, nullptr), SQLITE_OK);

  DatabaseCopy(source, target).copyRest();
  sqlite3_close(connection);

  EXPECT_EQ(pages(target), std::size_t{kPages} + 1);
  for (const auto& companion : companionsOf(target))
    EXPECT_FALSE(files::fileExists(companion)) << companion;
}

TEST_F(CopyTest, of_no_database_is_refused)
{
  directory.write("text.mdb", "Kein Projekt, nur ein Text.");

  EXPECT_EQ(refusal([&] { DatabaseCopy(directory.file("text.mdb"), target); }), ErrorNumber::NotADatabase);
  EXPECT_EQ(refusal([&] { DatabaseCopy(directory.file("fehlt.mdb"), target); }), ErrorNumber::FileNotFound);
}

TEST_F(CopyTest, into_a_directory_that_is_not_there_is_refused)
{
  EXPECT_EQ(refusal([&] { DatabaseCopy(source, directory.file("fehlt\\kopie.mdb")).copyRest(); }), ErrorNumber::AccessDenied);
}

TEST_F(CopyTest, a_database_with_a_damaged_page_is_not_sound)
{
  EXPECT_TRUE(isSound(source));
  std::fstream file(files::nativePath(source), std::ios::in | std::ios::out | std::ios::binary);
  file.seekp(4096 * 3);
  file << std::string(4096, '\xff');
  file.close();

  EXPECT_FALSE(isSound(source));
}

TEST_F(CopyTest, a_text_is_not_sound_and_a_missing_file_is_an_error)
{
  directory.write("text.mdb", "Kein Projekt, nur ein Text.");

  EXPECT_FALSE(isSound(directory.file("text.mdb")));
  EXPECT_EQ(refusal([&] { isSound(directory.file("fehlt.mdb")); }), ErrorNumber::FileNotFound);
}

TEST_F(CopyTest, what_lies_beside_a_database_is_brought_into_it)
{
  raw("PRAGMA journal_mode = WAL; INSERT INTO Seite VALUES ('neu', 'neu')");

  mergeCompanions(source);

  EXPECT_EQ(pages(source), std::size_t{kPages} + 1);
  for (const auto& companion : companionsOf(source))
    EXPECT_FALSE(files::fileExists(companion)) << companion;
  EXPECT_EQ(files::readFile(source).substr(18, 2), "\x01\x01");
}

} // namespace
} // namespace mrd::dao
