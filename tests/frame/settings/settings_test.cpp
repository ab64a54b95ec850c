#include "base/errors.h"
#include "frame/settings/settings.h"
#include "frame/settings/stored_settings.h"
#include "support/scripted_ui.h"
#include "support/temporary.h"

#include <gmock/gmock.h>

namespace mrd::settings {
namespace {

using testing::ElementsAre;

struct SettingsTest : testing::Test {
  support::TemporaryProject project{{"00", "Start"}};
  support::TemporaryDirectory home, site;
  paths::ProgramFiles program{home.path()};
  support::ScriptedUi ui;
  Fields fields;

  void SetUp() override { project.setSetting("Exportpfad", site.path()); }

  void load() { einstellungenladen(project.db(), fields, program, ui); }
  void save() { cbeinstellungen_Click(project.db(), fields); }
  void remove(std::string_view key) { project.db().execute("DELETE * FROM Einstellungen WHERE Einstellung = ?", {key}); }
  void setNull(std::string_view key)
  {
    project.db().execute("UPDATE Einstellungen SET Wert = NULL WHERE Einstellung = ?", {key});
  }
  std::size_t rowCount() { return StoredSettings(project.db()).rows().size(); }
};

TEST_F(SettingsTest, trims_values_and_puts_them_into_their_fields)
{
  project.setSetting("Titel", "  Möwe ");
  project.setSetting("MetaKeywords", "Ferien");
  project.setSetting("rundeEcke", "Wahr");
  project.setSetting("menübreite", "auto");
  project.setSetting("inhaltbreite", "777 px");
  project.setSetting("imodekopftyp", "1");

  load();

  EXPECT_EQ(fields.tbtitel, "Möwe");
  EXPECT_EQ(fields.tbmeta[2], "Ferien");
  EXPECT_TRUE(fields.CheckRundeEcke);
  EXPECT_EQ(fields.ComboMenüspalte.ListIndex, 0);
  EXPECT_EQ(fields.ComboInhalt.ListIndex, -1);
  EXPECT_EQ(fields.ComboInhalt.Text, "777 px");
  EXPECT_EQ(fields.Opimmodekopf, OpImodeKopf::Text);
}

TEST_F(SettingsTest, applies_the_export_path_through_its_field)
{
  load();

  EXPECT_EQ(fields.tbpfadexport, site.path() + "\\");
  EXPECT_TRUE(std::filesystem::is_directory(site.native() / "pix"));
}

TEST_F(SettingsTest, take_the_menu_colour_as_link_colour_where_the_project_has_none)
{
  remove("Hyperlink");
  project.setSetting("Menüaktivfarbe", "00ff00");

  load();

  EXPECT_EQ(fields.tbHyperlink, "00ff00");
}

TEST_F(SettingsTest, leave_a_colour_with_hash_as_it_was_typed)
{
  project.setSetting("Textfarbe", "#123456");

  load();
  save();

  EXPECT_EQ(fields.tbText, "#123456");
  EXPECT_EQ(project.setting("Textfarbe"), "#123456");
}

TEST_F(SettingsTest, outlive_a_change_of_the_project_except_for_the_meta_fields)
{
  project.setSetting("Titel", "Erstes");
  project.setSetting("BasisURL", "http://www.example.org/");
  project.setSetting("MetaAuthor", "Anna");
  load();

  for (const auto* key : {"Titel", "BasisURL", "MetaAuthor"})
    remove(key);
  load();

  EXPECT_EQ(fields.tbtitel, "Erstes");
  EXPECT_EQ(fields.tbbasisurl, "http://www.example.org/");
  EXPECT_EQ(fields.tbmeta[1], "");
}

TEST_F(SettingsTest, choose_a_layout_by_its_name)
{
  project.setSetting("grundlayout", "ohne alles");

  load();

  EXPECT_EQ(fields.ComboGrundlayout.ListIndex, 2);
}

TEST_F(SettingsTest, hint_at_a_layout_that_is_gone_and_choose_the_first)
{
  project.setSetting("grundlayout", "Mein Layout");
  ui.expect(0, "Bitte überpüfen Sie auf der Lasche 'Layout' das Feld 'Grundlayout'!");

  load();

  EXPECT_EQ(fields.ComboGrundlayout.ListIndex, 0);
  EXPECT_EQ(fields.ComboGrundlayout.Text, "Navigation linke Seite");
  EXPECT_EQ(ui.splashHidden, 1);
}

TEST_F(SettingsTest, keep_the_layout_where_its_key_is_missing)
{
  fields.ComboGrundlayout.selectIndex(1);
  remove("grundlayout");

  load();

  EXPECT_EQ(fields.ComboGrundlayout.ListIndex, 1);
}

TEST_F(SettingsTest, set_the_layout_back_where_the_key_of_page_turning_is_missing)
{
  project.setSetting("grundlayout", "ohne alles");
  fields.ComboBlättern.selectIndex(3);
  remove("blättern");

  load();

  EXPECT_EQ(fields.ComboGrundlayout.ListIndex, 0);
  EXPECT_EQ(fields.ComboBlättern.ListIndex, 0);
  EXPECT_EQ(fields.ComboBlättern.Text, "Seitenüberschriften immer sichtbar");
}

TEST_F(SettingsTest, choose_the_way_to_turn_pages_by_its_number)
{
  project.setSetting("blättern", "3");

  load();

  EXPECT_EQ(fields.ComboBlättern.Text, "Symbole fest");
}

TEST_F(SettingsTest, take_the_title_for_an_empty_i_mode_head)
{
  project.setSetting("Titel", "Möwe");
  project.setSetting("imodekopftext", "  ");

  load();

  EXPECT_EQ(fields.tbimodekopftext, "Möwe");
}

TEST_F(SettingsTest, pass_over_Null_and_empty_texts_of_head_picture_and_partner)
{
  fields.Lblimodegif = "vorher.gif";
  fields.tbBildpartnerID = "4711";
  setNull("imodekopfgif");
  project.setSetting("bildpartnerid", "");

  load();

  EXPECT_EQ(fields.Lblimodegif, "vorher.gif");
  EXPECT_EQ(fields.tbBildpartnerID, "4711");
}

TEST_F(SettingsTest, show_the_i_mode_head_picture_only_where_its_file_is)
{
  site.write("logo.gif", "x");
  project.setSetting("imodekopfgif", site.file("logo.gif"));
  load();
  EXPECT_EQ(fields.picImodeKopf, site.file("logo.gif"));

  project.setSetting("imodekopfgif", site.file("weg.gif"));
  load();
  EXPECT_EQ(fields.picImodeKopf, "");
  EXPECT_EQ(fields.Lblimodegif, site.file("weg.gif"));
}

TEST_F(SettingsTest, read_Null_as_an_empty_text)
{
  setNull("BasisURL");

  load();

  EXPECT_EQ(fields.tbbasisurl, "");
}

TEST_F(SettingsTest, count_only_the_first_of_two_rows_with_a_key)
{
  project.setSetting("Titel", "erste Zeile");
  project.db().execute("INSERT INTO Einstellungen (Einstellung, Wert) VALUES ('Titel', 'zweite Zeile')");

  load();
  fields.tbtitel = "neu";
  save();

  std::vector<std::string> titles;
  for (const auto& row : StoredSettings(project.db()).rows())
    if (row.key == "Titel")
      titles.push_back(row.value);
  EXPECT_THAT(titles, ElementsAre("neu", "zweite Zeile"));
}

TEST_F(SettingsTest, are_saved_twice_without_more_rows)
{
  load();
  save();
  const auto rows = rowCount();

  save();

  EXPECT_EQ(rowCount(), rows);
}

TEST_F(SettingsTest, add_the_rows_that_a_project_lacks_when_they_are_saved)
{
  remove("Hyperlink");
  remove("rundeEcke");
  load();
  fields.CheckRundeEcke = true;
  fields.tbimodekopftext = "  Kopf ";
  fields.Opimmodekopf = OpImodeKopf::Gif;
  fields.ComboBlättern.selectIndex(4);

  save();

  EXPECT_EQ(project.setting("Hyperlink"), "ff0000");
  EXPECT_EQ(project.setting("rundeEcke"), "True");
  EXPECT_EQ(project.setting("imodekopftext"), "Kopf");
  EXPECT_EQ(project.setting("imodekopftyp"), "2");
  EXPECT_EQ(project.setting("blättern"), "4");
}

TEST_F(SettingsTest, fail_to_save_where_one_of_the_first_seven_rows_is_missing_and_keep_what_was_written)
{
  remove("Textfarbe");
  load();
  fields.tbtitel = "geschrieben";
  fields.tbbasisurl = "nicht geschrieben";

  EXPECT_THROW(save(), base::Error);

  EXPECT_EQ(project.setting("Titel"), "geschrieben");
  EXPECT_EQ(project.setting("BasisURL"), "");
}

TEST_F(SettingsTest, give_a_single_value_as_stored_or_as_the_field_shows_it_at_the_start)
{
  project.setSetting("Titel", " mit Rand ");
  project.setSetting("Menüaktivfarbe", "123456");
  remove("Hyperlink");
  remove("menübreite");

  EXPECT_EQ(settingValue(project.db(), "titel"), " mit Rand ");
  EXPECT_EQ(settingValue(project.db(), "menübreite"), "140 px");
  EXPECT_EQ(settingValue(project.db(), "Hyperlink"), "123456");
  EXPECT_EQ(settingValue(project.db(), "lastgendate"), std::nullopt);

  remove("Menüaktivfarbe");
  EXPECT_EQ(settingValue(project.db(), "Hyperlink"), "ff0000");
}

TEST_F(SettingsTest, are_set_one_by_one_in_their_row_and_added_where_it_is_missing)
{
  StoredSettings stored(project.db());
  const auto rows = rowCount();

  stored.set("TITEL", "Möwe");
  stored.set("KopfHTML", "<b>Kopf</b>");

  EXPECT_EQ(rowCount(), rows + 1);
  EXPECT_EQ(project.setting("Titel"), "Möwe");
  EXPECT_EQ(project.setting("KopfHTML"), "<b>Kopf</b>");
}

} // namespace
} // namespace mrd::settings
