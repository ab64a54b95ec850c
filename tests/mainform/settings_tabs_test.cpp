#include "main_window.h"
#include "platform/files/files.h"

#include <gmock/gmock.h>

namespace mrd::mainform {
namespace {

struct SettingsTabsTest : testing::Test, OpenMainWindow {
  std::size_t rows() { return project.db().openRecordset("SELECT * FROM Einstellungen").recordCount(); }
  auto& fields() { return window.settings().fields(); }
};

TEST_F(SettingsTabsTest, save_twice_without_more_rows)
{
  start();
  fields().tbtitel = "Am Meer";
  ASSERT_TRUE(window.settings().cbeinstellungen_Click());
  const std::size_t before = rows();
  fields().tbtitel = "An der See";

  EXPECT_TRUE(window.settings().cbeinstellungen_Click());

  EXPECT_EQ(rows(), before);
  EXPECT_EQ(project.setting("Titel"), "An der See");
}

TEST_F(SettingsTabsTest, show_the_menu_colour_as_link_colour_where_that_is_missing)
{
  project.db().execute("DELETE * FROM Einstellungen WHERE Einstellung = 'Hyperlink'");
  project.setSetting("Menüaktivfarbe", "123456");

  start();

  EXPECT_EQ(fields().tbHyperlink, "123456");
  EXPECT_THAT(surface.rules, testing::HasSubstr("A:link {font-family: Arial; color : #123456}"));
}

TEST_F(SettingsTabsTest, keep_a_colour_as_it_was_typed)
{
  start();
  fields().Tbtabelle = "#0080FF";

  window.settings().cbeinstellungen_Click();

  EXPECT_EQ(project.setting("Tabellenfarbe"), "#0080FF");
  EXPECT_EQ(screenColour("#0080FF"), 0xFF8000);
  EXPECT_EQ(screenColour("0080FF"), 0xFF8000);
  EXPECT_EQ(screenColour("blau"), 0);
}

TEST_F(SettingsTabsTest, point_to_the_layout_field_where_the_layout_is_gone)
{
  project.setSetting("grundlayout", "Mein Layout (weg.xml)");
  ui.expect(0, "Bitte überpüfen Sie auf der Lasche 'Layout' das Feld 'Grundlayout'!");

  start();

  EXPECT_EQ(fields().ComboGrundlayout.ListIndex, 0);
  EXPECT_TRUE(screen.visible("frmhintergrund"));
}

TEST_F(SettingsTabsTest, make_the_export_directory_ready_when_its_field_loses_the_focus)
{
  directory.write("hilfe/mrdnav.js", "nav");
  directory.write("hilfe/pix/mrdbanner.gif", "gif");
  start();
  fields().tbpfadexport = directory.file("gibt es nicht");

  window.settings().tbpfadexport_LostFocus();

  EXPECT_EQ(fields().tbpfadexport, directory.file("exportpfad\\"));
  EXPECT_EQ(directory.read("exportpfad/mrdnav.js"), "nav");
  EXPECT_EQ(directory.read("exportpfad/pix/mrdbanner.gif"), "gif");
  EXPECT_EQ(surface.siteDirectory, directory.file("exportpfad\\"));
}

TEST_F(SettingsTabsTest, take_an_export_directory_from_the_folder_chooser)
{
  start();
  std::filesystem::create_directory(directory.native() / "anders");
  ui.answerFolderDialog(directory.file("anders")).answerFolderDialog(std::nullopt);

  window.settings().cbpfad_Click();
  window.settings().cbpfad_Click();

  EXPECT_EQ(fields().tbpfadexport, directory.file("anders\\"));
}

TEST_F(SettingsTabsTest, are_not_saved_without_the_rows_that_every_project_has)
{
  start();
  project.db().execute("DELETE * FROM Einstellungen WHERE Einstellung = 'Textfarbe'");
  ui.expect(1, "in Modul cbeinstellungen_Click");

  EXPECT_FALSE(window.settings().cbeinstellungen_Click());
}

TEST_F(SettingsTabsTest, keep_a_field_from_project_to_project_where_the_next_lacks_it)
{
  project.setSetting("Schriftart", "Tahoma");
  start();
  support::TemporaryProject next{{"00", "Anders"}};
  next.db().execute("DELETE * FROM Einstellungen WHERE Einstellung = 'Schriftart'");
  ui.answerOpenDialog(next.file());

  window.OpenProject_Click();
  window.settings().cbeinstellungen_Click();

  EXPECT_EQ(next.setting("Schriftart"), "Tahoma");
}

struct LayoutChoice {
  int index;
  std::string frame;
  bool inactive, corners, menuWidth, table, background, content;
};

struct LayoutTest : SettingsTabsTest, testing::WithParamInterface<LayoutChoice> {};

TEST_P(LayoutTest, shows_its_preview_and_offers_what_it_uses)
{
  start();
  fields().ComboGrundlayout.entries.emplace_back("-- benutzerdefinierte Layouts --");
  fields().ComboGrundlayout.entries.emplace_back("Meins (meins.xml)");
  const auto& choice = GetParam();
  fields().ComboGrundlayout.selectIndex(choice.index);

  window.settings().ComboGrundlayout_Click();

  for (const auto* const frame :
       {"frmhintergrund", "frmVorschauTablaschen", "FrmVorschauOhneAlles", "FrmVorschaubenutzerdefiniert"})
    EXPECT_EQ(screen.visible(frame), frame == choice.frame) << frame;
  EXPECT_EQ(screen.enabled("tbRahmeninaktiv"), choice.inactive);
  EXPECT_EQ(screen.enabled("Labelfarbe(4)"), choice.inactive);
  EXPECT_EQ(screen.enabled("cbfarbe(4)"), choice.inactive);
  EXPECT_EQ(screen.enabled("CheckRundeEcke"), choice.corners);
  EXPECT_EQ(screen.enabled("tbradius"), choice.corners);
  EXPECT_EQ(screen.enabled("ComboMenüspalte"), choice.menuWidth);
  EXPECT_EQ(screen.enabled("Tbtabelle"), choice.table);
  EXPECT_EQ(screen.enabled("tbhintergrund"), choice.background);
  EXPECT_EQ(screen.enabled("ComboInhalt"), choice.content);
}

INSTANTIATE_TEST_SUITE_P(Layouts, LayoutTest,
                         testing::Values(LayoutChoice{0, "frmhintergrund", false, true, true, true, true, true},
                                         LayoutChoice{1, "frmVorschauTablaschen", true, false, false, true, true, true},
                                         LayoutChoice{2, "FrmVorschauOhneAlles", false, false, false, false, false, false},
                                         LayoutChoice{3, "", false, false, false, false, false, true},
                                         LayoutChoice{4, "FrmVorschaubenutzerdefiniert", true, true, true, true, true, true},
                                         LayoutChoice{5, "FrmVorschaubenutzerdefiniert", true, true, true, true, true, true}));

TEST_F(SettingsTabsTest, keep_the_layouts_fields_off_in_another_language)
{
  project.setSetting("grundlayout", "ohne alles");
  start();

  window.eng_Click();

  EXPECT_FALSE(screen.enabled("Tbtabelle"));
  EXPECT_TRUE(screen.visible("FrmVorschauOhneAlles"));
}

TEST_F(SettingsTabsTest, show_the_radius_with_round_corners)
{
  start();
  for (const bool round : {true, false}) {
    fields().CheckRundeEcke = round;
    window.settings().CheckRundeEcke_Click();
    for (const auto* const control : {"tbradius", "UpDownRadius", "LabelRadius", "LEADEcke"})
      EXPECT_EQ(screen.visible(control), round);
  }
}

TEST_F(SettingsTabsTest, share_the_width_of_the_content_with_the_previews)
{
  start();
  const auto share = [&](std::string_view width) {
    fields().ComboInhalt.selectText(width);
    return window.settings().previewShare();
  };
  EXPECT_DOUBLE_EQ(share("50%"), 0.5);
  EXPECT_DOUBLE_EQ(share("600 px"), 0.5);
  EXPECT_DOUBLE_EQ(share("5000 px"), 1);
  EXPECT_DOUBLE_EQ(share("viel"), 1);
}

struct ColoursTest : SettingsTabsTest {
  ColoursTest() { start(); }
};

TEST_F(ColoursTest, are_chosen_in_a_dialog_and_shown_at_once)
{
  ui.answerColourDialog(0x332211);

  window.settings().Labelfarbe_Click(5);

  EXPECT_EQ(window.settings().framedSwatch, 5);
  EXPECT_EQ(fields().tbhintergrund, "112233");
  EXPECT_EQ(surface.colours, "#112233 #000000");
  EXPECT_THAT(screen.refreshed, testing::Contains(Shown::Colours));
}

TEST_F(ColoursTest, stay_where_the_dialog_is_cancelled)
{
  fields().tbText = "abcdef";
  ui.answerColourDialog(std::nullopt);

  window.settings().cbfarbe_Click(1);
  window.settings().cbfarbe_Click(9);

  EXPECT_EQ(fields().tbText, "abcdef");
}

TEST_F(ColoursTest, have_eight_fields_with_a_swatch_each)
{
  ASSERT_EQ(colourFields().size(), 8u);
  for (const auto& field : colourFields()) {
    const auto swatch = std::find_if(colouredControls().begin(), colouredControls().end(), [&](const ColouredControl& control) {
      return control.control == "Labelfarbe" && control.index == field.index;
    });
    ASSERT_NE(swatch, colouredControls().end());
    EXPECT_EQ(swatch->field, field.field);
  }
}

TEST_F(ColoursTest, reach_the_editor_with_the_font_of_the_site)
{
  fields().tbhintergrund = "#aabbcc";
  fields().tbText = "010203";
  fields().tbschriftart = "Verdana";

  window.settings().colourField_Change();

  EXPECT_EQ(surface.colours, "#aabbcc #010203");
  EXPECT_THAT(surface.rules, testing::HasSubstr("div {FONT-SIZE: 10pt}"));
  EXPECT_THAT(surface.rules, testing::HasSubstr("td {FONT-FAMILY: Verdana; }"));
  EXPECT_THAT(surface.rules, testing::HasSubstr("h3 {FONT-FAMILY: Verdana; }"));
  EXPECT_THAT(surface.rules,
              testing::HasSubstr("A:hover {font-family: Verdana; color : #ff0000;   TEXT-DECORATION: underline;}"));
}

TEST_F(ColoursTest, bring_no_rule_of_their_own_into_the_editor)
{
  fields().tbschriftart = "x} body{background:url(http://a.b/c)}";

  window.settings().colourField_Change();

  EXPECT_EQ(surface.rules.find("} body"), std::string::npos);
}

TEST_F(ColoursTest, wait_for_the_page_with_a_spinner)
{
  surface.busyFor = 9000;
  ui.statusTexts.clear();

  window.settings().colourField_Change();

  EXPECT_THAT(ui.statusTexts, testing::ElementsAre("HTML wird geladen", "HTML wird geladen ·", "HTML wird geladen --", ""));
}

} // namespace
} // namespace mrd::mainform
