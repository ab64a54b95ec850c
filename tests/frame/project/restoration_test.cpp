#include "frame/project/restoration.h"

#include "frame/project/kept_project.h"

#include <gmock/gmock.h>

namespace mrd::project {
namespace {

using base::ErrorNumber;
using testing::ElementsAre;

struct FixedClock : base::Clock {
  base::DateTime now() const override { return {2003, 4, 18, 9, 5, 6}; }
};

/// A project of two pages whose backup is of the time when it had one page more.
struct RestorationTest : testing::Test, KeptProject {
  RestorationTest()
  {
    project.addPage({"02", "Garten"});
    makeBackup(backups, kName);
    project.db().execute("DELETE * FROM Seite WHERE id = '02'");
  }

  std::string restores(const std::string& name = kName) const { return restore(backups, *backups.find(name), FixedClock()); }
  ErrorNumber refusal() const
  {
    try {
      restores();
    } catch (const base::Error& error) {
      return error.kind();
    }
    ADD_FAILURE() << "nothing was refused";
    return ErrorNumber::EngineError;
  }
  /// What lies beside the project.
  std::vector<std::string> beside() const { return files::fileNames(project.directory().path()); }

  static constexpr const char* kName = "2003-04-17";
  const std::string file = project.file();
};

TEST_F(RestorationTest, puts_the_backup_in_the_projects_place)
{
  restores();

  EXPECT_EQ(files::readFile(file), files::readFile(backups.pathOf(kName)));
  EXPECT_EQ(pagesOf(file), 3U);
  EXPECT_THAT(beside(), ElementsAre("projekt.mdb"));
}

TEST_F(RestorationTest, keeps_the_state_that_was_there_so_that_it_can_be_undone)
{
  const auto kept = restores();

  EXPECT_EQ(kept, "2003-04-18-090506");
  EXPECT_THAT(names(), ElementsAre("2003-04-18-090506", kName));
  EXPECT_FALSE(backups.find(kept)->isOfDay);
  restores(kept);
  EXPECT_EQ(pagesOf(file), 2U);
}

TEST_F(RestorationTest, is_refused_while_another_program_has_the_project_open)
{
  const auto mark = backups.markOpen();
  ASSERT_TRUE(mark);

  EXPECT_EQ(refusal(), ErrorNumber::DatabaseLocked);

  EXPECT_EQ(pagesOf(file), 2U);
  EXPECT_THAT(names(), ElementsAre(kName));
}

TEST_F(RestorationTest, is_refused_while_another_program_writes)
{
  const dao::Transaction transaction(project.db());
  project.db().execute("DELETE * FROM Seite");

  EXPECT_EQ(refusal(), ErrorNumber::DatabaseLocked);

  EXPECT_THAT(names(), ElementsAre(kName));
}

TEST_F(RestorationTest, of_a_damaged_backup_is_refused)
{
  damage(backups.pathOf(kName));

  EXPECT_EQ(refusal(), ErrorNumber::NotADatabase);

  EXPECT_EQ(pagesOf(file), 2U);
  EXPECT_THAT(beside(), ElementsAre("projekt.mdb"));
}

TEST_F(RestorationTest, of_a_backup_that_is_no_project_is_refused)
{
  put("projekt-2003-04-17.mdb", "Kein Projekt");

  EXPECT_EQ(refusal(), ErrorNumber::NotADatabase);
  EXPECT_EQ(pagesOf(file), 2U);
}

TEST_F(RestorationTest, keeps_a_damaged_project_byte_by_byte)
{
  damage(file);
  const auto damaged = files::readFile(file);

  const auto kept = restores();

  EXPECT_EQ(pagesOf(file), 3U);
  EXPECT_EQ(files::readFile(backups.pathOf(kept)), damaged);
}

TEST_F(RestorationTest, takes_a_file_that_is_no_project_any_more_out_of_the_way_with_its_journal)
{
  project.directory().write("projekt.mdb", "Das war einmal ein Projekt.");
  project.directory().write("projekt.mdb-journal", "Ein Journal von damals");

  const auto kept = restores();

  EXPECT_EQ(pagesOf(file), 3U);
  EXPECT_THAT(beside(), ElementsAre("projekt.mdb"));
  EXPECT_EQ(files::readFile(backups.pathOf(kept)), "Das war einmal ein Projekt.");
  EXPECT_EQ(files::readFile(backups.pathOf(kept) + "-journal"), "Ein Journal von damals");
}

TEST_F(RestorationTest, brings_a_project_back_whose_file_is_gone)
{
  files::removeFile(file);
  project.directory().write("projekt.mdb-journal", "Ein Journal von damals");

  EXPECT_EQ(restores(), "");

  EXPECT_EQ(pagesOf(file), 3U);
  EXPECT_THAT(beside(), ElementsAre("projekt.mdb"));
  EXPECT_THAT(names(), ElementsAre(kName));
}

TEST_F(RestorationTest, leaves_the_project_open_to_those_to_whom_it_was)
{
  using std::filesystem::perms;
  const auto access = perms::owner_read | perms::owner_write | perms::group_read;
  std::filesystem::permissions(files::nativePath(file), access);

  restores();

  EXPECT_EQ(std::filesystem::status(files::nativePath(file)).permissions(), access);
}

} // namespace
} // namespace mrd::project
