// Publishing at the desk: a site goes to a server that the test has started.

#include "desktop/windows/desk.h"
#include "support/ftp_server.h"

#include <QAbstractButton>
#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QListWidget>
#include <QTabWidget>
#include <QTreeWidget>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::desktop {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using ui::Button;

/// The dialog of the website, driven by its buttons.
struct ExportDialog {
  explicit ExportDialog(QDialog& window) : dialog(window) {}

  template <class Widget>
  Widget& find(const char* name) const
  {
    return *dialog.findChild<Widget*>(QString::fromUtf8(name));
  }
  void click(const char* name) const { find<QAbstractButton>(name).click(); }
  std::string text(const char* name) const { return find<QLabel>(name).text().toStdString(); }
  std::vector<std::string> selected(const char* list) const
  {
    std::vector<std::string> texts;
    for (const auto* const item : find<QListWidget>(list).selectedItems())
      texts.push_back(item->text().toStdString());
    return texts;
  }
  /// Name and fate of each file of the run.
  std::vector<std::string> run() const
  {
    const auto& list = find<QTreeWidget>("ListLauf");
    std::vector<std::string> lines;
    for (int i = 0; i < list.topLevelItemCount(); ++i)
      lines.push_back((list.topLevelItem(i)->text(0) + ": " + list.topLevelItem(i)->text(1)).toStdString());
    return lines;
  }

  QDialog& dialog;
};

/// Does something as soon as a condition is true, within the event loop of what runs meanwhile.
void once(QObject& owner, const std::function<bool()>& condition, const std::function<void()>& act)
{
  constexpr int kMilliseconds = 10;
  auto* const timer = new QTimer(&owner);
  QObject::connect(timer, &QTimer::timeout, &owner, [=] {
    if (!condition())
      return;
    timer->stop();
    timer->deleteLater();
    act();
  });
  timer->start(kMilliseconds);
}

struct PublishingDesk : testing::Test {
  PublishingDesk()
  {
    home.lastWorkedOn(project.file());
    std::filesystem::create_directories(site / "pix");
    project.setSetting("Exportpfad", project.directory().path() + "\\site\\");
    project.setSetting("grundlayout", "Navigation linke Seite");
    project.setSetting("ftpverzeichnis", "web");
  }

  void publishTo(const support::FtpServer& server)
  {
    project.setSetting("ftpserver", server.server());
    project.setSetting("ftpuser", server.user());
    project.setSetting("ftppasswort", server.password());
  }

  /// Opens the dialog, generates, and lets a user work; then the dialog is closed.
  void inTheDialog(const std::function<void(const ExportDialog&)>& work)
  {
    Desk desk(home);
    ASSERT_TRUE(desk.start());
    bool isDone = false;
    answers = &desk.answers;
    desk.answers.dialogs.push_back([&](QDialog& window) {
      QTimer::singleShot(0, &window, [&] {
        const ExportDialog dialog(window);
        dialog.click("cbHTML");
        work(dialog);
        isDone = true;
        dialog.click("cbabbrechen");
      });
    });
    for (auto& act : furtherDialogs)
      desk.answers.dialogs.push_back(act);
    desk.action("html").trigger();
    boxes = desk.answers.boxes;
    EXPECT_TRUE(isDone);
    EXPECT_FALSE(QApplication::activeModalWidget());
  }

  support::TemporaryProject project{{"00", "Start", heading("Start")}, {"01", "Haus", heading("Haus")}};
  std::filesystem::path site = project.directory().native() / "site";
  ProgramHome home;
  /// While the dialog is open.
  Answers* answers = nullptr;
  /// Texts of the boxes that came.
  std::vector<std::string> boxes;
  std::vector<std::function<void(QDialog&)>> furtherDialogs;
};

TEST_F(PublishingDesk, sends_the_site_and_shows_what_became_of_each_file)
{
  const support::FtpServer server("pyftpdlib");
  publishTo(server);

  inTheDialog([&](const ExportDialog& dialog) {
    dialog.click("cbftpverbindung");
    EXPECT_EQ(dialog.text("labelSeite"), "FTP: Verbindung hergestellt!");
    EXPECT_EQ(dialog.text("Labelftpverzeichnis"), server.server() + "/web/pix/");
    answers->buttons = {Button::Yes};
    dialog.click("cbftp");
    EXPECT_THAT(dialog.run(), Contains("index.htm: übertragen"));
    EXPECT_THAT(dialog.run(), Contains("pix/mrdbanner.gif: übertragen"));
    EXPECT_FALSE(dialog.find<QAbstractButton>("cberneut").isEnabled());
    EXPECT_THAT(dialog.selected("ListFTPHTML"), IsEmpty());
    EXPECT_THAT(dialog.selected("ListFTPpix"), IsEmpty());
  });
  EXPECT_EQ(server.root().read("web/01.htm"), project.directory().read("site/01.htm"));
  EXPECT_THAT(boxes, ElementsAre(HasSubstr("Die Übertragung ist beendet.")));
}

