#include "platform/ftp/operation.h"

#include "base/errors.h"
#include "support/temporary.h"

#include <gtest/gtest.h>

namespace mrd::ftp {
namespace {

TEST(FtpOperation, reads_the_commands_whatever_their_case)
{
  EXPECT_EQ(parseOperation("cd web/haus").target, "web/haus");
  EXPECT_EQ(parseOperation("CD /web").verb, Verb::ChangeDirectory);
  EXPECT_EQ(parseOperation("cd ").target, "");
  EXPECT_EQ(parseOperation("mkdir pix").verb, Verb::MakeDirectory);
  EXPECT_EQ(parseOperation("dir").verb, Verb::List);
  EXPECT_EQ(parseOperation("DELETE ein bild.jpg").target, "ein bild.jpg");
}

TEST(FtpOperation, takes_a_put_apart_whose_names_hold_blanks_and_quotes)
{
  const support::TemporaryDirectory directory;
  directory.write("a\" b.htm", "x");

  const auto put = parseOperation("PUT \"" + directory.file("a\" b.htm") + "\" a\" b.htm");

  EXPECT_EQ(put.file, directory.file("a\" b.htm"));
  EXPECT_EQ(put.target, "a\" b.htm");
}

TEST(FtpOperation, finds_a_file_without_extension_behind_its_closing_dot)
{
  const support::TemporaryDirectory directory;
  directory.write("liesmich", "x");

  const auto put = parseOperation("PUT \"" + directory.file("liesmich.") + "\" liesmich.");

  EXPECT_EQ(put.file, directory.file("liesmich"));
  EXPECT_EQ(put.target, "liesmich.");
}

TEST(FtpOperation, refuses_a_local_file_that_is_not_there)
{
  try {
    parseOperation("PUT \"\\nirgends\\x.htm\" x.htm");
    ADD_FAILURE();
  } catch (const base::Error& error) {
    EXPECT_EQ(error.kind(), base::ErrorNumber::FileNotFound);
  }
}

TEST(FtpOperation, refuses_what_could_be_a_second_command_or_leads_elsewhere)
{
  const support::TemporaryDirectory directory;
  directory.write("x.htm", "x");
  const auto put = "PUT \"" + directory.file("x.htm") + "\" ";

  for (const auto& line :
       {std::string("cd web\r\nDELE index.htm"), std::string("DELETE ../x"), std::string("DELETE .."), std::string("DELETE "),
        put + "../x.htm", put + "a/b", put + "a\nb", std::string("SITE x"), std::string()})
    EXPECT_THROW(parseOperation(line), base::Error) << line;
}

} // namespace
} // namespace mrd::ftp
