#include "pictures/gif.h"

#include "base/errors.h"
#include "platform/files/files.h"
#include "platform/files/path.h"
#include "support/temporary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace mrd::pictures {
namespace {

using image::Colour;
using image::Image;

constexpr std::size_t kHead = 6 + 7 + 768 + 10 + 1;

IndexedPicture picture(int width, int height)
{
  IndexedPicture out{width, height, {}, {}};
  out.pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  return out;
}

/// The 9-bit codes of a file's stream, up to the end code.
std::vector<int> codesOf(const std::string& bytes)
{
  std::string data;
  for (auto at = kHead; bytes[at] != 0; at += 1 + static_cast<unsigned char>(bytes[at]))
    data += bytes.substr(at + 1, static_cast<unsigned char>(bytes[at]));
  std::vector<int> codes;
  for (std::size_t bit = 0; bit + 9 <= 8 * data.size() && (codes.empty() || codes.back() != 257); bit += 9) {
    int code = 0;
    for (std::size_t i = 0; i < 9; ++i)
      code |= (static_cast<unsigned char>(data[(bit + i) / 8]) >> (bit + i) % 8 & 1) << i;
    codes.push_back(code);
  }
  return codes;
}

TEST(Gif, of_one_pixel_is_a_clear_code_the_pixel_and_an_end_code)
{
  auto one = picture(1, 1);
  one.pixels[0] = 7;
  one.palette[7] = {10, 20, 30};

  const auto bytes = GIF::bytesOf(one);

  EXPECT_EQ(bytes.substr(0, 13), (std::string{'G', 'I', 'F', '8', '7', 'a', 1, 0, 1, 0, '\xF7', 0, 0}));
  EXPECT_EQ(bytes.substr(13 + 21, 3), "\x0A\x14\x1E");
  EXPECT_EQ(bytes.substr(13 + 768, 11), (std::string{44, 0, 0, 0, 0, 1, 0, 1, 0, 0, 8}));
  EXPECT_THAT(codesOf(bytes), testing::ElementsAre(256, 7, 257));
  EXPECT_EQ(bytes.substr(bytes.size() - 2), (std::string{0, 59}));
}

TEST(Gif, writes_its_sizes_with_the_low_byte_first)
{
  const auto bytes = GIF::bytesOf(picture(258, 1));

  EXPECT_EQ(bytes.substr(6, 4), (std::string{2, 1, 1, 0}));
}

TEST(Gif, of_equal_pixels_uses_ever_longer_strings_at_9_bits)
{
  const auto codes = codesOf(GIF::bytesOf(picture(300, 1)));

  // 1 + 2 + .. + 23 = 276 pixels, and the string of 24 once more.
  ASSERT_EQ(codes.size(), 26u);
  EXPECT_EQ(codes[0], 256);
  EXPECT_EQ(codes[1], 0);
  for (int i = 2; i < 24; ++i)
    EXPECT_EQ(codes[static_cast<std::size_t>(i)], 256 + i);
  EXPECT_EQ(codes.back(), 257);
}

TEST(Gif, begins_every_row_with_an_empty_dictionary)
{
  auto rows = picture(2, 2);
  rows.pixels = {1, 2, 1, 2};

  EXPECT_THAT(codesOf(GIF::bytesOf(rows)), testing::ElementsAre(256, 1, 2, 256, 1, 2, 257));
}

TEST(Gif, clears_inside_a_row_before_the_table_would_pass_511)
{
  auto row = picture(600, 1);
  for (std::size_t x = 0; x < 600; ++x)
    row.pixels[x] = static_cast<std::uint8_t>(x * 7 + x / 256);

  const auto codes = codesOf(GIF::bytesOf(row));

  EXPECT_EQ(codes[0], 256);
  // 254 codes take the numbers 258 to 511; the one that would take 512 stands behind a clear code.
  EXPECT_EQ(std::count(codes.begin(), codes.begin() + 255, 256), 1);
  EXPECT_EQ(codes[255], 256);
}

TEST(Gif, fills_blocks_of_255_bytes)
{
  auto noise = picture(100, 100);
  std::minstd_rand random(1);
  for (auto& pixel : noise.pixels)
    pixel = static_cast<std::uint8_t>(random());

  const auto bytes = GIF::bytesOf(noise);

  auto at = kHead;
  for (; static_cast<unsigned char>(bytes[at]) == 255; at += 256) {
  }
  at += 1 + static_cast<unsigned char>(bytes[at]);
  EXPECT_EQ(at, bytes.size() - 2);
}

struct GifFile : testing::Test {
  support::TemporaryDirectory directory;
};

TEST_F(GifFile, replaces_an_older_one)
{
  directory.write("a.gif", std::string(10'000, 'x'));

  EXPECT_TRUE(GIF::SaveGIF(Image::create(4, 4), directory.file("a.gif")));

  EXPECT_EQ(directory.read("a.gif"), GIF::bytesOf(indexed(Image::create(4, 4))));
}

TEST_F(GifFile, is_a_picture_for_other_programs)
{
  auto source = Image::create(300, 40);
  for (int x = 0; x < 300; ++x)
    source.fillRectangle({x, 0, 1, 40},
                         {static_cast<std::uint8_t>(64 * (x % 4)), static_cast<std::uint8_t>(64 * (x / 4 % 4)), 0});
  GIF::SaveGIF(source, directory.file("a.gif"));

  const auto read = Image::load(directory.file("a.gif"));

  EXPECT_TRUE(std::ranges::equal(read.bytes(), source.bytes()));
}

TEST_F(GifFile, is_not_written_for_a_side_that_the_format_lacks)
{
  EXPECT_FALSE(GIF::SaveGIF(Image::create(65'536, 1), directory.file("a.gif")));

  EXPECT_FALSE(files::fileExists(directory.file("a.gif")));
}

TEST_F(GifFile, fails_where_it_cannot_be_written)
{
  EXPECT_THROW(GIF::SaveGIF(Image::create(4, 4), directory.file("fehlt\\a.gif")), base::Error);
}

} // namespace
} // namespace mrd::pictures