TEST_F(PublishingDesk, shows_a_servers_words_as_plain_text)
{
  const support::FtpServer server("scripted", {"answer=STOR:553 <img src=x><b>no</b>"});
  publishTo(server);

  inTheDialog([&](const ExportDialog& dialog) {
    dialog.click("cbftpverbindung");
    answers->buttons = {Button::No};
    dialog.click("cbftp");
    const auto tip = dialog.find<QTreeWidget>("ListLauf").topLevelItem(0)->toolTip(1).toStdString();
    EXPECT_THAT(tip, HasSubstr("&lt;b&gt;no"));
    EXPECT_THAT(dialog.run().front(), HasSubstr("553 <img src=x><b>no</b>"));
  });
}

TEST_F(PublishingDesk, shows_the_file_that_the_server_refused_and_sends_it_again_alone)
{
  const support::FtpServer server("scripted", {"refuse-name=01.htm", "forgives"});
  publishTo(server);

  inTheDialog([&](const ExportDialog& dialog) {
    dialog.click("cbftpverbindung");
    answers->buttons = {Button::No};
    dialog.click("cbftp");
    EXPECT_THAT(dialog.run(), Contains("01.htm: nicht übertragen: 553 this file is not allowed"));
    EXPECT_TRUE(dialog.find<QAbstractButton>("cberneut").isEnabled());
    const int sent = server.count("STOR");
    dialog.click("cberneut");
    EXPECT_THAT(dialog.run(), Contains("01.htm: übertragen"));
    EXPECT_EQ(server.count("STOR"), sent + 1);
    EXPECT_FALSE(dialog.find<QAbstractButton>("cberneut").isEnabled());
  });
  EXPECT_EQ(server.root().read("web/01.htm"), project.directory().read("site/01.htm"));
}

TEST_F(PublishingDesk, selects_what_belongs_to_no_page_and_deletes_it)
{
  const support::FtpServer server("pyftpdlib");
  publishTo(server);
  std::filesystem::create_directories(server.root().native() / "web" / "pix");
  server.root().write("web/alt.htm", "alt");
  server.root().write("web/pix/alt.jpg", "alt");

  inTheDialog([&](const ExportDialog& dialog) {
    dialog.click("cbftpverbindung");
    EXPECT_THAT(dialog.selected("ListFTPHTML"), ElementsAre("alt.htm"));
    EXPECT_THAT(dialog.selected("ListFTPpix"), ElementsAre("alt.jpg"));
    dialog.find<QTabWidget>("tabFTP").setCurrentIndex(1);
    answers->buttons = {Button::Yes};
    dialog.click("cbftplöschen");
    EXPECT_THAT(dialog.run(), ElementsAre("alt.htm: gelöscht"));
    EXPECT_EQ(dialog.find<QListWidget>("ListFTPHTML").count(), 0);
  });
  EXPECT_FALSE(std::filesystem::exists(server.root().native() / "web" / "alt.htm"));
  EXPECT_TRUE(std::filesystem::exists(server.root().native() / "web" / "pix" / "alt.jpg"));
}

TEST_F(PublishingDesk, deletes_what_the_user_has_selected_himself)
{
  const support::FtpServer server("pyftpdlib");
  publishTo(server);
  std::filesystem::create_directories(server.root().native() / "web" / "pix");
  for (const auto* const name : {"web/pix/a.jpg", "web/pix/b.jpg"})
    server.root().write(name, "alt");

  inTheDialog([&](const ExportDialog& dialog) {
    dialog.click("cbftpverbindung");
    auto& list = dialog.find<QListWidget>("ListFTPpix");
    list.findItems("a.jpg", Qt::MatchExactly).front()->setSelected(false);
    answers->buttons = {Button::Yes};
    dialog.click("cbftplöschen");
  });
  EXPECT_TRUE(std::filesystem::exists(server.root().native() / "web" / "pix" / "a.jpg"));
  EXPECT_FALSE(std::filesystem::exists(server.root().native() / "web" / "pix" / "b.jpg"));
}

TEST_F(PublishingDesk, sends_an_extra_file_into_the_directory_that_is_shown_in_lower_case)
{
  const support::FtpServer server("pyftpdlib");
  publishTo(server);
  project.directory().write("Plan B.PDF", "Plan");
  furtherDialogs.push_back(fileNamed(project.directory().native() / "Plan B.PDF"));

  inTheDialog([&](const ExportDialog& dialog) {
    dialog.click("cbftpverbindung");
    dialog.find<QTabWidget>("tabFTP").setCurrentIndex(1);
    dialog.click("cbzusätzlichftp");
    EXPECT_THAT(dialog.run(), ElementsAre("plan b.pdf: übertragen"));
    EXPECT_EQ(dialog.find<QListWidget>("ListFTPHTML").count(), 1);
    EXPECT_THAT(dialog.selected("ListFTPHTML"), IsEmpty());
  });
  EXPECT_EQ(server.root().read("web/plan b.pdf"), "Plan");
}

