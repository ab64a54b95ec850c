#include "open_window.h"
#include "platform/files/path.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace mrd::mainform {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct OldProjectTest : testing::Test, OpenWindow {
  OldProjectTest()
  {
    program.jetReading.program = fs::path(MRD_PROGRAM_DIR) / "mrd-jet-reader";
    put("altprojekt-jet4");
    fs::create_directory(directory.native() / "site");
  }

  void put(const std::string& name) const
  {
    fs::copy_file(fs::path(MRD_TEST_DATA) / "jet" / (name + ".mdb"), directory.native() / "haus.mdb",
                  fs::copy_options::overwrite_existing);
    fs::permissions(directory.native() / "haus.mdb", fs::perms::owner_read | fs::perms::owner_write);
  }
  std::string file() const { return directory.file("haus.mdb"); }
  std::string html(std::string_view id)
  {
    return window.db().openRecordset("SELECT * FROM Seite WHERE ID = ?", {id}).value("html").text();
  }
  bool isKept() const { return fs::exists(directory.native() / "haus.jet.mdb"); }
};

TEST_F(OldProjectTest, opens_like_any_other_and_says_where_the_old_file_is)
{
  ui.expect(105, (directory.native() / "haus.jet.mdb").string());
  ui.answerFolderDialog(std::nullopt).answerFolderDialog(std::nullopt);
  ui.expect(111, "file://C:\\Programme\\Site\\exportpfad\\pix/0102_urlaub_1_580.jpg");

  EXPECT_FALSE(open(file()));

  EXPECT_THAT(calls, ElementsAre("opseitentyp_Click", "emptyEditor", "farbenaktualisieren", "ZeigeStruktur", "LoadPage"));
  EXPECT_EQ(window.fields().tbtitel, "Ferienhaus Möwe");
  EXPECT_EQ(window.fields().tbpfadexport, directory.file("exportpfad\\"));
  EXPECT_EQ(iniValue("LastFile", "File1"), file());
  EXPECT_EQ(ui.pointerShape, ui::Pointer::Default);
  EXPECT_TRUE(isKept());
}

TEST_F(OldProjectTest, is_asked_for_its_export_directory_and_pictures_on_this_machine)
{
  directory.write("kopie/0102_urlaub_1_580.jpg", "bild");
  ui.expect(105)
      .answerFolderDialog(directory.file("site"))
      .answerFolderDialog(directory.file("kopie"))
      .expect(111, "0102_urlaub_2");

  open(file());

  EXPECT_EQ(window.fields().tbpfadexport, directory.file("site\\"));
  EXPECT_THAT(html("0102"), HasSubstr("file://" + directory.file("site\\pix/0102_urlaub_1_580.jpg")));
  EXPECT_THAT(html("0102"), HasSubstr("file://C:\\Programme\\Site\\exportpfad\\pix/0102_urlaub_2_580.jpg"));
  EXPECT_EQ(directory.read("site/pix/0102_urlaub_1_580.jpg"), "bild");
}

TEST_F(OldProjectTest, without_pictures_is_asked_for_its_export_directory_alone)
{
  put("altprojekt-gewachsen-jet4");
  ui.expect(105).answerFolderDialog(directory.file("site"));

  open(file());

  EXPECT_EQ(window.fields().tbpfadexport, directory.file("site\\"));
}

TEST_F(OldProjectTest, is_opened_the_second_time_without_a_word)
{
  ui.expect(105).answerFolderDialog(directory.file("site")).answerFolderDialog(std::nullopt).expect(111);
  open(file());
  ui.messages.clear();
  calls.clear();

  open(file());

  EXPECT_THAT(ui.messages, IsEmpty());
  EXPECT_THAT(calls, ElementsAre("opseitentyp_Click", "emptyEditor", "farbenaktualisieren", "ZeigeStruktur", "LoadPage"));
}

TEST_F(OldProjectTest, of_the_first_version_has_the_present_schema_when_the_tree_is_filled)
{
  put("altprojekt-v0");
  ui.expect(105).answerFolderDialog(directory.file("site")).answerFolderDialog(std::nullopt).expect(111);

  open(file());

  EXPECT_EQ(schemaVersion, "5");
  EXPECT_FALSE(window.db().openRecordset("SELECT * FROM Seite WHERE ID = '00'").eof());
}

TEST_F(OldProjectTest, that_is_damaged_is_told_and_leaves_the_open_project_and_the_file)
{
  support::TemporaryProject other{{"00", "Start"}};
  open(other.file());
  calls.clear();
  const auto whole = directory.read("haus.mdb");
  directory.write("haus.mdb", whole.substr(0, 20'000));
  ui.expect(106, "haus.mdb");

  EXPECT_FALSE(open(file()));

  EXPECT_THAT(calls, ElementsAre("opseitentyp_Click"));
  EXPECT_EQ(window.db().openRecordset("Seite").recordCount(), 1u);
  EXPECT_EQ(window.DbName(), other.file());
  EXPECT_EQ(directory.read("haus.mdb").size(), 20'000u);
  EXPECT_FALSE(isKept());
  EXPECT_GT(ui.splashHidden, 0);
}

TEST_F(OldProjectTest, with_damaged_parts_is_told_what_is_missing)
{
  put("altprojekt-v0");
  auto bytes = directory.read("haus.mdb");
  const std::string id{"0\0"
                       "3\0"
                       "0\0"
                       "1\0",
                       8};
  bytes.at(bytes.find(id)) = 'x';
  directory.write("haus.mdb", bytes);
  ui.expect(105).expect(112, "\"x301\" und der Überschrift \"Größere Ausflüge\" fehlt");
  ui.answerFolderDialog(directory.file("site")).answerFolderDialog(std::nullopt).expect(111);

  open(file());

  EXPECT_EQ(window.db().openRecordset("Seite").recordCount(), 7u);
}

TEST_F(OldProjectTest, is_opened_by_commands_without_questions)
{
  ui.expect(105);

  EXPECT_TRUE(window.openProject(file()));

  EXPECT_EQ(window.db().openRecordset("Seite").recordCount(), 41u);
}

TEST_F(OldProjectTest, is_imported_into_a_file_of_its_own)
{
  EXPECT_TRUE(window.importProject(file(), directory.file("neu.mdb")));

  EXPECT_EQ(window.DbName(), directory.file("neu.mdb"));
  EXPECT_FALSE(isKept());
}

} // namespace
} // namespace mrd::mainform
