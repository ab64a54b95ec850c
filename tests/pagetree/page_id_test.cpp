#include "pagetree/page_id.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace mrd::pagetree {
namespace {

TEST(PageId, is_the_key_without_its_at_sign)
{
  EXPECT_EQ(keyOf("0102"), "@0102");
  EXPECT_EQ(idOf("@0102"), "0102");
  EXPECT_EQ(idOf("0102"), "0102");
  EXPECT_EQ(idOf(""), "");
}

TEST(PageId, of_the_root_is_known_as_key_and_as_id)
{
  EXPECT_TRUE(isRoot("00"));
  EXPECT_TRUE(isRoot("@00"));
  EXPECT_FALSE(isRoot("0001"));
  EXPECT_FALSE(isRoot("01"));
  EXPECT_FALSE(isRoot(""));
}

TEST(PageId, numbers_have_two_digits_and_minus_one_is_told_apart)
{
  EXPECT_EQ(formatNumber(1), "01");
  EXPECT_EQ(formatNumber(10), "10");
  EXPECT_EQ(formatNumber(99), "99");
  EXPECT_EQ(formatNumber(0), "00");
  EXPECT_EQ(formatNumber(-1), "-01");
}

TEST(PageId, number_of_a_page_is_its_last_two_digits)
{
  EXPECT_EQ(numberOf("09"), 9);
  EXPECT_EQ(numberOf("010299"), 99);
  EXPECT_EQ(numberOf("00"), 0);
}

TEST(PageId, parent_is_the_id_without_its_last_pair)
{
  EXPECT_EQ(parentOf("0203"), "02");
  EXPECT_EQ(parentOf("01020304"), "010203");
  EXPECT_EQ(parentOf("02"), "");
}

TEST(PageId, of_the_first_level_does_not_begin_with_the_root)
{
  EXPECT_EQ(childPrefix("00"), "");
  EXPECT_EQ(childPrefix("@00"), "");
  EXPECT_EQ(childPrefix("@0102"), "0102");
}

TEST(PageId, sorts_as_text_into_the_reading_order_of_the_site)
{
  std::vector<std::string> ids{"10", "03", "0201", "02", "09", "020110", "00", "020109", "0202"};

  std::ranges::sort(ids);

  EXPECT_EQ(ids, (std::vector<std::string>{"00", "02", "0201", "020109", "020110", "0202", "03", "09", "10"}));
}

TEST(PageId, is_the_root_or_one_to_four_pairs_from_01_to_99)
{
  for (const auto* const id : {"00", "01", "99", "0101", "01029903", "99999999"})
    EXPECT_TRUE(isPageId(id)) << id;
  for (const auto* const text :
       {"", "0", "1", "001", "0100", "0001", "010203040", "0102030405", "M01", "-1", "ab", "0x", " 1", "@01", "index"})
    EXPECT_FALSE(isPageId(text)) << text;
}

} // namespace
} // namespace mrd::pagetree
