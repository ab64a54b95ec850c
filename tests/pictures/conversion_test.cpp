#include "pictures/conversion.h"

#include "pictures/picture_desk.h"
#include "pictures/sizes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::pictures {
namespace {

using image::Image;
using image::Size;
using testing::ElementsAre;
using testing::IsEmpty;

struct Conversion : testing::Test, PictureDesk {
  ConvertedPicture run(const std::string& dateiname, std::string_view pageKey = "@0102")
  {
    return konvertiere_und_kopiere_bild(options, PictureTarget(fields), {fotos(), dateiname, fotos() + dateiname}, pageKey);
  }
  std::string nameOf(const std::string& dateiname, std::string_view pageKey = "@0102")
  {
    return run(dateiname, pageKey).dateiname;
  }
  Size sizeInPix(const std::string& name) { return Image::sizeOf(pix(name)); }

  ConversionOptions options;
};

TEST_F(Conversion, makes_the_picture_directory_of_an_export_directory_that_has_none)
{
  photo("a.jpg", 40, 30);
  std::filesystem::remove_all(directory.native() / "export/pix");

  EXPECT_FALSE(run("a.jpg").failure);

  EXPECT_THAT(pixNames(), ElementsAre("a.jpg"));
}

TEST_F(Conversion, makes_no_export_directory)
{
  photo("a.jpg", 40, 30);
  std::filesystem::remove_all(directory.native() / "export");

  EXPECT_TRUE(run("a.jpg").failure);

  EXPECT_FALSE(std::filesystem::exists(directory.native() / "export"));
}

TEST_F(Conversion, makes_the_longer_side_the_limit_and_names_page_and_size)
{
  photo("urlaub 1.jpg", 2000, 1500);

  EXPECT_EQ(nameOf("urlaub 1.jpg"), "0102_urlaub_1_580.jpg");

  EXPECT_EQ(sizeInPix("0102_urlaub_1_580.jpg"), (Size{580, 435}));
}

TEST_F(Conversion, limits_the_height_of_an_upright_picture)
{
  photo("turm.jpg", 1500, 2000);

  EXPECT_EQ(sizeInPix(nameOf("turm.jpg")), (Size{435, 580}));
}

TEST_F(Conversion, of_a_square_picture_gives_a_square)
{
  photo("quadrat.jpg", 900, 900);

  EXPECT_EQ(sizeInPix(nameOf("quadrat.jpg")), (Size{580, 580}));
}

TEST_F(Conversion, of_exactly_the_limit_keeps_size_and_plain_name)
{
  photo("genau.jpg", 580, 300);

  EXPECT_EQ(nameOf("genau.jpg"), "genau.jpg");

  EXPECT_EQ(sizeInPix("genau.jpg"), (Size{580, 300}));
}

TEST_F(Conversion, of_one_pixel_more_is_resampled)
{
  photo("mehr.jpg", 581, 300);

  EXPECT_EQ(sizeInPix(nameOf("mehr.jpg")), (Size{580, 299}));
}

TEST_F(Conversion, for_the_homepage_begins_with_i)
{
  photo("a.jpg", 600, 400);

  EXPECT_EQ(nameOf("a.jpg", ";"), "i_a_580.jpg");
}

TEST_F(Conversion, without_new_names_has_no_page_in_front)
{
  photo("a.jpg", 600, 400);
  options.opumbenennen = false;

  EXPECT_EQ(nameOf("a.jpg"), "a_580.jpg");
}

TEST_F(Conversion, cleans_names_for_the_web)
{
  const auto made = photo("größe & maß.jpg", 20, 20);
  std::filesystem::copy_file(files::nativePath(sample("hopper.bmp")), files::nativePath(fotos() + "größe & maß.tif"));

  EXPECT_EQ(nameOf("größe & maß.tif"), "groesse___mass.jpg");
}

TEST_F(Conversion, keeps_an_earlier_large_picture_without_looking_at_its_source)
{
  options.opumbenennen = false;
  options.opbeibehalten = true;
  directory.write("export/pix/weg_580.jpg", "alt");

  const auto out = run("weg.jpg");

  EXPECT_EQ(out.dateiname, "weg_580.jpg");
  EXPECT_FALSE(out.failure);
  EXPECT_EQ(directory.read("export/pix/weg_580.jpg"), "alt");
}

TEST_F(Conversion, writes_a_small_picture_anew_even_where_names_are_kept)
{
  options.opumbenennen = false;
  options.opbeibehalten = true;
  photo("klein.jpg", 20, 20);
  directory.write("export/pix/klein.jpg", "alt");

  EXPECT_EQ(nameOf("klein.jpg"), "klein.jpg");

  EXPECT_EQ(sizeInPix("klein.jpg"), (Size{20, 20}));
}

TEST_F(Conversion, of_one_name_from_two_directories_leaves_the_later_picture)
{
  options.opumbenennen = false;
  photo("a.jpg", 30, 30);
  files::makeDirectory(fotos() + "zwei");
  photo("zwei\\a.jpg", 40, 40);

  run("a.jpg");
  konvertiere_und_kopiere_bild(options, PictureTarget(fields), {fotos() + "zwei\\", "a.jpg", fotos() + "zwei\\a.jpg"}, "@01");

  EXPECT_THAT(pixNames(), ElementsAre("a.jpg"));
  EXPECT_EQ(sizeInPix("a.jpg"), (Size{40, 40}));
}

TEST_F(Conversion, of_one_large_name_from_two_directories_leaves_the_first_where_names_are_kept)
{
  options.opumbenennen = false;
  options.opbeibehalten = true;
  photo("a.jpg", 1000, 100);
  files::makeDirectory(fotos() + "zwei");
  photo("zwei\\a.jpg", 1000, 1000);

  run("a.jpg");
  konvertiere_und_kopiere_bild(options, PictureTarget(fields), {fotos() + "zwei\\", "a.jpg", fotos() + "zwei\\a.jpg"}, "@01");

  EXPECT_EQ(sizeInPix("a_580.jpg"), (Size{580, 58}));
}

TEST_F(Conversion, switched_off_copies_the_bytes_and_keeps_the_extension)
{
  options.opkonvertieren = false;
  options.opbeibehalten = true;
  directory.write("fotos/bunt & neu.gif", "GIF-Bytes");
  directory.write("export/pix/0102_bunt___neu.gif", "alt");

  EXPECT_EQ(nameOf("bunt & neu.gif"), "0102_bunt___neu.gif");

  EXPECT_EQ(directory.read("export/pix/0102_bunt___neu.gif"), "GIF-Bytes");
}

TEST_F(Conversion, of_what_cannot_be_read_writes_nothing_and_tells_why)
{
  directory.write("fotos/kaputt.jpg", "kein Bild");
  directory.write("fotos/leer.jpg", "");

  for (const char* name : {"kaputt.jpg", "leer.jpg", "fehlt.jpg"}) {
    const auto out = run(name);
    EXPECT_EQ(out.dateiname, "0102_" + std::string(name).substr(0, std::string(name).size() - 4) + "_580.jpg");
    EXPECT_TRUE(out.failure) << name;
  }
  EXPECT_THAT(pixNames(), IsEmpty());
}

TEST_F(Conversion, with_a_limit_that_is_no_number_writes_nothing)
{
  photo("a.jpg", 600, 400);
  for (const char* text : {"", "viel", "0", "-5"}) {
    options.tbpixel = text;
    EXPECT_TRUE(run("a.jpg").failure) << text;
  }
  EXPECT_THAT(pixNames(), IsEmpty());
}

TEST_F(Conversion, reads_the_number_at_the_start_of_the_limit)
{
  photo("a.jpg", 600, 400);
  options.tbpixel = "300 Pixel";

  EXPECT_EQ(nameOf("a.jpg"), "0102_a_300.jpg");
}

TEST_F(Conversion, keeps_the_colours_of_a_picture_it_makes_small)
{
  photo("a.jpg", 1600, 1200, {200, 100, 50});

  EXPECT_LE(distance(Image::load(pix(nameOf("a.jpg"))).pixel(200, 200), {200, 100, 50}), 6);
}

TEST_F(Conversion, lays_transparency_on_the_page_background)
{
  fields.tbhintergrund = "#204060";
  std::filesystem::copy_file(files::nativePath(sample("transparent.png")), files::nativePath(fotos() + "t.png"));

  EXPECT_LE(distance(Image::load(pix(nameOf("t.png"))).pixel(0, 0), {0x20, 0x40, 0x60}), 6);

  options.tbpixel = "50";
  EXPECT_LE(distance(Image::load(pix(nameOf("t.png"))).pixel(0, 0), {0x20, 0x40, 0x60}), 12);
}

TEST_F(Conversion, shows_the_same_picture_made_small_while_it_is_read_and_afterwards)
{
  for (const char* name : {"flower.jpg", "pil_sample_cmyk.jpg", "hopper_gray.jpg", "hopper_orientation_5.jpg", "tbgn2c16.png",
                           "hopper.bmp", "gif-named.jpg", "transparent.png"}) {
    const auto size = fitted(Image::sizeOf(sample(name)), 24);
    const auto direct = Image::loadResized(sample(name), size), whole = Image::load(sample(name)).resized(size);
    ASSERT_EQ(direct.size(), whole.size()) << name;
    long long sum = 0;
    for (std::size_t at = 0; at < direct.bytes().size(); ++at)
      sum += std::abs(direct.bytes()[at] - whole.bytes()[at]);
    EXPECT_LE(sum / static_cast<long long>(direct.bytes().size()), 4) << name;
  }
}

struct Rotation : testing::Test, PictureDesk {};

TEST_F(Rotation, turns_a_photograph_in_its_place)
{
  auto picture = Image::create(40, 20);
  picture.fillRectangle({0, 0, 8, 8}, {255, 0, 0});
  picture.saveJpeg(fotos() + "a.jpg", 2);

  EXPECT_EQ(rotatePicture(fotos() + "a.jpg", 35), fotos() + "a.jpg");

  const auto turned = Image::load(fotos() + "a.jpg");
  EXPECT_EQ(turned.size(), (Size{20, 40}));
  EXPECT_GT(turned.pixel(16, 3).red, 200);
  EXPECT_LT(turned.pixel(3, 36).red, 60);
}

TEST_F(Rotation, puts_a_photograph_beside_another_kind_of_picture)
{
  const auto bytes = files::readFile(sample("transparent.png"));
  directory.write("fotos/t.png", bytes);

  EXPECT_EQ(rotatePicture(fotos() + "t.png", 35), fotos() + "t.jpg");

  EXPECT_EQ(Image::sizeOf(fotos() + "t.jpg"), (Size{150, 200}));
  EXPECT_EQ(files::readFile(fotos() + "t.png"), bytes);
}

} // namespace
} // namespace mrd::pictures
