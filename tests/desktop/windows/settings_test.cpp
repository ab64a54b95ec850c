#include "desktop/controls/colour_swatch.h"
#include "desktop/windows/desk.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::desktop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int kLayoutTab = 3, kExportTab = 4;

struct Settings : testing::Test {
  Settings()
  {
    home.lastWorkedOn(project.file(), 16500, 12000);
    project.setSetting("Exportpfad", project.directory().path() + "\\");
    project.setSetting("blättern", "0");
    desk = std::make_unique<Desk>(home);
    desk->start();
    desk->find<QTabWidget>("tabHtml").setCurrentIndex(kLayoutTab);
    desk->settle();
  }

  void choose(const char* list, int entry)
  {
    auto& box = desk->find<QComboBox>(list);
    box.setCurrentIndex(entry);
    emit box.activated(entry);
    desk->settle();
  }
  void save()
  {
    desk->find<QPushButton>("cbeinstellungen").click();
    desk->settle();
  }
  long long rows() { return project.db().openRecordset("SELECT COUNT(*) AS n FROM Einstellungen").value("n").integer(); }
  QColor background(const char* name) { return desk->find<QWidget>(name).palette().color(QPalette::Window); }

  support::TemporaryProject project{{"00", "Start"}, {"01", "Haus"}};
  ProgramHome home;
  std::unique_ptr<Desk> desk;
};

TEST_F(Settings, go_into_the_project_and_add_no_rows_the_second_time)
{
  desk->find<QLineEdit>("tbtitel").setText("Möwensand");
  desk->find<QLineEdit>("tbmeta_2").setText("Meer, Möwe");
  choose("ComboBlättern", 2);
  save();
  const auto first = rows();

  save();

  EXPECT_EQ(rows(), first);
  EXPECT_EQ(project.setting("Titel"), "Möwensand");
  EXPECT_EQ(project.setting("MetaKeywords"), "Meer, Möwe");
  EXPECT_EQ(project.setting("blättern"), "2");
  EXPECT_THAT(desk->answers.boxes, IsEmpty());
}

TEST_F(Settings, show_the_preview_of_the_layout_and_dim_what_it_does_not_use)
{
  auto& left = desk->find<QWidget>("frmhintergrund");
  auto& tabs = desk->find<QWidget>("frmVorschauTablaschen");
  EXPECT_TRUE(left.isVisible());
  EXPECT_FALSE(desk->find<QWidget>("tbRahmeninaktiv").isEnabled());

  choose("ComboGrundlayout", 1);

  EXPECT_FALSE(left.isVisible());
  EXPECT_TRUE(tabs.isVisible());
  EXPECT_TRUE(desk->find<QWidget>("tbRahmeninaktiv").isEnabled());
  EXPECT_TRUE(desk->find<QWidget>("LblFarbeRahmeninaktiv").isEnabled());
  EXPECT_FALSE(desk->find<QWidget>("ComboMenüspalte").isEnabled());
  EXPECT_FALSE(desk->find<QWidget>("LblMenüspalte").isEnabled());
}

TEST_F(Settings, colour_swatch_and_preview_follow_what_is_typed)
{
  desk->find<QLineEdit>("Tbtabelle").setText("#123456");

  EXPECT_EQ(desk->find<ColourSwatch>("Labelfarbe_3").colour(), QColor("#123456"));
  EXPECT_EQ(background("Lbltab1_0"), QColor("#123456"));
  save();
  EXPECT_EQ(project.setting("Tabellenfarbe"), "#123456");
}

TEST_F(Settings, colours_are_chosen_at_the_swatch)
{
  desk->answers.dialogs.push_back([](QDialog& dialog) {
    auto& chooser = dynamic_cast<QColorDialog&>(dialog);
    EXPECT_EQ(chooser.currentColor(), QColor("#ffffff"));
    chooser.setCurrentColor(QColor("#0a5566"));
    dialog.accept();
  });

  desk->find<ColourSwatch>("Labelfarbe_6").click();
  desk->settle();

  EXPECT_EQ(desk->find<QLineEdit>("tbhintergrundaussen").text(), "0A5566");
  EXPECT_TRUE(desk->find<ColourSwatch>("Labelfarbe_6").isFramed());
  EXPECT_FALSE(desk->find<ColourSwatch>("Labelfarbe_1").isFramed());
  EXPECT_EQ(background("frmhintergrund"), QColor("#0a5566"));
}

