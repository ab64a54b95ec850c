#include "platform/image/image.h"

#include "base/errors.h"
#include "platform/files/files.h"
#include "platform/files/path.h"
#include "platform/image/memory_share.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <thread>

namespace mrd::image {
namespace {

using base::ErrorNumber;
using testing::HasSubstr;

constexpr Colour kWhite{255, 255, 255}, kBlack{0, 0, 0}, kOuter{255, 204, 0}, kInner{0, 51, 153};

class ImageTest : public testing::Test {
protected:
  ImageTest()
  {
    std::string pattern = (std::filesystem::temp_directory_path() / "mrd-image-XXXXXX").string();
    root_ = ::mkdtemp(pattern.data());
  }
  ~ImageTest() override { std::filesystem::remove_all(root_); }

  std::string file(const std::string& name) const { return files::systemPath(root_ / name); }
  void write(const std::string& name, const std::string& bytes) const { std::ofstream(root_ / name, std::ios::binary) << bytes; }

  std::filesystem::path root_;
};

std::string sample(const std::string& name)
{
  return files::systemPath(std::filesystem::path(MRD_TEST_DATA) / "pictures" / name);
}

base::Error failureOfLoading(const std::string& path)
{
  try {
    Image::load(path);
  } catch (const base::Error& error) {
    return error;
  }
  ADD_FAILURE() << path << " was loaded";
  return {ErrorNumber::ObjectNotSet, {}};
}

int distance(Colour a, Colour b)
{
  return std::max({std::abs(a.red - b.red), std::abs(a.green - b.green), std::abs(a.blue - b.blue)});
}

/// A corner of a rounded box: a square of the outer colour with a quarter of a circle in the inner one.
Image corner(int radius, int left, int top)
{
  Image picture = Image::create(radius, radius);
  picture.fill(kOuter);
  picture.fillEllipse({left, top, 2 * radius, 2 * radius}, kInner);
  return picture;
}

using Drawing = ImageTest;
using Loading = ImageTest;
using Saving = ImageTest;

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

struct Sample {
  const char* name;
  int width, height;
};

TEST_F(Loading, reads_pictures_of_all_kinds)
{
  for (const auto& [name, width, height] :
       {Sample{"flower.jpg", 480, 360}, Sample{"hopper_gray.jpg", 128, 128}, Sample{"pil_sample_cmyk.jpg", 100, 100},
        Sample{"hopper.bmp", 128, 128}, Sample{"gif-named.jpg", 128, 128}, Sample{"transparent.png", 200, 150},
        Sample{"tbgn2c16.png", 32, 32}, Sample{"pil184.pcx", 447, 144}, Sample{"python.ico", 16, 16}}) {
    const auto picture = Image::load(sample(name));
    EXPECT_EQ(picture.width(), width) << name;
    EXPECT_EQ(picture.height(), height) << name;
  }
}

TEST_F(Loading, takes_the_first_frame_of_an_animation) { EXPECT_EQ(Image::load(sample("rotating-squares.gif")).height(), 80); }

TEST_F(Loading, shows_the_same_colours_whatever_the_format)
{
  const auto bitmap = Image::load(sample("hopper.bmp"));
  const auto palette = Image::load(sample("gif-named.jpg"));
  for (int at = 8; at < 128; at += 16)
    EXPECT_LE(distance(bitmap.pixel(at, at), palette.pixel(at, at)), 60) << at;
}

TEST_F(Loading, turns_a_picture_as_the_camera_was_held)
{
  const auto turned = Image::load(sample("hopper_orientation_5.jpg"));
  const auto straight = Image::load(sample("hopper.bmp"));
  int sum = 0;
  for (int at = 8; at < 128; at += 8)
    sum += distance(turned.pixel(at, 127 - at), straight.pixel(at, 127 - at));

  EXPECT_LE(sum / 15, 40);
}

TEST_F(Loading, turns_a_picture_that_is_made_small_too)
{
  EXPECT_EQ(Image::sizeOf(sample("private.jpg")), (Size{20, 40}));
  EXPECT_EQ(Image::load(sample("private.jpg")).size(), (Size{20, 40}));
  EXPECT_EQ(Image::loadResized(sample("private.jpg"), {10, 20}).size(), (Size{10, 20}));
}

TEST_F(Loading, shows_wide_colours_as_a_screen_has_them)
{
  // The file holds 203, 72, 52, which mean this red in its own, larger space.
  constexpr Colour kRed{220, 60, 40};
  EXPECT_LE(distance(Image::load(sample("wide_gamut.jpg")).pixel(5, 5), kRed), 3);
  EXPECT_LE(distance(Image::loadResized(sample("wide_gamut.jpg"), {24, 16}).pixel(5, 5), kRed), 3);
}

TEST_F(Loading, shows_printing_colours_as_a_screen_has_them)
{
  const auto whole = Image::load(sample("pil_sample_cmyk.jpg"));
  const auto corner = whole.pixel(4, 4), ground = whole.pixel(50, 90);

  EXPECT_TRUE(corner.red > 200 && corner.green < 80 && corner.blue < 80);
  EXPECT_TRUE(ground.red < 70 && ground.green < 70 && ground.blue < 90);
  EXPECT_LE(distance(Image::loadResized(sample("pil_sample_cmyk.jpg"), {50, 50}).pixel(25, 45), ground), 12);
}

TEST_F(Loading, refuses_a_picture_that_would_fill_the_memory)
{
  const std::string head("\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR\0\0\x75\x30\0\0\x75\x30\x08\x02\0\0\0\x89\x34\x30\xd8"
                         "\0\0\0\x02IDAT\x78\x9c\0\0\0\0\0\0\0\0IEND\xae\x42\x60\x82",
                         57);
  write("bombe.png", head);

  EXPECT_EQ(failureOfLoading(file("bombe.png")).kind(), ErrorNumber::InvalidPicture);
  EXPECT_THROW(Image::sizeOf(file("bombe.png")), base::Error);
  EXPECT_THROW(Image::loadResized(file("bombe.png"), {580, 580}), base::Error);
}

TEST_F(Loading, puts_transparency_on_white) { EXPECT_EQ(Image::load(sample("transparent.png")).pixel(0, 0), kWhite); }

TEST_F(Loading, a_grey_picture_has_equal_colours)
{
  const auto pixel = Image::load(sample("hopper_gray.jpg")).pixel(64, 64);

  EXPECT_EQ(pixel.red, pixel.green);
  EXPECT_EQ(pixel.red, pixel.blue);
}

TEST_F(Loading, a_name_with_brackets_is_a_name)
{
  const std::string bytes = files::readFile(sample("flower.jpg"));
  for (const char* name : {"bild[1].jpg", "bild.jpg[2]", "bild[page=3]", "Übersicht & Straße.JPG"}) {
    write(name, bytes);
    EXPECT_EQ(Image::load(file(name)).width(), 480) << name;
  }
}

TEST_F(Loading, tells_what_is_wrong_with_a_file)
{
  EXPECT_EQ(failureOfLoading(file("fehlt.jpg")).kind(), ErrorNumber::FileNotFound);
  EXPECT_EQ(failureOfLoading(file("fehlt/a.jpg")).kind(), ErrorNumber::PathNotFound);
  EXPECT_EQ(failureOfLoading(file(".")).kind(), ErrorNumber::PathFileAccess);
  EXPECT_EQ(failureOfLoading(sample("empty.jpg")).kind(), ErrorNumber::InvalidPicture);
  EXPECT_EQ(failureOfLoading(sample("text.jpg")).kind(), ErrorNumber::InvalidPicture);
  EXPECT_THAT(failureOfLoading(sample("text.jpg")).description(), HasSubstr("/text.jpg: "));
}

TEST_F(Loading, each_failure_has_its_own_words)
{
  const auto first = failureOfLoading(sample("text.jpg")).description();
  const auto second = failureOfLoading(sample("text.jpg")).description();

  EXPECT_EQ(first, second);
}

TEST_F(Loading, a_picture_whose_end_is_missing_shows_what_is_there)
{
  EXPECT_EQ(Image::load(sample("truncated_jpeg.jpg")).width(), 100);

  const std::string bytes = files::readFile(sample("flower.jpg"));
  write("halb.jpg", bytes.substr(0, bytes.size() / 2));
  EXPECT_EQ(Image::load(file("halb.jpg")).height(), 360);
}

TEST_F(Loading, survives_damage_anywhere)
{
  for (const char* name : {"flower.jpg", "transparent.png", "rotating-squares.gif", "tbgn2c16.png"}) {
    const std::string bytes = files::readFile(sample(name));
    for (std::size_t at = 1; at < bytes.size(); at += bytes.size() / 40 + 1) {
      std::string damaged = bytes;
      damaged[at] = static_cast<char>(damaged[at] ^ 0xFF);
      write("bitfehler", damaged);
      write("kurz", bytes.substr(0, at));
      for (const char* broken : {"bitfehler", "kurz"}) {
        try {
          EXPECT_GT(Image::load(file(broken)).width(), 0);
        } catch (const base::Error& error) {
          EXPECT_NE(error.description(), "");
        }
      }
    }
  }
}

TEST(MemoryShares, wait_for_each_other_when_they_are_large)
{
  constexpr long long kMost = 1'000'000'000;
  std::atomic<int> working = 0, together = 0;
  std::vector<std::thread> threads;
  for (int n = 0; n < 4; ++n)
    threads.emplace_back([&] {
      const MemoryShare share(kMost);
      const MemoryShare second(kMost); // The thread has one already.
      together = std::max<int>(together, ++working);
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
      --working;
    });
  for (auto& thread : threads)
    thread.join();

  EXPECT_EQ(together, 1);
}

TEST(MemoryShares, of_small_pictures_stand_side_by_side)
{
  const MemoryShare mine(1000);
  std::thread([] { const MemoryShare other(1000); }).join();
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
