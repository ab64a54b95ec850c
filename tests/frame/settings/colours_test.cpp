#include "frame/settings/fields.h"

#include <gtest/gtest.h>

namespace mrd::settings {
namespace {

TEST(ColourText, holds_red_first_where_the_number_holds_blue_first) { EXPECT_EQ(farbe_zu_html(0x112233), "332211"); }

TEST(ColourText, is_padded_to_six_digits) { EXPECT_EQ(farbe_zu_html(0xFF), "FF0000"); }

TEST(ColourText, of_a_longer_number_has_its_last_six_digits)
{
  EXPECT_EQ(farbe_zu_html(0x80112233), "332211");
  EXPECT_EQ(farbe_zu_html(-1), "FFFFFF");
}

TEST(ColourNumber, holds_blue_first_where_the_text_holds_red_first) { EXPECT_EQ(html_zu_farbe("112233"), "&H332211"); }

TEST(ColourNumber, takes_a_text_with_or_without_hash)
{
  EXPECT_EQ(html_zu_farbe("#0080FF"), "&HFF8000");
  EXPECT_EQ(html_zu_farbe("0080FF"), "&HFF8000");
}

TEST(ColourNumber, pads_a_short_text_in_front)
{
  EXPECT_EQ(html_zu_farbe("ff"), "&Hff0000");
  EXPECT_EQ(html_zu_farbe("#ff"), "&Hff0000");
  EXPECT_EQ(html_zu_farbe(""), "&H000000");
}

TEST(ColourNumber, takes_the_last_six_digits_of_a_long_text) { EXPECT_EQ(html_zu_farbe("99112233"), "&H332211"); }

} // namespace
} // namespace mrd::settings
