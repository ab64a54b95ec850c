#include "frame/paths/program_directory.h"
#include "support/temporary.h"

#include <gmock/gmock.h>

#include <chrono>

namespace mrd::paths {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

/// An installation, and the program directory of a user who has none yet.
struct ProgramDirectoryTest : testing::Test {
  ProgramDirectoryTest()
  {
    install("mrdleer.mdb", "leeres Projekt");
    install("language.mdb", "Meldungen");
    install("mrdshop.js", "shop 1");
    install("xml/modern.xml", "<root/>");
    install("hilfe/bilder/start.png", "Bild");
  }

  /// The date is that of the package, which is older than everything on the machine.
  void install(const std::string& name, std::string_view bytes, int daysLater = 0) const
  {
    installation.write(name, bytes);
    const auto date = fs::file_time_type::clock::now() - std::chrono::days(1000 - daysLater);
    fs::last_write_time(installation.native() / name, date);
  }
  void start() const { fillProgramDirectory(installation.native(), own()); }

  fs::path own() const { return home.native() / "share/mirandel"; }
  std::string read(const std::string& name) const { return home.read("share/mirandel/" + name); }
  void write(const std::string& name, std::string_view bytes) const { home.write("share/mirandel/" + name, bytes); }
  bool has(const std::string& name) const { return fs::exists(own() / name); }
  /// What lies in the directory, but for the record.
  std::vector<std::string> names() const
  {
    std::vector<std::string> found;
    for (const auto& entry : fs::recursive_directory_iterator(own()))
      if (entry.is_regular_file() && entry.path().filename() != ".installed")
        found.push_back(entry.path().lexically_relative(own()).generic_string());
    std::ranges::sort(found);
    return found;
  }

