#include "publish/desk.h"

#include <gmock/gmock.h>

namespace mrd::publish {
namespace {

using testing::ElementsAre;
using ui::Button;

struct UploadTest : testing::Test {
  static void prepare(Desk& desk)
  {
    desk.addFile("index", "htm", 1);
    desk.addFile("mrdnav", "js", 1);
    desk.addFile("haus", "jpg", 2);
    desk.addFile("alt", "jpg", 2, false);
    desk.connect();
    desk.forgetCommands();
    desk.program.ui.statusTexts.clear();
    desk.program.ui.progressSteps.clear();
  }
};

const std::vector<std::string> kAllCommands{"CD /web", "PUT \"\\site\\index.htm\" index.htm",
                                            "PUT \"\\site\\mrdnav.js\" mrdnav.js", "CD pix", "PUT \"\\site\\haus.jpg\" haus.jpg"};

TEST_F(UploadTest, sends_all_pages_and_the_pictures_that_are_due)
{
  Desk desk;
  prepare(desk);
  desk.program.ui.expect(31, "", Button::No);

  desk.dialog.cbftp_Click();

  EXPECT_EQ(desk.client.commands, kAllCommands);
  EXPECT_THAT(desk.program.ui.statusTexts,
              ElementsAre("FTP: HTML-Dateien werden übertragen!", "FTP: index.htm  erfolgreich übertragen.",
                          "FTP: mrdnav.js  erfolgreich übertragen.", "FTP: haus.jpg  erfolgreich übertragen.", "Fertig!"));
  EXPECT_EQ(desk.dialog.files.size(), 3u);
  EXPECT_TRUE(desk.dialog.files[2].isConfirmed());
  EXPECT_TRUE(desk.isDue("haus"));
}

TEST_F(UploadTest, reads_the_server_again_where_the_user_wants_it)
{
  Desk desk;
  prepare(desk);
  desk.program.ui.expect(31, "", Button::Yes);

  desk.dialog.cbftp_Click();

  const std::vector<std::string> tail(desk.client.commands.end() - 4, desk.client.commands.end());
  EXPECT_THAT(tail, ElementsAre("cd web", "dir", "cd pix", "dir"));
}

TEST_F(UploadTest, without_files_still_changes_the_directory_and_ends)
{
  Desk desk;
  desk.connect();
  desk.forgetCommands();
  desk.program.ui.expect(31, "", Button::No);

  desk.dialog.cbftp_Click();

  EXPECT_THAT(desk.client.commands, ElementsAre("CD /web", "CD pix"));
  EXPECT_EQ(desk.dialog.channel.ProgressBar1.maximum, 6u);
}

TEST_F(UploadTest, sends_due_pictures_again_without_a_reading_in_between)
{
  Desk desk;
  prepare(desk);
  desk.program.ui.expect(31, "", Button::No).expect(31, "", Button::No);

  desk.dialog.cbftp_Click();
  desk.dialog.cbftp_Click();

  EXPECT_EQ(std::count(desk.client.commands.begin(), desk.client.commands.end(), kAllCommands[4]), 2);
}

TEST_F(UploadTest, names_a_file_without_extension_with_its_dot)
{
  Desk desk;
  desk.addFile("liesmich", "", 1);
  desk.program.ui.expect(31, "", Button::No);

  desk.dialog.cbftp_Click();

  EXPECT_EQ(desk.client.commands[1], "PUT \"\\site\\liesmich.\" liesmich.");
}

TEST_F(UploadTest, shows_a_page_that_did_not_start_and_goes_on)
{
  Desk desk;
  prepare(desk);
  desk.client.answers[kAllCommands[1]] = {{0, "", "", 53}};
  desk.program.ui.expect(31, "", Button::No);

  desk.dialog.cbftp_Click();

  EXPECT_THAT(desk.program.ui.statusTexts, testing::Contains("Problem :  53"));
  EXPECT_EQ(desk.client.commands, kAllCommands);
  EXPECT_FALSE(desk.dialog.files[0].isConfirmed());
}

TEST_F(UploadTest, tells_at_its_end_that_the_last_file_did_not_start)
{
  Desk desk;
  prepare(desk);
  desk.client.answers[kAllCommands[4]] = {{0, "", "", 53}};
  desk.program.ui.expect(0, "Hinweis: Probleme bei der FTP Übertragung:\r\n 53");

  desk.dialog.cbftp_Click();

  EXPECT_THAT(desk.program.ui.statusTexts, testing::Contains("FTP: haus.jpg  erfolgreich übertragen."));
}

TEST_F(UploadTest, tells_again_what_no_later_file_has_replaced)
{
  Desk desk;
  prepare(desk);
  desk.client.answers[kAllCommands[4]] = {{0, "", "", 53}};
  desk.program.ui.expect(0, "Hinweis: Probleme bei der FTP Übertragung:\r\n 53");
  desk.dialog.cbftp_Click();
  desk.project.db().execute("DELETE * FROM Dateien");
  desk.program.ui.expect(0, "Hinweis: Probleme bei der FTP Übertragung:\r\n 53");

  desk.dialog.cbftp_Click();

  EXPECT_EQ(desk.dialog.files.size(), 0u);
}

TEST_F(UploadTest, keeps_in_its_list_what_the_server_refused_and_sends_that_alone)
{
  Desk desk;
  prepare(desk);
  desk.client.answers[kAllCommands[2]] = {{12003, "552 voll"}, {}};
  desk.program.ui.expect(31, "", Button::No);
  desk.dialog.cbftp_Click();
  EXPECT_THAT(desk.program.ui.statusTexts, testing::Contains("FTP: mrdnav.js  erfolgreich übertragen."));
  EXPECT_FALSE(desk.dialog.files[1].isConfirmed());
  EXPECT_EQ(desk.dialog.files[1].problem, "552 voll");
  desk.forgetCommands();

  desk.dialog.sendFailedAgain();

  EXPECT_THAT(desk.client.commands, ElementsAre("CD /web", kAllCommands[2]));
  EXPECT_TRUE(desk.dialog.files[1].isConfirmed());
}

TEST_F(UploadTest, stalls_at_one_file_and_goes_on_with_the_next)
{
  Desk desk;
  prepare(desk);
  desk.client.answers[kAllCommands[1]] = {{0, "", "", 0, 1000}};
  desk.timer.step = 1;
  desk.program.ui.expect(0, "abgebrochen", Button::Yes).expect(31, "", Button::No);

  desk.dialog.cbftp_Click();

  // The loop of the pages looks at the wish to stop; the pictures follow all the same.
  EXPECT_EQ(desk.client.cancelled, 1);
  EXPECT_THAT(desk.program.ui.statusTexts, testing::Contains("FTP: index.htm  erfolgreich übertragen."));
  EXPECT_THAT(desk.client.commands, ElementsAre(kAllCommands[0], kAllCommands[1], kAllCommands[3], kAllCommands[4]));
  EXPECT_FALSE(desk.dialog.files[0].isConfirmed());
}

TEST_F(UploadTest, begins_again_from_the_first_page_after_an_error_of_its_own)
{
  Desk desk;
  prepare(desk);
  desk.client.answers["CD /web"] = {{0, "", "", 12029}, {}};
  desk.timer.step = 0.25F;
  desk.program.ui.expect(31, "", Button::No);

  desk.dialog.cbftp_Click();

  auto expected = kAllCommands;
  expected.insert(expected.begin(), "CD /web");
  EXPECT_EQ(desk.client.commands, expected);
}

TEST_F(UploadTest, tells_the_error_that_remained_after_all_attempts)
{
  Desk desk;
  prepare(desk);
  desk.client.answers["CD /web"] = {{0, "", "", 12029}};
  desk.timer.step = 0.25F;
  desk.program.ui.expect(0, "Fehler bei der FTPÜbertragung:  12029");

  desk.dialog.cbftp_Click();

  EXPECT_EQ(desk.state(), " 12029");
}

TEST_F(UploadTest, of_the_telephone_edition_looks_at_no_failure_and_ends_with_the_question)
{
  Desk desk(kImode);
  prepare(desk);
  desk.client.always.error = 12029;
  desk.program.ui.expect(31, "", Button::No);

  desk.dialog.cbftp_Click();

  EXPECT_EQ(desk.client.commands[0], "CD /i");
  EXPECT_EQ(desk.client.commands.size(), 5u);
  EXPECT_THAT(desk.program.ui.statusTexts, testing::Contains("FTP: index.htm  erfolgreich übertragen."));
}

struct DeleteTest : UploadTest {
  static void prepareLists(Desk& desk)
  {
    desk.addFile("haus", "jpg", 2);
    desk.list("alt.htm\r\n", "haus.jpg\r\nfremd.gif\r\n");
    desk.connect();
    desk.forgetCommands();
    desk.program.ui.progressSteps.clear();
  }
};

TEST_F(DeleteTest, without_a_selection_is_message_32_and_no_command)
{
  Desk desk;
  desk.program.ui.expect(32);

  desk.dialog.cbftplöschen_Click();

  EXPECT_TRUE(desk.client.commands.empty());
}

TEST_F(DeleteTest, changes_nothing_on_no)
{
  Desk desk;
  prepareLists(desk);
  desk.dialog.channel.Versuch = 3;
  desk.program.ui.expect(33, "", Button::No);

  desk.dialog.cbftplöschen_Click();

  EXPECT_TRUE(desk.client.commands.empty());
  EXPECT_EQ(desk.dialog.channel.Versuch, 3);
}

TEST_F(DeleteTest, deletes_the_selected_pictures_and_makes_the_projects_own_due_again)
{
  Desk desk;
  prepareLists(desk);
  EXPECT_FALSE(desk.isDue("haus"));
  desk.dialog.ListFTPpix.entries[0].isSelected = true;
  desk.program.ui.expect(33, "", Button::Yes);

  desk.dialog.cbftplöschen_Click();

  EXPECT_THAT(desk.client.commands, ElementsAre("CD /web", "CD pix", "DELETE haus.jpg", "DELETE fremd.gif"));
  EXPECT_TRUE(desk.isDue("haus"));
  EXPECT_TRUE(desk.dialog.ListFTPpix.entries.empty());
  EXPECT_EQ(desk.rows(5), 2u);
  EXPECT_EQ(desk.program.ui.progressSteps, (std::vector<std::pair<std::size_t, std::size_t>>{{0, 2}, {1, 2}, {2, 2}}));
  EXPECT_EQ(desk.state(), "Fertig!");
}

TEST_F(DeleteTest, works_on_the_pages_of_the_other_tab)
{
  Desk desk;
  prepareLists(desk);
  desk.dialog.tabFTP = 1;
  desk.program.ui.expect(33, "", Button::Yes);

  desk.dialog.cbftplöschen_Click();

  EXPECT_THAT(desk.client.commands, ElementsAre("CD /web", "DELETE alt.htm"));
}

TEST_F(DeleteTest, keeps_the_names_that_the_server_would_not_delete)
{
  Desk desk;
  prepareLists(desk);
  desk.client.answers["DELETE fremd.gif"] = {{12003, "550 no"}};
  desk.program.ui.expect(33, "", Button::Yes);

  desk.dialog.cbftplöschen_Click();

  EXPECT_EQ(desk.dialog.files[0].fate, RunFile::Fate::Failed);
  EXPECT_EQ(fateText(desk.dialog.files[0], "GER"), "nicht gelöscht: 550 no");
}

TEST(ExtraFile, is_sent_and_listed_in_lower_case)
{
  Desk desk;
  desk.connect();
  desk.forgetCommands();
  desk.program.ui.answerOpenDialog("\\Bilder\\FOTO.JPG");

  desk.dialog.cbzusätzlichftp_Click();

  EXPECT_THAT(desk.client.commands, ElementsAre("CD /web", "CD pix", "PUT \"\\Bilder\\FOTO.JPG\" foto.jpg"));
  EXPECT_EQ(desk.dialog.ListFTPpix.entries.back().text, "foto.jpg");
  EXPECT_FALSE(desk.dialog.ListFTPpix.entries.back().isSelected);
  EXPECT_EQ(desk.program.ui.fileDialogs[0].title, "Zusätzliche Datei übertragen");
  EXPECT_EQ(desk.program.ui.fileDialogs[0].filter, "*.*|*.*");
  EXPECT_EQ(desk.rows(5), 0u);
}

TEST(ExtraFile, left_with_cancel_sends_no_command_and_shows_no_progress)
{
  Desk desk;
  desk.program.ui.answerOpenDialog(std::nullopt);

  desk.dialog.cbzusätzlichftp_Click();

  EXPECT_TRUE(desk.client.commands.empty());
  EXPECT_TRUE(desk.program.ui.progressSteps.empty());
}

} // namespace
} // namespace mrd::publish
