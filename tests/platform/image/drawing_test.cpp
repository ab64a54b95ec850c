#include "base/errors.h"
#include "image_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::image {
namespace {

using Drawing = ImageTest;

TEST_F(Drawing, a_new_picture_is_black)
{
  const auto picture = Image::create(3, 2);

  EXPECT_EQ(picture.width(), 3);
  EXPECT_EQ(picture.height(), 2);
  EXPECT_EQ(picture.pixel(2, 1), kBlack);
}

TEST_F(Drawing, a_picture_has_a_size_that_is_possible)
{
  EXPECT_THROW(Image::create(0, 5), base::Error);
  EXPECT_THROW(Image::create(5, -1), base::Error);
  EXPECT_THROW(Image::create(2'000'000'000, 2'000'000'000), base::Error);
}

TEST_F(Drawing, pixels_lie_inside_the_picture)
{
  const auto picture = Image::create(3, 2);
  EXPECT_THROW(picture.pixel(3, 0), base::Error);
  EXPECT_THROW(picture.pixel(0, 2), base::Error);
  EXPECT_THROW(picture.pixel(-1, 0), base::Error);
}

TEST_F(Drawing, a_copy_keeps_its_pixels_when_the_original_changes)
{
  auto picture = Image::create(2, 2);
  const Image copy = picture;

  picture.fill(kWhite);

  EXPECT_EQ(picture.pixel(1, 1), kWhite);
  EXPECT_EQ(copy.pixel(1, 1), kBlack);
}

TEST_F(Drawing, an_ellipse_fills_its_rectangle_without_the_corners)
{
  auto picture = Image::create(20, 10);
  picture.fillEllipse({0, 0, 20, 10}, kWhite);

  EXPECT_EQ(picture.pixel(10, 0), kWhite);
  EXPECT_EQ(picture.pixel(10, 9), kWhite);
  EXPECT_EQ(picture.pixel(0, 5), kWhite);
  EXPECT_EQ(picture.pixel(19, 5), kWhite);
  EXPECT_EQ(picture.pixel(0, 0), kBlack);
  EXPECT_EQ(picture.pixel(19, 9), kBlack);
}

TEST_F(Drawing, an_ellipse_without_extent_or_beside_the_picture_draws_nothing)
{
  auto picture = Image::create(5, 5);
  picture.fillEllipse({0, 0, 0, 5}, kWhite);
  picture.fillEllipse({0, 0, 5, -5}, kWhite);
  picture.fillEllipse({-20, 0, 5, 5}, kWhite);

  for (int y = 0; y < 5; ++y)
    for (int x = 0; x < 5; ++x)
      EXPECT_EQ(picture.pixel(x, y), kBlack);
}

TEST_F(Drawing, the_upper_left_corner_is_a_quarter_of_a_circle)
{
  const auto picture = corner(25, 0, 0);
  for (int y = 0; y < 25; ++y)
    for (int x = 0; x < 25; ++x) {
      const double dx = 24.5 - x, dy = 24.5 - y;
      EXPECT_EQ(picture.pixel(x, y), dx * dx + dy * dy <= 625 ? kInner : kOuter) << x << ", " << y;
    }
}

TEST_F(Drawing, each_corner_is_rounded_on_its_outer_side)
{
  const auto upperLeft = corner(25, 0, 0), upperRight = corner(25, -26, 0);
  const auto lowerLeft = corner(25, 0, -26), lowerRight = corner(25, -26, -26);

  EXPECT_EQ(upperLeft.pixel(0, 0), kOuter);
  EXPECT_EQ(upperLeft.pixel(24, 24), kInner);
  EXPECT_EQ(upperRight.pixel(24, 0), kOuter);
  EXPECT_EQ(upperRight.pixel(0, 24), kInner);
  EXPECT_EQ(lowerLeft.pixel(0, 24), kOuter);
  EXPECT_EQ(lowerLeft.pixel(24, 0), kInner);
  EXPECT_EQ(lowerRight.pixel(24, 24), kOuter);
  EXPECT_EQ(lowerRight.pixel(0, 0), kInner);
}

TEST_F(Drawing, right_and_lower_corners_lie_one_pixel_further_in)
{
  // Their ellipse begins one pixel further out, so that the last column and row keep the outer colour.
  EXPECT_EQ(corner(25, -26, 0).pixel(23, 24), kInner);
  EXPECT_EQ(corner(25, -26, 0).pixel(24, 24), kOuter);
  EXPECT_EQ(corner(25, 0, -26).pixel(24, 23), kInner);
  EXPECT_EQ(corner(25, 0, -26).pixel(24, 24), kOuter);
}

TEST_F(Drawing, corners_of_radius_one_are_single_pixels)
{
  EXPECT_EQ(corner(1, 0, 0).pixel(0, 0), kInner);
  EXPECT_EQ(corner(1, -2, 0).pixel(0, 0), kOuter);
  EXPECT_EQ(corner(1, 0, -2).pixel(0, 0), kOuter);
  EXPECT_EQ(corner(1, -2, -2).pixel(0, 0), kOuter);
}

TEST_F(Drawing, a_corner_of_one_colour_is_plain)
{
  auto picture = Image::create(9, 9);
  picture.fill(kInner);
  picture.fillEllipse({0, 0, 18, 18}, kInner);
  picture.saveJpeg(file("ecke.jpg"), 10);

  const auto loaded = Image::load(file("ecke.jpg"));
  for (int i = 0; i < 9; ++i)
    EXPECT_LE(distance(loaded.pixel(i, 8 - i), kInner), 2);
}

} // namespace
} // namespace mrd::image
