// Pictures of a page on its way to a telephone.

#include "base/text.h"
#include "imode/imode_site.h"
#include "platform/files/files.h"

#include <gmock/gmock.h>

namespace mrd::imode {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct ImodePicturesTest : testing::Test {
  ImodeSite site{{"00", "Start", ""}};

  void page(std::string id, std::string html) { site.project.addPage({std::move(id), "Bild", std::move(html)}); }
  std::string fileReference(std::string_view path) { return "file://" + base::replaceAll(path, "\\", "/"); }
  void expectMissing(const std::string& name)
  {
    site.ui.expect(0, "Die Datei " + site.site.file("imode\\pix\\" + name) + " wurde nicht gefunden!");
  }
};

TEST_F(ImodePicturesTest, become_gif_files_of_at_most_120_pixels)
{
  page("01",
       image(fileReference(site.picture("Foto Möwe.JPG", 600, 300))) + image(fileReference(site.picture("hoch.jpg", 90, 240))));

  site.run();

  EXPECT_EQ(site.body("01.htm"), "<img src=\"pix/foto möwe_xs.gif\"><img src=\"pix/hoch_xs.gif\">");
  EXPECT_THAT(files::fileNames(site.site.file("imode\\pix")), ElementsAre("foto möwe_xs.gif", "hoch_xs.gif"));
  EXPECT_EQ(image::Image::sizeOf(site.site.file("imode\\pix\\foto möwe_xs.gif")), (image::Size{120, 60}));
  EXPECT_EQ(image::Image::sizeOf(site.site.file("imode\\pix\\hoch_xs.gif")), (image::Size{45, 120}));
  EXPECT_THAT(site.entered(2), ElementsAre("pix\\foto möwe_xs.gif", "pix\\hoch_xs.gif"));
}

TEST_F(ImodePicturesTest, keep_their_other_attributes_and_the_order_of_the_page)
{
  const auto a = fileReference(site.picture("a.jpg", 200, 200)), b = fileReference(site.picture("b.jpg", 200, 200));
  page("01", "<table><tr><td><img src='" + a + "' alt='A' border=0></td><th><img src='" + b + "'></th></tr></table>");

  site.run();

  EXPECT_EQ(site.body("01.htm"),
            lines("<img src=\"pix/b_xs.gif\"><br><img src=\"pix/a_xs.gif\" alt=\"A\" border=\"0\"><br><br>¶"));
  EXPECT_THAT(site.entered(2), ElementsAre("pix\\a_xs.gif", "pix\\b_xs.gif"));
}

TEST_F(ImodePicturesTest, of_exactly_120_pixels_keep_name_and_format_and_are_told_as_missing)
{
  page("01", image(fileReference(site.picture("Klein.jpg", 120, 90))));
  expectMissing("Klein.jpg");

  site.run();

  EXPECT_EQ(site.body("01.htm"), image("pix/klein.jpg"));
  EXPECT_THAT(site.entered(2), IsEmpty());
  EXPECT_THAT(files::fileNames(site.site.file("imode\\pix")), IsEmpty());
}

TEST_F(ImodePicturesTest, that_are_small_are_entered_when_they_lie_in_the_directory_already)
{
  site.site.write("imode/pix/klein.jpg", "von Hand");
  page("01", image(fileReference(site.picture("Klein.jpg", 119, 120))));

  site.run();

  EXPECT_EQ(site.body("01.htm"), image("pix/klein.jpg"));
  EXPECT_THAT(site.entered(2), ElementsAre("pix\\klein.jpg"));
}

TEST_F(ImodePicturesTest, that_are_small_are_told_of_for_each_use)
{
  const auto small = fileReference(site.picture("klein.jpg", 10, 10));
  page("01", image(small) + image(small));
  page("02", image(small));
  expectMissing("klein.jpg");
  expectMissing("klein.jpg");
  expectMissing("klein.jpg");

  EXPECT_TRUE(site.run().finished);
}

TEST_F(ImodePicturesTest, of_the_web_stay_absolute_addresses)
{
  page("01", image("http://x.example/gross.jpg") + image("https://x.example/b.png"));

  site.run();

  EXPECT_EQ(site.body("01.htm"), image("http://x.example/gross.jpg") + image("https://x.example/b.png"));
  EXPECT_THAT(site.entered(2), IsEmpty());
}

TEST_F(ImodePicturesTest, that_are_missing_or_damaged_stay_as_they_were)
{
  site.pictures.write("kaputt.jpg", "no picture");
  const auto missing = fileReference(site.pictures.file("weg & da.jpg")),
             damaged = fileReference(site.pictures.file("kaputt.jpg"));
  page("01", "<IMG SRC='" + missing + "'>" + image(damaged) + image("pix/weg.jpg"));

  EXPECT_TRUE(site.run().finished);

  EXPECT_EQ(site.body("01.htm"), image(base::replaceAll(missing, "&", "&amp;")) + image(damaged) + image("pix/weg.jpg"));
  EXPECT_THAT(site.entered(2), IsEmpty());
}

TEST_F(ImodePicturesTest, that_were_made_before_are_not_made_again)
{
  site.site.write("imode/pix/a_xs.gif", "alt");
  page("01", image(fileReference(site.picture("a.jpg", 300, 300))));

  site.run();

  EXPECT_EQ(site.site.read("imode/pix/a_xs.gif"), "alt");
  EXPECT_EQ(site.body("01.htm"), image("pix/a_xs.gif"));
}

TEST_F(ImodePicturesTest, may_be_gone_once_their_small_ones_are_made)
{
  site.site.write("imode/pix/a_xs.gif", "alt");
  page("01", image("pix/a.jpg"));

  site.run();

  EXPECT_EQ(site.body("01.htm"), image("pix/a_xs.gif"));
  EXPECT_THAT(site.entered(2), ElementsAre("pix\\a_xs.gif"));
}

TEST_F(ImodePicturesTest, of_one_name_are_the_first_one_of_them)
{
  site.pictures.write("x/y", "");
  site.pictures.write("z/y", "");
  page("01", image(fileReference(site.picture("x/bild.jpg", 300, 150))));
  page("02", image(fileReference(site.picture("z/Bild.jpg", 150, 300))));

  site.run();

  EXPECT_EQ(image::Image::sizeOf(site.site.file("imode\\pix\\bild_xs.gif")), (image::Size{120, 60}));
  EXPECT_EQ(site.body("02.htm"), image("pix/bild_xs.gif"));
}

TEST_F(ImodePicturesTest, of_one_name_of_which_the_first_is_small_or_missing_are_looked_at_one_by_one)
{
  site.pictures.write("x/y", "");
  page("01", image(fileReference(site.pictures.file("weg\\bild.jpg"))));
  page("02", image(fileReference(site.picture("bild.jpg", 20, 20))));
  page("03", image(fileReference(site.picture("x/bild.jpg", 150, 300))));
  page("04", image(fileReference(site.pictures.file("bild.jpg"))));
  expectMissing("bild.jpg");

  site.run();

  EXPECT_EQ(site.body("01.htm"), image(fileReference(site.pictures.file("weg\\bild.jpg"))));
  EXPECT_EQ(site.body("02.htm"), image("pix/bild.jpg"));
  EXPECT_EQ(site.body("03.htm"), image("pix/bild_xs.gif"));
  EXPECT_EQ(site.body("04.htm"), image("pix/bild_xs.gif"));
}

TEST_F(ImodePicturesTest, without_an_extension_stay_as_they_are)
{
  site.picture("ohne", 300, 300);
  page("01", image(fileReference(site.pictures.file("ohne"))));

  site.run();

  EXPECT_EQ(site.body("01.htm"), image(fileReference(site.pictures.file("ohne"))));
}

TEST_F(ImodePicturesTest, of_a_refused_page_are_not_made)
{
  site.project.addPage({"01", "Weg", image(fileReference(site.picture("a.jpg", 300, 300))), "../x.htm"});
  site.ui.expect(101);

  site.run();

  EXPECT_THAT(files::fileNames(site.site.file("imode\\pix")), IsEmpty());
}

TEST_F(ImodePicturesTest, lost_with_a_caption_are_made_all_the_same)
{
  page("01",
       "<table><caption>" + image(fileReference(site.picture("a.jpg", 300, 300))) + "</caption><tr><td>x</td></tr></table>");

  site.run();

  EXPECT_EQ(site.body("01.htm"), "x<br><br>\r\n");
  EXPECT_THAT(site.entered(2), ElementsAre("pix\\a_xs.gif"));
}

TEST_F(ImodePicturesTest, are_as_many_as_a_site_has)
{
  std::string all;
  for (int i = 0; i < 30; ++i) {
    const auto name = std::to_string(i);
    all += image(fileReference(site.picture("b" + name + ".jpg", 130 + i, 50)));
    page(i < 9 ? "0" + std::to_string(i + 1) : std::to_string(i + 1), all);
  }

  EXPECT_TRUE(site.run().finished);

  EXPECT_EQ(files::fileNames(site.site.file("imode\\pix")).size(), 30u);
  EXPECT_EQ(site.entered(2).size(), 30u);
}

} // namespace
} // namespace mrd::imode
