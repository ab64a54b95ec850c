#include "open_window.h"
#include "platform/files/path.h"

#include <gmock/gmock.h>

namespace mrd::mainform {
namespace {

using base::Error;
using base::ErrorNumber;
using testing::ElementsAre;

struct OpenProjectTest : testing::Test, OpenWindow {
  OpenProjectTest() { project.setSetting("Titel", "Am Meer"); }

  support::TemporaryProject project{{"00", "Start"}, {"01", "Haus"}};
};

TEST_F(OpenProjectTest, opens_the_file_that_is_given_without_a_question)
{
  EXPECT_FALSE(open(project.file()));

  EXPECT_TRUE(window.isOpen());
  EXPECT_EQ(window.DbName(), project.file());
  EXPECT_EQ(window.fields().tbtitel, "Am Meer");
  EXPECT_EQ(window.db().openRecordset("Seite").recordCount(), 2u);
  EXPECT_THAT(calls, ElementsAre("opseitentyp_Click", "emptyEditor", "farbenaktualisieren", "ZeigeStruktur", "LoadPage"));
  EXPECT_EQ(iniValue("LastFile", "File1"), project.file());
}

TEST_F(OpenProjectTest, brings_the_schema_up_to_date_before_the_tree_is_filled)
{
  project.db().execute("DROP TABLE Artikel");
  project.setSetting("dbVersion", "4");

  open(project.file());

  EXPECT_EQ(schemaVersion, "5");
  EXPECT_TRUE(window.db().hasTable("Artikel"));
}

TEST_F(OpenProjectTest, asks_for_a_project_where_no_ini_file_names_one)
{
  ui.answerOpenDialog(project.file());

  open(iniValue("LastFile", "File1"));

  ASSERT_EQ(ui.fileDialogs.size(), 1u);
  EXPECT_EQ(ui.fileDialogs[0].title, "Datenbank öffnen");
  EXPECT_EQ(ui.fileDialogs[0].filter, "Mirandel-Datenbanken|*.mdb");
  EXPECT_EQ(ui.fileDialogs[0].directory, directory.path());
  EXPECT_EQ(ui.fileDialogs[0].fileName, "");
  EXPECT_GT(ui.splashHidden, 0);
  EXPECT_EQ(window.DbName(), project.file());
}

TEST_F(OpenProjectTest, asks_for_a_project_where_the_last_one_is_gone)
{
  ui.answerOpenDialog(project.file());

  open(directory.file("verschwunden.mdb"));

  EXPECT_EQ(window.DbName(), project.file());
  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(OpenProjectTest, asks_again_after_a_cancel_and_opens_what_is_chosen_then)
{
  ui.answerOpenDialog(std::nullopt).answerOpenDialog(project.file());
  ui.expect(14, {}, ui::Button::Retry);

  open("nio");

  EXPECT_TRUE(window.isOpen());
  EXPECT_EQ(ui.messages[0].style & 7, ui::box::kRetryCancel);
}

TEST_F(OpenProjectTest, leaves_the_window_without_a_project_after_a_second_refusal)
{
  ui.answerOpenDialog(std::nullopt).answerOpenDialog(std::nullopt);
  ui.expect(14, {}, ui::Button::Retry).expect(14, {}, ui::Button::Cancel).expect(15);

  EXPECT_FALSE(open("nio"));

  EXPECT_FALSE(window.isOpen());
  EXPECT_EQ(window.DbName(), "");
  EXPECT_EQ(iniValue("LastFile", "File1"), "nio");
  EXPECT_THAT(calls, ElementsAre("opseitentyp_Click"));
}

TEST_F(OpenProjectTest, tells_denied_access_to_the_user_and_to_its_caller)
{
  failure = Error(ErrorNumber::AccessDenied, "Zugriff verweigert");
  ui.expect(16);

  EXPECT_TRUE(open(project.file()));

  EXPECT_GT(ui.splashHidden, 0);
}

TEST_F(OpenProjectTest, tells_any_other_failure_in_the_standard_form)
{
  failure = Error(ErrorNumber::EngineError, "Datenbankfehler");
  ui.expect(1, "Datenbankfehler (3146) in Modul DialogOpenChangeNewDB");

  EXPECT_FALSE(open(project.file()));

  EXPECT_THAT(calls, ElementsAre("opseitentyp_Click", "emptyEditor", "farbenaktualisieren", "ZeigeStruktur"));
}

TEST_F(OpenProjectTest, remembers_a_file_before_it_turns_out_to_be_no_project)
{
  directory.write("brief.mdb", "Liebe Oma, das hier ist keine Datenbank, sondern ein Brief.");
  ui.expect(1, " in Modul DialogOpenChangeNewDB");

  open(directory.file("brief.mdb"));

  EXPECT_FALSE(window.isOpen());
  EXPECT_EQ(iniValue("LastFile", "File1"), directory.file("brief.mdb"));
}

TEST_F(OpenProjectTest, keeps_the_open_project_where_the_next_one_cannot_be_opened)
{
  open(project.file());
  directory.write("brief.mdb", "Liebe Oma, das hier ist keine Datenbank, sondern ein Brief.");
  ui.answerOpenDialog(directory.file("brief.mdb"));
  ui.expect(1, " in Modul DialogOpenChangeNewDB");

  window.OpenProject_Click();

  ASSERT_TRUE(window.isOpen());
  EXPECT_EQ(window.db().openRecordset("Seite").recordCount(), 2u);
  EXPECT_EQ(window.DbName(), project.file());
}

TEST_F(OpenProjectTest, keeps_the_open_project_where_the_choice_of_another_is_cancelled)
{
  open(project.file());
  ui.answerOpenDialog(std::nullopt);
  ui.expect(14, {}, ui::Button::Cancel).expect(15);

  window.OpenProject_Click();

  EXPECT_TRUE(window.isOpen());
  EXPECT_EQ(window.DbName(), project.file());
}

TEST_F(OpenProjectTest, shows_no_dialog_for_an_empty_path_and_ends_the_program_with_a_message)
{
  ui.expect(24);

  open("");

  EXPECT_TRUE(ui.fileDialogs.empty());
  EXPECT_GT(ui.splashHidden, 0);
  EXPECT_FALSE(window.isOpen());
  EXPECT_THAT(calls, ElementsAre("opseitentyp_Click", "Unload"));
}

TEST_F(OpenProjectTest, by_command_asks_and_opens)
{
  ui.answerOpenDialog(project.file());

  window.OpenProject_Click();

  EXPECT_EQ(ui.fileDialogs[0].title, "Datenbank öffnen");
  EXPECT_EQ(window.DbName(), project.file());
}

TEST_F(OpenProjectTest, leaves_fields_as_they_were_whose_keys_the_next_project_lacks)
{
  project.setSetting("Schriftart", "Tahoma");
  project.setSetting("MetaAuthor", "Anna");
  open(project.file());
  support::TemporaryProject next{{"00", "Start"}};
  next.db().execute("DELETE * FROM Einstellungen WHERE Einstellung = 'Schriftart' OR Einstellung = 'MetaAuthor'");

  open(next.file());

  EXPECT_EQ(window.fields().tbschriftart, "Tahoma");
  EXPECT_EQ(window.fields().tbmeta[1], "");
}

TEST_F(OpenProjectTest, points_to_the_layout_field_where_the_layout_is_gone)
{
  project.setSetting("grundlayout", "Mein Layout (weg.xml)");
  ui.expect(0, "Bitte überpüfen Sie auf der Lasche 'Layout' das Feld 'Grundlayout'!");

  open(project.file());

  EXPECT_EQ(window.fields().ComboGrundlayout.ListIndex, 0);
  EXPECT_TRUE(window.isOpen());
}

TEST_F(OpenProjectTest, falls_back_to_the_programs_export_directory)
{
  project.setSetting("Exportpfad", "\\gibt\\es\\nicht");

  open(project.file());

  EXPECT_EQ(window.fields().tbpfadexport, directory.file("exportpfad\\"));
  EXPECT_TRUE(std::filesystem::is_directory(directory.native() / "exportpfad" / "pix"));
}

TEST_F(OpenProjectTest, without_its_settings_is_what_the_command_line_needs)
{
  EXPECT_TRUE(window.openProject(project.file()));

  EXPECT_TRUE(window.isOpen());
  EXPECT_EQ(window.fields().tbtitel, "");
  EXPECT_TRUE(calls.empty());
  EXPECT_EQ(iniValue("LastFile", "File1"), "nio");
}

TEST_F(OpenProjectTest, without_its_settings_is_refused_for_what_is_no_project)
{
  directory.write("leer.mdb", "");
  std::filesystem::create_directory(directory.native() / "ordner.mdb");
  for (const auto* const name : {"fehlt.mdb", "leer.mdb", "ordner.mdb"}) {
    ui.expect(1, " in Modul DialogOpenChangeNewDB");
    EXPECT_FALSE(window.openProject(directory.file(name))) << name;
  }
  EXPECT_FALSE(std::filesystem::exists(directory.native() / "fehlt.mdb"));
  EXPECT_TRUE(std::filesystem::is_empty(directory.native() / "ordner.mdb"));
}

TEST_F(OpenProjectTest, takes_a_given_export_directory_in_place_of_the_stored_one)
{
  std::filesystem::create_directory(directory.native() / "anders");
  project.setSetting("Exportpfad", "\\gibt\\es\\nicht");
  window.openProject(project.file());

  EXPECT_TRUE(window.loadSettings({directory.file("anders")}));

  EXPECT_EQ(window.fields().tbpfadexport, directory.file("anders\\"));
  EXPECT_TRUE(std::filesystem::is_directory(directory.native() / "anders" / "pix"));
  EXPECT_FALSE(std::filesystem::exists(directory.native() / "exportpfad"));
  EXPECT_EQ(project.setting("Exportpfad"), "\\gibt\\es\\nicht");
  EXPECT_EQ(window.fields().tbtitel, "Am Meer");
}

TEST_F(OpenProjectTest, refuses_a_given_export_directory_that_does_not_exist)
{
  window.openProject(project.file());
  ui.expect(37);

  EXPECT_FALSE(window.loadSettings({directory.file("fehlt")}));

  EXPECT_FALSE(std::filesystem::exists(directory.native() / "fehlt"));
}

TEST_F(OpenProjectTest, is_closed_and_opened_anew_with_a_wait_pointer)
{
  open(project.file());
  project.addPage({"02", "Garten"});

  window.CheckDatabase();

  EXPECT_EQ(window.db().openRecordset("Seite").recordCount(), 3u);
  EXPECT_EQ(ui.pointerShape, ui::Pointer::Default);
}

TEST_F(OpenProjectTest, stays_open_where_its_file_cannot_be_opened_anew)
{
  open(project.file());
  std::filesystem::remove(files::nativePath(project.file()));

  EXPECT_THROW(window.CheckDatabase(), base::Error);

  EXPECT_TRUE(window.isOpen());
}

TEST_F(OpenProjectTest, is_closed_with_the_program)
{
  open(project.file());

  window.close();

  EXPECT_FALSE(window.isOpen());
}

} // namespace
} // namespace mrd::mainform
