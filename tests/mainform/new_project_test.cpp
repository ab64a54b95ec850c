#include "open_window.h"

#include <gmock/gmock.h>

namespace mrd::mainform {
namespace {

struct NewProjectTest : testing::Test, OpenWindow {};

TEST_F(NewProjectTest, is_a_byte_copy_of_the_template_and_opened)
{
  ui.answerOpenDialog(directory.file("neu.mdb"));
  const auto empty = directory.read("mrdleer.mdb");

  EXPECT_TRUE(window.NewProject_Click());

  EXPECT_EQ(window.DbName(), directory.file("neu.mdb"));
  EXPECT_EQ(iniValue("LastFile", "File1"), directory.file("neu.mdb"));
  auto pages = window.db().openRecordset("Seite");
  EXPECT_EQ(pages.recordCount(), 1u);
  EXPECT_EQ(pages.value("id").text(), "00");
  EXPECT_EQ(directory.read("mrdleer.mdb"), empty);
}

TEST_F(NewProjectTest, is_copied_byte_for_byte)
{
  EXPECT_TRUE(window.createProject(directory.file("neu.mdb")));

  EXPECT_EQ(directory.read("neu.mdb"), directory.read("mrdleer.mdb"));
}

TEST_F(NewProjectTest, is_named_in_an_open_dialog_that_proposes_a_name)
{
  ui.answerOpenDialog(std::nullopt);

  EXPECT_FALSE(window.NewProject_Click());

  ASSERT_EQ(ui.fileDialogs.size(), 1u);
  EXPECT_EQ(ui.fileDialogs[0].title, "Datenbank anlegen");
  EXPECT_EQ(ui.fileDialogs[0].filter, "Mirandel-Datenbanken|*.mdb");
  EXPECT_EQ(ui.fileDialogs[0].directory, directory.path());
  EXPECT_EQ(ui.fileDialogs[0].fileName, "mrdneu.mdb");
}

TEST_F(NewProjectTest, is_not_made_without_a_file_name)
{
  ui.answerOpenDialog("");

  EXPECT_FALSE(window.NewProject_Click());

  EXPECT_TRUE(ui.messages.empty());
  EXPECT_FALSE(window.isOpen());
}

TEST_F(NewProjectTest, overwrites_no_file)
{
  directory.write("alt.mdb", "meine Bilder");
  ui.answerOpenDialog(directory.file("alt.mdb"));
  ui.expect(5);

  EXPECT_FALSE(window.NewProject_Click());

  EXPECT_EQ(directory.read("alt.mdb"), "meine Bilder");
  EXPECT_FALSE(window.isOpen());
}

TEST_F(NewProjectTest, needs_the_template)
{
  std::filesystem::remove(directory.native() / "mrdleer.mdb");
  ui.answerOpenDialog(directory.file("neu.mdb"));
  ui.expect(6);

  EXPECT_FALSE(window.NewProject_Click());

  EXPECT_FALSE(std::filesystem::exists(directory.native() / "neu.mdb"));
}

TEST_F(NewProjectTest, tells_of_the_existing_file_before_the_missing_template)
{
  std::filesystem::remove(directory.native() / "mrdleer.mdb");
  directory.write("alt.mdb", "meine Bilder");
  ui.answerOpenDialog(directory.file("alt.mdb"));
  ui.expect(5);

  window.NewProject_Click();

  EXPECT_EQ(ui.messages.size(), 1u);
}

TEST_F(NewProjectTest, in_a_directory_that_does_not_exist_is_refused)
{
  EXPECT_THROW(window.createProject(directory.file("fehlt\\neu.mdb")), base::Error);

  EXPECT_FALSE(std::filesystem::exists(directory.native() / "fehlt"));
}

TEST_F(NewProjectTest, takes_the_place_of_the_project_that_was_open)
{
  support::TemporaryProject old{{"00", "Start"}, {"01", "Haus"}};
  open(old.file());
  ui.answerOpenDialog(directory.file("neu.mdb"));

  EXPECT_TRUE(window.NewProject_Click());

  EXPECT_EQ(window.db().openRecordset("Seite").recordCount(), 1u);
  EXPECT_EQ(old.ids().size(), 2u);
}

} // namespace
} // namespace mrd::mainform
