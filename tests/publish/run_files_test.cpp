#include "publish/desk.h"
#include "publish/remembered_servers.h"

#include <gmock/gmock.h>

namespace mrd::publish {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using ui::Button;
using Fate = RunFile::Fate;

std::vector<std::string> fates(const Publishing& dialog, std::string_view Sprache = "GER")
{
  std::vector<std::string> lines;
  for (const auto& file : dialog.files.all())
    lines.push_back(file.shownName() + ": " + fateText(file, Sprache));
  return lines;
}

struct RunListTest : testing::Test {
  RunListTest()
  {
    desk.addFile("index", "htm", 1);
    desk.addFile("haus", "htm", 1);
    desk.addFile("haus", "jpg", 2);
    desk.connect();
    desk.forgetCommands();
  }

  Desk desk;
};

TEST_F(RunListTest, names_every_file_before_the_first_is_sent)
{
  std::vector<std::string> atFirst;
  desk.dialog.files.replaced = [&] { atFirst = fates(desk.dialog); };
  desk.program.ui.expect(31, "", Button::No);

  desk.dialog.cbftp_Click();

  EXPECT_THAT(atFirst, ElementsAre("index.htm: noch offen", "haus.htm: noch offen", "pix/haus.jpg: noch offen"));
  EXPECT_THAT(fates(desk.dialog, "ENG"), ElementsAre("index.htm: sent", "haus.htm: sent", "pix/haus.jpg: sent"));
  EXPECT_EQ(desk.dialog.files.summary("GER"), "3 übertragen");
}

TEST_F(RunListTest, keeps_the_pages_that_a_click_on_the_seconds_left_out)
{
  desk.client.answers["PUT \"\\site\\index.htm\" index.htm"] = {{0, "", "", 0, 1000}};
  desk.client.onRound = [&] {
    if (desk.client.commands.back().starts_with("PUT \"\\site\\index.htm"))
      desk.dialog.labelSekunden_Click();
  };
  desk.program.ui.expect(31, "", Button::No);

  desk.dialog.cbftp_Click();

  EXPECT_THAT(fates(desk.dialog), ElementsAre("index.htm: nicht übertragen: Auf das Ende der Übertragung wurde nicht gewartet.",
                                              "haus.htm: noch offen", "pix/haus.jpg: übertragen"));
  desk.forgetCommands();
  desk.client.onRound = [] {};
  desk.client.answers.clear();

  desk.dialog.sendFailedAgain();

  EXPECT_THAT(desk.client.commands,
              ElementsAre("CD /web", "PUT \"\\site\\index.htm\" index.htm", "PUT \"\\site\\haus.htm\" haus.htm"));
  EXPECT_FALSE(desk.dialog.files.hasUnsent());
}

TEST_F(RunListTest, of_a_stopped_run_can_be_sent_later)
{
  desk.client.answers["PUT \"\\site\\haus.htm\" haus.htm"] = {{0, "", "", 0, 1000}};
  desk.client.onRound = [&] {
    if (desk.client.commands.back().starts_with("PUT \"\\site\\haus.htm"))
      desk.dialog.stop();
  };

  desk.dialog.cbftp_Click();

  // Neither a question nor a further attempt.
  EXPECT_THAT(desk.client.commands,
              ElementsAre("CD /web", "PUT \"\\site\\index.htm\" index.htm", "PUT \"\\site\\haus.htm\" haus.htm"));
  EXPECT_GE(desk.client.cancelled, 1);
  EXPECT_THAT(fates(desk.dialog),
              ElementsAre("index.htm: übertragen", "haus.htm: nicht übertragen: Die Übertragung wurde abgebrochen.",
                          "pix/haus.jpg: noch offen"));
  EXPECT_EQ(desk.dialog.files.summary("GER"), "1 übertragen, 1 nicht übertragen, 1 noch offen");
  EXPECT_FALSE(desk.dialog.isRunning());
  EXPECT_FALSE(desk.dialog.channel.labelSekunden.isVisible);
  EXPECT_FALSE(desk.dialog.channel.ProgressBar1.isVisible);
}

TEST_F(RunListTest, stops_also_between_two_attempts)
{
  desk.client.always.error = 12029;
  desk.timer.step = 0.25F;
  desk.dialog.channel.changed = [&] {
    if (desk.state() == "FTP: Versuch Nr.2")
      desk.dialog.stop();
  };

  desk.connect();

  EXPECT_EQ(desk.client.commands, std::vector<std::string>(2, "cd web"));
  EXPECT_EQ(desk.state(), "FTP: abgebrochen");
}

TEST_F(RunListTest, tells_what_became_of_a_file_in_the_users_language)
{
  desk.program.language.setSprache("ENG");
  desk.client.answers["PUT \"\\site\\haus.htm\" haus.htm"] = {{0, "", "", 0, 1000}};
  desk.client.onRound = [&] {
    if (desk.client.commands.back().starts_with("PUT \"\\site\\haus.htm"))
      desk.dialog.stop();
  };

  desk.dialog.cbftp_Click();

  EXPECT_EQ(desk.client.Sprache, "ENG");
  EXPECT_EQ(fateText(desk.dialog.files[1], "ENG"), "not sent: The transfer was stopped.");
  EXPECT_EQ(desk.state(), "FTP: stopped");
}

TEST_F(RunListTest, takes_no_second_click_meanwhile)
{
  desk.client.always.rounds = 1;
  desk.client.onRound = [&] {
    desk.dialog.cbftpverbindung_Click();
    desk.dialog.cbftp_Click();
    desk.dialog.cbzusätzlichftp_Click();
  };
  desk.program.ui.expect(31, "", Button::No);

  desk.dialog.cbftp_Click();

  EXPECT_EQ(desk.client.commands.size(), 5u);
}

TEST_F(RunListTest, deletes_what_the_user_agreed_to_also_when_he_selects_meanwhile)
{
  desk.list("", "a.gif\r\nb.gif\r\nc.gif\r\n");
  desk.connect();
  auto& entries = desk.dialog.ListFTPpix.entries;
  entries[1].isSelected = false;
  desk.forgetCommands();
  desk.client.onRound = [&] {
    if (desk.client.commands.back() == "CD pix")
      entries[1].isSelected = true;
  };
  desk.program.ui.expect(33, "", Button::Yes);

  desk.dialog.cbftplöschen_Click();

  EXPECT_THAT(desk.client.commands, ElementsAre("CD /web", "CD pix", "DELETE a.gif", "DELETE c.gif"));
  ASSERT_EQ(entries.size(), 1u);
  EXPECT_EQ(entries[0].text, "b.gif");
}

TEST_F(RunListTest, has_an_extra_file_that_was_refused)
{
  desk.program.ui.answerOpenDialog("\\Bilder\\FOTO.JPG");
  desk.client.answers["PUT \"\\Bilder\\FOTO.JPG\" foto.jpg"] = {{12003, "552 voll"}, {}};
  desk.dialog.cbzusätzlichftp_Click();
  EXPECT_THAT(fates(desk.dialog), ElementsAre("pix/foto.jpg: nicht übertragen: 552 voll"));
  desk.forgetCommands();

  desk.dialog.sendFailedAgain();

  EXPECT_THAT(desk.client.commands, ElementsAre("CD /web", "CD pix", "PUT \"\\Bilder\\FOTO.JPG\" foto.jpg"));
  EXPECT_THAT(fates(desk.dialog), ElementsAre("pix/foto.jpg: übertragen"));
}

TEST_F(RunListTest, explains_a_failure_in_the_clients_words)
{
  desk.client.always = {12029, "Der Server nimmt keine Verbindung an.", "", 12029};
  desk.timer.step = 0.25F;
  desk.program.ui.expect(36, " 99");

  desk.connect();

  EXPECT_EQ(desk.dialog.explanation, "Der Server nimmt keine Verbindung an.");
}

TEST(RememberedServersTest, are_asked_about_once_and_again_when_they_change)
{
  support::TestProgram program;
  const support::TemporaryDirectory folder;
  files::UserSettings settings((folder.native() / "settings.ini").string());
  RememberedServers servers(settings, program.language, OnChange::Ask);
  ftp::ServerIdentity identity{"ftp.example.org:21", "SHA256:a", "self-signed", false};

  program.ui.expect(116, "SHA256:a", Button::No);
  EXPECT_FALSE(servers.trusts(identity));
  EXPECT_FALSE(servers.isKnown(identity.server));
  program.ui.expect(116, "ftp.example.org:21", Button::Yes);
  EXPECT_TRUE(servers.trusts(identity));
  EXPECT_TRUE(servers.trusts(identity));
  EXPECT_TRUE(servers.isKnown(identity.server));

  identity.fingerprint = "SHA256:b";
  program.ui.expect(117, "SHA256:b", Button::No);
  EXPECT_FALSE(servers.trusts(identity));

  identity = {"ftp.example.org:22", "SHA256:c", "", true};
  program.ui.expect(118, "SHA256:c", Button::Yes);
  EXPECT_TRUE(servers.trusts(identity));
  identity.fingerprint = "SHA256:d";
  program.ui.expect(119, "SHA256:d", Button::Yes);
  EXPECT_TRUE(servers.trusts(identity));
}

TEST(RememberedServersTest, that_have_changed_are_refused_where_nobody_is_asked_and_stay_as_they_were_known)
{
  support::TestProgram program;
  const support::TemporaryDirectory folder;
  files::UserSettings settings((folder.native() / "settings.ini").string());
  RememberedServers servers(settings, program.language, OnChange::Refuse);
  program.ui.expect(116, "SHA256:a", Button::Yes).expect(118, "SHA256:c", Button::Yes);
  EXPECT_TRUE(servers.trusts({"ftp.example.org:21", "SHA256:a", "", false}));
  EXPECT_TRUE(servers.trusts({"ftp.example.org:22", "SHA256:c", "", true}));

  program.ui.expect(180, "SHA256:b").expect(180, settings.file());
  EXPECT_FALSE(servers.trusts({"ftp.example.org:21", "SHA256:b", "", false}));
  EXPECT_FALSE(servers.trusts({"ftp.example.org:22", "SHA256:d", "", true}));

  EXPECT_TRUE(servers.trusts({"ftp.example.org:21", "SHA256:a", "", false}));
}

} // namespace
} // namespace mrd::publish
