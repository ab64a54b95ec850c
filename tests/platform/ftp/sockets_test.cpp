#include "platform/ftp/sockets.h"

#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace mrd::ftp {
namespace {

using testing::ElementsAre;

struct SocketsTest : testing::Test {
  int openControl() { return sockets.open(AF_INET, SOCK_STREAM, 0, true); }

  std::vector<State> states;
  Sockets sockets{[this](State state) {
    states.push_back(state);
    // Whoever is told may come back: no lock is held.
    if (cancelsWhenTold)
      sockets.cancel();
  }};
  bool cancelsWhenTold = false;
};

TEST_F(SocketsTest, take_the_one_that_is_left_of_several_for_the_connection)
{
  const int winner = openControl();
  const int loser = openControl();

  sockets.close(loser);
  EXPECT_TRUE(sockets.isControl(winner));
  EXPECT_THAT(states, ElementsAre(State::HostResolved, State::Connecting));

  sockets.close(winner);
  EXPECT_THAT(states, ElementsAre(State::HostResolved, State::Connecting, State::Disconnecting, State::Disconnected));
}

TEST_F(SocketsTest, tell_of_no_state_for_a_data_connection)
{
  sockets.close(sockets.open(AF_INET, SOCK_STREAM, 0, false));

  EXPECT_TRUE(states.empty());
}

TEST_F(SocketsTest, can_be_cancelled_by_whoever_is_told_of_a_state)
{
  cancelsWhenTold = true;

  const int socket = openControl();
  sockets.close(socket);

  EXPECT_TRUE(sockets.isCancelled());
  EXPECT_EQ(states.size(), 4u);
}

TEST_F(SocketsTest, open_none_once_they_are_cancelled_and_again_when_they_resume)
{
  sockets.cancel();
  EXPECT_EQ(openControl(), -1);

  sockets.resume();
  const int socket = openControl();
  EXPECT_GE(socket, 0);
  sockets.close(socket);
}

TEST(LastWords, are_the_first_line_that_was_not_listened_to)
{
  std::array<int, 2> ends{};
  ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()), 0);
  constexpr std::string_view kWords = "552 full\r\n221 bye\r\n";
  ASSERT_EQ(::send(ends[1], kWords.data(), kWords.size(), 0), static_cast<ssize_t>(kWords.size()));

  EXPECT_EQ(Sockets::lastWords(ends[0]), "552 full\r");
  ::close(ends[0]);
  ::close(ends[1]);
}

} // namespace
} // namespace mrd::ftp