TEST_F(Settings, a_refused_colour_changes_nothing)
{
  const QString before = desk->find<QLineEdit>("tbText").text();

  desk->find<QAbstractButton>("cbfarbe_1").click();
  desk->settle();

  EXPECT_EQ(desk->find<QLineEdit>("tbText").text(), before);
}

TEST_F(Settings, round_corners_bring_their_radius)
{
  auto& radius = desk->find<QLineEdit>("tbradius");
  auto& corners = desk->find<QCheckBox>("CheckRundeEcke");
  corners.setChecked(true);
  EXPECT_TRUE(radius.isVisible());
  EXPECT_TRUE(desk->find<QWidget>("LEADEcke").isVisible());
  radius.setText("40");
  EXPECT_EQ(desk->find<QWidget>("LEADEcke").size(), QSize(41, 41));

  corners.setChecked(false);

  EXPECT_FALSE(radius.isVisible());
}

TEST_F(Settings, a_width_outside_the_list_is_kept_as_text)
{
  desk->find<QComboBox>("ComboInhalt").setEditText("777 px");

  save();

  EXPECT_EQ(project.setting("inhaltbreite"), "777 px");
}

TEST_F(Settings, an_export_directory_that_does_not_exist_gives_way_to_the_programs_own)
{
  desk->find<QTabWidget>("tabHtml").setCurrentIndex(kExportTab);
  auto& field = desk->find<QLineEdit>("tbpfadexport");
  field.setFocus();
  field.setText("/gibt/es/nicht");

  desk->find<QLineEdit>("tbbasisurl").setFocus();
  emit field.editingFinished();
  desk->settle();

  const auto own = home.directory.native() / "exportpfad";
  EXPECT_EQ(field.text().toStdString(), own.string() + "/");
  EXPECT_TRUE(std::filesystem::is_directory(own / "pix"));
  EXPECT_TRUE(std::filesystem::exists(own / "mrdnav.js"));
  EXPECT_TRUE(std::filesystem::exists(own / "pix" / "mrdbanner.gif"));
}

TEST_F(Settings, the_language_changes_at_once_and_touches_no_field)
{
  desk->find<QLineEdit>("tbtitel").setText("Ungesichert");
  const bool dirty = desk->form().pages().PageDirty();

  desk->action("eng").trigger();
  desk->settle();

  auto& tabs = desk->find<QTabWidget>("tabHtml");
  EXPECT_EQ(tabs.tabText(2), "Page");
  EXPECT_EQ(tabs.currentIndex(), kLayoutTab);
  EXPECT_EQ(desk->find<QPushButton>("cbeinstellungen").text(), "Save settin&gs");
  EXPECT_TRUE(desk->action("eng").isChecked());
  EXPECT_FALSE(desk->action("GER").isChecked());
  EXPECT_EQ(desk->find<QLineEdit>("tbtitel").text(), "Ungesichert");
  EXPECT_EQ(desk->form().pages().PageDirty(), dirty);
  EXPECT_EQ(home.iniValue("Language", "Lang"), "ENG");
  EXPECT_FALSE(desk->find<QWidget>("tbRahmeninaktiv").isEnabled());

  desk->action("GER").trigger();
  EXPECT_EQ(tabs.tabText(2), "Seite");
}

TEST_F(Settings, all_pages_are_generated_and_then_only_the_new_ones)
{
  desk->answers.dialogs.push_back([&](QDialog& dialog) {
    dialog.findChild<QAbstractButton*>("cbHTML")->click();
    EXPECT_EQ(dialog.findChild<QLabel*>("labelSeite")->text(), "Fertig! Es wurden 2 Seiten generiert.");
    dialog.findChild<QAbstractButton*>("opneue")->click();
    dialog.findChild<QAbstractButton*>("cbHTML")->click();
    EXPECT_EQ(dialog.findChild<QLabel*>("labelSeite")->text(), "Fertig! Es wurden 1 Seiten generiert.");
    dialog.reject();
  });

  desk->action("NetSub_0").trigger();

  EXPECT_TRUE(std::filesystem::exists(project.directory().native() / "index.htm"));
  EXPECT_TRUE(std::filesystem::exists(project.directory().native() / "01.htm"));
  EXPECT_THAT(desk->answers.dialogTitles, ElementsAre("HTML-Seiten erstellen"));
}

} // namespace
} // namespace mrd::desktop
