#include "base/stored_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace mrd::base {
namespace {

TEST(StoredText, says_yes_by_word_or_by_number)
{
  for (const auto* yes : {"True", " true ", "WAHR", "1", "-1", "2"})
    EXPECT_TRUE(yesNo(yes)) << yes;
  for (const auto* no : {"False", "falsch", "0", "", "ja"})
    EXPECT_FALSE(yesNo(no)) << no;
}

TEST(StoredText, is_a_whole_number_without_its_fraction)
{
  EXPECT_EQ(wholeNumber("25 px"), 25);
  EXPECT_EQ(wholeNumber("-1.9"), -1);
  EXPECT_EQ(wholeNumber("px"), 0);
}

TEST(StoredText, is_the_outermost_number_where_it_does_not_fit)
{
  EXPECT_EQ(wholeNumber("1e300"), std::numeric_limits<int>::max());
  EXPECT_EQ(wholeNumber("-99999999999"), std::numeric_limits<int>::min());
}

} // namespace
} // namespace mrd::base
