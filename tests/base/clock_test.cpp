#include "base/clock.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <limits>

namespace mrd::base {
namespace {

TEST(DateTime, is_written_in_both_forms)
{
  const DateTime time{2003, 3, 4, 5, 6, 7};

  EXPECT_EQ(time.iso(), "2003-03-04 05:06:07");
  EXPECT_EQ(time.german(), "04.03.2003 05:06:07");
}

TEST(DateTime, orders_by_time)
{
  EXPECT_LT((DateTime{2003, 12, 31, 23, 59, 59}), (DateTime{2004, 1, 1, 0, 0, 0}));
  EXPECT_LT((DateTime{2003, 1, 1, 1, 0, 0}), (DateTime{2003, 1, 1, 1, 0, 1}));
}

TEST(ParseDateTime, reads_all_forms)
{
  const DateTime evening{2003, 12, 24, 18, 30, 5};
  EXPECT_EQ(parseDateTime("24.12.2003 18:30:05"), evening);
  EXPECT_EQ(parseDateTime("2003-12-24 18:30:05"), evening);
  EXPECT_EQ(parseDateTime("2003-12-24T18:30:05"), evening);
  EXPECT_EQ(parseDateTime("  24.12.2003 18:30:05 "), evening);
  EXPECT_EQ(parseDateTime("24.12.2003"), (DateTime{2003, 12, 24}));
  EXPECT_EQ(parseDateTime("1.1.1900"), DateTime());
  EXPECT_EQ(parseDateTime("1.2.2003 4:5:6"), (DateTime{2003, 2, 1, 4, 5, 6}));
}

TEST(ParseDateTime, takes_two_digits_for_a_year_of_our_time)
{
  EXPECT_EQ(parseDateTime("24.12.03 18:30:05"), (DateTime{2003, 12, 24, 18, 30, 5}));
  EXPECT_EQ(parseDateTime("24.12.29"), (DateTime{2029, 12, 24}));
  EXPECT_EQ(parseDateTime("24.12.30"), (DateTime{1930, 12, 24}));
}

TEST(ParseDateTime, reads_its_own_writing)
{
  const DateTime leapDay{2004, 2, 29, 23, 59, 59};

  EXPECT_EQ(parseDateTime(leapDay.iso()), leapDay);
  EXPECT_EQ(parseDateTime(leapDay.german()), leapDay);
}

TEST(ParseDateTime, refuses_days_and_times_that_do_not_exist)
{
  for (const char* text : {"31.4.2003", "29.2.2003", "0.1.2003", "1.0.2003", "1.13.2003", "1.257.2003", "257.1.2003", "1.1.20030",
                           "2003-02-30", "1.1.2003 24:00:00", "1.1.2003 0:60:0", "1.1.2003 0:0:60"})
    EXPECT_EQ(parseDateTime(text), std::nullopt) << text;
}

TEST(ParseDateTime, refuses_other_texts)
{
  for (const char* text : {"", " ", "gestern", "1.1", "1.1.2003.4", "2003-1", "1.1.2003 x", "1.1.2003 1:2", "-1.1.2003",
                           "1..2003", "12/24/2003", "1.1.2003 1:2:3:4"})
    EXPECT_EQ(parseDateTime(text), std::nullopt) << text;
}

/// The machine's zone and fixed moment, put back at the end.
class SystemClockTest : public testing::Test {
protected:
  SystemClockTest() { zone("CET-1CEST,M3.5.0,M10.5.0/3"); }
  ~SystemClockTest() override
  {
    ::unsetenv("SOURCE_DATE_EPOCH");
    ::unsetenv("TZ");
    ::tzset();
  }
  static void zone(const char* name)
  {
    ::setenv("TZ", name, 1);
    ::tzset();
  }
};

TEST_F(SystemClockTest, stands_still_at_a_given_moment_in_utc)
{
  ::setenv("SOURCE_DATE_EPOCH", "1072287005", 1);

  EXPECT_EQ(SystemClock().now(), (DateTime{2003, 12, 24, 17, 30, 5}));
}

TEST_F(SystemClockTest, tells_local_time_otherwise)
{
  for (const char* value : {"", "morgen", "-5", "12x"}) {
    ::setenv("SOURCE_DATE_EPOCH", value, 1);
    const auto before = localTime(std::time(nullptr));
    const auto now = SystemClock().now();
    EXPECT_LE(before, now) << value;
    EXPECT_LE(now, localTime(std::time(nullptr))) << value;
  }
}

TEST_F(SystemClockTest, knows_summer_time)
{
  EXPECT_EQ(localTime(1072287005), (DateTime{2003, 12, 24, 18, 30, 5}));
  EXPECT_EQ(localTime(1057069805), (DateTime{2003, 7, 1, 16, 30, 5}));
}

TEST_F(SystemClockTest, keeps_absurd_moments_within_four_digits)
{
  EXPECT_EQ(localTime(std::numeric_limits<long long>::max()).year, 9999);
  EXPECT_EQ(localTime(std::numeric_limits<long long>::min()).year, 100);
  EXPECT_EQ(localTime(-1).year, 1970); // An hour east of Greenwich.
}

} // namespace
} // namespace mrd::base
