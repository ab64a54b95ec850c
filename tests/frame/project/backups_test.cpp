#include "frame/project/backups.h"

#include "frame/project/kept_project.h"

#include <gmock/gmock.h>

#include <unistd.h>

namespace mrd::project {
namespace {

using base::ErrorNumber;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr base::DateTime kToday{2003, 4, 17, 9, 5, 6};

struct BackupsTest : testing::Test, KeptProject {
  /// The backup of the day; what kept it from being made.
  std::optional<base::Error> makeDaily(const base::DateTime& day = kToday) const
  {
    DailyBackup daily(backups, day);
    daily.wait();
    EXPECT_TRUE(daily.isDone());
    return daily.failure();
  }
};

TEST_F(BackupsTest, of_a_new_project_are_none)
{
  EXPECT_THAT(backups.list(), IsEmpty());
  EXPECT_EQ(backups.markOpen(), nullptr);
}

TEST_F(BackupsTest, of_a_day_hold_what_the_project_holds)
{
  EXPECT_FALSE(makeDaily());

  EXPECT_THAT(files(), ElementsAre("projekt-2003-04-17.mdb"));
  const auto made = backups.find("2003-04-17");
  ASSERT_TRUE(made);
  EXPECT_EQ(Backups::pagesOf(*made), 2U);
  EXPECT_EQ(made->size, files::fileSize(project.file()));
  EXPECT_TRUE(made->isOfDay);
  EXPECT_EQ(made->moment, (base::DateTime{2003, 4, 17}));
}

TEST_F(BackupsTest, are_known_as_made_however_soon_that_is)
{
  for (int day = 1; day <= 28; ++day)
    EXPECT_FALSE(makeDaily({2003, 4, day}));
}

TEST_F(BackupsTest, are_made_once_a_day)
{
  makeDaily();
  project.addPage({"02", "Garten"});

  EXPECT_FALSE(makeDaily());
  EXPECT_EQ(Backups::pagesOf(*backups.find("2003-04-17")), 2U);

  makeDaily({2003, 4, 18});
  EXPECT_THAT(names(), ElementsAre("2003-04-18", "2003-04-17"));
  EXPECT_EQ(Backups::pagesOf(*backups.find("2003-04-18")), 3U);
}

TEST_F(BackupsTest, are_kept_for_the_last_ten_days)
{
  for (int day = 1; day <= 12; ++day)
    makeDaily({2003, 5, day});

  EXPECT_EQ(names().size(), kKeptBackups);
  EXPECT_EQ(names().front(), "2003-05-12");
  EXPECT_EQ(names().back(), "2003-05-03");
}

TEST_F(BackupsTest, of_a_day_do_not_go_for_those_of_a_restoration)
{
  makeDaily();
  for (int second = 0; second < 12; ++second)
    makeBackup(backups, backups.freeName({2003, 4, 18, 10, 0, second}));

  EXPECT_EQ(names().size(), kKeptBackups + 1);
  EXPECT_EQ(names().back(), "2003-04-17");
  EXPECT_EQ(names().at(kKeptBackups - 1), "2003-04-18-100002");
}

TEST_F(BackupsTest, stay_when_they_have_just_been_made_though_a_wrong_clock_left_later_ones)
{
  for (int day = 1; day <= 10; ++day)
    makeDaily({2099, 1, day});

  makeDaily();

  EXPECT_EQ(names().size(), kKeptBackups);
  EXPECT_EQ(names().back(), "2003-04-17");
}

TEST_F(BackupsTest, of_a_damaged_project_are_not_made_and_push_none_out)
{
  for (int day = 1; day <= 10; ++day)
    makeDaily({2003, 3, day});
  project.db().execute("DELETE * FROM Dateien");
  damage(project.file());

  const auto failure = makeDaily();

  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->kind(), ErrorNumber::NotADatabase);
  EXPECT_EQ(names().size(), kKeptBackups);
  EXPECT_EQ(files().size(), kKeptBackups) << "half a copy was left";
}

TEST_F(BackupsTest, that_cannot_be_made_are_told)
{
  project.directory().write("projekt.mdb.sicherung", "Hier ist kein Verzeichnis.");

  const auto failure = makeDaily();

  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->kind(), ErrorNumber::PathFileAccess);
  EXPECT_EQ(project.directory().read("projekt.mdb.sicherung"), "Hier ist kein Verzeichnis.");
}

