#include "platform/jetreader/jet_text.h"

#include <gmock/gmock.h>

#include <limits>
#include <string_view>

namespace mrd::jetreader {
namespace {

using namespace std::string_view_literals;

TEST(TextOfVersion4, has_two_bytes_a_character) { EXPECT_EQ(textOfVersion4("M\0\xf6\0w\0e\0\xac\x20"sv), "Möwe€"); }

TEST(TextOfVersion4, has_one_byte_a_character_when_it_is_packed) { EXPECT_EQ(textOfVersion4("\xff\xfeM\xf6we"sv), "Möwe"); }

TEST(TextOfVersion4, changes_between_both_at_a_zero)
{
  EXPECT_EQ(textOfVersion4("\xff\xfe"
                           "ab\0\xac\x20\0cd"sv),
            "ab€cd");
}

TEST(TextOfVersion4, joins_pairs_of_units_and_replaces_half_ones)
{
  EXPECT_EQ(textOfVersion4("\x3d\xd8\x00\xde"sv), "\xf0\x9f\x98\x80");
  EXPECT_EQ(textOfVersion4("\x3d\xd8x\0"sv), "\xef\xbf\xbdx");
  EXPECT_EQ(textOfVersion4("\x00\xde"sv), "\xef\xbf\xbd");
}

TEST(TextOfVersion4, ends_before_half_a_unit)
{
  EXPECT_EQ(textOfVersion4("a\0b"sv), "a");
  EXPECT_EQ(textOfVersion4(""sv), "");
  EXPECT_EQ(textOfVersion4("\xff\xfe"sv), "");
}

TEST(DateOf, counts_days_from_the_end_of_1899)
{
  EXPECT_EQ(dateOf(0), "1899-12-30 00:00:00");
  EXPECT_EQ(dateOf(37346.10416666667), "2002-03-31 02:30:00");
  EXPECT_EQ(dateOf(36526), "2000-01-01 00:00:00");
}

TEST(DateOf, rounds_to_the_second_also_over_midnight)
{
  EXPECT_EQ(dateOf(36526.999999999), "2000-01-02 00:00:00");
  EXPECT_EQ(dateOf(37608.77089120370), "2002-12-18 18:30:05");
}

TEST(DateOf, counts_the_time_forwards_before_the_first_day)
{
  EXPECT_EQ(dateOf(-1.25), "1899-12-29 06:00:00");
  EXPECT_EQ(dateOf(-657434), "0100-01-01 00:00:00");
}

TEST(DateOf, knows_no_day_outside_of_the_calendar)
{
  EXPECT_EQ(dateOf(2958466), std::nullopt);
  EXPECT_EQ(dateOf(2958465.9999999), std::nullopt);
  EXPECT_EQ(dateOf(-657435), std::nullopt);
  EXPECT_EQ(dateOf(1e300), std::nullopt);
  EXPECT_EQ(dateOf(std::numeric_limits<double>::quiet_NaN()), std::nullopt);
  EXPECT_EQ(dateOf(std::numeric_limits<double>::infinity()), std::nullopt);
}

} // namespace
} // namespace mrd::jetreader
