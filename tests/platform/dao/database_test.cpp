#include "platform/dao/sample.h"

#include <gmock/gmock.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <random>

namespace mrd::dao {
namespace {

using base::ErrorNumber;
using testing::HasSubstr;

int openError(const std::string& path)
{
  return errorOf([&] { Database::open(path); });
}

TEST(OpeningADatabase, tells_that_a_file_is_missing)
{
  const support::TemporaryDirectory directory;
  const auto path = directory.file("fehlt.mdb");

  EXPECT_EQ(openError(path), number(ErrorNumber::FileNotFound));
  EXPECT_THAT(descriptionOf([&] { Database::open(path); }), HasSubstr((directory.native() / "fehlt.mdb").string()));
  EXPECT_EQ(openError(directory.file("auch\\fehlt.mdb")), number(ErrorNumber::FileNotFound));
  EXPECT_EQ(openError(""), number(ErrorNumber::FileNotFound));
}

TEST(OpeningADatabase, tells_a_directory_from_a_file)
{
  const support::TemporaryDirectory directory;
  EXPECT_EQ(openError(directory.path()), number(ErrorNumber::PathFileAccess));
}

TEST(OpeningADatabase, refuses_a_pipe_without_waiting_for_it)
{
  const support::TemporaryDirectory directory;
  ASSERT_EQ(::mkfifo((directory.native() / "rohr.mdb").c_str(), 0600), 0);
  EXPECT_EQ(openError(directory.file("rohr.mdb")), number(ErrorNumber::NotADatabase));
}

TEST(OpeningADatabase, refuses_a_file_without_permission)
{
  const Sample sample;
  const auto native = sample.directory().native() / "projekt.mdb";
  ::chmod(native.c_str(), 0);
  // Whoever may read everything is not refused.
  EXPECT_EQ(openError(sample.path()), ::access(native.c_str(), R_OK) == 0 ? 0 : number(ErrorNumber::AccessDenied));
}

TEST(OpeningADatabase, refuses_an_empty_file_and_one_of_other_bytes)
{
  const support::TemporaryDirectory directory;
  directory.write("leer.mdb", "");
  directory.write("kurz.mdb", "SQLite");
  directory.write("text.mdb", "Liebes Tagebuch, heute habe ich keine Datenbank geschrieben.");
  std::mt19937 random(7);
  std::string bytes(20'000, '\0');
  for (auto& byte : bytes)
    byte = static_cast<char>(random());
  directory.write("zufall.mdb", bytes);
  directory.write("kopf.mdb", std::string("SQLite format 3\0", 16) + bytes);
  directory.write("nurkopf.mdb", std::string("SQLite format 3\0", 16));

  for (const char* name : {"leer.mdb", "kurz.mdb", "text.mdb", "zufall.mdb", "kopf.mdb", "nurkopf.mdb"}) {
    EXPECT_EQ(openError(directory.file(name)), number(ErrorNumber::NotADatabase)) << name;
    EXPECT_THAT(descriptionOf([&] { Database::open(directory.file(name)); }), HasSubstr(name));
  }
}

TEST(OpeningADatabase, refuses_a_file_whose_end_is_cut_off)
{
  Sample sample;
  for (int i = 0; i < 40; ++i)
    sample.page(std::to_string(i), std::string(3000, 'x'));
  const std::string whole = sample.directory().read("projekt.mdb");

  for (const std::size_t size : {whole.size() - 1, whole.size() - 5000, whole.size() / 2, std::size_t{4096}, std::size_t{100}}) {
    sample.directory().write("kurz.mdb", whole.substr(0, size));
    EXPECT_EQ(openError(sample.directory().file("kurz.mdb")), number(ErrorNumber::NotADatabase)) << size;
  }
}

TEST(OpeningADatabase, never_crashes_on_damage_inside)
{
  Sample sample;
  for (int i = 0; i < 40; ++i)
    sample.page(std::to_string(i), std::string(3000, 'x'));
  const std::string whole = sample.directory().read("projekt.mdb");
  std::mt19937 random(11);

  for (int round = 0; round < 150; ++round) {
    std::string damaged = whole;
    for (int i = 0; i < 20; ++i)
      damaged[16 + random() % (round % 2 == 0 ? 4000 : damaged.size() - 16)] = static_cast<char>(random());
    sample.directory().write("kaputt.mdb", damaged);
    // Whatever can still be read is read; the rest ends in an error.
    errorOf([&] {
      auto database = Database::open(sample.directory().file("kaputt.mdb"));
      for (const char* source : {"Seite", "SELECT * FROM Seite WHERE id LIKE '1*' ORDER BY Überschrift", "Einstellungen"})
        for (auto rows = database.openRecordset(source); !rows.eof(); rows.moveNext())
          for (std::size_t column = 0; column < rows.columns().size(); ++column)
            rows.value(column);
      database.execute("UPDATE Seite SET html = 'neu' WHERE id = '7'");
    });
  }
}

TEST(OpeningADatabase, tells_that_another_program_holds_it)
{
  Sample sample;
  sqlite3* holder = nullptr;
  sqlite3_open((sample.directory().native() / "projekt.mdb").c_str(), &holder);
  ASSERT_EQ(sqlite3_exec(holder, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);

  EXPECT_EQ(openError(sample.path()), number(ErrorNumber::DatabaseLocked));
  sqlite3_close(holder);
  EXPECT_EQ(openError(sample.path()), 0);
}

TEST(OpeningADatabase, finds_it_whatever_the_case_of_its_path)
{
  const Sample sample;
  EXPECT_EQ(openError(sample.directory().file("PROJEKT.MDB")), 0);
}

TEST(OpeningADatabase, for_reading_only_refuses_to_write)
{
  Sample sample;
  sample.page("00");
  auto database = Database::open(sample.path(), OpenMode::ReadOnly);

  EXPECT_EQ(database.openRecordset("Seite").recordCount(), 1U);
  EXPECT_EQ(errorOf([&] { database.execute("DELETE * FROM Seite"); }), number(ErrorNumber::AccessDenied));
}

TEST(OpeningADatabase, takes_one_with_a_write_ahead_log)
{
  const support::TemporaryDirectory directory;
  runPlainSql(directory, "wal.mdb", "PRAGMA journal_mode = WAL; CREATE TABLE t (a TEXT); INSERT INTO t VALUES ('x');");

  auto database = Database::open(directory.file("wal.mdb"));
  EXPECT_EQ(database.execute("UPDATE t SET a = 'y'"), 1U);
  EXPECT_EQ(database.openRecordset("t").value("a").text(), "y");
}

TEST(OpeningADatabase, plays_back_the_journal_of_a_crash)
{
  Sample sample;
  sample.page("00", "vorher");
  const auto& directory = sample.directory();
  // The journal of a transaction that never ended, and the file in the middle of it.
  sqlite3* crashed = nullptr;
  sqlite3_open((directory.native() / "projekt.mdb").c_str(), &crashed);
  sqlite3_exec(crashed, "PRAGMA cache_size = 1; PRAGMA cache_spill = 1; BEGIN; UPDATE Seite SET Überschrift = 'halb';", nullptr,
               nullptr, nullptr);
  sqlite3_exec(crashed,
               "INSERT INTO Seite (html) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 50) "
               "SELECT hex(zeroblob(4000)) FROM n;",
               nullptr, nullptr, nullptr);
  directory.write("absturz.mdb", directory.read("projekt.mdb"));
  directory.write("absturz.mdb-journal", directory.read("projekt.mdb-journal"));
  sqlite3_close(crashed);

  auto database = Database::open(directory.file("absturz.mdb"));
  EXPECT_EQ(database.openRecordset("Seite").value("Überschrift").text(), "vorher");
  EXPECT_EQ(database.openRecordset("Seite").recordCount(), 1U);
}

TEST(CreatingADatabase, marks_the_file)
{
  const support::TemporaryDirectory directory;
  Database::create(directory.file("neu.mdb"));
  const std::string bytes = directory.read("neu.mdb");

  EXPECT_EQ(bytes.substr(0, 15), "SQLite format 3");
  EXPECT_EQ(bytes.substr(68, 4), "MRDL");
  EXPECT_EQ(bytes.substr(16, 2), std::string("\x10\x00", 2));
  EXPECT_EQ(openError(directory.file("neu.mdb")), 0);
}

TEST(CreatingADatabase, never_takes_an_existing_file)
{
  const support::TemporaryDirectory directory;
  directory.write("da.mdb", "wichtig");

  EXPECT_EQ(errorOf([&] { Database::create(directory.file("da.mdb")); }), number(ErrorNumber::PathFileAccess));
  EXPECT_EQ(directory.read("da.mdb"), "wichtig");
  EXPECT_EQ(errorOf([&] { Database::create(directory.file("fehlt\\neu.mdb")); }), number(ErrorNumber::PathFileAccess));
}

TEST(CreatingADatabase, stores_nothing_that_other_tools_do_not_understand)
{
  Sample sample;
  sample.page("01", "Ä"), sample.page("00", "b");
  runPlainSql(sample.directory(), "projekt.mdb",
              "SELECT * FROM Seite ORDER BY Überschrift; UPDATE Seite SET html = upper(id);"
              "REINDEX; VACUUM; PRAGMA integrity_check;");
  EXPECT_EQ(sample.ids("SELECT * FROM Seite WHERE html = '01'").size(), 1U);
}

TEST(ADatabase, knows_its_tables_and_columns)
{
  const Sample sample;
  auto database = Database::open(sample.path());

  EXPECT_TRUE(database.hasTable("SEITE"));
  EXPECT_FALSE(database.hasTable("Artikel"));
  EXPECT_EQ(database.columns("einstellungen"), (std::vector<std::string>{"Einstellung", "Wert"}));
  EXPECT_EQ(errorOf([&] { database.columns("Artikel"); }), number(ErrorNumber::ItemNotFound));
}

TEST(ADatabase, sees_what_another_one_adds_to_the_schema)
{
  Sample sample;
  auto other = Database::open(sample.path());
  EXPECT_FALSE(other.hasTable("Neu"));
  sample.db().execute("CREATE TABLE Neu (a TEXT)");

  EXPECT_TRUE(other.hasTable("Neu"));
  EXPECT_EQ(other.openRecordset("neu").recordCount(), 0U);
}

TEST(ADatabase, may_be_moved)
{
  Sample sample;
  auto database = Database::open(sample.path());
  Database moved = std::move(database);
  EXPECT_TRUE(moved.hasTable("Seite"));
}

} // namespace
} // namespace mrd::dao
