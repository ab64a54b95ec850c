#include "publish/desk.h"

#include <gmock/gmock.h>

namespace mrd::publish {
namespace {

using testing::ElementsAre;
using ui::Button;
using Steps = std::vector<std::pair<std::size_t, std::size_t>>;

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
  EXPECT_EQ(desk.program.ui.progressSteps, (Steps{{5, 6}, {1, 2}, {2, 2}, {1, 1}}));
  EXPECT_FALSE(desk.dialog.channel.ProgressBar1.isVisible);
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
  EXPECT_EQ(desk.dialog.files[0].problem, "kaputt");
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

TEST_F(UploadTest, that_is_cancelled_at_a_page_leaves_the_other_pages_out_and_sends_the_pictures)
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

TEST_F(UploadTest, that_is_cancelled_at_a_picture_goes_on_with_the_next_one)
{
  Desk desk;
  prepare(desk);
  desk.addFile("zweites", "jpg", 2);
  desk.client.answers[kAllCommands[4]] = {{0, "", "", 0, 1000}};
  desk.timer.step = 1;
  desk.program.ui.expect(0, "abgebrochen", Button::Yes).expect(31, "", Button::No);

  desk.dialog.cbftp_Click();

  EXPECT_EQ(desk.client.cancelled, 1);
  EXPECT_EQ(desk.client.commands.back(), "PUT \"\\site\\zweites.jpg\" zweites.jpg");
  EXPECT_THAT(desk.program.ui.statusTexts, testing::Contains("FTP: haus.jpg  erfolgreich übertragen."));
  EXPECT_FALSE(desk.dialog.files[2].isConfirmed());
  EXPECT_TRUE(desk.dialog.files[3].isConfirmed());
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
  EXPECT_EQ(desk.dialog.explanation, "kaputt");
  EXPECT_FALSE(desk.dialog.isRunComplete);
}

TEST_F(UploadTest, that_never_began_keeps_nothing_of_an_earlier_run)
{
  Desk desk;
  prepare(desk);
  desk.program.ui.expect(31, "", Button::No).expect(0, "Fehler bei der FTPÜbertragung:");
  desk.dialog.cbftp_Click();
  EXPECT_TRUE(desk.dialog.isRunComplete);
  desk.client.answers["CD /web"] = {{0, "", "", 12029}};
  desk.timer.step = 0.25F;

  desk.dialog.cbftp_Click();

  EXPECT_FALSE(desk.dialog.isRunComplete);
  EXPECT_EQ(desk.dialog.files.size(), 0u);
}

TEST_F(UploadTest, of_the_telephone_edition_tells_by_message_34_that_the_database_fails_at_every_attempt)
{
  Desk desk(kImode);
  prepare(desk);
  desk.breakDatabase();
  desk.timer.step = 0.25F;
  desk.program.ui.expect(34, " 3");

  desk.dialog.cbftp_Click();

  EXPECT_EQ(desk.client.commands, std::vector<std::string>(6, "CD /i"));
  EXPECT_FALSE(desk.dialog.explanation.empty());
  EXPECT_FALSE(desk.dialog.isRunComplete);
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
  EXPECT_EQ(desk.program.ui.progressSteps, (Steps{{0, 2}, {1, 2}, {2, 2}}));
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

TEST_F(DeleteTest, takes_from_the_list_also_what_the_server_refused_and_tells_it_in_the_list_of_the_run)
{
  Desk desk;
  prepareLists(desk);
  desk.client.answers["DELETE fremd.gif"] = {{12003, "550 no"}};
  desk.program.ui.expect(33, "", Button::Yes);

  desk.dialog.cbftplöschen_Click();

  ASSERT_EQ(desk.dialog.ListFTPpix.entries.size(), 1u);
  EXPECT_EQ(desk.dialog.ListFTPpix.entries[0].text, "haus.jpg");
  EXPECT_EQ(desk.dialog.files[0].fate, RunFile::Fate::Failed);
  EXPECT_EQ(fateText(desk.dialog.files[0], "GER"), "nicht gelöscht: 550 no");
}

TEST_F(DeleteTest, makes_no_file_without_extension_due_again_whose_column_is_unset)
{
  Desk desk;
  prepareLists(desk);
  desk.addFile("bild", "", 2, false);
  desk.dialog.ListFTPpix.entries = {{"bild", true}};
  desk.program.ui.expect(33, "", Button::Yes);

  desk.dialog.cbftplöschen_Click();

  EXPECT_FALSE(desk.isDue("bild"));
}

TEST_F(DeleteTest, tells_by_message_34_that_the_database_fails_at_every_attempt_and_keeps_the_list)
{
  Desk desk;
  prepareLists(desk);
  desk.breakDatabase();
  desk.timer.step = 0.25F;
  desk.program.ui.expect(33, "", Button::Yes).expect(34, " 3");

  desk.dialog.cbftplöschen_Click();

  EXPECT_TRUE(desk.client.commands.empty());
  EXPECT_EQ(desk.program.ui.progressSteps, Steps(6, {0, 1}));
  EXPECT_EQ(desk.dialog.ListFTPpix.entries.size(), 2u);
  EXPECT_FALSE(desk.dialog.channel.ProgressBar1.isVisible);
}

TEST(ExtraFile, is_sent_and_listed_in_lower_case)
{
  Desk desk;
  desk.connect();
  desk.forgetCommands();
  desk.program.ui.progressSteps.clear();
  desk.program.ui.answerOpenDialog("\\Bilder\\FOTO.JPG");

  desk.dialog.cbzusätzlichftp_Click();

  EXPECT_THAT(desk.client.commands, ElementsAre("CD /web", "CD pix", "PUT \"\\Bilder\\FOTO.JPG\" foto.jpg"));
  EXPECT_EQ(desk.dialog.ListFTPpix.entries.back().text, "foto.jpg");
  EXPECT_FALSE(desk.dialog.ListFTPpix.entries.back().isSelected);
  EXPECT_EQ(desk.program.ui.fileDialogs[0].title, "Zusätzliche Datei übertragen");
  EXPECT_EQ(desk.program.ui.fileDialogs[0].filter, "*.*|*.*");
  EXPECT_EQ(desk.rows(5), 0u);
  EXPECT_EQ(desk.program.ui.progressSteps, (Steps{{1, 3}, {2, 3}, {3, 3}}));
  EXPECT_EQ(desk.state(), "Fertig!");
}

TEST(ExtraFile, opens_the_chooser_at_every_attempt_and_tells_the_failure_that_remains_by_message_34_without_value)
{
  Desk desk;
  desk.connect();
  desk.forgetCommands();
  for (int i = 0; i < 6; ++i)
    desk.program.ui.answerOpenDialog("\\Bilder\\FOTO.JPG");
  desk.dialog.files.replaced = [] { throw base::Error(base::ErrorNumber::EngineError, "kaputt"); };
  desk.timer.step = 0.25F;
  desk.program.ui.expect(34);

  desk.dialog.cbzusätzlichftp_Click();

  EXPECT_EQ(desk.program.ui.fileDialogs.size(), 6u);
  EXPECT_THAT(desk.program.ui.messages.back().text, testing::Not(testing::HasSubstr("3146")));
  EXPECT_FALSE(desk.dialog.channel.ProgressBar1.isVisible);
  EXPECT_EQ(desk.dialog.explanation, "kaputt");
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
