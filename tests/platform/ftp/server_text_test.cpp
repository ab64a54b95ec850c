#include "platform/ftp/server_text.h"

#include <gtest/gtest.h>

namespace mrd::ftp {
namespace {

TEST(ServerText, is_shown_without_the_password_in_either_encoding)
{
  EXPECT_EQ(shownText("530 geheimß is wrong", "geheimß"), "530 *** is wrong");
  EXPECT_EQ(shownText("530 geheimÃŸ is wrong", "geheimß"), "530 *** is wrong");
  EXPECT_EQ(shownText("530 wrong", ""), "530 wrong");
}

TEST(ServerText, is_shown_in_one_line_without_control_characters)
{
  EXPECT_EQ(shownText("550-a\r\n550 b\x1b[2J\x7f\t\xC2\x9B \xC2\xA0ü", ""), "550-a 550 b?[2J??? \xC2\xA0ü");
}

TEST(ServerText, is_shown_as_utf8) { EXPECT_EQ(shownText("a\xFF", ""), "a\xEF\xBF\xBD"); }

} // namespace
} // namespace mrd::ftp
