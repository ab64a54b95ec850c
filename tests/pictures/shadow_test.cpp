#include "pictures/shadow.h"

#include "base/errors.h"
#include "editor/document_surface.h"
#include "frame/paths/paths.h"
#include "pictures/picture_desk.h"
#include "support/scripted_ui.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::pictures {
namespace {

using image::Colour;
using image::Image;
using image::Size;

/// The twelve colours behind a picture of 100 x 60, from the edge inwards along the lower strip.
std::vector<Colour> ringsOf(std::string_view background)
{
  const auto drawn = withShadow(Image::create(100, 60), background);
  std::vector<Colour> rings;
  for (int y = 72; y >= 60; --y)
    if (const auto colour = drawn.pixel(60, y); rings.empty() || rings.back() != colour)
      rings.push_back(colour);
  return rings;
}

TEST(Shadow, grows_the_picture_to_the_right_and_downwards_and_leaves_it_as_it_is)
{
  auto picture = Image::create(50, 40);
  picture.fill({1, 2, 3});
  picture.fillRectangle({49, 39, 1, 1}, {200, 0, 0});

  const auto out = withShadow(picture, "ffffff");

  EXPECT_EQ(out.size(), (Size{63, 53}));
  for (int y = 0; y < 40; ++y)
    for (int x = 0; x < 50; ++x)
      ASSERT_EQ(out.pixel(x, y), picture.pixel(x, y));
}

TEST(Shadow, leaves_the_two_other_corners_in_the_background)
{
  const auto out = withShadow(Image::create(50, 40), "204060");

  for (const auto& [x, y] : {std::pair{0, 40}, {12, 52}, {50, 0}, {62, 12}})
    EXPECT_EQ(out.pixel(x, y), (Colour{0x20, 0x40, 0x60})) << x << "," << y;
}

TEST(Shadow, darkens_inwards_from_249_to_117_on_white)
{
  const auto rings = ringsOf("FFFFFF");

  EXPECT_EQ(rings.front(), (Colour{249, 249, 249}));
  // At 15 twips to the pixel two of the rings can share one, and the innermost lies partly under the picture.
  for (std::size_t i = 1; i < rings.size(); ++i) {
    EXPECT_LT(rings[i].red, rings[i - 1].red);
    EXPECT_EQ((249 - rings[i].red) % 12, 0);
  }
  EXPECT_EQ(rings.back(), (Colour{117, 117, 117}));
}

TEST(Shadow, cannot_be_seen_on_black) { EXPECT_THAT(ringsOf("000000"), testing::ElementsAre(Colour{0, 0, 0})); }

TEST(Shadow, stops_every_channel_at_0)
{
  for (const auto& ring : ringsOf("204060")) {
    const int by = 0x60 - ring.blue;
    EXPECT_EQ(ring.red, std::max(0, 0x20 - by));
    if (ring.blue > 0) {
      EXPECT_EQ(ring.green, std::max(0, 0x40 - by));
    }
  }
  EXPECT_EQ(ringsOf("204060").back(), (Colour{0, 0, 0}));
}

TEST(Shadow, of_a_very_small_picture_is_drawn_as_far_as_it_goes)
{
  EXPECT_EQ(withShadow(Image::create(1, 1), "ffffff").size(), (Size{14, 14}));
}

TEST(Shadow, takes_colours_with_and_without_a_number_sign_and_no_other_text)
{
  EXPECT_EQ(withShadow(Image::create(9, 9), "#204060").pixel(21, 0), (Colour{0x20, 0x40, 0x60}));
  for (const char* text : {"", "weiss", "fff", "-1-1-1"})
    EXPECT_THROW(withShadow(Image::create(9, 9), text), base::Error) << text;
}

struct ShadowFile : testing::Test, PictureDesk {
  support::ScriptedUi ui;
  editor::DocumentSurface surface;
  frmBildkonvertierer window;
};

TEST_F(ShadowFile, stands_beside_its_picture_and_is_a_jpeg_whatever_its_name)
{
  directory.write("export/pix/a.png", files::readFile(sample("transparent.png")));

  erzeuge_schatten(pix(), "a", "png", "204060");

  EXPECT_EQ(Image::sizeOf(pix("a_shd.png")), (Size{213, 163}));
  EXPECT_EQ(directory.read("export/pix/a_shd.png").substr(0, 2), "\xFF\xD8");
  EXPECT_LE(distance(Image::load(pix("a_shd.png")).pixel(1, 1), {0x20, 0x40, 0x60}), 6);
}

TEST_F(ShadowFile, is_within_a_jpegs_tolerance_of_the_drawing)
{
  photo("..\\export\\pix\\a.jpg", 80, 60);
  const auto drawn = withShadow(Image::load(pix("a.jpg")), "ffffff");

  erzeuge_schatten(pix(), "a", "jpg", "ffffff");

  const auto read = Image::load(pix("a_shd.jpg"));
  ASSERT_EQ(read.size(), drawn.size());
  long long sum = 0;
  for (std::size_t at = 0; at < drawn.bytes().size(); ++at)
    sum += std::abs(drawn.bytes()[at] - read.bytes()[at]);
  EXPECT_LE(sum / static_cast<long long>(drawn.bytes().size()), 3);
}

TEST_F(ShadowFile, of_a_picture_that_cannot_be_read_fails)
{
  directory.write("export/pix/a.jpg", "kein Bild");

  EXPECT_THROW(erzeuge_schatten(pix(), "a", "jpg", "ffffff"), base::Error);
}

TEST_F(ShadowFile, of_every_picture_of_a_page_takes_its_place_there)
{
  photo("..\\export\\pix\\a.jpg", 20, 20);
  photo("..\\export\\pix\\b.jpg", 20, 20);
  surface.setBodyInnerHtml("<p><img src=\"file://" + directory.file("export\\pix") + "/a.jpg\"><img src=\"" + pix("b.jpg") +
                           "\"><img src=\"pix/fehlt.jpg\" alt=\"x\"></p>");

  EXPECT_EQ(schatten_fuer_seite({surface, ui, window}, "ffffff"), 2u);

  EXPECT_THAT(pixNames(), testing::ElementsAre("a.jpg", "a_shd.jpg", "b.jpg", "b_shd.jpg"));
  EXPECT_EQ(surface.bodyInnerHtml(), "<p><img src=\"" + pix() + "\\a_shd.jpg\"><img src=\"" + pix() +
                                         "\\b_shd.jpg\"><img src=\"pix/fehlt.jpg\" alt=\"x\"></p>");
  EXPECT_THAT(ui.statusTexts, testing::ElementsAre("Schatten für a.jpg", "Schatten für b.jpg", "Schatten für fehlt.jpg"));
  EXPECT_EQ(ui.pointerShape, ui::Pointer::Default);
}

TEST_F(ShadowFile, of_a_page_that_has_shadows_is_a_shadow_of_the_shadow)
{
  photo("..\\export\\pix\\a.jpg", 20, 20);
  surface.setBodyInnerHtml("<img src=\"" + pix("a.jpg") + "\">");

  schatten_fuer_seite({surface, ui, window}, "ffffff");
  schatten_fuer_seite({surface, ui, window}, "ffffff");

  EXPECT_THAT(pixNames(), testing::ElementsAre("a.jpg", "a_shd.jpg", "a_shd_shd.jpg"));
}

TEST_F(ShadowFile, stops_where_the_user_wants_it_to)
{
  photo("..\\export\\pix\\a.jpg", 20, 20);
  surface.setBodyInnerHtml("<img src=\"" + pix("a.jpg") + "\"><img src=\"" + pix("a.jpg") + "\">");
  ui.stopAtPump = 2;

  EXPECT_EQ(schatten_fuer_seite({surface, ui, window}, "ffffff"), 1u);

  EXPECT_EQ(surface.bodyInnerHtml(), "<img src=\"" + pix() + "\\a_shd.jpg\"><img src=\"" + pix("a.jpg") + "\">");
}

TEST_F(ShadowFile, comes_and_goes_with_a_single_picture)
{
  photo("..\\export\\pix\\a.jpg", 20, 20);

  const auto with = schatten_hinzufügen("file://" + pix("a.jpg"), "ffffff");
  ASSERT_EQ(with, pix() + "\\a_shd.jpg");
  EXPECT_EQ(schatten_entfernen(*with, ui), pix() + "\\a.jpg");

  EXPECT_TRUE(paths::datei_vorhanden(pix("a_shd.jpg")));
  EXPECT_FALSE(schatten_hinzufügen("file://" + pix("fehlt.jpg"), "ffffff"));
}

TEST_F(ShadowFile, that_never_was_leaves_the_reference_as_it_is)
{
  photo("..\\export\\pix\\a.jpg", 20, 20);

  EXPECT_EQ(schatten_entfernen("file://" + pix("a.jpg"), ui), pix("a.jpg"));
}

TEST_F(ShadowFile, stays_where_the_picture_has_gone)
{
  ui.expect(0, "Die Originaldatei wurde nicht gefunden!\r\nBitte fügen Sie das Bild erneut ein!");

  EXPECT_FALSE(schatten_entfernen(pix("weg_shd.jpg"), ui));
}

TEST_F(ShadowFile, of_a_very_small_picture_is_saved)
{
  photo("..\\export\\pix\\a.jpg", 1, 1);

  erzeuge_schatten(pix(), "a", "jpg", "ffffff");

  EXPECT_EQ(Image::sizeOf(pix("a_shd.jpg")), (Size{14, 14}));
}

TEST_F(ShadowFile, leaves_a_page_without_pictures_as_it_is_and_lets_the_window_flash)
{
  std::vector<std::string> flashes;
  window.window.show = [&] { flashes.emplace_back("shown"); };
  window.window.unload = [&] { flashes.emplace_back("unloaded"); };
  surface.setBodyInnerHtml("<p>Text</p>");

  EXPECT_EQ(schatten_fuer_seite({surface, ui, window}, "ffffff"), 0u);

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p>");
  EXPECT_THAT(flashes, testing::ElementsAre("shown", "unloaded"));
  EXPECT_THAT(ui.statusTexts, testing::IsEmpty());
  EXPECT_THAT(pixNames(), testing::IsEmpty());
}

} // namespace
} // namespace mrd::pictures
