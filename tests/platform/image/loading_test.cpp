#include "base/errors.h"
#include "image_files.h"
#include "platform/files/files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::image {
namespace {

using Loading = ImageTest;
using base::ErrorNumber;
using testing::HasSubstr;

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

} // namespace
} // namespace mrd::image