TEST_F(PublishingDesk, asks_for_a_password_that_is_not_stored)
{
  const support::FtpServer server("pyftpdlib");
  publishTo(server);
  project.setSetting("ftppasswort", "");
  furtherDialogs.emplace_back([&](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Mirandel: FTP-Passwort");
    auto& input = dynamic_cast<QInputDialog&>(dialog);
    input.setTextValue(QString::fromStdString(server.password()));
    input.accept();
  });

  inTheDialog([&](const ExportDialog& dialog) {
    dialog.click("cbftpverbindung");
    EXPECT_EQ(dialog.text("labelSeite"), "FTP: Verbindung hergestellt!");
  });
  EXPECT_EQ(project.setting("ftppasswort"), "");
}

TEST_F(PublishingDesk, asks_about_a_certificate_and_remembers_the_answer)
{
  const support::FtpServer server("pyftpdlib-tls");
  publishTo(server);
  const auto connect = [&](const ExportDialog& dialog) {
    answers->buttons = {Button::Yes};
    dialog.click("cbftpverbindung");
    EXPECT_EQ(dialog.text("labelSeite"), "FTP: Verbindung hergestellt!");
  };

  inTheDialog(connect);
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_THAT(boxes.front(), HasSubstr("SHA256:"));
  EXPECT_THAT(boxes.front(), HasSubstr(server.server()));

  inTheDialog(connect);
  EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(PublishingDesk, says_in_words_why_there_is_no_connection)
{
  support::FtpServer server("scripted");
  publishTo(server);
  server.stop();

  inTheDialog([&](const ExportDialog& dialog) {
    dialog.click("cbftpverbindung");
    EXPECT_EQ(dialog.text("labelSeite"), " 99");
    EXPECT_THAT(dialog.text("LabelErklärung"), HasSubstr("nimmt keine Verbindung an"));
    EXPECT_TRUE(dialog.find<QLabel>("LabelErklärung").isVisible());
  });
  EXPECT_THAT(boxes, ElementsAre(HasSubstr("Der Fehler 99 ist aufgetreten.")));
}

TEST_F(PublishingDesk, stays_alive_with_a_silent_server_and_stops_at_the_click_on_close)
{
  const support::FtpServer server("scripted", {"hang=STOR"});
  publishTo(server);

  inTheDialog([&](const ExportDialog& dialog) {
    dialog.click("cbftpverbindung");
    // The seconds run while the server is silent.
    const auto& seconds = dialog.find<QAbstractButton>("labelSekunden");
    const auto isWaiting = [&] { return server.count("STOR") > 0 && seconds.isVisible() && seconds.text() != "0,0 Sek./Dat."; };
    once(dialog.dialog, isWaiting, [&] { dialog.click("cbabbrechen"); });
    dialog.click("cbftp");
    EXPECT_TRUE(dialog.dialog.isVisible());
    EXPECT_EQ(dialog.text("labelSeite"), "FTP: abgebrochen");
    EXPECT_FALSE(dialog.find<QAbstractButton>("labelSekunden").isVisible());
    EXPECT_TRUE(dialog.find<QAbstractButton>("cberneut").isEnabled());
  });
  EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(PublishingDesk, gives_up_waiting_at_a_click_on_the_seconds)
{
  const support::FtpServer server("scripted", {"hang=STOR"});
  publishTo(server);

  inTheDialog([&](const ExportDialog& dialog) {
    dialog.click("cbftpverbindung");
    once(
        dialog.dialog, [&] { return server.count("STOR") > 0; }, [&] { dialog.click("labelSekunden"); });
    dialog.click("cbftp");
    // The client is busy with the first file: nothing else could start.
    EXPECT_THAT(dialog.run().front(), HasSubstr("nicht gewartet"));
    EXPECT_THAT(dialog.run()[1], HasSubstr("noch offen"));
  });
  EXPECT_THAT(boxes, ElementsAre(HasSubstr("Hinweis: Probleme bei der FTP Übertragung:")));
}

TEST_F(PublishingDesk, takes_no_second_click_while_a_run_is_under_way)
{
  const support::FtpServer server("scripted", {"hang=STOR"});
  publishTo(server);

  inTheDialog([&](const ExportDialog& dialog) {
    dialog.click("cbftpverbindung");
    const int listings = server.count("MLSD");
    const auto click = [&] {
      for (const auto* const name : {"cbHTML", "cbftpverbindung", "cbftp", "cbftplöschen", "cbzusätzlichftp", "cberneut"})
        dialog.click(name);
      dialog.click("cbabbrechen");
    };
    once(
        dialog.dialog, [&] { return server.count("STOR") > 0; }, click);
    dialog.click("cbftp");
    EXPECT_EQ(server.count("MLSD"), listings);
  });
}

} // namespace
} // namespace mrd::desktop
