#include "imode/band.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace mrd::imode {
namespace {

constexpr image::Colour kGround{0, 0x80, 0xFF}, kText{0xFF, 0, 0};

settings::Fields fieldsWith(std::string text)
{
  settings::Fields fields;
  fields.Tbtabelle = "#0080FF";
  fields.tbmenütext = "ff0000";
  fields.tbimodekopftext = std::move(text);
  return fields;
}

/// Pixels that are not the ground, in a part of the band.
int inkIn(const image::Image& band, int left, int top, int right, int bottom)
{
  int ink = 0;
  for (int y = top; y < bottom; ++y)
    for (int x = left; x < right; ++x)
      ink += !(band.pixel(x, y) == kGround);
  return ink;
}

TEST(Band, is_120_by_20_in_the_colour_of_the_frame)
{
  const auto band = drawBand(fieldsWith(""));

  EXPECT_EQ(band.size(), (image::Size{120, 20}));
  EXPECT_EQ(inkIn(band, 0, 0, 120, 20), 0);
}

TEST(Band, shows_its_text_in_the_colour_of_the_menu)
{
  const auto band = drawBand(fieldsWith("Haus"));

  EXPECT_GT(inkIn(band, 0, 0, 60, 20), 60);
  bool pure = false;
  for (int y = 0; y < 20; ++y)
    for (int x = 0; x < 60; ++x)
      pure |= band.pixel(x, y) == kText;
  EXPECT_TRUE(pure);
  EXPECT_EQ(inkIn(band, 80, 0, 120, 20), 0) << "it stands at the left";
}

TEST(Band, shows_another_text_for_each_text)
{
  const auto one = drawBand(fieldsWith("Haus")), other = drawBand(fieldsWith("Hof"));

  EXPECT_FALSE(std::ranges::equal(one.bytes(), other.bytes()));
}

TEST(Band, cuts_a_long_text_off_a_pixel_inside_its_edges)
{
  const auto band = drawBand(fieldsWith(std::string(5000, 'W')));

  EXPECT_GT(inkIn(band, 100, 0, 119, 20), 50);
  EXPECT_EQ(inkIn(band, 119, 0, 120, 20), 0);
  EXPECT_EQ(inkIn(band, 0, 0, 1, 20), 0);
  EXPECT_EQ(inkIn(band, 0, 0, 120, 1), 0);
  EXPECT_EQ(inkIn(band, 0, 19, 120, 20), 0);
}

TEST(Band, takes_signs_of_markup_as_letters) { EXPECT_GT(inkIn(drawBand(fieldsWith("<b>&amp;")), 0, 0, 120, 20), 60); }

TEST(Band, of_blanks_or_bytes_that_are_no_text_is_drawn)
{
  EXPECT_EQ(inkIn(drawBand(fieldsWith("   ")), 0, 0, 120, 20), 0);
  EXPECT_EQ(drawBand(fieldsWith("\xFF\xFE")).size(), (image::Size{120, 20}));
  EXPECT_EQ(drawBand(fieldsWith("\x01\n\t")).size(), (image::Size{120, 20}));
}

} // namespace
} // namespace mrd::imode
