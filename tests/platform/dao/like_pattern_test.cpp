#include "platform/dao/like_pattern.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace mrd::dao {
namespace {

bool like(std::string_view text, std::string_view pattern) { return LikePattern(pattern).matches(text); }

TEST(LikePattern, takes_an_asterisk_for_any_text)
{
  EXPECT_TRUE(like("01", "01*"));
  EXPECT_TRUE(like("0102", "01*"));
  EXPECT_FALSE(like("10", "01*"));
  EXPECT_TRUE(like("", "*"));
  EXPECT_TRUE(like("mississippi", "m*iss*pi"));
  EXPECT_FALSE(like("mississippi", "m*iss*po"));
  EXPECT_TRUE(like("a\nb", "a*b"));
}

TEST(LikePattern, takes_a_question_mark_for_one_character)
{
  EXPECT_TRUE(like("ä1", "??"));
  EXPECT_FALSE(like("ä", "??"));
  EXPECT_TRUE(like("it's", "it?s"));
  EXPECT_TRUE(like("\U0001F600x", "?x"));
}

TEST(LikePattern, takes_a_hash_for_a_digit)
{
  EXPECT_TRUE(like("Seite 7", "seite #"));
  EXPECT_FALSE(like("Seite x", "seite #"));
}

TEST(LikePattern, takes_brackets_for_one_of_a_set)
{
  EXPECT_TRUE(like("Bad", "[a-c]ad"));
  EXPECT_FALSE(like("Rad", "[a-c]ad"));
  EXPECT_FALSE(like("Bad", "[!a-c]ad"));
  EXPECT_TRUE(like("Rad", "[!A-C]ad"));
  EXPECT_TRUE(like("was*", "was[*]"));
  EXPECT_FALSE(like("was?", "was[*]"));
  EXPECT_TRUE(like("Öl", "[ä-ö]L"));
  EXPECT_TRUE(like("-", "[a-]"));
  EXPECT_TRUE(like("!", "[!]"));
  EXPECT_TRUE(like("ab", "a[]b"));
}

TEST(LikePattern, takes_an_open_bracket_for_itself)
{
  EXPECT_TRUE(like("Bilder [1", "bilder [1"));
  EXPECT_TRUE(like("a]", "a]"));
}

TEST(LikePattern, ignores_case_and_trailing_blanks)
{
  EXPECT_TRUE(like("ÜBERSICHT  ", "übersicht"));
  EXPECT_TRUE(like("übersicht", "ÜBER* "));
  EXPECT_FALSE(like(" a", "a"));
}

TEST(LikePattern, knows_no_other_wildcards)
{
  EXPECT_FALSE(like("abc", "a%"));
  EXPECT_FALSE(like("ab", "a_"));
  EXPECT_TRUE(like("a%_", "a%_"));
}

TEST(LikePattern, ends_soon_on_a_pattern_made_to_take_long)
{
  std::string pattern;
  for (int i = 0; i < 200; ++i)
    pattern += "a*";
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(like(std::string(20'000, 'a') + "b", pattern + "c"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST(LikePattern, takes_broken_bytes_for_characters)
{
  EXPECT_TRUE(like("a\xFFz", "a?z"));
  EXPECT_TRUE(like("\xC3", "?"));
}

} // namespace
} // namespace mrd::dao
