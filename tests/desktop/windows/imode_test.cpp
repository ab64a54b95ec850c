// The edition for telephones at the desk: its tab, its dialog, its server.

#include "desktop/controls/picture_panel.h"
#include "desktop/windows/desk.h"
#include "platform/files/path.h"
#include "support/ftp_server.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTabWidget>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::desktop {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr int kImodeTab = 6;

struct ImodeDesk : testing::Test {
  ImodeDesk()
  {
    home.lastWorkedOn(project.file());
    std::filesystem::create_directories(site);
    project.setSetting("Exportpfad", project.directory().path() + "\\site\\");
    project.setSetting("Titel", "Haus Möwe");
    project.setSetting("ftpverzeichnisimode", "handy");
  }

  /// Shows the tab and opens the dialog; the work is done when the boxes that come meanwhile can be answered.
  void inTheDialog(Desk& desk, const std::function<void(QDialog&)>& work)
  {
    desk.find<QTabWidget>("tabHtml").setCurrentIndex(kImodeTab);
    desk.settle();
    desk.answers.dialogs.push_back([&](QDialog& dialog) {
      QTimer::singleShot(0, &dialog, [&] {
        work(dialog);
        dialog.reject();
      });
    });
    desk.find<QAbstractButton>("cbimode").click();
  }
  static void click(QDialog& dialog, const char* button)
  {
    dialog.findChild<QAbstractButton*>(QString::fromUtf8(button))->click();
  }
  static std::string text(QDialog& dialog, const char* label)
  {
    return dialog.findChild<QLabel*>(QString::fromUtf8(label))->text().toStdString();
  }

  support::TemporaryProject project{{"00", "Start", "<p>a"}, {"01", "Haus", "<table><tr><td>x</td></tr></table>"}};
  const std::filesystem::path site = project.directory().native() / "site";
  ProgramHome home;
};

TEST_F(ImodeDesk, writes_the_edition_from_its_dialog)
{
  Desk desk(home);
  ASSERT_TRUE(desk.start());

  inTheDialog(desk, [&](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "i-mode Export - Test");
    EXPECT_EQ(dialog.findChild<QAbstractButton*>("cbHTML")->text(), "&1. i-mode Seiten erstellen");
    for (const auto* const lacking : {"OpAlle", "opneue", "tbNamenszusatz", "labelSekunden"})
      EXPECT_EQ(dialog.findChild<QWidget*>(lacking), nullptr) << lacking;
    click(dialog, "cbHTML");
    EXPECT_EQ(text(dialog, "labelSeite"), "Fertig!");
  });

  EXPECT_TRUE(std::filesystem::exists(site / "imode" / "01.htm"));
  EXPECT_TRUE(std::filesystem::exists(site / "imode" / "pix"));
  EXPECT_EQ(desk.answers.dialogTitles.size(), 1U);
  EXPECT_THAT(desk.answers.boxes, IsEmpty());
}

TEST_F(ImodeDesk, tells_at_the_end_of_a_run_of_all_pictures_that_could_not_be_made_small)
{
  std::filesystem::create_directories(site / "pix");
  std::string page;
  for (int picture = 10; picture < 40; ++picture) {
    const auto name = "kaputt" + std::to_string(picture) + ".jpg";
    project.directory().write("site/pix/" + name, "kein Bild");
    page += "<img src=\"file://" + project.directory().path() + "\\site\\pix/" + name + "\">";
  }
  for (const auto* const id : {"00", "01"})
    project.db().execute("UPDATE Seite SET html = ? WHERE ID = ?", {page, id});
  Desk desk(home);
  ASSERT_TRUE(desk.start());
  QString text, lines;
  bool scrolls = false, isDone = false;
  const auto look = [&](QDialog& box) {
    text = box.findChild<QLabel*>("LabelWarnings")->text();
    const auto& list = *box.findChild<QPlainTextEdit*>("ListWarnings");
    lines = list.toPlainText();
    scrolls = list.verticalScrollBar()->maximum() > 0;
    box.findChild<QAbstractButton*>("cbok")->click();
  };

  inTheDialog(desk, [&](QDialog& dialog) {
    desk.answers.dialogs.push_back(look);
    click(dialog, "cbHTML");
    isDone = ImodeDesk::text(dialog, "labelSeite") == "Fertig!";
  });

  EXPECT_TRUE(isDone);
  EXPECT_EQ(text, "Die Arbeit ist getan, aber nicht alles ist gelungen:");
  EXPECT_EQ(lines.count("kaputt"), 30);
  EXPECT_EQ(lines.count('\n'), 29);
  EXPECT_TRUE(lines.contains("kaputt39.jpg: Die Datei ist kein Bild von bekannter Art."));
  EXPECT_TRUE(scrolls);
  EXPECT_EQ(desk.answers.dialogTitles.size(), 2U);
  EXPECT_THAT(desk.answers.boxes, IsEmpty());
}