TEST_F(BackupsTest, leave_files_alone_whose_names_are_none_of_theirs)
{
  const std::vector<std::string> foreign{"anders-2003-01-01.mdb",
                                         "projekt-2003-01-01.txt",
                                         "projekt-2003-13-01.mdb",
                                         "projekt-2003-01-01-alt.mdb",
                                         "projekt-gut.mdb",
                                         "projekt.mdb",
                                         "projekt-2003-01-01.mdb.x.bak",
                                         "rechnung.tmp"};
  for (const auto& name : foreign)
    put(name, "meins");
  for (int day = 1; day <= 12; ++day)
    makeDaily({2003, 5, day});

  for (const auto& name : foreign)
    EXPECT_EQ(project.directory().read("projekt.mdb.sicherung/" + name), "meins");
  EXPECT_EQ(names().size(), kKeptBackups);
}

TEST_F(BackupsTest, that_a_killed_program_left_half_done_go_with_the_next)
{
  put("projekt-2003-04-16.mdb.4711.tmp", "halb");
  put("projekt-2003-04-16.mdb.4711.tmp-journal", "halb");
  put("projekt-2003-04-15.mdb.4712.tmp", "noch dabei");
  const files::FileLock atIt(backups.directory() + "\\projekt-2003-04-15.mdb.4712.tmp");

  makeDaily();

  EXPECT_THAT(files(), ElementsAre("projekt-2003-04-15.mdb.4712.tmp", "projekt-2003-04-17.mdb"));
}

TEST_F(BackupsTest, are_open_to_those_to_whom_the_project_is)
{
  using std::filesystem::perms;
  const auto access = perms::owner_read | perms::owner_write;
  std::filesystem::permissions(files::nativePath(project.file()), access);

  makeDaily();

  EXPECT_EQ(std::filesystem::status(files::nativePath(backups.pathOf("2003-04-17"))).permissions(), access);
}

TEST_F(BackupsTest, of_a_link_lie_beside_the_project_itself)
{
  const support::TemporaryDirectory elsewhere;
  std::filesystem::create_symlink(files::nativePath(project.file()), elsewhere.native() / "link.mdb");

  EXPECT_EQ(Backups(elsewhere.file("link.mdb")).directory(), backups.directory());
}

TEST_F(BackupsTest, hold_the_state_of_one_moment_while_pages_are_written)
{
  {
    dao::Transaction transaction(project.db());
    for (int page = 10; page < 99; ++page)
      project.addPage({std::to_string(page), "Seite", std::string(60000, 'x')});
    transaction.commit();
  }
  DailyBackup daily(backups, kToday);
  // Each time one page goes and another comes: a copy of two moments would have one too many, or one too few.
  for (int round = 0; round < 20; ++round) {
    dao::Transaction transaction(project.db());
    project.db().execute("DELETE * FROM Seite WHERE id = ?", {std::to_string(10 + round)});
    project.addPage({"50" + std::to_string(10 + round), "neu", std::string(60000, 'y')});
    transaction.commit();
  }
  daily.wait();

  EXPECT_FALSE(daily.failure());
  const auto made = backups.find("2003-04-17");
  ASSERT_TRUE(made);
  EXPECT_TRUE(dao::isSound(made->path));
  EXPECT_EQ(Backups::pagesOf(*made), 91U);
}

TEST_F(BackupsTest, take_a_number_where_the_moment_has_one_already)
{
  makeBackup(backups, backups.freeName(kToday));

  EXPECT_EQ(backups.freeName(kToday), "2003-04-17-090506-02");
  makeBackup(backups, backups.freeName(kToday));
  EXPECT_THAT(names(), ElementsAre("2003-04-17-090506-02", "2003-04-17-090506"));
}

TEST_F(BackupsTest, that_cannot_be_read_are_listed_without_a_number_of_pages)
{
  put("projekt-2003-04-17.mdb", "Kein Projekt");

  const auto all = backups.list();

  ASSERT_EQ(all.size(), 1U);
  EXPECT_EQ(Backups::pagesOf(all.front()), std::nullopt);
  EXPECT_EQ(all.front().size, 12U);
}

} // namespace
} // namespace mrd::project
