#include "platform/dao/value.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace mrd::dao {
namespace {

TEST(Value, has_a_text_form)
{
  EXPECT_EQ(Value().text(), "");
  EXPECT_EQ(Value(42).text(), "42");
  EXPECT_EQ(Value(12.5).text(), "12.5");
  EXPECT_EQ(Value(3.0).text(), "3");
  EXPECT_EQ(Value("ä").text(), "ä");
  EXPECT_EQ(Value::yesNo(true).text(), "1");
}

TEST(Value, has_a_number)
{
  EXPECT_EQ(Value("25 px").integer(), 25);
  EXPECT_EQ(Value("x").integer(), 0);
  EXPECT_EQ(Value(-2.9).integer(), -2);
  EXPECT_EQ(Value().integer(), 0);
  EXPECT_DOUBLE_EQ(Value("1.5").number(), 1.5);
  EXPECT_EQ(Value(std::numeric_limits<std::int64_t>::max()).integer(), std::numeric_limits<std::int64_t>::max());
}

TEST(Value, keeps_huge_numbers_within_bounds)
{
  EXPECT_EQ(Value(1e300).integer(), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(Value(-1e300).integer(), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(Value(std::nan("")).integer(), 0);
}

TEST(Value, is_yes_for_any_number_but_zero)
{
  EXPECT_TRUE(Value(-1).yes());
  EXPECT_TRUE(Value(0.5).yes());
  EXPECT_FALSE(Value(0).yes());
  EXPECT_FALSE(Value().yes());
  EXPECT_FALSE(Value("ja").yes());
}

TEST(StoredText, repairs_only_what_is_broken)
{
  EXPECT_EQ(storedText("nur ASCII, lang genug für Wörter"), "nur ASCII, lang genug für Wörter");
  EXPECT_EQ(storedText("gr\xFC\xDF"), "gr\uFFFD\uFFFD");
  EXPECT_EQ(storedText("ende\xC3"), "ende\uFFFD");
}

} // namespace
} // namespace mrd::dao