TEST_F(ImodeDesk, sends_the_edition_to_a_directory_of_its_own)
{
  const support::FtpServer server("scripted");
  project.setSetting("ftpserver", server.server());
  project.setSetting("ftpuser", server.user());
  project.setSetting("ftppasswort", server.password());
  project.setSetting("imodekopftyp", "0");
  Desk desk(home);
  ASSERT_TRUE(desk.start());
  // The run asks at its end whether the server is to be read again.
  desk.answers.buttons = {ui::Button::No};

  inTheDialog(desk, [&](QDialog& dialog) {
    click(dialog, "cbHTML");
    click(dialog, "cbftpverbindung");
    EXPECT_THAT(text(dialog, "Labelftpverzeichnis"), HasSubstr("handy"));
    click(dialog, "cbftp");
    EXPECT_EQ(text(dialog, "labelSeite"), "Fertig!");
  });

  EXPECT_TRUE(std::filesystem::exists(server.root().native() / "handy" / "index.htm"));
  EXPECT_TRUE(std::filesystem::exists(server.root().native() / "handy" / "01.htm"));
  EXPECT_TRUE(std::filesystem::exists(server.root().native() / "handy" / "pix" / "imodelogo.gif"));
}

TEST_F(ImodeDesk, draws_the_band_with_the_title_and_with_what_is_typed)
{
  Desk desk(home);
  ASSERT_TRUE(desk.start());
  desk.find<QTabWidget>("tabHtml").setCurrentIndex(kImodeTab);
  desk.settle();
  auto& band = desk.find<PicturePanel>("LEADimode");
  EXPECT_EQ(band.sizeHint(), QSize(120, 20));
  EXPECT_EQ(desk.find<QLineEdit>("tbimodekopftext").text(), "Haus Möwe");
  const QImage first = band.grab().toImage();

  desk.find<QLineEdit>("tbimodekopftext").setText("Garten");
  const QImage second = band.grab().toImage();
  desk.find<QLineEdit>("Tbtabelle").setText("112233");

  EXPECT_NE(first, second);
  EXPECT_EQ(band.grab().toImage().pixelColor(0, 0), QColor("#112233"));
}

TEST_F(ImodeDesk, shows_the_picture_that_is_chosen_for_the_head)
{
  const auto logo = project.directory().native() / "Logo.gif";
  std::filesystem::copy_file(std::filesystem::path(MRD_SOURCE_DIR) / "resources" / "pix" / "mrdbanner.gif", logo);
  Desk desk(home);
  ASSERT_TRUE(desk.start());
  desk.find<QTabWidget>("tabHtml").setCurrentIndex(kImodeTab);
  desk.settle();
  desk.answers.dialogs.push_back([&](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "i-mode Titelbild auswählen");
    fileNamed(logo)(dialog);
  });

  desk.find<QAbstractButton>("cbimodegifladen").click();

  EXPECT_EQ(desk.find<QLabel>("Lblimodegif").text().toStdString(), logo.string());
  EXPECT_FALSE(desk.find<PicturePanel>("picImodeKopf").sizeHint().isEmpty());

  desk.find<QAbstractButton>("cbimodegifladen").click();

  EXPECT_EQ(desk.find<QLabel>("Lblimodegif").text().toStdString(), "Bitte Datei auswählen.");
  EXPECT_TRUE(desk.find<PicturePanel>("picImodeKopf").sizeHint().isEmpty());
}

} // namespace
} // namespace mrd::desktop
