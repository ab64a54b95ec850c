// From the first start to a site that is looked at, as somebody goes who has just got the program.

#include "desktop/windows/desk.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDesktopServices>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTest>
#include <QTextBrowser>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::desktop {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using ui::Button;

/// Files that the program opens with others come here.
class OpenedFiles {
public:
  OpenedFiles() { QDesktopServices::setUrlHandler("file", &reader_, "setSource"); }
  ~OpenedFiles() { QDesktopServices::unsetUrlHandler("file"); }
  OpenedFiles(const OpenedFiles&) = delete;
  OpenedFiles& operator=(const OpenedFiles&) = delete;

  std::string last() const { return reader_.source().toLocalFile().toStdString(); }

private:
  QTextBrowser reader_;
};

void dismiss(QDialog& dialog) { dialog.reject(); }

struct WholeWay : testing::Test {
  void newProject(Desk& desk)
  {
    desk.answers.dialogs.push_back(fileNamed(file));
    desk.answers.dialogs.push_back([this](QDialog& dialog) {
      dialog.findChild<QLineEdit*>("tbexportpfad")->setText(QString::fromStdString(site.string()));
      dialog.findChild<QLineEdit*>("tbtitel")->setText("Urlaub");
      dialog.findChild<QAbstractButton*>("cbweiter2")->click();
      dialog.findChild<QAbstractButton*>("CheckAssistentaqnzeigen")->setChecked(true);
      dialog.findChild<QAbstractButton*>("cbschliessen")->click();
    });
    press(desk, "NewProject");
  }
  void writePage(Desk& desk, const std::string& heading)
  {
    auto& tabs = desk.find<QTabWidget>("tabHtml");
    tabs.setCurrentIndex(1);
    desk.settle();
    desk.find<QPlainTextEdit>("tbhtml").setPlainText(QString::fromStdString("<h3 id=\"ueberschrift\">" + heading + "</h3>"));
    tabs.setCurrentIndex(0);
    desk.settle();
    press(desk, "seitespeichern");
  }
  void newPageBelow(Desk& desk, const std::string& key, const std::string& heading)
  {
    desk.clickNode(key);
    press(desk, "seiteneu");
    writePage(desk, heading);
  }
  void chooseLayout(Desk& desk, int entry)
  {
    desk.find<QTabWidget>("tabHtml").setCurrentIndex(3);
    auto& box = desk.find<QComboBox>("ComboGrundlayout");
    box.setCurrentIndex(entry);
    emit box.activated(entry);
    desk.find<QAbstractButton>("cbeinstellungen").click();
    desk.settle();
  }
  std::string generate(Desk& desk)
  {
    std::string told;
    desk.answers.dialogs.push_back([&](QDialog& dialog) {
      dialog.findChild<QAbstractButton*>("cbHTML")->click();
      told = dialog.findChild<QLabel*>("labelSeite")->text().toStdString();
      dialog.findChild<QAbstractButton*>("cbvorschau")->click();
      dialog.reject();
    });
    press(desk, "html");
    return told;
  }
  static void press(Desk& desk, const char* action)
  {
    desk.action(action).trigger();
    desk.settle();
  }

  ProgramHome home;
  const fs::path file = home.directory.native() / "urlaub.mdb", site = home.directory.native() / "web";
  OpenedFiles opened;
};

TEST_F(WholeWay, leads_from_the_first_start_to_a_site_that_is_looked_at)
{
  fs::create_directory(site);
  {
    Desk desk(home);
    desk.answers.buttons = {Button::Cancel};
    // The question for a project, and the assistant.
    desk.answers.dialogs = {dismiss, dismiss};
    desk.start();
    newProject(desk);
    writePage(desk, "Unser Urlaub");
    newPageBelow(desk, "@00", "Strand");
    newPageBelow(desk, "@01", "Muscheln");
    EXPECT_EQ(desk.node("@0101")->text(0), "Muscheln");
    chooseLayout(desk, 1);

    EXPECT_EQ(generate(desk), "Fertig! Es wurden 3 Seiten generiert!");
    EXPECT_EQ(opened.last(), (site / "index.htm").string());

    press(desk, "seitenvorschau");
    EXPECT_EQ(opened.last(), (site / "0101.htm").string());
    desk.window().close();
  }
  Desk again(home);

  again.start();

  EXPECT_EQ(again.answers.dialogTitles.size(), 0U);
  EXPECT_EQ(again.window().windowTitle(), "Mirandel: Muscheln");
  EXPECT_TRUE(again.node("@0101")->isSelected());
  EXPECT_EQ(again.find<QComboBox>("ComboGrundlayout").currentIndex(), 1);
  EXPECT_EQ(again.find<QLineEdit>("tbtitel").text(), "Urlaub");
  EXPECT_TRUE(fs::exists(site / "01.htm"));
  EXPECT_TRUE(fs::exists(site / "mrdstyle.css"));
}

TEST_F(WholeWay, has_help_for_what_is_in_sight)
{
  support::TemporaryProject project{{"00", "Start"}};
  home.setIniValue("LastFile", "File1", project.file());
  files::UserSettings(home.userSettingsFile()).setValue("Settings", "Assistent", "nein");
  Desk desk(home);
  desk.start();

  desk.find<QTabWidget>("tabHtml").setCurrentIndex(3);
  QTest::keyClick(&desk.window(), Qt::Key_F1);
  EXPECT_THAT(opened.last(), HasSubstr("hilfe/layout.htm"));

  press(desk, "eng");
  desk.clickNode("@00");
  QTest::keyClick(&desk.window(), Qt::Key_F1);
  EXPECT_THAT(opened.last(), HasSubstr("help/baumbereich.htm"));
}

} // namespace
} // namespace mrd::desktop
