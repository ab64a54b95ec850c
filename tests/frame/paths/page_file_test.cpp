#include "frame/paths/page_file.h"

#include <gtest/gtest.h>

namespace mrd::paths {
namespace {

TEST(FileOfPattern, is_the_number_where_the_pattern_is_empty)
{
  EXPECT_EQ(fileOfPattern("", "0102"), "0102.htm");
  EXPECT_EQ(fileOfPattern("", "index"), "index.htm");
}

TEST(FileOfPattern, has_the_number_for_every_star)
{
  EXPECT_EQ(fileOfPattern("*.htm", "0102"), "0102.htm");
  EXPECT_EQ(fileOfPattern("*-*", "01"), "01-01");
}

TEST(FileOfPattern, without_a_star_is_the_pattern)
{
  EXPECT_EQ(fileOfPattern("fest.htm", "0102"), "fest.htm");
  EXPECT_EQ(fileOfPattern("Fest.HTM", "0102"), "Fest.HTM");
}

TEST(FileOfPattern, leaves_an_address_of_the_web_as_it_is)
{
  EXPECT_EQ(fileOfPattern("http://x.example/", "01"), "http://x.example/");
}

TEST(WrittenPattern, is_the_pages_own)
{
  EXPECT_EQ(writtenPattern("haus-*.htm"), "haus-*.htm");
  EXPECT_EQ(writtenPattern(""), "*.htm");
}

TEST(WrittenPattern, is_the_number_where_the_pattern_begins_like_an_address)
{
  for (const auto* const address : {"http://x.example/", "https://x.example/*", "http", "httpd.htm"})
    EXPECT_EQ(writtenPattern(address), "*.htm") << address;
}

TEST(WrittenPattern, takes_http_in_other_letters_for_a_name)
{
  EXPECT_EQ(writtenPattern("HTTP.htm"), "HTTP.htm");
  EXPECT_EQ(writtenPattern("Http.htm"), "Http.htm");
}

TEST(BaseLink, gets_a_slash_and_a_scheme_where_they_are_missing)
{
  EXPECT_EQ(basislinkOf("http://x.example/"), "http://x.example/");
  EXPECT_EQ(basislinkOf("http://x.example"), "http://x.example/");
  EXPECT_EQ(basislinkOf("x.example"), "http://x.example/");
  EXPECT_EQ(basislinkOf("x.example/web/"), "http://x.example/web/");
}

TEST(BaseLink, takes_any_text_that_begins_like_an_address)
{
  EXPECT_EQ(basislinkOf("HTTPS://x.example"), "HTTPS://x.example/");
  EXPECT_EQ(basislinkOf("https://x.example"), "https://x.example/");
  EXPECT_EQ(basislinkOf("httpd.example"), "httpd.example/");
  EXPECT_EQ(basislinkOf("ftp.example"), "http://ftp.example/");
}

} // namespace
} // namespace mrd::paths
