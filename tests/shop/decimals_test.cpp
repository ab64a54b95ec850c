#include "shop/decimals.h"

#include <gtest/gtest.h>

namespace mrd::shop {
namespace {

const Decimals german("GER"), english("ENG");

TEST(Decimals, are_read_with_a_comma_and_with_a_point)
{
  for (const auto& decimals : {german, english}) {
    EXPECT_EQ(decimals.read("12,5"), 12.5);
    EXPECT_EQ(decimals.read("12.5"), 12.5);
    EXPECT_EQ(decimals.read(" 10 "), 10);
    EXPECT_EQ(decimals.read("0"), 0);
    EXPECT_EQ(decimals.read(",5"), 0.5);
    EXPECT_EQ(decimals.read("5,"), 5);
    EXPECT_EQ(decimals.read("-3,25"), -3.25);
    EXPECT_EQ(decimals.read("+3"), 3);
    EXPECT_EQ(decimals.read("0,125"), 0.125);
    EXPECT_EQ(decimals.read("0.125"), 0.125);
    EXPECT_EQ(decimals.read("1e3"), 1000);
  }
}

TEST(Decimals, group_thousands)
{
  for (const auto& decimals : {german, english}) {
    EXPECT_EQ(decimals.read("1.234,50"), 1234.5);
    EXPECT_EQ(decimals.read("1,234.50"), 1234.5);
    EXPECT_EQ(decimals.read("1.234.567,89"), 1234567.89);
    EXPECT_EQ(decimals.read("1.234.567"), 1234567);
    EXPECT_EQ(decimals.read("1,234,567"), 1234567);
  }
  EXPECT_EQ(german.read("1.234"), 1234);
  EXPECT_EQ(german.read("1,234"), 1.234);
  EXPECT_EQ(english.read("1,234"), 1234);
  EXPECT_EQ(english.read("1.234"), 1.234);
}

TEST(Decimals, refuse_what_is_no_number)
{
  for (const auto* const text :
       {"",  " ",   "abc",       "12 EUR", "12,5,0", "1.2.3", "1,23.4,5", "12..5", ",",   ".",
        "-", "--1", "1.23,45.6", "0x10",   "nan",    "inf",   "1e999",    "e5",    "1 2", "1234.567,8,9"})
    EXPECT_EQ(german.read(text), std::nullopt) << text;
}

TEST(Decimals, are_shown_with_the_sign_of_the_language)
{
  EXPECT_EQ(german.text(12.5), "12,5");
  EXPECT_EQ(english.text(12.5), "12.5");
  EXPECT_EQ(german.text(15), "15");
  EXPECT_EQ(german.text(0.30000000000000004), "0,3");
  EXPECT_EQ(german.text(8.35 * 1.5), "12,525");
}

TEST(Decimals, that_are_shown_are_read_again)
{
  for (const double number : {0.0, 0.01, 12.5, 999999.99, 1234567.0, 1e20, -3.25})
    for (const auto& decimals : {german, english})
      EXPECT_EQ(decimals.read(decimals.text(number)), number);
}

TEST(Prices, have_two_decimals_behind_a_point)
{
  EXPECT_EQ(priceText(12.5), "12.50");
  EXPECT_EQ(priceText(18.75), "18.75");
  EXPECT_EQ(priceText(1), "1.00");
  EXPECT_EQ(priceText(1234.5), "1234.50");
  EXPECT_EQ(priceText(0.004), "0.00");
  EXPECT_EQ(priceText(1e15), "1000000000000000.00");
}

TEST(Prices, round_halves_away_from_zero_as_they_read)
{
  EXPECT_EQ(priceText(0.125), "0.13");
  EXPECT_EQ(priceText(-0.125), "-0.13");
  EXPECT_EQ(priceText(8.35 * 1.5), "12.53");
  EXPECT_EQ(priceText(1.005), "1.01");
  EXPECT_EQ(priceText(2.675), "2.68");
}

} // namespace
} // namespace mrd::shop
