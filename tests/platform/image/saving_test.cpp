#include "base/errors.h"
#include "image_files.h"
#include "platform/files/files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace mrd::image {
namespace {

using Saving = ImageTest;
using testing::HasSubstr;

TEST_F(Saving, a_jpeg_reads_back_with_size_and_colours)
{
  corner(25, 0, 0).saveJpeg(file("ecke-ol.jpg"), 2);

  const auto loaded = Image::load(file("ecke-ol.jpg"));
  EXPECT_EQ(loaded.width(), 25);
  EXPECT_EQ(loaded.height(), 25);
  EXPECT_LE(distance(loaded.pixel(0, 0), kOuter), 3);
  EXPECT_LE(distance(loaded.pixel(24, 24), kInner), 3);
}

TEST_F(Saving, the_best_qualities_keep_the_colour_of_every_pixel)
{
  auto picture = Image::create(16, 16);
  picture.fill(kWhite);
  picture.fillEllipse({7, 7, 1, 1}, {255, 0, 0});

  picture.saveJpeg(file("a.jpg"), 10);

  EXPECT_LE(distance(Image::load(file("a.jpg")).pixel(7, 7), {255, 0, 0}), 20);
  EXPECT_LE(distance(Image::load(file("a.jpg")).pixel(9, 7), kWhite), 20);
}

TEST_F(Saving, a_larger_factor_makes_a_smaller_file)
{
  const auto photo = Image::load(sample("flower.jpg"));
  std::uintmax_t last = std::numeric_limits<std::uintmax_t>::max();
  for (const int factor : {2, 35, 100, 255}) {
    photo.saveJpeg(file("a.jpg"), factor);
    EXPECT_LT(files::fileSize(file("a.jpg")), last) << factor;
    last = files::fileSize(file("a.jpg"));
  }
}

TEST_F(Saving, writes_no_metadata)
{
  Image::load(sample("hopper_orientation_5.jpg")).saveJpeg(file("a.jpg"), 35);

  EXPECT_THAT(files::readFile(file("a.jpg")), testing::Not(HasSubstr("Exif")));
}

TEST_F(Saving, keeps_place_and_owner_of_a_photograph_to_itself)
{
  // A fence around the test itself: the photograph has what must not be in its copies.
  ASSERT_THAT(files::readFile(sample("private.jpg")), HasSubstr("Anna Geheim"));
  Image::load(sample("private.jpg")).saveJpeg(file("whole.jpg"), 35);
  Image::loadResized(sample("private.jpg"), {10, 20}).saveJpeg(file("small.jpg"), 35);

  for (const char* name : {"whole.jpg", "small.jpg"})
    for (const char* word : {"Anna", "Exif", "ns.adobe.com"})
      EXPECT_THAT(files::readFile(file(name)), testing::Not(HasSubstr(word))) << name;
}

TEST_F(Saving, replaces_an_older_file_and_leaves_nothing_beside_it)
{
  write("a.jpg", "alt");
  Image::create(4, 4).saveJpeg(file("A.JPG"), 35);

  EXPECT_EQ(Image::load(file("a.jpg")).width(), 4);
  EXPECT_THAT(files::fileNames(file(".")), testing::ElementsAre("a.jpg"));
}

TEST_F(Saving, shows_the_new_picture_under_a_name_that_was_loaded_before)
{
  Image::create(4, 4).saveJpeg(file("a.jpg"), 35);
  EXPECT_EQ(Image::load(file("a.jpg")).width(), 4);

  Image::create(7, 7).saveJpeg(file("a.jpg"), 35);

  EXPECT_EQ(Image::load(file("a.jpg")).width(), 7);
}

TEST_F(Saving, fails_without_a_directory_and_beyond_the_format)
{
  EXPECT_THROW(Image::create(4, 4).saveJpeg(file("fehlt/a.jpg"), 35), base::Error);
  EXPECT_THROW(Image::create(70'000, 1).saveJpeg(file("a.jpg"), 35), base::Error);
  EXPECT_THAT(files::fileNames(file(".")), testing::IsEmpty());
}

TEST(JpegQuality, falls_from_best_to_smallest)
{
  EXPECT_EQ(jpegQuality(2), 100);
  EXPECT_EQ(jpegQuality(10), 97);
  EXPECT_EQ(jpegQuality(35), 87);
  EXPECT_EQ(jpegQuality(100), 62);
  EXPECT_EQ(jpegQuality(255), 1);
  for (int factor = 3; factor <= 255; ++factor)
    EXPECT_LE(jpegQuality(factor), jpegQuality(factor - 1));
}

TEST(JpegQuality, of_a_factor_out_of_range_is_that_of_its_end)
{
  EXPECT_EQ(jpegQuality(0), 100);
  EXPECT_EQ(jpegQuality(-7), 100);
  EXPECT_EQ(jpegQuality(1000), 1);
}

} // namespace
} // namespace mrd::image
