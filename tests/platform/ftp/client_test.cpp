#include "platform/ftp/client_desk.h"

#include <algorithm>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::ftp {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct RealServer {
  std::string kind, scheme;
};

class ClientAtRealServer : public testing::TestWithParam<RealServer> {
protected:
  ClientAtRealServer()
  {
    if (!server.home().empty())
      ::setenv("HOME", server.home().c_str(), 1);
    local.write("seite.htm", std::string(5000, 'x'));
  }

  support::FtpServer server{GetParam().kind};
  ClientDesk desk{server, GetParam().scheme};
  support::TemporaryDirectory local;
  const std::string web = server.directory().empty() ? "web" : server.directory().substr(1) + "/web";
};

TEST_P(ClientAtRealServer, makes_fills_lists_and_empties_a_directory)
{
  EXPECT_EQ(desk.run("cd " + web), code::kRefused);
  EXPECT_EQ(desk.run("mkdir " + web), code::kNone) << desk.client.ResponseInfo();
  EXPECT_EQ(desk.run("cd " + web), code::kNone);
  EXPECT_EQ(desk.listing(), "");
  EXPECT_EQ(desk.run("mkdir pix"), code::kNone);
  EXPECT_EQ(desk.put(local.file("seite.htm"), "ein bild ü'x.jpg"), code::kNone) << desk.client.ResponseInfo();

  EXPECT_THAT(desk.listing(), testing::AllOf(HasSubstr("pix/\r\n"), HasSubstr("ein bild ü'x.jpg\r\n")));
  EXPECT_EQ(server.root().read(web + "/ein bild ü'x.jpg"), std::string(5000, 'x'));

  EXPECT_EQ(desk.run("DELETE ein bild ü'x.jpg"), code::kNone);
  EXPECT_EQ(desk.listing(), "pix/\r\n");
  EXPECT_EQ(desk.run("DELETE ein bild ü'x.jpg"), code::kRefused);
}

TEST_P(ClientAtRealServer, replaces_a_file_and_leaves_no_part_of_it)
{
  desk.run("mkdir " + web);
  desk.run("cd " + web);
  EXPECT_EQ(desk.put(local.file("seite.htm"), "index.htm"), code::kNone) << desk.client.ResponseInfo();
  local.write("seite.htm", "kurz");

  EXPECT_EQ(desk.put(local.file("seite.htm"), "index.htm"), code::kNone) << desk.client.ResponseInfo();
  local.write("seite.htm", "");
  EXPECT_EQ(desk.put(local.file("seite.htm"), "leer.htm"), code::kNone) << desk.client.ResponseInfo();

  EXPECT_EQ(server.root().read(web + "/index.htm"), "kurz");
  EXPECT_THAT(desk.listing(), testing::AnyOf("index.htm\r\nleer.htm\r\n", "leer.htm\r\nindex.htm\r\n"));
}

TEST_P(ClientAtRealServer, finds_the_directory_of_the_login_again_from_the_root)
{
  desk.run("mkdir " + web);
  desk.run("cd " + web);
  desk.run("mkdir pix");
  desk.run("cd pix");

  EXPECT_EQ(desk.run("CD /" + web), code::kNone) << desk.client.ResponseInfo();
  EXPECT_EQ(desk.listing(), "pix/\r\n");
  desk.client.backToLogin();
  EXPECT_EQ(desk.run("cd " + web), code::kNone) << desk.client.ResponseInfo();
  EXPECT_EQ(desk.listing(), "pix/\r\n");
}

TEST_P(ClientAtRealServer, lists_a_directory_that_was_made_after_it_was_entered)
{
  desk.run("mkdir " + web);
  desk.run("cd " + web);
  desk.run("mkdir pix");

  EXPECT_EQ(desk.listing(), "pix/\r\n");
}

