#include "main_window.h"

#include <gmock/gmock.h>

namespace mrd::mainform {
namespace {

struct AssistantTest : testing::Test, OpenMainWindow {
  AssistantTest()
  {
    start();
    form.window.unload = [this] { closed = true; };
    form.Form_Load(controls);
  }
  auto& fields() { return window.settings().fields(); }

  RecordedScreen controls;
  bool closed = false;
  FrmAssistent form{{program, window.settings(), userSettings, shell}};
};

TEST_F(AssistantTest, shows_the_fields_of_the_main_window)
{
  fields().tbFTPServer = "ftp.example";
  fields().tbtitel = "Am Meer";
  fields().tbbasisurl = "http://www.example";

  form.Form_Load();

  EXPECT_EQ(form.tbexportpfad, directory.file("site\\"));
  EXPECT_EQ(form.tbFTPServer, "ftp.example");
  EXPECT_EQ(form.tbtitel, "Am Meer");
  EXPECT_EQ(form.tbbasisurl, "http://www.example");
}

TEST_F(AssistantTest, proposes_its_own_directory_where_the_export_path_is_gone)
{
  fields().tbpfadexport = directory.file("weg");

  form.Form_Load();

  EXPECT_EQ(form.tbexportpfad, directory.file("exportpfad\\"));
}

TEST_F(AssistantTest, shows_the_guide_or_says_that_it_is_missing)
{
  EXPECT_EQ(form.guideFile, "");
  EXPECT_THAT(form.guideHtml,
              testing::HasSubstr("<br><br>Die Kurzanleitung aus der Online-Hilfe wurde nicht gefunden. <br><br>Bitte "
                                 "schreiben Sie eine Mail an"));
  EXPECT_THAT(form.guideHtml, testing::HasSubstr("mailto:"));

  directory.write("hilfe/kurzanleitung.htm", "x");
  form.Form_Load();
  EXPECT_EQ(form.guideFile, directory.file("hilfe\\kurzanleitung.htm"));
}

TEST_F(AssistantTest, is_walked_page_by_page)
{
  EXPECT_TRUE(form.cbweiter1Enabled);
  EXPECT_FALSE(form.cbweiter2Enabled);
  EXPECT_EQ(form.focus, "cbweiter1");

  form.cbweiter1_Click();
  EXPECT_EQ(form.TabAssistent, 1);
  EXPECT_TRUE(form.cbweiter2Enabled);
  EXPECT_EQ(form.focus, "tbexportpfad");

  form.cbweiter2_Click();
  EXPECT_EQ(form.TabAssistent, 2);
  EXPECT_TRUE(form.cbschliessenEnabled);
  EXPECT_EQ(form.focus, "cbschliessen");
}

TEST_F(AssistantTest, keeps_the_page_that_a_new_project_starts_on)
{
  form.TabAssistent = 1;

  form.Form_Load();

  EXPECT_EQ(form.TabAssistent, 1);
  EXPECT_TRUE(form.cbweiter2Enabled);
}

TEST_F(AssistantTest, takes_an_existing_directory_without_a_question_and_copies_nothing)
{
  std::filesystem::create_directory(directory.native() / "anders");
  directory.write("hilfe/mrdnav.js", "nav");
  form.tbexportpfad = directory.file("anders");
  form.tbtitel = "Am Meer";

  form.cbschliessen_Click();

  EXPECT_TRUE(closed);
  EXPECT_EQ(fields().tbpfadexport, directory.file("anders\\"));
  EXPECT_TRUE(std::filesystem::is_empty(directory.native() / "anders"));
  EXPECT_EQ(project.setting("Exportpfad"), directory.file("anders\\"));
  EXPECT_EQ(project.setting("Titel"), "Am Meer");
}

TEST_F(AssistantTest, makes_a_missing_directory_on_yes_with_the_standing_files)
{
  directory.write("hilfe/mrdnav.js", "nav");
  directory.write("hilfe/pix/mrdbanner.gif", "gif");
  form.tbexportpfad = directory.file("neu");
  ui.expect(0,
            "Das angegebene Exportverzeichnis " + (directory.native() / "neu").string() +
                " existiert nicht. Soll es angelegt werden?",
            ui::Button::Yes);

  form.cbschliessen_Click();

  EXPECT_EQ(ui.messages.back().style & 7, ui::box::kYesNoCancel);
  EXPECT_EQ(directory.read("neu/mrdnav.js"), "nav");
  EXPECT_EQ(directory.read("neu/pix/mrdbanner.gif"), "gif");
  EXPECT_TRUE(closed);
}

TEST_F(AssistantTest, takes_the_path_as_it_stands_on_no)
{
  form.tbexportpfad = directory.file("neu");
  ui.expect(0, "existiert nicht", ui::Button::No);

  form.cbschliessen_Click();

  EXPECT_FALSE(std::filesystem::exists(directory.native() / "neu"));
  EXPECT_EQ(fields().tbpfadexport, directory.file("neu\\"));
  EXPECT_TRUE(closed);
}

TEST_F(AssistantTest, stays_open_on_cancel)
{
  form.tbexportpfad = directory.file("neu");
  form.tbtitel = "anders";
  ui.expect(0, "existiert nicht", ui::Button::Cancel);

  form.cbschliessen_Click();

  EXPECT_FALSE(closed);
  EXPECT_EQ(project.setting("Titel").value_or(""), "");
}

TEST_F(AssistantTest, takes_a_blank_path_for_the_programs_own_and_never_for_the_root)
{
  for (const auto* const blank : {"", "  "}) {
    fields().tbpfadexport = blank;
    form.Form_Load();
    EXPECT_EQ(form.tbexportpfad, directory.file("exportpfad\\"));
  }
  form.tbexportpfad = "";
  ui.expect(0, "exportpfad existiert nicht", ui::Button::Yes);

  form.cbschliessen_Click();

  EXPECT_EQ(fields().tbpfadexport, directory.file("exportpfad\\"));
}

TEST_F(AssistantTest, copies_nothing_and_says_nothing_without_a_help_directory)
{
  form.tbexportpfad = directory.file("neu");
  ui.expect(0, "existiert nicht", ui::Button::Yes);

  form.cbschliessen_Click();

  EXPECT_TRUE(std::filesystem::is_directory(directory.native() / "neu" / "pix"));
  EXPECT_EQ(ui.messages.size(), 1u);
}

TEST_F(AssistantTest, tells_of_a_directory_that_cannot_be_made_and_stays_open)
{
  form.tbexportpfad = directory.file("gibt\\es\\nicht");
  ui.expect(0, "existiert nicht", ui::Button::Yes).expect(1, "in Modul cbschliessen_Click");

  form.cbschliessen_Click();

  EXPECT_FALSE(closed);
}

TEST_F(AssistantTest, switched_off_is_not_shown_at_the_next_start)
{
  form.CheckAssistentaqnzeigen = true;

  form.cbschliessen_Click();

  EXPECT_EQ(userSettings.value("Settings", "Assistent", ""), "nein");
}

TEST_F(AssistantTest, reads_its_switch_from_another_section_than_it_writes)
{
  userSettings.setValue("Settings", "Assistent", "nein");
  form.Form_Load();
  EXPECT_FALSE(form.CheckAssistentaqnzeigen);

  userSettings.setValue("Settigngs", "Assistent", "nein");
  form.Form_Load();
  EXPECT_TRUE(form.CheckAssistentaqnzeigen);

  form.CheckAssistentaqnzeigen = false;
  form.cbschliessen_Click();
  EXPECT_EQ(userSettings.value("Settings", "Assistent", ""), "ja");
}

TEST_F(AssistantTest, takes_a_directory_from_the_folder_chooser)
{
  ui.answerFolderDialog(directory.file("bilder")).answerFolderDialog(std::nullopt);

  form.cbpfad_Click();
  form.cbpfad_Click();

  EXPECT_EQ(form.tbexportpfad, directory.file("bilder\\"));
}

TEST_F(AssistantTest, writes_to_the_support_and_closes_without_saving)
{
  form.tbtitel = "anders";
  form.Label4_Click();
  form.cbabbrechen_Click();

  EXPECT_THAT(shell.opened, testing::ElementsAre(testing::StartsWith("mailto:")));
  EXPECT_TRUE(closed);
  EXPECT_EQ(fields().tbtitel, "");
}

} // namespace
} // namespace mrd::mainform
