#include "pictures/objekt_anzeigen.h"

#include "pictures/bildkonvertierer.h"
#include "pictures/picture_desk.h"
#include "support/test_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::pictures {
namespace {

using image::Size;
using testing::HasSubstr;
using testing::IsEmpty;

struct OneProgram : ui::Shell {
  void open(std::string_view path) override { opened.emplace_back(path); }
  std::optional<std::string> programFor(std::string_view) override { return program; }
  std::optional<std::string> program;
  std::vector<std::string> opened;
};

struct Viewer : testing::Test, PictureDesk {
  Viewer()
  {
    form.window.refresh = [this] { ++refreshes; };
    form.window.room = [this] { return room; };
  }

  support::TestProgram program;
  OneProgram shell;
  Size room{400, 300};
  int refreshes = 0;
  formobjektanzeigen form{program.language, shell};
};

TEST_F(Viewer, fits_a_picture_to_the_width_of_the_window_and_names_it)
{
  form.anzeigen(photo("breit.jpg", 800, 200), "Bitmap");

  EXPECT_EQ(form.LEAD1(), (Size{400, 100}));
  EXPECT_EQ(form.picture()->size(), (Size{400, 100}));
  EXPECT_EQ(form.LabelInfo, "800 x 200 pix: breit.jpg");
  EXPECT_EQ(form.caption, fotos() + "breit.jpg");
}

TEST_F(Viewer, fits_a_picture_to_the_height_where_the_width_makes_it_too_high)
{
  form.anzeigen(photo("hoch.jpg", 200, 800), "Bitmap");

  EXPECT_EQ(form.LEAD1(), (Size{75, 300}));
}

TEST_F(Viewer, enlarges_a_small_picture_that_it_fits_into_the_window)
{
  form.anzeigen(photo("klein.jpg", 40, 30), "Bitmap");

  EXPECT_EQ(form.LEAD1(), (Size{400, 300}));
  EXPECT_EQ(form.picture()->size(), (Size{40, 30}));
}

TEST_F(Viewer, shows_a_picture_that_is_larger_than_the_window_with_and_without_fitting_it)
{
  form.anzeigen(photo("gross.jpg", 1200, 900), "Bitmap");

  form.checkstretch = false;
  form.checkstretch_Click();
  EXPECT_EQ(form.LEAD1(), (Size{1200, 900}));
  EXPECT_EQ(form.picture()->size(), (Size{1200, 900}));

  form.checkstretch = true;
  form.checkstretch_Click();
  EXPECT_EQ(form.LEAD1(), (Size{400, 300}));
}

TEST_F(Viewer, follows_the_size_of_its_window_once_it_shows_something)
{
  form.Form_Resize();
  EXPECT_EQ(refreshes, 0);
  form.anzeigen(photo("a.jpg", 800, 600), "Bitmap");

  room = {200, 300};
  form.Form_Resize();

  EXPECT_EQ(form.LEAD1(), (Size{200, 150}));
}

TEST_F(Viewer, takes_pictures_for_such_by_their_extension)
{
  form.anzeigen(sample("python.ico"), "Bitmap");
  EXPECT_THAT(form.LabelInfo, HasSubstr("pix: python.ico"));

  for (const char* name : {"rotating-squares.gif", "pil184.pcx", "hopper.bmp", "transparent.png"})
    form.anzeigen(sample(name), "Shell");

  EXPECT_EQ(form.caption, sample("transparent.png"));
  EXPECT_THAT(shell.opened, IsEmpty());
}

TEST_F(Viewer, keeps_the_picture_before_one_that_cannot_be_read_without_a_word)
{
  form.anzeigen(photo("gut.jpg", 80, 60), "Bitmap");
  const auto info = form.LabelInfo;

  for (const char* name : {"text.jpg", "empty.jpg", "gibt-es-nicht.jpg"})
    form.anzeigen(sample(name), "Bitmap");

  EXPECT_EQ(form.caption, fotos() + "gut.jpg");
  EXPECT_EQ(form.LabelInfo, info);
  EXPECT_TRUE(form.isPictureVisible());
}

TEST_F(Viewer, hands_another_file_to_its_program_once)
{
  shell.program = "texteditor";
  directory.write("fotos/a.txt", "Text");

  form.anzeigen(fotos() + "a.txt");
  form.Form_Resize();
  form.checkstretch_Click();

  EXPECT_EQ(form.LabelInfo, "Datei wird mit texteditor angezeigt.");
  EXPECT_THAT(shell.opened, testing::ElementsAre(fotos() + "a.txt"));
  EXPECT_FALSE(form.isPictureVisible());
}

TEST_F(Viewer, says_so_where_no_program_shows_the_file)
{
  form.anzeigen(fotos() + "a.xyz", "Shell");

  EXPECT_THAT(form.LabelInfo, HasSubstr("kein Programm eingerichtet"));
  EXPECT_THAT(form.LabelInfo, HasSubstr("a.xyz"));
  EXPECT_THAT(shell.opened, IsEmpty());
}

TEST_F(Viewer, is_empty_when_it_opens_again)
{
  form.anzeigen(photo("a.jpg", 80, 60), "Bitmap");

  form.unload();

  EXPECT_EQ(form.caption, formobjektanzeigen::kFirstCaption);
  EXPECT_FALSE(form.picture());
  EXPECT_THAT(form.LabelInfo, IsEmpty());
}

TEST(WorkWindow, counts_and_stays_for_work_within_work)
{
  frmBildkonvertierer form;
  int shown = 0, unloaded = 0;
  form.window.show = [&] { ++shown; };
  form.window.unload = [&] { ++unloaded; };
  {
    const WorkOnPictures work(form, 60);
    form.progress(3);
    const WorkOnPictures inner(form);
    EXPECT_EQ(form.LabelAnzahl(), "3 / 60");
    form.cbanhalten_Click();
  }
  EXPECT_TRUE(form.isStopped());
  EXPECT_FALSE(form.isShown());
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(unloaded, 1);

  const WorkOnPictures next(form);
  EXPECT_FALSE(form.isStopped());
  EXPECT_EQ(form.LabelAnzahl(), "");
}

} // namespace
} // namespace mrd::pictures
