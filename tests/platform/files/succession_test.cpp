#include "base/errors.h"
#include "platform/files/files.h"
#include "platform/files/path.h"
#include "platform/files/succession.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

namespace mrd::files {
namespace {

namespace fs = std::filesystem;

struct SuccessionTest : testing::Test {
  SuccessionTest()
  {
    auto pattern = (fs::temp_directory_path() / "mirandel-succession-XXXXXX").string();
    directory = mkdtemp(pattern.data());
  }
  ~SuccessionTest() override { fs::remove_all(directory); }

  std::string put(const std::string& name, const std::string& content) const
  {
    std::ofstream(directory / name) << content;
    return path(name);
  }
  std::string path(const std::string& name) const { return systemPath(directory / name); }
  std::string content(const std::string& name) const { return readFile(path(name)); }

  fs::path directory;
};

TEST_F(SuccessionTest, a_lock_keeps_others_away_as_long_as_it_lives)
{
  const auto file = put("haus", "alt");
  {
    const FileLock lock(file);
    EXPECT_THROW(FileLock second(file), base::Error);
  }
  EXPECT_NO_THROW(FileLock(file).isStillNamed());
}

TEST_F(SuccessionTest, a_shared_lock_lets_others_share_and_keeps_away_who_wants_it_alone)
{
  const auto file = put("haus", "alt");
  const FileLock lock(file, FileLock::Kind::Shared);

  EXPECT_NO_THROW(FileLock(file, FileLock::Kind::Shared));
  EXPECT_THROW(FileLock second(file), base::Error);
}

TEST_F(SuccessionTest, a_directory_can_be_locked)
{
  const FileLock lock(systemPath(directory));

  EXPECT_THROW(FileLock(systemPath(directory), FileLock::Kind::Shared), base::Error);
}

TEST_F(SuccessionTest, a_file_is_open_to_those_to_whom_another_one_is)
{
  const auto model = put("haus", "alt"), file = put("kopie", "neu");
  fs::permissions(directory / "haus", fs::perms::owner_read | fs::perms::owner_write);

  giveAccessOf(model, file);

  EXPECT_EQ(fs::status(directory / "kopie").permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(SuccessionTest, a_lock_needs_a_file) { EXPECT_THROW(FileLock lock(path("fehlt")), base::Error); }

TEST_F(SuccessionTest, a_lock_knows_when_another_file_took_the_place)
{
  const auto file = put("haus", "alt");
  const FileLock lock(file);
  EXPECT_TRUE(lock.isStillNamed());

  takePlaceOf(file, put("neu", "neu"));

  EXPECT_FALSE(lock.isStillNamed());
}

TEST_F(SuccessionTest, the_finished_file_takes_the_place_with_the_mode_of_the_old_one)
{
  const auto file = put("haus", "alt");
  fs::permissions(directory / "haus", fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);

  takePlaceOf(file, put("neu", "neu"));

  EXPECT_EQ(content("haus"), "neu");
  EXPECT_FALSE(fs::exists(directory / "neu"));
  EXPECT_EQ(fs::status(directory / "haus").permissions(), fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

TEST_F(SuccessionTest, what_is_kept_has_two_names)
{
  const auto file = put("haus.mdb", "alt");

  const auto kept = keepAs(file, path("haus"), ".jet.mdb");

  EXPECT_EQ(kept, path("haus.jet.mdb"));
  EXPECT_TRUE(fs::equivalent(directory / "haus.mdb", directory / "haus.jet.mdb"));
}

TEST_F(SuccessionTest, what_is_kept_gets_a_number_where_the_name_is_taken)
{
  const auto file = put("haus.mdb", "alt");
  put("haus.jet.mdb", "etwas anderes");
  fs::create_directory(directory / "haus.jet2.mdb");

  EXPECT_EQ(keepAs(file, path("haus"), ".jet.mdb"), path("haus.jet3.mdb"));
  EXPECT_EQ(content("haus.jet.mdb"), "etwas anderes");
  EXPECT_EQ(content("haus.jet3.mdb"), "alt");
}

TEST_F(SuccessionTest, what_is_kept_already_is_not_kept_twice)
{
  const auto file = put("haus.mdb", "alt");
  put("haus.jet.mdb", "alt");

  EXPECT_EQ(keepAs(file, path("haus"), ".jet.mdb"), path("haus.jet.mdb"));
  EXPECT_FALSE(fs::exists(directory / "haus.jet2.mdb"));
}

TEST_F(SuccessionTest, what_a_link_leads_to_is_not_kept_by_the_link)
{
  const auto file = put("haus.mdb", "alt");
  fs::create_symlink("haus.mdb", directory / "haus.jet.mdb");

  const auto kept = keepAs(file, path("haus"), ".jet.mdb");
  takePlaceOf(file, put("neu", "neu"));

  EXPECT_EQ(kept, path("haus.jet2.mdb"));
  EXPECT_EQ(content("haus.jet2.mdb"), "alt");
}

TEST_F(SuccessionTest, a_new_name_is_taken_only_where_there_is_none)
{
  EXPECT_TRUE(takeNewName(put("a", "eins"), path("ziel")));
  EXPECT_FALSE(takeNewName(put("b", "zwei"), path("ziel")));

  EXPECT_EQ(content("ziel"), "eins");
  EXPECT_FALSE(fs::exists(directory / "a"));
  EXPECT_EQ(content("b"), "zwei");
}

TEST_F(SuccessionTest, left_overs_go_whether_there_are_any_or_not)
{
  const auto file = put("rest", "halb");

  removeLeftOver(file);
  removeLeftOver(file);

  EXPECT_FALSE(fs::exists(directory / "rest"));
}

TEST_F(SuccessionTest, a_link_stands_for_its_file)
{
  put("haus", "alt");
  fs::create_symlink(directory / "haus", directory / "link");

  EXPECT_EQ(behindLinks(path("link")), behindLinks(path("haus")));
  EXPECT_EQ(behindLinks(path("fehlt")), path("fehlt"));
}

} // namespace
} // namespace mrd::files