std::string nameOf(const testing::TestParamInfo<RealServer>& server)
{
  auto name = server.param.kind + (server.param.scheme == "ftpes://" ? "_forced" : "");
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(All, ClientAtRealServer,
                         testing::Values(RealServer{"vsftpd", "ftp://"}, RealServer{"pyftpdlib", ""},
                                         RealServer{"vsftpd-tls", ""}, RealServer{"vsftpd-tls", "ftpes://"},
                                         RealServer{"pyftpdlib-tls", "ftpes://"}, RealServer{"sftp", "sftp://"}),
                         nameOf);

TEST(FtpClient, logs_in_once_and_sends_each_file_with_the_fewest_commands)
{
  const support::FtpServer server("scripted");
  const support::TemporaryDirectory local;
  local.write("a.htm", "aaaa");
  ClientDesk desk(server);

  desk.run("mkdir web");
  desk.run("cd web");
  desk.put(local.file("a.htm"), "a.htm");
  desk.put(local.file("a.htm"), "b.htm");

  EXPECT_THAT(server.log(),
              ElementsAre("(connection)", "USER anna", "PASS ***", "PWD", "FEAT", "OPTS UTF8 ON", "MKD web", "CWD web", "EPSV",
                          "TYPE I", "STOR a.htm.mrd-part", "SIZE a.htm.mrd-part", "RNFR a.htm.mrd-part", "RNTO a.htm", "EPSV",
                          "STOR b.htm.mrd-part", "SIZE b.htm.mrd-part", "RNFR b.htm.mrd-part", "RNTO b.htm"));
}

TEST(FtpClient, stands_still_at_no_file)
{
  constexpr int kFiles = 400;
  const support::FtpServer server("vsftpd");
  const support::TemporaryDirectory local;
  local.write("seite.htm", std::string(5000, 'x'));
  ClientDesk desk(server);
  desk.run("cd upload");
  int slow = 0;

  for (int i = 0; i < kFiles; ++i) {
    const auto start = std::chrono::steady_clock::now();
    ASSERT_EQ(desk.put(local.file("seite.htm"), std::to_string(i) + ".htm"), code::kNone) << desk.client.ResponseInfo();
    slow += std::chrono::steady_clock::now() - start > std::chrono::milliseconds(900) ? 1 : 0;
  }

  EXPECT_EQ(slow, 0);
}

TEST(FtpClient, tells_true_states)
{
  const support::FtpServer server("scripted");
  ClientDesk desk(server);

  desk.run("cd nirgends");

  const std::vector<State> begin(desk.states.begin(), desk.states.begin() + 8);
  EXPECT_THAT(begin, ElementsAre(State::ResolvingHost, State::HostResolved, State::Connecting, State::Connected,
                                 State::ReceivingResponse, State::ResponseReceived, State::Requesting, State::RequestSent));
  EXPECT_EQ(desk.states.back(), State::Failed);
  desk.run("mkdir web");
  EXPECT_EQ(desk.states.back(), State::Completed);
}

TEST(FtpClient, gives_a_reply_in_pieces_that_divide_no_character)
{
  const support::FtpServer server("scripted", {"unix"});
  server.root().write("äöü.htm", "x");
  ClientDesk desk(server);

  desk.run("dir");

  EXPECT_EQ(desk.client.GetChunk(5, 0), "äö");
  EXPECT_EQ(desk.client.GetChunk(1024, 0), "ü.htm\r\n");
  EXPECT_EQ(desk.client.GetChunk(1024, 0), "");
}

TEST(FtpClient, reads_listings_for_people_where_there_are_no_others)
{
  for (const auto* const form : {"unix", "dos"}) {
    const support::FtpServer server("scripted", {form, "no-features"});
    server.root().write("ein bild.jpg", "x");
    server.root().write("pix/y", "x");
    ClientDesk desk(server);

    EXPECT_EQ(desk.listing(), "ein bild.jpg\r\npix/\r\n") << form;
  }
}

TEST(FtpClient, goes_to_the_login_directory_that_the_root_is_not)
{
  const support::FtpServer server("scripted", {"home=/home/anna"});
  server.root().write("home/anna/web/pix/x.jpg", "x");
  ClientDesk desk(server);

  desk.run("cd web");
  desk.run("cd pix");
  EXPECT_EQ(desk.run("CD /web"), code::kNone);
  EXPECT_EQ(desk.listing(), "pix/\r\n");
  EXPECT_EQ(server.count("CWD /home/anna/web"), 1);
}

TEST(FtpClient, keeps_a_directory_that_is_written_from_the_root)
{
  const support::FtpServer server("scripted", {"home=/home/anna"});
  server.root().write("srv/web/x.htm", "x");
  ClientDesk desk(server);

  EXPECT_EQ(desk.run("cd /srv/web"), code::kNone);
  EXPECT_EQ(desk.run("CD //srv/web"), code::kNone);
  EXPECT_EQ(desk.listing(), "x.htm\r\n");
}

TEST(FtpClient, asks_about_a_certificate_with_its_fingerprint_once)
{
  const support::FtpServer server("vsftpd-tls");
  ClientDesk desk(server, "ftpes://");

  EXPECT_EQ(desk.run("mkdir upload/web"), code::kNone) << desk.client.ResponseInfo();
  EXPECT_EQ(desk.run("cd upload/web"), code::kNone);
  EXPECT_EQ(desk.listing(), "");

  ASSERT_EQ(desk.questions.size(), 1u);
  EXPECT_EQ(desk.questions[0].server, server.server());
  EXPECT_THAT(desk.questions[0].fingerprint, testing::MatchesRegex("SHA256:[A-Za-z0-9+/]{43}"));
  EXPECT_FALSE(desk.questions[0].isHostKey);
}

TEST(FtpClient, sends_nothing_to_a_server_that_is_not_trusted)
{
  for (const auto& [kind, scheme] : {std::pair{"vsftpd-tls", ""}, std::pair{"sftp", "sftp://"}}) {
    const support::FtpServer server(kind);
    ClientDesk desk(server, scheme);
    desk.trusts = false;

    EXPECT_EQ(desk.run("mkdir web"), code::kNotTrusted) << kind;
    EXPECT_EQ(desk.questions.size(), 1u);
    EXPECT_THROW(desk.run("mkdir web"), base::Error);
    EXPECT_FALSE(std::filesystem::exists(server.root().native() / "web"));
  }
}

} // namespace
} // namespace mrd::ftp
