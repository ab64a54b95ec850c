#include "base/text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace mrd::base {
namespace {

TEST(Lower, follows_unicode_and_keeps_the_number_of_characters)
{
  EXPECT_EQ(lower("ÄÖÜ Straße ABC É"), "äöü straße abc é");
  EXPECT_EQ(lower("ẞ"), "ß");
  EXPECT_EQ(upper("äöü straße é"), "ÄÖÜ STRAßE É");
}

TEST(Lower, leaves_broken_bytes_alone) { EXPECT_EQ(lower("A\xFC\xC3"), "a\xFC\xC3"); }

TEST(CompareText, ignores_case_and_trailing_blanks)
{
  EXPECT_EQ(compareText("Übersicht", "übersicht  "), 0);
  EXPECT_EQ(compareText("", "   "), 0);
  EXPECT_NE(compareText("a", " a"), 0);
  EXPECT_NE(compareText("a", "a\t"), 0);
  EXPECT_NE(compareText("ss", "ß"), 0);
}

TEST(CompareText, orders_by_characters)
{
  EXPECT_LT(compareText("a", "B"), 0);
  EXPECT_GT(compareText("b", "A"), 0);
  EXPECT_LT(compareText("01", "0101"), 0);
  EXPECT_GT(compareText("0101", "01"), 0);
  EXPECT_LT(compareText("Z", "ä"), 0);
}

TEST(ComparisonKey, is_equal_exactly_for_texts_that_compare_equal)
{
  EXPECT_EQ(comparisonKey("Übersicht"), comparisonKey("üBERSICHT "));
  EXPECT_NE(comparisonKey("a"), comparisonKey(" a"));
  EXPECT_EQ(compareText("a\xFC", "A\xE4"), 0);
  EXPECT_EQ(comparisonKey("a\xFC"), comparisonKey("A\xE4"));
}

TEST(Trim, takes_blanks_only)
{
  EXPECT_EQ(trim("  a b "), "a b");
  EXPECT_EQ(trim("\ta\r\n"), "\ta\r\n");
  EXPECT_EQ(trim("   "), "");
  EXPECT_EQ(trim(""), "");
}

TEST(ReplaceAll, replaces_in_one_pass)
{
  EXPECT_EQ(replaceAll("a*b*", "*", "**"), "a**b**");
  EXPECT_EQ(replaceAll("aaa", "aa", "b"), "ba");
  EXPECT_EQ(replaceAll("abc", "", "x"), "abc");
  EXPECT_EQ(replaceAll("abc", "c", ""), "ab");
}

TEST(Contains, knows_the_case_or_not)
{
  EXPECT_TRUE(contains("abc", "bc"));
  EXPECT_FALSE(contains("abc", "BC"));
  EXPECT_FALSE(containsIgnoringCase("Größe", "RÖSS"));
  EXPECT_TRUE(containsIgnoringCase("GRÖßE", "röß"));
}

TEST(Measures, count_characters)
{
  EXPECT_EQ(length("Größe €"), 7u);
  EXPECT_EQ(length(""), 0u);
  EXPECT_EQ(left("Größe", 3), "Grö");
  EXPECT_EQ(left("Größe", 9), "Größe");
  EXPECT_EQ(left("Größe", 0), "");
  EXPECT_EQ(right("Größe", 2), "ße");
  EXPECT_EQ(right("Größe", 9), "Größe");
  EXPECT_EQ(right("a€", 1), "€");
  EXPECT_EQ(left("😀a", 1), "😀");
}

TEST(Measures, cut_a_long_heading_between_characters)
{
  std::string heading;
  for (int i = 0; i < 300; ++i)
    heading += "ü";

  EXPECT_EQ(length(left(heading, 255)), 255u);
  EXPECT_TRUE(isValidUtf8(left(heading, 255)));
}

TEST(Utf8, is_told_from_other_bytes)
{
  EXPECT_TRUE(isValidUtf8("Größe €😀"));
  EXPECT_TRUE(isValidUtf8(""));
  EXPECT_FALSE(isValidUtf8("Gr\xF6\xDF"
                           "e"));
  EXPECT_FALSE(isValidUtf8("\xC3"));
  EXPECT_FALSE(isValidUtf8("\xC0\xAF"));
  EXPECT_FALSE(isValidUtf8("\xED\xA0\x80"));
  EXPECT_EQ(repairUtf8("a\xF6"
                       "b"),
            "a\uFFFDb");
  EXPECT_EQ(repairUtf8("ö"), "ö");
}

TEST(NumericValue, reads_the_number_at_the_start)
{
  EXPECT_EQ(numericValue("25 px"), 25);
  EXPECT_EQ(numericValue("90%"), 90);
  EXPECT_EQ(numericValue(" 12 "), 12);
  EXPECT_EQ(numericValue("1 000"), 1000);
  EXPECT_EQ(numericValue("\t7\r\n"), 7);
  EXPECT_EQ(numericValue("1e3"), 1000);
  EXPECT_EQ(numericValue("1e"), 1);
  EXPECT_EQ(numericValue("-3"), -3);
  EXPECT_EQ(numericValue("+3"), 3);
  EXPECT_EQ(numericValue(".5"), 0.5);
  EXPECT_EQ(numericValue("2.5.1"), 2.5);
  EXPECT_EQ(numericValue("2,5"), 2);
}

TEST(NumericValue, is_zero_where_there_is_none)
{
  for (const char* text : {"", " ", "px", "auto", "-", "+", "+-3", "e3", "inf", "-inf", "nan", "infinity", "1e999", "#5"})
    EXPECT_EQ(numericValue(text), 0) << text;
}

TEST(NumericValue, has_no_negative_zero) { EXPECT_FALSE(std::signbit(numericValue("-0"))); }

TEST(LineEnds, become_cr_lf)
{
  EXPECT_EQ(toCrLf("a\nb\rc\r\nd"), "a\r\nb\r\nc\r\nd");
  EXPECT_EQ(toCrLf("\r\r\n\n"), "\r\n\r\n\r\n");
  EXPECT_EQ(toCrLf("ohne"), "ohne");
  EXPECT_EQ(toCrLf(""), "");
}

} // namespace
} // namespace mrd::base
