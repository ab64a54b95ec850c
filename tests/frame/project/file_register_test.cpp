#include "frame/project/file_register.h"
#include "support/test_program.h"

#include <gmock/gmock.h>

#include <chrono>

namespace mrd::project {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

struct FileRegisterTest : testing::Test {
  support::TestProgram program;
  support::TemporaryProject project{{"00", "Start"}};
  support::TemporaryDirectory site;

  struct Row {
    std::string pfad, dateiname;
    dao::Value erweiterung;
    std::int64_t dateityp;
    bool übertragen;
    std::string dateidatum;
  };

  std::vector<Row> rows()
  {
    std::vector<Row> out;
    for (auto row = project.db().openRecordset("SELECT * FROM Dateien"); !row.eof(); row.moveNext())
      out.push_back({row.value("pfad").text(), row.value("dateiname").text(), row.value("erweiterung"),
                     row.value("dateityp-id").integer(), row.value("übertragen").yes(), row.value("dateidatum").text()});
    return out;
  }

  FileRegister reg() { return {project.db(), program.language}; }
  std::string file(const std::string& name)
  {
    site.write(name, "x");
    return site.file(name);
  }
};

TEST_F(FileRegisterTest, enters_a_file_in_lower_case_with_its_date_as_due)
{
  const auto path = file("Bild_Ü.JPG");

  reg().dateiindatenbank(path, Dateityp::Picture);

  ASSERT_THAT(rows(), SizeIs(1));
  const auto row = rows().front();
  EXPECT_EQ(row.dateiname, "bild_ü");
  EXPECT_EQ(row.erweiterung.text(), "jpg");
  EXPECT_EQ(row.dateityp, 2);
  EXPECT_TRUE(row.übertragen);
  EXPECT_TRUE(row.pfad.ends_with('\\'));
  EXPECT_THAT(row.dateidatum, testing::MatchesRegex("[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}"));
}

TEST_F(FileRegisterTest, leaves_a_row_of_another_case_as_it_is)
{
  const auto path = file("seite.htm");
  auto files = reg();
  files.dateiindatenbank(path, Dateityp::Page);
  project.db().execute("UPDATE Dateien SET übertragen = FALSE");

  files.dateiindatenbank(site.file("SEITE.HTM"), Dateityp::Picture);
  reg().dateiindatenbank(path, Dateityp::Picture);

  ASSERT_THAT(rows(), SizeIs(1));
  EXPECT_EQ(rows().front().dateityp, 1);
  EXPECT_FALSE(rows().front().übertragen);
}

TEST_F(FileRegisterTest, enters_a_file_without_extension_once_and_leaves_the_extension_unset)
{
  const auto path = file("liesmich");
  auto files = reg();

  files.dateiindatenbank(path, Dateityp::Page);
  files.dateiindatenbank(path, Dateityp::Page);
  reg().dateiindatenbank(path, Dateityp::Page);

  ASSERT_THAT(rows(), SizeIs(1));
  EXPECT_TRUE(rows().front().erweiterung.isNull());
}

TEST_F(FileRegisterTest, tells_of_a_file_that_is_not_there_and_enters_nothing)
{
  program.ui.expect(0, "Die Datei " + site.file("weg.jpg") + " wurde nicht gefunden!");

  reg().dateiindatenbank(site.file("weg.jpg"), Dateityp::Picture);

  EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(FileRegisterTest, takes_an_apostrophe_in_names_as_it_is)
{
  site.write("Oma's Garten/oma's bild.jpg", "x");

  reg().dateiindatenbank(site.file("Oma's Garten\\oma's bild.jpg"), Dateityp::Picture);

  ASSERT_THAT(rows(), SizeIs(1));
  EXPECT_EQ(rows().front().dateiname, "oma's bild");
}

TEST_F(FileRegisterTest, does_not_take_a_file_of_the_servers_listing_for_a_local_one)
{
  project.db().execute("INSERT INTO Dateien (dateiname, erweiterung, [dateityp-id]) VALUES ('seite', 'htm', 4)");

  reg().dateiindatenbank(file("seite.htm"), Dateityp::Page);

  EXPECT_THAT(rows(), SizeIs(2));
}

TEST_F(FileRegisterTest, forgets_pages_and_pictures_of_the_last_run_and_keeps_the_servers_rows)
{
  const auto page = file("seite.htm");
  auto files = reg();
  files.dateiindatenbank(page, Dateityp::Page);
  files.dateiindatenbank(file("bild.jpg"), Dateityp::Picture);
  project.db().execute("INSERT INTO Dateien (dateiname, erweiterung, [dateityp-id]) VALUES ('seite', 'htm', 4)");

  files.clearRunFiles();
  EXPECT_THAT(rows(), SizeIs(1));

  files.dateiindatenbank(page, Dateityp::Page);
  EXPECT_THAT(rows(), SizeIs(2));
}

TEST_F(FileRegisterTest, reports_a_failure_with_its_name)
{
  auto files = reg();
  project.db().execute("DROP TABLE Dateien");
  program.ui.expect(1, ") in Modul dateiindatenbank");

  files.dateiindatenbank(file("bild.jpg"), Dateityp::Picture);
}

TEST_F(FileRegisterTest, enters_ten_thousand_files_in_the_transaction_of_a_run)
{
  const auto page = file("seite.htm");
  for (int number = 0; number < 10000; ++number)
    std::filesystem::create_hard_link(site.native() / "seite.htm", site.native() / (std::to_string(number) + ".htm"));
  const auto start = std::chrono::steady_clock::now();

  dao::Transaction transaction(project.db());
  auto files = reg();
  for (int number = 0; number < 10000; ++number)
    files.dateiindatenbank(site.file(std::to_string(number) + ".htm"), Dateityp::Page);
  transaction.commit();

  EXPECT_THAT(rows(), SizeIs(10000));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

} // namespace
} // namespace mrd::project