  support::TemporaryDirectory installation, home;
};

TEST_F(ProgramDirectoryTest, is_filled_at_the_first_start)
{
  start();

  EXPECT_THAT(names(), ElementsAre("hilfe/bilder/start.png", "language.mdb", "mrdleer.mdb", "mrdshop.js", "xml/modern.xml"));
  EXPECT_EQ(read("xml/modern.xml"), "<root/>");
}

TEST_F(ProgramDirectoryTest, is_left_alone_by_the_next_start)
{
  start();
  const auto before = fs::last_write_time(own() / "mrdshop.js");
  const auto record = fs::last_write_time(own() / ".installed");

  start();

  EXPECT_EQ(fs::last_write_time(own() / "mrdshop.js"), before);
  EXPECT_EQ(fs::last_write_time(own() / ".installed"), record);
}

TEST_F(ProgramDirectoryTest, takes_over_an_update_that_was_packed_before_the_first_start)
{
  start();

  install("mrdshop.js", "shop 2", 1);
  install("xml/galerie.xml", "<root name='Galerie'/>", 1);
  start();

  EXPECT_EQ(read("mrdshop.js"), "shop 2");
  EXPECT_EQ(read("xml/galerie.xml"), "<root name='Galerie'/>");
  EXPECT_FALSE(has("mrdshop.js.neu"));
}

TEST_F(ProgramDirectoryTest, takes_over_an_update_that_is_older)
{
  install("mrdshop.js", "shop 2", 1);
  start();

  install("mrdshop.js", "shop 1", 0);
  start();

  EXPECT_EQ(read("mrdshop.js"), "shop 1");
}

TEST_F(ProgramDirectoryTest, keeps_the_users_own_layouts_and_his_ini_file)
{
  start();
  write("xml/meins.xml", "<root name='Meins'/>");
  write("mirandel.INI", "[Language]\r\nLang=ENG\r\n");

  install("mrdshop.js", "shop 2", 1);
  start();

  EXPECT_EQ(read("xml/meins.xml"), "<root name='Meins'/>");
  EXPECT_EQ(read("mirandel.INI"), "[Language]\r\nLang=ENG\r\n");
}

TEST_F(ProgramDirectoryTest, keeps_what_the_user_changed_and_lays_the_newer_one_beside_it)
{
  start();
  write("mrdshop.js", "shop 1, orders to anna");

  install("mrdshop.js", "shop 2", 1);
  start();

  EXPECT_EQ(read("mrdshop.js"), "shop 1, orders to anna");
  EXPECT_EQ(read("mrdshop.js.neu"), "shop 2");
}

TEST_F(ProgramDirectoryTest, keeps_what_the_user_changed_through_a_second_update)
{
  start();
  write("mrdshop.js", "shop 1, orders to anna");
  install("mrdshop.js", "shop 2", 1);
  start();

  install("mrdshop.js", "shop 3", 2);
  start();

  EXPECT_EQ(read("mrdshop.js"), "shop 1, orders to anna");
  EXPECT_EQ(read("mrdshop.js.neu"), "shop 3");
}

TEST_F(ProgramDirectoryTest, follows_the_installation_again_once_the_user_has_taken_the_newer_file)
{
  start();
  write("mrdshop.js", "shop 1, orders to anna");
  install("mrdshop.js", "shop 2", 1);
  start();
  fs::rename(own() / "mrdshop.js.neu", own() / "mrdshop.js");

  install("mrdshop.js", "shop 3", 2);
  start();

  EXPECT_EQ(read("mrdshop.js"), "shop 3");
  EXPECT_FALSE(has("mrdshop.js.neu"));
}

TEST_F(ProgramDirectoryTest, does_not_nag_where_the_package_came_anew_with_the_same_files)
{
  start();
  write("mrdshop.js", "shop 1, orders to anna");

  install("mrdshop.js", "shop 1", 1);
  start();

  EXPECT_EQ(read("mrdshop.js"), "shop 1, orders to anna");
  EXPECT_FALSE(has("mrdshop.js.neu"));
}

TEST_F(ProgramDirectoryTest, has_the_language_database_of_the_installation_in_any_case)
{
  start();
  write("language.mdb", "Meldungen, alt");

  install("language.mdb", "Meldungen 2", 1);
  start();

  EXPECT_EQ(read("language.mdb"), "Meldungen 2");
  EXPECT_FALSE(has("language.mdb.neu"));
}

TEST_F(ProgramDirectoryTest, gets_back_what_is_missing)
{
  start();
  fs::remove(own() / "mrdleer.mdb");
  fs::remove_all(own() / "xml");

  start();

  EXPECT_EQ(read("mrdleer.mdb"), "leeres Projekt");
  EXPECT_EQ(read("xml/modern.xml"), "<root/>");
}

TEST_F(ProgramDirectoryTest, loses_what_an_update_dropped_unless_the_user_changed_it)
{
  install("alt.gif", "alt");
  install("alt.css", "alt");
  start();
  write("alt.css", "meins");

  fs::remove(installation.native() / "alt.gif");
  fs::remove(installation.native() / "alt.css");
  start();

  EXPECT_FALSE(has("alt.gif"));
  EXPECT_EQ(read("alt.css"), "meins");
}

TEST_F(ProgramDirectoryTest, without_a_record_takes_what_differs_for_the_users)
{
  write("mrdshop.js", "shop 0");
  write("xml/modern.xml", "<root/>");

  start();

  EXPECT_EQ(read("mrdshop.js"), "shop 0");
  EXPECT_EQ(read("mrdshop.js.neu"), "shop 1");
  EXPECT_FALSE(has("xml/modern.xml.neu"));
}

TEST_F(ProgramDirectoryTest, with_a_damaged_record_is_compared_anew)
{
  start();
  write(".installed", "17 nonsense");
  write("mrdshop.js", "shop 1, orders to anna");

  start();

  EXPECT_EQ(read("mrdshop.js"), "shop 1, orders to anna");
  EXPECT_EQ(read("mrdleer.mdb"), "leeres Projekt");
}

TEST_F(ProgramDirectoryTest, one_file_that_cannot_be_brought_keeps_none_of_the_others_away)
{
  fs::create_directories(own() / "mrdshop.js");

  start();

  EXPECT_EQ(read("mrdleer.mdb"), "leeres Projekt");
  fs::remove(own() / "mrdshop.js");
  start();
  EXPECT_EQ(read("mrdshop.js"), "shop 1");
}

TEST_F(ProgramDirectoryTest, stays_as_it_is_where_nothing_is_installed)
{
  start();

  fillProgramDirectory(installation.native() / "nirgends", own());

  EXPECT_EQ(names().size(), 5u);
}

TEST_F(ProgramDirectoryTest, that_cannot_be_made_stops_nobody)
{
  home.write("share", "a file where a directory should be");

  start();

  EXPECT_FALSE(fs::exists(own()));
}

} // namespace
} // namespace mrd::paths
