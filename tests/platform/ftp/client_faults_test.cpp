#include "platform/ftp/client_desk.h"

#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

namespace mrd::ftp {
namespace {

using testing::HasSubstr;
using testing::Not;
using namespace std::chrono_literals;

struct FaultTest : testing::Test {
  FaultTest() { local.write("seite.htm", std::string(300000, 'x')); }
  int put(ClientDesk& desk) const { return desk.put(local.file("seite.htm"), "index.htm"); }

  support::TemporaryDirectory local;
};

int codeOfFailure(ClientDesk& desk, const std::string& operation)
{
  try {
    desk.run(operation);
  } catch (const base::Error& error) {
    return error.number();
  }
  return 0;
}

TEST_F(FaultTest, a_wrong_password_is_told_once_in_the_servers_words_and_never_the_password)
{
  const support::FtpServer server("scripted", {"login=530 %P is wrong"});
  ClientDesk desk(server);

  EXPECT_EQ(desk.run("cd web"), code::kLoginDenied);

  EXPECT_THAT(desk.client.ResponseInfo(), testing::AllOf(HasSubstr("530"), Not(HasSubstr(server.password()))));
  EXPECT_EQ(codeOfFailure(desk, "dir"), code::kLoginDenied);
  EXPECT_EQ(desk.client.ResponseCode(), 0);
  EXPECT_EQ(server.count("USER"), 1);
  desk.client.backToLogin();
  EXPECT_EQ(desk.run("cd web"), code::kLoginDenied);
  EXPECT_EQ(server.count("USER"), 2);
}

TEST_F(FaultTest, a_host_without_an_address_is_told_by_its_name)
{
  ClientDesk desk(support::FtpServer("scripted"));
  desk.url = addressOf("kein-server.invalid", "anna", "geheim");

  EXPECT_EQ(desk.run("cd web"), code::kHostNotFound);
  EXPECT_THAT(desk.client.ResponseInfo(), HasSubstr("kein-server.invalid"));
}

TEST_F(FaultTest, a_refused_port_is_an_error_at_every_attempt)
{
  support::FtpServer server("scripted");
  ClientDesk desk(server);
  server.stop();

  EXPECT_EQ(codeOfFailure(desk, "cd web"), code::kCannotConnect);
  EXPECT_EQ(codeOfFailure(desk, "cd web"), code::kCannotConnect);
  EXPECT_THAT(desk.client.ResponseInfo(), HasSubstr("127.0.0.1"));
}

TEST_F(FaultTest, a_connection_that_was_closed_while_idle_is_made_again_in_its_directory)
{
  for (const auto* const fault : {"drop-idle=RNTO", "drop=EPSV"}) {
    const support::FtpServer server("scripted", {fault});
    server.root().write("web/pix/alt.jpg", "x");
    ClientDesk desk(server);
    desk.run("cd web");
    desk.run("cd pix");
    put(desk);
    std::this_thread::sleep_for(50ms);

    EXPECT_EQ(put(desk), code::kNone) << fault << desk.client.ResponseInfo();
    EXPECT_EQ(server.root().read("web/pix/index.htm").size(), 300000u);
    EXPECT_EQ(server.count("(connection)"), 2) << fault;
  }
}

TEST_F(FaultTest, a_server_gone_in_the_middle_of_a_file_leaves_the_old_one_and_takes_the_next)
{
  const support::FtpServer server("scripted", {"drop-data=1000"});
  server.root().write("web/index.htm", "alt");
  ClientDesk desk(server);
  desk.run("cd web");

  EXPECT_EQ(put(desk), code::kConnectionLost);
  EXPECT_EQ(server.root().read("web/index.htm"), "alt");
  EXPECT_EQ(put(desk), code::kNone) << desk.client.ResponseInfo();
  EXPECT_EQ(server.root().read("web/index.htm").size(), 300000u);
}

TEST_F(FaultTest, a_full_disk_leaves_the_old_file_and_is_told_in_the_servers_words)
{
  const support::FtpServer server("scripted", {"full=1000"});
  server.root().write("index.htm", "alt");
  ClientDesk desk(server);

  EXPECT_EQ(put(desk), code::kRefused);

  EXPECT_THAT(desk.client.ResponseInfo(), HasSubstr("552 disk quota exceeded"));
  EXPECT_EQ(server.root().read("index.htm"), "alt");
  EXPECT_EQ(desk.listing(), "index.htm\r\n");
}

TEST_F(FaultTest, a_file_that_arrived_cut_off_is_not_confirmed_and_replaces_nothing)
{
  const support::FtpServer server("scripted", {"short"});
  server.root().write("index.htm", "alt");
  ClientDesk desk(server);

  EXPECT_EQ(put(desk), code::kNotConfirmed);
  EXPECT_EQ(server.root().read("index.htm"), "alt");
  EXPECT_EQ(desk.listing(), "index.htm\r\n");
}

TEST_F(FaultTest, a_file_that_arrived_cut_off_replaces_nothing_where_the_size_is_told_among_other_facts)
{
  const support::FtpServer server("scripted", {"short", "no-size"});
  server.root().write("index.htm", "alt");
  ClientDesk desk(server);

  EXPECT_EQ(put(desk), code::kNotConfirmed);
  EXPECT_THAT(desk.client.ResponseInfo(), HasSubstr("150000"));
  EXPECT_EQ(server.root().read("index.htm"), "alt");
  EXPECT_EQ(desk.listing(), "index.htm\r\n");
}

TEST_F(FaultTest, a_server_that_tells_the_size_among_other_facts_is_believed)
{
  const support::FtpServer server("scripted", {"no-size"});
  ClientDesk desk(server);

  EXPECT_EQ(put(desk), code::kNone) << desk.client.ResponseInfo();
  EXPECT_EQ(server.root().read("index.htm").size(), 300000u);
}

TEST_F(FaultTest, a_password_that_the_server_repeats_is_shown_in_no_answer)
{
  for (const auto* const command : {"CWD", "MKD", "STOR", "DELE", "RNTO"}) {
    const support::FtpServer server("scripted", {std::string("answer=") + command + ":550 no way with %P"});
    ClientDesk desk(server);

    for (const auto* const operation : {"cd web", "mkdir web", "DELETE x.htm"}) {
      desk.run(operation);
      EXPECT_THAT(desk.client.ResponseInfo(), Not(HasSubstr(server.password()))) << command;
    }
    desk.client.backToLogin();
    put(desk);
    EXPECT_THAT(desk.client.ResponseInfo(), Not(HasSubstr(server.password()))) << command;
  }
}

TEST_F(FaultTest, a_password_that_is_part_of_a_word_leaves_no_gap_in_the_clients_own_texts)
{
  support::FtpServer server("scripted");
  ClientDesk desk(server);
  desk.url = addressOf("ftp://" + server.server(), "anna", "Verbindung");
  server.stop();

  EXPECT_EQ(codeOfFailure(desk, "dir"), code::kCannotConnect);
  EXPECT_THAT(desk.client.ResponseInfo(), HasSubstr("nimmt keine Verbindung an"));
}

TEST_F(FaultTest, characters_that_a_terminal_obeys_are_shown_in_no_answer)
{
  const support::FtpServer server("scripted", {"answer=MKD:550 \x1b[2J\x1b]0;x\x07 not \xC2\x9B allowed"});
  ClientDesk desk(server);

  EXPECT_EQ(desk.run("mkdir web"), code::kRefused);
  EXPECT_EQ(desk.client.ResponseInfo(), "550 ?[2J?]0;x? not ? allowed");
}

TEST_F(FaultTest, a_listing_without_end_is_given_up_and_the_next_command_runs)
{
  const support::FtpServer server("scripted", {"endless"});
  ClientDesk desk(server);

  EXPECT_EQ(desk.run("dir"), code::kTooLong);
  EXPECT_THAT(desk.client.ResponseInfo(), HasSubstr("64 MB"));
  EXPECT_EQ(desk.run("mkdir web"), code::kNone) << desk.client.ResponseInfo();
}

TEST_F(FaultTest, a_server_that_is_known_by_its_certificate_gets_no_password_in_clear)
{
  const support::FtpServer server("scripted");
  ClientDesk desk(server, "");
  desk.areKnown = true;

  EXPECT_EQ(desk.run("dir"), code::kNoEncryption);
  EXPECT_THAT(desk.client.ResponseInfo(), HasSubstr("ftp://"));
  EXPECT_EQ(server.count("USER"), 0);

  desk.url = addressOf("ftp://" + server.server(), server.user(), server.password());
  EXPECT_EQ(desk.run("dir"), code::kNone) << desk.client.ResponseInfo();
}

TEST_F(FaultTest, a_server_that_offers_to_encrypt_is_taken_at_its_word)
{
  const support::FtpServer server("scripted", {"tls"});
  ClientDesk desk(server, "");
  desk.areKnown = true;

  EXPECT_EQ(put(desk), code::kNone) << desk.client.ResponseInfo();
  EXPECT_EQ(server.root().read("index.htm").size(), 300000u);
  EXPECT_EQ(desk.questions.size(), 1u);
}

TEST_F(FaultTest, an_encryption_that_fails_behind_the_login_does_not_keep_the_next_command_from_running)
{
  const support::FtpServer server("scripted", {"tls", "bare-data"});
  ClientDesk desk(server, "");

  EXPECT_EQ(desk.run("dir"), code::kConnectionLost) << desk.client.ResponseInfo();
  EXPECT_EQ(desk.listing(), "");
}

TEST_F(FaultTest, what_the_client_says_of_itself_is_in_the_users_language)
{
  const support::FtpServer server("scripted", {"no-features"});
  ClientDesk desk(server);
  desk.client.Sprache = "ENG";

  EXPECT_EQ(put(desk), code::kNotConfirmed);
  EXPECT_THAT(desk.client.ResponseInfo(), HasSubstr("does not confirm the size"));
  try {
    desk.client.Execute(desk.url, "RENAME x");
    ADD_FAILURE();
  } catch (const base::Error& error) {
    EXPECT_EQ(error.description(), "The FTP command \"RENAME x\" is invalid.");
  }
  desk.client.Sprache = "GER";
  EXPECT_EQ(put(desk), code::kNotConfirmed);
  EXPECT_THAT(desk.client.ResponseInfo(), HasSubstr("bestätigt die Größe"));
}

TEST_F(FaultTest, a_server_without_room_for_a_file_keeps_the_old_one)
{
  for (const auto* const answer : {"answer=STOR:552 quota exceeded", "answer=STOR:452 no room", "answer=RNTO:552 no"}) {
    const support::FtpServer server("scripted", {answer});
    server.root().write("index.htm", "alt");
    ClientDesk desk(server);

    EXPECT_EQ(put(desk), code::kRefused) << answer;
    EXPECT_THAT(desk.client.ResponseInfo(), HasSubstr("52 ")) << answer;
    EXPECT_EQ(server.root().read("index.htm"), "alt");
    EXPECT_EQ(server.count("STOR index.htm.mrd-part"), 1);
    EXPECT_EQ(server.count("STOR"), 1) << answer;
  }
}

TEST_F(FaultTest, cancelling_while_the_size_is_asked_for_is_told_as_such_and_replaces_nothing)
{
  for (const auto& faults : {std::vector<std::string>{"hang=SIZE"}, {"hang=MLST", "no-size"}}) {
    const support::FtpServer server("scripted", faults);
    server.root().write("index.htm", "alt");
    ClientDesk desk(server);
    desk.client.Execute(desk.url, "PUT \"" + local.file("seite.htm") + "\" index.htm");
    const auto question = faults.front().substr(5);
    while (server.count(question) == 0)
      ASSERT_TRUE(desk.client.StillExecuting());

    desk.client.Cancel();

    EXPECT_FALSE(desk.client.StillExecuting());
    EXPECT_EQ(desk.client.ResponseCode(), code::kCancelled) << question;
    EXPECT_EQ(server.root().read("index.htm"), "alt");
  }
}

TEST_F(FaultTest, a_server_that_refuses_renaming_or_other_names_gets_its_files_directly)
{
  for (const auto* const fault : {"no-rename", "no-part"}) {
    const support::FtpServer server("scripted", {fault});
    ClientDesk desk(server);

    EXPECT_EQ(put(desk), code::kNone) << fault << desk.client.ResponseInfo();
    EXPECT_EQ(put(desk), code::kNone) << fault;
    EXPECT_EQ(desk.listing(), "index.htm\r\n");
    EXPECT_EQ(server.count("STOR index.htm.mrd-part"), 1) << fault;
  }
}

TEST_F(FaultTest, a_server_that_tells_no_size_takes_the_file_but_is_not_believed)
{
  const support::FtpServer server("scripted", {"no-features"});
  ClientDesk desk(server);

  EXPECT_EQ(put(desk), code::kNotConfirmed);
  EXPECT_EQ(server.root().read("index.htm").size(), 300000u);
}

TEST_F(FaultTest, a_refused_directory_keeps_files_out_of_the_one_that_is_left)
{
  const support::FtpServer server("scripted");
  server.root().write("index.htm", "alt");
  ClientDesk desk(server);
  desk.run("CD /nirgends");

  EXPECT_EQ(put(desk), code::kRefused);
  EXPECT_EQ(desk.run("DELETE index.htm"), code::kRefused);
  EXPECT_EQ(server.root().read("index.htm"), "alt");
}

TEST_F(FaultTest, names_of_a_server_without_utf8_go_back_as_they_came)
{
  const support::FtpServer server("scripted", {"latin", "unix"});
  server.root().write("küche.htm", "x");
  ClientDesk desk(server);

  EXPECT_EQ(desk.listing(), "küche.htm\r\n");
  EXPECT_EQ(desk.run("DELETE küche.htm"), code::kNone) << desk.client.ResponseInfo();
  EXPECT_EQ(desk.listing(), "");
}

TEST_F(FaultTest, cancelling_ends_a_silent_server_at_once_and_the_next_command_runs)
{
  for (const auto* const silence : {"hang=MKD", "hang=STOR", "hang=greeting"}) {
    const support::FtpServer server("scripted", {silence});
    ClientDesk desk(server);
    desk.client.Execute(desk.url,
                        std::string(silence) == "hang=STOR" ? "PUT \"" + local.file("seite.htm") + "\" x.htm" : "mkdir web");
    for (int i = 0; i < 20; ++i)
      EXPECT_TRUE(desk.client.StillExecuting());
    EXPECT_THROW(desk.client.Execute(desk.url, "dir"), base::Error);

    const auto start = std::chrono::steady_clock::now();
    desk.client.Cancel();

    EXPECT_LT(std::chrono::steady_clock::now() - start, 1s) << silence;
    EXPECT_FALSE(desk.client.StillExecuting());
    EXPECT_EQ(desk.client.ResponseCode(), code::kCancelled);
    if (std::string(silence) != "hang=greeting") {
      EXPECT_EQ(desk.listing(), "") << silence;
    }
  }
}

TEST_F(FaultTest, another_address_is_taken_while_the_connection_to_the_first_is_open)
{
  for (const auto* const fault : {"none", "hang=QUIT"}) {
    const support::FtpServer first("scripted", {fault}), second("scripted");
    second.root().write("zweite.htm", "x");
    ClientDesk desk(first);
    EXPECT_EQ(desk.listing(), "");
    const auto start = std::chrono::steady_clock::now();

    desk.url = addressOf("ftp://" + second.server(), second.user(), second.password());

    EXPECT_EQ(desk.listing(), "zweite.htm\r\n") << fault;
    desk.url = addressOf("ftp://" + second.server(), second.user(), "falsch");
    EXPECT_EQ(desk.run("dir"), code::kLoginDenied) << fault;
    EXPECT_LT(std::chrono::steady_clock::now() - start, 30s) << fault;
  }
}

TEST_F(FaultTest, waiting_for_a_silent_server_takes_no_processor_time)
{
  const support::FtpServer server("scripted", {"hang=MKD"});
  ClientDesk desk(server);
  desk.client.Execute(desk.url, "mkdir web");
  const auto before = std::clock();

  for (const auto end = std::chrono::steady_clock::now() + 1s; std::chrono::steady_clock::now() < end;)
    desk.client.StillExecuting();

  EXPECT_LT(static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC, 0.1);
  desk.client.Cancel();
}

} // namespace
} // namespace mrd::ftp
