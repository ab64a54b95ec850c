// Which colours a GIF file gets: those of the picture's own table under their numbers, or those of the cube.

#include "base/errors.h"
#include "pictures/gif.h"
#include "pictures/picture_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::pictures {
namespace {

using image::Colour;
using image::Image;
using testing::ElementsAreArray;

TEST(GifColours, are_the_nearest_of_a_cube_with_red_outermost)
{
  auto source = Image::create(3, 1);
  source.fillRectangle({0, 0, 1, 1}, {255, 60, 100});
  source.fillRectangle({1, 0, 1, 1}, {33, 224, 223});
  source.fillRectangle({2, 0, 1, 1}, {32, 96, 160});

  const auto out = indexed(source);

  EXPECT_THAT(out.pixels, testing::ElementsAre(4 * 25 + 1 * 5 + 2, 1 * 25 + 4 * 5 + 3, 0 * 25 + 1 * 5 + 2));
  EXPECT_EQ(out.palette[4 * 25 + 1 * 5 + 2], (Colour{255, 64, 128}));
  EXPECT_EQ(out.palette[124], (Colour{255, 255, 255}));
  for (std::size_t at = 125; at < 256; ++at)
    EXPECT_EQ(out.palette[at], (Colour{0, 0, 0}));
}

TEST(GifColours, of_a_file_with_a_table_are_its_own)
{
  const auto path = files::systemPath(std::filesystem::path(MRD_TEST_DATA) / "pictures" / "gif-named.jpg");
  const auto picture = Image::loadWithPalette(path);

  const auto out = indexed(picture);

  EXPECT_THAT(picture.palette(), testing::SizeIs(256));
  for (int at = 0; at < 128; at += 5)
    EXPECT_EQ(out.palette[out.pixels[static_cast<std::size_t>(at) * 128 + 17]], picture.pixel(17, at));
}

TEST(GifColours, of_a_changed_picture_go_through_the_cube)
{
  const auto path = files::systemPath(std::filesystem::path(MRD_TEST_DATA) / "pictures" / "gif-named.jpg");
  const auto out = indexed(Image::loadWithPalette(path).resized({50, 50}));

  EXPECT_EQ(out.palette[1], (Colour{0, 0, 64}));
}

// --- files with colours that stand in their table twice

constexpr Colour kRed{255, 0, 0}, kGreen{0, 255, 0}, kBlack{0, 0, 0}, kLast{10, 20, 30};
constexpr std::array<std::uint8_t, 8> kNumbers{0, 1, 2, 3, 1, 1, 0, 255};
constexpr int kWidth = 4, kHeight = 2;

IndexedPicture doubleColours()
{
  IndexedPicture out{kWidth, kHeight, {}, {kNumbers.begin(), kNumbers.end()}};
  out.palette[0] = out.palette[1] = kRed;
  out.palette[2] = kGreen;
  out.palette[3] = out.palette[4] = kBlack;
  out.palette[255] = kLast;
  return out;
}

std::string bytes(std::initializer_list<int> values)
{
  std::string out;
  for (const int value : values)
    out += static_cast<char>(value);
  return out;
}

std::string little(std::uint32_t value, int count)
{
  std::string out;
  for (int i = 0; i < count; ++i)
    out += static_cast<char>(value >> 8 * i);
  return out;
}

std::string big(std::uint32_t value, int count)
{
  const auto turned = little(value, count);
  return {turned.rbegin(), turned.rend()};
}

std::string row(int y) { return {kNumbers.begin() + y * kWidth, kNumbers.begin() + (y + 1) * kWidth}; }

std::string tableOf(const IndexedPicture& picture, std::string (*entry)(Colour))
{
  std::string out;
  for (const auto& colour : picture.palette)
    out += entry(colour);
  return out;
}

std::string rgb(Colour colour) { return bytes({colour.red, colour.green, colour.blue}); }
std::string bgrx(Colour colour) { return bytes({colour.blue, colour.green, colour.red, 0}); }

std::string bmp(int compression, const std::string& data)
{
  const auto table = tableOf(doubleColours(), bgrx);
  const auto begin = static_cast<std::uint32_t>(54 + table.size());
  return "BM" + little(begin + static_cast<std::uint32_t>(data.size()), 4) + little(0, 4) + little(begin, 4) + little(40, 4) +
         little(kWidth, 4) + little(kHeight, 4) + little(1, 2) + little(8, 2) +
         little(static_cast<std::uint32_t>(compression), 4) + little(static_cast<std::uint32_t>(data.size()), 4) + little(0, 4) +
         little(0, 4) + little(256, 4) + little(0, 4) + table + data;
}

/// From the last row to the first; a row of four bytes needs no filling.
std::string plainBmp() { return bmp(0, row(1) + row(0)); }

std::string bmpOfRuns()
{
  std::string data;
  for (const int y : {1, 0}) {
    for (const char number : row(y))
      data += std::string{1, number};
    data += bytes({0, 0});
  }
  return bmp(1, data + bytes({0, 1}));
}

/// The head, the runs, and the table at the end behind its mark.
std::string pcx()
{
  std::string head = bytes({10, 5, 1, 8}) + little(0, 4) + little(kWidth - 1, 2) + little(kHeight - 1, 2) + little(72, 4);
  head.resize(65);
  head += bytes({1}) + little(kWidth, 2) + little(1, 2);
  head.resize(128);
  std::string data;
  for (const auto number : kNumbers)
    data += number >= 0xC0 ? bytes({0xC1, number}) : bytes({number});
  return head + data + bytes({12}) + tableOf(doubleColours(), rgb);
}

std::uint32_t pngCheckSum(std::string_view data)
{
  std::uint32_t sum = 0xFFFFFFFF;
  for (const char byte : data) {
    sum ^= static_cast<unsigned char>(byte);
    for (int bit = 0; bit < 8; ++bit)
      sum = sum >> 1 ^ (sum & 1) * 0xEDB88320;
  }
  return ~sum;
}

std::string chunk(const std::string& name, const std::string& data)
{
  return big(static_cast<std::uint32_t>(data.size()), 4) + name + data + big(pngCheckSum(name + data), 4);
}

/// Bytes as a stream of one block that is not compressed.
std::string stored(const std::string& data)
{
  std::uint32_t a = 1, b = 0;
  for (const char byte : data) {
    a = (a + static_cast<unsigned char>(byte)) % 65521;
    b = (b + a) % 65521;
  }
  const auto size = static_cast<std::uint32_t>(data.size());
  return bytes({0x78, 1, 1}) + little(size, 2) + little(~size, 2) + data + big(b << 16 | a, 4);
}

std::string png(const std::string& moreChunks = {})
{
  return "\x89PNG\r\n\x1A\n" + chunk("IHDR", big(kWidth, 4) + big(kHeight, 4) + bytes({8, 3, 0, 0, 0})) +
         chunk("gAMA", big(20'000, 4)) + chunk("PLTE", tableOf(doubleColours(), rgb)) + moreChunks +
         chunk("IDAT", stored(bytes({0}) + row(0) + bytes({0}) + row(1))) + chunk("IEND", "");
}

using Writer = std::string (*)(std::uint32_t value, int count);

/// `shift` puts a channel's byte where the values of two bytes have it.
std::string tiff(const std::string& mark, Writer number, int shift)
{
  const auto field = [&](std::uint32_t tag, std::uint32_t type, std::uint32_t count, std::uint32_t value) {
    const bool isShort = type == 3 && count == 1;
    return number(tag, 2) + number(type, 2) + number(count, 4) + number(value, isShort ? 2 : 4) +
           std::string(isShort ? 2 : 0, '\0');
  };
  constexpr std::uint32_t kData = 8, kTable = 16, kDirectory = kTable + 3 * 512;
  std::string table;
  const auto palette = doubleColours().palette;
  for (const auto channel : {&Colour::red, &Colour::green, &Colour::blue})
    for (const auto& colour : palette)
      table += number(static_cast<std::uint32_t>(colour.*channel) << shift, 2);
  return mark + number(kDirectory, 4) + row(0) + row(1) + table + number(10, 2) + field(256, 3, 1, kWidth) +
         field(257, 3, 1, kHeight) + field(258, 3, 1, 8) + field(259, 3, 1, 1) + field(262, 3, 1, 3) + field(273, 4, 1, kData) +
         field(277, 3, 1, 1) + field(278, 3, 1, kHeight) + field(279, 4, 1, kWidth * kHeight) + field(320, 3, 768, kTable) +
         number(0, 4);
}

struct GifOfTable : testing::Test, PictureDesk {
  IndexedPicture madeOf(const std::string& file, Colour background = image::kWhite) const
  {
    directory.write("fotos/bild", file);
    return indexed(Image::loadWithPalette(fotos() + "bild", background));
  }
};

TEST_F(GifOfTable, keeps_the_numbers_of_colours_that_stand_there_twice)
{
  const auto expected = doubleColours();
  const std::string littleTiff{'I', 'I', '*', 0}, bigTiff{'M', 'M', 0, '*'};
  for (const auto& [name, file] : {std::pair{"bitmap", plainBmp()},
                                   {"bitmap of runs", bmpOfRuns()},
                                   {"GIF", GIF::bytesOf(expected)},
                                   {"PCX", pcx()},
                                   {"PNG", png()},
                                   {"TIFF", tiff(littleTiff, little, 8)},
                                   {"TIFF, high bytes first", tiff(bigTiff, big, 8)},
                                   {"TIFF of old", tiff(littleTiff, little, 0)}}) {
    const auto out = madeOf(file);
    EXPECT_THAT(out.pixels, ElementsAreArray(kNumbers)) << name;
    EXPECT_EQ(out.palette, expected.palette) << name;
  }
}

TEST_F(GifOfTable, shows_the_background_in_place_of_a_transparent_colour)
{
  constexpr Colour kBackground{0x20, 0x40, 0x60};
  // The second red is half transparent, the green wholly.
  const auto out = madeOf(png(chunk("tRNS", bytes({255, 128, 0}))), kBackground);

  EXPECT_THAT(out.pixels, ElementsAreArray(kNumbers));
  EXPECT_EQ(out.palette[0], kRed);
  EXPECT_LE(distance(out.palette[1], {0x90, 0x20, 0x30}), 1);
  EXPECT_EQ(out.palette[2], kBackground);
  EXPECT_EQ(out.palette[255], kLast);
}

TEST_F(GifOfTable, shows_the_background_in_place_of_the_transparent_colour_of_another_gif)
{
  auto file = GIF::bytesOf(doubleColours());
  file.insert(13 + 768, bytes({0x21, 0xF9, 4, 1, 0, 0, 1, 0}));
  file.replace(0, 6, "GIF89a");

  const auto out = madeOf(file, kGreen);

  EXPECT_THAT(out.pixels, ElementsAreArray(kNumbers));
  EXPECT_EQ(out.palette[0], kRed);
  EXPECT_EQ(out.palette[1], kGreen);
}

TEST_F(GifOfTable, goes_through_the_cube_where_the_first_frame_leaves_places_empty)
{
  auto file = GIF::bytesOf(doubleColours());
  file[6] = kWidth + 1;

  EXPECT_EQ(madeOf(file).palette[1], (Colour{0, 0, 64}));
}

TEST_F(GifOfTable, survives_damage_anywhere)
{
  const std::string littleTiff{'I', 'I', '*', 0};
  for (const auto& file : {plainBmp(), GIF::bytesOf(doubleColours()), pcx(), png(), tiff(littleTiff, little, 8)})
    for (std::size_t at = 0; at < file.size(); at += at < 60 ? 1 : 23) {
      auto damaged = file;
      damaged[at] = static_cast<char>(damaged[at] ^ 0xFF);
      for (const auto& broken : {damaged, file.substr(0, at)}) {
        try {
          const auto out = madeOf(broken);
          EXPECT_EQ(out.pixels.size(), static_cast<std::size_t>(out.width) * static_cast<std::size_t>(out.height));
        } catch (const base::Error& error) {
          EXPECT_NE(error.description(), "");
        }
      }
    }
}

} // namespace
} // namespace mrd::pictures
