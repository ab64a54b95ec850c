// The head of the pages for telephones, by the option that is set.

#include "base/text.h"
#include "imode/imode_site.h"
#include "platform/files/files.h"

#include <gmock/gmock.h>

namespace mrd::imode {
namespace {

using settings::OpImodeKopf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

struct PageHeadTest : testing::Test {
  ImodeSite site{{"00", "Start", ""}, {"01", "Haus", ""}};

  void run(OpImodeKopf option)
  {
    site.fields.Opimmodekopf = option;
    site.run();
  }
  /// What stands between the row that begins the body and the page's content.
  std::string head(const std::string& file) const
  {
    return generator::between(site.page(file), "<FONT color=#000000>\r\n", "\r\n<!-- Beginn Inhalt -->");
  }
};

TEST_F(PageHeadTest, without_a_head_is_an_empty_line)
{
  run(OpImodeKopf::None);

  EXPECT_EQ(head("index.htm"), "\r\n");
}

TEST_F(PageHeadTest, of_a_logo_shows_it_on_every_page_and_saves_it_once)
{
  site.fields.tbimodekopftext = "Haus Möwe";

  run(OpImodeKopf::Logo);

  EXPECT_EQ(head("index.htm"), lines("<div align=center><img src='pix/imodelogo.gif'></div>¶¶"));
  EXPECT_EQ(head("01.htm"), head("index.htm"));
  EXPECT_THAT(site.entered(2), ElementsAre("pix\\imodelogo.gif"));
  EXPECT_THAT(site.site.read("imode/pix/imodelogo.gif"), StartsWith("GIF87a\x78"));
  EXPECT_EQ(image::Image::sizeOf(site.site.file("imode\\pix\\imodelogo.gif")), (image::Size{120, 20}));
}

TEST_F(PageHeadTest, of_a_logo_is_written_once_in_a_run_and_anew_in_the_next)
{
  site.fields.Opimmodekopf = OpImodeKopf::Logo;
  std::size_t saved = 0;
  site.ui.atPump = [&] {
    const auto logo = site.site.file("imode\\pix\\imodelogo.gif");
    saved += files::fileExists(logo);
    if (files::fileExists(logo))
      files::removeFile(logo);
  };

  site.run();

  EXPECT_EQ(saved, 1u) << "the second page shows it, and does not save it again";
  EXPECT_FALSE(site.has("pix/imodelogo.gif"));
  site.ui.atPump = nullptr;
  site.run();
  EXPECT_TRUE(site.has("pix/imodelogo.gif"));
}

TEST_F(PageHeadTest, of_a_logo_that_cannot_be_saved_ends_the_run_with_message_1)
{
  site.site.write("imode/pix/imodelogo.gif/x", "a directory is in its place");
  site.ui.expect(1, "in Modul cbHTML_Click");

  run(OpImodeKopf::Logo);

  EXPECT_FALSE(site.has("01.htm"));
}

TEST_F(PageHeadTest, of_a_text_is_the_text_without_blanks_around_it)
{
  site.fields.tbimodekopftext = "  Möwe & <b>Meer</b> [mrd:Textfarbe] ";

  run(OpImodeKopf::Text);

  EXPECT_EQ(head("01.htm"), lines("<div align=center>Möwe & <b>Meer</b> [mrd:Textfarbe]</div><br>¶"));
}

TEST_F(PageHeadTest, of_a_picture_brings_it_as_it_is_and_enters_it_where_it_lies)
{
  site.pictures.write("Logo.GIF", "logo");
  site.fields.Lblimodegif = site.pictures.file("Logo.GIF");

  run(OpImodeKopf::Gif);

  EXPECT_EQ(head("01.htm"), lines("<div align=center><img src='pix/Logo.GIF'></div>¶¶"));
  EXPECT_EQ(site.site.read("imode/pix/Logo.GIF"), "logo");
  EXPECT_THAT(site.entered(2), ElementsAre(base::lower(site.pictures.file("logo.gif"))));
}

TEST_F(PageHeadTest, of_a_picture_leaves_one_of_the_name_that_is_there)
{
  site.pictures.write("logo.gif", "neu");
  site.site.write("imode/pix/logo.gif", "alt");
  site.fields.Lblimodegif = site.pictures.file("logo.gif");

  run(OpImodeKopf::Gif);

  EXPECT_EQ(site.site.read("imode/pix/logo.gif"), "alt");
}

TEST_F(PageHeadTest, of_a_picture_that_is_missing_is_told_and_ends_the_run)
{
  site.fields.Lblimodegif = site.pictures.file("weg.gif");
  site.ui.expect(0, "Die Datei " + site.pictures.file("weg.gif") + " wurde nicht gefunden!").expect(1, "in Modul cbHTML_Click");

  run(OpImodeKopf::Gif);

  EXPECT_THAT(site.entered(2), IsEmpty());
  EXPECT_FALSE(site.has("01.htm"));
}

} // namespace
} // namespace mrd::imode
