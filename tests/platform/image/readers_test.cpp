// Which files are pictures, and which reader gets them.

#include "base/errors.h"
#include "image_files.h"
#include "platform/files/files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>

namespace mrd::image {
namespace {

using testing::HasSubstr;

struct Readers : ImageTest {
  std::string failureOf(const std::string& name) const
  {
    try {
      Image::load(file(name));
    } catch (const base::Error& error) {
      return error.description();
    }
    return "loaded";
  }
};

std::string little(std::uint32_t value, int count)
{
  std::string out;
  for (; count > 0; --count, value >>= 8)
    out += static_cast<char>(value);
  return out;
}

/// A page of one grey pixel whose fields begin at `at`; `next` is the place of the next page's.
std::string page(std::uint32_t at, int width, std::uint32_t next)
{
  const auto field = [](std::uint32_t tag, std::uint32_t value) {
    return little(tag, 2) + little(4, 2) + little(1, 4) + little(value, 4);
  };
  const auto fields = field(256, static_cast<std::uint32_t>(width)) + field(257, 1) + field(258, 8) + field(259, 1) +
                      field(262, 1) + field(273, at + 114) + field(277, 1) + field(278, 1) +
                      field(279, static_cast<std::uint32_t>(width));
  return little(9, 2) + fields + little(next, 4) + std::string(static_cast<std::size_t>(width), '\x80');
}

TEST_F(Readers, know_a_fax_in_black_and_white)
{
  const auto fax = Image::load(sample("pport_g4.tif"));

  EXPECT_EQ(fax.size(), (Size{2548, 3296}));
  for (int at = 0; at < 2500; at += 3)
    EXPECT_TRUE(fax.pixel(at, at) == kBlack || fax.pixel(at, at) == kWhite) << at;
}

TEST_F(Readers, show_the_colours_of_a_tiff_for_printers)
{
  const auto tiff = Image::load(sample("tiff_strip_cmyk_jpeg.tif")), jpeg = Image::load(sample("pil_sample_cmyk.jpg"));

  ASSERT_EQ(tiff.size(), jpeg.size());
  EXPECT_LE(distance(tiff.pixel(4, 4), jpeg.pixel(4, 4)), 24);
  EXPECT_LE(distance(tiff.pixel(50, 90), jpeg.pixel(50, 90)), 24);
}

TEST_F(Readers, take_the_first_page_of_a_tiff)
{
  constexpr std::uint32_t kFirst = 8, kSecond = 120 + 8;
  auto first = page(kFirst, 5, kSecond);
  first.resize(kSecond - kFirst);
  write("zwei.tif", std::string("II*\0", 4) + little(kFirst, 4) + first + page(kSecond, 7, 0));

  EXPECT_EQ(Image::load(file("zwei.tif")).size(), (Size{5, 1}));
}

TEST_F(Readers, draw_a_metafile)
{
  const auto drawing = Image::load(sample("drawing.wmf"));

  EXPECT_EQ(drawing.size(), (Size{83, 83}));
  EXPECT_LE(distance(drawing.pixel(41, 41), {255, 0, 0}), 3);
  EXPECT_EQ(drawing.pixel(0, 0), kWhite);
}

TEST_F(Readers, know_a_bitmap_without_the_head_of_a_file)
{
  const auto row = [](const std::string& pixel) { return pixel + pixel + pixel + pixel; };
  write("a.dib", little(40, 4) + little(4, 4) + little(2, 4) + little(1, 2) + little(24, 2) + little(0, 4) + little(24, 4) +
                     little(0, 16) + row("\x01\x02\x03") + row("\x0A\x14\x1E"));

  const auto picture = Image::load(file("a.dib"));

  EXPECT_EQ(picture.size(), (Size{4, 2}));
  EXPECT_EQ(picture.pixel(3, 0), (Colour{30, 20, 10}));
  EXPECT_EQ(picture.pixel(0, 1), (Colour{3, 2, 1}));
}

TEST_F(Readers, know_a_bitmap_of_either_form_by_the_extension_of_either)
{
  write("a.dib", files::readFile(sample("hopper.bmp")));

  EXPECT_EQ(Image::load(file("a.dib")).width(), 128);
}

TEST_F(Readers, get_no_drawing_or_document_whatever_its_name)
{
  Image::create(30, 20).saveJpeg(file("geheim.jpg"), 2);
  const auto secret = (root_ / "geheim.jpg").string();
  const std::string image = "<image width='30' height='20' xlink:href='" + secret + "'/></svg>";
  const std::string svg =
      "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' width='30' height='20'>";
  for (const auto& [kind, content] :
       {std::pair<std::string, std::string>{"drawing", svg + image},
        {"drawing behind a long remark", "<?xml version=\"1.0\"?><!-- " + std::string(2000, 'x') + " -->" + svg + image},
        {"script of the second reader", "<?xml version=\"1.0\"?><image><read filename=\"" + secret + "\"/></image>"},
        {"its drawing", "push graphic-context\nviewbox 0 0 30 20\nimage Over 0,0 30,20 '" + secret + "'\npop graphic-context\n"},
        {"PostScript", "%!PS-Adobe-3.0\nshowpage\n"},
        {"document", "%PDF-1.4\n"},
        {"name of another file", "@" + secret}})
    for (const char* name : {"a.jpg", "a.svg", "a.msl", "a.mvg", "a.wmf", "a.bmp", "a"}) {
      write(name, content);
      EXPECT_THAT(failureOf(name), HasSubstr("Die Datei ist kein Bild von bekannter Art.")) << kind << " in " << name;
      EXPECT_THROW(Image::sizeOf(file(name)), base::Error);
      EXPECT_THROW(Image::loadResized(file(name), {10, 10}), base::Error);
    }
}

TEST_F(Readers, know_versions_of_pcx_by_content_or_by_name_and_by_no_other_name)
{
  auto pcx = files::readFile(sample("pil184.pcx"));
  const auto width = [&](char version, const std::string& name) {
    pcx[1] = version;
    write(name, pcx);
    try {
      return Image::load(file(name)).width();
    } catch (const base::Error&) {
      return 0;
    }
  };

  for (const char version : {2, 5})
    EXPECT_EQ(width(version, "a.html"), 447) << int{version};
  for (const char version : {3, 4}) {
    EXPECT_EQ(width(version, "a.PCX"), 447) << int{version};
    EXPECT_EQ(width(version, "a.html"), 0) << int{version};
    EXPECT_THAT(failureOf("a.html"), HasSubstr("Die Datei ist kein Bild von bekannter Art."));
  }
}

TEST_F(Readers, refuse_photo_cds)
{
  write("a.pcd", std::string(2048, '\0') + "PCD_IPI" + std::string(5000, '\0'));

  EXPECT_THAT(failureOf("a.pcd"), HasSubstr("Die Datei ist kein Bild von bekannter Art."));
}

TEST_F(Readers, say_nothing_by_themselves_of_a_broken_metafile)
{
  const auto drawing = files::readFile(sample("drawing.wmf"));
  testing::internal::CaptureStderr();

  for (std::size_t size = 1; size < drawing.size(); size += 7) {
    write("kurz.wmf", drawing.substr(0, size));
    EXPECT_NE(failureOf("kurz.wmf"), "loaded") << size;
  }
  write("text.wmf", "kein Bild");
  EXPECT_THAT(failureOf("text.wmf"), HasSubstr("Die Datei ist kein Bild von bekannter Art."));

  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

} // namespace
} // namespace mrd::image
